#include "transfer/DiskTrial.h"

#include "platform/Uuid.h"

#include <array>
#include <cerrno>

namespace lumeo {
namespace {

/// A unique name that no other file has, in any case.
std::string trialName(std::string_view letter, std::string_view end) {
    return ".lumeo-trial-" + std::string(letter) + "-" + Uuid::random().text() + std::string(end);
}

/// Drivers refuse a name with different errors. Errors with another clear meaning are left out.
bool mayRefuseTheName(const FileError& error) {
    return error.errnoValue == EINVAL || error.errnoValue == ENOENT || error.errnoValue == EILSEQ ||
           error.errnoValue == EIO || error.errnoValue == EPROTO || error.errnoValue == EACCES;
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    return text.replace(text.find(from), from.size(), to);
}

constexpr std::string_view composed = "\u00E9";
constexpr std::string_view decomposed = "e\u0301";

/// An ending for a name. The list goes from endings that only this system's disks accept to those that all
/// disks accept.
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
            continue; // this is already known
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
    return told; // the run itself will report why nothing can be created there
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
