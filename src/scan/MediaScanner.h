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

/// Turns folders, drives or single files into the catalogue: one MediaItem for each supported file. Only
/// reads.
///
/// scan() blocks the thread it is called on, one scan at a time. pause(), resume() and cancel() may be called
/// from any thread at any moment. They take effect before the next entry of a folder. A cancel also stops
/// reading the current file.
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

    /// True for the names of files and folders that desktop systems and version control keep for themselves.
    static bool isIgnoredName(std::string_view name);

    /// True for trash folders of this system, of other systems' disks and of network disks. Also true for the
    /// folders where programs keep thumbnails and older versions beside the real files.
    static bool isTrash(const FilePath& folder);

    /// True for folders that look like one document to their owner, such as photo libraries.
    static bool isIgnoredDirectoryBundle(std::string_view name);

private:
    class Walk;

    /// Sleeps while paused. False when the scan was cancelled.
    bool mayContinue(const std::stop_token& stop);

    const FileSystem& fileSystem_;
    const Volumes& volumes_;
    const Clock& clock_;
    Mutex mutex_;
    std::condition_variable_any wake_;
    /// Written under mutex_, so that no wake-up is lost. Read without it, once for each entry.
    std::atomic<bool> isPaused_ = false;
    std::stop_source cancellation_ LUMEO_GUARDED_BY(mutex_); ///< of the current scan
};

} // namespace lumeo
