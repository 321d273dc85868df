#pragma once

#include "model/MediaItem.h"
#include "transfer/OperationManifest.h"

#include <span>
#include <string>

namespace lumeo {

/// Turns a run's journal into documents for people: a CSV table and a plain-text audit report, both
/// fixed English, UTF-8 without a byte-order mark. Paths that are not UTF-8 show replacement characters.
struct ReportExporter {
    /// A header line and one row for each record, in order. `items` are the scanned items, for the
    /// columns that the journal does not hold.
    static std::string generateCSV(const OperationManifest& manifest, std::span<const MediaItem> items);

    /// A summary and one block for each record. Control characters in names are written out ("\n").
    static std::string generateTextReport(const OperationManifest& manifest);

    /// "LUMEO_Organization_Report_" and the moment in ISO 8601, with its ending.
    static std::string defaultCSVName(Instant now);
    static std::string defaultTextReportName(Instant now);
};

} // namespace lumeo
