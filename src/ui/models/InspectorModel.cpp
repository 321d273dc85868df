#include "ui/models/InspectorModel.h"

#include "dates/LUMEODateFormatters.h"
#include "platform/TextFormat.h"
#include "ui/models/MediaItemTexts.h"
#include "ui/models/ShownText.h"
#include "ui/thumbnails/ThumbnailService.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QVariantMap>

namespace lumeo {
namespace {

/// In points, as large as the panel shows it. Sharp on screens with two pixels for each point.
constexpr QSize pictureSize(160, 128);

QVariantMap row(const char* label, const QString& value, bool isPath = false) {
    return {{QStringLiteral("label"), QLatin1String(label)},
            {QStringLiteral("value"), value.isEmpty() ? QString(emDash) : value},
            {QStringLiteral("isPath"), isPath}};
}

QVariantMap row(const char* label, std::string_view value) {
    return row(label, shownText(value));
}

QVariantMap row(const char* label, const CompactOptional<Instant>& candidate) {
    return row(label, LUMEODateFormatters::formattedShort(candidate));
}

QVariantMap row(const char* label, const CompactOptional<SharedText>& value) {
    return row(label, value ? std::string_view(value->str()) : std::string_view());
}

QVariantMap section(const char* heading, const QVariantList& rows) {
    return {{QStringLiteral("heading"), QLatin1String(heading)}, {QStringLiteral("rows"), rows}};
}

QVariantMap fileInformation(const MediaItem& item) {
    return section("FILE INFORMATION",
                   {row("Filename", item.fileName()), row("Size", TextFormat::byteCount(item.fileSize)),
                    row("Type", userFriendlyLabel(item.mediaType)),
                    row("Source", shownPath(item.sourceURL), true),
                    row("Planned Destination", destinationText(item.plannedDestinationURL), true)});
}

QVariantMap resolvedDate(const MediaItem& item) {
    return section(
        "RESOLVED DATE",
        {row("Chosen Date", item.resolvedDate ? LUMEODateFormatters::formattedFully(item.resolvedDate)
                                              : std::string("Unknown (Will route to _Unknown Date/)")),
         row("Reason / Source", shownEnglish(userFriendlyLabel(item.dateSource))),
         row("Confidence", userFriendlyLabel(item.dateConfidence))});
}

QVariantMap candidateDates(const MediaItem& item) {
    return section("CANDIDATE DATES", {row("EXIF Original", item.metadataCaptureDate),
                                       row("Metadata Digitized", item.metadataCreateDate),
                                       row("QuickTime Creation", item.videoCreationDate),
                                       row("Filename Date", item.filenameDerivedDate),
                                       row("Filesystem Created", item.filesystemCreationDate),
                                       row("Filesystem Modified", item.filesystemModificationDate)});
}

QVariantMap cameraAndSpecs(const MediaItem& item) {
    const QString dimensions = item.pixelWidth && item.pixelHeight
                                   ? QStringLiteral("%1 × %2").arg(*item.pixelWidth).arg(*item.pixelHeight)
                                   : QString();
    const QString duration = item.durationSeconds
                                 ? QString::number(*item.durationSeconds, 'f', 1) + QStringLiteral(" sec")
                                 : QString();
    return section("CAMERA & SPECS",
                   {row("Make", item.cameraMake), row("Model", item.cameraModel), row("Lens", item.lensModel),
                    row("Dimensions", dimensions), row("Duration", duration),
                    row("GPS Location", std::string_view(item.hasGPS ? "Available" : "None"))});
}

QStringList lines(const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& text : texts) {
        list.append(shownText(text));
    }
    return list;
}

} // namespace

InspectorModel::InspectorModel(ThumbnailService& thumbnails, FileBrowser& fileBrowser, QObject* parent)
    : QObject(parent), thumbnails_(thumbnails), fileBrowser_(fileBrowser) {}

InspectorModel::~InspectorModel() {
    cancelPicture();
    dropLargePicture();
}

void InspectorModel::openFile() const {
    fileBrowser_.open(item_->sourceURL);
}

void InspectorModel::showFile() const {
    fileBrowser_.show(item_->sourceURL);
}

void InspectorModel::copyPath() const {
    QGuiApplication::clipboard()->setText(shownPath(item_->sourceURL));
}

void InspectorModel::open(const MediaItem& item, const QVariantList& twins) {
    twins_ = twins;
    const bool isShown = isOpen_ && item_->sourceURL == item.sourceURL;
    item_ = item;
    isOpen_ = true;
    emit itemChanged();
    if (!isShown) {
        loadPicture();
    }
}

void InspectorModel::close() {
    if (isOpen_) {
        isOpen_ = false;
        cancelPicture();
        emit itemChanged();
    }
}

void InspectorModel::loadPicture() {
    cancelPicture();
    picture_ = {};
    request_ = thumbnails_.load(item_->sourceURL, pictureSize, [this](const QImage& picture) {
        request_.reset();
        picture_ = picture;
        emit pictureChanged();
    });
    emit pictureChanged();
}

void InspectorModel::loadLargePicture(QSizeF points, double pixelsPerPoint) {
    dropLargePicture();
    // The service makes pictures with two pixels for each point.
    const QSize wanted = (points * pixelsPerPoint / 2).toSize().boundedTo(QSize(1280, 1280));
    largeRequest_ = thumbnails_.load(item_->sourceURL, wanted, [this](const QImage& picture) {
        largeRequest_.reset();
        largePicture_ = picture;
        emit largePictureChanged();
    });
    emit largePictureChanged();
}

void InspectorModel::dropLargePicture() {
    if (largeRequest_) {
        thumbnails_.drop(*largeRequest_);
        largeRequest_.reset();
    }
    largePicture_ = {};
}

QString InspectorModel::name() const {
    return item_ ? shownText(item_->fileName()) : QString();
}

void InspectorModel::cancelPicture() {
    if (request_) {
        thumbnails_.drop(*request_);
        request_.reset();
    }
}

QString InspectorModel::symbol() const {
    return item_ ? symbolName(item_->mediaType) : QString();
}

QVariantList InspectorModel::sections() const {
    if (!item_) {
        return {};
    }
    QVariantList all{fileInformation(*item_)};
    if (!twins_.isEmpty()) {
        all.append(section("IDENTICAL FILES", twins_));
    }
    all.append({resolvedDate(*item_), candidateDates(*item_), cameraAndSpecs(*item_)});
    return all;
}

QStringList InspectorModel::warnings() const {
    return item_ ? lines(item_->scanWarnings) : QStringList();
}

QStringList InspectorModel::errors() const {
    return item_ ? lines(item_->scanErrors) : QStringList();
}

} // namespace lumeo
