#include "platform/volumes/SystemFiles.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

namespace lumeo {

std::optional<FilePath> realPath(const FilePath& path) {
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? std::optional(FilePath(std::string(real.get()))) : std::nullopt;
}

std::string contentOfSystemFile(const FilePath& path) {
    std::ifstream file(path.bytes(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> namesInSystemFolder(const FilePath& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder.bytes(), error), end; !error && entry != end;
         entry.increment(error)) {
        names.push_back(entry->path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

} // namespace lumeo
