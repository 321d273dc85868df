#pragma once

#include "platform/FileSystem.h"

namespace lumeo {

/// What the disk of `folder` accepts: `told`, made stricter by what a temporary file shows, unless the type
/// of the file system is certain. The file is removed at the end.
DiskTraits triedTraits(FileSystem& fileSystem, const FilePath& folder, DiskTraits told);

/// Whether a file of one byte can be written to the device of `folder`. The file is removed at the end.
FileResult<void> tryWriting(FileSystem& fileSystem, const FilePath& folder);

} // namespace lumeo
