#pragma once

#include <chrono>
#include <cstdint>

namespace lumeo {

/// An absolute point in time, to the microsecond. This is precise enough for what file systems and cameras
/// record, and it survives the floating-point seconds of the coded form.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

/// 2001-01-01 00:00:00 UTC, the zero of coded instants.
inline constexpr Instant codedEpoch = std::chrono::sys_days{std::chrono::year{2001} / 1 / 1};

/// Seconds since 2001-01-01 UTC. Every coded record writes an instant as this number.
double secondsSinceCodedEpoch(Instant instant);

/// The instant that a coded number stands for. The inverse of secondsSinceCodedEpoch(), to the microsecond. A
/// number beyond the range of Instant gives the nearest Instant.
Instant instantFromCodedSeconds(double seconds);

} // namespace lumeo
