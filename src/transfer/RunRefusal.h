#pragma once

#include <cstdint>
#include <string>

namespace lumeo {

/// Why a run or an undo was not begun. Nothing was written.
struct RunRefusal {
    enum class Reason : std::uint8_t {
        archiveInUse,  ///< another run or undo works in the archive
        archiveGone,   ///< the archive, or the drive that it was to lie on, is not there
        archiveFailed, ///< its folder cannot be made or used
        noJournal,     ///< a move cannot keep its journal
    };
    Reason reason = Reason::archiveFailed;
    std::string sentence; ///< for a person, in English, one line, without a full stop
    friend bool operator==(const RunRefusal&, const RunRefusal&) = default;
};

} // namespace lumeo
