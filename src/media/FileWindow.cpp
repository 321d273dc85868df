#include "media/FileWindow.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

namespace lumeo {

namespace {

/// How much a read away from the beginning fetches: one page, which is the least that the system reads
/// anyway.
constexpr std::size_t stepSize = 4 * 1024;

/// What a view costs in addition to its bytes. Bytes in a buffer cost no reading, but without this cost a
/// file that refers to the same bytes again and again would be walked for minutes.
constexpr std::size_t viewCost = 128;

} // namespace

FileWindow::FileWindow(ReadableFile& file, std::stop_token stop) : file_(file), stop_(std::move(stop)) {
    load(head_, 0, headSize);
}

std::optional<std::string_view> FileWindow::Buffer::view(std::uint64_t from, std::size_t count) const {
    if (from < offset || from - offset > length || length - (from - offset) < count) {
        return std::nullopt;
    }
    return std::string_view(bytes.get() + (from - offset), count);
}

std::optional<std::string_view> FileWindow::view(std::uint64_t offset, std::size_t count) {
    if (count > largestView || viewBudget_ < count + viewCost) {
        return std::nullopt;
    }
    viewBudget_ -= count + viewCost;
    if (const auto found = head_.view(offset, count)) {
        return found;
    }
    if (const auto found = recent_.view(offset, count)) {
        return found;
    }
    load(recent_, offset, std::max(count, stepSize));
    return recent_.view(offset, count);
}

std::string FileWindow::read(std::uint64_t offset, std::size_t count) {
    if (offset >= size()) {
        return {};
    }
    const auto there = static_cast<std::size_t>(std::min<std::uint64_t>(count, size() - offset));
    return std::string(view(offset, there).value_or(std::string_view()));
}

std::size_t FileWindow::copy(std::uint64_t offset, char* target, std::size_t count) {
    constexpr auto furthest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    std::size_t done = 0;
    while (done < count && offset <= furthest - done && !isOver()) {
        const std::size_t part = std::min(count - done, budget_);
        const auto got = file_.readAt(static_cast<std::int64_t>(offset + done),
                                      std::as_writable_bytes(std::span(target + done, part)));
        if (!got || *got == 0) {
            break;
        }
        done += *got;
        budget_ -= *got;
    }
    return done;
}

bool FileWindow::isOver() const {
    return stop_.stop_requested() || std::chrono::steady_clock::now() >= end_;
}

std::uint64_t FileWindow::size() {
    if (!size_) {
        const auto status = file_.status();
        size_ = status && status->size > 0 ? static_cast<std::uint64_t>(status->size) : 0;
    }
    return *size_;
}

void FileWindow::load(Buffer& buffer, std::uint64_t offset, std::size_t count) {
    if (buffer.capacity < count) {
        buffer.bytes = std::make_unique_for_overwrite<char[]>(count);
        buffer.capacity = count;
    }
    buffer.offset = offset;
    buffer.length = copy(offset, buffer.bytes.get(), count);
}

} // namespace lumeo
