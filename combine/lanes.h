#pragma once

/// Four numbers that are reckoned with side by side, one for each of four responses. Operators work lane by lane, and
/// so does `condition ? a : b`; the compiler makes of them what the machine has.

#include <cstddef>
#include <cstdint>
#include <limits>

// A function that works in lanes is built twice, and the machine takes the one that suits it when the program starts:
// without AVX2 a choice lane by lane costs some fifteen times as much.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define MRL_COMBINE_FAST __attribute__((target_clones("avx2", "default")))
#else
#define MRL_COMBINE_FAST
#endif

namespace mrl::combine {

constexpr std::size_t LANES = 4;

// The alignment is told, since the compiler's own differs with the instructions that it may use.
using Lanes = double __attribute__((vector_size(LANES * sizeof(double)), aligned(16)));
using LaneInts = std::int64_t __attribute__((vector_size(LANES * sizeof(std::int64_t)), aligned(16)));

/// One value for each of the four responses.
struct LaneValue
{
    Lanes at = {};
};

/// What the best of a pattern needs to know of the load cases of one action, by the sign of their responses.
struct LaneStats
{
    Lanes positive = {}; ///< sum of the responses above 0
    Lanes negative = {}; ///< sum of those below
    Lanes greatest = Lanes{} - std::numeric_limits<double>::infinity();
    Lanes least = Lanes{} + std::numeric_limits<double>::infinity();

    /// A response that isn't a number makes the sums none either.
    void add(const Lanes& response)
    {
        positive += response < 0 ? Lanes{} : response;
        negative += response < 0 ? response : Lanes{};
        greatest = response > greatest ? response : greatest;
        least = response < least ? response : least;
    }
};

/// The stats of the same responses with the other sign.
inline LaneStats mirrored(const LaneStats& stats)
{
    return {-stats.negative, -stats.positive, -stats.least, -stats.greatest};
}

} // namespace mrl::combine
