#pragma once

#include "media/FileWindow.h"
#include "media/photo/PhotoProperties.h"

namespace lumeo {

// Two rare formats are decoded by the metadata library (Exiv2), from memory: handed a path, it would take
// some names for network addresses or the standard input. What it had read when it gave up is kept. Any
// thread may call.

/// A CRW file, whose directory of tagged heaps lies at its end.
PhotoProperties readCrw(FileWindow& file);

/// The Exif block that a PNG's chunk holds as hexadecimal text, perhaps compressed.
PhotoProperties readPngTextProfile(FileWindow& file, FileRange chunk);

} // namespace lumeo
