#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumeo {

/// Which names and files a disk accepts, and how it compares names. The default is the behaviour of this
/// system's usual file systems: every byte counts.
struct DiskTraits {
    bool ignoresCase = false;          ///< "a.jpg" and "A.JPG" are the same name
    bool ignoresComposition = false;   ///< "é" as one character and as a letter with an accent are the same
    bool restrictsNames = false;       ///< no " * : < > ? \ |, control characters, final dots or blanks
    bool refusesIllFormedText = false; ///< a name must be UTF-8
    bool countsUtf16 = false;          ///< `longestName` is in units of UTF-16, otherwise in bytes
    std::size_t longestName = 255;
    std::optional<std::int64_t> largestFile{}; ///< bytes
    bool isCertain = false; ///< the type of the file system decides it, whatever its options
    friend bool operator==(const DiskTraits&, const DiskTraits&) = default;
};

/// The `name` of a file or folder in a form that the disk accepts. "_" replaces what the disk refuses, and
/// the end of the base is cut off if the name is too long. Names with a special meaning on the systems that
/// such disks come from ("CON", "nul.txt") also get a "_". If the disk accepts the name, it is unchanged,
/// byte for byte.
std::string fittedName(std::string_view name, const DiskTraits& disk);

/// `base` with `ending`. The base is cut between two characters if the disk could not accept all of it.
std::string joinedName(std::string_view base, std::string_view ending, const DiskTraits& disk);

/// The same text for all names, or paths, that the disk treats as equal. A few names that the disk tells
/// apart may also give the same text, because no two disks agree on every letter. Use it only for comparing,
/// never as a name.
std::string comparableName(std::string_view text, const DiskTraits& disk);

} // namespace lumeo
