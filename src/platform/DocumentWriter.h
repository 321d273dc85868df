#pragma once

#include "platform/FileSystem.h"

#include <string_view>

namespace lumeo {

/// Writes one of the program's own documents (a journal, a report) to `path`: completely and durably, or not
/// at all. A file at the path is replaced only by the finished document. If the path is a symbolic link, the
/// link stays and its target is written. Anything else is refused. Blocks. Any thread may call.
FileResult<void> writeDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path,
                               FileAccess access = FileAccess::everyone);

/// The same, but it never replaces another file. If something has the name, it stays and the document is not
/// written (EEXIST).
FileResult<void> writeNewDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path);

/// Whether a document could be written to `path` now. Call this before starting work whose document would
/// otherwise have no place. Existing files stay as they are. Blocks. Any thread may call.
FileResult<void> tryDocument(FileSystem& fileSystem, const FilePath& path);

} // namespace lumeo
