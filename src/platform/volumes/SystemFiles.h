#pragma once

#include "platform/FilePath.h"

#include <optional>
#include <string>
#include <vector>

namespace lumeo {

/// The path with every link resolved; absent when it does not exist.
std::optional<FilePath> realPath(const FilePath& path);

/// What one of the kernel's own files says; empty when it cannot be read.
std::string contentOfSystemFile(const FilePath& path);

/// The names in one of the system's own folders, sorted; none when it cannot be read.
std::vector<std::string> namesInSystemFolder(const FilePath& folder);

} // namespace lumeo
