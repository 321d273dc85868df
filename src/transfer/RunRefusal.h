#pragma once

#include <cstdint>
#include <string>

namespace lumeo {

/// Why a run or an undo did not start. Nothing was written.
struct RunRefusal {
    enum class Reason : std::uint8_t {
        archiveInUse,  ///< another run or undo works in the archive
        archiveGone,   ///< the archive, or the drive it should be on, is not there
        archiveFailed, ///< the folder of the archive cannot be created or used
        noJournal,     ///< a move cannot write its journal
    };
    Reason reason = Reason::archiveFailed;
    std::string sentence; ///< for a person, in English, one line, without a full stop
    friend bool operator==(const RunRefusal&, const RunRefusal&) = default;
};

} // namespace lumeo
