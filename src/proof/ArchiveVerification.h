#pragma once

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "proof/KeptDigests.h"
#include "proof/ReadingProgress.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace lumeo {

/// A file that is not as the list says.
struct ArchiveFinding {
    enum class Kind : std::uint8_t { changed, missing, unreadable, moved, notListed };

    Kind kind = Kind::changed;
    std::string name;  ///< below the archive's root, bytes as on disk; for a moved file, its name in the list
    std::string other; ///< for a moved file, its name now
    friend bool operator==(const ArchiveFinding&, const ArchiveFinding&) = default;
};

struct VerificationOutcome {
    std::int64_t listed = 0;
    std::int64_t unchanged = 0;    ///< of these; includes `spared`
    std::int64_t spared = 0;       ///< not read again, because they were read recently and look unchanged
    std::int64_t damagedLines = 0; ///< lines of the list that name no file: what they told is not known
    std::vector<ArchiveFinding> findings;
    bool isStopped = false;

    /// The list is whole and names at least one file, and every listed file is in its place and unchanged.
    /// Files that are not listed are no error.
    [[nodiscard]] bool isSound() const {
        return listed > 0 && unchanged == listed && damagedLines == 0 && !isStopped;
    }
};

/// Compares an archive with its list of digests. Each file is read from the device. Writes nothing into the
/// archive. Blocks the thread it is called on.
class ArchiveVerification {
public:
    /// All must outlive it. `kept` belongs to the archive and stores what was read and when.
    ArchiveVerification(const FileSystem& fileSystem, const Clock& clock, KeptDigests& kept)
        : fileSystem_(fileSystem), clock_(clock), kept_(kept) {}

    /// Fails when there is no list or it cannot be read. Files that were read within `recent` and look
    /// unchanged since are not read again. Without `recent` all are read.
    FileResult<VerificationOutcome> run(const FilePath& archive, std::optional<std::chrono::hours> recent,
                                        const ReadingCallback& onProgress, const std::stop_token& stop);

private:
    const FileSystem& fileSystem_;
    const Clock& clock_;
    KeptDigests& kept_;
};

} // namespace lumeo
