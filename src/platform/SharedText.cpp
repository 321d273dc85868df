#include "platform/SharedText.h"

#include "platform/Mutex.h"
#include "platform/TextHash.h"

#include <unordered_set>

namespace lumeo {
namespace {

const std::string* sharedCopy(std::string_view text) {
    // These are never destroyed, because values may outlive every static object.
    struct Copies {
        Mutex mutex;
        std::unordered_set<std::string, TextHash, std::equal_to<>> texts LUMEO_GUARDED_BY(mutex);
    };
    static auto& copies = *new Copies;
    const MutexGuard guard(copies.mutex);
    auto found = copies.texts.find(text);
    if (found == copies.texts.end()) {
        found = copies.texts.emplace(text).first;
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
