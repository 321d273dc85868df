#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace lumeo {

/// Finds names that contain a text, whatever the case of letters and however their accents are stored.
/// Any thread may use one, one at a time.
///
/// All kinds of the letter i count as one, dotted or not: by Turkish rules the small form of IMG is not
/// img, yet people who write Turkish look for their cameras' files like everybody else.
class NameSearch {
public:
    /// An empty text finds everything.
    explicit NameSearch(const QString& text = {});

    [[nodiscard]] bool finds(std::string_view name) const;

    /// True when this finds nothing that `wider` does not find.
    [[nodiscard]] bool isNarrowerThan(const NameSearch& wider) const {
        return folded_.contains(wider.folded_);
    }

private:
    QString folded_;
    std::string ascii_; ///< the same, when it is nothing but ASCII
};

} // namespace lumeo
