#include "thumbnailer/RawPreview.h"

#include "thumbnailer/CommonImage.h"

#include <algorithm>
#include <exception>
#include <mutex>
#include <string>

#include <exiv2/exiv2.hpp>

namespace lumeo {
namespace {

/// The library takes the file as a whole. It is read, not mapped: a card pulled out would end the
/// program with a signal.
constexpr std::int64_t largestFile = 256 * 1024 * 1024;
constexpr std::size_t chunkSize = 1024 * 1024;

/// What came before the limits were spent; zeros behind it, for the library looks for ends of texts there.
std::string wholeFile(BoundedFile& file) {
    constexpr std::size_t guard = 16;
    const std::int64_t size = file.size() <= largestFile ? file.size() : 0;
    std::string bytes(static_cast<std::size_t>(size) + guard, '\0');
    std::size_t length = 0;
    while (length + guard < bytes.size()) {
        const std::size_t count = std::min(chunkSize, bytes.size() - guard - length);
        const FileResult<std::size_t> read =
            file.readAt(static_cast<std::int64_t>(length),
                        std::as_writable_bytes(std::span(bytes).subspan(length, count)));
        if (!read || *read == 0) {
            break;
        }
        length += *read;
    }
    return bytes;
}

void prepareLibrary() {
    static std::once_flag isPrepared;
    std::call_once(isPrepared, [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::enableBMFF(true);
        Exiv2::XmpParser::initialize();
    });
}

int orientationOf(const Exiv2::Image& image) {
    const auto found = image.exifData().findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    return found != image.exifData().end() && found->count() > 0 ? static_cast<int>(found->toLong()) : 1;
}

bool fills(const Exiv2::PreviewProperties& preview, QSize pixels) {
    return std::max(preview.width_, preview.height_) >=
           static_cast<std::uint32_t>(std::max(pixels.width(), pixels.height()));
}

QImage bestPreview(const Exiv2::Image& image, QSize pixels) {
    const Exiv2::PreviewManager previews(image);
    Exiv2::PreviewPropertiesList list = previews.getPreviewProperties(); // smallest first
    const auto largeEnough =
        std::ranges::find_if(list, [pixels](const auto& preview) { return fills(preview, pixels); });
    std::reverse(list.begin(), largeEnough);
    std::rotate(list.begin(), largeEnough, list.end());
    for (const Exiv2::PreviewProperties& properties : list) {
        const Exiv2::PreviewImage preview = previews.getPreviewImage(properties);
        const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(preview.pData()),
                                                         static_cast<qsizetype>(preview.size()));
        if (QImage picture = embeddedJpeg(bytes, pixels, orientationOf(image)); !picture.isNull()) {
            return picture;
        }
    }
    return {};
}

} // namespace

QImage rawPreview(BoundedFile& file, QSize pixels) {
    prepareLibrary();
    try {
        const std::string bytes = wholeFile(file);
        if (file.isSpent()) {
            return {};
        }
        const auto* const data = reinterpret_cast<const Exiv2::byte*>(bytes.data());
        // NOLINTNEXTLINE(clang-diagnostic-deprecated-declarations): the library still gives it
        const Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::open(data, static_cast<long>(file.size()));
        image->readMetadata();
        return bestPreview(*image, pixels);
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace lumeo
