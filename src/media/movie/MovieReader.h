#pragma once

#include "media/movie/MovieProperties.h"
#include "platform/FilePath.h"

#include <optional>
#include <stop_token>

namespace lumeo {

class FileSystem;
class MediaHelper;

/// Reads a movie's container header. Any thread may call. Time and memory are bounded whatever the
/// file holds; the file is never read whole.
struct MovieReader {
    /// Absent when the file cannot be opened or is no container that is known. `helper` is asked where a
    /// container is known that no reader here is for.
    static std::optional<MovieProperties> read(const FileSystem& fileSystem, const FilePath& path,
                                               MediaHelper& helper, const std::stop_token& stop = {});
};

} // namespace lumeo
