#include "thumbnailer/RawPreview.h"

#include "media/FileWindow.h"
#include "media/photo/CrwReader.h"
#include "media/photo/ImageHeader.h"
#include "thumbnailer/CommonImage.h"
#include "thumbnailer/Exiv2Versions.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>

namespace lumeo {
namespace {

/// The library needs the whole file. The file is read and not mapped, because pulling out a card would
/// otherwise end the program with a signal.
constexpr std::int64_t largestFile = 256 * 1024 * 1024;
constexpr std::size_t chunkSize = 1024 * 1024;

/// The bytes that were read before the limits were spent. Zeros follow, because the library looks for ends of
/// texts beyond the end.
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

/// The library recognises many more kinds by their content. It reads some of them, such as movies, without
/// bounds.
bool isOfARawPhoto(const Exiv2::Image& image) {
    using namespace Exiv2;
    return image.imageType() == ImageType::tiff || image.imageType() == ImageType::cr2 ||
           image.imageType() == ImageType::orf || image.imageType() == ImageType::raf ||
           image.imageType() == ImageType::rw2 || image.imageType() == ImageType::mrw ||
           image.imageType() == ImageType::bmff;
}

int orientationOf(const Exiv2::Image& image) {
    const auto found = image.exifData().findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    return found != image.exifData().end() && found->count() > 0 ? static_cast<int>(exiv2::integer(*found))
                                                                 : 1;
}

bool fills(const Exiv2::PreviewProperties& preview, QSize pixels) {
    // Compares the shorter sides, because the smallest previews have black bars along the longer sides.
    return std::min(preview.width_, preview.height_) >=
           static_cast<std::uint32_t>(std::min(pixels.width(), pixels.height()));
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

/// Our own reader finds the preview, because the library walks through such a file without bounds.
QImage previewOfCrw(BoundedFile& file, FileWindow& window, QSize pixels) {
    constexpr std::uint64_t largest = 16 * 1024 * 1024;
    const std::optional<FileRange> jpeg = readCrw(window).embeddedJpeg;
    if (!jpeg || jpeg->length > largest) {
        return {};
    }
    QByteArray bytes(static_cast<qsizetype>(jpeg->length), '\0');
    const auto space = std::span(bytes.data(), static_cast<std::size_t>(bytes.size()));
    const FileResult<std::size_t> read =
        file.readAt(static_cast<std::int64_t>(jpeg->offset), std::as_writable_bytes(space));
    return read ? embeddedJpeg(bytes.first(static_cast<qsizetype>(*read)), pixels, 1) : QImage();
}

void prepareRawPreviews() {
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    exiv2::enableBoxes();
    Exiv2::XmpParser::initialize();
}

QImage rawPreview(BoundedFile& file, QSize pixels) {
    FileWindow window(file.whole());
    if (imageKind(window) == ImageKind::crw) {
        return previewOfCrw(file, window, pixels);
    }
    try {
        const std::string bytes = wholeFile(file);
        if (file.isSpent()) {
            return {};
        }
        const auto* const data = reinterpret_cast<const Exiv2::byte*>(bytes.data());
        const auto image = Exiv2::ImageFactory::open(data, static_cast<exiv2::Size>(file.size()));
        if (!isOfARawPhoto(*image)) {
            return {};
        }
        image->readMetadata();
        return bestPreview(*image, pixels);
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace lumeo
