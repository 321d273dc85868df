#pragma once

#include "model/MediaItem.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Mutex.h"
#include "platform/Volumes.h"
#include "scan/ScanProgress.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <span>
#include <stop_token>
#include <string_view>
#include <vector>

namespace lumeo {

/// Turns folders, drives or single files into the catalogue: one MediaItem for each supported file.
/// Only reads.
///
/// scan() blocks the thread it is called on, one scan at a time; pause(), resume() and cancel() may be
/// called from any thread at any moment and are seen before the next entry of a folder; a cancel also ends
/// the reading of the file in hand.
class MediaScanner {
public:
    using ProgressCallback = std::function<void(const ScanProgress&)>;
    using UnreadableCallback = std::function<void(const FileError&)>;

    /// All must outlive the scanner.
    MediaScanner(const FileSystem& fileSystem, const Volumes& volumes, const Clock& clock)
        : fileSystem_(fileSystem), volumes_(volumes), clock_(clock) {}

    /// Walks `roots` in order and gives the items found, in the order of the file system. A root may be
    /// a file, or a link to a folder or file; links within a folder are left out. A place that several
    /// roots lead to is walked once. Cancelled, it gives what it had. `onProgress` (may be empty) is called
    /// on this thread: after every examined file of a folder while the item count is a multiple of 40 or more
    /// than 0.05 s have passed, and once at the end. Never fails: entries that cannot be read are counted,
    /// and each is told to `onUnreadable` (may be empty) on this thread, as are roots that cannot be walked.
    ///
    /// Earlier calls of pause() and cancel() are forgotten when it starts; a stop requested of `stop`
    /// is not, and acts like cancel().
    std::vector<MediaItem> scan(std::span<const FilePath> roots, const ProgressCallback& onProgress,
                                const std::stop_token& stop = {},
                                const UnreadableCallback& onUnreadable = {});

    void pause();
    void resume();
    void cancel(); ///< also ends a pause

    /// True for the housekeeping names of desktop systems and version control.
    static bool isIgnoredName(std::string_view name);

    /// True for folders of what was deleted, on this system, on other systems' disks and on network disks,
    /// and of the small pictures and older versions that programs keep beside the real files.
    static bool isTrash(const FilePath& folder);

    /// True for folders that are one document to their owner, such as photo libraries.
    static bool isIgnoredDirectoryBundle(std::string_view name);

private:
    class Walk;

    /// Sleeps while paused; false when the scan was cancelled.
    bool mayContinue(const std::stop_token& stop);

    const FileSystem& fileSystem_;
    const Volumes& volumes_;
    const Clock& clock_;
    Mutex mutex_;
    std::condition_variable_any wake_;
    /// Written under mutex_, so that no wake-up is lost; read without it, once an entry.
    std::atomic<bool> isPaused_ = false;
    std::stop_source cancellation_ LUMEO_GUARDED_BY(mutex_); ///< of the scan that runs
};

} // namespace lumeo
