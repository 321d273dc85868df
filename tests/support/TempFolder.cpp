#include "support/TempFolder.h"

#include "platform/PosixFileSystem.h"
#include "platform/PosixHandle.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace lumeo {

TempFolder::TempFolder() : TempFolder(FilePath(std::filesystem::temp_directory_path())) {}

TempFolder::TempFolder(const FilePath& parent) {
    std::string pattern = parent.appending("lumeo-test-XXXXXX").bytes();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder can be made");
    }
    path_ = FilePath(pattern);
}

TempFolder::~TempFolder() {
    // std::filesystem runs out of descriptors in the deep trees that some tests build.
    std::vector<DirectoryEntry> found;
    if (const auto walk = PosixFileSystem().enumerate(path_, {})) {
        while (std::optional<DirectoryEntry> entry = (*walk)->next()) {
            found.push_back(std::move(*entry));
        }
    }
    for (auto entry = found.rbegin(); entry != found.rend(); ++entry) {
        const bool isFolder = entry->status && entry->status->kind == FileKind::folder;
        callAt(entry->path, [isFolder](int folder, const char* name) {
            return unlinkat(folder, name, isFolder ? AT_REMOVEDIR : 0);
        });
    }
    rmdir(path_.c_str());
}

FilePath TempFolder::write(std::string_view relative, std::string_view content) const {
    FilePath file = path_.appending(relative);
    std::filesystem::create_directories(file.parent().bytes());
    std::ofstream stream(file.bytes(), std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!stream.flush()) {
        throw std::runtime_error("a test file cannot be written");
    }
    return file;
}

std::string contentOf(const FilePath& path) {
    std::ifstream stream(path.bytes(), std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << path.displayText();
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::map<std::string, std::string> filesBelow(const FilePath& folder) {
    std::map<std::string, std::string> files;
    if (std::filesystem::exists(folder.bytes())) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.bytes())) {
            if (entry.is_regular_file()) {
                files.emplace(std::filesystem::relative(entry.path(), folder.bytes()).string(),
                              contentOf(FilePath(entry.path().string())));
            }
        }
    }
    return files;
}

} // namespace lumeo
