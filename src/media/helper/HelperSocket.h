#pragma once

#include "platform/PosixHandle.h"

#include <cstddef>
#include <optional>
#include <span>

namespace lumeo {

// A program and its helpers exchange records of known length over a socket. Both come from one build and run
// on one machine, so numbers keep the processor's byte order. An open file can be sent with a record: a
// helper never learns a path.

/// False when the other side has exited. The caller keeps `descriptor`.
bool sendRecord(int socket, std::span<const std::byte> record, std::optional<int> descriptor = {});

/// Waits until `record` is full. False when the other side exits first. A file that was sent along replaces
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
