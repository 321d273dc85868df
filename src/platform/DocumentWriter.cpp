#include "platform/DocumentWriter.h"

#include "platform/Uuid.h"

namespace lumeo {
namespace {

FileResult<void> writeWhole(FileSystem& fileSystem, std::string_view document, const FilePath& path) {
    FileResult<std::unique_ptr<WritableFile>> file = fileSystem.createFile(path);
    if (!file) {
        return file.error();
    }
    if (FileResult<void> written = (*file)->write(std::as_bytes(std::span(document))); !written) {
        return written;
    }
    if (FileResult<void> flushed = (*file)->flush(); !flushed) {
        return flushed;
    }
    return (*file)->close();
}

} // namespace

FileResult<void> writeDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path) {
    const FilePath folder = path.parent().empty() ? FilePath(".") : path.parent();
    // A name of its own length: with the document's name in it, it could be too long for the folder.
    const FilePath temporary = folder.appending(".lumeo-" + Uuid::random().text() + ".tmp");
    FileResult<void> done = writeWhole(fileSystem, document, temporary);
    if (done) {
        done = fileSystem.renameReplacing(temporary, path);
    }
    if (!done) {
        const FileResult<void> removed = fileSystem.removeFile(temporary); // the first error tells more
        static_cast<void>(removed);
        return done;
    }
    return fileSystem.flushFolder(folder);
}

} // namespace lumeo
