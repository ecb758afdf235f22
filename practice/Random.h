#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

namespace Practice {
/// A stream of numbers that a seed settles for good. The engines are fixed by the language or here;
/// the standard distributions are not, so the drawing is done here: the same seed makes the same
/// people with every compiler.
template<typename Engine>
class Drawing
{
public:
    explicit Drawing(typename Engine::result_type seed) : engine(seed) {}

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
    Engine engine;
};

/// An engine that costs nothing to begin, for streams of a dozen numbers. Neighbouring seeds give
/// streams that have nothing in common.
class SplitMix
{
public:
    using result_type = std::uint64_t;

    explicit SplitMix(std::uint64_t seed) : state(seed) {}

    std::uint32_t operator()()
    {
        state += 0x9E37'79B9'7F4A'7C15U;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58'476D'1CE4'E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D0'49BB'1331'11EBU;
        return static_cast<std::uint32_t>((mixed ^ (mixed >> 31)) >> 32);
    }

private:
    std::uint64_t state;
};

/// For one long stream, and for many short ones.
using Random = Drawing<std::mt19937>;
using ShortRandom = Drawing<SplitMix>;
} // namespace Practice
