#pragma once

#include "platform/FileSystem.h"

#include <string>

namespace lumeo {

/// Reads a whole document of the program's own, such as a journal. Fails with EFBIG above 4 GiB; no journal
/// gets that large. Blocks. Any thread may call.
FileResult<std::string> readDocument(const FileSystem& fileSystem, const FilePath& path);

} // namespace lumeo
