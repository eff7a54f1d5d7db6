// Sine and cosine of a double in radians as unevaluated sums hi + lo,
// accurate to far below an ulp of hi, from plain double arithmetic (no
// fused multiply-add, no C library): the results are the same bits on every
// target. PolarToCart rounds magnitude * (hi + lo) once; the pair
// arithmetic is dd.h's.
//
// Reduction: x = k pi/2 + r with |r| <= pi/4 (r kept as a double pair).
// Below 2^19 a four-part pi/2 (three 33-bit heads, whose products with k are
// exact) leaves r accurate to about 2^-130; above, the bits of 2/pi needed
// for x are multiplied out in 32-bit integer limbs, so any finite x is
// reduced to at least 220 bits below the units of x 2/pi, enough for the
// closest approach of a double to a multiple of pi/2 (about 2^-61).
#pragma once

#include <cstddef>
#include <cstdint>

#include "bits.h"
#include "dd.h"

namespace zams {
namespace sincos_dd {

using dd::fast_two_sum;
using dd::Pair;
using dd::two_prod;
using dd::two_sum;

inline constexpr double kPio2Hi = 0x1.921fb54442d18p+0, kPio2Lo = 0x1.1a62633145c07p-54;
inline constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
inline constexpr double kPio2Parts[4] = {0x1.921fb544p+0, 0x1.0b4611a6p-34, 0x1.3198a2ep-69, 0x1.b839a252049c1p-104};

// 2/pi in 32-bit words, most significant first: 2/pi = sum w[j] 2^(-32(j+1))
inline constexpr uint32_t kTwoOverPiWords[40] = {
    0xa2f9836e, 0x4e441529, 0xfc2757d1, 0xf534ddc0, 0xdb629599, 0x3c439041, 0xfe5163ab, 0xdebbc561,
    0xb7246e3a, 0x424dd2e0, 0x06492eea, 0x09d1921c, 0xfe1deb1c, 0xb129a73e, 0xe88235f5, 0x2ebb4484,
    0xe99c7026, 0xb45f7e41, 0x3991d639, 0x835339f4, 0x9c845f8b, 0xbdf9283b, 0x1ff897ff, 0xde05980f,
    0xef2f118b, 0x5a0a6d1f, 0x6d367ecf, 0x27cb09b7, 0x4f463f66, 0x9e5fea2d, 0x7527bac7, 0xebe5f17b,
    0x3d0739f7, 0x8a5292ea, 0x6bfb5fb1, 0x1f8d5d08, 0x56033046, 0xfc7b6bab, 0xf0cfbc20, 0x9af4361d};

constexpr int kWin = 8;              // words of 2/pi used per argument
constexpr int kLimbs = kWin + 2;     // limbs of the product

// n (<= 26) bits of the little-endian number p starting at bit pos; bits
// below 0 read as zero
inline uint32_t bits_at(const uint32_t* p, int pos, int n) {
    uint64_t w = 0;
    int lo = pos >> 5;  // arithmetic shift: floor
    for (int j = 1; j >= 0; --j) {
        int idx = lo + j;
        w = (w << 32) | ((idx >= 0 && idx < kLimbs) ? p[idx] : 0u);
    }
    return uint32_t(w >> (pos - 32 * lo)) & ((1u << n) - 1);
}

// |x| >= 2^19, finite: r = x - k pi/2 with k = *q (mod 4), |r| <= pi/4
inline Pair reduce_large(double x, int* q) {
    uint64_t b = to_bits(x);
    int ex = int((b >> 52) & 0x7ff);
    uint64_t m = (b & ((uint64_t(1) << 52) - 1)) | (uint64_t(1) << 52);
    int e = ex - 1075;  // x = m 2^e, e >= -33
    // words whose product with m 2^e is a multiple of 4 are skipped
    int j0 = e >= 34 ? (e - 34) / 32 + 1 : 0;
    uint32_t a[2] = {uint32_t(m), uint32_t(m >> 32)};
    uint32_t p[kLimbs] = {};
    for (int i = 0; i < kWin; ++i) {  // limb i of the window is word j0 + kWin - 1 - i
        uint64_t w = kTwoOverPiWords[j0 + kWin - 1 - i], carry = 0;
        for (int k = 0; k < 2; ++k) {
            uint64_t t = uint64_t(a[k]) * w + p[i + k] + carry;
            p[i + k] = uint32_t(t);
            carry = t >> 32;
        }
        for (int k = i + 2; carry && k < kLimbs; ++k) {
            uint64_t t = uint64_t(p[k]) + carry;
            p[k] = uint32_t(t);
            carry = t >> 32;
        }
    }
    // x 2/pi = p 2^(e - 32 (j0 + kWin)): bit p0 of p has weight one
    int p0 = 32 * (j0 + kWin) - e;
    int k = int(bits_at(p, p0, 2));
    double sign = 1.0;
    if (bits_at(p, p0 - 1, 1)) {  // fraction >= 1/2: take it minus one
        k += 1;
        sign = -1.0;
        uint64_t carry = 1;
        for (int i = 0; i < kLimbs; ++i) {
            uint64_t t = uint64_t(~p[i]) + carry;
            p[i] = uint32_t(t);
            carry = t >> 32;
        }
    }
    *q = k & 3;
    int t = p0 - 1;  // leading bit of the fraction
    while (t >= 0 && !bits_at(p, t, 1)) --t;
    if (t < 0) return {0.0, 0.0};
    double c[4];
    for (int i = 0; i < 4; ++i) c[i] = double(int32_t(bits_at(p, t - 25 - 26 * i, 26)));
    int w = t - 25 - p0;  // weight of c[0]'s last bit
    Pair f = fast_two_sum(c[0] * pow2(w) + c[1] * pow2(w - 26), c[2] * pow2(w - 52) + c[3] * pow2(w - 78));
    // r = f pi/2
    Pair r = two_prod(f.hi, kPio2Hi);
    r.lo += f.hi * kPio2Lo + f.lo * kPio2Hi;
    r = fast_two_sum(r.hi, r.lo);
    return {sign * r.hi, sign * r.lo};
}

// 0 <= x finite: r and the quarter turns q (mod 4)
inline Pair reduce(double x, int* q) {
    if (x <= 0x1.921fb54442d18p-1) {
        *q = 0;
        return {x, 0.0};
    }
    if (x >= 0x1p19) return reduce_large(x, q);
    int k = int(x * kTwoOverPi + 0.5);
    double kd = k;
    Pair r = two_sum(x - kd * kPio2Parts[0], -(kd * kPio2Parts[1]));  // the first difference is exact
    Pair s = two_sum(r.hi, -(kd * kPio2Parts[2]));
    double lo = (r.lo + s.lo) - kd * kPio2Parts[3];
    *q = k & 3;
    return fast_two_sum(s.hi, lo);
}

// Taylor coefficients past the leading terms: sin r = r - r^3/6 + r^5 S(r^2),
// cos r = 1 - r^2/2 + r^4 C(r^2), truncated below 2^-62 for |r| <= pi/4
inline constexpr double kSin[] = {0x1.1111111111111p-7,  -0x1.a01a01a01a01ap-13, 0x1.71de3a556c734p-19,
                                  -0x1.ae64567f544e4p-26, 0x1.6124613a86d09p-33, -0x1.ae7f3e733b81fp-41,
                                  0x1.952c77030ad4ap-49,  -0x1.2f49b46814157p-57};
inline constexpr double kCos[] = {0x1.5555555555555p-5,   -0x1.6c16c16c16c17p-10, 0x1.a01a01a01a01ap-16,
                                  -0x1.27e4fb7789f5cp-22, 0x1.1eed8eff8d898p-29,  -0x1.93974a8c07c9dp-37,
                                  0x1.ae7f3e733b81fp-45,  -0x1.6827863b97d97p-53, 0x1.e542ba4020225p-62};
inline constexpr double kSixthHi = 0x1.5555555555555p-3, kSixthLo = 9.25185853854297e-18;

template <size_t N> inline double horner(const double (&k)[N], double z) {
    double p = k[N - 1];
    for (size_t i = N - 1; i-- > 0;) p = p * z + k[i];
    return p;
}

// sin and cos of a finite x
inline void sincos(double x, Pair* s, Pair* c) {
    double ax = x < 0 ? -x : x;
    if (ax < 0x1p-27) {  // r^3/6 is below 2^-55 r: sin x = x, cos x = 1 to well within the product's rounding
        *s = {x, 0.0};
        *c = {1.0, 0.0};
        return;
    }
    int q;
    Pair r = reduce(ax, &q);
    Pair z = two_prod(r.hi, r.hi);  // r^2
    z.lo += 2.0 * r.hi * r.lo;
    Pair r3 = two_prod(r.hi, z.hi);  // r^3
    r3.lo += r.hi * z.lo + r.lo * z.hi;
    Pair t = two_prod(r3.hi, kSixthHi);  // r^3 / 6
    t.lo += r3.lo * kSixthHi + r3.hi * kSixthLo;
    Pair sv = two_sum(r.hi, -t.hi);
    sv.lo += (r.lo - t.lo) + r3.hi * z.hi * horner(kSin, z.hi);
    sv = fast_two_sum(sv.hi, sv.lo);
    Pair cv = fast_two_sum(1.0, -0.5 * z.hi);
    cv.lo += -0.5 * z.lo + z.hi * z.hi * horner(kCos, z.hi);
    cv = fast_two_sum(cv.hi, cv.lo);
    Pair ns = {-sv.hi, -sv.lo}, nc = {-cv.hi, -cv.lo};
    const Pair* sin_q[4] = {&sv, &cv, &ns, &nc};
    const Pair* cos_q[4] = {&cv, &ns, &nc, &sv};
    *s = *sin_q[q];
    *c = *cos_q[q];
    if (x < 0) *s = {-s->hi, -s->lo};
}

// m (hi + lo) rounded once; m of any size, results down to the subnormals
inline double mul(double m, Pair v) {
    double p = m * v.hi;
    if (p == 0) return p;  // exact zero, or a product below half the least subnormal
    double am = m < 0 ? -m : m, ap = p < 0 ? -p : p;
    if (!(am < 0x1p990)) {
        if (am != am || am - am != 0) return p;  // NaN or infinite magnitude
        m *= 0x1p-64;
        Pair e = two_prod(m, v.hi);
        return (e.hi + (e.lo + m * v.lo)) * 0x1p64;
    }
    if (ap < 0x1p-960) {  // m < 2^114 here, so the scaled m splits safely
        m *= 0x1p600;
        Pair e = two_prod(m, v.hi);
        return (e.hi + (e.lo + m * v.lo)) * 0x1p-600;
    }
    Pair e = two_prod(m, v.hi);
    return e.hi + (e.lo + m * v.lo);
}

}  // namespace sincos_dd
}  // namespace zams
