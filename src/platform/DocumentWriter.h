#pragma once

#include "platform/FileSystem.h"

#include <string_view>

namespace lumeo {

/// Writes a document of the program's own (a journal, a report) to `path`: whole, durable, or not at
/// all. A file there is replaced only by the finished document; a symbolic link there stays, and what it
/// leads to is written. Anything else is refused. Blocks; any thread may call.
FileResult<void> writeDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path);

} // namespace lumeo
