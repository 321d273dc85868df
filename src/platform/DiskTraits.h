#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// What a disk takes as names and files, and how it compares names. The default is what the usual file
/// systems of this system do: every byte counts.
struct DiskTraits {
    bool ignoresCase = false;        ///< "a.jpg" and "A.JPG" are one name
    bool ignoresComposition = false; ///< so are "é" as one character and as a letter with an accent
    bool restrictsNames = false;     ///< no " * : < > ? \ | or control characters, no dot or blank at the end
    bool refusesIllFormedText = false; ///< a name has to be UTF-8
    bool countsUtf16 = false;          ///< `longestName` is in units of UTF-16, else in bytes
    std::size_t longestName = 255;
    std::optional<std::int64_t> largestFile{}; ///< bytes
    bool isCertain = false;                    ///< told by the type of the file system, whatever its options
    friend bool operator==(const DiskTraits&, const DiskTraits&) = default;
};

/// `name`, of a file or folder, as the disk takes it: "_" for what it refuses, and the end of the base cut
/// off where it is too long. Names that have a meaning of their own where such disks come from ("CON",
/// "nul.txt") get a "_" as well. The name itself, byte for byte, where the disk takes it.
std::string fittedName(std::string_view name, const DiskTraits& disk);

/// `base` with `ending`, the base cut short between two characters where the disk could not take all of it.
std::string joinedName(std::string_view base, std::string_view ending, const DiskTraits& disk);

/// The same text for all names, or paths, that the disk takes for one. It may also be the same for a few that
/// the disk tells apart, since no two disks agree on every letter. For comparing only, never a name.
std::string comparableName(std::string_view text, const DiskTraits& disk);

} // namespace lumeo
