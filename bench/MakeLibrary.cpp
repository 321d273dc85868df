#include "samples/SampleFiles.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>

namespace lumeo::bench {

using namespace samples;

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t megabyte = 1'000'000;

enum class Kind {
    canonJpeg,
    nikonJpeg,
    sonyJpeg,
    iphoneJpeg,
    galaxyJpeg,
    messenger,
    heic,
    nef,
    arw,
    dng,
    movie,
    sidecar
};

struct Request {
    std::uint64_t seed = 0;
    std::int64_t count = 0;
    std::string folder;
    std::int64_t distinct = 0; ///< files that are not hard links to another file; 0 means all
    std::int64_t size = 0;     ///< 0 means a mixed library
};

/// The content of file `number`. Several numbers may have the same content.
struct Content {
    Kind kind = Kind::canonJpeg;
    std::int64_t number = 0; ///< of the first file with this content
    Shot shot;
};

/// At least `width` digits.
std::string padded(std::int64_t value, std::size_t width) {
    const std::string digits = std::to_string(value);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

Camera cameraOf(Kind kind) {
    switch (kind) {
    case Kind::nikonJpeg:
    case Kind::nef:
        return Camera::nikon;
    case Kind::sonyJpeg:
    case Kind::arw:
        return Camera::sony;
    case Kind::iphoneJpeg:
    case Kind::heic:
    case Kind::dng:
    case Kind::movie:
    case Kind::sidecar:
        return Camera::iphone;
    case Kind::galaxyJpeg:
    case Kind::messenger:
        return Camera::galaxy;
    case Kind::canonJpeg:
        break;
    }
    return Camera::canon;
}

/// Ten years of a family's pictures: memory cards, phones, messengers, a few RAW files and movies, and a
/// backup of some of them.
class Library {
public:
    explicit Library(const Request& request) : request_(request) {}

    void make() {
        const std::int64_t distinct = request_.distinct == 0 ? request_.count : request_.distinct;
        for (std::int64_t number = 0; number < request_.count; ++number) {
            const Content content = contentOf(number % distinct);
            const fs::path path = fs::path(request_.folder) / nameOf(number, content);
            fs::create_directories(path.parent_path());
            if (number < distinct) {
                write(path, content);
            } else {
                fs::create_hard_link(fs::path(request_.folder) / nameOf(number % distinct, content), path);
            }
        }
    }

private:
    [[nodiscard]] Content contentOf(std::int64_t number) const {
        Noise noise(request_.seed, static_cast<std::uint64_t>(number));
        if (number > 0 && noise.oneIn(16)) {
            return contentOf(noise.between(0, number - 1));
        }
        Content content;
        content.number = number;
        content.kind = static_cast<Kind>(noise.choice({14, 12, 6, 10, 16, 10, 14, 3, 2, 2, 8, 3}));
        content.shot.camera = cameraOf(content.kind);
        constexpr std::int64_t start = 440'000'000;
        constexpr std::int64_t tenYears = 315'576'000;
        const std::int64_t step = tenYears / request_.count;
        content.shot.second = start + number * step + noise.between(0, step - 1);
        content.shot.hasPosition =
            content.shot.camera == Camera::iphone || content.shot.camera == Camera::galaxy;
        if (content.kind == Kind::movie) {
            content.shot.width = 1920;
            content.shot.height = 1080;
        } else if (content.shot.hasPosition) {
            content.shot.width = 4032;
            content.shot.height = 3024;
        }
        return content;
    }

    /// Cameras start each folder at 0001, so the same names occur in every folder.
    static std::string nameOf(std::int64_t number, const Content& content) {
        const std::int64_t folder = number / 1'000;
        const std::int64_t inFolder = number % 1'000 + 1;
        const auto onCard = [&](std::string_view card, std::string_view name, std::size_t digits,
                                std::string_view extension) {
            return std::string(card) + padded(100 + folder, 3) + std::string(name) +
                   padded(inFolder, digits) + std::string(extension);
        };
        const bool isBackup = content.number != number && number % 2 == 0;
        const std::string above = isBackup ? "Old disk/Backup/" : "";
        switch (content.kind) {
        case Kind::canonJpeg:
            return above + onCard("Card/DCIM/", "CANON/IMG_", 4, ".JPG");
        case Kind::nikonJpeg:
            return above + onCard("Nikon/DCIM/", "ND750/DSC_", 4, ".JPG");
        case Kind::nef:
            return above + onCard("Nikon/DCIM/", "ND750/DSC_", 4, ".NEF");
        case Kind::sonyJpeg:
            return above + onCard("Sony/DCIM/", "MSDCF/DSC", 5, ".JPG");
        case Kind::arw:
            return above + onCard("Sony/DCIM/", "MSDCF/DSC", 5, ".ARW");
        case Kind::iphoneJpeg:
            return above + onCard("iPhone/DCIM/", "APPLE/IMG_", 4, ".JPG");
        case Kind::heic:
            return above + onCard("iPhone/DCIM/", "APPLE/IMG_", 4, ".HEIC");
        case Kind::dng:
            return above + onCard("iPhone/DCIM/", "APPLE/IMG_", 4, ".DNG");
        case Kind::movie:
            return above + onCard("iPhone/DCIM/", "APPLE/IMG_", 4, ".MOV");
        case Kind::sidecar:
            return above + onCard("iPhone/DCIM/", "APPLE/IMG_", 4, ".AAE");
        case Kind::galaxyJpeg:
            return above + "Phone/Camera \u2013 Teil " + std::to_string(folder) + "/" +
                   cameraTime(content.shot, "%Y%m%d_%H%M%S") + "_" + padded(inFolder, 4) + ".jpg";
        case Kind::messenger:
            break;
        }
        return above + "Messenger/Images " + std::to_string(folder) + "/" +
               cameraTime(content.shot, "IMG-%Y%m%d") + "-WA" + padded(inFolder, 4) + ".jpg";
    }

    [[nodiscard]] SampleFile sampleOf(const Content& content) const {
        Noise noise(request_.seed + 1, static_cast<std::uint64_t>(content.number));
        const std::int64_t chance = noise.between(0, 999);
        switch (content.kind) {
        case Kind::messenger:
            return bareJpeg(1600, 1200, noise, 60'000 + chance * 300);
        case Kind::heic:
            return heicOf(content.shot, noise, megabyte + chance * 1'500);
        case Kind::nef: // compressed: sizes differ
            return rawOf(content.shot, noise, 24 * megabyte + chance * 6'000);
        case Kind::arw: // not compressed: all of one size
            return rawOf(content.shot, noise, 24'969'216);
        case Kind::dng:
            return rawOf(content.shot, noise, 12'300'288);
        case Kind::movie: {
            const auto seconds = static_cast<int>(5 + chance / 10);
            return movieOf(content.shot, noise, std::int64_t{seconds} * 2 * megabyte, seconds);
        }
        case Kind::sidecar: {
            std::string text = "<plist version=\"1.0\">" + noise.letters(600) + "</plist>\n";
            const auto size = static_cast<std::int64_t>(text.size());
            return {std::move(text), "", size};
        }
        default:
            return jpegOf(content.shot, noise, 2 * megabyte + chance * 5'000);
        }
    }

    void write(const fs::path& path, const Content& content) const {
        const SampleFile sample = sampleOf(content);
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file << sample.head;
        if (!sample.tail.empty()) {
            file.seekp(sample.size - static_cast<std::int64_t>(sample.tail.size()));
            file << sample.tail;
        }
        file.close();
        if (!file) {
            throw std::runtime_error("cannot write " + path.string());
        }
        fs::resize_file(path, static_cast<std::uintmax_t>(sample.size));
        constexpr std::time_t year2001 = 978'307'200;
        const timespec modified{year2001 + content.shot.second, 0};
        const std::array<timespec, 2> times{modified, modified};
        if (utimensat(AT_FDCWD, path.c_str(), times.data(), 0) != 0) {
            throw std::runtime_error("cannot date " + path.string());
        }
    }

    const Request& request_;
};

/// Files of one size without holes. Every second file is a copy of the one before it, so a search for copies
/// can never stop at the first difference.
void makeSameSized(const Request& request) {
    constexpr std::int64_t pieceSize = std::int64_t{1} << 20;
    const fs::path folder(request.folder);
    fs::create_directories(folder);
    for (std::int64_t number = 0; number < request.count; ++number) {
        Noise noise(request.seed, static_cast<std::uint64_t>(number - number % 2));
        const fs::path path = folder / ("clip_" + padded(number, 5) + ".mov");
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        for (std::int64_t rest = request.size; rest > 0; rest -= pieceSize) {
            file << noise.bytes(static_cast<std::size_t>(std::min(rest, pieceSize)));
        }
        file.close();
        if (!file) {
            throw std::runtime_error("cannot write " + path.string());
        }
    }
}

int run(int argc, char** argv) {
    Request request;
    CLI::App app(
        "Makes a library of photos and movies to measure on. The same seed and count make the same tree.");
    app.add_option("SEED", request.seed)->required();
    app.add_option("COUNT", request.count, "number of files")->required()->check(CLI::Range(1, 100'000'000));
    app.add_option("FOLDER", request.folder, "made when missing")->required();
    app.add_option("--distinct", request.distinct,
                   "make only so many files; the others are hard links to them")
        ->check(CLI::PositiveNumber);
    app.add_option("--size", request.size, "files of noise, all of this many bytes, every second a copy")
        ->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);
    if (request.size > 0) {
        makeSameSized(request);
    } else {
        Library(request).make();
    }
    return 0;
}

} // namespace
} // namespace lumeo::bench

int main(int argc, char** argv) {
    try {
        return lumeo::bench::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
