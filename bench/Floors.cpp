#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// The least work that any program must do for the same result. Our own times are compared with this. It
/// stops at the first failure.
namespace {

namespace fs = std::filesystem;

constexpr std::size_t chunkSize = std::size_t{1} << 20;

[[noreturn]] void refuse(const std::string& what) {
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

class Descriptor {
public:
    Descriptor(const fs::path& path, int flags)
        : path_(path), descriptor_(open(path.c_str(), flags | O_CLOEXEC, 0644)) {
        if (descriptor_ < 0) {
            refuse(path_);
        }
    }
    ~Descriptor() { close(descriptor_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    std::size_t read(std::vector<unsigned char>& buffer) {
        const ssize_t count = ::read(descriptor_, buffer.data(), buffer.size());
        if (count < 0) {
            refuse(path_);
        }
        return static_cast<std::size_t>(count);
    }

    void write(const unsigned char* bytes, std::size_t count) {
        while (count > 0) {
            const ssize_t written = ::write(descriptor_, bytes, count);
            if (written < 0) {
                refuse(path_);
            }
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
    }

    void flush() {
        if (fdatasync(descriptor_) != 0) {
            refuse(path_);
        }
    }

    void evict() { posix_fadvise(descriptor_, 0, 0, POSIX_FADV_DONTNEED); }

    [[nodiscard]] int number() const { return descriptor_; }

private:
    std::string path_;
    int descriptor_;
};

class Sha256 {
public:
    Sha256() : context_(EVP_MD_CTX_new(), EVP_MD_CTX_free) {
        EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr);
    }
    void add(const unsigned char* bytes, std::size_t count) {
        EVP_DigestUpdate(context_.get(), bytes, count);
    }
    std::array<unsigned char, 32> digest() {
        std::array<unsigned char, 32> value{};
        EVP_DigestFinal_ex(context_.get(), value.data(), nullptr);
        return value;
    }

private:
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context_;
};

std::vector<fs::path> filesBelow(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    return files;
}

/// Opens, examines and reads the first 64 KiB of each file.
void scanFolder(const fs::path& folder) {
    std::vector<unsigned char> buffer(std::size_t{64} * 1024);
    for (const fs::path& path : filesBelow(folder)) {
        Descriptor file(path, O_RDONLY);
        struct statx status {};
        if (statx(file.number(), "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) {
            refuse(path);
        }
        file.read(buffer);
    }
}

std::array<unsigned char, 32> hashFile(const fs::path& path, std::vector<unsigned char>& buffer) {
    Descriptor file(path, O_RDONLY);
    Sha256 hash;
    while (const std::size_t count = file.read(buffer)) {
        hash.add(buffer.data(), count);
    }
    return hash.digest();
}

void hashFolder(const fs::path& folder) {
    std::vector<unsigned char> buffer(chunkSize);
    for (const fs::path& path : filesBelow(folder)) {
        hashFile(path, buffer);
    }
}

/// Hashes each file and removes it.
void removeFolder(const fs::path& folder) {
    std::vector<unsigned char> buffer(chunkSize);
    for (const fs::path& path : filesBelow(folder)) {
        hashFile(path, buffer);
        fs::remove(path);
    }
}

/// Reads and hashes the source. Writes, flushes and evicts the copy, and then hashes the copy.
void copyFile(const fs::path& from, const fs::path& to, std::vector<unsigned char>& buffer) {
    Sha256 sourceHash;
    {
        Descriptor source(from, O_RDONLY);
        Descriptor copy(to, O_WRONLY | O_CREAT | O_EXCL);
        while (const std::size_t count = source.read(buffer)) {
            sourceHash.add(buffer.data(), count);
            copy.write(buffer.data(), count);
        }
        copy.flush();
        copy.evict();
    }
    if (hashFile(to, buffer) != sourceHash.digest()) {
        throw std::runtime_error(to.string() + " is not what was written");
    }
}

/// `withNames`: each copy is made under another name and renamed, and its folder is flushed.
void copyFolder(const fs::path& folder, const fs::path& destination, bool withNames) {
    std::vector<unsigned char> buffer(chunkSize);
    fs::create_directories(destination);
    for (const fs::path& path : filesBelow(folder)) {
        const fs::path to = destination / path.filename();
        if (!withNames) {
            copyFile(path, to, buffer);
            continue;
        }
        const fs::path partial = to.string() + ".partial";
        copyFile(path, partial, buffer);
        fs::rename(partial, to);
        Descriptor(destination, O_RDONLY | O_DIRECTORY).flush();
    }
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.size() == 2 && arguments[0] == "scan") {
        scanFolder(arguments[1]);
    } else if (arguments.size() == 2 && arguments[0] == "hash") {
        hashFolder(arguments[1]);
    } else if (arguments.size() == 2 && arguments[0] == "remove") {
        removeFolder(arguments[1]);
    } else if (arguments.size() == 3 && arguments[0] == "copy") {
        copyFolder(arguments[1], arguments[2], false);
    } else if (arguments.size() == 3 && arguments[0] == "copy-with-names") {
        copyFolder(arguments[1], arguments[2], true);
    } else {
        std::cerr << "usage: lumeo-floor scan FOLDER | hash FOLDER | remove FOLDER |"
                     " copy FOLDER DESTINATION | copy-with-names FOLDER DESTINATION\n";
        return 2;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
