#include "platform/FileSystem.h"

#include <cerrno>
#include <system_error>

namespace lumeo {
namespace {

std::string_view couldNotBe(FileAction action) {
    switch (action) {
    case FileAction::examine:
        return "could not be examined";
    case FileAction::list:
        return "could not be listed";
    case FileAction::open:
        return "could not be opened";
    case FileAction::lock:
        return "could not be locked";
    case FileAction::create:
        return "could not be created";
    case FileAction::read:
        return "could not be read";
    case FileAction::write:
        return "could not be written";
    case FileAction::flush:
        return "could not be written to the device";
    case FileAction::rename:
        return "could not be renamed";
    case FileAction::remove:
        return "could not be removed";
    case FileAction::createFolder:
        return "could not be created as a folder";
    case FileAction::measure:
        return "could not be measured for free space";
    }
    return "could not be used";
}

} // namespace

std::string FileError::message() const {
    std::string text = "“" + printable(path.lastComponent()) + "” ";
    text += couldNotBe(action);
    text += ": " + std::generic_category().message(errnoValue) + ".";
    return text;
}

bool FileSystem::exists(const FilePath& path) const {
    const FileResult<FileStatus> found = status(path);
    if (found) {
        return true;
    }
    const int reason = found.error().errnoValue;
    // Nothing can exist under a name that is too long for the file system.
    return reason != ENOENT && reason != ENOTDIR && reason != ENAMETOOLONG;
}

FilePath FileSystem::nearestExisting(FilePath path) const {
    while (!exists(path) && path != path.parent()) {
        path = path.parent();
    }
    return path;
}

} // namespace lumeo
