#pragma once

#include "platform/PosixHandle.h"

#include <memory>
#include <string>
#include <vector>

#include <dirent.h>

namespace lumeo {

/// Walks with a bounded number of open folders, however deep the tree is. In a long chain of folders only the
/// innermost ones stay open. The others keep the names that are still to come.
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

    /// One folder of the chain from the root of the walk to its current place. It is either being read
    /// (stream), or laid aside with the names that are still to come (waitingNames). The innermost folder is
    /// always open. If it was laid aside before, it is open only as a place to reach its entries from.
    struct Level {
        FilePath folder;
        Stream stream;
        Descriptor place;
        std::vector<std::string> waitingNames; ///< in reverse order
        FileIdentity identity;                 ///< set when the folder is laid aside

        [[nodiscard]] int descriptor() const { return stream ? dirfd(stream.get()) : place.get(); }
    };

    explicit PosixDirectoryEnumerator(std::function<void(const FileError&)> onError);

    /// Takes over `descriptor`. If it is not open, errno tells why.
    FileResult<void> enter(FilePath folder, Descriptor descriptor);
    void enterFolderGivenLast();
    void leaveInnermost();
    void layAside(Level& level);
    std::optional<std::string> nextName(Level& level);
    std::optional<std::string> nextStreamName(Level& level);
    void report(const FilePath& folder, int errnoValue) const;

    std::function<void(const FileError&)> onError_;
    std::vector<Level> levels_;
    std::optional<FilePath> folderGivenLast_; ///< the next call enters it
};

} // namespace lumeo
