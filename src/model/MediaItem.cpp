#include "model/MediaItem.h"

namespace lumeo {

std::string_view userFriendlyLabel(MediaType type) {
    switch (type) {
    case MediaType::photo:
        return "Photo";
    case MediaType::video:
        return "Video";
    case MediaType::rawPhoto:
        return "RAW Photo";
    case MediaType::other:
        break;
    }
    return "Other Media";
}

std::string_view userFriendlyLabel(DateSourceType source) {
    switch (source) {
    case DateSourceType::exifDateTimeOriginal:
    case DateSourceType::exifCreateDate:
    case DateSourceType::tiffDateTime:
    case DateSourceType::heifCreationDate:
        return "Date found in photo";
    case DateSourceType::quickTimeUserDataDate:
    case DateSourceType::quickTimeMetadataDate:
    case DateSourceType::avAssetCreationDate:
        return "Date found in video";
    case DateSourceType::filename:
        return "Date inferred from filename";
    case DateSourceType::filesystemCreationDate:
    case DateSourceType::filesystemModificationDate:
        return "Finder date used";
    case DateSourceType::unknown:
        break;
    }
    return "Date unknown";
}

std::string_view userFriendlyLabel(DateConfidence confidence) {
    switch (confidence) {
    case DateConfidence::low:
        return "Low";
    case DateConfidence::medium:
        return "Medium";
    case DateConfidence::high:
        return "High";
    case DateConfidence::unknown:
        break;
    }
    return "Unknown";
}

} // namespace lumeo
