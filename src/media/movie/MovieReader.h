#pragma once

#include "media/movie/MovieProperties.h"
#include "platform/FilePath.h"

#include <optional>
#include <stop_token>

namespace lumeo {

class FileSystem;
class MediaHelper;

/// Reads a movie's container header. Any thread may call. Time and memory are bounded, whatever the file
/// holds. The file is never read as a whole.
struct MovieReader {
    /// Absent when the file cannot be opened or its container is unknown. `helper` is asked about known
    /// containers that have no reader here.
    static std::optional<MovieProperties> read(const FileSystem& fileSystem, const FilePath& path,
                                               MediaHelper& helper, const std::stop_token& stop = {});
};

} // namespace lumeo
