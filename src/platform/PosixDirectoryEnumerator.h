#pragma once

#include "platform/PosixHandle.h"

#include <memory>
#include <string>
#include <vector>

#include <dirent.h>

namespace lumeo {

/// Walks with a bounded number of open folders, however deep the tree: of a long chain of folders only
/// the innermost stay open; the others keep the names that they had still to give.
class PosixDirectoryEnumerator final : public DirectoryEnumerator {
public:
    static FileResult<std::unique_ptr<DirectoryEnumerator>>
    start(const FilePath& folder, std::function<void(const FileError&)> onError);

    std::optional<DirectoryEntry> next() override;
    void skipDescendants() override { folderGivenLast_.reset(); }

private:
    struct CloseStream {
        void operator()(DIR* stream) const noexcept { closedir(stream); }
    };
    using Stream = std::unique_ptr<DIR, CloseStream>;

    /// One folder of the chain from the root of the walk down to where it stands: being read (stream),
    /// or laid aside with the names still to come (waitingNames). The innermost one is always open, one
    /// that was laid aside as a mere place to reach its entries from.
    struct Level {
        FilePath folder;
        Stream stream;
        Descriptor place;
        std::vector<std::string> waitingNames; ///< last one first
        FileIdentity identity;                 ///< set when laid aside

        [[nodiscard]] int descriptor() const { return stream ? dirfd(stream.get()) : place.get(); }
    };

    explicit PosixDirectoryEnumerator(std::function<void(const FileError&)> onError);

    /// Takes over `descriptor`, which may be closed with errno telling why.
    FileResult<void> enter(FilePath folder, Descriptor descriptor);
    void enterFolderGivenLast();
    void leaveInnermost();
    void layAside(Level& level);
    std::optional<std::string> nextName(Level& level);
    std::optional<std::string> nextStreamName(Level& level);
    void report(const FilePath& folder, int errnoValue) const;

    std::function<void(const FileError&)> onError_;
    std::vector<Level> levels_;
    std::optional<FilePath> folderGivenLast_; ///< to be entered by the next call
};

} // namespace lumeo
