#pragma once

#include <chrono>
#include <cstdint>

namespace lumeo {

/// An absolute point in time, to the microsecond: fine enough for what file systems and cameras
/// record, coarse enough to survive the trip through the coded form's floating-point seconds.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

/// 2001-01-01 00:00:00 UTC, the zero of coded instants.
inline constexpr Instant codedEpoch = std::chrono::sys_days{std::chrono::year{2001} / 1 / 1};

/// Seconds since 2001-01-01 UTC: the number that stands for an instant in every coded record.
double secondsSinceCodedEpoch(Instant instant);

/// The instant that a coded number stands for; the inverse of secondsSinceCodedEpoch() to the
/// microsecond. Numbers beyond what an Instant can hold give the nearest one that it can.
Instant instantFromCodedSeconds(double seconds);

} // namespace lumeo
