#include "cli/Terminal.h"

#include <algorithm>
#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

namespace lumeo::cli {
namespace {

constexpr std::chrono::milliseconds refreshInterval{100};

/// Columns that the text takes: one for each character. This is precise enough for lining up.
std::size_t width(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

std::size_t terminalColumns(int descriptor) {
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    return 80;
}

/// As many of the facts as fit on one line; two spaces separate them. A line that wraps cannot be rewritten.
std::string fittedFacts(std::string facts, std::size_t columns) {
    while (width(facts) >= columns) {
        const std::size_t gap = facts.rfind("  ");
        if (gap == std::string::npos) {
            return {};
        }
        facts.resize(gap);
    }
    return facts;
}

/// The end of `text` that fits into `columns`. If something was cut, an ellipsis stands before it.
std::string fittedEnd(const std::string& text, std::size_t columns) {
    if (width(text) <= columns) {
        return text;
    }
    if (columns < 2) {
        return {};
    }
    std::size_t start = text.size();
    for (std::size_t kept = 0; kept < columns - 1;) {
        --start;
        if ((static_cast<unsigned char>(text[start]) & 0xC0U) != 0x80U) {
            ++kept;
        }
    }
    return "…" + text.substr(start);
}

void widen(std::vector<std::size_t>& widths, const Cells& row) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
        widths[column] = std::max(widths[column], width(row[column]));
    }
}

void printLinedUp(const Cells& row, const std::vector<std::size_t>& widths) {
    for (std::size_t column = 0; column < row.size(); ++column) {
        std::cout << row[column];
        if (column + 1 < row.size()) {
            std::cout << std::string(widths[column] - width(row[column]) + 2, ' ');
        }
    }
    std::cout << '\n';
}

void printFlowing(const Cells& row, std::size_t columns) {
    std::size_t used = 0;
    for (const std::string& cell : row) {
        const std::size_t wanted = 2 + width(cell);
        if (used > 0 && used + wanted > columns) {
            std::cout << "\n    " << cell;
            used = wanted + 2;
        } else {
            std::cout << (used > 0 ? "  " : "") << cell;
            used += used > 0 ? wanted : width(cell);
        }
    }
    std::cout << '\n';
}

} // namespace

bool isTerminal(int descriptor) {
    return isatty(descriptor) == 1;
}

void printError(std::string_view sentence) {
    std::cerr << "lumeo-cli: " << sentence << '\n';
}

bool confirm(std::string_view question) {
    std::cerr << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

StatusLine::StatusLine(const Clock& clock, bool quiet)
    : clock_(clock), enabled_(!quiet && isTerminal(STDERR_FILENO)) {}

bool StatusLine::isDue() const {
    return enabled_ && (!shown_ || clock_.elapsed() - lastShown_ >= refreshInterval);
}

void StatusLine::show(const std::string& facts, std::string_view name) {
    if (!enabled_) {
        return;
    }
    const std::size_t columns = terminalColumns(STDERR_FILENO);
    const std::size_t used = width(facts) + 3;
    std::cerr << '\r' << fittedFacts(facts, columns);
    if (used < columns) {
        std::cerr << "  " << fittedEnd(printable(name), columns - used);
    }
    std::cerr << "\x1B[K" << std::flush;
    shown_ = true;
    lastShown_ = clock_.elapsed();
}

void StatusLine::clear() {
    if (shown_) {
        std::cerr << "\r\x1B[K" << std::flush;
        shown_ = false;
    }
}

void printTable(std::size_t rows, const std::function<Cells(std::size_t row)>& cells) {
    std::vector<std::size_t> widths;
    for (std::size_t row = 0; row < rows; ++row) {
        widen(widths, cells(row));
    }
    // The last column is not lined up and needs some space of its own.
    constexpr std::size_t leastForLast = 24;
    std::size_t linedUp = 0;
    for (std::size_t column = 0; column + 1 < widths.size(); ++column) {
        linedUp += widths[column] + 2;
    }
    const std::size_t columns = terminalColumns(STDOUT_FILENO);
    const bool isNarrow = isTerminal(STDOUT_FILENO) && linedUp + leastForLast > columns;
    for (std::size_t row = 0; row < rows; ++row) {
        if (isNarrow) {
            printFlowing(cells(row), columns);
        } else {
            printLinedUp(cells(row), widths);
        }
    }
}

} // namespace lumeo::cli
