#include "proof/ArchiveVerification.h"

#include "hashing/StreamingHashService.h"
#include "proof/ChecksumList.h"
#include "proof/FileWalk.h"

#include <algorithm>
#include <cerrno>
#include <unordered_map>
#include <unordered_set>

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

    void readListed(const std::vector<Checksum>& list, const ReadingCallback& onProgress);
    void lookForOthers(const std::vector<Checksum>& list);
    VerificationOutcome finish() &&;

private:
    void verify(const Checksum& checksum);
    [[nodiscard]] bool wasReadOfLate(const Checksum& checksum, const FileStatus& status) const;
    [[nodiscard]] std::optional<std::string> read(const std::string& name, const FileStatus& status);
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

void Verification::readListed(const std::vector<Checksum>& list, const ReadingCallback& onProgress) {
    outcome_.listed = std::ssize(list);
    ReadingProgress progress;
    progress.totalFiles = outcome_.listed;
    for (const Checksum& checksum : list) {
        progress.currentItemName = FilePath(checksum.name).lastComponent();
        onProgress(progress);
        if (stop_.stop_requested()) {
            return;
        }
        verify(checksum);
        ++progress.files;
    }
}

void Verification::verify(const Checksum& checksum) {
    const FileResult<FileStatus> status = fileSystem_.targetStatus(archive_.appending(checksum.name));
    if (!status) {
        const bool isMissing = status.error().errnoValue == ENOENT || status.error().errnoValue == ENOTDIR;
        if (isMissing) {
            missingByDigest_.emplace(checksum.digest, checksum.name);
        } else {
            report(Kind::unreadable, checksum.name);
        }
        return;
    }
    if (wasReadOfLate(checksum, *status)) {
        ++outcome_.spared;
        ++outcome_.unchanged;
        return;
    }
    const std::optional<std::string> digest = read(checksum.name, *status);
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

std::optional<std::string> Verification::read(const std::string& name, const FileStatus& status) {
    Result<std::string, HashError> digest = StreamingHashService::computeSHA256FromDevice(
        fileSystem_, archive_.appending(name), [this] { return stop_.stop_requested(); });
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
        const FileResult<FileStatus> status = fileSystem_.targetStatus(archive_.appending(other));
        const std::optional<std::string> digest = status ? read(other, *status) : std::nullopt;
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
    const FileResult<std::vector<Checksum>> list = ChecksumList::read(fileSystem_, archive);
    if (!list) {
        return list.error();
    }
    Verification verification(fileSystem_, clock_, kept_, archive, recent, stop);
    verification.readListed(*list, onProgress);
    verification.lookForOthers(*list);
    return std::move(verification).finish();
}

} // namespace lumeo
