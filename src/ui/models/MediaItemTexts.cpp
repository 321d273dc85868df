#include "ui/models/MediaItemTexts.h"

#include "ui/models/ShownText.h"

namespace lumeo {

QString symbolName(MediaType type) {
    switch (type) {
    case MediaType::photo:
        return QStringLiteral("photo");
    case MediaType::video:
        return QStringLiteral("film");
    case MediaType::rawPhoto:
        return QStringLiteral("camera.fill");
    case MediaType::other:
        break;
    }
    return QStringLiteral("doc");
}

QString tintName(DateConfidence confidence) {
    switch (confidence) {
    case DateConfidence::low:
        return QStringLiteral("orange");
    case DateConfidence::medium:
        return QStringLiteral("blue");
    case DateConfidence::high:
        return QStringLiteral("green");
    case DateConfidence::unknown:
        break;
    }
    return QStringLiteral("grey");
}

QString destinationText(const std::optional<FilePath>& destination) {
    return destination ? shownPath(*destination) : QString(emDash);
}

} // namespace lumeo
