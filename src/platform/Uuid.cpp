#include "platform/Uuid.h"

#include <cstring>

#include <uuid/uuid.h>

namespace lumeo {

Uuid Uuid::random() {
    Uuid id;
    uuid_generate_random(id.bytes.data());
    return id;
}

std::optional<Uuid> Uuid::fromText(std::string_view text) {
    Uuid id;
    const std::string terminated(text);
    // The length is told apart from the text: a NUL within must not pass for its end.
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
    // Random already: any eight of its bytes are a hash.
    std::size_t value = 0;
    std::memcpy(&value, id.bytes.data(), sizeof value);
    return value;
}
