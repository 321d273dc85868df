#pragma once

#include "model/CompactOptional.h"
#include "model/EnumText.h"
#include "platform/FilePath.h"
#include "platform/Instant.h"
#include "platform/Result.h"
#include "platform/SharedText.h"
#include "platform/Uuid.h"

#include <nlohmann/json.hpp>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace lumeo {

/// Keeps keys in the order in which they were written, which is the order of the record's declaration.
using Json = nlohmann::ordered_json;

/// Why a coded record could not be read: the key, and what is wrong with it. An empty key means the record as
/// a whole.
struct DecodingError {
    std::string key;
    std::string problem;
    [[nodiscard]] std::string message() const;
    friend bool operator==(const DecodingError&, const DecodingError&) = default;
};

template<class Value>
using Decoded = Result<Value, DecodingError>;

/// Anything that is text by itself. A Json value does not count as text, although it converts to nearly
/// everything.
template<class Text>
concept TextLike = std::is_convertible_v<const Text&, std::string_view> && !std::is_same_v<Text, Json>;

/// Writes the fields of a record one after another. An absent optional leaves no key. A number that is not
/// finite has no coded form and leaves no key either. Text that is not UTF-8 is written with replacement
/// characters, so paths that must survive are written as file URLs.
///
/// Every overload takes exactly its own type. Otherwise the many implicit conversions would turn text into a
/// boolean, or any value into a Json.
class JsonWriter {
public:
    template<TextLike Text>
    void set(std::string_view key, const Text& text) {
        setText(key, text);
    }
    template<std::same_as<bool> Bool>
    void set(std::string_view key, Bool value) {
        put(key, value);
    }
    template<std::signed_integral Integer>
    requires(!std::same_as<Integer, char>) void set(std::string_view key, Integer value) {
        put(key, std::int64_t{value});
    }
    template<std::floating_point Real>
    void set(std::string_view key, Real value) {
        setNumber(key, value);
    }
    template<std::same_as<Json> Value>
    void set(std::string_view key, Value value) {
        put(key, std::move(value));
    }
    template<class Enum>
    requires std::is_enum_v<Enum>
    void set(std::string_view key, Enum value) { setText(key, rawValue(value)); }
    void set(std::string_view key, Instant value) { setNumber(key, secondsSinceCodedEpoch(value)); }
    void set(std::string_view key, const Uuid& value) { setText(key, value.text()); }
    void set(std::string_view key, SharedText value) { setText(key, value.view()); }
    void set(std::string_view key, const std::vector<std::string>& texts);
    template<class Value>
    void set(std::string_view key, const std::optional<Value>& value) {
        if (value) {
            set(key, *value);
        }
    }

    template<class Value>
    void set(std::string_view key, const CompactOptional<Value>& value) {
        if (value) {
            set(key, *value);
        }
    }

    void setFileUrl(std::string_view key, const FilePath& path) { setText(key, path.fileUrl()); }
    void setFileUrl(std::string_view key, const std::optional<FilePath>& path) {
        if (path) {
            setFileUrl(key, *path);
        }
    }

    [[nodiscard]] Json take() && { return std::move(object_); }

private:
    void put(std::string_view key, Json value) { object_[std::string(key)] = std::move(value); }
    void setText(std::string_view key, std::string_view text);
    void setNumber(std::string_view key, double value);

    Json object_ = Json::object();
};

/// Reads the fields of a record one after another. It remembers the first error and reads nothing after it.
///
/// A required key must be there and not be null. An optional key may be missing or null, but must not have
/// another type. A wrong type or an unknown enumeration text is an error. A whole number may be written with
/// a fraction of zero (3.0), as some encoders do; a number beyond 64 bits is an error.
///
///     JsonReader reader(json);
///     reader.require("id", item.id);
///     reader.read("utType", item.utType);
///     if (reader.error()) return *reader.error();
class JsonReader {
public:
    /// `object` must outlive the reader. Anything but a keyed object is an error.
    explicit JsonReader(const Json& object);

    void require(std::string_view key, std::string& text);
    void require(std::string_view key, bool& value);
    void require(std::string_view key, std::int64_t& value);
    void require(std::string_view key, double& value);
    void require(std::string_view key, Instant& value);
    void require(std::string_view key, Uuid& value);
    void require(std::string_view key, SharedText& value);
    void require(std::string_view key, std::vector<std::string>& texts);
    void requireFileUrl(std::string_view key, FilePath& path);

    template<class Enum>
    requires std::is_enum_v<Enum>
    void require(std::string_view key, Enum& value) {
        std::string text;
        require(key, text);
        if (error_) {
            return;
        }
        if (const std::optional<Enum> known = fromRawValue<Enum>(text)) {
            value = *known;
        } else {
            fail(key, "has the unknown value \"" + text + "\"");
        }
    }

    template<class Value>
    void read(std::string_view key, std::optional<Value>& value) {
        value = readOptional<Value>(key);
    }
    template<class Value>
    void read(std::string_view key, CompactOptional<Value>& value) {
        value = readOptional<Value>(key);
    }
    void readFileUrl(std::string_view key, std::optional<FilePath>& path);

    /// The value under `key`, for nested records. Null when the key is missing; this is then the error.
    const Json* require(std::string_view key);

    /// True when the key is there and not null.
    [[nodiscard]] bool has(std::string_view key) const;

    void fail(std::string_view key, std::string problem);

    [[nodiscard]] const std::optional<DecodingError>& error() const noexcept { return error_; }

private:
    template<class Value>
    std::optional<Value> readOptional(std::string_view key) {
        if (!has(key)) {
            return std::nullopt;
        }
        Value present{};
        require(key, present);
        return error_ ? std::nullopt : std::optional(std::move(present));
    }

    /// The value under `key`. Null when there is none, or after an error.
    [[nodiscard]] const Json* find(std::string_view key) const;

    const Json& object_;
    std::optional<DecodingError> error_;
};

} // namespace lumeo
