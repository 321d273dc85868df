#pragma once

#include "platform/PhotoReader.h"

#include <string_view>

namespace Exiv2 {
class XmpData;
}

namespace lumeo {

/// Fills what `properties` lacks from an XMP packet that names it. A date that tells date and time
/// becomes a text of the forms that Exif dates are read in. A position is taken whole or not at all.
/// Any thread may call.
void fillFromXmpPacket(std::string_view packet, PhotoProperties& properties);

/// The same from a packet that the metadata library has decoded; its lock is held.
void fillFromXmp(const Exiv2::XmpData& xmp, PhotoProperties& properties);

} // namespace lumeo
