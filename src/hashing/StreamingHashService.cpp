#include "hashing/StreamingHashService.h"

#include "platform/ChunkBuffer.h"

#include <array>
#include <cassert>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include <openssl/evp.h>

namespace lumeo {
namespace {

constexpr std::size_t digestSize = 32;
using Digest = std::array<std::uint8_t, digestSize>;

/// Looking up the algorithm takes the library's locks, so it happens once for the whole program.
const EVP_MD* sha256Algorithm() {
    static const std::unique_ptr<EVP_MD, decltype(&EVP_MD_free)> algorithm(
        EVP_MD_fetch(nullptr, "SHA256", nullptr), &EVP_MD_free);
    return algorithm.get();
}

/// An incremental SHA-256. If the library refuses a step, the digest becomes unavailable, but never wrong.
class Sha256 {
public:
    Sha256() : context_(EVP_MD_CTX_new(), &EVP_MD_CTX_free) {
        usable_ = context_ && EVP_DigestInit_ex2(context_.get(), sha256Algorithm(), nullptr) == 1;
    }

    void update(std::span<const std::byte> bytes) {
        usable_ = usable_ && EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size()) == 1;
    }

    std::optional<Digest> finish() {
        Digest digest{};
        unsigned int size = 0;
        usable_ = usable_ && EVP_DigestFinal_ex(context_.get(), digest.data(), &size) == 1;
        return usable_ && size == digestSize ? std::optional(digest) : std::nullopt;
    }

private:
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context_;
    bool usable_ = false;
};

std::string hexText(const Digest& digest) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * digest.size());
    for (const std::uint8_t byte : digest) {
        text += digits[byte >> 4U];
        text += digits[byte & 0x0FU];
    }
    return text;
}

/// The digest of everything that `read(chunk)` returns until it returns nothing.
template<class Read>
Result<std::string, HashError> digestOf(Read read, const FilePath& path, std::size_t bytesPerRead,
                                        const CancellationCheck& cancelled) {
    assert(bytesPerRead > 0);
    Sha256 sha256;
    const std::span<std::byte> chunk = threadChunkBuffer(bytesPerRead);
    while (true) {
        const FileResult<std::size_t> count = read(chunk);
        if (!count) {
            return HashError(count.error());
        }
        if (*count == 0) {
            break;
        }
        if (cancelled()) {
            return HashError(Cancelled{});
        }
        sha256.update(chunk.first(*count));
    }
    if (cancelled()) {
        return HashError(Cancelled{});
    }
    const std::optional<Digest> digest = sha256.finish();
    if (!digest) {
        return HashError(FileError{FileAction::read, path, ENOTSUP});
    }
    return hexText(*digest);
}

} // namespace

Result<std::string, HashError> StreamingHashService::computeSHA256(const FileSystem& fileSystem,
                                                                   const FilePath& path,
                                                                   std::size_t bytesPerRead,
                                                                   const CancellationCheck& cancelled) {
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file) {
        return HashError(file.error());
    }
    const auto read = [&file](std::span<std::byte> chunk) { return file.value()->read(chunk); };
    return digestOf(read, path, bytesPerRead, cancelled);
}

Result<std::string, HashError>
StreamingHashService::computeSHA256FromDevice(const FileSystem& fileSystem, const FilePath& path,
                                              const CancellationCheck& cancelled) {
    const FileResult<std::unique_ptr<ReadableFile>> file = fileSystem.openForReading(path);
    if (!file) {
        return HashError(file.error());
    }
    (*file)->evict();
    return computeSHA256(**file, path, cancelled);
}

Result<std::string, HashError> StreamingHashService::computeSHA256(ReadableFile& file, const FilePath& path,
                                                                   const CancellationCheck& cancelled) {
    const auto read = [&file](std::span<std::byte> chunk) { return file.read(chunk); };
    return digestOf(read, path, chunkSize, cancelled);
}

Result<std::string, HashError> StreamingHashService::computeSHA256(WritableFile& file, const FilePath& path,
                                                                   std::size_t bytesPerRead,
                                                                   const CancellationCheck& cancelled) {
    std::int64_t position = 0;
    const auto read = [&](std::span<std::byte> chunk) {
        FileResult<std::size_t> count = file.readAt(position, chunk);
        position += count ? static_cast<std::int64_t>(*count) : 0;
        return count;
    };
    return digestOf(read, path, bytesPerRead, cancelled);
}

} // namespace lumeo
