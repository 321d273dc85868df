#pragma once

#include "cli/Commands.h"
#include "scan/MediaScanner.h"

#include <vector>

namespace lumeo::cli {

/// What a scan found.
struct Catalogue {
    std::vector<MediaItem> items;
    ScanProgress progress;
};

/// Scans the sources with a status line; an interrupt ends it early with `progress.isCancelled`.
Catalogue scanSources(const Arguments& arguments, const Environment& environment);

/// One line a counter on stdout.
void printCounters(const ScanProgress& progress);

/// A row an item on stdout: date, where it comes from, kind, size, name.
void printItems(const std::vector<MediaItem>& items);

/// A row an item on stdout: where it lies and where it would go.
void printPlan(const std::vector<MediaItem>& items);

/// One coded item a line on stdout, then {"scanProgress": …}.
void printJson(const Catalogue& catalogue);

} // namespace lumeo::cli
