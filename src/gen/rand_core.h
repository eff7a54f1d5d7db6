// The integer generator under every random fill: a linear congruential
// word plus a lag-3 subtract-with-borrow generator, exact to the bit.
#pragma once

#include <cstdint>

namespace zams::gen {

inline constexpr uint32_t kLcgMul = 69069u, kLcgAdd = 1013904243u;
// Two congruential steps as one: a^2 and a c + c, modulo 2^32.
inline constexpr uint32_t kLcgMul2 = 475559465u, kLcgAdd2 = 924302730u;
static_assert(kLcgMul2 == kLcgMul * kLcgMul && kLcgAdd2 == kLcgMul * kLcgAdd + kLcgAdd);
inline constexpr uint32_t kSeedX = 1131199209u;

struct Gen {
    uint32_t x, s0, s1, s2, b;  // b: the borrow, 0 or all ones
};

inline Gen seeded(uint32_t seed) {
    const uint32_t s1 = seed * kLcgMul + kLcgAdd;
    return {kSeedX, seed, s1, s1 * kLcgMul + kLcgAdd, ~0u};
}

// The subtract-with-borrow part of one step: t and the new borrow.
inline uint32_t swb(uint32_t hi, uint32_t lo, uint32_t& b) {
    uint32_t t = hi - lo + b;
    b = uint32_t(int32_t(t) >> 31);
    return t - (b & 18u);
}

inline int32_t step(Gen& g) {
    const uint32_t t = swb(g.s1, g.s2, g.b);
    g.s2 = g.s1;
    g.s1 = g.s0;
    g.s0 = t;
    g.x = g.x * kLcgMul + kLcgAdd;
    return int32_t(t + g.x);
}

// Two steps at once: the congruential words of both from the old x, so the
// two multiplications do not wait on each other.
inline void step2(Gen& g, int32_t& r1, int32_t& r2) {
    const uint32_t t1 = swb(g.s1, g.s2, g.b);
    const uint32_t t2 = swb(g.s0, g.s1, g.b);
    const uint32_t x1 = g.x * kLcgMul + kLcgAdd, x2 = g.x * kLcgMul2 + kLcgAdd2;
    g.s2 = g.s0;
    g.s1 = t1;
    g.s0 = t2;
    g.x = x2;
    r1 = int32_t(t1 + x1);
    r2 = int32_t(t2 + x2);
}

// n outputs into r.
inline void draw(Gen& state, int32_t* r, int n) {
    Gen g = state;
    int i = 0;
    for (; i + 2 <= n; i += 2) step2(g, r[i], r[i + 1]);
    if (i < n) r[i] = step(g);
    state = g;
}

}  // namespace zams::gen
