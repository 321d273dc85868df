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
    std::int64_t failedCount = 0;      ///< verified files that were left alone for any other reason
    std::vector<std::string> warnings; ///< one English text for each skipped or failed file, in order
    std::int64_t lostCount = 0;        ///< of the skipped: files that are not at their original place either

    /// Every file is back, now or since an earlier undo.
    [[nodiscard]] bool isComplete() const { return failedCount == 0 && lostCount == 0; }
    friend bool operator==(const UndoResult&, const UndoResult&) = default;
};

/// How far an undo has come.
struct UndoProgress {
    std::int64_t totalFiles = 0;     ///< verified files of the run
    std::int64_t processedCount = 0; ///< whatever the outcome
    std::string currentItemName;     ///< bytes as on disk; empty at the end
    friend bool operator==(const UndoProgress&, const UndoProgress&) = default;
};

/// What an undo would do, judged without reading any file.
struct UndoForecast {
    std::int64_t files = 0;           ///< verified files of the run
    std::int64_t withoutOriginal = 0; ///< of a copy: files that would stay, since their original is gone
    friend bool operator==(const UndoForecast&, const UndoForecast&) = default;
};

/// Takes a run back, touching only files proven to be byte for byte what the run wrote, below the roots
/// that the journal names. Of a copy, a file is removed only while its original stands elsewhere, whole.
/// Blocks the thread it is called on.
class UndoEngine {
public:
    using ProgressCallback = std::function<void(const UndoProgress&)>;

    /// `fileSystem` must outlive the engine.
    explicit UndoEngine(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    /// `onProgress` is called on this thread before each file and once at the end. Once `stop` is
    /// requested, what is left counts as failed and stays as it is, without being looked at.
    /// Callers hold the archive meanwhile; see takeBack().
    UndoResult rollback(
        const OperationManifest& manifest, const ProgressCallback& onProgress = [](const auto&) {},
        std::stop_token stop = {});

    [[nodiscard]] UndoForecast forecast(const OperationManifest& manifest,
                                        const std::stop_token& stop = {}) const;

private:
    FileSystem& fileSystem_;
};

/// The whole undo of the run whose journal is `journal`: with the archive held, and noted in the journal
/// when it is complete.
Result<UndoResult, RunRefusal> takeBack(
    FileSystem& fileSystem, const OperationManifest& manifest, const RunJournals& journals,
    const FilePath& journal, const UndoEngine::ProgressCallback& onProgress = [](const auto&) {},
    std::stop_token stop = {});

} // namespace lumeo
