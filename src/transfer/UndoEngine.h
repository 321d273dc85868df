#pragma once

#include "platform/FileSystem.h"
#include "transfer/OperationManifest.h"

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace lumeo {

struct UndoResult {
    std::int64_t restoredCount = 0;    ///< files deleted (copy run) or moved back (move run)
    std::int64_t skippedCount = 0;     ///< verified files that are no longer there
    std::int64_t failedCount = 0;      ///< verified files that were left alone for any other reason
    std::vector<std::string> warnings; ///< one English text for each skipped or failed file, in order
    friend bool operator==(const UndoResult&, const UndoResult&) = default;
};

/// How far an undo has come.
struct UndoProgress {
    std::int64_t totalFiles = 0;     ///< verified files of the run
    std::int64_t processedCount = 0; ///< whatever the outcome
    std::string currentItemName;     ///< bytes as on disk; empty at the end
    friend bool operator==(const UndoProgress&, const UndoProgress&) = default;
};

/// Takes a finished run back, touching only files proven to be byte for byte what the run wrote.
/// Blocks the thread it is called on.
class UndoEngine {
public:
    using ProgressCallback = std::function<void(const UndoProgress&)>;

    /// `fileSystem` must outlive the engine.
    explicit UndoEngine(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// `onProgress` is called on this thread before each file and once at the end. Once `stop` is
    /// requested, what is left counts as failed and stays as it is, without being looked at.
    UndoResult rollback(
        const OperationManifest& manifest, const ProgressCallback& onProgress = [](const auto&) {},
        std::stop_token stop = {});

private:
    FileSystem& fileSystem_;
};

} // namespace lumeo
