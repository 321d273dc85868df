#pragma once

#include "media/photo/PhotoProperties.h"

#include <string_view>

namespace lumeo {

/// Fills what `properties` lacks from an XMP packet. A position is taken whole or not at all. Takes time in
/// proportion to the packet's length, whatever it holds.
void fillFromXmp(std::string_view packet, PhotoProperties& properties);

} // namespace lumeo
