#include "thumbnailer/ThumbnailMaker.h"

#include "media/BoundedFile.h"
#include "scan/MediaTypeDetector.h"
#include "thumbnailer/CommonImage.h"
#include "thumbnailer/HeifImage.h"
#include "thumbnailer/MovieFrame.h"
#include "thumbnailer/RawPreview.h"

#include <chrono>
#include <memory>
#include <new>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

constexpr ReadLimits limits{.bytes = 512 * 1024 * 1024, .work = 5s, .wait = 20s};

/// Raw files begin like TIFF ones, whose reader would give the smallest of their pictures or the raw
/// one; all others know their own by the content, which is more to be trusted than a name.
QImage pictureOf(BoundedFile& file, bool isRaw, QSize pixels) {
    if (isRaw) {
        if (QImage preview = rawPreview(file, pixels); !preview.isNull()) {
            return preview;
        }
    }
    for (const auto read : {commonImage, heifImage, movieFrame}) {
        if (QImage picture = read(file, pixels); !picture.isNull()) {
            return picture;
        }
    }
    return {};
}

} // namespace

QImage ThumbnailMaker::make(const FileSystem& fileSystem, const FilePath& path, QSize pixels) {
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file || pixels.isEmpty()) {
        return {};
    }
    const std::optional<MediaTypeDetector::Detection> type = MediaTypeDetector::detectType(path);
    try {
        BoundedFile bounded(**file, limits);
        return pictureOf(bounded, type && type->mediaType == MediaType::rawPhoto, pixels);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

} // namespace lumeo
