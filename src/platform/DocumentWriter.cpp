#include "platform/DocumentWriter.h"

#include "platform/Uuid.h"

#include <cerrno>
#include <utility>

namespace lumeo {
namespace {

FileResult<void> writeWhole(FileSystem& fileSystem, std::string_view document, const FilePath& path,
                            FileAccess access) {
    FileResult<std::unique_ptr<WritableFile>> file = fileSystem.createFile(path, access);
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

/// The final name of the document. If the path is a link, this is the name that the link leads to, which may
/// not exist yet. Refuses anything but a regular file, because a device or a pipe would be replaced by a
/// file.
FileResult<FilePath> behindLinks(const FileSystem& fileSystem, FilePath path) {
    constexpr int mostLinks = 40; // the system follows the same number
    for (int links = 0; links <= mostLinks; ++links) {
        const FileResult<FileStatus> found = fileSystem.status(path);
        if (!found) {
            return found.error().errnoValue == ENOENT ? FileResult<FilePath>(std::move(path)) : found.error();
        }
        if (found->kind == FileKind::regular) {
            return path;
        }
        if (found->kind != FileKind::symbolicLink) {
            return FileError{FileAction::create, path, found->kind == FileKind::folder ? EISDIR : ENOTSUP};
        }
        FileResult<FilePath> target = fileSystem.linkTarget(path);
        if (!target) {
            return target;
        }
        path = *std::move(target);
    }
    return FileError{FileAction::create, path, ELOOP};
}

/// The temporary name does not contain the document's name, because it could then be too long for the folder.
FilePath temporaryBeside(const FilePath& path) {
    const FilePath folder = path.parent().empty() ? FilePath(".") : path.parent();
    return folder.appending(".lumeo-" + Uuid::random().text() + ".tmp");
}

using Rename = FileResult<void> (FileSystem::*)(const FilePath&, const FilePath&);

FileResult<void> write(FileSystem& fileSystem, std::string_view document, const FilePath& target,
                       Rename rename, FileAccess access = FileAccess::everyone) {
    const FilePath temporary = temporaryBeside(target);
    FileResult<void> done = writeWhole(fileSystem, document, temporary, access);
    if (done) {
        done = (fileSystem.*rename)(temporary, target);
    }
    if (!done) {
        const FileResult<void> removed = fileSystem.removeFile(temporary); // the first error tells more
        static_cast<void>(removed);
        return done;
    }
    return fileSystem.flushFolder(temporary.parent());
}

} // namespace

FileResult<void> writeDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path,
                               FileAccess access) {
    const FileResult<FilePath> target = behindLinks(fileSystem, path);
    return target ? write(fileSystem, document, *target, &FileSystem::renameReplacing, access)
                  : target.error();
}

FileResult<void> writeNewDocument(FileSystem& fileSystem, std::string_view document, const FilePath& path) {
    return write(fileSystem, document, path, &FileSystem::renameWithoutReplacing);
}

FileResult<void> tryDocument(FileSystem& fileSystem, const FilePath& path) {
    const FileResult<FilePath> target = behindLinks(fileSystem, path);
    if (!target) {
        return target.error();
    }
    const FilePath temporary = temporaryBeside(*target);
    if (const auto file = fileSystem.createFile(temporary, FileAccess::everyone); !file) {
        return FileError{FileAction::create, path, file.error().errnoValue};
    }
    return fileSystem.removeFile(temporary);
}

} // namespace lumeo
