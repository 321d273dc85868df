#include "samples/SampleFiles.h"

#include "samples/Boxes.h"

#include <utility>

namespace lumeo::samples {
namespace {

constexpr std::uint64_t framesPerSecond = 30;
constexpr std::uint64_t timeScale = 600;
constexpr std::uint64_t mediaScale = 30'000;

/// Seconds since 1904, as the container counts them.
std::uint64_t containerTime(const Shot& shot) {
    constexpr std::int64_t from1904To2001 = 3'061'152'000;
    return static_cast<std::uint64_t>(shot.second + from1904To2001);
}

std::string unityMatrix() {
    return be32(0x10000) + be32(0) + be32(0) + be32(0) + be32(0x10000) + be32(0) + be32(0) + be32(0) +
           be32(0x40000000);
}

/// The index of a movie of `seconds`. Its frames start at `dataAt` and fill `dataLength`.
class MovieIndex {
public:
    MovieIndex(const Shot& shot, Noise& noise, std::uint64_t seconds, std::uint64_t dataAt,
               std::uint64_t dataLength)
        : shot_(shot), noise_(noise), seconds_(seconds), dataAt_(dataAt), dataLength_(dataLength) {}

    std::string bytes() {
        const std::string created = be32(containerTime(shot_)) + be32(containerTime(shot_));
        const std::string header = fullBox("mvhd", created + be32(timeScale) + be32(seconds_ * timeScale) +
                                                       be32(0x10000) + be16(0x100) + std::string(10, '\0') +
                                                       unityMatrix() + std::string(24, '\0') + be32(2));
        const std::string video = track(created);
        return movieBox("moov", header + video + metadata());
    }

private:
    std::string track(const std::string& created) {
        const std::string header =
            fullBox("tkhd",
                    created + be32(1) + be32(0) + be32(seconds_ * timeScale) + std::string(16, '\0') +
                        unityMatrix() + be32(static_cast<std::uint64_t>(shot_.width) << 16U) +
                        be32(static_cast<std::uint64_t>(shot_.height) << 16U),
                    0, 0xF);
        const std::string mediaHeader = fullBox(
            "mdhd", created + be32(mediaScale) + be32(seconds_ * mediaScale) + be16(0x55C4) + be16(0));
        const std::string handler =
            fullBox("hdlr", "mhlrvide" + std::string(12, '\0') + std::string("\x05Video", 6));
        const std::string reference = movieBox("dinf", fullBox("dref", be32(1) + fullBox("url ", "", 0, 1)));
        const std::string information =
            movieBox("minf", fullBox("vmhd", std::string(8, '\0'), 0, 1) + reference + sampleTable());
        return movieBox("trak", header + movieBox("mdia", mediaHeader + handler + information));
    }

    std::string sampleTable() {
        const std::uint64_t frames = seconds_ * framesPerSecond;
        const std::string configuration =
            movieBox("avcC", std::string("\1\x64\0\x28\xFF\xE1\0\4\x67\x64\0\x28\1\0\4\x68\xEE\x3C\x80", 19));
        const std::string format = movieBox(
            "avc1", std::string(6, '\0') + be16(1) + std::string(16, '\0') +
                        be16(static_cast<std::uint64_t>(shot_.width)) +
                        be16(static_cast<std::uint64_t>(shot_.height)) + be32(0x480000) + be32(0x480000) +
                        be32(0) + be16(1) + std::string(32, '\0') + be16(24) + be16(0xFFFF) + configuration);
        std::string sizes;
        std::string keyFrames;
        for (std::uint64_t frame = 0; frame < frames; ++frame) {
            sizes += be32(dataLength_ / frames);
            if (frame % framesPerSecond == 0) {
                keyFrames += be32(frame + 1);
            }
        }
        std::string chunks;
        for (std::uint64_t second = 0; second < seconds_; ++second) {
            chunks += be64(dataAt_ + second * (dataLength_ / seconds_));
        }
        return movieBox("stbl",
                        fullBox("stsd", be32(1) + format) +
                            fullBox("stts", be32(1) + be32(frames) + be32(mediaScale / framesPerSecond)) +
                            fullBox("stss", be32(seconds_) + keyFrames) +
                            fullBox("stsc", be32(1) + be32(1) + be32(framesPerSecond) + be32(1)) +
                            fullBox("stsz", be32(0) + be32(frames) + sizes) +
                            fullBox("co64", be32(seconds_) + chunks));
    }

    std::string metadata() {
        const std::pair<const char*, std::string> items[] = {
            {"com.apple.quicktime.make", makeOf(shot_.camera)},
            {"com.apple.quicktime.model", modelOf(shot_.camera)},
            {"com.apple.quicktime.software", noise_.letters(6)},
            {"com.apple.quicktime.creationdate", cameraTime(shot_, "%Y-%m-%dT%H:%M:%S+0200")},
        };
        std::string keys;
        std::string values;
        std::uint64_t number = 0;
        for (const auto& [key, text] : items) {
            ++number;
            keys += movieBox("mdta", key);
            values += movieBox(be32(number), movieBox("data", be32(1) + be32(0) + text));
        }
        return movieBox("meta", fullBox("hdlr", be32(0) + "mdta" + std::string(14, '\0')) +
                                    fullBox("keys", be32(number) + keys) + movieBox("ilst", values));
    }

    const Shot& shot_;
    Noise& noise_;
    std::uint64_t seconds_;
    std::uint64_t dataAt_;
    std::uint64_t dataLength_;
};

} // namespace

SampleFile movieOf(const Shot& shot, Noise& noise, std::int64_t size, int seconds) {
    std::string head = movieBox("ftyp", "qt  " + be32(0x20050300) + "qt  ") + movieBox("wide", "");
    const std::uint64_t dataAt = head.size() + 16;
    const auto dataLength = static_cast<std::uint64_t>(size);
    head += be32(1) + "mdat" + be64(dataLength + 16);
    head += noise.pixels(std::size_t{32} * 1024);
    std::string tail =
        MovieIndex(shot, noise, static_cast<std::uint64_t>(seconds), dataAt, dataLength).bytes();
    const auto whole = static_cast<std::int64_t>(dataAt + dataLength + tail.size());
    return {std::move(head), std::move(tail), whole};
}

} // namespace lumeo::samples
