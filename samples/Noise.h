#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

namespace lumeo::samples {

/// Random values that can be repeated: the same seed gives the same values on every machine.
class Noise {
public:
    /// The seed has two parts, the library's seed and the file's number, so that each file of a library has
    /// its own sequence.
    explicit Noise(std::uint64_t seed, std::uint64_t part = 0)
        : state_(mixed(mixed(seed) + part * 0x9E3779B97F4A7C15U)) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        return mixed(state_);
    }

    /// Between `least` and `most`, both included.
    std::int64_t between(std::int64_t least, std::int64_t most) {
        return least + static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(most - least + 1));
    }

    bool oneIn(std::int64_t count) { return between(1, count) == 1; }

    /// The index of one of `weights`. The probability of each is proportional to its weight.
    std::size_t choice(std::initializer_list<int> weights) {
        int total = 0;
        for (const int weight : weights) {
            total += weight;
        }
        auto rest = between(1, total);
        std::size_t index = 0;
        for (const int weight : weights) {
            rest -= weight;
            if (rest <= 0) {
                break;
            }
            ++index;
        }
        return index;
    }

    /// Any bytes.
    std::string bytes(std::size_t count);

    /// Bytes like the coded pixels of a photo. They have no 0xFF, which would start a marker.
    std::string pixels(std::size_t count);

    /// Upper-case letters and digits, as in serial numbers.
    std::string letters(std::size_t count);

private:
    static std::uint64_t mixed(std::uint64_t value) {
        value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
        value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
        return value ^ (value >> 31U);
    }

    std::uint64_t state_;
};

} // namespace lumeo::samples
