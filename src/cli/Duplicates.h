#pragma once

#include "cli/Arguments.h"
#include "model/MediaItem.h"
#include "platform/FileSystem.h"

#include <vector>

namespace lumeo::cli {

/// Prints the groups with their files, and the bytes that could be saved, on stdout. The form is text, or
/// with --json {"groups": [{"id", "size", "reclaimableBytes", "files": [file URL…]}…], "reclaimableBytes"}.
void printDuplicates(const Arguments& arguments, const std::vector<MediaItem>& items,
                     const FileSystem& fileSystem);

} // namespace lumeo::cli
