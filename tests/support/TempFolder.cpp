#include "support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <gtest/gtest.h>

namespace lumeo {

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "lumeo-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder can be made");
    }
    path_ = FilePath(pattern);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_.bytes(), ignored);
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

} // namespace lumeo
