#pragma once

#include "media/photo/PhotoProperties.h"

#include <string_view>

namespace lumeo {

/// Fills in what `properties` lacks from an XMP packet. A position is copied completely or not at all. The
/// time is proportional to the packet's length, whatever it holds.
void fillFromXmp(std::string_view packet, PhotoProperties& properties);

} // namespace lumeo
