#pragma once

#include "platform/FileSystem.h"

#include <string_view>

namespace lumeo {

/// Writes a document of the program's own (a journal, a report) to `path`: whole, durable, or not at
/// all. A file there is replaced only by the finished document; a symbolic link there stays, and what it
/// leads to is written. Anything else is refused. Blocks; any thread may call.
FileResult<void> writeDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path,
                               FileAccess access = FileAccess::everyone);

/// The same, but never in the place of another file: what has the name by then stays, and the document is not
/// written (EEXIST).
FileResult<void> writeNewDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path);

/// Whether a document could be written to `path` as things stand, to be asked before work is begun whose
/// document would then have no place. What is there stays as it is. Blocks; any thread may call.
FileResult<void> tryDocument(FileSystem& fileSystem, const FilePath& path);

} // namespace lumeo
