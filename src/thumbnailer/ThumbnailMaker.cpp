#include "thumbnailer/ThumbnailMaker.h"

#include "media/BoundedFile.h"
#include "thumbnailer/CommonImage.h"
#include "thumbnailer/HeifImage.h"
#include "thumbnailer/MovieFrame.h"
#include "thumbnailer/RawPreview.h"

#include <chrono>
#include <new>

namespace lumeo {
namespace {

using namespace std::chrono_literals;

constexpr ReadLimits limits{.bytes = 512 * 1024 * 1024, .work = 5s, .wait = 8s};

/// Raw files start like TIFF files, and the TIFF reader would give their smallest picture or the undeveloped
/// one. So raw files are recognised by their name. The other readers recognise their format by the content,
/// which is more reliable than a name.
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

void ThumbnailMaker::prepare() {
    prepareCommonImages();
    prepareHeifImages();
    prepareMovieFrames();
    prepareRawPreviews();
}

QImage ThumbnailMaker::make(ReadableFile& file, bool isRaw, QSize pixels) {
    if (pixels.isEmpty()) {
        return {};
    }
    try {
        BoundedFile bounded(file, limits);
        return pictureOf(bounded, isRaw, pixels);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

} // namespace lumeo
