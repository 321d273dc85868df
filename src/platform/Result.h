#pragma once

#include <cassert>
#include <utility>
#include <variant>

namespace lumeo {

/// A value, or the reason why there is none. Failures are values: what happens to one file never leaves a
/// function as an exception.
///
///     Result<FileStatus, FileError> status = fileSystem.status(path);
///     if (!status) return status.error();
///     use(status->size);
template<class Value, class Error>
class [[nodiscard]] Result {
public:
    Result(Value value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] bool hasValue() const noexcept { return state_.index() == 0; }
    explicit operator bool() const noexcept { return hasValue(); }

    Value& value() & {
        assert(hasValue());
        return *std::get_if<0>(&state_);
    }
    const Value& value() const& {
        assert(hasValue());
        return *std::get_if<0>(&state_);
    }
    Value&& value() && {
        assert(hasValue());
        return std::move(*std::get_if<0>(&state_));
    }
    Value& operator*() & { return value(); }
    const Value& operator*() const& { return value(); }
    Value&& operator*() && { return std::move(*this).value(); }
    Value* operator->() { return &value(); }
    const Value* operator->() const { return &value(); }

    const Error& error() const& {
        assert(!hasValue());
        return *std::get_if<1>(&state_);
    }
    Error&& error() && {
        assert(!hasValue());
        return std::move(*std::get_if<1>(&state_));
    }

private:
    std::variant<Value, Error> state_;
};

/// The outcome of an action that returns nothing: done, or the reason why not.
template<class Error>
class [[nodiscard]] Result<void, Error> {
public:
    Result() = default;
    Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] bool hasValue() const noexcept { return state_.index() == 0; }
    explicit operator bool() const noexcept { return hasValue(); }

    const Error& error() const& {
        assert(!hasValue());
        return *std::get_if<1>(&state_);
    }
    Error&& error() && {
        assert(!hasValue());
        return std::move(*std::get_if<1>(&state_));
    }

private:
    std::variant<std::monostate, Error> state_;
};

} // namespace lumeo
