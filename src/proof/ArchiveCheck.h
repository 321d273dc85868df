#pragma once

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "proof/KeptDigests.h"
#include "proof/ReadingProgress.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace lumeo {

/// Whether an archive has the media of the sources.
struct CheckOutcome {
    struct Missing {
        FilePath path;
        std::string reason; ///< one sentence, in English
    };

    std::int64_t mediaFiles = 0; ///< in the sources
    std::int64_t mediaBytes = 0;
    std::vector<Missing> missing;                   ///< of these; includes files that could not be read
    std::map<std::string, std::int64_t> otherFiles; ///< in the sources, by extension in lower case
    std::vector<std::string> problems; ///< what could not be examined in the sources, as sentences
    std::int64_t keptDigests = 0;      ///< files of the archive that were not read again
    std::optional<Instant> oldestKept; ///< when the oldest of these was read
    bool isStopped = false;
    std::optional<std::string> refusal; ///< why there is no result; a sentence without a full stop

    /// The sources may be deleted: every media file in them was read and exists in the archive as a separate
    /// file.
    [[nodiscard]] bool isComplete() const {
        return mediaFiles > 0 && missing.empty() && problems.empty() && !isStopped && !refusal;
    }
};

/// Compares by size and SHA-256. Both files are read from their devices. A file that cannot be read counts as
/// missing. Only reads. Blocks the thread it is called on.
class ArchiveCheck {
public:
    /// All must outlive the check. `kept` belongs to the archive. It saves reading unchanged files again,
    /// unless `readsAll`, and it stores the new digests.
    ArchiveCheck(const FileSystem& fileSystem, const Clock& clock, KeptDigests& kept, bool readsAll)
        : fileSystem_(fileSystem), clock_(clock), kept_(kept), readsAll_(readsAll) {}

    CheckOutcome run(std::span<const FilePath> sources, const FilePath& archive,
                     const ReadingCallback& onProgress, const std::stop_token& stop);

private:
    const FileSystem& fileSystem_;
    const Clock& clock_;
    KeptDigests& kept_;
    bool readsAll_;
};

} // namespace lumeo
