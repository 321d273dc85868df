#pragma once

#include "model/MediaItem.h"
#include "transfer/OperationManifest.h"

#include <span>
#include <string>

namespace lumeo {

/// Turns a run's journal into documents for people: a CSV table and a plain-text audit report. Both are
/// always in English, in UTF-8 without a byte-order mark. Paths that are not UTF-8 show replacement
/// characters.
struct ReportExporter {
    /// A header line and one row for each record, in order. `items` are the scanned items. They give the
    /// columns that the journal does not have.
    static std::string generateCSV(const OperationManifest& manifest, std::span<const MediaItem> items);

    /// A summary, one block for each record, and a list of the dates that the user should look at: `items`
    /// tell them. Control characters in names are escaped ("\n").
    static std::string generateTextReport(const OperationManifest& manifest,
                                          std::span<const MediaItem> items);

    /// "LUMEO_Organization_Report_", the time in ISO 8601, and the file extension.
    static std::string defaultCSVName(Instant now);
    static std::string defaultTextReportName(Instant now);
};

} // namespace lumeo
