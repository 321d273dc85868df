#pragma once

#include "platform/FileSystem.h"

#include <functional>
#include <stop_token>

namespace lumeo {

/// What is met on a walk through all that lies below a folder. Every function may be empty.
struct FileVisitor {
    std::function<void(const FilePath& path, const FileStatus& status)> onFile; ///< a regular file
    std::function<void(const FilePath& path, const FileStatus& status)> onFolder;
    std::function<void(const FilePath& path)> onOther; ///< a link, a pipe, a device
    std::function<void(const FileError& error)> onProblem;
};

/// Walks through `root`, a folder or a single file, in the order of the disk. The housekeeping of desktop
/// systems is left out, as a scan does; folders that are one document to their owner are not. Blocks.
void walkFiles(const FileSystem& fileSystem, const FilePath& root, const FileVisitor& visitor,
               const std::stop_token& stop);

} // namespace lumeo
