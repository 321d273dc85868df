#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace lumeo {

/// The process that holds the lock of a file or folder, for a person: "lumeo (process 4711)". Absent when
/// the system does not tell, as of a process on another machine. `systemRoot` is where "proc" is looked
/// for. Any thread may call.
std::optional<std::string> lockHolder(const FileIdentity& locked, const FilePath& systemRoot = FilePath("/"));

} // namespace lumeo
