#include "model/Json.h"

#include <cmath>

namespace lumeo {
namespace {

std::optional<std::int64_t> wholeNumber(const Json& json) {
    if (json.is_number_unsigned()) {
        const auto value = json.get<std::uint64_t>();
        if (std::in_range<std::int64_t>(value)) {
            return static_cast<std::int64_t>(value);
        }
    } else if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    } else if (json.is_number_float()) {
        const auto value = json.get<double>();
        constexpr double bound = 0x1p63;
        if (value >= -bound && value < bound && value == std::floor(value)) {
            return static_cast<std::int64_t>(value);
        }
    }
    return std::nullopt;
}

} // namespace

std::string DecodingError::message() const {
    return key.empty() ? "The record " + problem : "\"" + key + "\" " + problem;
}

void JsonWriter::setText(std::string_view key, std::string_view text) {
    put(key, isValidUtf8(text) ? std::string(text) : replacingInvalidUtf8(text));
}

void JsonWriter::setNumber(std::string_view key, double value) {
    if (std::isfinite(value)) {
        put(key, value);
    }
}

void JsonWriter::set(std::string_view key, const std::vector<std::string>& texts) {
    Json list = Json::array();
    for (const std::string& text : texts) {
        list.push_back(replacingInvalidUtf8(text));
    }
    put(key, std::move(list));
}

JsonReader::JsonReader(const Json& object) : object_(object) {
    if (!object.is_object()) {
        fail({}, "is not a keyed object");
    }
}

const Json* JsonReader::find(std::string_view key) const {
    if (error_) {
        return nullptr;
    }
    const auto found = object_.find(key);
    return found == object_.end() ? nullptr : &*found;
}

bool JsonReader::has(std::string_view key) const {
    const Json* value = find(key);
    return value != nullptr && !value->is_null();
}

void JsonReader::fail(std::string_view key, std::string problem) {
    if (!error_) {
        error_ = DecodingError{std::string(key), std::move(problem)};
    }
}

const Json* JsonReader::require(std::string_view key) {
    const Json* value = find(key);
    if (value == nullptr) {
        fail(key, "is missing");
    }
    return value;
}

void JsonReader::require(std::string_view key, std::string& text) {
    const Json* json = require(key);
    if (json == nullptr) {
        return;
    }
    if (!json->is_string()) {
        return fail(key, "is not text");
    }
    text = json->get_ref<const std::string&>();
}

void JsonReader::require(std::string_view key, bool& value) {
    const Json* json = require(key);
    if (json == nullptr) {
        return;
    }
    if (!json->is_boolean()) {
        return fail(key, "is neither true nor false");
    }
    value = json->get<bool>();
}

void JsonReader::require(std::string_view key, std::int64_t& value) {
    const Json* json = require(key);
    if (json == nullptr) {
        return;
    }
    if (const std::optional<std::int64_t> whole = wholeNumber(*json)) {
        value = *whole;
    } else {
        fail(key, "is not a whole number of 64 bits");
    }
}

void JsonReader::require(std::string_view key, double& value) {
    const Json* json = require(key);
    if (json == nullptr) {
        return;
    }
    if (!json->is_number()) {
        return fail(key, "is not a number");
    }
    value = json->get<double>();
}

void JsonReader::require(std::string_view key, Instant& value) {
    double seconds = 0;
    require(key, seconds);
    if (!error_) {
        value = instantFromCodedSeconds(seconds);
    }
}

void JsonReader::require(std::string_view key, Uuid& value) {
    std::string text;
    require(key, text);
    if (error_) {
        return;
    }
    if (const std::optional<Uuid> id = Uuid::fromText(text)) {
        value = *id;
    } else {
        fail(key, "is not an identifier");
    }
}

void JsonReader::require(std::string_view key, SharedText& value) {
    std::string text;
    require(key, text);
    if (!error_) {
        value = SharedText(text);
    }
}

void JsonReader::require(std::string_view key, std::vector<std::string>& texts) {
    const Json* json = require(key);
    if (json == nullptr) {
        return;
    }
    if (!json->is_array()) {
        return fail(key, "is not a list");
    }
    texts.clear();
    texts.reserve(json->size());
    for (const Json& element : *json) {
        if (!element.is_string()) {
            return fail(key, "holds something that is not text");
        }
        texts.push_back(element.get_ref<const std::string&>());
    }
}

void JsonReader::requireFileUrl(std::string_view key, FilePath& path) {
    std::string text;
    require(key, text);
    if (error_) {
        return;
    }
    if (std::optional<FilePath> location = FilePath::fromFileUrl(text)) {
        path = *std::move(location);
    } else {
        fail(key, "is not the location of a file");
    }
}

void JsonReader::readFileUrl(std::string_view key, std::optional<FilePath>& path) {
    path.reset();
    if (has(key)) {
        FilePath present;
        requireFileUrl(key, present);
        if (!error_) {
            path = std::move(present);
        }
    }
}

} // namespace lumeo
