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

/// Whether the media of sources are in an archive.
struct CheckOutcome {
    struct Missing {
        FilePath path;
        std::string reason; ///< one sentence, in English
    };

    std::int64_t mediaFiles = 0; ///< of the sources
    std::int64_t mediaBytes = 0;
    std::vector<Missing> missing;                   ///< of these; also those that could not be read
    std::map<std::string, std::int64_t> otherFiles; ///< of the sources, by extension in lower case
    std::vector<std::string> problems;              ///< what of the sources could not be looked at: sentences
    std::int64_t keptDigests = 0;                   ///< files of the archive that were not read again
    std::optional<Instant> oldestKept;              ///< when the first of these was read
    bool isStopped = false;
    std::optional<std::string> refusal; ///< why nothing could be said; a sentence without a full stop

    /// The sources may go: every media file in them was read and stands in the archive as a file of its own.
    [[nodiscard]] bool isComplete() const {
        return mediaFiles > 0 && missing.empty() && problems.empty() && !isStopped && !refusal;
    }
};

/// Compares by size and SHA-256, both files read from their devices. What cannot be read counts as missing.
/// Reads only; blocks the thread it is called on.
class ArchiveCheck {
public:
    /// All must outlive the check. `kept`, of the archive, spares reading what is as it was, unless
    /// `readsAll`; what is read is kept there.
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
