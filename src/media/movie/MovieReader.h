#pragma once

#include "media/movie/MovieProperties.h"
#include "platform/FilePath.h"

#include <optional>

namespace lumeo {

class FileSystem;

/// Reads a movie's container header. Any thread may call. Time and memory are bounded whatever the
/// file holds; the file is never read whole.
struct MovieReader {
    /// Absent when the file cannot be opened or is no container that is known.
    static std::optional<MovieProperties> read(const FileSystem& fileSystem, const FilePath& path);
};

} // namespace lumeo
