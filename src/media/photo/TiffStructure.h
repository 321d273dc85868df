#pragma once

#include "media/ByteOrder.h"
#include "media/FileWindow.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

struct TiffEntry {
    std::uint16_t tag = 0;
    std::uint16_t type = 0;
    std::uint64_t count = 0;
    std::uint64_t valueAt = 0; ///< within the structure: in the entry or elsewhere
};

/// The wanted entries of one directory.
class TiffDirectory {
public:
    void add(const TiffEntry& entry) { entries_.push_back(entry); }

    /// The first entry with this tag. Null when there is none.
    [[nodiscard]] const TiffEntry* find(std::uint16_t tag) const {
        for (const TiffEntry& entry : entries_) {
            if (entry.tag == tag) {
                return &entry;
            }
        }
        return nullptr;
    }

private:
    std::vector<TiffEntry> entries_;
};

/// A TIFF structure within a file, of 32 or 64 bits. Directories and values are read by offsets from the
/// structure's first byte. Nothing is kept. Used by one thread. The file must outlive it.
class TiffStructure {
public:
    /// Absent when `range` does not start with a header. `range` may go beyond the end of the file.
    static std::optional<TiffStructure> open(FileWindow& file, FileRange range);

    [[nodiscard]] std::uint64_t firstDirectory() const { return firstDirectory_; }
    /// The kind of TIFF: 42, or the number of a camera maker.
    [[nodiscard]] std::uint16_t magic() const { return magic_; }

    /// The wanted entries of the directory at `offset`. Entries of an unknown type are left out.
    TiffDirectory directory(std::uint64_t offset, std::span<const std::uint16_t> wanted);

    // Values of entries. Absent when the entry is null or has another type, or when its value is not there.

    /// A text up to its NUL, cut off after 1,024 bytes.
    std::optional<std::string> text(const TiffEntry* entry);
    std::optional<std::uint64_t> integer(const TiffEntry* entry, std::size_t index = 0);
    /// Up to three fractions: degrees, minutes, seconds.
    std::optional<double> degrees(const TiffEntry* entry);

    /// The place of the bytes in the file.
    [[nodiscard]] std::optional<FileRange> bytes(const TiffEntry* entry) const;

private:
    TiffStructure(FileWindow& file, FileRange range) : file_(&file), range_(range) {}

    std::optional<std::string_view> view(std::uint64_t offset, std::size_t count);
    /// The same, but with fewer bytes where the structure or the file ends earlier.
    std::string_view viewUpTo(std::uint64_t offset, std::uint64_t count);
    [[nodiscard]] bool isBig() const { return magic_ == 43; }
    template<class Number>
    [[nodiscard]] Number number(std::string_view bytes, std::size_t at) const {
        return numberAt<Number>(bytes, at, order_);
    }
    /// An offset or a count, in the width that the structure uses.
    [[nodiscard]] std::uint64_t word(std::string_view bytes, std::size_t at) const {
        return isBig() ? number<std::uint64_t>(bytes, at) : number<std::uint32_t>(bytes, at);
    }

    FileWindow* file_;
    FileRange range_;
    std::endian order_ = std::endian::little;
    std::uint16_t magic_ = 0;
    std::uint64_t firstDirectory_ = 0;
};

} // namespace lumeo
