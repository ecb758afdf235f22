#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

namespace Practice {
/// A stream of numbers that a seed settles for good. The engine is fixed by the language; the
/// standard distributions are not, so the drawing is done here: the same seed makes the same people
/// with every compiler.
class Random
{
public:
    explicit Random(std::uint32_t seed) : engine(seed) {}

    /// A whole number from 0 to `count` - 1.
    std::uint32_t Below(std::uint32_t count)
    {
        return static_cast<std::uint32_t>((std::uint64_t{engine()} * count) >> 32);
    }

    int Between(int first, int last)
    {
        return first + static_cast<int>(Below(static_cast<std::uint32_t>(last - first + 1)));
    }

    bool Percent(int share) { return Below(100) < static_cast<std::uint32_t>(share); }

    template<typename Row, std::size_t count>
    const Row &OneOf(const std::array<Row, count> &rows)
    {
        return rows[Below(static_cast<std::uint32_t>(count))];
    }

    template<typename Row>
    const Row &OneOf(std::span<const Row> rows)
    {
        return rows[Below(static_cast<std::uint32_t>(rows.size()))];
    }

private:
    std::mt19937 engine;
};
} // namespace Practice
