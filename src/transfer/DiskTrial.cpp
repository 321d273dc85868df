#include "transfer/DiskTrial.h"

#include "platform/Uuid.h"

#include <array>
#include <cerrno>

namespace lumeo {
namespace {

/// Nobody else has such a name, in whatever letters.
std::string trialName(std::string_view letter, std::string_view end) {
    return ".lumeo-trial-" + std::string(letter) + "-" + Uuid::random().text() + std::string(end);
}

/// Drivers have no one word for a name that they refuse; what has another meaning is left out.
bool mayRefuseTheName(const FileError& error) {
    return error.errnoValue == EINVAL || error.errnoValue == ENOENT || error.errnoValue == EILSEQ ||
           error.errnoValue == EIO || error.errnoValue == EPROTO || error.errnoValue == EACCES;
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    return text.replace(text.find(from), from.size(), to);
}

constexpr std::string_view composed = "\u00E9";
constexpr std::string_view decomposed = "e\u0301";

/// What a name may end in, from what only the disks of this system take to what all do.
struct Ending {
    std::string_view text;
    bool restrictsNames = false;
    bool refusesIllFormedText = false;
};
constexpr std::array endings{Ending{"\"*:<>?\\|\xFF", false, false}, Ending{"\"*:<>?\\|", false, true},
                             Ending{"", true, true}};

} // namespace

DiskTraits triedTraits(FileSystem& fileSystem, const FilePath& folder, DiskTraits told) {
    if (told.isCertain) {
        return told;
    }
    for (const Ending& ending : endings) {
        if ((told.restrictsNames && !ending.restrictsNames) ||
            (told.refusesIllFormedText && !ending.refusesIllFormedText)) {
            continue; // is known already
        }
        const std::string name = trialName(composed, ending.text);
        const auto file = fileSystem.createFile(folder.appending(name), FileAccess::ownerOnly);
        if (file) {
            const auto isFoundAs = [&](std::string_view from, std::string_view to) {
                return fileSystem.status(folder.appending(replaced(name, from, to))).hasValue();
            };
            told.restrictsNames = ending.restrictsNames;
            told.refusesIllFormedText = ending.refusesIllFormedText;
            told.ignoresCase = told.ignoresCase || isFoundAs("trial", "TRIAL");
            told.ignoresComposition = told.ignoresComposition || isFoundAs(composed, decomposed);
            static_cast<void>(fileSystem.removeFile(folder.appending(name)));
            return told;
        }
        if (!mayRefuseTheName(file.error())) {
            break;
        }
    }
    return told; // the run itself will tell why nothing can be made there
}

FileResult<void> tryWriting(FileSystem& fileSystem, const FilePath& folder) {
    const FilePath path = folder.appending(trialName("e", ""));
    FileResult<std::unique_ptr<WritableFile>> file = fileSystem.createFile(path, FileAccess::ownerOnly);
    if (!file) {
        return file.error();
    }
    constexpr std::array content{std::byte{1}};
    FileResult<void> tried = (*file)->write(content);
    if (tried) {
        tried = (*file)->flush();
    }
    const FileResult<void> removed = fileSystem.removeFile(path);
    return tried ? removed : tried;
}

} // namespace lumeo
