#pragma once

#include <cstddef>
#include <random>

/// Pseudo-random draws that depend only on the seed; those of the standard library's distributions differ between
/// machines.
class CVRandom final {
public:
    explicit CVRandom(std::uint64_t seed) : mEngine(seed) {}

    /// A number from 0 to `count` - 1, all equally likely. `count` is not 0.
    [[nodiscard]] std::size_t below(std::size_t count) { return mEngine() % count; }
    /// A number from 0 to `count` - 1, of which the lower ones are far more likely, as with the shops of a household.
    /// `count` is not 0.
    [[nodiscard]] std::size_t skewed(std::size_t count) {
        constexpr std::size_t kSteps = 1U << 20;
        const double part = static_cast<double>(below(kSteps)) / kSteps;
        return static_cast<std::size_t>(static_cast<double>(count) * part * part * part);
    }
    /// True with a probability of `percent` per cent.
    [[nodiscard]] bool chance(std::size_t percent) { return below(100) < percent; }
    /// An amount of whole cents from `fromCents` to `toCents`, both included, in currency units.
    [[nodiscard]] double money(int fromCents, int toCents) {
        return static_cast<double>(fromCents + static_cast<int>(below(toCents - fromCents + 1U))) / 100.0;
    }

private:
    std::mt19937_64 mEngine;
};
