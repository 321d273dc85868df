#pragma once

#include "platform/PosixHandle.h"

#include <cstddef>
#include <optional>
#include <span>

namespace lumeo {

// What a program and its helpers say to each other goes over a socket, in records of known length. Both are
// of one build and one machine, so numbers stand as the processor has them. An open file goes along with a
// record: a helper never learns a path.

/// False when the other side has gone. `descriptor` stays the caller's.
bool sendRecord(int socket, std::span<const std::byte> record, std::optional<int> descriptor = {});

/// Waits for as many bytes; false when the other side goes first. A file that came along replaces
/// `descriptor`.
bool receiveRecord(int socket, std::span<std::byte> record, Descriptor& descriptor);

template<class Record>
std::span<const std::byte> bytesOf(const Record& record) {
    return std::as_bytes(std::span(&record, 1));
}
template<class Record>
std::span<std::byte> writableBytesOf(Record& record) {
    return std::as_writable_bytes(std::span(&record, 1));
}

} // namespace lumeo
