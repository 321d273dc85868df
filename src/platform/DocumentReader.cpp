#include "platform/DocumentReader.h"

#include <cerrno>

namespace lumeo {

FileResult<std::string> readDocument(const FileSystem& fileSystem, const FilePath& path) {
    constexpr std::size_t piece = 1024 * 1024;
    constexpr std::size_t limit = 4096 * piece;
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file) {
        return file.error();
    }
    std::string document;
    while (document.size() < limit) {
        const std::size_t start = document.size();
        document.resize(start + piece);
        const FileResult<std::size_t> count =
            (*file)->read(std::as_writable_bytes(std::span(document).subspan(start)));
        if (!count) {
            return count.error();
        }
        document.resize(start + *count);
        if (*count == 0) {
            return document;
        }
    }
    return FileError{FileAction::read, path, EFBIG};
}

} // namespace lumeo
