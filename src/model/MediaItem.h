#pragma once

#include "model/CompactOptional.h"
#include "model/EnumText.h"
#include "platform/FilePath.h"
#include "platform/Instant.h"
#include "platform/SharedText.h"
#include "platform/Uuid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo {

/// What kind of media a file is. The scanner never produces `other`, but counters and filters have it.
enum class MediaType : std::uint8_t { photo, video, rawPhoto, other };

/// Where a capture date came from: photo metadata, video metadata, the name, the file system, nowhere.
enum class DateSourceType : std::uint8_t {
    exifDateTimeOriginal,
    exifCreateDate,
    tiffDateTime,
    heifCreationDate,
    quickTimeUserDataDate,
    quickTimeMetadataDate,
    avAssetCreationDate,
    filename,
    filesystemCreationDate,
    filesystemModificationDate,
    unknown,
};

/// How far a capture date can be trusted, from the least to the most.
enum class DateConfidence : std::uint8_t { unknown, low, medium, high };

/// English texts that are shown to the user and written into journals, reports and names of folders.
std::string_view userFriendlyLabel(MediaType type);
std::string_view userFriendlyLabel(DateSourceType source);
std::string_view userFriendlyLabel(DateConfidence confidence);

/// The catalogue record of one scanned media file.
///
/// The scanner sets everything above `sha256Hash` once. Later passes fill in the rest on copies. A record is
/// kept small, because a catalogue can hold a million of them: the file's name and extension are read from
/// `sourceURL`, equal camera texts share their storage, and absent values take no extra room.
struct MediaItem {
    Uuid id;                            ///< random, new for every scan
    FilePath sourceURL;                 ///< absolute, as the walk gave it
    CompactOptional<SharedText> utType; ///< uniform type identifier
    MediaType mediaType = MediaType::other;
    DateSourceType dateSource = DateSourceType::unknown; ///< `unknown` when there is no resolvedDate
    DateConfidence dateConfidence = DateConfidence::unknown;
    bool hasGPS = false;
    std::int64_t fileSize = 0; ///< bytes; 0 when it could not be read
    CompactOptional<Instant> filesystemCreationDate;
    CompactOptional<Instant> filesystemModificationDate;
    CompactOptional<Instant> metadataCaptureDate; ///< photos: EXIF DateTimeOriginal
    CompactOptional<Instant> metadataCreateDate;  ///< photos: EXIF DateTimeDigitized
    CompactOptional<Instant> videoCreationDate;   ///< videos only
    CompactOptional<Instant> filenameDerivedDate;
    CompactOptional<Instant> resolvedDate; ///< the chosen capture date
    CompactOptional<SharedText> dateSuspiciousWarning;
    CompactOptional<SharedText> cameraMake;
    CompactOptional<SharedText> cameraModel;
    CompactOptional<SharedText> lensModel;
    CompactOptional<std::int64_t> pixelWidth;
    CompactOptional<std::int64_t> pixelHeight;
    CompactOptional<double> durationSeconds;      ///< videos only
    CompactOptional<double> gpsLatitude;          ///< degrees, south negative
    CompactOptional<double> gpsLongitude;         ///< degrees, west negative
    std::optional<std::string> sha256Hash;        ///< 64 lower-case hex digits, once the file was hashed
    std::optional<Uuid> exactDuplicateGroupID;    ///< shared by byte-identical files
    std::optional<Uuid> probableDuplicateGroupID; ///< kept and coded, but nothing sets it
    std::optional<FilePath> plannedDestinationURL;
    std::vector<std::string> scanWarnings;
    std::vector<std::string> scanErrors;

    /// The last component of `sourceURL`, bytes as on disk. The view lives as long as the item.
    [[nodiscard]] std::string_view fileName() const noexcept { return sourceURL.lastComponent(); }

    /// The extension without its dot, case as on disk; empty when there is none.
    [[nodiscard]] std::string_view fileExtension() const noexcept { return sourceURL.extension(); }

    friend bool operator==(const MediaItem&, const MediaItem&) = default;
};

template<>
struct EnumTexts<MediaType> {
    static constexpr std::array texts{
        std::pair{MediaType::photo, std::string_view("photo")},
        std::pair{MediaType::video, std::string_view("video")},
        std::pair{MediaType::rawPhoto, std::string_view("rawPhoto")},
        std::pair{MediaType::other, std::string_view("other")},
    };
};

template<>
struct EnumTexts<DateSourceType> {
    static constexpr std::array texts{
        std::pair{DateSourceType::exifDateTimeOriginal, std::string_view("exifDateTimeOriginal")},
        std::pair{DateSourceType::exifCreateDate, std::string_view("exifCreateDate")},
        std::pair{DateSourceType::tiffDateTime, std::string_view("tiffDateTime")},
        std::pair{DateSourceType::heifCreationDate, std::string_view("heifCreationDate")},
        std::pair{DateSourceType::quickTimeUserDataDate, std::string_view("quickTimeUserDataDate")},
        std::pair{DateSourceType::quickTimeMetadataDate, std::string_view("quickTimeMetadataDate")},
        std::pair{DateSourceType::avAssetCreationDate, std::string_view("avAssetCreationDate")},
        std::pair{DateSourceType::filename, std::string_view("filename")},
        std::pair{DateSourceType::filesystemCreationDate, std::string_view("filesystemCreationDate")},
        std::pair{DateSourceType::filesystemModificationDate, std::string_view("filesystemModificationDate")},
        std::pair{DateSourceType::unknown, std::string_view("unknown")},
    };
};

template<>
struct EnumTexts<DateConfidence> {
    static constexpr std::array texts{
        std::pair{DateConfidence::unknown, std::string_view("unknown")},
        std::pair{DateConfidence::low, std::string_view("low")},
        std::pair{DateConfidence::medium, std::string_view("medium")},
        std::pair{DateConfidence::high, std::string_view("high")},
    };
};

} // namespace lumeo
