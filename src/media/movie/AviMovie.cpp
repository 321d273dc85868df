#include "media/ByteOrder.h"
#include "media/ChunkWalk.h"
#include "media/FileWindow.h"
#include "media/movie/ContainerReaders.h"
#include "media/movie/StreamDates.h"
#include "platform/CivilTime.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace lumeo {
namespace {

/// A chunk or a list of chunks. A list has its kind as name.
struct Part {
    std::string name;
    FileRange content;
};

Part partOf(FileWindow& file, const Chunk& chunk) {
    constexpr std::uint64_t kindSize = 4;
    if (chunk.tag != "LIST") {
        return {chunk.tag, chunk.content};
    }
    const std::uint64_t skipped = std::min(kindSize, chunk.content.length);
    return {file.read(chunk.content.offset, kindSize),
            {chunk.content.offset + skipped, chunk.content.length - skipped}};
}

/// Calls `each` with the parts of a range until it returns false.
template<class Each>
void forEachPart(FileWindow& file, FileRange range, Each each) {
    ChunkWalk walk(file, range, riffChunks);
    while (const std::optional<Chunk> found = walk.next()) {
        if (!each(partOf(file, *found))) {
            break;
        }
    }
}

/// The words and numbers of a date text.
struct DateWords {
    std::vector<int> numbers;
    int month = 0;            ///< named by a word; 0 when there is none
    bool isMorning = false;   ///< "am" was found
    bool isAfternoon = false; ///< "pm" was found
};

int monthNamed(std::string_view word) {
    static constexpr std::array<std::string_view, 12> names{"jan", "feb", "mar", "apr", "may", "jun",
                                                            "jul", "aug", "sep", "oct", "nov", "dec"};
    const auto* const found = std::ranges::find(names, word);
    return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

DateWords wordsOf(std::string_view text) {
    const auto isDigit = [](char letter) { return letter >= '0' && letter <= '9'; };
    const auto isLetter = [](char letter) { return (letter | 0x20) >= 'a' && (letter | 0x20) <= 'z'; };
    DateWords words;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        if (isDigit(text[at])) {
            int number = 0;
            end = static_cast<std::size_t>(
                std::from_chars(text.data() + at, text.data() + text.size(), number).ptr - text.data());
            words.numbers.push_back(number);
        } else if (isLetter(text[at])) {
            std::string word;
            for (; end < text.size() && isLetter(text[end]); ++end) {
                word += static_cast<char>(text[end] | 0x20);
            }
            words.month = std::max(words.month, monthNamed(word));
            words.isMorning |= word == "am";
            words.isAfternoon |= word == "pm";
        }
        at = std::max(end, at + 1);
    }
    return words;
}

/// The wall time in one of the forms that cameras write: "Mon Mar 10 15:04:43 2003", "2009/10/27 12:14:34",
/// "2005/08/17/ 11:42", "2001/ 1/27  1:42PM", "2009-10-27".
std::optional<WallTime> wallTime(std::string_view text) {
    const DateWords words = wordsOf(text.substr(0, text.find('\0')));
    const std::vector<int>& numbers = words.numbers;
    WallTime time;
    if (words.month > 0 && numbers.size() == 5) {
        time = {numbers[4], words.month, numbers[0], numbers[1], numbers[2], numbers[3]};
    } else if (words.month == 0 && (numbers.size() == 5 || numbers.size() == 6)) {
        time = {numbers[0], numbers[1], numbers[2],
                numbers[3], numbers[4], numbers.size() == 6 ? numbers[5] : 0};
    } else if (words.month == 0 && numbers.size() == 3) {
        time = {numbers[0], numbers[1], numbers[2], 12}; // a date without a time means noon
    } else {
        return std::nullopt;
    }
    if (words.isAfternoon && time.hour < 12) {
        time.hour += 12;
    } else if (words.isMorning && time.hour == 12) {
        time.hour = 0;
    }
    const bool isReal = time.year >= 1904 && isRealTime(time);
    return isReal ? std::optional(time) : std::nullopt;
}

/// The days where clocks that nobody has set start.
bool isUnsetDay(const WallTime& time) {
    return (time.year == 1904 || time.year == 1970) && time.month == 1 && time.day == 1;
}

class AviMovie {
    /// In a recording that was cut short, pictures stand where parts are expected.
    static constexpr std::size_t mostParts = 16;

public:
    explicit AviMovie(FileWindow& file) : file_(file) {}

    std::optional<MovieProperties> read() {
        constexpr std::uint64_t headSize = 12;
        const std::string head = file_.read(0, headSize);
        if (head.size() < headSize || !head.starts_with("RIFF") || !head.ends_with("AVI ")) {
            return std::nullopt;
        }
        // Reads to the end of the file, because a recording that was cut short has no length in its header.
        std::size_t parts = 0;
        forEachPart(file_, {headSize, file_.size() - headSize}, [&](const Part& part) {
            readPart(part);
            return ++parts < mostParts;
        });
        const double fromFrames = frames_ * secondsPerFrame_;
        if (const double seconds = longestStream_ > 0 ? longestStream_ : fromFrames; seconds > 0) {
            movie_.durationSeconds = seconds;
        }
        return std::move(movie_);
    }

private:
    void readPart(const Part& part) {
        if (part.name == "movi") {
            if (movie_.metadata.empty()) {
                readPictures(part);
            }
        } else if (part.name == "hdrl" || part.name == "INFO") {
            forEachPart(file_, part.content, [this](const Part& inner) {
                readHeaderPart(inner);
                return true;
            });
        } else {
            readHeaderPart(part);
        }
    }

    /// The pictures of DV contain the date.
    void readPictures(const Part& pictures) {
        std::size_t parts = 0;
        forEachPart(file_, pictures.content, [&](const Part& part) {
            if (file_.read(part.content.offset, dvFrameStart.size()) != dvFrameStart) {
                return ++parts < mostParts; // may be sound
            }
            addContainerDate(movie_, dvDate(file_, part.content.offset));
            return false;
        });
    }

    void readHeaderPart(const Part& part) {
        if (part.name == "avih") {
            const std::string header = file_.read(part.content.offset, 40);
            secondsPerFrame_ = static_cast<double>(littleEndian(header, 0, 4)) / 1e6;
            frames_ = static_cast<double>(littleEndian(header, 16, 4));
            frameSize_ = {static_cast<double>(littleEndian(header, 32, 4)),
                          static_cast<double>(littleEndian(header, 36, 4))};
        } else if (part.name == "strl") {
            readStream(part);
        } else if ((part.name == "IDIT" || part.name == "ICRD") && movie_.metadata.empty()) {
            constexpr std::uint64_t longestDate = 64;
            readDate(file_.read(part.content.offset,
                                static_cast<std::size_t>(std::min(longestDate, part.content.length))));
        }
    }

    void readStream(const Part& stream) {
        std::string header;
        std::string format;
        forEachPart(file_, stream.content, [&](const Part& part) {
            if (part.name == "strh") {
                header = file_.read(part.content.offset, 36);
            } else if (part.name == "strf") {
                format = file_.read(part.content.offset, 12);
            }
            return true;
        });
        const auto at = [&](std::size_t offset) {
            return static_cast<double>(littleEndian(header, offset, 4));
        };
        if (at(24) > 0) {
            longestStream_ = std::max(longestStream_, at(20) * at(32) / at(24));
        }
        if (header.starts_with("vids") && !movie_.videoTrack) {
            // A negative height means that the rows are stored from the top down.
            const auto height = static_cast<std::int32_t>(littleEndian(format, 8, 4));
            movie_.videoTrack = MovieVideoTrack{static_cast<double>(littleEndian(format, 4, 4)),
                                                std::abs(static_cast<double>(height))};
        } else if (header.starts_with("iavs") && !movie_.videoTrack) {
            movie_.videoTrack = frameSize_; // picture and sound in one stream, without its own format
        }
    }

    void readDate(std::string_view text) {
        const std::optional<WallTime> time = wallTime(text);
        if (!time || isUnsetDay(*time)) {
            return;
        }
        addContainerDate(movie_, LocalCalendar::compose(*time));
    }

    FileWindow& file_;
    MovieProperties movie_;
    MovieVideoTrack frameSize_;
    double secondsPerFrame_ = 0;
    double frames_ = 0;
    double longestStream_ = 0;
};

} // namespace

std::optional<MovieProperties> readAviMovie(FileWindow& file) {
    return AviMovie(file).read();
}

} // namespace lumeo
