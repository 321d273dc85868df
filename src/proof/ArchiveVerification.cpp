#include "proof/ArchiveVerification.h"

#include "hashing/StreamingHashService.h"
#include "proof/ChecksumList.h"
#include "proof/FileWalk.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace lumeo {
namespace {

using Kind = ArchiveFinding::Kind;

/// One verification.
class Verification {
public:
    Verification(const FileSystem& fileSystem, const Clock& clock, KeptDigests& kept, const FilePath& archive,
                 std::optional<std::chrono::hours> recent, const std::stop_token& stop)
        : fileSystem_(fileSystem),
          clock_(clock),
          kept_(kept),
          archive_(archive),
          recent_(recent),
          stop_(stop) {}

    void readListed(const ListedChecksums& read, const ReadingCallback& onProgress);
    void lookForOthers(const std::vector<Checksum>& list);
    VerificationOutcome finish() &&;

private:
    /// A listed file that the device has begun to give.
    struct Begun {
        FileResult<FileStatus> status;
        bool isSpared = false;
        std::unique_ptr<ReadableFile> file; ///< null when it cannot be read, or need not be
    };
    [[nodiscard]] Begun begin(const Checksum& checksum) const;
    void finish(const Checksum& checksum, const Begun& begun);
    [[nodiscard]] bool wasReadOfLate(const Checksum& checksum, const FileStatus& status) const;
    [[nodiscard]] std::optional<std::string> read(const std::string& name, const FileStatus& status,
                                                  ReadableFile* file);
    void findMoved(std::vector<std::string>& others);
    void report(Kind kind, const std::string& name) { outcome_.findings.push_back({kind, name, {}}); }

    const FileSystem& fileSystem_;
    const Clock& clock_;
    KeptDigests& kept_;
    const FilePath& archive_;
    std::optional<std::chrono::hours> recent_;
    const std::stop_token& stop_;
    std::unordered_set<std::string> present_;                           ///< all files of the archive
    std::unordered_multimap<std::string, std::string> missingByDigest_; ///< names
    VerificationOutcome outcome_;
};

void Verification::readListed(const ListedChecksums& read, const ReadingCallback& onProgress) {
    const std::vector<Checksum>& list = read.checksums;
    outcome_.damagedLines = read.damagedLines;
    outcome_.listed = std::ssize(list);
    ReadingProgress progress;
    progress.totalFiles = outcome_.listed;
    std::optional<Begun> next;
    for (std::size_t i = 0; i < list.size(); ++i) {
        progress.currentItemName = FilePath(list[i].name).lastComponent();
        onProgress(progress);
        if (stop_.stop_requested()) {
            return;
        }
        // The device reads the next file while this one is digested.
        const Begun begun = next ? *std::exchange(next, std::nullopt) : begin(list[i]);
        if (i + 1 < list.size()) {
            next = begin(list[i + 1]);
        }
        finish(list[i], begun);
        ++progress.files;
    }
}

Verification::Begun Verification::begin(const Checksum& checksum) const {
    const FilePath path = archive_.appending(checksum.name);
    Begun begun{fileSystem_.targetStatus(path), false, nullptr};
    begun.isSpared = begun.status && wasReadOfLate(checksum, *begun.status);
    if (begun.status && !begun.isSpared) {
        if (FileResult<std::unique_ptr<ReadableFile>> file = fileSystem_.openForReading(path)) {
            begun.file = *std::move(file);
            begun.file->evict();
        }
    }
    return begun;
}

void Verification::finish(const Checksum& checksum, const Begun& begun) {
    if (!begun.status) {
        const int reason = begun.status.error().errnoValue;
        if (reason == ENOENT || reason == ENOTDIR) {
            missingByDigest_.emplace(checksum.digest, checksum.name);
        } else {
            report(Kind::unreadable, checksum.name);
        }
        return;
    }
    if (begun.isSpared) {
        ++outcome_.spared;
        ++outcome_.unchanged;
        return;
    }
    const std::optional<std::string> digest = read(checksum.name, *begun.status, begun.file.get());
    if (digest == checksum.digest) {
        ++outcome_.unchanged;
    } else if (!stop_.stop_requested()) {
        report(digest ? Kind::changed : Kind::unreadable, checksum.name);
    }
}

bool Verification::wasReadOfLate(const Checksum& checksum, const FileStatus& status) const {
    if (!recent_) {
        return false;
    }
    const std::optional<KeptDigests::Digest> kept = kept_.find(checksum.name, status);
    return kept && kept->digest == checksum.digest && kept->readAt > clock_.now() - *recent_;
}

/// `file` may be null, for one that could not be opened.
std::optional<std::string> Verification::read(const std::string& name, const FileStatus& status,
                                              ReadableFile* file) {
    if (file == nullptr) {
        return std::nullopt;
    }
    Result<std::string, HashError> digest = StreamingHashService::computeSHA256(
        *file, archive_.appending(name), [this] { return stop_.stop_requested(); });
    if (!digest) {
        return std::nullopt;
    }
    kept_.keep(name, status, *digest, clock_.now());
    return *std::move(digest);
}

void Verification::lookForOthers(const std::vector<Checksum>& list) {
    std::unordered_set<std::string_view> listed{ChecksumList::fileName};
    for (const Checksum& checksum : list) {
        listed.insert(checksum.name);
    }
    std::vector<std::string> others;
    FileVisitor visitor;
    visitor.onFile = [&](const FilePath& path, const FileStatus& /*status*/) {
        const auto [name, isNew] = present_.insert(path.relativeTo(archive_));
        if (!listed.contains(*name) && path.extension() != "partial") {
            others.push_back(*name);
        }
    };
    walkFiles(fileSystem_, archive_, visitor, stop_);
    std::ranges::sort(others);
    findMoved(others);
    for (const std::string& name : others) {
        report(Kind::notListed, name);
    }
    for (const auto& [digest, name] : missingByDigest_) {
        report(Kind::missing, name);
    }
}

/// A missing file may have another name now. This is only checked at the end, because it needs reading files
/// about which nothing is known.
void Verification::findMoved(std::vector<std::string>& others) {
    std::erase_if(others, [this](const std::string& other) {
        if (missingByDigest_.empty() || stop_.stop_requested()) {
            return false;
        }
        const Begun begun = begin({other, {}});
        const std::optional<std::string> digest =
            begun.status ? read(other, *begun.status, begun.file.get()) : std::nullopt;
        const auto found = missingByDigest_.find(digest.value_or(""));
        if (found == missingByDigest_.end()) {
            return false;
        }
        outcome_.findings.push_back({Kind::moved, found->second, other});
        missingByDigest_.erase(found);
        return true;
    });
}

VerificationOutcome Verification::finish() && {
    outcome_.isStopped = stop_.stop_requested();
    std::ranges::sort(outcome_.findings, {},
                      [](const ArchiveFinding& one) { return std::pair(one.kind, one.name); });
    if (!outcome_.isStopped) {
        static_cast<void>(kept_.save(present_)); // otherwise the next verification reads the files again
    }
    return std::move(outcome_);
}

} // namespace

FileResult<VerificationOutcome> ArchiveVerification::run(const FilePath& archive,
                                                         std::optional<std::chrono::hours> recent,
                                                         const ReadingCallback& onProgress,
                                                         const std::stop_token& stop) {
    const FileResult<ListedChecksums> list = ChecksumList::read(fileSystem_, archive);
    if (!list) {
        return list.error();
    }
    Verification verification(fileSystem_, clock_, kept_, archive, recent, stop);
    verification.readListed(*list, onProgress);
    verification.lookForOthers(list->checksums);
    return std::move(verification).finish();
}

} // namespace lumeo
