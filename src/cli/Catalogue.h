#pragma once

#include "model/MediaItem.h"
#include "scan/ScanProgress.h"

#include <string>
#include <vector>

namespace lumeo::cli {

/// The current result of a scan, for the status line.
std::string scanFacts(const ScanProgress& progress);

/// Prints one counter on each line of stdout.
void printCounters(const ScanProgress& progress);

/// Prints one row for each item on stdout: date, source of the date, kind, size, name.
void printItems(const std::vector<MediaItem>& items);

/// Prints one row for each item on stdout: where it is and where it would go.
void printPlan(const std::vector<MediaItem>& items);

/// Prints one coded item on each line of stdout, then {"scanProgress": …}.
void printJson(const std::vector<MediaItem>& items, const ScanProgress& progress);

} // namespace lumeo::cli
