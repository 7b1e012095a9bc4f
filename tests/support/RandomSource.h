#pragma once

#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <random>

namespace ts::test
{

/// Random values for property tests. The seed is fixed unless the variable TS_TEST_SEED sets another; put
/// the source into each assertion's message, so that a failure can be repeated.
class RandomSource
{
  public:
    RandomSource() : RandomSource(SeedFromEnvironment()) {}
    explicit RandomSource(std::uint64_t seed) : m_seed(seed), m_engine(seed) {}

    /// A value from `low` to `high`, both included.
    template <typename T>
    T Between(T low, T high)
    {
        return std::uniform_int_distribution<T>(low, high)(m_engine);
    }

    bool Chance(int percent) { return Between(1, 100) <= percent; }

    template <typename Container>
    const auto& OneOf(const Container& choices)
    {
        return choices[Between<std::size_t>(0, std::size(choices) - 1)];
    }

    friend std::ostream& operator<<(std::ostream& out, const RandomSource& source)
    {
        return out << "TS_TEST_SEED=" << source.m_seed;
    }

  private:
    static std::uint64_t SeedFromEnvironment()
    {
        const char* text = std::getenv("TS_TEST_SEED");
        return text == nullptr ? 20261121 : std::strtoull(text, nullptr, 10);
    }

    std::uint64_t m_seed;
    std::mt19937_64 m_engine;
};

} // namespace ts::test
