#pragma once

#include "platform/Clock.h"
#include "platform/FilePath.h" // printable()

#include <chrono>
#include <cstddef>
#include <functional>
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

/// The texts of one row of a table.
using Cells = std::vector<std::string>;

/// Lines up columns of text on stdout. Each column but the last is as wide as its widest cell. On a terminal
/// that is too narrow, each row takes as many lines as its cells need. Each row is requested twice, so a
/// table is never kept in memory, however long it is.
void printTable(std::size_t rows, const std::function<Cells(std::size_t row)>& cells);

} // namespace lumeo::cli
