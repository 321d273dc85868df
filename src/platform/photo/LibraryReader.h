#pragma once

#include "platform/PhotoReader.h"
#include "platform/photo/FileWindow.h"

#include <optional>

namespace lumeo {

/// Has the metadata library (Exiv2) read a file of one of the formats that have no reader of ours. What
/// it had read when it gave up is kept. Absent when it does not recognise the file. Any thread may call.
std::optional<PhotoProperties> readWithLibrary(FileWindow& file);

} // namespace lumeo
