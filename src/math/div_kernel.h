// Integer division kernels: the exact element rule, a double-precision
// vector body for 8- and 16-bit samples, and the 8u reciprocal body.
//
// Every integer quotient is n * 2^-sf / d, rounded by the mode (toward zero,
// nearest even, half away), saturated to the destination. A zero divisor
// gives the bound by the sign of the dividend (0 for a zero dividend) and
// sets the warning flag. Below a function's range of scale factors only
// the signs count (sign rule); above it every quotient with a nonzero
// divisor is 0 (zero rule).
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <limits>
#include <type_traits>

#include "../common/num/bits.h"
#include "../common/types.h"

namespace zams {

enum class Rnd { Zero = 0, Even = 1, Away = 2 };

struct DivRange {
    int lo, hi;  // scale factors served by the kernel
};

// Rounds q + r / den (0 <= r < den) to an integer by the mode.
inline uint64_t round_quot(uint64_t q, uint64_t r, uint64_t den, Rnd mode) {
    if (mode == Rnd::Zero || r == 0) return q;
    uint64_t rest = den - r;  // r / den against one half, without overflow
    if (r > rest || (r == rest && (mode == Rnd::Away || (q & 1)))) {
        return q == UINT64_MAX ? q : q + 1;
    }
    return q;
}

// mag * 2^-sf / den rounded by the mode, den > 0; UINT64_MAX stands for any
// magnitude of 2^63 or more (every destination saturates there).
inline uint64_t quot_mag(uint64_t mag, uint64_t den, int sf, Rnd mode) {
    if (mag == 0) return 0;
    if (sf > 0) {
        if (sf >= 64 || den > (UINT64_MAX >> sf)) {
            // den * 2^sf >= 2^64 > mag: below one half, except the single
            // tie 2^63 / 2^64, which only rounding away lifts to 1.
            bool tie = mag == (uint64_t(1) << 63) && sf < 64 && den == (uint64_t(1) << (64 - sf));
            return tie && mode == Rnd::Away ? 1 : 0;
        }
        den <<= sf;
        return round_quot(mag / den, mag % den, den, mode);
    }
    const int k = sf < -64 ? 64 : -sf;  // from -64 down the quotient saturates (or stays 0) alike
    if (k < 64 && mag <= (UINT64_MAX >> k)) {
        mag <<= k;
        return round_quot(mag / den, mag % den, den, mode);
    }
    // The shifted dividend leaves 64 bits: long division one bit at a time,
    // stopping once the quotient passes 2^63.
    uint64_t q = mag / den, r = mag % den;
    for (int i = 0; i < k; ++i) {
        if (q >> 62) return UINT64_MAX;
        q <<= 1;
        if (r >= den - r) {
            r -= den - r;
            q |= 1;
        } else {
            r <<= 1;
        }
    }
    return round_quot(q, r, den, mode);
}

// A magnitude with a sign, saturated to D.
template <class D> D sat_mag(bool neg, uint64_t mag) {
    using L = std::numeric_limits<D>;
    if (!neg) return mag > uint64_t(L::max()) ? L::max() : D(mag);
    if constexpr (std::is_unsigned_v<D>) {
        return 0;
    } else {
        uint64_t lim = uint64_t(0) - uint64_t(int64_t(L::min()));
        return mag >= lim ? L::min() : D(-int64_t(mag));
    }
}

template <class D> D bound_by_sign(int64_t n) {
    return n > 0 ? std::numeric_limits<D>::max() : (n < 0 ? std::numeric_limits<D>::min() : D(0));
}

inline uint64_t mag_of(int64_t v) { return v < 0 ? uint64_t(0) - uint64_t(v) : uint64_t(v); }

// One quotient n * 2^-sf / d under the whole rule; d given as magnitude and
// sign (complex divisors pass their squared norm). `zero` is set for a zero
// divisor.
template <class D> D div_elem(int64_t n, uint64_t dmag, bool dneg, int sf, DivRange range, Rnd mode, bool& zero) {
    if (dmag == 0) zero = true;
    if (sf < range.lo) {
        if (n == 0) return 0;
        return ((n < 0) != dneg) ? std::numeric_limits<D>::min() : std::numeric_limits<D>::max();
    }
    if (dmag == 0) return bound_by_sign<D>(n);
    if (sf > range.hi) return 0;
    return sat_mag<D>((n < 0) != dneg, quot_mag(mag_of(n), dmag, sf, mode));
}

template <class D> D div_elem(int64_t n, int64_t d, int sf, DivRange range, Rnd mode, bool& zero) {
    return div_elem<D>(n, mag_of(d), d < 0, sf, range, mode, zero);
}

// Eight 8- or 16-bit samples as two vectors of four doubles, and back.
template <class T> struct Lanes8;
template <> struct Lanes8<Zam8u> {
    static void load(const Zam8u* p, __m256d& a, __m256d& b) {
        __m128i v = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
        a = _mm256_cvtepi32_pd(_mm_cvtepu8_epi32(v));
        b = _mm256_cvtepi32_pd(_mm_cvtepu8_epi32(_mm_srli_si128(v, 4)));
    }
    static void store(Zam8u* p, __m128i a, __m128i b) {
        __m128i w = _mm_packus_epi32(a, b);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm_packus_epi16(w, w));
    }
};
template <> struct Lanes8<Zam16s> {
    static void load(const Zam16s* p, __m256d& a, __m256d& b) {
        __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        a = _mm256_cvtepi32_pd(_mm_cvtepi16_epi32(v));
        b = _mm256_cvtepi32_pd(_mm_cvtepi16_epi32(_mm_srli_si128(v, 8)));
    }
    static void store(Zam16s* p, __m128i a, __m128i b) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm_packs_epi32(a, b));
    }
};
template <> struct Lanes8<Zam16u> {
    static void load(const Zam16u* p, __m256d& a, __m256d& b) {
        __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        a = _mm256_cvtepi32_pd(_mm_cvtepu16_epi32(v));
        b = _mm256_cvtepi32_pd(_mm_cvtepu16_epi32(_mm_srli_si128(v, 8)));
    }
    static void store(Zam16u* p, __m128i a, __m128i b) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm_packus_epi32(a, b));
    }
};

// Quotients of 8- and 16-bit samples inside the kernel's range, four at a
// time in double precision. n * 2^k and d * 2^sf are exact doubles (below
// 2^48), the quotient is correctly rounded, and an exact quotient of such
// integers lies at least 1 / (2 d 2^sf) from any half-integer, far more than
// the rounding error wherever the result does not saturate: so rounding the
// double quotient gives the exact rule.
template <class T> struct DivPd {
    __m256d nscale, dscale, lo, hi;
    int mode;
    DivPd(int sf, Rnd m)
        : nscale(_mm256_set1_pd(sf < 0 ? pow2(-sf) : 1.0)),
          dscale(_mm256_set1_pd(sf > 0 ? pow2(sf) : 1.0)),
          lo(_mm256_set1_pd(double(std::numeric_limits<T>::min()))),
          hi(_mm256_set1_pd(double(std::numeric_limits<T>::max()))),
          mode(int(m)) {}

    // Returns a nonzero mask where a divisor was zero.
    __m128i quot(__m256d n, __m256d d, int& zero_mask) const {
        const __m256d z = _mm256_setzero_pd();
        __m256d q = _mm256_div_pd(_mm256_mul_pd(n, nscale), _mm256_mul_pd(d, dscale));
        if (mode == int(Rnd::Even)) {
            q = _mm256_round_pd(q, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        } else if (mode == int(Rnd::Zero)) {
            q = _mm256_round_pd(q, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
        } else {
            __m256d half = _mm256_or_pd(_mm256_and_pd(q, _mm256_set1_pd(-0.0)), _mm256_set1_pd(0.5));
            q = _mm256_round_pd(_mm256_add_pd(q, half), _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
        }
        // A zero divisor gives +-inf (clamped below) or, for 0 / 0, NaN
        // (max_pd then yields lo, and the zero dividend mask gives 0).
        q = _mm256_min_pd(_mm256_max_pd(q, lo), hi);
        q = _mm256_blendv_pd(q, z, _mm256_cmp_pd(n, z, _CMP_EQ_OQ));
        zero_mask |= _mm256_movemask_pd(_mm256_cmp_pd(d, z, _CMP_EQ_OQ));
        return _mm256_cvttpd_epi32(q);
    }
};

// The 8u body: n * 2^-sf / d for eight elements without a division. r is a
// reciprocal estimate of the shifted divisor; with e = 1 - d r the quotient
// n r (1 + e)(1 + e^2) is within a few single-precision ulps of n / d for
// any estimate of relative error up to 1.5 * 2^-12; rounded, it is the
// nearest integer or a neighbour of it (exact ties can fall either way), and
// an exact residual step picks the right one. So the result does not depend
// on the estimate's bits (the tests prove it over every dividend, divisor
// and scale factor). Zero divisors become 2^-15: 0 for a zero dividend,
// saturation to 255 otherwise.
struct RcpHardware {
    __m256 operator()(__m256 d) const { return _mm256_rcp_ps(d); }
};

template <class Estimate = RcpHardware>
inline __m128i div8u_refined(__m128i n8, __m128i d8, int sf, Estimate est, int& zero_mask) {
    const __m256 one = _mm256_set1_ps(1.0f);
    __m128i n32lo = _mm_cvtepu8_epi32(n8), n32hi = _mm_cvtepu8_epi32(_mm_srli_si128(n8, 4));
    __m128i d32lo = _mm_cvtepu8_epi32(d8), d32hi = _mm_cvtepu8_epi32(_mm_srli_si128(d8, 4));
    __m256 n = _mm256_cvtepi32_ps(_mm256_insertf128_si256(_mm256_castsi128_si256(n32lo), n32hi, 1));
    __m256 d = _mm256_cvtepi32_ps(_mm256_insertf128_si256(_mm256_castsi128_si256(d32lo), d32hi, 1));
    if (sf > 0) d = _mm256_mul_ps(d, _mm256_set1_ps(float(1 << sf)));
    if (sf < 0) n = _mm256_mul_ps(n, _mm256_set1_ps(float(1 << -sf)));
    __m256 dz = _mm256_cmp_ps(d, _mm256_setzero_ps(), _CMP_EQ_OQ);
    zero_mask |= _mm256_movemask_ps(dz);
    d = _mm256_blendv_ps(d, _mm256_set1_ps(1.0f / 32768.0f), dz);
    __m256 r = est(d);
    __m256 e = _mm256_sub_ps(one, _mm256_mul_ps(d, r));
    __m256 q = _mm256_mul_ps(n, r);
    q = _mm256_mul_ps(_mm256_mul_ps(q, _mm256_add_ps(one, e)), _mm256_add_ps(one, _mm256_mul_ps(e, e)));
    q = _mm256_round_ps(q, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    // q is the nearest integer or one off it, and an exact tie may have
    // landed on either side. The residual n - q d is exact (both products
    // stay below 2^24), so one step against it settles the rounding.
    const __m256 two = _mm256_set1_ps(2.0f);
    __m256 r2 = _mm256_mul_ps(two, _mm256_sub_ps(n, _mm256_mul_ps(q, d)));
    __m256 odd = _mm256_cmp_ps(_mm256_round_ps(_mm256_mul_ps(q, _mm256_set1_ps(0.5f)), _MM_FROUND_TO_ZERO),
                               _mm256_mul_ps(q, _mm256_set1_ps(0.5f)), _CMP_NEQ_OQ);
    __m256 nd = _mm256_sub_ps(_mm256_setzero_ps(), d);
    __m256 up = _mm256_or_ps(_mm256_cmp_ps(r2, d, _CMP_GT_OQ), _mm256_and_ps(_mm256_cmp_ps(r2, d, _CMP_EQ_OQ), odd));
    __m256 down = _mm256_or_ps(_mm256_cmp_ps(r2, nd, _CMP_LT_OQ), _mm256_and_ps(_mm256_cmp_ps(r2, nd, _CMP_EQ_OQ), odd));
    q = _mm256_add_ps(q, _mm256_and_ps(up, one));
    q = _mm256_sub_ps(q, _mm256_and_ps(_mm256_andnot_ps(dz, down), one));
    q = _mm256_min_ps(q, _mm256_set1_ps(255.0f));
    __m256i qi = _mm256_cvttps_epi32(q);
    __m128i w = _mm_packus_epi32(_mm256_castsi256_si128(qi), _mm256_extractf128_si256(qi, 1));
    return _mm_packus_epi16(w, w);
}

}  // namespace zams
