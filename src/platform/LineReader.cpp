#include "platform/LineReader.h"

#include <utility>

namespace lumeo {

std::optional<std::string> LineReader::next() {
    std::size_t searched = start_;
    while (true) {
        if (const std::size_t end = text_.find('\n', searched); end != std::string::npos) {
            isWhole_ = true;
            std::string line = text_.substr(start_, end - start_);
            start_ = end + 1;
            return line;
        }
        text_.erase(0, std::exchange(start_, 0));
        searched = text_.size();
        const FileResult<std::size_t> count = file_.read(std::as_writable_bytes(std::span(piece_)));
        if (!count) {
            error_ = count.error();
            return std::nullopt;
        }
        if (*count == 0) {
            isWhole_ = false;
            return text_.empty() ? std::nullopt : std::optional(std::exchange(text_, {}));
        }
        text_.append(piece_.data(), *count);
    }
}

} // namespace lumeo
