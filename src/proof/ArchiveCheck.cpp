#include "proof/ArchiveCheck.h"

#include "hashing/StreamingHashService.h"
#include "model/MediaTypeDetector.h"
#include "platform/AsciiCase.h"
#include "proof/FileWalk.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace lumeo {
namespace {

struct FoundFile {
    FilePath path;
    FileStatus status;
    std::optional<std::string> digest; ///< absent before it was read, and when it could not be read
    bool isRead = false;
};

std::string kindOf(const FilePath& path) {
    std::string kind(path.extension());
    std::ranges::transform(kind, kind.begin(), asciiLowerCased);
    return kind;
}

/// One check.
class Comparison {
public:
    Comparison(const FileSystem& fileSystem, const Clock& clock, KeptDigests& kept, bool readsAll,
               const FilePath& archive, const std::stop_token& stop)
        : fileSystem_(fileSystem),
          clock_(clock),
          kept_(kept),
          readsAll_(readsAll),
          archive_(archive),
          stop_(stop) {}

    void collectSource(const FilePath& root);
    void collectArchive();
    void compare(const ReadingCallback& onProgress);
    CheckOutcome finish() &&;

private:
    [[nodiscard]] std::string nameOf(const FoundFile& archived) const;
    [[nodiscard]] std::optional<std::string> read(const FilePath& path) const;
    const std::optional<std::string>& digestOf(FoundFile& archived);
    std::optional<std::string> reasonMissing(const FoundFile& source);
    bool isAmong(std::vector<FoundFile>& candidates, const FoundFile& source, const std::string& digest);

    const FileSystem& fileSystem_;
    const Clock& clock_;
    KeptDigests& kept_;
    bool readsAll_;
    const FilePath& archive_;
    const std::stop_token& stop_;
    std::vector<FoundFile> sources_;
    std::vector<FileIdentity> sourceFolders_;
    std::vector<FileIdentity> sourceRoots_; ///< of these, those that were given
    std::unordered_map<std::int64_t, std::vector<FoundFile>> archivedBySize_; ///< only sizes of the sources
    std::unordered_set<std::string> archivedNames_;
    CheckOutcome outcome_;
};

void Comparison::collectSource(const FilePath& root) {
    FileVisitor visitor;
    visitor.onFile = [this](const FilePath& path, const FileStatus& status) {
        if (!MediaTypeDetector::detectType(path)) {
            ++outcome_.otherFiles[kindOf(path)];
            return;
        }
        ++outcome_.mediaFiles;
        outcome_.mediaBytes += status.size;
        archivedBySize_.try_emplace(status.size);
        sources_.push_back({path, status, std::nullopt});
    };
    visitor.onFolder = [&](const FilePath& path, const FileStatus& status) {
        sourceFolders_.push_back(status.identity);
        if (path == root) {
            sourceRoots_.push_back(status.identity);
        }
    };
    visitor.onOther = [this](const FilePath& path) {
        if (MediaTypeDetector::detectType(path)) {
            outcome_.problems.push_back("Not a file of its own, so it was not looked at: " +
                                        printable(path.bytes()));
        }
    };
    visitor.onProblem = [this](const FileError& error) { outcome_.problems.push_back(error.message()); };
    walkFiles(fileSystem_, root, visitor, stop_);
}

void Comparison::collectArchive() {
    std::vector<FileIdentity> archiveFolders;
    FileVisitor visitor;
    visitor.onFile = [this](const FilePath& path, const FileStatus& status) {
        FoundFile file{path, status, std::nullopt};
        archivedNames_.insert(nameOf(file));
        if (const auto wanted = archivedBySize_.find(status.size); wanted != archivedBySize_.end()) {
            wanted->second.push_back(std::move(file));
        }
    };
    visitor.onFolder = [&](const FilePath& /*path*/, const FileStatus& status) {
        archiveFolders.push_back(status.identity);
    };
    walkFiles(fileSystem_, archive_, visitor, stop_);
    // If erasing the source also erases this file, it is no proof.
    const auto isShared = [&](const std::vector<FileIdentity>& folders, const FileIdentity& one) {
        return std::ranges::find(folders, one) != folders.end();
    };
    const bool isInSource = !archiveFolders.empty() && isShared(sourceFolders_, archiveFolders.front());
    const bool holdsSource = std::ranges::any_of(
        sourceRoots_, [&](const FileIdentity& root) { return isShared(archiveFolders, root); });
    if (isInSource || holdsSource) {
        outcome_.refusal = "the archive and the source lie within one another";
    }
}

std::string Comparison::nameOf(const FoundFile& archived) const {
    return archived.path.relativeTo(archive_);
}

std::optional<std::string> Comparison::read(const FilePath& path) const {
    Result<std::string, HashError> digest = StreamingHashService::computeSHA256FromDevice(
        fileSystem_, path, [this] { return stop_.stop_requested(); });
    return digest ? std::optional(*std::move(digest)) : std::nullopt;
}

const std::optional<std::string>& Comparison::digestOf(FoundFile& archived) {
    if (archived.isRead) {
        return archived.digest;
    }
    archived.isRead = true;
    const std::string name = nameOf(archived);
    if (const auto kept = readsAll_ ? std::nullopt : kept_.find(name, archived.status)) {
        ++outcome_.keptDigests;
        outcome_.oldestKept = std::min(outcome_.oldestKept.value_or(kept->readAt), kept->readAt);
        archived.digest = kept->digest;
        return archived.digest;
    }
    archived.digest = read(archived.path);
    if (archived.digest) {
        kept_.keep(name, archived.status, *archived.digest, clock_.now());
    }
    return archived.digest;
}

/// Files with the same name are tried first, because one of them is probably the copy.
bool Comparison::isAmong(std::vector<FoundFile>& candidates, const FoundFile& source,
                         const std::string& digest) {
    for (const bool wantsSameName : {true, false}) {
        for (FoundFile& archived : candidates) {
            const bool hasSameName = archived.path.lastComponent() == source.path.lastComponent();
            if (hasSameName == wantsSameName && archived.status.identity != source.status.identity &&
                digestOf(archived) == digest) {
                return true;
            }
        }
    }
    return false;
}

std::optional<std::string> Comparison::reasonMissing(const FoundFile& source) {
    std::vector<FoundFile>& candidates = archivedBySize_[source.status.size];
    if (candidates.empty()) {
        return "Its content is not in the archive.";
    }
    const std::optional<std::string> digest = read(source.path);
    if (!digest) {
        return "It could not be read.";
    }
    return isAmong(candidates, source, *digest) ? std::nullopt
                                                : std::optional("Its content is not in the archive.");
}

void Comparison::compare(const ReadingCallback& onProgress) {
    ReadingProgress progress;
    progress.totalFiles = outcome_.mediaFiles;
    progress.totalBytes = outcome_.mediaBytes;
    for (const FoundFile& source : sources_) {
        progress.currentItemName = source.path.lastComponent();
        onProgress(progress);
        if (stop_.stop_requested() || outcome_.refusal) {
            break;
        }
        if (std::optional<std::string> reason = reasonMissing(source)) {
            outcome_.missing.push_back({source.path, *std::move(reason)});
        }
        ++progress.files;
        progress.bytes += source.status.size;
    }
}

CheckOutcome Comparison::finish() && {
    outcome_.isStopped = stop_.stop_requested();
    if (!outcome_.isStopped && !outcome_.refusal) {
        // If they cannot be saved, the next check reads the files again.
        static_cast<void>(kept_.save(archivedNames_));
    }
    return std::move(outcome_);
}

} // namespace

CheckOutcome ArchiveCheck::run(std::span<const FilePath> sources, const FilePath& archive,
                               const ReadingCallback& onProgress, const std::stop_token& stop) {
    Comparison comparison(fileSystem_, clock_, kept_, readsAll_, archive, stop);
    for (const FilePath& source : sources) {
        comparison.collectSource(source);
    }
    comparison.collectArchive();
    comparison.compare(onProgress);
    return std::move(comparison).finish();
}

} // namespace lumeo
