#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace lumeo {

/// The process that holds the lock of a file or folder, as text for a person: "lumeo (process 4711)". Absent
/// when the system does not tell, for example for a process on another machine. "proc" is looked for in
/// `systemRoot`. Any thread may call.
std::optional<std::string> lockHolder(const FileIdentity& locked, const FilePath& systemRoot = FilePath("/"));

} // namespace lumeo
