#include "media/BytesFile.h"
#include "media/ChunkWalk.h"
#include "media/FieldReader.h"
#include "media/FileWindow.h"
#include "media/IsoBoxes.h"
#include "media/photo/JpegReader.h"
#include "media/photo/PhotoReader.h"
#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"
#include "support/MemoryFileSystem.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::string_literals;

constexpr auto big = bigEndianBytes;

/// What `look` finds in a file with these bytes.
template<class Look>
auto in(const std::string& bytes, Look look) {
    BytesFile file(bytes);
    FileWindow window(file);
    return look(window);
}

TEST(Bounds, AWindowShowsTheLastByteOfAFileAndNoneBehindIt) {
    constexpr std::size_t head = FileWindow::headSize;
    for (const std::size_t size : {std::size_t{1}, head - 1, head, head + 1, head + 4'096, head + 5'000}) {
        std::string bytes(size, 'x');
        bytes.back() = 'z';
        for (const std::size_t from : {std::size_t{0}, size / 2, size - 1}) {
            in(bytes, [&](FileWindow& window) {
                for (int again = 0; again < 2; ++again) { // from the file, then from the buffer
                    EXPECT_FALSE(window.view(from, size - from + 1)) << size << ' ' << from;
                    const auto rest = window.view(from, size - from);
                    EXPECT_TRUE(rest && rest->back() == 'z') << size << ' ' << from;
                }
                EXPECT_FALSE(window.view(size, 1));
                EXPECT_EQ(window.read(from, size).size(), size - from);
                return 0;
            });
        }
    }
    const std::string large(FileWindow::largestView + 1, 'x');
    in(large, [](FileWindow& window) {
        EXPECT_TRUE(window.view(0, FileWindow::largestView));
        EXPECT_FALSE(window.view(0, FileWindow::largestView + 1));
        return 0;
    });
}

/// Each structure is found when its last byte is there. It is not found when this byte is missing, or when
/// the structure's own length excludes it.
TEST(Bounds, AStructureIsThereWithItsLastByteAndNotWithoutIt) {
    const auto field = [](std::size_t size, std::size_t within) {
        return [=](FileWindow& window) {
            FieldReader fields(window, {1, within});
            fields.number(size);
            return !fields.hasFailed();
        };
    };
    EXPECT_TRUE(in("12345678"s, field(7, 7)));
    EXPECT_FALSE(in("12345678"s, field(7, 6))) << "not in the box";
    EXPECT_FALSE(in("1234567"s, field(7, 7))) << "not in the file";

    const auto text = [](FileWindow& window) {
        FieldReader fields(window, {0, 300});
        fields.text();
        return !fields.hasFailed();
    };
    EXPECT_TRUE(in(std::string(256, 'x') + '\0', text));
    EXPECT_FALSE(in(std::string(257, 'x') + '\0', text)) << "longer than any name";

    const auto box = [](FileWindow& window) {
        return BoxWalk(window, {0, window.size()}).next().has_value();
    };
    const auto longBox = [](std::uint64_t size) { return big(1, 4) + "mdat" + big(size, 8); };
    EXPECT_TRUE(in(big(8, 4) + "free", box));
    EXPECT_FALSE(in(big(8, 4) + "fre", box));
    EXPECT_FALSE(in(big(7, 4) + "free", box)) << "smaller than its head";
    EXPECT_TRUE(in(longBox(16), box));
    EXPECT_FALSE(in(longBox(15), box)) << "smaller than its head";
    EXPECT_FALSE(in(longBox(16).substr(0, 15), box));
    in(big(100, 4) + "free" + "ab", [](FileWindow& window) {
        EXPECT_EQ(BoxWalk(window, {0, 10}).next()->content, (FileRange{8, 2}))
            << "cut where the stretch ends";
        return 0;
    });

    const auto chunk = [](FileWindow& window) {
        return ChunkWalk(window, {0, window.size()}, pngChunks).next().has_value();
    };
    EXPECT_TRUE(in(big(0, 4) + "IEND", chunk));
    EXPECT_FALSE(in(big(0, 4) + "IEN", chunk));
    in(big(100, 4) + "eXIf" + "ab", [](FileWindow& window) {
        ChunkWalk walk(window, {0, 10}, pngChunks);
        EXPECT_EQ(walk.next()->content, (FileRange{8, 2}));
        EXPECT_FALSE(walk.next());
        return 0;
    });

    const auto frame = [](std::uint64_t lengthOfFirst, std::size_t cut) {
        const std::string jpeg = "\xFF\xD8\xFF\xE0" + big(lengthOfFirst, 2) + "ab" + "\xFF\xC0" + big(8, 2) +
                                 "\x08" + big(200, 2) + big(300, 2);
        return in(jpeg.substr(0, jpeg.size() - cut),
                  [](FileWindow& window) { return readJpeg(window, 0)->pixelWidth.has_value(); });
    };
    EXPECT_TRUE(frame(4, 0));
    EXPECT_FALSE(frame(4, 1));
    EXPECT_FALSE(frame(1, 0)) << "a segment shorter than its length";
    EXPECT_FALSE(frame(0, 0));
}

/// Whether the date is found in the last entry of a directory of this size.
bool findsDateBehind(std::size_t entries) {
    const TiffMaker tiff;
    std::vector<TiffMaker::Entry> all(entries, tiff.number16(0x0100, 1));
    all.push_back(tiff.text(0x0132, "2021:03:14 15:30:45"));
    MemoryFileSystem files;
    files.addFile(FilePath("/a"), tiff.header() + tiff.directory(all, 8));
    return PhotoReader::read(files, FilePath("/a"))->tiff.dateTime.has_value();
}

TEST(Bounds, BoxesAndEntriesHaveCeilings) {
    EXPECT_TRUE(findsDateBehind(999));
    EXPECT_FALSE(findsDateBehind(1'000));

    std::string boxes;
    for (std::size_t i = 0; i <= mostBoxes; ++i) {
        boxes += big(8, 4) + "free";
    }
    const std::size_t walked = in(boxes, [](FileWindow& window) {
        BoxWalk walk(window, {0, window.size()});
        std::size_t count = 0;
        while (walk.next()) {
            ++count;
        }
        return count;
    });
    EXPECT_EQ(walked, mostBoxes);
}

/// A file whose every read succeeds. It counts its reads.
class SlowFile final : public ReadableFile {
public:
    FileResult<std::size_t> read(std::span<std::byte> buffer) override { return buffer.size(); }
    FileResult<std::size_t> readAt(std::int64_t /*offset*/, std::span<std::byte> buffer) override {
        ++reads;
        return buffer.size();
    }
    FileResult<FileStatus> status() override { return FileStatus{}; }
    int reads = 0;
};

TEST(Bounds, AStopEndsTheReadingOfAFile) {
    SlowFile file;
    std::stop_source stop;
    FileWindow window(file, stop.get_token());
    EXPECT_TRUE(window.view(1'000'000, 1));
    const int before = file.reads;
    stop.request_stop();
    EXPECT_FALSE(window.view(2'000'000, 1));
    EXPECT_EQ(file.reads, before);
    EXPECT_TRUE(window.view(0, 1)) << "what was read stays";
}

} // namespace
} // namespace lumeo
