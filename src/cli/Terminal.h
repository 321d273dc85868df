#pragma once

#include "platform/Clock.h"
#include "platform/FilePath.h" // printable()

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumeo::cli {

bool isTerminal(int descriptor);

/// Writes one line to stderr, prefixed with the program's name.
void printError(std::string_view sentence);

/// Asks a yes-or-no question on the terminal. Any answer but a yes means no.
bool confirm(std::string_view question);

/// A status line on stderr that is rewritten in place. It is silent with `quiet`, and when stderr is not a
/// terminal. Used by one thread.
class StatusLine {
public:
    StatusLine(const Clock& clock, bool quiet);
    ~StatusLine() { clear(); }
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;

    /// True when the line may be shown again. This is at most ten times a second.
    [[nodiscard]] bool isDue() const;

    /// Shows as much of `facts` as fits on one line, and then as much of `name`. Two spaces separate the
    /// facts.
    void show(const std::string& facts, std::string_view name);
    void clear();

private:
    const Clock& clock_;
    bool enabled_;
    bool shown_ = false;
    std::chrono::nanoseconds lastShown_{0};
};

/// Lines up columns of text on stdout. Each column but the last is as wide as its widest cell. On a terminal
/// that is too narrow, each row takes as many lines as its cells need.
class Table {
public:
    explicit Table(std::vector<std::string> headings) { addRow(std::move(headings)); }
    void addRow(std::vector<std::string> cells);
    void print() const;

private:
    void printLinedUp(const std::vector<std::string>& row) const;
    static void printFlowing(const std::vector<std::string>& row, std::size_t columns);

    std::vector<std::vector<std::string>> rows_;
    std::vector<std::size_t> widths_;
};

} // namespace lumeo::cli
