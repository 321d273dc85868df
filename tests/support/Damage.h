#pragma once

#include <string>
#include <string_view>

namespace lumeo {

/// Hands `read` what may be left of a file: `whole` cut short at every byte, and with every byte replaced
/// by each of `wrong` in turn and once by one that differs in a single bit.
template<class Read>
void damageEverywhere(std::string_view whole, std::string_view wrong, Read read) {
    for (std::size_t at = 0; at < whole.size(); ++at) {
        read(std::string(whole.substr(0, at)));
        std::string damaged(whole);
        for (const char byte : wrong) {
            damaged[at] = byte;
            read(damaged);
        }
        damaged[at] = static_cast<char>(whole[at] ^ 1);
        read(damaged);
    }
}

} // namespace lumeo
