#include "platform/SharedText.h"

#include "platform/TextHash.h"

#include <mutex>
#include <unordered_set>

namespace lumeo {
namespace {

const std::string* sharedCopy(std::string_view text) {
    // These are never destroyed, because values may outlive every static object.
    static auto& mutex = *new std::mutex;
    static auto& texts = *new std::unordered_set<std::string, TextHash, std::equal_to<>>;
    const std::lock_guard guard(mutex);
    auto found = texts.find(text);
    if (found == texts.end()) {
        found = texts.emplace(text).first;
    }
    return &*found;
}

} // namespace

SharedText::SharedText() noexcept {
    static const std::string* const empty = sharedCopy({});
    text_ = empty;
}

SharedText::SharedText(std::string_view text) : text_(sharedCopy(text)) {}

} // namespace lumeo
