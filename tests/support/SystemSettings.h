#pragma once

#include <memory>
#include <optional>
#include <string>

#include <unicode/timezone.h>

namespace lumeo {

/// Sets the user's time zone as long as it exists. For tests with one thread.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* name);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    std::unique_ptr<icu::TimeZone> before_;
};

/// Sets or removes an environment variable as long as it exists. For tests with one thread.
class ScopedEnvironment {
public:
    ScopedEnvironment(std::string name, const char* value);
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    std::string name_;
    std::optional<std::string> before_;
};

} // namespace lumeo
