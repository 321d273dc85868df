#pragma once

#include "model/EnumText.h"
#include "platform/FilePath.h"
#include "platform/Instant.h"
#include "platform/Result.h"
#include "platform/SharedText.h"
#include "platform/Uuid.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace lumeo {

/// Keys in the order in which they were written, as in the record's declaration.
using Json = nlohmann::ordered_json;

/// Why a coded record could not be read: which key, and what is wrong with it.
struct DecodingError {
    std::string key;
    std::string problem;
    [[nodiscard]] std::string message() const { return "\"" + key + "\" " + problem; }
    friend bool operator==(const DecodingError&, const DecodingError&) = default;
};

template<class Value>
using Decoded = Result<Value, DecodingError>;

/// Writes a record's fields in turn. Absent optionals leave no key. Text that is not UTF-8 is written
/// with replacement characters; paths that must survive go as file URLs.
class JsonWriter {
public:
    void set(std::string_view key, std::string_view text);
    void set(std::string_view key, const char* text) { set(key, std::string_view(text)); }
    void set(std::string_view key, bool value);
    void set(std::string_view key, std::int64_t value);
    void set(std::string_view key, double value);
    void set(std::string_view key, Instant value);
    void set(std::string_view key, const Uuid& value);
    void set(std::string_view key, SharedText value) { set(key, value.view()); }
    void set(std::string_view key, const std::vector<std::string>& texts);
    void set(std::string_view key, Json value);
    void setFileUrl(std::string_view key, const FilePath& path) {
        set(key, std::string_view(path.fileUrl()));
    }

    template<class Enum>
    requires std::is_enum_v<Enum>
    void set(std::string_view key, Enum value) { set(key, rawValue(value)); }
    template<class Value>
    void set(std::string_view key, const std::optional<Value>& value) {
        if (value) {
            set(key, *value);
        }
    }

    [[nodiscard]] Json take() && { return std::move(object_); }

private:
    Json object_ = Json::object();
};

/// Reads a record's fields in turn and remembers the first thing wrong. A required key that is
/// missing, a wrong type or an unknown enumeration text fails the record; an optional key may be
/// missing or null, but not of another type.
///
///     JsonReader reader(json);
///     reader.require("id", item.id);
///     reader.read("utType", item.utType);
///     if (reader.error()) return *reader.error();
class JsonReader {
public:
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
        value.reset();
        if (has(key)) {
            Value present{};
            require(key, present);
            if (!error_) {
                value = std::move(present);
            }
        }
    }
    void readFileUrl(std::string_view key, std::optional<FilePath>& path);

    /// The value under `key`, for nested records; null when the key is missing, which is then the error.
    const Json* require(std::string_view key);

    /// True when the key is there and not null.
    [[nodiscard]] bool has(std::string_view key) const;

    void fail(std::string_view key, std::string problem);

    [[nodiscard]] const std::optional<DecodingError>& error() const noexcept { return error_; }

private:
    const Json* find(std::string_view key);

    const Json& object_;
    std::optional<DecodingError> error_;
};

} // namespace lumeo
