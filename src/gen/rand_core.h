// The integer generator under every random fill: a linear congruential
// word plus a lag-3 subtract-with-borrow generator, exact to the bit.
#pragma once

#include <immintrin.h>

#include <array>
#include <cstddef>
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

// k congruential steps as one, x -> kLcgPow[k].mul x + kLcgPow[k].add
// (modulo 2^32), for k = 0 to 16.
struct LcgPow {
    uint32_t mul, add;
};
inline constexpr auto kLcgPow = [] {
    std::array<LcgPow, 17> p{};
    p[0] = {1u, 0u};
    for (size_t k = 1; k < p.size(); ++k) p[k] = {p[k - 1].mul * kLcgMul, p[k - 1].add * kLcgMul + kLcgAdd};
    return p;
}();
static_assert(kLcgPow[2].mul == kLcgMul2 && kLcgPow[2].add == kLcgAdd2);

// n outputs into r.
#if defined(__x86_64__)
// Two steps at a time: the five words of state and both steps' temporaries
// stay in registers.
inline void draw(Gen& state, int32_t* r, int n) {
    Gen g = state;
    int i = 0;
    for (; i + 2 <= n; i += 2) step2(g, r[i], r[i + 1]);
    if (i < n) r[i] = step(g);
    state = g;
}
#else
// i386 has seven free integer registers, fewer than the fused steps keep
// live: two passes over r instead, the subtract-with-borrow words alone
// (four words of state) and then the congruential words added sixteen at a
// time, four chains of four lanes each sixteen steps ahead. The same words.
inline void draw(Gen& state, int32_t* r, int n) {
    if (n <= 0) return;
    uint32_t s0 = state.s0, s1 = state.s1, s2 = state.s2, b = state.b;
    int k = 0;
    for (; k + 3 <= n; k += 3) {  // three steps: the words rotate back into place
        s2 = swb(s1, s2, b);
        s1 = swb(s0, s1, b);
        s0 = swb(s2, s0, b);
        r[k] = int32_t(s2);
        r[k + 1] = int32_t(s1);
        r[k + 2] = int32_t(s0);
    }
    for (; k < n; ++k) {
        const uint32_t t = swb(s1, s2, b);
        s2 = s1;
        s1 = s0;
        s0 = t;
        r[k] = int32_t(t);
    }
    state.s0 = s0;
    state.s1 = s1;
    state.s2 = s2;
    state.b = b;

    constexpr int kChains = 4, kStep = 4 * kChains;
    __m128i x[kChains];
    const __m128i x0 = _mm_set1_epi32(int(state.x));
    for (int c = 0; c < kChains; ++c) {  // the words of steps 4 c + 1 to 4 c + 4
        const auto& p = kLcgPow;
        const int f = 4 * c + 1;
        x[c] = _mm_add_epi32(
            _mm_mullo_epi32(x0, _mm_setr_epi32(int(p[f].mul), int(p[f + 1].mul), int(p[f + 2].mul), int(p[f + 3].mul))),
            _mm_setr_epi32(int(p[f].add), int(p[f + 1].add), int(p[f + 2].add), int(p[f + 3].add)));
    }
    const __m128i mul = _mm_set1_epi32(int(kLcgPow[kStep].mul)), add = _mm_set1_epi32(int(kLcgPow[kStep].add));
    for (k = 0; k + kStep < n; k += kStep) {  // leaves 1 to kStep words for the tail
        auto* q = reinterpret_cast<__m128i*>(r + k);
        for (int c = 0; c < kChains; ++c) {
            _mm_storeu_si128(q + c, _mm_add_epi32(_mm_loadu_si128(q + c), x[c]));
            x[c] = _mm_add_epi32(_mm_mullo_epi32(x[c], mul), add);
        }
    }
    alignas(16) uint32_t w[kStep];
    for (int c = 0; c < kChains; ++c) _mm_store_si128(reinterpret_cast<__m128i*>(w + 4 * c), x[c]);
    for (int j = 0; k + j < n; ++j) r[k + j] = int32_t(uint32_t(r[k + j]) + w[j]);
    state.x = w[n - k - 1];
}
#endif

}  // namespace zams::gen
