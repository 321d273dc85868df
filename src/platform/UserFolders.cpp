#include "platform/UserFolders.h"

#include <array>
#include <cstdlib>
#include <string_view>

#include <pwd.h>
#include <unistd.h>

namespace lumeo {
namespace {

/// The value of a variable if it is an absolute path. Empty otherwise, as the XDG convention demands.
FilePath folderFrom(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? FilePath::standardized(value) : FilePath();
}

FilePath homeFolder() {
    if (FilePath home = folderFrom("HOME"); !home.empty()) {
        return home;
    }
    std::array<char, 16384> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr) {
        return {};
    }
    return FilePath(entry.pw_dir);
}

/// The folder that the variable names, else a folder in the user's home.
FilePath folderOf(const char* variable, std::string_view inHome) {
    if (FilePath folder = folderFrom(variable); !folder.empty()) {
        return folder;
    }
    const FilePath home = homeFolder();
    return home.empty() ? FilePath() : home.appending(inHome);
}

} // namespace

FilePath userStateFolder() {
    return folderOf("XDG_STATE_HOME", ".local/state");
}

FilePath userConfigFolder() {
    return folderOf("XDG_CONFIG_HOME", ".config");
}

} // namespace lumeo
