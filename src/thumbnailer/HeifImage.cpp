#include "thumbnailer/HeifImage.h"

#include "thumbnailer/PictureShape.h"

#include <array>
#include <memory>
#include <vector>

#include <libheif/heif.h>

namespace lumeo {
namespace {

/// A photo is decoded as a whole, with up to four bytes for each pixel in several copies.
constexpr std::int64_t mostPixels = 100'000'000;

template<class Type, void (*release)(Type*)>
struct Release {
    void operator()(Type* value) const { release(value); }
};

void releaseImage(heif_image* image) {
    heif_image_release(image);
}
void releaseHandle(heif_image_handle* handle) {
    heif_image_handle_release(handle);
}

using Context = std::unique_ptr<heif_context, Release<heif_context, heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Release<heif_image_handle, releaseHandle>>;
using DecodedImage = std::unique_ptr<heif_image, Release<heif_image, releaseImage>>;
using Options =
    std::unique_ptr<heif_decoding_options, Release<heif_decoding_options, heif_decoding_options_free>>;

/// The file in the form that the library reads.
struct Reader {
    BoundedFile& file;
    std::int64_t position = 0;

    static std::int64_t tell(void* self) { return static_cast<Reader*>(self)->position; }

    static int read(void* data, std::size_t size, void* userData) {
        auto& self = *static_cast<Reader*>(userData);
        std::span<std::byte> space(static_cast<std::byte*>(data), size);
        while (!space.empty()) {
            const FileResult<std::size_t> read = self.file.readAt(self.position, space);
            if (!read || *read == 0) {
                return -1;
            }
            self.position += static_cast<std::int64_t>(*read);
            space = space.subspan(*read);
        }
        return 0;
    }

    static int seek(std::int64_t position, void* self) {
        static_cast<Reader*>(self)->position = position;
        return 0;
    }

    static heif_reader_grow_status waitForSize(std::int64_t size, void* self) {
        return size > static_cast<Reader*>(self)->file.size() ? heif_reader_grow_status_size_beyond_eof
                                                              : heif_reader_grow_status_size_reached;
    }
};

/// Uses the first version of the table. Later versions have more members, which stay empty.
heif_reader readerTable() {
    heif_reader table{};
    table.reader_api_version = 1;
    table.get_position = Reader::tell;
    table.read = Reader::read;
    table.seek = Reader::seek;
    table.wait_for_file_size = Reader::waitForSize;
    return table;
}

bool isOk(const heif_error& error) {
    return error.code == heif_error_Ok;
}

bool isHeif(BoundedFile& file) {
    std::array<std::uint8_t, 64> head{};
    const FileResult<std::size_t> read = file.readAt(0, std::as_writable_bytes(std::span(head)));
    if (!read) {
        return false;
    }
    const heif_filetype_result type = heif_check_filetype(head.data(), static_cast<int>(*read));
    return type == heif_filetype_yes_supported || type == heif_filetype_maybe;
}

QSize sizeOf(const heif_image_handle& handle) {
    return {heif_image_handle_get_width(&handle), heif_image_handle_get_height(&handle)};
}

/// Some writers turn the picture but not its thumbnail.
bool isOfOneShape(QSize one, QSize other) {
    return (one.width() > one.height()) == (other.width() > other.height());
}

/// The first thumbnail that fills the space and has the same orientation as the picture.
Handle thumbnailOf(const heif_image_handle& picture, QSize pixels) {
    std::array<heif_item_id, 8> ids{};
    const int count =
        heif_image_handle_get_list_of_thumbnail_IDs(&picture, ids.data(), static_cast<int>(ids.size()));
    for (int i = 0; i < count; ++i) {
        heif_image_handle* handle = nullptr;
        if (!isOk(heif_image_handle_get_thumbnail(&picture, ids.at(static_cast<std::size_t>(i)), &handle))) {
            continue;
        }
        Handle thumbnail(handle);
        const QSize size = sizeOf(*thumbnail);
        if ((size.width() >= pixels.width() || size.height() >= pixels.height()) &&
            isOfOneShape(size, sizeOf(picture))) {
            return thumbnail;
        }
    }
    return nullptr;
}

QImage decode(const heif_image_handle& handle, QSize pixels) {
    const QSize size = sizeOf(handle);
    if (size.isEmpty() || qint64{size.width()} * size.height() > mostPixels) {
        return {};
    }
    const bool hasAlpha = heif_image_handle_has_alpha_channel(&handle) != 0;
    const Options options(heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    heif_image* decoded = nullptr;
    const heif_error error = heif_decode_image(
        &handle, &decoded, heif_colorspace_RGB,
        hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, options.get());
    const DecodedImage image(decoded);
    if (!isOk(error) || !image) {
        return {};
    }
    int stride = 0;
    const std::uint8_t* const plane =
        heif_image_get_plane_readonly(image.get(), heif_channel_interleaved, &stride);
    const int width = heif_image_get_width(image.get(), heif_channel_interleaved);
    const int height = heif_image_get_height(image.get(), heif_channel_interleaved);
    if (plane == nullptr || width <= 0 || height <= 0) {
        return {};
    }
    const QImage whole(plane, width, height, stride,
                       hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    // The copy is needed: the library owns the pixels and frees them.
    const QSize target = fitted(whole.size(), pixels);
    return target == whole.size() ? whole.copy()
                                  : whole.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

void prepareHeifImages() {
    heif_init(nullptr);
}

QImage heifImage(BoundedFile& file, QSize pixels) {
    if (!isHeif(file)) {
        return {};
    }
    Reader reader{file};
    const heif_reader table = readerTable();
    const Context context(heif_context_alloc());
    heif_image_handle* handle = nullptr;
    if (!context || !isOk(heif_context_read_from_reader(context.get(), &table, &reader, nullptr)) ||
        !isOk(heif_context_get_primary_image_handle(context.get(), &handle))) {
        return {};
    }
    const Handle picture(handle);
    if (const Handle thumbnail = thumbnailOf(*picture, pixels)) {
        if (QImage image = decode(*thumbnail, pixels); !image.isNull()) {
            return image;
        }
    }
    return decode(*picture, pixels);
}

} // namespace lumeo
