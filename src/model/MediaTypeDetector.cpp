#include "model/MediaTypeDetector.h"

#include "platform/AsciiCase.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace lumeo {
namespace {

struct KnownExtension {
    std::string_view extension; ///< lower case
    MediaType mediaType = MediaType::other;
    std::string_view identifier; ///< uniform type identifier
};

constexpr auto raw = MediaType::rawPhoto;
constexpr auto photo = MediaType::photo;
constexpr auto video = MediaType::video;

/// For formats that have no identifier.
constexpr std::string_view anyRawImage = "public.camera-raw-image";
constexpr std::string_view anyImage = "public.image";
constexpr std::string_view anyMovie = "public.movie";
constexpr std::string_view anyAudio = "public.audio";

/// If a format is both raw and image, raw comes first. Audio counts as audiovisual content like a movie, so
/// that a camera's recordings stay with its pictures.
constexpr std::array extensionsByTheme{
    KnownExtension{"3fr", raw, "com.hasselblad.3fr-raw-image"},
    KnownExtension{"arw", raw, "com.sony.arw-raw-image"},
    KnownExtension{"bay", raw, anyRawImage},
    KnownExtension{"cap", raw, anyRawImage},
    KnownExtension{"cr2", raw, "com.canon.cr2-raw-image"},
    KnownExtension{"cr3", raw, "com.canon.cr3-raw-image"},
    KnownExtension{"crw", raw, "com.canon.crw-raw-image"},
    KnownExtension{"dcr", raw, "com.kodak.raw-image"},
    KnownExtension{"dng", raw, "com.adobe.raw-image"},
    KnownExtension{"dxo", raw, "com.dxo.raw-image"},
    KnownExtension{"erf", raw, "com.epson.raw-image"},
    KnownExtension{"fff", raw, "com.hasselblad.fff-raw-image"},
    KnownExtension{"gpr", raw, anyRawImage},
    KnownExtension{"iiq", raw, "com.phaseone.raw-image"},
    KnownExtension{"k25", raw, anyRawImage},
    KnownExtension{"kdc", raw, anyRawImage},
    KnownExtension{"mef", raw, anyRawImage},
    KnownExtension{"mos", raw, "com.leafamerica.raw-image"},
    KnownExtension{"mrw", raw, "com.konicaminolta.raw-image"},
    KnownExtension{"nef", raw, "com.nikon.raw-image"},
    KnownExtension{"nrw", raw, "com.nikon.nrw-raw-image"},
    KnownExtension{"orf", raw, "com.olympus.raw-image"},
    KnownExtension{"pef", raw, "com.pentax.raw-image"},
    KnownExtension{"ptx", raw, anyRawImage},
    KnownExtension{"raf", raw, "com.fuji.raw-image"},
    KnownExtension{"raw", raw, "com.panasonic.raw-image"},
    KnownExtension{"rw2", raw, "com.panasonic.rw2-raw-image"},
    KnownExtension{"rwl", raw, "com.leica.rwl-raw-image"},
    KnownExtension{"sr2", raw, "com.sony.sr2-raw-image"},
    KnownExtension{"srf", raw, "com.sony.raw-image"},
    KnownExtension{"srw", raw, "com.samsung.raw-image"},
    KnownExtension{"x3f", raw, anyRawImage},

    KnownExtension{"avci", photo, "public.avci"},
    KnownExtension{"avif", photo, "public.avif"},
    KnownExtension{"avifs", photo, "public.avif"},
    KnownExtension{"bmp", photo, "com.microsoft.bmp"},
    KnownExtension{"dib", photo, "com.microsoft.bmp"},
    KnownExtension{"exr", photo, "com.ilm.openexr-image"},
    KnownExtension{"gif", photo, "com.compuserve.gif"},
    KnownExtension{"hdp", photo, anyImage},
    KnownExtension{"hdr", photo, "public.radiance"},
    KnownExtension{"heic", photo, "public.heic"},
    KnownExtension{"heics", photo, "public.heics"},
    KnownExtension{"heif", photo, "public.heif"},
    KnownExtension{"heifs", photo, "public.heif"},
    KnownExtension{"hif", photo, "public.heif"},
    KnownExtension{"icns", photo, "com.apple.icns"},
    KnownExtension{"ico", photo, "com.microsoft.ico"},
    KnownExtension{"insp", photo, "public.jpeg"},
    KnownExtension{"j2c", photo, "public.jpeg-2000"},
    KnownExtension{"j2k", photo, "public.jpeg-2000"},
    KnownExtension{"jfif", photo, "public.jpeg"},
    KnownExtension{"jp2", photo, "public.jpeg-2000"},
    KnownExtension{"jpe", photo, "public.jpeg"},
    KnownExtension{"jpeg", photo, "public.jpeg"},
    KnownExtension{"jpf", photo, "public.jpeg-2000"},
    KnownExtension{"jpg", photo, "public.jpeg"},
    KnownExtension{"jps", photo, "public.jpeg"},
    KnownExtension{"jpx", photo, "public.jpeg-2000"},
    KnownExtension{"jxl", photo, "public.jpeg-xl"},
    KnownExtension{"jxr", photo, anyImage},
    KnownExtension{"mpo", photo, "public.mpo-image"},
    KnownExtension{"pct", photo, "com.apple.pict"},
    KnownExtension{"pict", photo, "com.apple.pict"},
    KnownExtension{"png", photo, "public.png"},
    KnownExtension{"psb", photo, "com.adobe.photoshop-large-image"},
    KnownExtension{"psd", photo, "com.adobe.photoshop-image"},
    KnownExtension{"qtif", photo, "com.apple.quicktime-image"},
    KnownExtension{"sgi", photo, "com.sgi.sgi-image"},
    KnownExtension{"svg", photo, "public.svg-image"},
    KnownExtension{"svgz", photo, "public.svg-image"},
    KnownExtension{"tga", photo, "com.truevision.tga-image"},
    KnownExtension{"tif", photo, "public.tiff"},
    KnownExtension{"tiff", photo, "public.tiff"},
    KnownExtension{"wdp", photo, anyImage},
    KnownExtension{"webp", photo, "org.webmproject.webp"},

    KnownExtension{"360", video, "public.mpeg-4"},
    KnownExtension{"3g2", video, "public.3gpp2"},
    KnownExtension{"3gp", video, "public.3gpp"},
    KnownExtension{"3gp2", video, "public.3gpp2"},
    KnownExtension{"3gpp", video, "public.3gpp"},
    KnownExtension{"asf", video, "com.microsoft.advanced-systems-format"},
    KnownExtension{"avi", video, "public.avi"},
    KnownExtension{"dif", video, "public.dv-movie"},
    KnownExtension{"divx", video, "public.avi"},
    KnownExtension{"dv", video, "public.dv-movie"},
    KnownExtension{"dvr-ms", video, "com.microsoft.advanced-systems-format"},
    KnownExtension{"f4v", video, anyMovie},
    KnownExtension{"flv", video, "com.adobe.flash.video"},
    KnownExtension{"insv", video, "public.mpeg-4"},
    KnownExtension{"lrf", video, "public.mpeg-4"},
    KnownExtension{"lrv", video, "public.mpeg-4"},
    KnownExtension{"m1v", video, "public.mpeg"},
    KnownExtension{"m2p", video, "public.mpeg"},
    KnownExtension{"m2t", video, "public.mpeg-2-transport-stream"},
    KnownExtension{"m2ts", video, "public.avchd-mpeg-2-transport-stream"},
    KnownExtension{"m2v", video, "public.mpeg-2-video"},
    KnownExtension{"m4v", video, "com.apple.m4v-video"},
    KnownExtension{"mk3d", video, anyMovie},
    KnownExtension{"mkv", video, "org.matroska.mkv"},
    KnownExtension{"mod", video, "public.mpeg"},
    KnownExtension{"mov", video, "com.apple.quicktime-movie"},
    KnownExtension{"mp2v", video, "public.mpeg-2-video"},
    KnownExtension{"mp4", video, "public.mpeg-4"},
    KnownExtension{"mpe", video, "public.mpeg"},
    KnownExtension{"mpeg", video, "public.mpeg"},
    KnownExtension{"mpg", video, "public.mpeg"},
    KnownExtension{"mpg4", video, "public.mpeg-4"},
    KnownExtension{"mqv", video, "com.apple.quicktime-movie"},
    KnownExtension{"mts", video, "public.avchd-mpeg-2-transport-stream"},
    KnownExtension{"mxf", video, "org.smpte.mxf"},
    KnownExtension{"ogm", video, anyMovie},
    KnownExtension{"ogv", video, anyMovie},
    KnownExtension{"qt", video, "com.apple.quicktime-movie"},
    KnownExtension{"rm", video, anyMovie},
    KnownExtension{"rmvb", video, anyMovie},
    KnownExtension{"tod", video, "public.mpeg-2-transport-stream"},
    KnownExtension{"tp", video, "public.mpeg-2-transport-stream"},
    KnownExtension{"trp", video, "public.mpeg-2-transport-stream"},
    KnownExtension{"ts", video, "public.mpeg-2-transport-stream"},
    KnownExtension{"vob", video, "public.mpeg"},
    KnownExtension{"webm", video, "org.webmproject.webm"},
    KnownExtension{"wm", video, "com.microsoft.windows-media-wm"},
    KnownExtension{"wmv", video, "com.microsoft.windows-media-wmv"},
    KnownExtension{"wtv", video, anyMovie},

    KnownExtension{"aac", video, "public.aac-audio"},
    KnownExtension{"ac3", video, "public.ac3-audio"},
    KnownExtension{"aif", video, "public.aiff-audio"},
    KnownExtension{"aifc", video, "public.aifc-audio"},
    KnownExtension{"aiff", video, "public.aiff-audio"},
    KnownExtension{"amr", video, "org.3gpp.adaptive-multi-rate-audio"},
    KnownExtension{"ape", video, anyAudio},
    KnownExtension{"au", video, "public.au-audio"},
    KnownExtension{"bwf", video, "com.microsoft.waveform-audio"},
    KnownExtension{"caf", video, "com.apple.coreaudio-format"},
    KnownExtension{"flac", video, "org.xiph.flac"},
    KnownExtension{"m4a", video, "com.apple.m4a-audio"},
    KnownExtension{"mid", video, "public.midi-audio"},
    KnownExtension{"midi", video, "public.midi-audio"},
    KnownExtension{"mka", video, anyAudio},
    KnownExtension{"mp2", video, "public.mp2"},
    KnownExtension{"mp3", video, "public.mp3"},
    KnownExtension{"oga", video, "org.xiph.ogg-audio"},
    KnownExtension{"ogg", video, "org.xiph.ogg-audio"},
    KnownExtension{"opus", video, anyAudio},
    KnownExtension{"snd", video, "public.au-audio"},
    KnownExtension{"w64", video, anyAudio},
    KnownExtension{"wav", video, "com.microsoft.waveform-audio"},
    KnownExtension{"wave", video, "com.microsoft.waveform-audio"},
    KnownExtension{"weba", video, anyAudio},
    KnownExtension{"wma", video, "com.microsoft.windows-media-wma"},
    KnownExtension{"wv", video, anyAudio},
};

constexpr auto knownExtensions = [] {
    auto sorted = extensionsByTheme;
    std::ranges::sort(sorted, {}, &KnownExtension::extension);
    return sorted;
}();
static_assert(std::ranges::adjacent_find(knownExtensions, {}, &KnownExtension::extension) ==
                  knownExtensions.end(),
              "an extension stands twice");

constexpr std::size_t longestExtension =
    std::ranges::max(knownExtensions, {}, [](const KnownExtension& known) {
        return known.extension.size();
    }).extension.size();

/// The detections in the order of knownExtensions. Their shared texts are made once.
const auto& detections() {
    static const auto all = [] {
        std::array<MediaTypeDetector::Detection, knownExtensions.size()> made;
        std::ranges::transform(knownExtensions, made.begin(), [](const KnownExtension& known) {
            return MediaTypeDetector::Detection{known.mediaType, SharedText(known.identifier)};
        });
        return made;
    }();
    return all;
}

} // namespace

std::optional<MediaTypeDetector::Detection> MediaTypeDetector::detectType(const FilePath& path) {
    const std::string_view extension = path.extension();
    if (extension.size() > longestExtension) {
        return std::nullopt;
    }
    std::array<char, longestExtension> buffer{};
    std::ranges::transform(extension, buffer.begin(), asciiLowerCased);
    const std::string_view key(buffer.data(), extension.size());

    const auto* const found = std::ranges::lower_bound(knownExtensions, key, {}, &KnownExtension::extension);
    if (found == knownExtensions.end() || found->extension != key) {
        return std::nullopt;
    }
    return detections()[static_cast<std::size_t>(found - knownExtensions.begin())];
}

} // namespace lumeo
