#include "media/photo/PngReader.h"

#include "media/ByteOrder.h"
#include "media/ChunkWalk.h"
#include "media/Decompression.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>

namespace lumeo {

namespace {

constexpr std::uint64_t signatureSize = 8;
constexpr std::size_t longestTextChunk = 4 * 1024 * 1024;
constexpr int mostTexts = 8; ///< that are inflated or decoded
constexpr std::string_view whitespace = " \t\r\n";

/// The text up to its NUL. Both are removed from `bytes`.
std::string_view takeText(std::string_view& bytes) {
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    const std::string_view text = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    return text;
}

/// The text of a chunk of any of the three kinds, without its keyword.
std::string textOf(std::string_view tag, std::string_view content) {
    if (tag == "tEXt") {
        return std::string(content);
    }
    const bool isInternational = tag == "iTXt";
    const bool isCompressed = !isInternational || content.starts_with('\1');
    content.remove_prefix(std::min<std::size_t>(isInternational ? 2 : 1, content.size())); // of compression
    if (isInternational) {
        takeText(content); // the language
        takeText(content); // the translated keyword
    }
    return isCompressed ? zlibDecompressed(content) : std::string(content);
}

/// The bytes of a raw profile. Its text is the kind, the length, and two digits for each byte.
std::string profileBytes(std::string_view text) {
    const auto takeWord = [&text] {
        text.remove_prefix(std::min(text.find_first_not_of(whitespace), text.size()));
        text.remove_prefix(std::min(text.find_first_of(whitespace), text.size()));
    };
    takeWord();
    takeWord();
    const auto digit = [](char letter) {
        constexpr std::string_view digits = "0123456789abcdef";
        const std::size_t found = digits.find(static_cast<char>(letter | 0x20));
        return found == std::string_view::npos ? -1 : static_cast<int>(found);
    };
    std::string bytes;
    int high = -1;
    for (const char letter : text) {
        const int value = digit(letter);
        if (value < 0) {
            continue;
        }
        if (high >= 0) {
            bytes += static_cast<char>(high * 16 + value);
        }
        high = high >= 0 ? -1 : value;
    }
    return bytes;
}

/// The first bytes tell what a raw profile holds, because one kind of profile may carry either.
void readProfile(std::string bytes, PngContents& contents) {
    constexpr std::string_view exifName("Exif\0\0", 6);
    constexpr std::string_view xmpName("http://ns.adobe.com/xap/1.0/\0", 29);
    if (bytes.starts_with(exifName)) {
        bytes.erase(0, exifName.size());
    } else if (bytes.starts_with(xmpName)) {
        bytes.erase(0, xmpName.size());
    }
    const bool isTiff = bytes.starts_with("II") || bytes.starts_with("MM");
    std::optional<std::string>& found = isTiff ? contents.exifProfile : contents.xmpPacket;
    if (!found) {
        found = std::move(bytes);
    }
}

class PngWalk {
public:
    explicit PngWalk(FileWindow& file) : file_(file) {}

    PngContents read() && {
        constexpr int mostOtherChunks = 64;
        int others = 0;
        ChunkWalk walk(file_, {signatureSize, std::numeric_limits<std::int64_t>::max()}, pngChunks);
        while (const std::optional<Chunk> chunk = walk.next()) {
            if (chunk->tag == "IEND") {
                return std::move(contents_);
            }
            if (!readChunk(*chunk) && ++others == mostOtherChunks) {
                readTail();
                break;
            }
        }
        return std::move(contents_);
    }

private:
    /// False when the chunk carries no metadata.
    bool readChunk(const Chunk& chunk) {
        if (chunk.tag == "eXIf") {
            if (!contents_.exif) {
                contents_.exif = chunk.content;
            }
            return true;
        }
        return (chunk.tag == "tEXt" || chunk.tag == "zTXt" || chunk.tag == "iTXt") && readText(chunk);
    }

    bool readText(const Chunk& chunk) {
        constexpr std::string_view xmpKeyword = "XML:com.adobe.xmp";
        constexpr std::array profileKeywords{"Raw profile type exif", "Raw profile type APP1",
                                             "Raw profile type xmp"};
        constexpr std::size_t longestKeyword = 80;
        std::string keyword = file_.read(chunk.content.offset, longestKeyword);
        keyword = keyword.substr(0, keyword.find('\0'));
        const bool isProfile = std::ranges::find(profileKeywords, keyword) != profileKeywords.end();
        if ((!isProfile && keyword != xmpKeyword) || ++texts_ > mostTexts) {
            return false;
        }
        const std::uint64_t length = chunk.content.length;
        const auto bytes = length <= longestTextChunk
                               ? file_.view(chunk.content.offset, static_cast<std::size_t>(length))
                               : std::nullopt;
        if (!bytes || bytes->size() <= keyword.size()) {
            return true;
        }
        std::string text = textOf(chunk.tag, bytes->substr(keyword.size() + 1));
        if (isProfile) {
            readProfile(profileBytes(text), contents_);
        } else if (!contents_.xmpPacket) {
            contents_.xmpPacket = std::move(text);
        }
        return true;
    }

    /// Searches the end of the file for a series of chunks with metadata that reaches to the end.
    void readTail() {
        constexpr std::uint64_t tailSize = 256 * 1024;
        const std::uint64_t from = file_.size() - std::min(file_.size(), tailSize);
        const std::string tail = file_.read(from, tailSize);
        int candidates = 0;
        constexpr int mostCandidates = 64;
        for (std::size_t at = 4; at + 8 <= tail.size() && candidates < mostCandidates; ++at) {
            const std::string_view tag = std::string_view(tail).substr(at, 4);
            if (tag != "eXIf" && tag != "tEXt" && tag != "zTXt" && tag != "iTXt") {
                continue;
            }
            ++candidates;
            if (endsTheFile(tail, at - 4)) {
                ChunkWalk walk(file_, {from + at - 4, tail.size() - (at - 4)}, pngChunks);
                while (const std::optional<Chunk> chunk = walk.next()) {
                    readChunk(*chunk);
                }
                return;
            }
        }
    }

    static bool endsTheFile(std::string_view tail, std::uint64_t at) {
        constexpr std::uint64_t emptyChunkSize = 12;
        while (tail.size() - at >= emptyChunkSize) {
            if (tail.substr(at + 4, 4) == "IEND") {
                return true;
            }
            at += emptyChunkSize + numberAt<std::uint32_t>(tail, at, std::endian::big);
            if (at > tail.size()) {
                break;
            }
        }
        return false;
    }

    FileWindow& file_;
    PngContents contents_;
    int texts_ = 0;
};

} // namespace

PngContents readPng(FileWindow& file) {
    return PngWalk(file).read();
}

} // namespace lumeo
