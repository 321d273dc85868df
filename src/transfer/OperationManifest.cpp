#include "transfer/OperationManifest.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace lumeo {
namespace {

void setPath(JsonWriter& writer, std::string_view textKey, std::string_view urlKey, const FilePath& path) {
    writer.set(textKey, std::string_view(path.bytes()));
    if (!isValidUtf8(path.bytes())) {
        writer.setFileUrl(urlKey, path);
    }
}

void setPaths(JsonWriter& writer, std::string_view textKey, std::string_view urlKey,
              const std::vector<FilePath>& paths) {
    std::vector<std::string> texts;
    std::vector<std::string> urls;
    for (const FilePath& path : paths) {
        texts.push_back(path.bytes());
        urls.push_back(path.fileUrl());
    }
    writer.set(textKey, texts);
    if (!std::all_of(texts.begin(), texts.end(), isValidUtf8)) {
        writer.set(urlKey, urls);
    }
}

/// A NUL would end the path early for the system, and it would then name another file.
FilePath pathFromText(JsonReader& reader, std::string_view key, std::string text) {
    if (text.find('\0') != std::string::npos) {
        reader.fail(key, "holds a character that no path can hold");
        return {};
    }
    return FilePath(std::move(text));
}

void requirePath(JsonReader& reader, std::string_view textKey, std::string_view urlKey, FilePath& path) {
    std::string text;
    reader.require(textKey, text);
    path = pathFromText(reader, textKey, std::move(text));
    std::optional<FilePath> exact;
    reader.readFileUrl(urlKey, exact);
    if (exact) {
        path = std::move(*exact);
    }
}

void requirePaths(JsonReader& reader, std::string_view textKey, std::string_view urlKey,
                  std::vector<FilePath>& paths) {
    std::vector<std::string> texts;
    reader.require(textKey, texts);
    for (std::string& text : texts) {
        paths.push_back(pathFromText(reader, textKey, std::move(text)));
    }
    if (!reader.has(urlKey)) {
        return;
    }
    std::vector<std::string> urls;
    reader.require(urlKey, urls);
    paths.clear();
    for (const std::string& url : urls) {
        const std::optional<FilePath> path = FilePath::fromFileUrl(url);
        if (!path) {
            reader.fail(urlKey, "holds a text that is no file URL");
            return;
        }
        paths.push_back(*path);
    }
}

void requireItems(JsonReader& reader, std::vector<FileTransactionItem>& items) {
    constexpr std::string_view key = "items";
    const Json* list = reader.require(key);
    if (list == nullptr) {
        return;
    }
    if (!list->is_array()) {
        reader.fail(key, "is not a list");
        return;
    }
    items.reserve(list->size());
    for (const Json& coded : *list) {
        Decoded<FileTransactionItem> item = decodeFileTransactionItem(coded);
        if (!item) {
            reader.fail(key, "has a wrong record number " + std::to_string(items.size() + 1) + ": " +
                                 item.error().message());
            return;
        }
        items.push_back(*std::move(item));
    }
}

} // namespace

Json encode(const FileTransactionItem& item) {
    JsonWriter writer;
    writer.set("id", item.id);
    setPath(writer, "originalPath", "originalURL", item.originalPath);
    setPath(writer, "destinationPath", "destinationURL", item.destinationPath);
    writer.set("size", item.size);
    writer.set("sourceHash", item.sourceHash);
    writer.set("destinationHash", item.destinationHash);
    writer.set("status", item.status);
    writer.set("dateResolved", item.dateResolved);
    writer.set("dateSource", item.dateSource);
    writer.set("verificationResult", item.verificationResult);
    writer.set("errorMessage", item.errorMessage);
    return std::move(writer).take();
}

Decoded<FileTransactionItem> decodeFileTransactionItem(const Json& json) {
    JsonReader reader(json);
    FileTransactionItem item;
    reader.require("id", item.id);
    requirePath(reader, "originalPath", "originalURL", item.originalPath);
    requirePath(reader, "destinationPath", "destinationURL", item.destinationPath);
    reader.require("size", item.size);
    reader.read("sourceHash", item.sourceHash);
    reader.read("destinationHash", item.destinationHash);
    reader.require("status", item.status);
    reader.read("dateResolved", item.dateResolved);
    reader.read("dateSource", item.dateSource);
    reader.read("verificationResult", item.verificationResult);
    reader.read("errorMessage", item.errorMessage);
    if (reader.error()) {
        return *reader.error();
    }
    return item;
}

FileTransactionItem newRecord(const MediaItem& item, const FilePath& destination) {
    FileTransactionItem record;
    record.id = Uuid::random();
    record.originalPath = item.sourceURL;
    record.destinationPath = destination;
    record.size = item.fileSize;
    record.dateResolved = item.resolvedDate;
    record.dateSource = userFriendlyLabel(item.dateSource);
    return record;
}

void fail(FileTransactionItem& record, std::string reason) {
    record.status = TransactionStatus::failed;
    record.verificationResult.reset();
    record.errorMessage = std::move(reason);
}

void encodeHead(JsonWriter& writer, const OperationManifest& manifest) {
    writer.set("id", manifest.id);
    writer.set("timestamp", manifest.timestamp);
    writer.set("operationType", manifest.operationType);
    setPaths(writer, "sourceRoots", "sourceRootURLs", manifest.sourceRoots);
    setPath(writer, "destinationRoot", "destinationRootURL", manifest.destinationRoot);
}

void decodeHead(JsonReader& reader, OperationManifest& manifest) {
    reader.require("id", manifest.id);
    reader.require("timestamp", manifest.timestamp);
    reader.require("operationType", manifest.operationType);
    requirePaths(reader, "sourceRoots", "sourceRootURLs", manifest.sourceRoots);
    requirePath(reader, "destinationRoot", "destinationRootURL", manifest.destinationRoot);
}

Json encode(const OperationManifest& manifest) {
    JsonWriter writer;
    encodeHead(writer, manifest);
    Json items = Json::array();
    for (const FileTransactionItem& item : manifest.items) {
        items.push_back(encode(item));
    }
    writer.set("items", std::move(items));
    writer.set("totalTransferredBytes", manifest.totalTransferredBytes);
    writer.set("durationSeconds", manifest.durationSeconds);
    writer.set("isCancelled", manifest.isCancelled);
    if (!manifest.notices.empty()) {
        writer.set("notices", manifest.notices);
    }
    return std::move(writer).take();
}

Decoded<OperationManifest> decodeOperationManifest(const Json& json) {
    JsonReader reader(json);
    OperationManifest manifest;
    decodeHead(reader, manifest);
    requireItems(reader, manifest.items);
    reader.require("totalTransferredBytes", manifest.totalTransferredBytes);
    reader.require("durationSeconds", manifest.durationSeconds);
    reader.read("isCancelled", manifest.isCancelled);
    if (reader.has("notices")) {
        reader.require("notices", manifest.notices);
    }
    if (reader.error()) {
        return *reader.error();
    }
    return manifest;
}

} // namespace lumeo
