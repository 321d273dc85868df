#pragma once

#include "model/EnumText.h"
#include "model/Json.h"
#include "model/MediaItem.h"
#include "platform/FilePath.h"
#include "platform/Instant.h"
#include "platform/Uuid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lumeo {

/// What happened to one file. A run uses only `verified`, `skipped` and `failed`.
enum class TransactionStatus : std::uint8_t { pending, inProgress, verified, skipped, failed, rolledBack };

/// The journal record of one file.
struct FileTransactionItem {
    Uuid id;
    FilePath originalPath;
    FilePath destinationPath;              ///< empty when none was planned
    std::int64_t size = 0;                 ///< bytes, as scanned
    std::optional<std::string> sourceHash; ///< SHA-256, 64 lower-case hex digits
    std::optional<std::string> destinationHash;
    TransactionStatus status = TransactionStatus::pending;
    std::optional<Instant> dateResolved;
    std::optional<std::string> dateSource;         ///< describes the source of the date, in English
    std::optional<std::string> verificationResult; ///< for verified and skipped records
    std::optional<std::string> errorMessage;       ///< for failed records
    friend bool operator==(const FileTransactionItem&, const FileTransactionItem&) = default;
};

/// The start of the record of `item`: what is known before anything happens to it.
FileTransactionItem newRecord(const MediaItem& item, const FilePath& destination);

/// Turns `record` into the record of a failure, whatever it was before.
void fail(FileTransactionItem& record, std::string reason);

/// The journal of one run: the original and new places of the files, their digests and outcomes.
struct OperationManifest {
    Uuid id;
    Instant timestamp{};       ///< when the run started
    std::string operationType; ///< "copy" or "move"
    std::vector<FilePath> sourceRoots;
    FilePath destinationRoot;               ///< empty when the plan had none
    std::vector<FileTransactionItem> items; ///< in the order of processing
    std::int64_t totalTransferredBytes = 0; ///< sizes of the verified records
    double durationSeconds = 0;
    std::optional<bool> isCancelled; ///< absent until the run has ended
    /// The source and archive roots that were on another device than "/" when the run started. Only the
    /// journal that a run keeps itself has them; the coded form below does not.
    std::vector<FilePath> foreignRoots{};
    /// What a person should know about the run as a whole: sentences, in English. Only the coded form below
    /// has them.
    std::vector<std::string> notices{};
    friend bool operator==(const OperationManifest&, const OperationManifest&) = default;
};

/// The journal as a keyed object. Paths are written as text. A path that is not UTF-8 is written with
/// replacement characters and once more, exactly, as a file URL under a separate key ("originalURL",
/// "destinationURL", "sourceRootURLs", "destinationRootURL"). The URL wins on reading.
Json encode(const OperationManifest& manifest);
Json encode(const FileTransactionItem& item);
Decoded<FileTransactionItem> decodeFileTransactionItem(const Json& json);

/// The part of the journal that is known when the run starts: everything except `items`, the totals and
/// `isCancelled`.
void encodeHead(JsonWriter& writer, const OperationManifest& manifest);
void decodeHead(JsonReader& reader, OperationManifest& manifest);
Decoded<OperationManifest> decodeOperationManifest(const Json& json);

template<>
struct EnumTexts<TransactionStatus> {
    static constexpr std::array texts{
        std::pair{TransactionStatus::pending, std::string_view("pending")},
        std::pair{TransactionStatus::inProgress, std::string_view("inProgress")},
        std::pair{TransactionStatus::verified, std::string_view("verified")},
        std::pair{TransactionStatus::skipped, std::string_view("skipped")},
        std::pair{TransactionStatus::failed, std::string_view("failed")},
        std::pair{TransactionStatus::rolledBack, std::string_view("rolledBack")},
    };
};

} // namespace lumeo
