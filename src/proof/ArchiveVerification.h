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

/// What a verification found of one file that is not as the list says.
struct ArchiveFinding {
    enum class Kind : std::uint8_t { changed, missing, unreadable, moved, notListed };

    Kind kind = Kind::changed;
    std::string name;  ///< below the archive's root, bytes as on disk; of a moved file, where the list has it
    std::string other; ///< of a moved file, where it stands now
    friend bool operator==(const ArchiveFinding&, const ArchiveFinding&) = default;
};

struct VerificationOutcome {
    std::int64_t listed = 0;
    std::int64_t unchanged = 0; ///< of these; with `spared`
    std::int64_t spared = 0;    ///< not read again, since they were not long ago and look untouched
    std::vector<ArchiveFinding> findings;
    bool isStopped = false;

    /// Every listed file is where it was and what it was. Files that are not listed are no fault.
    [[nodiscard]] bool isSound() const { return unchanged == listed && !isStopped; }
};

/// Compares an archive with its list of digests, each file read from the device. Writes nothing into the
/// archive. Blocks the thread it is called on.
class ArchiveVerification {
public:
    /// All must outlive it. `kept`, of the archive, learns what was read and when.
    ArchiveVerification(const FileSystem& fileSystem, const Clock& clock, KeptDigests& kept)
        : fileSystem_(fileSystem), clock_(clock), kept_(kept) {}

    /// Fails when there is no list, or none that can be read. Files that were read within `recent` and look
    /// untouched since are not read again; absent to read all.
    FileResult<VerificationOutcome> run(const FilePath& archive, std::optional<std::chrono::hours> recent,
                                        const ReadingCallback& onProgress, const std::stop_token& stop);

private:
    const FileSystem& fileSystem_;
    const Clock& clock_;
    KeptDigests& kept_;
};

} // namespace lumeo
