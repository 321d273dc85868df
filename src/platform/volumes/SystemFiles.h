#pragma once

#include "platform/FilePath.h"

#include <optional>
#include <string>
#include <vector>

namespace lumeo {

/// The path with every link resolved; absent when it does not exist.
std::optional<FilePath> realPath(const FilePath& path);

/// The content of one of the kernel's own files. Empty when it cannot be read.
std::string contentOfSystemFile(const FilePath& path);

/// The names in one of the system's own folders, sorted. Empty when it cannot be read.
std::vector<std::string> namesInSystemFolder(const FilePath& folder);

} // namespace lumeo
