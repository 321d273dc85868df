#pragma once

#include "model/MediaItem.h"
#include "scan/ScanProgress.h"

#include <string>
#include <vector>

namespace lumeo::cli {

/// What a scan has come to, for the status line.
std::string scanFacts(const ScanProgress& progress);

/// One line a counter on stdout.
void printCounters(const ScanProgress& progress);

/// A row an item on stdout: date, where it comes from, kind, size, name.
void printItems(const std::vector<MediaItem>& items);

/// A row an item on stdout: where it lies and where it would go.
void printPlan(const std::vector<MediaItem>& items);

/// One coded item a line on stdout, then {"scanProgress": …}.
void printJson(const std::vector<MediaItem>& items, const ScanProgress& progress);

} // namespace lumeo::cli
