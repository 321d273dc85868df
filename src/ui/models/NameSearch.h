#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace lumeo {

/// Finds names that contain a text. The case of letters and the way their accents are stored do not matter.
/// Threads may share one, but only one at a time.
///
/// All forms of the letter i count as one, dotted or not. By Turkish rules the small form of IMG is not img,
/// but people who write Turkish also search for the files of their cameras.
class NameSearch {
public:
    /// An empty text finds everything.
    explicit NameSearch(const QString& text = {});

    [[nodiscard]] bool finds(std::string_view name) const;

    /// True when everything that this finds is also found by `wider`.
    [[nodiscard]] bool isNarrowerThan(const NameSearch& wider) const {
        return folded_.contains(wider.folded_);
    }

private:
    QString folded_;
    std::string ascii_; ///< the same text if it is ASCII
};

} // namespace lumeo
