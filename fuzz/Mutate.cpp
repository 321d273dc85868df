#include "dates/PhotoMetadataExtractor.h"
#include "dates/VideoMetadataExtractor.h"
#include "media/helper/MediaHelper.h"
#include "platform/PosixFileSystem.h"
#include "samples/AttackFiles.h"
#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Damages files at random from a seed and passes each to the readers, as a scan does. Prints the longest time
// that one file took and the largest use of memory. A crash ends the run, and so does a file that takes ten
// seconds. In both cases the file remains at the place that the first line names.
//
//     lumeo-mutate COUNT SEED [FOLDER with files to damage…]

namespace {

using namespace lumeo;

struct Original {
    std::string name;
    std::string bytes;
};

std::vector<Original> madeFiles() {
    TinyPhoto photo;
    photo.dateTimeOriginal = "2021:03:14 15:30:45";
    photo.make = "Maker";
    photo.latitude = 48.5;
    photo.longitude = 2.25;
    photo.xmpPacket = tinyXmp(R"(xmp:ModifyDate="2021-03-14T15:30:45" aux:Lens="Lens")");
    photo.photoshop = pressFacts("20210314", "153045+0100");
    const WallTime clock{2021, 3, 14, 15, 30, 45};
    TinyMovie captured;
    captured.infoDate = "2021-03-14";
    captured.pictures = tinyDv(clock);
    const std::string camera("Maker\0Model\0", 12);
    const std::string exifName("Raw profile type exif\0\0", 23);
    const std::string xmpName("XML:com.adobe.xmp\0\1\0\0\0", 22);
    return {{"jpeg", tinyJpeg(photo)},
            {"tiff", tinyTiff(photo)},
            {"crw", crwFile(crwHeap({{0x2007, tinyJpeg()},
                                     {0x300A, crwHeap({{0x2807, crwHeap({{0x080A, camera}})},
                                                       {0x180E, littleEndianBytes(1'615'735'845, 4)}})}}))},
            {"png", tinyPng(pngChunk("IHDR", std::string(13, '\1')) +
                            pngChunk("zTXt", exifName + deflated(pngProfile(tinyTiff(photo)))) +
                            pngChunk("iTXt", xmpName + deflated(*photo.xmpPacket)))},
            {"psd", tinyPsd(photoshopResource(0x0422, tinyExif(photo)) +
                            photoshopResource(0x0424, *photo.xmpPacket) + *photo.photoshop)},
            {"jxl", movieBox("JXL ", "\r\n\x87\n") +
                        movieBox("Exif", bigEndianBytes(0, 4) + tinyExif(photo)) +
                        brotliBox("xml ", *photo.xmpPacket)},
            {"gif", tinyGif(*photo.xmpPacket, 3)},
            {"mov", tinyQuickTime()},
            {"mkv", tinyMatroska()},
            {"asf", tinyAsf()},
            {"avi", tinyAvi(captured)},
            {"dv", tinyDv(clock)},
            {"mts", tinyAvchd(clock)},
            {"ts", transportStreamOfLargeFrames(20, 15, 20)}};
}

std::vector<Original> filesIn(const std::string& folder) {
    constexpr std::uintmax_t largest = 4 * 1024 * 1024;
    std::vector<Original> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && entry.file_size() <= largest) {
            std::ifstream stream(entry.path(), std::ios::binary);
            files.push_back({entry.path().string(), std::string(std::istreambuf_iterator<char>(stream), {})});
        }
    }
    std::ranges::sort(files, {}, &Original::name); // the same on every machine
    return files;
}

class Damage {
public:
    explicit Damage(std::uint64_t seed) : numbers_(seed) {}

    std::string done(std::string bytes, const std::string& other) {
        for (std::size_t i = 1 + below(8); i > 0 && !bytes.empty(); --i) {
            damage(bytes, other);
        }
        return bytes;
    }

private:
    std::size_t below(std::size_t end) { return end == 0 ? 0 : numbers_() % end; }

    /// Readers mostly read near the start or the end of a file.
    std::size_t place(const std::string& bytes) {
        constexpr std::size_t near = 4'096;
        const std::size_t reach = std::min(bytes.size(), near);
        switch (below(4)) {
        case 0:
            return below(bytes.size());
        case 1:
            return bytes.size() - 1 - below(reach);
        default:
            return below(reach);
        }
    }

    void damage(std::string& bytes, const std::string& other) {
        constexpr std::array<std::uint64_t, 10> numbers{
            0, 1, 7, 8, 0x7F, 0xFF, 0xFFFF, 0x7FFF'FFFF, 0xFFFF'FFFF, ~std::uint64_t{0}};
        const std::size_t at = place(bytes);
        const std::size_t length = 1 + below(std::min<std::size_t>(bytes.size() - at, 64));
        switch (below(7)) {
        case 0:
            bytes[at] = static_cast<char>(bytes[at] ^ 1 << below(8));
            break;
        case 1:
        case 2: {
            const std::uint64_t number = numbers.at(below(numbers.size()));
            const int width = 1 << below(4);
            const std::string written =
                below(2) == 0 ? bigEndianBytes(number, width) : littleEndianBytes(number, width);
            bytes.replace(at, written.size(), written);
            break;
        }
        case 3:
            bytes.resize(at);
            break;
        case 4:
            bytes.erase(at, length);
            break;
        case 5:
            bytes.insert(place(bytes), bytes.substr(at, length));
            break;
        default:
            bytes.replace(at, length, other.substr(std::min(at, other.size()), length));
        }
    }

    std::mt19937_64 numbers_;
};

long mostMegabytes(__rusage_who_t of) {
    rusage usage{};
    getrusage(of, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "lumeo-mutate COUNT SEED [FOLDER]...\n";
        return 2;
    }
    const std::uint64_t count = std::strtoull(argv[1], nullptr, 10);
    const std::uint64_t seed = std::strtoull(argv[2], nullptr, 10);
    std::vector<Original> originals = madeFiles();
    for (int i = 3; i < argc; ++i) {
        std::ranges::move(filesIn(argv[i]), std::back_inserter(originals));
    }
    const TempFolder folder;
    std::cout << originals.size() << " files to damage; the one in hand is " << (folder / "mutant").bytes()
              << std::endl;

    const PosixFileSystem disk;
    double longest = 0;
    std::string longestName;
    {
        MediaHelper helper;
        for (std::uint64_t i = 0; i < count; ++i) {
            const Original& original = originals[i % originals.size()];
            Damage damage(seed + i);
            const FilePath file = folder.write(
                "mutant", damage.done(original.bytes, originals[(i * 31 + 7) % originals.size()].bytes));
            constexpr unsigned hang = 10; // seconds
            alarm(hang);
            const auto start = std::chrono::steady_clock::now();
            static_cast<void>(PhotoMetadataExtractor::extractMetadata(disk, file));
            static_cast<void>(VideoMetadataExtractor::extractMetadata(disk, file, helper));
            const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
            if (taken.count() > longest) {
                longest = taken.count();
                longestName = original.name + ", number " + std::to_string(i);
            }
        }
    }
    alarm(0);
    while (wait(nullptr) > 0) { // ended helpers, for their use of resources
    }
    std::cout << count << " mutants from seed " << seed << ": longest " << longest << " ms (" << longestName
              << "), most memory " << mostMegabytes(RUSAGE_SELF) << " MB, of a helper "
              << mostMegabytes(RUSAGE_CHILDREN) << " MB\n";
    return 0;
}
