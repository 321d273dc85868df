#pragma once

#include "platform/PhotoReader.h"
#include "platform/photo/FileWindow.h"
#include "platform/photo/ImageHeader.h"

#include <optional>

namespace lumeo {

/// Has the metadata library (Exiv2) read a CRW, MRW, PNG, WebP or JPEG 2000 file. What it had
/// read when it gave up is kept. Absent for other kinds, and when it does not recognise the file. Any
/// thread may call.
std::optional<PhotoProperties> readWithLibrary(FileWindow& file, ImageKind kind);

} // namespace lumeo
