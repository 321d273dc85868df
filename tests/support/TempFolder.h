#pragma once

#include "platform/FilePath.h"

#include <map>
#include <string>
#include <string_view>

namespace lumeo {

/// A new folder of the real file system. It is removed with its content when it goes out of scope.
class TempFolder {
public:
    TempFolder();
    explicit TempFolder(const FilePath& parent);
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const FilePath& path() const noexcept { return path_; }
    [[nodiscard]] FilePath operator/(std::string_view relative) const { return path_.appending(relative); }

    /// Writes a file below the folder, creates the folders above it, and returns its path.
    FilePath write(std::string_view relative, std::string_view content) const;

private:
    FilePath path_;
};

/// The whole content of a file. Fails the running test when it cannot be read.
std::string contentOf(const FilePath& path);

/// The files below a folder with their contents, by relative path. Empty when the folder does not exist.
std::map<std::string, std::string> filesBelow(const FilePath& folder);

} // namespace lumeo
