// sin(pi x) and cos(pi x) from plain double arithmetic. The C library's
// transcendental functions differ between targets (x87 code on i386), so
// every table the library builds (FFT twiddles, windows) comes from here
// and has the same bits on i386 and x86-64. Within 2 ulp.
#pragma once

#include <immintrin.h>

#include <cmath>
#include <cstdint>

namespace zams {

namespace trig_detail {
// Taylor coefficients of sin(pi r) and cos(pi r) in powers of r; enough
// terms for |r| <= 1/4 to fall far below one ulp.
inline constexpr double kPiHi = 3.141592653589793116;
inline constexpr double kPiLo = 1.2246467991473532e-16;
inline constexpr double kSin[] = {-5.16771278004997, 2.5501640398773455, -0.5992645293207921,
                                  0.08214588661112823, -0.0073704309457143504, 0.00046630280576761255,
                                  -2.1915353447830217e-05, 7.952054001475513e-07, -2.2948428997269873e-08,
                                  5.392664662608129e-10};
inline constexpr double kCos[] = {-4.934802200544679, 4.0587121264167685, -1.3352627688545895,
                                  0.2353306303588932, -0.02580689139001406, 0.0019295743094039231,
                                  -0.0001046381049248457, 4.303069587032947e-06, -1.3878952462213771e-07,
                                  3.604730797462501e-09};

template <size_t N> inline double horner(const double (&k)[N], double z) {
    double p = k[N - 1];
    for (size_t i = N - 1; i-- > 0;) p = p * z + k[i];
    return p;
}
}  // namespace trig_detail

// sin(pi r) and cos(pi r) for |r| <= 1/4, rotated by q quarter turns.
inline void sincospi_reduced(double r, long long q, double* s, double* c) {
    using namespace trig_detail;
    double z = r * r;
    double sr = r * kPiHi + (r * kPiLo + r * z * horner(kSin, z));
    double cr = 1.0 + z * horner(kCos, z);
    switch (((q % 4) + 4) % 4) {
        case 0: *s = sr; *c = cr; break;
        case 1: *s = cr; *c = -sr; break;
        case 2: *s = -sr; *c = -cr; break;
        default: *s = -cr; *c = sr; break;
    }
    if (*s == 0.0) *s = 0.0;  // no negative zeros in tables
    if (*c == 0.0) *c = 0.0;
}

// s = sin(pi x), c = cos(pi x), for |x| < 2^50. The reduction is exact, so
// the error is that of the polynomials; an x that is itself rounded (k / n
// for n not a power of two) carries its own error in: use sincospi_ratio.
inline void sincospi(double x, double* s, double* c) {
    double q = std::floor(x * 2.0 + 0.5);  // x = q/2 + r, |r| <= 1/4, exactly
    sincospi_reduced(x - q * 0.5, static_cast<long long>(q), s, c);
}

// k / n = q / 2 + r with |r| <= 1/4, for n > 0, reduced exactly in
// integers: returns r and sets q.
inline double reduce_ratio(long long k, long long n, long long* q) {
    // q = floor(2k / n + 1/2), as in sincospi; 2k - q n stays within n/2.
    long long num = 4 * k + n, den = 2 * n;
    if (num == int32_t(num) && den == int32_t(den)) {
        // The same integers in 32 bits (i386 divides and converts 64-bit
        // integers in library calls): 2k - q n fits, so wrapping products
        // give it exactly.
        const int32_t nu = int32_t(num), de = int32_t(den);
        const int32_t q32 = nu / de - (nu % de != 0 && nu < 0);
        const int32_t rem = int32_t(uint32_t(2 * k) - uint32_t(q32) * uint32_t(n));
        *q = q32;
        return static_cast<double>(rem) / static_cast<double>(de);
    }
    *q = num / den - (num % den != 0 && num < 0);
    return static_cast<double>(2 * k - *q * n) / static_cast<double>(den);
}

// s = sin(pi k / n), c = cos(pi k / n) for n > 0: the table builders' form.
inline void sincospi_ratio(long long k, long long n, double* s, double* c) {
    long long q;
    const double r = reduce_ratio(k, n, &q);
    sincospi_reduced(r, q, s, c);
}

// cos(pi k[i] / n) for four numerators at once: the operations of
// sincospi_ratio lane by lane, so every lane has its bits.
inline __m256d cospi_ratio4(const long long (&k)[4], long long n) {
    using namespace trig_detail;
    alignas(32) double r[4];
    alignas(32) long long sw[4], neg[4];
    for (int i = 0; i < 4; ++i) {
        long long q;
        r[i] = reduce_ratio(k[i], n, &q);
        const int quarter = int(q & 3);                  // cos after q quarter turns:
        sw[i] = quarter & 1 ? -1 : 0;                    // sin(pi r) in odd quarters,
        neg[i] = quarter == 1 || quarter == 2 ? -1 : 0;  // negated in the 2nd and 3rd
    }
    const __m256d rv = _mm256_load_pd(r), z = _mm256_mul_pd(rv, rv);
    auto horner4 = [&](const auto& c) {
        constexpr size_t N = sizeof(c) / sizeof(c[0]);
        __m256d p = _mm256_set1_pd(c[N - 1]);
        for (size_t i = N - 1; i-- > 0;) p = _mm256_add_pd(_mm256_mul_pd(p, z), _mm256_set1_pd(c[i]));
        return p;
    };
    const __m256d sr = _mm256_add_pd(_mm256_mul_pd(rv, _mm256_set1_pd(kPiHi)),
                                     _mm256_add_pd(_mm256_mul_pd(rv, _mm256_set1_pd(kPiLo)),
                                                   _mm256_mul_pd(_mm256_mul_pd(rv, z), horner4(kSin))));
    const __m256d cr = _mm256_add_pd(_mm256_set1_pd(1.0), _mm256_mul_pd(z, horner4(kCos)));
    const __m256d sign = _mm256_set1_pd(-0.0);
    __m256d c = _mm256_blendv_pd(cr, sr, _mm256_load_pd(reinterpret_cast<const double*>(sw)));
    c = _mm256_xor_pd(c, _mm256_and_pd(sign, _mm256_load_pd(reinterpret_cast<const double*>(neg))));
    // No negative zeros in tables.
    return _mm256_andnot_pd(_mm256_and_pd(_mm256_cmp_pd(c, _mm256_setzero_pd(), _CMP_EQ_OQ), sign), c);
}

// sin(pi r) and cos(pi r) of four |r| <= 1/4 at once, before any quarter
// turn: the operations of sincospi_reduced lane by lane, so every lane has
// its bits.
inline void sincospi_poly4(__m256d r, __m256d* s, __m256d* c) {
    using namespace trig_detail;
    const __m256d z = _mm256_mul_pd(r, r);
    auto horner4 = [&](const auto& k) {
        constexpr size_t N = sizeof(k) / sizeof(k[0]);
        __m256d p = _mm256_set1_pd(k[N - 1]);
        for (size_t i = N - 1; i-- > 0;) p = _mm256_add_pd(_mm256_mul_pd(p, z), _mm256_set1_pd(k[i]));
        return p;
    };
    *s = _mm256_add_pd(_mm256_mul_pd(r, _mm256_set1_pd(kPiHi)),
                       _mm256_add_pd(_mm256_mul_pd(r, _mm256_set1_pd(kPiLo)),
                                     _mm256_mul_pd(_mm256_mul_pd(r, z), horner4(kSin))));
    *c = _mm256_add_pd(_mm256_set1_pd(1.0), _mm256_mul_pd(z, horner4(kCos)));
}

inline double cospi(double x) {
    double s, c;
    sincospi(x, &s, &c);
    return c;
}

inline double sinpi(double x) {
    double s, c;
    sincospi(x, &s, &c);
    return s;
}

}  // namespace zams
