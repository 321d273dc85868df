#pragma once

#include "media/photo/PhotoProperties.h"
#include "platform/FilePath.h"

#include <optional>
#include <stop_token>

namespace lumeo {

class FileSystem;

/// Reads an image file's metadata block; no pixels are decoded. Any thread may call. Time and memory
/// are bounded whatever the file holds.
struct PhotoReader {
    /// Absent when the file cannot be opened or no image can be recognised in it. A file that breaks
    /// off or lies part-way gives what was read before; so does one that is stopped or read for too long.
    static std::optional<PhotoProperties> read(const FileSystem& fileSystem, const FilePath& path,
                                               const std::stop_token& stop = {});
};

} // namespace lumeo
