#pragma once

#include "platform/FileSystem.h"

#include <string>

namespace lumeo {

/// The whole content of a document of the program's own, such as a journal. Fails with EFBIG beyond
/// 4 GiB, which no journal reaches. Blocks; any thread may call.
FileResult<std::string> readDocument(const FileSystem& fileSystem, const FilePath& path);

} // namespace lumeo
