#pragma once

#include "support/ForwardingFileSystem.h"

#include <set>
#include <string>
#include <vector>

namespace lumeo {

/// A file system that remembers what a loss of power would take: contents that were not flushed, and
/// names in folders that were not flushed since. A removal counts as durable at once, the worst case.
/// Every removal of a file whose content would then be nowhere is noted as a loss. Used by one thread.
class PowerLossFileSystem final : public ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    /// The files whose removal might have been the end of their content.
    [[nodiscard]] const std::vector<FilePath>& losses() const { return losses_; }

    /// True when the content of `path`, its name and the names of the folders above would survive.
    [[nodiscard]] bool isDurable(const FilePath& path) const;

    FileResult<std::unique_ptr<WritableFile>> createFile(const FilePath& path) override;
    FileResult<std::vector<FilePath>> createFolders(const FilePath& folder) override;
    FileResult<void> renameWithoutReplacing(const FilePath& from, const FilePath& to) override;
    FileResult<void> removeFile(const FilePath& path) override;
    FileResult<void> flushFolder(const FilePath& folder) override;

private:
    friend class PowerLossFile;

    std::set<FilePath> files_; ///< made here
    std::set<FilePath> unflushedContents_;
    std::set<FilePath> unflushedNames_; ///< of files and folders
    std::vector<FilePath> losses_;
};

} // namespace lumeo
