#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace lumeo {

template<class T>
struct AbsentValue;

/// Text of which few distinct values occur many times, such as camera names: all equal values share
/// one copy for the life of the program, and a value is the size of a pointer. Not for texts that
/// differ from file to file, since nothing is ever given back. Any thread may make one.
class SharedText {
public:
    SharedText() noexcept;
    explicit SharedText(std::string_view text);

    [[nodiscard]] const std::string& str() const noexcept { return *text_; }
    [[nodiscard]] std::string_view view() const noexcept { return *text_; }

    friend bool operator==(SharedText a, SharedText b) noexcept { return a.text_ == b.text_; }
    friend bool operator==(SharedText a, std::string_view b) noexcept { return *a.text_ == b; }

private:
    /// Lets an optional text do with the room of the pointer: a null one, which no text has.
    friend struct AbsentValue<SharedText>;
    constexpr explicit SharedText(const std::string* text) noexcept : text_(text) {}

    const std::string* text_; ///< one per distinct text, so equality is identity
};

} // namespace lumeo
