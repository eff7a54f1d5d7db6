// Scaled products of 32-bit parts in 64-bit lanes, four parts a step (pmuldq
// gives the exact signed 32x32 -> 64 products of the even lanes): Mul and
// MulC on 32s, Mul_16s32s, Mul_32s32sc, AddProduct into 32s, and the 32sc
// products (ac - bd, ad + bc in 64 bits).
//
// The rule on a 64-bit lane x, exactly as in scaled.h:
// - right by k (1..62) where |x| <= 2^62 + 2^32: (x + 2^(k-1) - 1 + bit k of
//   x) >> k as one logical shift of the sum offset by 2^63 (see Rule64);
// - right by k (1..63), any x: q = floor(x / 2^k) by an arithmetic shift built from
//   a logical one (x xor its sign mask, shifted, xor the mask again), then
//   q + ((rem + 2^(k-1) - 1 + (q & 1)) >> k) with rem = x mod 2^k: the sum
//   stays below 2^(k+1), so the logical shift neither overflows nor errs;
// - left by k: x is clamped to [-2^31, 2^31] first (beyond it the result
//   saturates either way), then shifted by at most 31, which cannot
//   overflow; a factor at the bound shifts by 31, so any nonzero x saturates;
// - then saturation to 32 bits by two 64-bit compares.
//
// Of the complex sums only ad + bc = 2^63 (every part -2^31) leaves 64
// bits; it wraps to INT64_MIN, which no other sum reaches, and those lanes
// take the rule's result for 2^63.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

namespace zams::scaled::lanes64 {

template <ScaleKind K, bool Wide> struct Rule64 {
    __m128i cnt, mask, bias, one, lo, hi, clo, chi, off, unoff;
    explicit Rule64(int sf) {
        const int k = K == ScaleKind::One || K == ScaleKind::Pos ? sf
                      : K == ScaleKind::Bound                    ? 31
                      : K == ScaleKind::Neg                      ? (-sf < 31 ? -sf : 31)
                                                                 : 0;
        cnt = _mm_cvtsi32_si128(k);
        const uint64_t m = k > 0 ? (uint64_t(1) << k) - 1 : 0;
        mask = _mm_set1_epi64x(int64_t(m));
        const uint64_t b = k > 1 ? (uint64_t(1) << (k - 1)) - 1 : 0;
        bias = _mm_set1_epi64x(int64_t(b));
        off = _mm_set1_epi64x(int64_t(b + (uint64_t(1) << 63)));
        unoff = _mm_set1_epi64x(k > 0 && k < 64 ? int64_t(uint64_t(1) << (63 - k)) : 0);
        one = _mm_set1_epi64x(1);
        lo = _mm_set1_epi64x(INT32_MIN);
        hi = _mm_set1_epi64x(INT32_MAX);
        clo = _mm_set1_epi64x(-(int64_t(1) << 31));
        chi = _mm_set1_epi64x(int64_t(1) << 31);
    }
    static __m128i sign(__m128i x) { return _mm_srai_epi32(_mm_shuffle_epi32(x, 0xF5), 31); }
    static __m128i pick(__m128i x, __m128i y, __m128i m) { return _mm_blendv_epi8(x, y, m); }
    __m128i saturate(__m128i x) const {
        x = pick(x, hi, _mm_cmpgt_epi64(x, hi));
        return pick(x, lo, _mm_cmpgt_epi64(lo, x));
    }
    // The result in the low 32 bits of each lane (sign-extended).
    __m128i operator()(__m128i x) const {
        if constexpr ((K == ScaleKind::One || K == ScaleKind::Pos) && !Wide) {
            // |x| <= 2^62 + 2^32: x + 2^63 + bias + (bit k of x) stays below
            // 2^64, so one logical shift rounds; 2^(63-k) takes the offset off.
            const __m128i odd = _mm_and_si128(_mm_srl_epi64(x, cnt), one);
            const __m128i t = _mm_add_epi64(_mm_add_epi64(x, off), odd);
            return saturate(_mm_sub_epi64(_mm_srl_epi64(t, cnt), unoff));
        } else if constexpr (K == ScaleKind::One || K == ScaleKind::Pos) {
            const __m128i s = sign(x);
            const __m128i q = _mm_xor_si128(_mm_srl_epi64(_mm_xor_si128(x, s), cnt), s);
            const __m128i t = _mm_add_epi64(_mm_add_epi64(_mm_and_si128(x, mask), bias), _mm_and_si128(q, one));
            return saturate(_mm_add_epi64(q, _mm_srl_epi64(t, cnt)));
        } else if constexpr (K == ScaleKind::Neg || K == ScaleKind::Bound) {
            x = pick(x, chi, _mm_cmpgt_epi64(x, chi));
            x = pick(x, clo, _mm_cmpgt_epi64(clo, x));
            return saturate(_mm_sll_epi64(x, cnt));
        } else {
            return saturate(x);
        }
    }
};

// Results of the even lanes (e) and the odd ones (o) into four 32-bit lanes.
inline __m128i merge(__m128i e, __m128i o) { return _mm_blend_epi16(e, _mm_slli_epi64(o, 32), 0xCC); }
inline __m128i load(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
inline __m128i odd(__m128i x) { return _mm_srli_epi64(x, 32); }

// Parts j..j+3 of an operand as four 32-bit lanes.
inline __m128i load32(const In<Zam32s>& x, ptrdiff_t j) { return load(x.p + j); }
inline __m128i load32(const In<Zam16s>& x, ptrdiff_t j) {
    return _mm_cvtepi16_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(x.p + j)));
}
inline __m128i load32(const Const<Zam32s>& x, ptrdiff_t) { return _mm_set1_epi32(int32_t(x.re)); }

// The exact products of four parts: the even ones in e, the odd ones in o.
inline void products64(__m128i x, __m128i y, __m128i& e, __m128i& o) {
    e = _mm_mul_epi32(x, y);
    o = _mm_mul_epi32(odd(x), odd(y));
}

// a * b for 32s or 16s parts, b a source or a real constant; with C, plus
// c's parts sign-extended to 64 bits (c + a * b).
struct NoAcc {};
inline constexpr NoAcc kNoAcc{};
template <class A, class B, class C = NoAcc> struct Prod {
    const A& a;
    const B& b;
    const C& c;
    static constexpr bool pairs = false, wide = false;
    template <class R> __m128i operator()(ptrdiff_t j, const R& rule) const {
        __m128i e, o;
        products64(load32(a, j), load32(b, j), e, o);
        if constexpr (!std::is_same_v<C, NoAcc>) {
            const __m128i z = load32(c, j);
            e = _mm_add_epi64(e, _mm_cvtepi32_epi64(_mm_shuffle_epi32(z, 0x08)));
            o = _mm_add_epi64(o, _mm_cvtepi32_epi64(_mm_shuffle_epi32(z, 0x0D)));
        }
        return merge(rule(e), rule(o));
    }
};

// A real 32s vector times a complex one: each real factor serves both parts.
struct RProd {
    const RMul<Zam32s, Zam32sc>& s;
    static constexpr bool pairs = true, wide = false;
    template <class R> __m128i operator()(ptrdiff_t j, const R& rule) const {
        const __m128i r = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(s.a + (j >> 1)));
        __m128i e, o;
        products64(_mm_unpacklo_epi32(r, r), load(s.b + (j >> 1)), e, o);
        return merge(rule(e), rule(o));
    }
};

// Complex products of 32sc, two elements a step; bstep 0: a constant.
struct CProd {
    const CMul<I128, Zam32sc, Zam32sc>& s;
    __m128i cst, imin, big;
    static constexpr bool pairs = true, wide = true;
    CProd(const CMul<I128, Zam32sc, Zam32sc>& s_, int sf)
        : s(s_),
          cst(_mm_setr_epi32(s_.b->re, s_.b->im, s_.b->re, s_.b->im)),
          imin(_mm_set1_epi64x(INT64_MIN)),
          big(_mm_set1_epi64x(rule<Zam32s>(I128{uint64_t(1) << 63, 0}, sf))) {}
    template <class R> __m128i operator()(ptrdiff_t j, const R& rule) const {
        const __m128i x = load(s.a + (j >> 1));
        const __m128i y = s.bstep ? load(s.b + (j >> 1)) : cst;
        const __m128i ys = _mm_shuffle_epi32(y, 0xB1);
        const __m128i re = _mm_sub_epi64(_mm_mul_epi32(x, y), _mm_mul_epi32(odd(x), odd(y)));
        const __m128i im = _mm_add_epi64(_mm_mul_epi32(x, ys), _mm_mul_epi32(odd(x), odd(ys)));
        const __m128i imr = _mm_blendv_epi8(rule(im), big, _mm_cmpeq_epi64(im, imin));
        return merge(rule(re), imr);
    }
};

// The scalar rule on parts [from, to), a pair at a time where a part reads
// both parts of its element (in place, the pair is read before it is written).
template <ScaleKind K> Zam32s one(int64_t r, int sf) { return rule<Zam32s, K>(r, sf); }
template <ScaleKind K> Zam32s one(I128 r, int sf) { return rule<Zam32s>(r, sf); }
template <ScaleKind K, class S> void scalar(Zam32s* d, ptrdiff_t from, ptrdiff_t to, int sf, const S& s) {
    if constexpr (pairs_v<S>) {
        for (ptrdiff_t j = from; j < to; j += 2) {
            const auto re = s.r(j), im = s.r(j + 1);
            d[j] = one<K>(re, sf);
            d[j + 1] = one<K>(im, sf);
        }
    } else {
        for (ptrdiff_t j = from; j < to; ++j) d[j] = one<K>(s.r(j), sf);
    }
}

// Scalar steps until d is 16-byte aligned (whole elements), four parts a
// vector step, scalar tail.
template <ScaleKind K, class S, class V> void drive(Zam32s* d, ptrdiff_t n, int sf, const S& s, const V& vec) {
    const Rule64<K, V::wide> r(sf);
    ptrdiff_t j = ptrdiff_t((16 - reinterpret_cast<uintptr_t>(d) % 16) % 16 / sizeof(Zam32s));
    if (V::pairs) j = (j + 1) & ~ptrdiff_t(1);
    if (j > n) j = n;
    scalar<K>(d, 0, j, sf, s);
    for (; j + 4 <= n; j += 4) _mm_storeu_si128(reinterpret_cast<__m128i*>(d + j), vec(j, r));
    scalar<K>(d, j, n, sf, s);
}

// Runs s into d where these kernels serve it; false otherwise. The factor
// limits: the rounding shift serves up to 63, every family here but the
// complex product zeroes (or is exact to zero) above 62.
template <class D, class S> bool run(D*, ptrdiff_t, int, ScaleKind, const S&) { return false; }

template <class X> constexpr bool part32 = std::is_same_v<X, In<Zam32s>> || std::is_same_v<X, In<Zam16s>>;

template <class A, class B> bool run(Zam32s* d, ptrdiff_t n, int sf, ScaleKind k, const Bin<F::Mul, A, B>& s) {
    if constexpr (part32<A> && (part32<B> || std::is_same_v<B, Const<Zam32s>>)) {
        const Prod<A, B> v{s.a, s.b, kNoAcc};
        return lanes::by_kind<true>(k, sf, 62, [&](auto K) { drive<K.value>(d, n, sf, s, v); });
    } else {
        return false;
    }
}

template <class A> bool run(Zam32s* d, ptrdiff_t n, int sf, ScaleKind k, const MulAcc<A, A, In<Zam32s>>& s) {
    if constexpr (part32<A>) {
        const Prod<A, A, In<Zam32s>> v{s.a, s.b, s.c};
        return lanes::by_kind<true>(k, sf, 62, [&](auto K) { drive<K.value>(d, n, sf, s, v); });
    } else {
        return false;
    }
}

inline bool run(Zam32s* d, ptrdiff_t n, int sf, ScaleKind k, const RMul<Zam32s, Zam32sc>& s) {
    const RProd v{s};
    return lanes::by_kind<true>(k, sf, 62, [&](auto K) { drive<K.value>(d, n, sf, s, v); });
}

inline bool run(Zam32s* d, ptrdiff_t n, int sf, ScaleKind k, const CMul<I128, Zam32sc, Zam32sc>& s) {
    const CProd v(s, sf);
    return lanes::by_kind<true>(k, sf, 63, [&](auto K) { drive<K.value>(d, n, sf, s, v); });
}

}  // namespace zams::scaled::lanes64
