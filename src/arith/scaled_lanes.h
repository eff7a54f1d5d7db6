// Scaled Add and Sub on 8-, 16- and 32-bit elements in lanes of their own
// width (sixteen bytes a step), for the kinds None, One and Pos; 8u and 32s
// also for Neg and Bound (32s in double lanes). They compute exactly the
// rule of scaled.h:
//
// - None is the saturating instruction itself (paddsw, psubusb, ...).
// - 8u: the sum or difference of two bytes is exact in a 16-bit lane.
// - 16-bit: the sum or difference s needs 17 bits, so it is carried as
//   s = 2h + l with h = floor(s / 2) (16 bits) and l its low bit; s / 2^sf
//   rounded half to even is h / 2^(sf-1) rounded with l as a sticky bit.
//
// Rounding right shift of x by k >= 1 (x = q 2^k + rem, 0 <= rem < 2^k):
// q + ((rem + 2^(k-1) - 1 + c) >> k), c = 1 where a remainder of exactly one
// half rounds up (q odd, or a nonzero bit below x). The sum stays below
// 2^16 for k <= 15, so the shift is logical and nothing overflows.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "../common/fpenv.h"
#include "stream_store.h"

namespace zams::scaled::lanes {

// Operands in lanes of their own width: a source vector or a real constant.
template <class X> struct Operand { static constexpr bool ok = false; };
template <class P> struct Operand<In<P>> {
    using elem = P;
    static constexpr bool ok = sizeof(P) <= 4;
    static __m128i load(const In<P>& x, ptrdiff_t j) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(x.p + j));
    }
    static bool apart(const In<P>& x, const void* d, size_t bytes) { return disjoint(x.p, bytes, d, bytes); }
};
template <class P> struct Operand<Const<P>> {
    using elem = P;
    static constexpr bool ok = sizeof(P) <= 4;
    // 32-bit parts: a complex constant alternates, starting at part j.
    static __m128i load(const Const<P>& x, ptrdiff_t j) {
        if constexpr (sizeof(P) == 1) return _mm_set1_epi8(static_cast<char>(x.re));
        else if constexpr (sizeof(P) == 2) return _mm_set1_epi16(static_cast<short>(x.re));
        else {
            const int32_t e = int32_t(j & 1 ? x.im : x.re), o = int32_t(j & 1 ? x.re : x.im);
            return _mm_setr_epi32(e, o, e, o);
        }
    }
    static bool real(const Const<P>& x) { return sizeof(P) == 4 || x.re == x.im; }
    static bool apart(const Const<P>&, const void*, size_t) { return true; }
};
template <class X> bool real_operand(const X& x) {
    if constexpr (requires { Operand<X>::real(x); }) return Operand<X>::real(x);
    else return true;
}

template <class D, class S> struct Lanes { static constexpr bool ok = false; };
template <class D, F f, class A, class B> struct Lanes<D, Bin<f, A, B>> {
    static constexpr bool ok = [] {
        if constexpr (!Operand<A>::ok || !Operand<B>::ok) return false;
        else if constexpr (f == F::Mul && !std::is_same_v<D, Zam16u>) return false;  // 32-bit lanes serve them
        else return std::is_same_v<typename Operand<A>::elem, D> && std::is_same_v<typename Operand<B>::elem, D>;
    }();
};

// x rounded right by k (1..15) with the extra sticky bit c (0 or 1 in each
// lane, or'd with q's low bit); Signed: x is a signed lane.
template <bool Signed> inline __m128i round_shift(__m128i x, __m128i c, __m128i cnt, __m128i mask, __m128i bias) {
    const __m128i q = Signed ? _mm_sra_epi16(x, cnt) : _mm_srl_epi16(x, cnt);
    const __m128i one = _mm_set1_epi16(1);
    const __m128i up = _mm_and_si128(_mm_or_si128(c, q), one);
    const __m128i t = _mm_add_epi16(_mm_add_epi16(_mm_and_si128(x, mask), bias), up);
    return _mm_add_epi16(q, _mm_srl_epi16(t, cnt));
}

// Per-call constants of a rounding shift by k.
struct Shift {
    __m128i cnt, mask, bias;
    explicit Shift(int k)
        : cnt(_mm_cvtsi32_si128(k)),
          mask(_mm_set1_epi16(static_cast<short>((1 << k) - 1))),
          bias(_mm_set1_epi16(static_cast<short>((1 << (k - 1)) - 1))) {}
};

template <class V> inline void store(V* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }

// Scalar steps until d is 16-byte aligned or n is reached; returns the count.
template <class D> inline ptrdiff_t head_of(const D* d, ptrdiff_t n) {
    ptrdiff_t h = ptrdiff_t((16 - reinterpret_cast<uintptr_t>(d) % 16) % 16 / sizeof(D));
    return h > n ? n : h;
}

// The loop: scalar rule for the head and tail, body(j) for each vector of
// V elements (two vectors a step while they last). body returns the vector;
// long calls whose destination overlaps no source store it non-temporally.
template <class D, ScaleKind K, F f, class A, class B, class Body>
inline void drive(D* d, ptrdiff_t n, int sf, const Bin<f, A, B>& s, Body body) {
    constexpr ptrdiff_t V = 16 / ptrdiff_t(sizeof(D));
    ptrdiff_t j = head_of(d, n);
    for (ptrdiff_t i = 0; i < j; ++i) d[i] = rule<D, K>(s.r(i), sf);
    const size_t bytes = size_t(n) * sizeof(D);
    if (bytes >= kStreamMinBytes && reinterpret_cast<uintptr_t>(d + j) % 16 == 0 &&
        Operand<A>::apart(s.a, d, bytes) && Operand<B>::apart(s.b, d, bytes)) {
        for (; j + 2 * V <= n; j += 2 * V) {
            const __m128i r0 = body(j), r1 = body(j + V);
            _mm_stream_si128(reinterpret_cast<__m128i*>(d + j), r0);
            _mm_stream_si128(reinterpret_cast<__m128i*>(d + j + V), r1);
        }
        _mm_sfence();
    }
    for (; j + 2 * V <= n; j += 2 * V) {
        const __m128i r0 = body(j), r1 = body(j + V);
        store(d + j, r0);
        store(d + j + V, r1);
    }
    for (; j + V <= n; j += V) store(d + j, body(j));
    for (; j < n; ++j) d[j] = rule<D, K>(s.r(j), sf);
}


// 16-bit elements: D is the element type of both operands.
template <class D, ScaleKind K, F f, class A, class B>
void words(D* d, ptrdiff_t n, int sf, const Bin<f, A, B>& s) {
    constexpr bool sgn = std::is_signed_v<D>;
    // h is signed where s may be negative: every signed type and every difference.
    [[maybe_unused]] constexpr bool hs = sgn || f == F::Sub;
    const __m128i one = _mm_set1_epi16(1);
    const Shift sh(K == ScaleKind::Pos ? sf - 1 : 1);
    drive<D, K>(d, n, sf, s, [&](ptrdiff_t j) {
        const __m128i x = Operand<A>::load(s.a, j), y = Operand<B>::load(s.b, j);
        __m128i r;
        if constexpr (K == ScaleKind::None) {
            if constexpr (f == F::Add) r = sgn ? _mm_adds_epi16(x, y) : _mm_adds_epu16(x, y);
            else r = sgn ? _mm_subs_epi16(x, y) : _mm_subs_epu16(x, y);
        } else {
            const __m128i hx = sgn ? _mm_srai_epi16(x, 1) : _mm_srli_epi16(x, 1);
            const __m128i hy = sgn ? _mm_srai_epi16(y, 1) : _mm_srli_epi16(y, 1);
            const __m128i l = _mm_and_si128(_mm_xor_si128(x, y), one);
            __m128i h;
            if constexpr (f == F::Add) h = _mm_add_epi16(_mm_add_epi16(hx, hy), _mm_and_si128(_mm_and_si128(x, y), one));
            else h = _mm_sub_epi16(_mm_sub_epi16(hx, hy), _mm_and_si128(_mm_andnot_si128(x, y), one));
            if constexpr (K == ScaleKind::One) {
                // A tie (l = 1) goes to the even neighbour: h + 1 where h is odd.
                const __m128i up = _mm_and_si128(l, h);
                r = sgn ? _mm_adds_epi16(h, up) : _mm_add_epi16(h, up);  // 16s: 65535 / 2 saturates
            } else {
                r = round_shift<hs>(h, l, sh.cnt, sh.mask, sh.bias);
            }
            if constexpr (!sgn && f == F::Sub) r = _mm_and_si128(r, _mm_cmpeq_epi16(_mm_max_epu16(x, y), x));
        }
        return r;
    });
}

// 8u elements: None on bytes; the rest on exact 16-bit sums or differences.
template <ScaleKind K, F f, class A, class B> void bytes(Zam8u* d, ptrdiff_t n, int sf, const Bin<f, A, B>& s) {
    const int k = K == ScaleKind::Bound ? 8 : (sf < 0 ? (-sf < 8 ? -sf : 8) : 1);
    const Shift sh(K == ScaleKind::Pos ? sf : 1);
    const __m128i one = _mm_set1_epi16(1);
    const __m128i kcnt = _mm_cvtsi32_si128(k);
    const __m128i vlo = _mm_set1_epi16(-1), vhi = _mm_set1_epi16(static_cast<short>((255 >> k) + 1));
    auto scale = [&](__m128i v) {
        if constexpr (K == ScaleKind::One) {
            return _mm_srai_epi16(_mm_add_epi16(v, _mm_and_si128(_mm_srai_epi16(v, 1), one)), 1);
        } else if constexpr (K == ScaleKind::Pos) {
            return round_shift<true>(v, _mm_setzero_si128(), sh.cnt, sh.mask, sh.bias);
        } else {
            // Clamped to one step beyond the range first, so the shift saturates.
            return _mm_sll_epi16(_mm_min_epi16(_mm_max_epi16(v, vlo), vhi), kcnt);
        }
    };
    drive<Zam8u, K>(d, n, sf, s, [&](ptrdiff_t j) {
        const __m128i x = Operand<A>::load(s.a, j), y = Operand<B>::load(s.b, j);
        __m128i r;
        if constexpr (K == ScaleKind::None) {
            r = f == F::Add ? _mm_adds_epu8(x, y) : _mm_subs_epu8(x, y);
        } else {
            const __m128i z = _mm_setzero_si128();
            const __m128i x0 = _mm_unpacklo_epi8(x, z), x1 = _mm_unpackhi_epi8(x, z);
            const __m128i y0 = _mm_unpacklo_epi8(y, z), y1 = _mm_unpackhi_epi8(y, z);
            const __m128i s0 = f == F::Add ? _mm_add_epi16(x0, y0) : _mm_sub_epi16(x0, y0);
            const __m128i s1 = f == F::Add ? _mm_add_epi16(x1, y1) : _mm_sub_epi16(x1, y1);
            r = _mm_packus_epi16(scale(s0), scale(s1));
        }
        return r;
    });
}

// 32s elements. None adds with wrap-around and takes the bound by the sign
// of x where the signs say the result overflowed (the sign bit of the
// overflow word picks the lane). The other kinds work in double, where
// every step is exact: the 33-bit sum, its product by 2^-sf (Pos, One) or
// 2^k (Neg; at the bound, 2^32 saturates any nonzero sum), the clamp to the
// 32-bit range, and the conversion, which rounds half to even under the
// nearest rounding direction the call sets for itself.
template <ScaleKind K, F f, class A, class B> void dwords(Zam32s* d, ptrdiff_t n, int sf, const Bin<f, A, B>& s) {
    const __m128i smax = _mm_set1_epi32(INT32_MAX);
    const int e = K == ScaleKind::Bound ? 32 : -sf;
    const __m256d scale = _mm256_set1_pd(e >= 0 ? double(int64_t(1) << e) : 1.0 / double(int64_t(1) << -e));
    const __m256d dlo = _mm256_set1_pd(double(INT32_MIN)), dhi = _mm256_set1_pd(double(INT32_MAX));
    const RoundingScope nearest(Rounding::Nearest);
    drive<Zam32s, K>(d, n, sf, s, [&](ptrdiff_t j) {
        const __m128i x = Operand<A>::load(s.a, j), y = Operand<B>::load(s.b, j);
        if constexpr (K == ScaleKind::None) {
            const __m128i w = f == F::Add ? _mm_add_epi32(x, y) : _mm_sub_epi32(x, y);
            const __m128i over = f == F::Add ? _mm_andnot_si128(_mm_xor_si128(x, y), _mm_xor_si128(x, w))
                                             : _mm_and_si128(_mm_xor_si128(x, y), _mm_xor_si128(x, w));
            const __m128i bound = _mm_xor_si128(_mm_srai_epi32(x, 31), smax);
            return _mm_castps_si128(_mm_blendv_ps(_mm_castsi128_ps(w), _mm_castsi128_ps(bound), _mm_castsi128_ps(over)));
        } else {
            const __m256d xd = _mm256_cvtepi32_pd(x), yd = _mm256_cvtepi32_pd(y);
            const __m256d v = _mm256_mul_pd(f == F::Add ? _mm256_add_pd(xd, yd) : _mm256_sub_pd(xd, yd), scale);
            return _mm256_cvtpd_epi32(_mm256_min_pd(_mm256_max_pd(v, dlo), dhi));
        }
    });
}

// The unsigned 16-bit product saturated: the low half where the high half
// (pmulhuw) is 0, else 65535.
template <class A, class B> void words_mul(Zam16u* d, ptrdiff_t n, const Bin<F::Mul, A, B>& s) {
    const __m128i z = _mm_setzero_si128();
    drive<Zam16u, ScaleKind::None>(d, n, 0, s, [&](ptrdiff_t j) {
        const __m128i x = Operand<A>::load(s.a, j), y = Operand<B>::load(s.b, j);
        const __m128i over = _mm_andnot_si128(_mm_cmpeq_epi16(_mm_mulhi_epu16(x, y), z), _mm_cmpeq_epi16(z, z));
        return _mm_or_si128(_mm_mullo_epi16(x, y), over);
    });
}

// 16sc products, four elements (eight parts) a step. pmaddwd forms ad + bc
// against the swapped pairs, and ac and bd from the real and the imaginary
// parts alone, so that ac - bd is one subtraction. These fit 32 bits except
// ad + bc = 2^31 (every part -32768), which wraps to INT_MIN, a value no
// other sum reaches: those lanes take the rule's result for 2^31. The
// rounding shift is split (q + ((rem + bias + odd) >> sf)) so that no
// factor up to 31 overflows.
template <ScaleKind K> void cmul16(Zam16s* d, ptrdiff_t n, int sf, const CMul<int64_t, Zam16sc, Zam16sc>& s) {
    const auto* pa = reinterpret_cast<const Zam16s*>(s.a);
    const auto* pb = reinterpret_cast<const Zam16s*>(s.b);
    const bool splat = s.bstep == 0;
    const __m128i cst = _mm_set1_epi32(int32_t(uint16_t(s.b->re) | (uint32_t(uint16_t(s.b->im)) << 16)));
    const __m128i one = _mm_set1_epi32(1), imin = _mm_set1_epi32(INT32_MIN), lo16 = _mm_set1_epi32(0xFFFF);
    const int ps = K == ScaleKind::Pos ? sf : 1;
    const __m128i cnt = _mm_cvtsi32_si128(ps);
    const __m128i mask = _mm_set1_epi32(int32_t((uint32_t(1) << ps) - 1));
    const __m128i bias = _mm_set1_epi32(int32_t((uint32_t(1) << (ps - 1)) - 1));
    const int k = K == ScaleKind::Bound ? 16 : (sf < 0 ? -sf : 0);
    const __m128i kcnt = _mm_cvtsi32_si128(k);
    const __m128i vlo = _mm_set1_epi32((-32768 >> k) - 1), vhi = _mm_set1_epi32((32767 >> k) + 1);
    const __m128i big = _mm_set1_epi16(rule<Zam16s, K>(int64_t(1) << 31, sf));
    auto kern = [&](__m128i x) {
        if constexpr (K == ScaleKind::One) {
            return _mm_srai_epi32(_mm_add_epi32(x, _mm_and_si128(_mm_srai_epi32(x, 1), one)), 1);
        } else if constexpr (K == ScaleKind::Pos) {
            const __m128i q = _mm_sra_epi32(x, cnt);
            const __m128i t = _mm_add_epi32(_mm_add_epi32(_mm_and_si128(x, mask), bias), _mm_and_si128(q, one));
            return _mm_add_epi32(q, _mm_srl_epi32(t, cnt));
        } else if constexpr (K == ScaleKind::Neg || K == ScaleKind::Bound) {
            return _mm_sll_epi32(_mm_min_epi32(_mm_max_epi32(x, vlo), vhi), kcnt);
        } else {
            return x;
        }
    };
    // The scalar rule a pair at a time (a pair is read whole before it is written).
    auto pairs = [&](ptrdiff_t from, ptrdiff_t to) {
        for (ptrdiff_t j = from; j < to; j += 2) {
            const int64_t re = s.r(j), im = s.r(j + 1);
            d[j] = rule<Zam16s, K>(re, sf);
            d[j + 1] = rule<Zam16s, K>(im, sf);
        }
    };
    ptrdiff_t j = (head_of(d, n) + 1) & ~ptrdiff_t(1);
    if (j > n) j = n;
    pairs(0, j);
    for (; j + 8 <= n; j += 8) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pa + j));
        const __m128i y = splat ? cst : _mm_loadu_si128(reinterpret_cast<const __m128i*>(pb + j));
        const __m128i ys = _mm_shufflehi_epi16(_mm_shufflelo_epi16(y, 0xB1), 0xB1);
        const __m128i ac = _mm_madd_epi16(_mm_and_si128(x, lo16), y), bd = _mm_madd_epi16(_mm_andnot_si128(lo16, x), y);
        const __m128i re = _mm_sub_epi32(ac, bd);
        const __m128i im = _mm_madd_epi16(x, ys);
        const __m128i v0 = _mm_unpacklo_epi32(re, im), v1 = _mm_unpackhi_epi32(re, im);
        const __m128i r = _mm_packs_epi32(kern(v0), kern(v1));
        // An element's imaginary part is the high word of its 32-bit lane in r.
        const __m128i wrap = _mm_slli_epi32(_mm_cmpeq_epi32(im, imin), 16);
        store(d + j, _mm_blendv_epi8(r, big, wrap));
    }
    pairs(j, n);
}

// Calls kern(kind) for the kinds a kernel serves: None, One, Pos up to the
// factor max_pos, and Neg and Bound where Shifts; false for the others.
template <bool Shifts, class Kern> bool by_kind(ScaleKind k, int sf, int max_pos, Kern kern) {
    using K = ScaleKind;
    switch (k) {
        case K::None: kern(std::integral_constant<K, K::None>{}); return true;
        case K::One: kern(std::integral_constant<K, K::One>{}); return true;
        case K::Pos:
            if (sf > max_pos) return false;
            kern(std::integral_constant<K, K::Pos>{});
            return true;
        case K::Neg:
        case K::Bound:
            if constexpr (Shifts) {
                if (k == K::Neg) kern(std::integral_constant<K, K::Neg>{});
                else kern(std::integral_constant<K, K::Bound>{});
                return true;
            }
            return false;
        default: return false;
    }
}

inline bool run(Zam16s* d, ptrdiff_t n, int sf, ScaleKind k, const CMul<int64_t, Zam16sc, Zam16sc>& s) {
    return by_kind<true>(k, sf, 31, [&](auto K) { cmul16<K.value>(d, n, sf, s); });
}

// Runs s into d where these kernels serve the kind and factor; false otherwise.
template <class D, class S> bool run(D* d, ptrdiff_t n, int sf, ScaleKind k, const S& s) {
    if constexpr (!Lanes<D, S>::ok) {
        return false;
    } else {
        if (!real_operand(s.a) || !real_operand(s.b)) return false;
        if constexpr (std::is_same_v<S, Bin<F::Mul, decltype(s.a), decltype(s.b)>>) {
            if (k != ScaleKind::None) return false;
            words_mul(d, n, s);
            return true;
        } else if constexpr (std::is_same_v<D, Zam32s>) {
            return by_kind<true>(k, sf, 32, [&](auto K) { dwords<K.value>(d, n, sf, s); });
        } else if constexpr (std::is_same_v<D, Zam8u>) {
            return by_kind<true>(k, sf, 15, [&](auto K) { bytes<K.value>(d, n, sf, s); });
        } else {
            return by_kind<false>(k, sf, 16, [&](auto K) { words<D, K.value>(d, n, sf, s); });
        }
    }
}

}  // namespace zams::scaled::lanes
