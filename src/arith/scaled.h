// Scaled integer arithmetic, the machinery under every _Sfs/_ISfs function
// of the Add, Sub, Mul and AddProduct families:
//
// - a stream yields the exact result r of part j of the operation (an
//   int64_t, or a 128-bit I128 where 64 bits do not hold it), and, for 8- and
//   16-bit sources, eight of them at once as two vectors of 32-bit lanes;
// - the scale rule turns r into the destination type; the kernel is chosen
//   once per call by the scale factor (ScaleKind), and the vector kernels
//   compute exactly what the scalar rule states;
// - the dispatch limits of every family live in the table `lim` below.
#pragma once

#include <immintrin.h>

#include <climits>
#include <cstddef>
#include <cstdint>

#include "../common/check.h"
#include "../common/scale.h"
#include "../common/types.h"

namespace zams::scaled {

// The limits of every family: above zero_above each result is 0 (the call
// goes to the zeroing function); at or below bound_at_or_below only the sign
// of r counts. kNoZero: the family computes every positive factor.
inline constexpr int kNoZero = INT_MAX;
namespace lim {
inline constexpr ScaleLimits add_8u{9, -8};           // Add, AddC
inline constexpr ScaleLimits sub_8u{8, -8};           // Sub, SubC, SubCRev
inline constexpr ScaleLimits mul_8u{16, -8};          // Mul, MulC
inline constexpr ScaleLimits addsub_16s{16, -16};     // Add, AddC, Sub, SubC, SubCRev; 16sc Add, Sub
inline constexpr ScaleLimits add_16u{17, kNoLimit};   // Add, AddC
inline constexpr ScaleLimits sub_16u{16, kNoLimit};   // Sub, SubC, SubCRev
inline constexpr ScaleLimits mul_16s{30, -16};        // Mul, MulC
inline constexpr ScaleLimits mul_16sc{31, -16};       // Mul, MulC
inline constexpr ScaleLimits mul_16u16s{31, -15};
inline constexpr ScaleLimits mul_16u{32, -16};        // Mul, MulC (only at factor 0)
inline constexpr ScaleLimits addsub_32s{32, -31};     // Add, AddC, Sub, SubC, SubCRev; 32sc too
inline constexpr ScaleLimits mul_32s{62, -32};        // Mul, MulC, Mul_Low
inline constexpr ScaleLimits mul_32sc{kNoZero, -32};  // Mul, MulC, Mul_32s32sc
inline constexpr ScaleLimits mul_16s32s{kNoZero, -31};
inline constexpr ScaleLimits addprod_16s{31, -15};
inline constexpr ScaleLimits addprod_16s32s{32, -31};
inline constexpr ScaleLimits addprod_32s{62, -31};
inline constexpr ScaleLimits add_64s{kNoZero, -63};
}  // namespace lim

// ------------------------------------------------------------ 128 bits --
// Two's complement in two words, enough for a sum of two 64-bit values or
// the difference of two 62-bit products.
struct I128 {
    uint64_t lo;
    int64_t hi;
};
inline I128 wide(int64_t v) { return {static_cast<uint64_t>(v), v < 0 ? -1 : 0}; }
inline I128 operator+(I128 a, I128 b) {
    uint64_t lo = a.lo + b.lo;
    return {lo, static_cast<int64_t>(static_cast<uint64_t>(a.hi) + static_cast<uint64_t>(b.hi) + (lo < a.lo))};
}
inline I128 operator-(I128 a) {
    uint64_t lo = ~a.lo + 1;
    return {lo, static_cast<int64_t>(~static_cast<uint64_t>(a.hi) + (lo == 0))};
}
inline I128 operator-(I128 a, I128 b) { return a + -b; }
inline bool fits64(I128 a) { return a.hi == (static_cast<int64_t>(a.lo) >> 63); }

// ----------------------------------------------------------- the rule --
// Kernel kind by kind; each is the scale rule restricted to its factors.
template <class D, ScaleKind K> inline D rule(int64_t r, int sf) {
    if constexpr (K == ScaleKind::None) {
        return saturate<D>(r);
    } else if constexpr (K == ScaleKind::One) {
        return saturate<D>((r + ((r >> 1) & 1)) >> 1);
    } else if constexpr (K == ScaleKind::Pos) {
        // (r + 2^(sf-1) - 1 + bit sf of r) >> sf; |r| < 2^62 + 2^32 leaves room.
        if (sf >= 63) return saturate<D>(shr_round_even(r, sf));
        return saturate<D>((r + ((int64_t(1) << (sf - 1)) - 1) + ((r >> sf) & 1)) >> sf);
    } else if constexpr (K == ScaleKind::Neg) {
        return shl_saturate<D>(r, sf);
    } else {
        return r > 0 ? traits<D>::max : (r < 0 ? traits<D>::min : D(0));
    }
}

// The same rule on 128 bits (|r| <= 2^64). r = 2h + b with h = r >> 1,
// which fits 64 bits; floor(r / 2^sf) = h >> (sf - 1).
template <class D> inline D rule(I128 r, int sf) {
    const int64_t h = static_cast<int64_t>((r.lo >> 1) | (static_cast<uint64_t>(r.hi) << 63));
    const bool sign = r.hi < 0;
    if (sf <= 0) {
        if (!fits64(r)) return sign ? traits<D>::min : traits<D>::max;
        return shl_saturate<D>(static_cast<int64_t>(r.lo), sf);
    }
    if (sf > 64) return D(0);  // |r| / 2^sf <= 1/2, a tie only for -2^64, which rounds to 0
    const uint64_t b = r.lo & 1;
    int64_t q = h >> (sf - 1);
    const uint64_t remh = static_cast<uint64_t>(h) & ((uint64_t(1) << (sf - 1)) - 1);
    bool up;
    if (sf == 1) {
        up = b && (q & 1);  // an exact half: round to even
    } else {
        const uint64_t quarter = uint64_t(1) << (sf - 2);  // half of 2^(sf-1), in units of h
        up = remh > quarter || (remh == quarter && (b || (q & 1)));
    }
    if (up && q != INT64_MAX) ++q;  // q = INT64_MAX saturates either way
    return saturate<D>(q);
}

// --------------------------------------------------------------- streams --
// Exact operands. r(j) is part j as an exact integer; v(j, lo, hi) gives parts
// j..j+7 as 32-bit lanes (8- and 16-bit sources only).
template <class S> struct In {
    const S* p;
    static constexpr int64_t max_abs = -int64_t(traits<S>::min) > int64_t(traits<S>::max)
                                           ? -int64_t(traits<S>::min)
                                           : int64_t(traits<S>::max);
    static constexpr bool vec = sizeof(S) <= 2;
    int64_t r(ptrdiff_t j) const { return p[j]; }
    // Parts j..j+7 in 16-bit lanes (8u zero-extended).
    __m128i w(ptrdiff_t j) const {
        if constexpr (sizeof(S) == 1) return _mm_cvtepu8_epi16(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + j)));
        else return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + j));
    }
    void v(ptrdiff_t j, __m128i& lo, __m128i& hi) const {
        if constexpr (sizeof(S) == 1) {
            __m128i x = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + j));
            lo = _mm_cvtepu8_epi32(x);
            hi = _mm_cvtepu8_epi32(_mm_srli_si128(x, 4));
        } else if constexpr (sizeof(S) == 2) {
            __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + j));
            if constexpr (std::is_signed_v<S>) {
                lo = _mm_cvtepi16_epi32(x);
                hi = _mm_cvtepi16_epi32(_mm_srli_si128(x, 8));
            } else {
                lo = _mm_cvtepu16_epi32(x);
                hi = _mm_cvtepu16_epi32(_mm_srli_si128(x, 8));
            }
        }
    }
};

// A constant of type S (a complex constant alternates its parts).
template <class S> struct Const {
    int64_t re, im;
    static constexpr int64_t max_abs = In<S>::max_abs;
    static constexpr bool vec = In<S>::vec;
    int64_t r(ptrdiff_t j) const { return (j & 1) ? im : re; }
    void v(ptrdiff_t, __m128i& lo, __m128i& hi) const { lo = hi = _mm_set1_epi32(static_cast<int32_t>(re)); }
    __m128i w(ptrdiff_t) const { return _mm_set1_epi16(static_cast<short>(re)); }
};

// Exact products of parts j..j+7 as 32-bit lanes. Two 16s or two 8u
// operands multiply in 16-bit lanes (pmullw and pmulhw give the low and
// high halves; an 8u product fits 16 bits unsigned); others widen first.
// op over parts j..j+7 of a and b widened to 32-bit lanes.
template <class A, class B, class Op> void widened(const A& a, const B& b, ptrdiff_t j, __m128i& lo, __m128i& hi, Op op) {
    __m128i a0, a1, b0, b1;
    a.v(j, a0, a1);
    b.v(j, b0, b1);
    lo = op(a0, b0);
    hi = op(a1, b1);
}

template <class X> struct elem_of { using type = void; };
template <class P> struct elem_of<In<P>> { using type = P; };
template <class P> struct elem_of<Const<P>> { using type = P; };
template <class A, class B> void products(const A& a, const B& b, ptrdiff_t j, __m128i& lo, __m128i& hi) {
    using P = typename elem_of<A>::type;
    if constexpr (std::is_same_v<P, typename elem_of<B>::type> && std::is_same_v<P, Zam16s>) {
        const __m128i x = a.w(j), y = b.w(j);
        const __m128i l = _mm_mullo_epi16(x, y), h = _mm_mulhi_epi16(x, y);
        lo = _mm_unpacklo_epi16(l, h);
        hi = _mm_unpackhi_epi16(l, h);
    } else if constexpr (std::is_same_v<P, typename elem_of<B>::type> && std::is_same_v<P, Zam8u>) {
        const __m128i p = _mm_mullo_epi16(a.w(j), b.w(j));
        lo = _mm_cvtepu16_epi32(p);
        hi = _mm_cvtepu16_epi32(_mm_srli_si128(p, 8));
    } else {
        widened(a, b, j, lo, hi, [](__m128i x, __m128i y) { return _mm_mullo_epi32(x, y); });
    }
}
template <class S> Const<S> konst(S v) { return {v, v}; }

enum class F { Add, Sub, Mul };

// a F b, part by part.
template <F f, class A, class B> struct Bin {
    A a;
    B b;
    static constexpr int64_t max_abs = f == F::Mul ? A::max_abs * B::max_abs : A::max_abs + B::max_abs;
    static constexpr bool vec = A::vec && B::vec && max_abs <= INT32_MAX;
    int64_t r(ptrdiff_t j) const {
        if constexpr (f == F::Add) return a.r(j) + b.r(j);
        else if constexpr (f == F::Sub) return a.r(j) - b.r(j);
        else return a.r(j) * b.r(j);
    }
    void v(ptrdiff_t j, __m128i& lo, __m128i& hi) const {
        if constexpr (f == F::Mul) products(a, b, j, lo, hi);
        else if constexpr (f == F::Add) widened(a, b, j, lo, hi, [](__m128i x, __m128i y) { return _mm_add_epi32(x, y); });
        else widened(a, b, j, lo, hi, [](__m128i x, __m128i y) { return _mm_sub_epi32(x, y); });
    }
};
template <F f, class A, class B> Bin<f, A, B> bin(A a, B b) { return {a, b}; }

// The complex product, part by part: (ac - bd) or (ad + bc). B may be a
// constant (step 0). W is int64_t, or I128 where the sum leaves 64 bits.
template <class W, class A, class B> struct CMul {
    const A* a;
    const B* b;
    ptrdiff_t bstep;
    static constexpr bool vec = false, pairs = true;
    W r(ptrdiff_t j) const {
        const A& x = a[j >> 1];
        const B& y = b[(j >> 1) * bstep];
        const int64_t p = int64_t(x.re) * (j & 1 ? y.im : y.re);
        const int64_t q = int64_t(x.im) * (j & 1 ? y.re : y.im);
        if constexpr (std::is_same_v<W, I128>) return (j & 1) ? wide(p) + wide(q) : wide(p) - wide(q);
        else return (j & 1) ? p + q : p - q;
    }
};

// A real vector times a complex one, part by part.
template <class A, class B> struct RMul {
    const A* a;
    const B* b;
    static constexpr bool vec = false, pairs = true;
    int64_t r(ptrdiff_t j) const { return int64_t(a[j >> 1]) * (j & 1 ? b[j >> 1].im : b[j >> 1].re); }
};

// c + a * b.
template <class A, class B, class C> struct MulAcc {
    A a;
    B b;
    C c;
    static constexpr int64_t max_abs = C::max_abs + A::max_abs * B::max_abs;
    static constexpr bool vec = A::vec && B::vec && C::vec && max_abs <= INT32_MAX;
    int64_t r(ptrdiff_t j) const { return c.r(j) + a.r(j) * b.r(j); }
    void v(ptrdiff_t j, __m128i& lo, __m128i& hi) const {
        __m128i p0, p1, c0, c1;
        products(a, b, j, p0, p1);
        c.v(j, c0, c1);
        lo = _mm_add_epi32(c0, p0);
        hi = _mm_add_epi32(c1, p1);
    }
};

// 64-bit sources added exactly.
struct Add64 {
    const int64_t* a;
    const int64_t* b;
    static constexpr bool vec = false;
    I128 r(ptrdiff_t j) const { return wide(a[j]) + wide(b[j]); }
};

// ------------------------------------------------------------- kernels --
// d[j] = rule(s.r(j)) for j < n, one loop per kind.
// Streams that read both parts of an element for each part (complex products)
// compute the pair before storing it, so that in place stays correct.
template <class S> constexpr bool pairs_v = requires { S::pairs; };

template <class D, ScaleKind K, class S> void scalar_k(D* d, ptrdiff_t n, int sf, const S& s) {
    if constexpr (pairs_v<S>) {
        for (ptrdiff_t j = 0; j < n; j += 2) {
            const auto re = s.r(j), im = s.r(j + 1);
            d[j] = rule<D, K>(re, sf);
            d[j + 1] = rule<D, K>(im, sf);
        }
    } else {
        for (ptrdiff_t j = 0; j < n; ++j) d[j] = rule<D, K>(s.r(j), sf);
    }
}

template <class D, class S> void scalar_run(D* d, ptrdiff_t n, int sf, ScaleKind k, const S& s) {
    if constexpr (std::is_same_v<decltype(s.r(0)), I128>) {
        static_assert(pairs_v<S> || !is_complex_v<D>);
        for (ptrdiff_t j = 0; j < n; j += 2) {
            const I128 re = s.r(j), im = j + 1 < n ? s.r(j + 1) : I128{};
            d[j] = rule<D>(re, sf);
            if (j + 1 < n) d[j + 1] = rule<D>(im, sf);
        }
    } else {
        switch (k) {
            case ScaleKind::None: scalar_k<D, ScaleKind::None>(d, n, sf, s); break;
            case ScaleKind::One: scalar_k<D, ScaleKind::One>(d, n, sf, s); break;
            case ScaleKind::Pos: scalar_k<D, ScaleKind::Pos>(d, n, sf, s); break;
            case ScaleKind::Neg: scalar_k<D, ScaleKind::Neg>(d, n, sf, s); break;
            default: scalar_k<D, ScaleKind::Bound>(d, n, sf, s); break;
        }
    }
}

// Eight results of 32-bit lanes packed with saturation and stored.
template <class D> inline void pack_store(D* d, __m128i lo, __m128i hi) {
    if constexpr (std::is_same_v<D, Zam16s>) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d), _mm_packs_epi32(lo, hi));
    } else if constexpr (std::is_same_v<D, Zam16u>) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d), _mm_packus_epi32(lo, hi));
    } else {
        __m128i w = _mm_packs_epi32(lo, hi);  // beyond 16 bits saturates 8u as well
        _mm_storel_epi64(reinterpret_cast<__m128i*>(d), _mm_packus_epi16(w, w));
    }
}

// The vector kernels of one kind on 32-bit lanes: the scalar rule eight at a
// time. The left shift clamps first to one step beyond the destination range
// (so the shift cannot overflow and still saturates), then shifts by at most
// 20 (beyond that, as at the bound, any nonzero value saturates).
template <class D, ScaleKind K, class S> void vector_k(D* d, ptrdiff_t n, int sf, const S& s) {
    ptrdiff_t j = 0;
    ptrdiff_t head = ptrdiff_t((16 - reinterpret_cast<uintptr_t>(d) % 16) % 16 / sizeof(D));
    if (head > n) head = n;
    for (; j < head; ++j) d[j] = rule<D, K>(s.r(j), sf);
    const __m128i one = _mm_set1_epi32(1);
    const int k = K == ScaleKind::Bound ? 20 : (sf >= 0 ? 0 : (-sf < 20 ? -sf : 20));
    const int64_t lo_lim = (int64_t(traits<D>::min) >> k) - 1, hi_lim = (int64_t(traits<D>::max) >> k) + 1;
    const __m128i vlo = _mm_set1_epi32(int32_t(lo_lim)), vhi = _mm_set1_epi32(int32_t(hi_lim));
    const __m128i kcnt = _mm_cvtsi32_si128(k);
    const __m128i cnt = _mm_cvtsi32_si128(sf > 0 ? sf : 0);
    const __m128i bias = _mm_set1_epi32(sf > 1 && sf < 32 ? int32_t((int64_t(1) << (sf - 1)) - 1) : 0);
    auto kern = [&](__m128i x) {
        if constexpr (K == ScaleKind::One) {
            return _mm_srai_epi32(_mm_add_epi32(x, _mm_and_si128(_mm_srai_epi32(x, 1), one)), 1);
        } else if constexpr (K == ScaleKind::Pos) {
            __m128i odd = _mm_and_si128(_mm_sra_epi32(x, cnt), one);
            return _mm_sra_epi32(_mm_add_epi32(_mm_add_epi32(x, bias), odd), cnt);
        } else if constexpr (K == ScaleKind::Neg || K == ScaleKind::Bound) {
            return _mm_sll_epi32(_mm_min_epi32(_mm_max_epi32(x, vlo), vhi), kcnt);
        } else {
            return x;
        }
    };
    for (; j + 8 <= n; j += 8) {
        __m128i lo, hi;
        s.v(j, lo, hi);
        pack_store(d + j, kern(lo), kern(hi));
    }
    for (; j < n; ++j) d[j] = rule<D, K>(s.r(j), sf);
}

}  // namespace zams::scaled

#include "scaled_lanes.h"
#include "scaled_wide.h"

namespace zams::scaled {

// Runs stream s into d[0..n) under the kernel of kind k: kernels in 8- and
// 16-bit lanes where they serve the stream, else 32-bit lanes where the
// stream has them and the rounding bias cannot overflow 32 bits.
template <class D, class S> void run(D* d, ptrdiff_t n, int sf, ScaleKind k, const S& s) {
    if (lanes::run(d, n, sf, k, s)) return;
    if (lanes64::run(d, n, sf, k, s)) return;
    if constexpr (S::vec) {
        const bool pos_fits = sf < 31 && S::max_abs + (int64_t(1) << (sf > 0 ? sf - 1 : 0)) <= INT32_MAX;
        switch (k) {
            case ScaleKind::None: return vector_k<D, ScaleKind::None>(d, n, sf, s);
            case ScaleKind::One:
                if (pos_fits) return vector_k<D, ScaleKind::One>(d, n, sf, s);
                break;
            case ScaleKind::Pos:
                if (pos_fits) return vector_k<D, ScaleKind::Pos>(d, n, sf, s);
                break;
            case ScaleKind::Neg: return vector_k<D, ScaleKind::Neg>(d, n, sf, s);
            case ScaleKind::Bound: return vector_k<D, ScaleKind::Bound>(d, n, sf, s);
            default: break;
        }
    }
    scalar_run(d, n, sf, k, s);
}


// ------------------------------------------------------------ hand-offs --
// The movement functions of the destination's width.
inline zamStatus zero(Zam8u* d, int n) { return zamsZero_8u(d, n); }
inline zamStatus zero(Zam16s* d, int n) { return zamsZero_16s(d, n); }
inline zamStatus zero(Zam16u* d, int n) { return zamsZero_16s(reinterpret_cast<Zam16s*>(d), n); }
inline zamStatus zero(Zam32s* d, int n) { return zamsZero_32s(d, n); }
inline zamStatus zero(Zam64s* d, int n) { return zamsZero_64s(d, n); }
inline zamStatus zero(Zam16sc* d, int n) { return zamsZero_16sc(d, n); }
inline zamStatus zero(Zam32sc* d, int n) { return zamsZero_32sc(d, n); }
inline zamStatus set(Zam8u v, Zam8u* d, int n) { return zamsSet_8u(v, d, n); }
inline zamStatus set(Zam16s v, Zam16s* d, int n) { return zamsSet_16s(v, d, n); }
inline zamStatus set(Zam16u v, Zam16u* d, int n) {
    return zamsSet_16s(static_cast<Zam16s>(v), reinterpret_cast<Zam16s*>(d), n);
}
inline zamStatus set(Zam32s v, Zam32s* d, int n) { return zamsSet_32s(v, d, n); }
inline zamStatus copy(const Zam8u* s, Zam8u* d, int n) { return zamsCopy_8u(s, d, n); }
inline zamStatus copy(const Zam16s* s, Zam16s* d, int n) { return zamsCopy_16s(s, d, n); }
inline zamStatus copy(const Zam16u* s, Zam16u* d, int n) {
    return zamsCopy_16s(reinterpret_cast<const Zam16s*>(s), reinterpret_cast<Zam16s*>(d), n);
}
inline zamStatus copy(const Zam32s* s, Zam32s* d, int n) { return zamsCopy_32s(s, d, n); }
inline zamStatus copy(const Zam32sc* s, Zam32sc* d, int n) { return zamsCopy_32sc(s, d, n); }
inline zamStatus copy(const Zam16sc* s, Zam16sc* d, int n) { return zamsCopy_16sc(s, d, n); }

// A complex destination is written part by part.
template <class D> struct parts {
    using type = D;
    static constexpr int per = 1;
};
template <> struct parts<Zam16sc> {
    using type = Zam16s;
    static constexpr int per = 2;
};
template <> struct parts<Zam32sc> {
    using type = Zam32s;
    static constexpr int per = 2;
};
template <class D> auto* part_ptr(D* d) { return reinterpret_cast<typename parts<D>::type*>(d); }
template <class D> ptrdiff_t part_count(int len) { return ptrdiff_t(len) * parts<D>::per; }

// ----------------------------------------------------------- call shapes --
// Left shifts of 256 bits and more saturate like those of 256: the kernels
// never negate a factor near INT_MIN.
inline int clamp_sf(int sf) { return sf < -256 ? -256 : sf; }

// Two sources (a, b) into d; mk() builds the stream. A factor that shifts
// every result out goes to the zeroing function after only the sources are
// checked (the destination and length are then its checks).
template <class D, class A, class B, class Mk>
zamStatus two(ScaleLimits l, const A* a, const B* b, D* d, int len, int sf, Mk mk) {
    const ScaleKind k = scale_kind(sf, l);
    if (k == ScaleKind::Zero) {
        if (zamStatus s = check_ptr(a, b)) return s;
        return zero(d, len);
    }
    if (zamStatus s = check_args(len, a, b, d)) return s;
    run(part_ptr(d), part_count<D>(len), clamp_sf(sf), k, mk());
    return zamStatusOk;
}

// A source x and a constant into d (in place: x == d). mk(p) builds the
// stream over source p. Trivial cases go to the movement functions: a
// constant that leaves x as it is (`identity`) copies; all zeros go to the
// zeroing function; a result that is the same for every x (the operation is
// monotone in x, so the two ends of the range decide) goes to the fill.
template <class D, class Mk>
zamStatus con(ScaleLimits l, const D* x, D* d, int len, int sf, bool identity, Mk mk) {
    if (identity && x != d) return copy(x, d, len);
    const ScaleKind k = scale_kind(sf, l);
    if (k == ScaleKind::Zero) {
        if (x != d)
            if (zamStatus s = check_ptr(x)) return s;
        return zero(d, len);
    }
    if (zamStatus s = check_args(len, x, d)) return s;
    if (identity) return zamStatusOk;
    sf = clamp_sf(sf);
    if constexpr (parts<D>::per == 1) {
        const D ends[2] = {traits<D>::min, traits<D>::max};
        D out[2];
        scalar_run(out, 2, sf, k, mk(ends));
        if (out[0] == out[1]) return out[0] == 0 ? zero(d, len) : set(out[0], d, len);
    }
    run(part_ptr(d), part_count<D>(len), sf, k, mk(x));
    return zamStatusOk;
}

}  // namespace zams::scaled
