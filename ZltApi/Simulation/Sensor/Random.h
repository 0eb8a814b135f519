// A small random generator of known results: the same seed gives the same numbers with every library and compiler.
#pragma once

#include <cstdint>

namespace Simulation
{

// A counter stepped by an odd constant and scrambled by shifts and multiplications (SplitMix64).
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    // A generator for one of many independent streams of a seed.
    Random(std::uint64_t seed, std::uint64_t stream) : m_state(Scramble(seed) ^ Scramble(~stream)) {}

    std::uint64_t Next() { return Scramble(m_state += 0x9E3779B97F4A7C15U); }

    // A whole number from 0 to limit - 1; 0 for limit 0.
    std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(((Next() >> 32U) * limit) >> 32U); }

    // A number from low up to, but not including, high.
    double Between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(Next() >> 11U) * 0x1.0p-53;
    }

    // Mean 0, deviation 1, never beyond 6: the sum of twelve even distributions needs no library function.
    double Normal()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
        {
            sum += Between(0.0, 1.0);
        }
        return sum;
    }

private:
    static std::uint64_t Scramble(std::uint64_t value)
    {
        value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
        value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
        return value ^ (value >> 31U);
    }

    std::uint64_t m_state;
};

} // namespace Simulation
