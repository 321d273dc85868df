#include "scan/MediaScanner.h"

#include "dates/DateResolver.h"
#include "dates/FilenameDateParser.h"
#include "dates/PhotoMetadataExtractor.h"
#include "dates/VideoMetadataExtractor.h"
#include "media/helper/MediaHelper.h"
#include "model/MediaTypeDetector.h"
#include "platform/AsciiCase.h"
#include "scan/ScanRoot.h"

#include <algorithm>
#include <array>

namespace lumeo {
namespace {

constexpr std::size_t itemsBetweenPublications = 40;
constexpr std::chrono::milliseconds publicationInterval{50};

constexpr std::array<std::string_view, 14> ignoredNames{
    ".DS_Store",
    ".Spotlight-V100",
    ".Trashes",
    ".fseventsd",
    ".TemporaryItems",
    ".git",
    ".svn",
    ".hg",
    "$RECYCLE.BIN",
    "System Volume Information",
    "Thumbs.db",
    ".DocumentRevisions-V100",
    "desktop.ini",
    ".PKInstallSandboxManager",
};

/// The prefix of companion files, which keep resource forks and attributes beside the real file.
constexpr std::string_view companionPrefix = "._";

/// Compared without case, because several systems write to the same disk.
constexpr std::array<std::string_view, 11> trashFolders{
    ".Trash",      "$RECYCLE.BIN", "RECYCLER",    "#recycle",  "@Recycle",   ".recycle",
    ".stversions", "@eaDir",       ".thumbnails", ".@__thumb", "lost+found",
};

/// A user's number follows.
constexpr std::string_view trashPrefix = ".Trash-";

/// The trash in a home folder. Its own name alone is not enough, because any folder may be called "Trash".
constexpr std::string_view homeTrash = "/.local/share/Trash";

/// Phones put this before the name of a deleted file and leave the file in its place.
constexpr std::string_view deletedPrefix = ".trashed-";

constexpr std::array<std::string_view, 8> ignoredBundleExtensions{
    "app", "framework", "plugin", "bundle", "kext", "photoslibrary", "photolibrary", "aplibrary",
};

CompactOptional<SharedText> shared(const std::optional<std::string>& text) {
    return text ? CompactOptional(SharedText(*text)) : std::nullopt;
}

void keepPhotoFacts(const PhotoMetadataResult& photo, MediaItem& item) {
    item.metadataCaptureDate = photo.dateTimeOriginal;
    item.metadataCreateDate = photo.dateTimeDigitized;
    item.cameraMake = shared(photo.cameraMake);
    item.cameraModel = shared(photo.cameraModel);
    item.lensModel = shared(photo.lensModel);
    item.pixelWidth = photo.pixelWidth;
    item.pixelHeight = photo.pixelHeight;
    item.hasGPS = photo.hasGPS;
    item.gpsLatitude = photo.gpsLatitude;
    item.gpsLongitude = photo.gpsLongitude;
}

void keepVideoFacts(const VideoMetadataResult& video, MediaItem& item) {
    item.videoCreationDate = video.creationDate;
    item.durationSeconds = video.durationSeconds;
    item.pixelWidth = video.pixelWidth;
    item.pixelHeight = video.pixelHeight;
}

} // namespace

/// One scan: what it has found and counted so far.
class MediaScanner::Walk {
public:
    Walk(MediaScanner& scanner, const ProgressCallback& onProgress, const UnreadableCallback& onUnreadable,
         std::stop_token stop)
        : scanner_(scanner),
          onProgress_(onProgress),
          onUnreadable_(onUnreadable),
          stop_(std::move(stop)),
          start_(scanner.clock_.elapsed()),
          lastPublication_(start_) {}

    void walkRoot(const ScanRoot& root) {
        const FileResult<FileStatus> status = scanner_.fileSystem_.targetStatus(root.path);
        if (status && status->kind == FileKind::regular) {
            catalogue(root.path, *status);
        } else {
            walkFolder(root);
        }
    }

    std::vector<MediaItem> finish() && {
        progress_.isCancelled = stop_.stop_requested();
        progress_.isCompleted = !progress_.isCancelled;
        publish(scanner_.clock_.elapsed());
        return std::move(items_);
    }

private:
    void walkFolder(const ScanRoot& root) {
        auto enumerator =
            scanner_.fileSystem_.enumerate(root.path, [this](const FileError& error) { leaveOut(error); });
        if (!enumerator) {
            tell(enumerator.error());
            return;
        }
        while (std::optional<DirectoryEntry> entry = (*enumerator)->next()) {
            if (!scanner_.mayContinue(stop_)) {
                return;
            }
            if (!entry->status) {
                leaveOut(entry->status.error());
                continue;
            }
            const FileStatus& status = *entry->status;
            const std::string_view name = entry->path.lastComponent();
            const bool isOtherRoot = std::ranges::find(root.otherRoots, entry->path) != root.otherRoots.end();
            if (status.kind == FileKind::folder) {
                if (isOtherRoot || isIgnoredName(name) || isIgnoredDirectoryBundle(name) ||
                    isTrash(entry->path)) {
                    (*enumerator)->skipDescendants();
                }
            } else if (status.kind == FileKind::regular && !isOtherRoot && !isIgnoredName(name)) {
                ++progress_.totalScannedCount;
                progress_.currentItemName = name;
                catalogue(std::move(entry->path), status);
                publishNowAndThen();
            }
        }
    }

    void leaveOut(const FileError& error) {
        ++progress_.errorsCount;
        tell(error);
    }

    void tell(const FileError& error) const {
        if (onUnreadable_) {
            onUnreadable_(error);
        }
    }

    /// Makes the item of one file, if it is media.
    void catalogue(FilePath path, const FileStatus& status) {
        const std::optional<MediaTypeDetector::Detection> detection = MediaTypeDetector::detectType(path);
        if (!detection) {
            ++progress_.unsupportedCount;
            return;
        }
        MediaItem item;
        item.id = Uuid::random();
        item.sourceURL = std::move(path);
        item.utType = detection->utType;
        item.mediaType = detection->mediaType;
        item.fileSize = status.size;
        item.filesystemCreationDate = status.creationDate;
        item.filesystemModificationDate = status.modificationDate;
        item.filenameDerivedDate = FilenameDateParser::parseDate(item.fileName());
        readMetadata(item);
        if (stop_.stop_requested()) {
            return; // some facts of the file may be missing
        }
        count(item.mediaType, item.fileSize);
        items_.push_back(std::move(item));
    }

    void readMetadata(MediaItem& item) {
        CandidateDates candidates;
        if (item.mediaType == MediaType::video) {
            keepVideoFacts(
                VideoMetadataExtractor::extractMetadata(scanner_.fileSystem_, item.sourceURL, helper_, stop_),
                item);
        } else {
            const auto photo =
                PhotoMetadataExtractor::extractMetadata(scanner_.fileSystem_, item.sourceURL, stop_);
            keepPhotoFacts(photo, item);
            candidates.tiffDateTime = photo.tiffDateTime;
        }
        resolveDate(candidates, item);
    }

    void resolveDate(CandidateDates candidates, MediaItem& item) const {
        candidates.metadataCaptureDate = item.metadataCaptureDate;
        candidates.metadataCreateDate = item.metadataCreateDate;
        candidates.videoCreationDate = item.videoCreationDate;
        candidates.filenameDate = item.filenameDerivedDate;
        candidates.filesystemCreationDate = item.filesystemCreationDate;
        candidates.filesystemModificationDate = item.filesystemModificationDate;
        // The user's plan decides whether a date of the file system may be used as a capture date.
        const DateResolverOptions noFilesystemDates;
        const ResolvedDateResult resolved =
            DateResolver::resolveDate(item.mediaType, candidates, noFilesystemDates, scanner_.clock_);
        item.resolvedDate = resolved.date;
        item.dateSource = resolved.source;
        item.dateConfidence = resolved.confidence;
        item.dateSuspiciousWarning = shared(resolved.warning);
        if (resolved.warning) {
            item.scanWarnings.push_back(*resolved.warning);
        }
    }

    void count(MediaType mediaType, std::int64_t bytes) {
        progress_.totalBytesScanned += bytes;
        switch (mediaType) {
        case MediaType::photo:
            ++progress_.photosCount;
            break;
        case MediaType::video:
            ++progress_.videosCount;
            break;
        case MediaType::rawPhoto:
            ++progress_.rawCount;
            break;
        case MediaType::other:
            ++progress_.otherCount;
            break;
        }
    }

    void publishNowAndThen() {
        const std::chrono::nanoseconds now = scanner_.clock_.elapsed();
        if (items_.size() % itemsBetweenPublications == 0 || now - lastPublication_ > publicationInterval) {
            publish(now);
            lastPublication_ = now;
        }
    }

    void publish(std::chrono::nanoseconds now) {
        progress_.scanDurationSeconds = std::chrono::duration<double>(now - start_).count();
        if (onProgress_) {
            onProgress_(progress_);
        }
    }

    MediaScanner& scanner_;
    const ProgressCallback& onProgress_;
    const UnreadableCallback& onUnreadable_;
    std::stop_token stop_;
    MediaHelper helper_;
    std::chrono::nanoseconds start_;
    std::chrono::nanoseconds lastPublication_;
    ScanProgress progress_;
    std::vector<MediaItem> items_;
};

std::vector<MediaItem> MediaScanner::scan(std::span<const FilePath> roots, const ProgressCallback& onProgress,
                                          const std::stop_token& stop,
                                          const UnreadableCallback& onUnreadable) {
    std::stop_source cancellation;
    {
        const MutexGuard guard(mutex_);
        isPaused_ = false;
        cancellation_ = cancellation;
    }
    const std::stop_callback cancelling(stop, [&cancellation] { cancellation.request_stop(); });
    Walk walk(*this, onProgress, onUnreadable, cancellation.get_token());
    for (const ScanRoot& root : scanRoots(roots, volumes_)) {
        if (cancellation.stop_requested()) {
            break;
        }
        walk.walkRoot(root);
    }
    return std::move(walk).finish();
}

bool MediaScanner::mayContinue(const std::stop_token& stop) {
    if (isPaused_) {
        const MutexGuard guard(mutex_);
        wake_.wait(mutex_, stop, [this] { return !isPaused_; });
    }
    return !stop.stop_requested();
}

void MediaScanner::pause() {
    const MutexGuard guard(mutex_);
    isPaused_ = true;
}

void MediaScanner::resume() {
    const MutexGuard guard(mutex_);
    isPaused_ = false;
    wake_.notify_all();
}

void MediaScanner::cancel() {
    const std::stop_source cancellation = [this] {
        const MutexGuard guard(mutex_);
        isPaused_ = false;
        return cancellation_;
    }();
    cancellation.request_stop(); // also wakes a sleeping walk
}

bool MediaScanner::isIgnoredName(std::string_view name) {
    return name.starts_with(companionPrefix) || name.starts_with(deletedPrefix) ||
           std::ranges::find(ignoredNames, name) != ignoredNames.end();
}

bool MediaScanner::isTrash(const FilePath& folder) {
    const std::string_view name = folder.lastComponent();
    return name.starts_with(trashPrefix) || folder.bytes().ends_with(homeTrash) ||
           std::ranges::any_of(
               trashFolders, [name](std::string_view trash) { return equalIgnoringAsciiCase(name, trash); });
}

bool MediaScanner::isIgnoredDirectoryBundle(std::string_view name) {
    const std::string_view extension = pathExtension(name);
    return std::ranges::any_of(ignoredBundleExtensions, [&](std::string_view ignored) {
        return equalIgnoringAsciiCase(extension, ignored);
    });
}

} // namespace lumeo
