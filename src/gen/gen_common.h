// What the generator families share: the conversion of a double value to
// the element type, and the exact reduction of rFreq * n to a fraction of a
// cycle.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "../common/scale.h"
#include "../common/spec.h"
#include "../common/types.h"

namespace zams::gen {

inline constexpr double kPi = 3.141592653589793, kTwoPi = 6.283185307179586, kInvTwoPi = 0.15915494309189535;
inline constexpr double kQ15 = 3.0517578125e-5;  // 2^-15

// A generator's state is built where the caller's pointer points (Init has
// no other pointer to hand back), so it keeps the caller's alignment; Free
// invalidates one in caller memory too.
template <class H> constexpr Shape kStateShape{1, offsetof(H, owned), true};

// The allocating build of a state: init(mem) is the family's Init on the
// block.
template <class H, class Init> zamStatus alloc_state(void** pp, Init&& init) {
    if (!pp) return zamStatusNullPointer;
    return lay_alloc(pp, sizeof(H), 0, kStateShape<H>, [&](void** out, uint8_t* mem, uint8_t*) {
        *out = mem;
        return init(mem);
    });
}
template <class H> zamStatus free_state(void* p, int32_t id) { return release(p, {id}, kStateShape<H>); }

// Init: the state H zeroed at p, set(h) fills in the family's fields.
template <class H, class Set> zamStatus build_state(void* p, int32_t id, Set&& set) {
    if (!p) return zamStatusNullPointer;
    void* out;
    return lay_into(&out, p, kStateShape<H>, [&](uint8_t* base, int32_t& idOut) {
        H* h = reinterpret_cast<H*>(base);
        std::memset(static_cast<void*>(h), 0, sizeof *h);
        set(*h);
        idOut = id;
        return zamStatusOk;
    });
}

// A fill with a state: pointers, length, the state's kind, then run(h).
template <class H, class T, class Run> zamStatus with_state(T* d, int len, void* p, int32_t id, Run&& run) {
    if (zamStatus s = check_args(len, d, p)) return s;
    zamStatus s;
    H* h = state_of<H>(p, {id}, s);
    if (!h) return s;
    run(*h);
    return zamStatusOk;
}

// A phase for the next call, rounded to the caller's type P: a value that
// leaves [0, 2 pi) on the way (by rounding up to 2 pi) becomes 0.
template <class P> inline P phase_out(double next) {
    const P p = P(next);
    return next >= 0 && next < kTwoPi && double(p) < kTwoPi ? p : P(0);
}

// Floating elements take the value rounded to nearest; integer elements
// round it to nearest, ties to even, and saturate (not-a-number gives the
// lower bound).
template <class T> inline T round_to(double v) {
    if constexpr (std::is_floating_point_v<T>) return T(v);
    else return round_sat<T>(v, traits<T>::min);
}

// The fractional part of f * n, for 0 <= f < 1 and 0 <= n < 2^63, with the
// rounding of one sum of six terms in [0, 1) and no error that grows with
// n: f splits into two halves of 26 significant bits (Dekker's split) and n
// into three 21-bit pieces, so each product of a half and a piece is exact,
// and so is its fractional part.
inline double frac_product(double f, int64_t n) {
    const double c = f * 134217729.0;  // 2^27 + 1
    const double fh = c - (c - f), fl = f - fh;
    double sum = 0;
    for (int k = 0; k < 3; ++k) {
        const double piece = double((n >> (21 * k)) & 0x1fffff) * pow2(21 * k);
        for (double part : {fh, fl}) {
            const double p = part * piece;
            sum += p - std::floor(p);
        }
    }
    return sum - std::floor(sum);
}

}  // namespace zams::gen
