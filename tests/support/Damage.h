#pragma once

#include <string>
#include <string_view>

namespace lumeo {

/// Calls `read` with damaged versions of a file. `whole` is cut short at every byte. Every byte is replaced
/// by each of `wrong`, and once by a byte that differs in a single bit.
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
