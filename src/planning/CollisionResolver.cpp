#include "planning/CollisionResolver.h"

#include "hashing/StreamingHashService.h"
#include "platform/TextHash.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lumeo {
namespace {

/// The position of a name in the sequence desired (1), name_2, name_3, …
using Counter = std::uint64_t;

struct NumberedNames;

/// One name in one folder that was looked up or given out. A catalogue of a million items makes a million of
/// these, so rarely used parts are stored separately.
struct Place {
    static constexpr std::int64_t noFile = -1;

    bool isPlanned = false;
    bool isOnDisk = false;
    bool isHashed = false;                        ///< whether reading it was tried
    std::int64_t fileSize = noFile;               ///< of the existing regular file
    std::unique_ptr<const std::string> digest;    ///< of the existing file; null when it could not be read
    std::unique_ptr<NumberedNames> numberedNames; ///< created when this name was wanted but taken

    [[nodiscard]] bool isTaken() const { return isPlanned || isOnDisk; }
};

/// The existing files of one size in a sequence of names.
struct SameSizedFiles {
    std::vector<std::pair<Place*, Counter>> files;
    std::size_t hashedCount = 0; ///< of `files`, from the front
    std::unordered_map<std::string_view, Counter> firstWithDigest;
};

/// What is known about the sequence of names that a wanted name leads to. Names are given out but never given
/// back, so both counters only grow.
struct NumberedNames {
    Counter firstFree = 2; ///< every name before this one is taken
    Counter indexed = 1;   ///< names before this one are in `filesBySize` if a file has them
    std::unordered_map<std::int64_t, SameSizedFiles> filesBySize;
};

struct Folder {
    bool exists = false;
    std::unordered_map<std::string, Place, TextHash, std::equal_to<>> places; ///< by comparable name
};

/// A wanted path in two parts: everything up to and including the last slash, and the file's name.
struct WantedPath {
    WantedPath(const std::string& bytes, const DiskTraits& traits)
        : disk(traits),
          folder(std::string_view(bytes).substr(0, bytes.rfind('/') + 1)),
          name(std::string_view(bytes).substr(folder.size())),
          extension(pathExtension(name)),
          base(deletingPathExtension(name)) {}

    [[nodiscard]] std::string numberedName(Counter counter) const {
        if (counter == 1) {
            return std::string(name);
        }
        std::string ending = '_' + std::to_string(counter);
        if (!extension.empty()) {
            ending += '.';
            ending += extension;
        }
        // A name of the maximum length is shortened to make space for the number.
        return joinedName(base, ending, disk);
    }
    [[nodiscard]] FilePath path(Counter counter) const {
        return FilePath(std::string(folder) + numberedName(counter));
    }

    const DiskTraits& disk;
    std::string_view folder;
    std::string_view name;
    std::string_view extension;
    std::string_view base;
};

} // namespace

struct CollisionResolver::Memory {
    const FileSystem& fileSystem;
    DiskTraits disk;
    std::unordered_map<std::string, Folder, TextHash, std::equal_to<>> folders{}; ///< by comparable path

    Folder& folderOf(const FilePath& desired, std::string_view text);
    Place& placeOf(Folder& folder, const WantedPath& wanted, Counter counter);
    const std::string* digestOf(Place& place, const FilePath& path, const std::stop_token& stop) const;
    /// The sequence of names after `first`, which is taken. It is known up to its first free name.
    NumberedNames& rowOf(Folder& folder, const WantedPath& wanted, Place& first);
    bool hasRow(Folder& folder, const WantedPath& wanted, const Place& first);
    void indexFiles(Folder& folder, const WantedPath& wanted, NumberedNames& names);
    std::optional<Counter> findIdentical(Folder& folder, const WantedPath& wanted, NumberedNames& names,
                                         std::int64_t size, const std::string& hash,
                                         const std::stop_token& stop);
};

Folder& CollisionResolver::Memory::folderOf(const FilePath& desired, std::string_view text) {
    const auto [entry, isNew] = folders.try_emplace(comparableName(text, disk));
    Folder& folder = entry->second;
    if (!isNew) {
        return folder;
    }
    // Most folders of a new archive do not exist yet, so nothing in them needs to be looked up.
    const FileResult<FileStatus> status = fileSystem.targetStatus(desired.parent());
    folder.exists = status || (status.error().errnoValue != ENOENT && status.error().errnoValue != ENOTDIR);
    return folder;
}

Place& CollisionResolver::Memory::placeOf(Folder& folder, const WantedPath& wanted, Counter counter) {
    const auto [entry, isNew] = folder.places.try_emplace(comparableName(wanted.numberedName(counter), disk));
    Place& place = entry->second;
    if (!isNew || !folder.exists) {
        return place;
    }
    const FilePath path = wanted.path(counter);
    const FileResult<FileStatus> status = fileSystem.status(path);
    // A name that cannot be examined is not skipped. If the reason is a missing permission or a path that is
    // too long, the next name would fail in the same way. The transfer will report the reason.
    place.isOnDisk = status.hasValue();
    if (status && status->kind == FileKind::regular) { // a link may lead out of the archive
        place.fileSize = status->size;
    }
    return place;
}

const std::string* CollisionResolver::Memory::digestOf(Place& place, const FilePath& path,
                                                       const std::stop_token& stop) const {
    if (!place.isHashed && !stop.stop_requested()) {
        place.isHashed = true;
        Result<std::string, HashError> digest = StreamingHashService::computeSHA256(
            fileSystem, path, StreamingHashService::chunkSize, [&] { return stop.stop_requested(); });
        if (digest) {
            place.digest = std::make_unique<const std::string>(std::move(*digest));
        }
    }
    return place.digest.get();
}

NumberedNames& CollisionResolver::Memory::rowOf(Folder& folder, const WantedPath& wanted, Place& first) {
    if (!first.numberedNames) {
        first.numberedNames = std::make_unique<NumberedNames>();
    }
    NumberedNames& names = *first.numberedNames;
    while (placeOf(folder, wanted, names.firstFree).isTaken()) {
        ++names.firstFree;
    }
    return names;
}

void CollisionResolver::Memory::indexFiles(Folder& folder, const WantedPath& wanted, NumberedNames& names) {
    for (; names.indexed < names.firstFree; ++names.indexed) {
        Place& place = placeOf(folder, wanted, names.indexed);
        if (place.fileSize != Place::noFile) {
            names.filesBySize[place.fileSize].files.emplace_back(&place, names.indexed);
        }
    }
}

/// Whether the names after the first one must be checked. Even if the first name is free, the others may be
/// taken, because the first file may have been removed.
bool CollisionResolver::Memory::hasRow(Folder& folder, const WantedPath& wanted, const Place& first) {
    return first.isOnDisk || (folder.exists && placeOf(folder, wanted, 2).isTaken());
}

/// The first name in the sequence, before the first free one, whose file has this content.
std::optional<Counter> CollisionResolver::Memory::findIdentical(Folder& folder, const WantedPath& wanted,
                                                                NumberedNames& names, std::int64_t size,
                                                                const std::string& hash,
                                                                const std::stop_token& stop) {
    indexFiles(folder, wanted, names);
    const auto found = names.filesBySize.find(size);
    if (found == names.filesBySize.end()) {
        return std::nullopt;
    }
    SameSizedFiles& sameSized = found->second;
    if (const auto known = sameSized.firstWithDigest.find(hash); known != sameSized.firstWithDigest.end()) {
        return known->second;
    }
    while (sameSized.hashedCount < sameSized.files.size()) {
        const auto [place, counter] = sameSized.files[sameSized.hashedCount++];
        const std::string* digest = digestOf(*place, wanted.path(counter), stop);
        if (digest != nullptr) {
            sameSized.firstWithDigest.emplace(*digest, counter);
            if (*digest == hash) {
                return counter;
            }
        }
    }
    return std::nullopt;
}

CollisionResolver::CollisionResolver(const FileSystem& fileSystem, const DiskTraits& disk)
    : memory_(new Memory{fileSystem, disk}) {}

CollisionResolver::~CollisionResolver() = default;

FilePath CollisionResolver::resolveUniqueDestination(const FilePath& desired, std::int64_t size,
                                                     const std::optional<std::string>& sourceHash,
                                                     const std::stop_token& stop) {
    const WantedPath wanted(desired.bytes(), memory_->disk);
    Folder& folder = memory_->folderOf(desired, wanted.folder);
    Place& first = memory_->placeOf(folder, wanted, 1);
    if (sourceHash && first.fileSize == size) {
        const std::string* digest = memory_->digestOf(first, desired, stop);
        if (digest != nullptr && *digest == *sourceHash) {
            return desired;
        }
    }
    if (sourceHash && (first.isPlanned || memory_->hasRow(folder, wanted, first))) {
        NumberedNames& names = memory_->rowOf(folder, wanted, first);
        const std::optional<Counter> identical =
            memory_->findIdentical(folder, wanted, names, size, *sourceHash, stop);
        if (identical) {
            return wanted.path(*identical);
        }
    }
    if (!first.isTaken()) {
        first.isPlanned = true;
        return desired;
    }
    const NumberedNames& names = memory_->rowOf(folder, wanted, first);
    memory_->placeOf(folder, wanted, names.firstFree).isPlanned = true;
    return wanted.path(names.firstFree);
}

bool CollisionResolver::meetsFileOfSize(const FilePath& desired, std::int64_t size) {
    const WantedPath wanted(desired.bytes(), memory_->disk);
    Folder& folder = memory_->folderOf(desired, wanted.folder);
    Place& first = memory_->placeOf(folder, wanted, 1);
    if (!memory_->hasRow(folder, wanted, first)) {
        return false;
    }
    NumberedNames& names = memory_->rowOf(folder, wanted, first);
    memory_->indexFiles(folder, wanted, names);
    return names.filesBySize.contains(size);
}

} // namespace lumeo
