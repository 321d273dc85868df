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

/// A folder with source files and an archive for them. It knows every content. All contents should differ, so
/// that each can be recognised. The folder is in memory where such a file system exists, because the tests
/// that fail every call flush often.
class TransferWorld {
public:
    TransferWorld();

    /// Writes a source file and plans its destination in the archive.
    MediaItem& add(std::string_view name, std::string content, std::string_view destination);

    [[nodiscard]] FilePath source(std::string_view name) const;
    [[nodiscard]] FilePath archived(std::string_view relative) const;
    [[nodiscard]] const std::string& content(std::string_view name) const;
    [[nodiscard]] OrganizationPlan plan(OperationMode mode) const;
    [[nodiscard]] std::vector<FilePath> sourceRoots() const { return {folder_ / "source"}; }

    /// All files of the archive, sorted, relative to it.
    [[nodiscard]] std::vector<std::string> archiveFiles() const;

    /// Checks that every content exists, unchanged, under its source's name or its final name. Every final
    /// name of the archive must have exactly one of the contents.
    void expectNothingLost() const;
    void expectNoPartialFiles() const;
    void expectSourcesIntact() const;
    /// Checks that every content is in the archive and every source is gone.
    void expectAllMoved() const;

    /// Prepares a run. Its journal is kept in a separate folder, through `journalDisk`.
    [[nodiscard]] Result<PreparedRun, RunRefusal> prepare(FileSystem& disk, FileSystem& journalDisk,
                                                          const OrganizationPlan& plan) const;
    /// The same with a journal on a disk without faults. The run must not be refused.
    [[nodiscard]] PreparedRun prepared(FileSystem& disk, const OrganizationPlan& plan) const;
    [[nodiscard]] FilePath journalFolder() const { return folder_ / "journals"; }
    /// The newest journal of the folder.
    [[nodiscard]] FilePath journal() const;

    std::vector<MediaItem> items;

private:
    TempFolder folder_;
    std::map<FilePath, std::string> contents_; ///< by source path
};

/// SHA-256 of `content`, as the journal writes it.
std::string digestOf(std::string_view content);

/// A folder for temporary files in memory, or else the usual temporary folder.
FilePath memoryFolder();

bool isThere(const FilePath& path);

/// Runs `job` in a process of its own until it ends. After `patience` it is killed. Returns whether it was
/// killed.
bool runInDoomedProcess(const std::function<void()>& job,
                        std::optional<std::chrono::microseconds> patience = std::nullopt);

} // namespace lumeo
