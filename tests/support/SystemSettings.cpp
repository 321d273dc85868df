#include "support/SystemSettings.h"

#include <cstdlib>

namespace lumeo {

ScopedTimeZone::ScopedTimeZone(const char* name) : before_(icu::TimeZone::createDefault()) {
    icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone(name));
}

ScopedTimeZone::~ScopedTimeZone() {
    icu::TimeZone::adoptDefault(before_.release());
}

ScopedEnvironment::ScopedEnvironment(std::string name, const char* value) : name_(std::move(name)) {
    if (const char* const before = std::getenv(name_.c_str())) {
        before_ = before;
    }
    if (value != nullptr) {
        setenv(name_.c_str(), value, 1);
    } else {
        unsetenv(name_.c_str());
    }
}

ScopedEnvironment::~ScopedEnvironment() {
    if (before_) {
        setenv(name_.c_str(), before_->c_str(), 1);
    } else {
        unsetenv(name_.c_str());
    }
}

} // namespace lumeo
