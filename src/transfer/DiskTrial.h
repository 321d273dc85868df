#pragma once

#include "platform/FileSystem.h"

namespace lumeo {

/// What the disk of `folder` takes: `told`, made stricter by what one temporary file shows, unless the type
/// of the file system leaves no doubt. The file is gone afterwards.
DiskTraits triedTraits(FileSystem& fileSystem, const FilePath& folder, DiskTraits told);

/// Whether a file of one byte can be brought to the device of `folder`. The file is gone afterwards.
FileResult<void> tryWriting(FileSystem& fileSystem, const FilePath& folder);

} // namespace lumeo
