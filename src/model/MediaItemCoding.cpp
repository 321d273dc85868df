#include "model/MediaItemCoding.h"

namespace lumeo {

Json encode(const MediaItem& item) {
    JsonWriter writer;
    writer.set("id", item.id);
    writer.setFileUrl("sourceURL", item.sourceURL);
    writer.set("fileName", item.fileName());
    writer.set("fileExtension", item.fileExtension());
    writer.set("utType", item.utType);
    writer.set("mediaType", item.mediaType);
    writer.set("fileSize", item.fileSize);
    writer.set("filesystemCreationDate", item.filesystemCreationDate);
    writer.set("filesystemModificationDate", item.filesystemModificationDate);
    writer.set("metadataCaptureDate", item.metadataCaptureDate);
    writer.set("metadataCreateDate", item.metadataCreateDate);
    writer.set("videoCreationDate", item.videoCreationDate);
    writer.set("filenameDerivedDate", item.filenameDerivedDate);
    writer.set("resolvedDate", item.resolvedDate);
    writer.set("dateSource", item.dateSource);
    writer.set("dateConfidence", item.dateConfidence);
    writer.set("dateSuspiciousWarning", item.dateSuspiciousWarning);
    writer.set("cameraMake", item.cameraMake);
    writer.set("cameraModel", item.cameraModel);
    writer.set("lensModel", item.lensModel);
    writer.set("pixelWidth", item.pixelWidth);
    writer.set("pixelHeight", item.pixelHeight);
    writer.set("durationSeconds", item.durationSeconds);
    writer.set("hasGPS", item.hasGPS);
    writer.set("gpsLatitude", item.gpsLatitude);
    writer.set("gpsLongitude", item.gpsLongitude);
    writer.set("sha256Hash", item.sha256Hash);
    writer.set("exactDuplicateGroupID", item.exactDuplicateGroupID);
    writer.set("probableDuplicateGroupID", item.probableDuplicateGroupID);
    writer.setFileUrl("plannedDestinationURL", item.plannedDestinationURL);
    writer.set("scanWarnings", item.scanWarnings);
    writer.set("scanErrors", item.scanErrors);
    return std::move(writer).take();
}

Decoded<MediaItem> decodeMediaItem(const Json& json) {
    MediaItem item;
    // These keys are required like any other. But the names are read from the location, because their texts
    // may have lost bytes that are not UTF-8.
    std::string nameAsText;
    JsonReader reader(json);
    reader.require("id", item.id);
    reader.requireFileUrl("sourceURL", item.sourceURL);
    reader.require("fileName", nameAsText);
    reader.require("fileExtension", nameAsText);
    reader.read("utType", item.utType);
    reader.require("mediaType", item.mediaType);
    reader.require("fileSize", item.fileSize);
    reader.read("filesystemCreationDate", item.filesystemCreationDate);
    reader.read("filesystemModificationDate", item.filesystemModificationDate);
    reader.read("metadataCaptureDate", item.metadataCaptureDate);
    reader.read("metadataCreateDate", item.metadataCreateDate);
    reader.read("videoCreationDate", item.videoCreationDate);
    reader.read("filenameDerivedDate", item.filenameDerivedDate);
    reader.read("resolvedDate", item.resolvedDate);
    reader.require("dateSource", item.dateSource);
    reader.require("dateConfidence", item.dateConfidence);
    reader.read("dateSuspiciousWarning", item.dateSuspiciousWarning);
    reader.read("cameraMake", item.cameraMake);
    reader.read("cameraModel", item.cameraModel);
    reader.read("lensModel", item.lensModel);
    reader.read("pixelWidth", item.pixelWidth);
    reader.read("pixelHeight", item.pixelHeight);
    reader.read("durationSeconds", item.durationSeconds);
    reader.require("hasGPS", item.hasGPS);
    reader.read("gpsLatitude", item.gpsLatitude);
    reader.read("gpsLongitude", item.gpsLongitude);
    reader.read("sha256Hash", item.sha256Hash);
    reader.read("exactDuplicateGroupID", item.exactDuplicateGroupID);
    reader.read("probableDuplicateGroupID", item.probableDuplicateGroupID);
    reader.readFileUrl("plannedDestinationURL", item.plannedDestinationURL);
    reader.require("scanWarnings", item.scanWarnings);
    reader.require("scanErrors", item.scanErrors);
    if (reader.error()) {
        return *reader.error();
    }
    return item;
}

} // namespace lumeo
