#include "app/SettingsFile.h"

#include "platform/UserFolders.h"

#include <QString>

#include <chrono>
#include <thread>

namespace lumeo {
namespace {

/// True when the file is an empty lock that nobody holds.
bool isLeftOver(FileSystem& fileSystem, const FilePath& lock) {
    const FileResult<FileStatus> found = fileSystem.status(lock);
    return found && found->kind == FileKind::regular && found->size == 0 && fileSystem.lock(lock);
}

/// Qt waits half a minute for an empty lock, and without end when the lock's date is in the future.
void removeLeftOverLock(FileSystem& fileSystem, const FilePath& lock) {
    using namespace std::chrono_literals;
    if (!isLeftOver(fileSystem, lock)) {
        return;
    }
    std::this_thread::sleep_for(50ms); // a process that creates a lock fills it at once
    if (isLeftOver(fileSystem, lock)) {
        static_cast<void>(fileSystem.removeFile(lock)); // if this fails, Qt waits
    }
}

} // namespace

FilePath settingsFile() {
    return userConfigFolder().appending("LUMEO/LUMEO.conf");
}

std::unique_ptr<QSettings> openSettings(FileSystem& fileSystem, const FilePath& file) {
    const FileResult<FileStatus> found = fileSystem.targetStatus(file);
    const bool isUsable = !found || found->kind == FileKind::regular;
    // Nothing can be read or written below a file.
    const FilePath place = isUsable ? file : FilePath("/dev/null/LUMEO.conf");
    removeLeftOverLock(fileSystem, FilePath(file.bytes() + ".lock"));
    return std::make_unique<QSettings>(QString::fromStdString(place.bytes()), QSettings::NativeFormat);
}

} // namespace lumeo
