#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace lumeo {

template<class T>
struct AbsentValue;

/// Text with few distinct values that occur many times, such as camera names. All equal values share one copy
/// for the life of the program, and a value is as large as a pointer. It does not suit texts that differ from
/// file to file, because the memory is never freed. Any thread may make one.
class SharedText {
public:
    SharedText() noexcept;
    explicit SharedText(std::string_view text);

    [[nodiscard]] const std::string& str() const noexcept { return *text_; }
    [[nodiscard]] std::string_view view() const noexcept { return *text_; }

    friend bool operator==(SharedText a, SharedText b) noexcept { return a.text_ == b.text_; }
    friend bool operator==(SharedText a, std::string_view b) noexcept { return *a.text_ == b; }

private:
    /// A null pointer stands for the absent text, so an optional text is no larger than a pointer.
    friend struct AbsentValue<SharedText>;
    constexpr explicit SharedText(const std::string* text) noexcept : text_(text) {}

    const std::string* text_; ///< one pointer for each distinct text, so equal texts have equal pointers
};

} // namespace lumeo
