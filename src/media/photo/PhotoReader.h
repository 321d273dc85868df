#pragma once

#include "media/photo/PhotoProperties.h"
#include "platform/FilePath.h"

#include <optional>
#include <stop_token>

namespace lumeo {

class FileSystem;

/// Reads an image file's metadata block, without decoding pixels. Any thread may call. Time and memory are
/// bounded, whatever the file holds.
struct PhotoReader {
    /// Absent when the file cannot be opened or is not recognised as an image. If the file is cut short or
    /// holds wrong data, the result is what was read before. The same applies to a read that is stopped or
    /// takes too long.
    static std::optional<PhotoProperties> read(const FileSystem& fileSystem, const FilePath& path,
                                               const std::stop_token& stop = {});
};

} // namespace lumeo
