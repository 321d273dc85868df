#pragma once

#include "platform/FileSystem.h"

#include <functional>
#include <stop_token>

namespace lumeo {

/// Receives what a walk below a folder meets. Every function may be empty.
struct FileVisitor {
    std::function<void(const FilePath& path, const FileStatus& status)> onFile; ///< a regular file
    std::function<void(const FilePath& path, const FileStatus& status)> onFolder;
    std::function<void(const FilePath& path)> onOther; ///< a link, a pipe, a device
    std::function<void(const FileError& error)> onProblem;
};

/// Walks through `root`, a folder or a single file, in the order of the disk. Like a scan, it leaves out the
/// system files of desktops. Unlike a scan, it enters folders that look like one document to their owner.
/// Blocks.
void walkFiles(const FileSystem& fileSystem, const FilePath& root, const FileVisitor& visitor,
               const std::stop_token& stop);

} // namespace lumeo
