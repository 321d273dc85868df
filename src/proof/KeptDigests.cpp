#include "proof/KeptDigests.h"

#include "platform/DocumentWriter.h"
#include "platform/LineReader.h"
#include "platform/UserFolders.h"

#include <charconv>
#include <cstdio>
#include <sstream>

namespace lumeo {
namespace {

constexpr std::string_view firstWord = "lumeo-digests-1 ";

/// The name of an archive's file. If two archives share a name, they overwrite each other: each finds another
/// archive's first line in the file and starts a new one.
std::string fileNameFor(const FilePath& root) {
    std::uint64_t hash = 0xCBF29CE484222325U; // FNV-1a: the same on every machine and in every version
    for (const char byte : root.bytes()) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    std::ostringstream name;
    name << std::hex << hash << ".digests";
    return name.str();
}

std::string headOf(const FilePath& root) {
    return std::string(firstWord) + root.fileUrl();
}

std::int64_t ticks(const std::optional<Instant>& instant) {
    return instant ? instant->time_since_epoch().count() : -1;
}

template<class Number>
bool takeNumber(std::string_view& line, Number& number) {
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    const auto length = static_cast<std::size_t>(end - line.data());
    if (error != std::errc() || length >= line.size() || line[length] != ' ') {
        return false;
    }
    line.remove_prefix(length + 1);
    return true;
}

} // namespace

FilePath KeptDigests::userFolder() {
    const FilePath state = userStateFolder();
    return state.empty() ? state : state.appending("lumeo/digests");
}

KeptDigests::KeptDigests(FileSystem& fileSystem, const FilePath& folder, const FilePath& root)
    : fileSystem_(fileSystem),
      file_(folder.empty() ? folder : folder.appending(fileNameFor(root))),
      root_(root) {
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(file_);
    if (!file) {
        return;
    }
    LineReader lines(**file);
    if (lines.next() != headOf(root)) {
        return;
    }
    while (const std::optional<std::string> line = lines.next()) {
        read(*line);
    }
}

/// A row that cannot be read does no harm: its file is read again.
void KeptDigests::read(std::string_view line) {
    constexpr std::size_t digestLength = 64;
    Row row;
    row.digest = line.substr(0, digestLength);
    line.remove_prefix(std::min(line.size(), digestLength + 1));
    if (takeNumber(line, row.size) && takeNumber(line, row.modified) && takeNumber(line, row.changed) &&
        takeNumber(line, row.inode) && takeNumber(line, row.readAt)) {
        if (const std::optional<FilePath> name = FilePath::fromFileUrl(line)) {
            rows_.insert_or_assign(name->bytes().substr(1), std::move(row));
        }
    }
}

KeptDigests::Row KeptDigests::rowOf(const FileStatus& status) {
    Row row;
    row.size = status.size;
    row.modified = ticks(status.modificationDate);
    row.changed = ticks(status.changeDate);
    row.inode = status.identity.inode;
    return row;
}

std::optional<KeptDigests::Digest> KeptDigests::find(std::string_view name, const FileStatus& status) const {
    const auto found = rows_.find(name);
    if (found == rows_.end()) {
        return std::nullopt;
    }
    const Row& kept = found->second;
    const Row now = rowOf(status);
    const bool isSame = kept.size == now.size && kept.modified == now.modified &&
                        kept.changed == now.changed && kept.inode == now.inode && now.modified >= 0;
    return isSame ? std::optional(Digest{kept.digest, Instant(std::chrono::microseconds(kept.readAt))})
                  : std::nullopt;
}

void KeptDigests::keep(std::string_view name, const FileStatus& status, std::string digest, Instant readAt) {
    // If a file changes again within one tick of its disk's clock, the change is not visible.
    constexpr std::chrono::seconds coarsestClock(2);
    if (!status.modificationDate || *status.modificationDate > readAt - coarsestClock) {
        rows_.erase(std::string(name));
        return;
    }
    Row row = rowOf(status);
    row.digest = std::move(digest);
    row.readAt = readAt.time_since_epoch().count();
    rows_.insert_or_assign(std::string(name), std::move(row));
}

FileResult<void> KeptDigests::save(const std::unordered_set<std::string>& names) {
    if (file_.empty()) {
        return {};
    }
    std::erase_if(rows_, [&names](const auto& row) { return !names.contains(row.first); });
    std::string text = headOf(root_) + "\n";
    for (const auto& [name, row] : rows_) {
        text += row.digest + ' ' + std::to_string(row.size) + ' ' + std::to_string(row.modified) + ' ' +
                std::to_string(row.changed) + ' ' + std::to_string(row.inode) + ' ' +
                std::to_string(row.readAt) + ' ' + FilePath("/" + name).fileUrl() + '\n';
    }
    if (const auto created = fileSystem_.createFolders(file_.parent()); !created) {
        return created.error();
    }
    return writeDocument(fileSystem_, text, file_, FileAccess::ownerOnly);
}

} // namespace lumeo
