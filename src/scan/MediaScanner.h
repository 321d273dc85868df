#pragma once

#include "model/MediaItem.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "scan/ScanProgress.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string_view>
#include <vector>

namespace lumeo {

/// Turns folders, drives or single files into the catalogue: one MediaItem for each supported file.
/// Only reads.
///
/// scan() blocks the thread it is called on; pause(), resume() and cancel() may be called from any
/// thread at any moment and are seen before the next entry.
class MediaScanner {
public:
    using ProgressCallback = std::function<void(const ScanProgress&)>;

    /// Both must outlive the scanner.
    MediaScanner(const FileSystem& fileSystem, const Clock& clock) : fileSystem_(fileSystem), clock_(clock) {}

    /// Walks `roots` in order and gives the items found, in the order of the file system. Cancelled, it
    /// gives what it had. `onProgress` is called on this thread: after every examined file while the
    /// item count is a multiple of 40 or 0.05 s have passed, and once at the end. Never fails: entries
    /// that cannot be read are counted.
    std::vector<MediaItem> scan(std::span<const FilePath> roots, const ProgressCallback& onProgress);

    void pause();
    void resume();
    void cancel();

    /// True for the housekeeping names of desktop systems and version control.
    static bool isIgnoredName(std::string_view name);

    /// True for folders that are one document to their owner, such as photo libraries.
    static bool isIgnoredDirectoryBundle(std::string_view name);

private:
    const FileSystem& fileSystem_;
    const Clock& clock_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool isPaused_ = false;    ///< guarded by mutex_
    bool isCancelled_ = false; ///< guarded by mutex_
};

} // namespace lumeo
