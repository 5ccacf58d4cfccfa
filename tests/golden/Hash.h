#ifndef TESTS_GOLDEN_HASH_H
#define TESTS_GOLDEN_HASH_H

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

/// FNV-1a over the bits of numbers, low byte first, so that it is the same on every machine.
class Hash
{
public:
    void add(std::uint64_t value)
    {
        for (int byte = 0; byte < 8; ++byte) {
            m_value ^= (value >> (8 * byte)) & 0xff;
            m_value *= 0x100000001b3u;
        }
    }
    /// All NaNs count as one, and nothing else does.
    void add(double value)
    {
        std::uint64_t bits = 0x7ff8000000000000u;
        if (value == value)
            std::memcpy(&bits, &value, sizeof bits);
        add(bits);
    }
    void add(int value) { add(static_cast<std::uint64_t>(static_cast<std::int64_t>(value))); }
    void add(unsigned value) { add(static_cast<std::uint64_t>(value)); }
    void add(bool value) { add(value ? 1 : 0); }
    std::uint64_t value() const { return m_value; }

private:
    std::uint64_t m_value = 0xcbf29ce484222325u;
};

/// Numbers that are the same everywhere: the standard prescribes the generator, but none of its distributions. Never
/// two calls in one list of arguments, whose order is the compiler's choice.
class Random
{
public:
    explicit Random(unsigned seed) : m_generator(seed) {}
    unsigned word() { return static_cast<unsigned>(m_generator()); }
    int below(int count) { return static_cast<int>(word() % static_cast<unsigned>(count)); }
    double ratio() { return word() / 4294967295.0; }

private:
    std::mt19937 m_generator;
};

/// Something to be done many times with numbers that depend on the seed alone.
struct Operation
{
    const char* name;
    void (*run)(Hash& hash, Random& random);
};

/// The arithmetic, which needs no library at all.
const std::vector<Operation>& numericOperations();
/// The library from outside: faces, conversions, matching, output, text.
const std::vector<Operation>& libraryOperations();

inline std::uint64_t hashOf(const Operation& operation, unsigned seed)
{
    Hash hash;
    Random random(seed);
    operation.run(hash, random);
    return hash.value();
}

#endif
