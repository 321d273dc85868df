#pragma once

#include "support/FaultyFileSystem.h"

#include <set>
#include <vector>

namespace lumeo {

/// Watches a disk whose calls all succeed, and tracks what a loss of power would destroy: contents that were
/// not flushed, and names in folders that were not flushed since. A removal counts as durable at once, which
/// is the worst case. Used by one thread.
class PowerLoss {
public:
    explicit PowerLoss(FaultyFileSystem& disk) {
        disk.beforeEachCall([this](const DiskCall& call) { note(call); });
    }

    /// The files whose content could have been lost by their removal.
    [[nodiscard]] const std::vector<FilePath>& losses() const { return losses_; }

    /// True when the content of `path`, its name and the names of the folders above would survive.
    [[nodiscard]] bool isDurable(const FilePath& path) const;

private:
    void note(const DiskCall& call);
    [[nodiscard]] bool isKeptElsewhere(const FilePath& path) const;

    std::set<FilePath> files_; ///< made while this object watched
    std::set<FilePath> unflushedContents_;
    std::set<FilePath> unflushedNames_; ///< of files and folders
    std::vector<FilePath> losses_;
};

} // namespace lumeo
