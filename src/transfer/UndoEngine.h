#pragma once

#include "platform/FileSystem.h"
#include "transfer/OperationManifest.h"
#include "transfer/RunJournals.h"
#include "transfer/RunRefusal.h"

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace lumeo {

struct UndoResult {
    std::int64_t restoredCount = 0;    ///< files deleted (copy run) or moved back (move run)
    std::int64_t skippedCount = 0;     ///< verified files that are no longer there
    std::int64_t failedCount = 0;      ///< verified files that stayed for any other reason
    std::vector<std::string> warnings; ///< one English text for each skipped or failed file, in order
    std::int64_t lostCount = 0;        ///< skipped files that are not at their original place either

    /// Every file is back, from this undo or an earlier one.
    [[nodiscard]] bool isComplete() const { return failedCount == 0 && lostCount == 0; }
    friend bool operator==(const UndoResult&, const UndoResult&) = default;
};

/// The progress of an undo.
struct UndoProgress {
    std::int64_t totalFiles = 0;     ///< verified files of the run
    std::int64_t processedCount = 0; ///< files with any outcome
    std::string currentItemName;     ///< bytes as on disk; empty at the end
    friend bool operator==(const UndoProgress&, const UndoProgress&) = default;
};

/// What an undo would do. No file is read for it.
struct UndoForecast {
    std::int64_t files = 0;           ///< verified files of the run
    std::int64_t withoutOriginal = 0; ///< of a copy: files that would stay because their original is gone
    friend bool operator==(const UndoForecast&, const UndoForecast&) = default;
};

/// Undoes a run. It touches only files that are proven to be byte for byte what the run wrote, and only below
/// the roots that the journal names. A copied file is removed only while its original exists elsewhere,
/// unchanged. Blocks the thread it is called on.
class UndoEngine {
public:
    using ProgressCallback = std::function<void(const UndoProgress&)>;

    /// `fileSystem` must outlive the engine.
    explicit UndoEngine(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// `onProgress` is called on this thread before each file and once at the end. Once `stop` is requested,
    /// the remaining files are not examined; they count as failed and stay as they are. The caller must hold
    /// the archive during the call; see takeBack().
    UndoResult rollback(
        const OperationManifest& manifest, const ProgressCallback& onProgress = [](const auto&) {},
        std::stop_token stop = {});

    [[nodiscard]] UndoForecast forecast(const OperationManifest& manifest,
                                        const std::stop_token& stop = {}) const;

private:
    FileSystem& fileSystem_;
};

/// Undoes the run whose journal is `journal`. Holds the archive meanwhile, and notes a complete undo in the
/// journal.
Result<UndoResult, RunRefusal> takeBack(
    FileSystem& fileSystem, const OperationManifest& manifest, const RunJournals& journals,
    const FilePath& journal, const UndoEngine::ProgressCallback& onProgress = [](const auto&) {},
    std::stop_token stop = {});

} // namespace lumeo
