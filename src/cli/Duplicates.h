#pragma once

#include "cli/Catalogue.h"

namespace lumeo::cli {

/// Marks the catalogue's byte-identical files; an interrupt ends it early.
void analyzeDuplicates(const Arguments& arguments, const Environment& environment, Catalogue& catalogue);

/// The groups on stdout with their files, and the bytes that could be saved: as text, or with --json as
/// {"groups": [{"id", "size", "reclaimableBytes", "files": [file URL…]}…], "reclaimableBytes"}.
void printDuplicates(const Arguments& arguments, const Catalogue& catalogue);

} // namespace lumeo::cli
