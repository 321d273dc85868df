#include "media/movie/ContainerReaders.h"

#include <chrono>

namespace lumeo {

std::optional<Instant> containerDate(Instant epoch, std::int64_t count, std::int64_t unitsPerSecond) {
    using std::chrono::days;
    using std::chrono::seconds;
    using std::chrono::sys_days;
    using std::chrono::year;
    constexpr std::int64_t microsecondsPerSecond = 1'000'000;
    constexpr sys_days earliest = year{1904} / 1 / 2;
    constexpr sys_days behindLatest = year{10000} / 1 / 1;
    constexpr sys_days unset = year{1970} / 1 / 1;

    const std::int64_t wholeSeconds = count / unitsPerSecond;
    const std::int64_t rest = count % unitsPerSecond;
    if (count == 0 || wholeSeconds < -seconds(behindLatest - earliest).count() ||
        wholeSeconds > seconds(behindLatest - earliest + days(200'000)).count()) {
        return std::nullopt;
    }
    const Instant date = epoch + seconds(wholeSeconds) +
                         std::chrono::microseconds(rest * microsecondsPerSecond / unitsPerSecond);
    const bool isSet = date >= earliest && date < behindLatest && std::chrono::floor<days>(date) != unset;
    return isSet ? std::optional(date) : std::nullopt;
}

void addContainerDate(MovieProperties& movie, std::optional<Instant> date) {
    if (date) {
        movie.metadata.push_back({"creationDate", date, std::nullopt});
    }
}

} // namespace lumeo
