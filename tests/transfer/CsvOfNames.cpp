#include "transfer/ReportExporter.h"

#include <iostream>
#include <iterator>

/// Reads paths from the input, each ended by a NUL, and prints the CSV of a run over them. Each path is also
/// its own destination and error text.
int main() {
    const std::string input(std::istreambuf_iterator<char>(std::cin), {});
    lumeo::OperationManifest manifest;
    manifest.operationType = "copy";
    for (std::size_t start = 0; start < input.size();) {
        const std::size_t end = input.find('\0', start);
        const std::string path = input.substr(start, end - start);
        lumeo::FileTransactionItem record;
        record.originalPath = lumeo::FilePath(path);
        record.destinationPath = record.originalPath;
        record.errorMessage = path;
        manifest.items.push_back(std::move(record));
        start = end == std::string::npos ? input.size() : end + 1;
    }
    std::cout << lumeo::ReportExporter::generateCSV(manifest, {});
    return 0;
}
