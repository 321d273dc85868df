#include "media/movie/ForeignContainer.h"

#include "media/movie/StreamDates.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace lumeo {
namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view bytes;
    ForeignContainer container;
    std::string_view kind = {}; ///< of a RIFF or IFF file, at byte 8
};

constexpr std::array signatures{
    Signature{"\0\0\1\xBA"sv, ForeignContainer::programStream},
    Signature{"\0\0\1\xB3"sv, ForeignContainer::mpegVideo},
    Signature{dvFrameStart, ForeignContainer::dv},
    Signature{"FLV\1"sv, ForeignContainer::flash},
    Signature{"\x06\x0E\x2B\x34\x02\x05\x01\x01\x0D\x01\x02"sv, ForeignContainer::mxf},
    Signature{"OggS"sv, ForeignContainer::ogg},
    Signature{".RMF"sv, ForeignContainer::realMedia},
    Signature{"\xB7\xD8\0\x20\x37\x49\xDA\x11\xA6\x4E\0\x07\xE9\x5E\xAD\x8D"sv,
              ForeignContainer::windowsTelevision},
    Signature{"RIFF"sv, ForeignContainer::wave, "WAVE"sv},
    Signature{"RF64"sv, ForeignContainer::wave, "WAVE"sv},
    Signature{"riff\x2E\x91\xCF\x11"sv, ForeignContainer::wave64},
    Signature{"ID3"sv, ForeignContainer::mp3},
    Signature{"\x0B\x77"sv, ForeignContainer::ac3},
    Signature{"fLaC"sv, ForeignContainer::flac},
    Signature{"FORM"sv, ForeignContainer::aiff, "AIFF"sv},
    Signature{"FORM"sv, ForeignContainer::aiff, "AIFC"sv},
    Signature{"#!AMR"sv, ForeignContainer::amr},
    Signature{"caff"sv, ForeignContainer::coreAudio},
    Signature{"MAC "sv, ForeignContainer::monkeysAudio},
    Signature{"wvpk"sv, ForeignContainer::wavPack},
    Signature{".snd"sv, ForeignContainer::sunAudio},
};

unsigned byteAt(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

/// The length of the sound frame that starts at `at`, including its header. 0 when none starts there.
std::size_t adtsFrame(std::string_view head, std::size_t at) {
    if (byteAt(head, at) != 0xFF || (byteAt(head, at + 1) & 0xF6U) != 0xF0) {
        return 0;
    }
    return (byteAt(head, at + 3) & 3U) << 11U | byteAt(head, at + 4) << 3U | byteAt(head, at + 5) >> 5U;
}

std::size_t mp3Frame(std::string_view head, std::size_t at) {
    static constexpr std::array<unsigned, 16> fullRates{0,   32,  40,  48,  56,  64,  80,  96,
                                                        112, 128, 160, 192, 224, 256, 320, 0};
    static constexpr std::array<unsigned, 16> halfRates{0,  8,  16, 24,  32,  40,  48,  56,
                                                        64, 80, 96, 112, 128, 144, 160, 0};
    static constexpr std::array<unsigned, 4> sampleRates{44'100, 48'000, 32'000, 0};
    const unsigned second = byteAt(head, at + 1);
    const unsigned third = byteAt(head, at + 2);
    const unsigned version = second >> 3U & 3U; // 3 is MPEG-1, 2 has half its sample rates, 0 a quarter
    const bool isLayer3 = (second & 0xE6U) == 0xE2;
    const bool isFull = version == 3;
    const unsigned rate = (isFull ? fullRates : halfRates).at(third >> 4U);
    const unsigned samples = sampleRates.at(third >> 2U & 3U) >> (isFull ? 0U : version == 2 ? 1U : 2U);
    if (byteAt(head, at) != 0xFF || !isLayer3 || version == 1 || rate == 0 || samples == 0) {
        return 0;
    }
    return (isFull ? 144'000U : 72'000U) * rate / samples + (third >> 1U & 1U);
}

bool isRowOf(std::size_t (*frame)(std::string_view, std::size_t), std::string_view head) {
    const std::size_t first = frame(head, 0);
    return first > 0 && frame(head, first) > 0;
}

} // namespace

std::optional<ForeignContainer> foreignContainer(FileWindow& file) {
    constexpr std::size_t looked = 4 * 1024;
    const std::string head = file.read(0, looked);
    const auto* const found = std::ranges::find_if(signatures, [&head](const Signature& signature) {
        return head.starts_with(signature.bytes) &&
               (signature.kind.empty() ||
                (head.size() >= 12 && std::string_view(head).substr(8, 4) == signature.kind));
    });
    if (found != signatures.end()) {
        return found->container;
    }
    if (transportPackets(head)) {
        return ForeignContainer::transportStream;
    }
    if (isRowOf(adtsFrame, head)) {
        return ForeignContainer::aac;
    }
    return isRowOf(mp3Frame, head) ? std::optional(ForeignContainer::mp3) : std::nullopt;
}

} // namespace lumeo
