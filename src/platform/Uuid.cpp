#include "platform/Uuid.h"

#include <cstdlib>
#include <cstring>

#include <unistd.h>
#include <uuid/uuid.h>

namespace lumeo {

namespace {

/// A catalogue needs hundreds of thousands of identifiers, and one call to the system can return many as fast
/// as one. After a fork both processes would have the same stock, so each starts with a new one.
class RandomPool {
public:
    std::array<std::uint8_t, 16> take() {
        std::array<std::uint8_t, 16> bytes{};
        if (next_ == pool_.size() || owner_ != getpid()) {
            fill();
        }
        std::memcpy(bytes.data(), pool_.data() + next_, bytes.size());
        next_ += bytes.size();
        return bytes;
    }

private:
    void fill() {
        constexpr std::size_t mostAtOnce = 256; // up to this size the system returns all or nothing
        for (std::size_t done = 0; done < pool_.size(); done += mostAtOnce) {
            if (getentropy(pool_.data() + done, mostAtOnce) != 0) {
                std::abort(); // every system that this runs on supports it
            }
        }
        next_ = 0;
        owner_ = getpid();
    }

    std::array<std::uint8_t, 2048> pool_{};
    std::size_t next_ = pool_.size();
    pid_t owner_ = 0;
};

} // namespace

Uuid Uuid::random() {
    thread_local RandomPool pool;
    Uuid id{pool.take()};
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0FU) | 0x40U); // random, by the version
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3FU) | 0x80U); // and by the variant
    return id;
}

std::optional<Uuid> Uuid::fromText(std::string_view text) {
    Uuid id;
    const std::string terminated(text);
    // The length is checked separately, because a NUL inside the text must not count as its end.
    if (text.size() != UUID_STR_LEN - 1 || uuid_parse(terminated.c_str(), id.bytes.data()) != 0) {
        return std::nullopt;
    }
    return id;
}

std::string Uuid::text() const {
    std::array<char, UUID_STR_LEN> buffer{};
    uuid_unparse_upper(bytes.data(), buffer.data());
    return buffer.data();
}

} // namespace lumeo

std::size_t std::hash<lumeo::Uuid>::operator()(const lumeo::Uuid& id) const noexcept {
    // The bytes are random, so any eight of them are a hash.
    std::size_t value = 0;
    std::memcpy(&value, id.bytes.data(), sizeof value);
    return value;
}
