#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "support/TempFolder.h"
#include "transfer/OperationManifest.h"
#include "transfer/RunPreparation.h"

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

/// A folder with source files and the archive that they are to go to, and an eye on every content.
/// The contents should all be different, so that each can be told from the others. It stands in memory
/// where there is such a file system, since the tests that try every call flush a lot.
class TransferWorld {
public:
    TransferWorld();

    /// Writes a source file and plans its place in the archive.
    MediaItem& add(std::string_view name, std::string content, std::string_view destination);

    [[nodiscard]] FilePath source(std::string_view name) const;
    [[nodiscard]] FilePath archived(std::string_view relative) const;
    [[nodiscard]] const std::string& content(std::string_view name) const;
    [[nodiscard]] OrganizationPlan plan(OperationMode mode) const;
    [[nodiscard]] std::vector<FilePath> sourceRoots() const { return {folder_ / "source"}; }

    /// All files of the archive, sorted, relative to it.
    [[nodiscard]] std::vector<std::string> archiveFiles() const;

    /// Every content stands whole under its source's or its final name, and no final name of the
    /// archive holds anything but one of the contents, whole.
    void expectNothingLost() const;
    void expectNoPartialFiles() const;
    void expectSourcesIntact() const;
    /// Every content is in the archive, and its source gone.
    void expectAllMoved() const;

    /// The beginning of a run whose journal is kept in a folder of its own, by way of `journalDisk`.
    [[nodiscard]] Result<PreparedRun, RunRefusal> prepare(FileSystem& disk, FileSystem& journalDisk,
                                                          const OrganizationPlan& plan) const;
    /// The same of a journal on a sound disk, for runs that are not refused.
    [[nodiscard]] PreparedRun prepared(FileSystem& disk, const OrganizationPlan& plan) const;
    [[nodiscard]] FilePath journalFolder() const { return folder_ / "journals"; }
    /// The newest journal there.
    [[nodiscard]] FilePath journal() const;

    std::vector<MediaItem> items;

private:
    TempFolder folder_;
    std::map<FilePath, std::string> contents_; ///< by source path
};

/// SHA-256 of `content`, as the journal writes it.
std::string digestOf(std::string_view content);

/// A folder for temporary files in memory, or else the usual one.
FilePath memoryFolder();

bool isThere(const FilePath& path);

/// Runs `job` in a process of its own until it ends, or is killed after `patience` at the latest. Gives
/// whether it was killed.
bool runInDoomedProcess(const std::function<void()>& job,
                        std::optional<std::chrono::microseconds> patience = std::nullopt);

} // namespace lumeo
