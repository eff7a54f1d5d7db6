// Sums, means and standard deviations.
//
// The floating kernels sum into vector lanes (lane = element index modulo
// the lane count) with unaligned loads from the first element, so results
// do not depend on the alignment of the source; the lanes are then combined
// in a fixed order. Interleaved complex data keeps the real parts in the
// even lanes and the imaginary parts in the odd ones.
#include <immintrin.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "../common/check.h"
#include "wide.h"

namespace zams::red {
namespace {

// ------------------------------------------------------------- kernels

// Single-precision partial sums (the fast path): 8 lanes, four
// independent accumulators.
void lanes_fast(const float* x, int n, float out[8]) {
    __m256 a0 = _mm256_setzero_ps(), a1 = a0, a2 = a0, a3 = a0;
    int i = 0;
    for (; i + 32 <= n; i += 32) {
        a0 = _mm256_add_ps(a0, _mm256_loadu_ps(x + i));
        a1 = _mm256_add_ps(a1, _mm256_loadu_ps(x + i + 8));
        a2 = _mm256_add_ps(a2, _mm256_loadu_ps(x + i + 16));
        a3 = _mm256_add_ps(a3, _mm256_loadu_ps(x + i + 24));
    }
    for (; i + 8 <= n; i += 8) a0 = _mm256_add_ps(a0, _mm256_loadu_ps(x + i));
    _mm256_storeu_ps(out, _mm256_add_ps(_mm256_add_ps(a0, a1), _mm256_add_ps(a2, a3)));
    for (; i < n; ++i) out[i & 7] += x[i];
}

// Single-precision elements summed in double precision: 4 lanes.
void lanes_acc(const float* x, int n, double out[4]) {
    __m256d a0 = _mm256_setzero_pd(), a1 = a0, a2 = a0, a3 = a0;
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        a0 = _mm256_add_pd(a0, _mm256_cvtps_pd(_mm_loadu_ps(x + i)));
        a1 = _mm256_add_pd(a1, _mm256_cvtps_pd(_mm_loadu_ps(x + i + 4)));
        a2 = _mm256_add_pd(a2, _mm256_cvtps_pd(_mm_loadu_ps(x + i + 8)));
        a3 = _mm256_add_pd(a3, _mm256_cvtps_pd(_mm_loadu_ps(x + i + 12)));
    }
    for (; i + 4 <= n; i += 4) a0 = _mm256_add_pd(a0, _mm256_cvtps_pd(_mm_loadu_ps(x + i)));
    _mm256_storeu_pd(out, _mm256_add_pd(_mm256_add_pd(a0, a1), _mm256_add_pd(a2, a3)));
    for (; i < n; ++i) out[i & 3] += x[i];
}

// Double elements with a running error term per lane (Knuth's two-sum):
// the sum of s and c carries about twice the working precision.
inline void two_sum(double& s, double& c, double x) {
    double t = s + x, bp = t - s;
    c += (s - (t - bp)) + (x - bp);
    s = t;
}

void lanes_comp(const double* x, int n, double s[4], double c[4]) {
    __m256d vs = _mm256_setzero_pd(), vc = vs;
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        __m256d v = _mm256_loadu_pd(x + i);
        __m256d t = _mm256_add_pd(vs, v), bp = _mm256_sub_pd(t, vs);
        vc = _mm256_add_pd(vc, _mm256_add_pd(_mm256_sub_pd(vs, _mm256_sub_pd(t, bp)), _mm256_sub_pd(v, bp)));
        vs = t;
    }
    _mm256_storeu_pd(s, vs);
    _mm256_storeu_pd(c, vc);
    for (; i < n; ++i) two_sum(s[i & 3], c[i & 3], x[i]);
}

// Sum of the lanes whose index has the given parity (step 2), or of all
// lanes (step 1), in a fixed order.
template <class T> T combine(const T* lanes, int count, int first, int step) {
    T s = lanes[first];
    for (int k = first + step; k < count; k += step) s += lanes[k];
    return s;
}
double combine_comp(const double* s, const double* c, int first, int step) {
    double hs = 0, hc = 0;
    for (int k = first; k < 4; k += step) {
        two_sum(hs, hc, s[k]);
        hc += c[k];
    }
    return hs + hc;
}

// Sums of a float or double array: `parts` 1 for real, 2 for interleaved
// complex (out[0] real, out[1] imaginary).
void sum_float(const float* x, int n, bool fast, double out[2], int parts) {
    for (int p = 0; p < parts; ++p) out[p] = 0;
    if (fast) {
        float l[8];
        lanes_fast(x, n, l);
        for (int p = 0; p < parts; ++p) out[p] = combine(l, 8, p, parts);
    } else {
        double l[4];
        lanes_acc(x, n, l);
        for (int p = 0; p < parts; ++p) out[p] = combine(l, 4, p, parts);
    }
}
void sum_double(const double* x, int n, double out[2], int parts) {
    double s[4], c[4];
    lanes_comp(x, n, s, c);
    for (int p = 0; p < parts; ++p) out[p] = combine_comp(s, c, p, parts);
}

inline bool fast(zamHintAlgorithm h) { return h == zamAlgHintFast; }

// ---------------------------------------------------------------- sums

template <class T> int64_t int_sum(const T* x, int n) {
    int64_t s = 0;
    for (int i = 0; i < n; ++i) s += x[i];
    return s;
}
// Both parts of a 16-bit complex vector.
void int_sum_c(const Zam16sc* x, int n, int64_t out[2]) {
    int64_t r = 0, m = 0;
    for (int i = 0; i < n; ++i) r += x[i].re, m += x[i].im;
    out[0] = r, out[1] = m;
}

template <class D, class S> zamStatus sum_int(const S* src, int len, D* dst, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    *dst = scale_round_sat<D>(int_sum(src, len), sf);
    return zamStatusOk;
}
template <class D> zamStatus sum_16sc(const Zam16sc* src, int len, D* dst, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    int64_t v[2];
    int_sum_c(src, len, v);
    using P = part_t<D>;
    *dst = D{scale_round_sat<P>(v[0], sf), scale_round_sat<P>(v[1], sf)};
    return zamStatusOk;
}

template <class T> zamStatus sum_fl(const T* src, int len, T* dst, zamHintAlgorithm hint, bool mean) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    double v[2];
    constexpr int parts = is_complex_v<T> ? 2 : 1;
    if constexpr (std::is_same_v<T, Zam32f> || std::is_same_v<T, Zam32fc>) {
        sum_float(reinterpret_cast<const float*>(src), len * parts, fast(hint), v, parts);
        if (fast(hint)) {  // the fast path stays in single precision
            float r[2] = {float(v[0]), parts == 2 ? float(v[1]) : 0.0f};
            if (mean) r[0] /= float(len), r[1] /= float(len);
            std::memcpy(static_cast<void*>(dst), r, sizeof(T));
            return zamStatusOk;
        }
    } else {
        sum_double(reinterpret_cast<const double*>(src), len * parts, v, parts);
    }
    using P = std::conditional_t<is_complex_v<T>, part_t<T>, T>;
    P r[2] = {P(mean ? v[0] / len : v[0]), P(parts == 2 ? (mean ? v[1] / len : v[1]) : 0)};
    std::memcpy(static_cast<void*>(dst), r, sizeof(T));
    return zamStatusOk;
}

// ----------------------------------------------------------- int means

// sum * 2^-sf / len, the exponent limited to 1023 (positive factor) and
// 1024 (negative factor), clamped to T's range for a negative factor,
// rounded to nearest even.
template <class T> T mean_of(double sum, int len, int sf) {
    if (sum == 0) return T(0);
    double v = sf >= 0 ? sum * pow2(-(sf > 1023 ? 1023 : sf)) : sum * pow2(-sf > 1023 ? 1023 : -sf) * (-sf > 1023 ? 2.0 : 1.0);
    v /= len;
    if (sf < 0) v = v > double(traits<T>::max) ? double(traits<T>::max) : (v < double(traits<T>::min) ? double(traits<T>::min) : v);
    return round_sat<T>(v);
}

template <class T> zamStatus mean_int(const T* src, int len, T* dst, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    *dst = mean_of<T>(double(int_sum(src, len)), len, sf);
    return zamStatusOk;
}
zamStatus mean_16sc(const Zam16sc* src, int len, Zam16sc* dst, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    int64_t v[2];
    int_sum_c(src, len, v);
    *dst = Zam16sc{mean_of<Zam16s>(double(v[0]), len, sf), mean_of<Zam16s>(double(v[1]), len, sf)};
    return zamStatusOk;
}

// ------------------------------------------------ standard deviations

// Floating: the fast path takes single-precision sums S1, S2 and the
// formula sqrt((n S2 - S1^2) / ((n - 1) n)); the accurate path takes the
// mean first and sums the squared deviations in double precision.
template <class T> void mean_sd(const T* x, int n, bool fast_path, double* mean, double* sd) {
    if constexpr (std::is_same_v<T, Zam32f>) {
        if (fast_path) {
            __m256 s1 = _mm256_setzero_ps(), s2 = s1, t1 = s1, t2 = s1;
            int i = 0;
            for (; i + 16 <= n; i += 16) {
                __m256 a = _mm256_loadu_ps(x + i), b = _mm256_loadu_ps(x + i + 8);
                s1 = _mm256_add_ps(s1, a), s2 = _mm256_add_ps(s2, _mm256_mul_ps(a, a));
                t1 = _mm256_add_ps(t1, b), t2 = _mm256_add_ps(t2, _mm256_mul_ps(b, b));
            }
            float l1[8], l2[8];
            _mm256_storeu_ps(l1, _mm256_add_ps(s1, t1));
            _mm256_storeu_ps(l2, _mm256_add_ps(s2, t2));
            for (; i < n; ++i) l1[i & 7] += x[i], l2[i & 7] += x[i] * x[i];
            float a = combine(l1, 8, 0, 1), b = combine(l2, 8, 0, 1);
            double var = (double(n) * b - double(a) * a) / ((double(n) - 1) * n);
            *mean = double(a) / n;
            *sd = std::sqrt(var > 0 ? var : 0);
            return;
        }
    }
    double s[2];
    if constexpr (std::is_same_v<T, Zam32f>) sum_float(x, n, false, s, 1);
    else sum_double(x, n, s, 1);
    const double m = s[0] / n;
    __m256d vm = _mm256_set1_pd(m), a0 = _mm256_setzero_pd(), a1 = a0;
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        __m256d d0, d1;
        if constexpr (std::is_same_v<T, Zam32f>) {
            d0 = _mm256_cvtps_pd(_mm_loadu_ps(x + i)), d1 = _mm256_cvtps_pd(_mm_loadu_ps(x + i + 4));
        } else {
            d0 = _mm256_loadu_pd(x + i), d1 = _mm256_loadu_pd(x + i + 4);
        }
        d0 = _mm256_sub_pd(d0, vm), d1 = _mm256_sub_pd(d1, vm);
        a0 = _mm256_add_pd(a0, _mm256_mul_pd(d0, d0)), a1 = _mm256_add_pd(a1, _mm256_mul_pd(d1, d1));
    }
    double l[4];
    _mm256_storeu_pd(l, _mm256_add_pd(a0, a1));
    for (; i < n; ++i) {
        double d = double(x[i]) - m;
        l[i & 3] += d * d;
    }
    *mean = m;
    *sd = std::sqrt(combine(l, 4, 0, 1) / (n - 1));
}

template <class T> zamStatus stddev_fl(const T* src, int len, T* pMean, T* pSd, zamHintAlgorithm hint) {
    if (zamStatus s = check_ptr(src, pSd, pMean)) return s;
    if (len < 2) return zamStatusBadLength;
    double m, sd;
    mean_sd(src, len, fast(hint), &m, &sd);
    if (pMean != pSd) *pMean = T(m);
    *pSd = T(sd);
    return zamStatusOk;
}

// Integers: S1 and S2 exact, the numerator n S2 - S1^2 exact in 128 bits,
// one division and root in double precision, then scaled and rounded.
template <class D> zamStatus stddev_int(const Zam16s* src, int len, D* pMean, D* pSd, int sf, bool limit16) {
    if (zamStatus s = check_ptr(src, pSd, pMean)) return s;
    if (len < 2) return zamStatusBadLength;
    int64_t s1 = 0, s2 = 0;
    for (int i = 0; i < len; ++i) s1 += src[i], s2 += int64_t(src[i]) * src[i];
    I128 num = mul(len, s2) - mul(s1, s1);
    double sd = std::sqrt(num.to_double() / ((double(len) - 1) * len));
    int k = sf < -1100 ? -1100 : (sf > 1100 ? 1100 : sf);
    double scaled = k > 1023 ? 0.0 : (k < -1023 ? (sd > 0 ? std::numeric_limits<double>::infinity() : 0.0) : sd * pow2(-k));
    Zam32s r = round_sat<Zam32s>(scaled);
    if (limit16 && r > 32767) r = 32767;
    *pSd = static_cast<D>(r);
    if (pMean != pSd) *pMean = mean_of<D>(double(s1), len, sf);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::red

using namespace zams::red;

ZAMS_FN(zamStatus, zamsSum_16s_Sfs)(const Zam16s* pSrc, int len, Zam16s* pSum, int scaleFactor) {
    Zam32s wide;
    if (zamStatus s = zams::check_ptr(pSum)) return s;
    zamStatus s = sum_int(pSrc, len, &wide, scaleFactor);
    if (s == zamStatusOk) *pSum = zams::saturate<Zam16s>(wide);
    return s;
}
ZAMS_FN(zamStatus, zamsSum_16s32s_Sfs)(const Zam16s* pSrc, int len, Zam32s* pSum, int scaleFactor) { return sum_int(pSrc, len, pSum, scaleFactor); }
ZAMS_FN(zamStatus, zamsSum_16sc_Sfs)(const Zam16sc* pSrc, int len, Zam16sc* pSum, int scaleFactor) { return sum_16sc(pSrc, len, pSum, scaleFactor); }
ZAMS_FN(zamStatus, zamsSum_16sc32sc_Sfs)(const Zam16sc* pSrc, int len, Zam32sc* pSum, int scaleFactor) { return sum_16sc(pSrc, len, pSum, scaleFactor); }
ZAMS_FN(zamStatus, zamsSum_32s_Sfs)(const Zam32s* pSrc, int len, Zam32s* pSum, int scaleFactor) { return sum_int(pSrc, len, pSum, scaleFactor); }
ZAMS_FN(zamStatus, zamsSum_32f)(const Zam32f* pSrc, int len, Zam32f* pSum, zamHintAlgorithm hint) { return sum_fl(pSrc, len, pSum, hint, false); }
ZAMS_FN(zamStatus, zamsSum_32fc)(const Zam32fc* pSrc, int len, Zam32fc* pSum, zamHintAlgorithm hint) { return sum_fl(pSrc, len, pSum, hint, false); }
ZAMS_FN(zamStatus, zamsSum_64f)(const Zam64f* pSrc, int len, Zam64f* pSum) { return sum_fl(pSrc, len, pSum, zamAlgHintAccurate, false); }
ZAMS_FN(zamStatus, zamsSum_64fc)(const Zam64fc* pSrc, int len, Zam64fc* pSum) { return sum_fl(pSrc, len, pSum, zamAlgHintAccurate, false); }

ZAMS_FN(zamStatus, zamsMean_16s_Sfs)(const Zam16s* pSrc, int len, Zam16s* pMean, int scaleFactor) { return mean_int(pSrc, len, pMean, scaleFactor); }
ZAMS_FN(zamStatus, zamsMean_16sc_Sfs)(const Zam16sc* pSrc, int len, Zam16sc* pMean, int scaleFactor) { return mean_16sc(pSrc, len, pMean, scaleFactor); }
ZAMS_FN(zamStatus, zamsMean_32s_Sfs)(const Zam32s* pSrc, int len, Zam32s* pMean, int scaleFactor) { return mean_int(pSrc, len, pMean, scaleFactor); }
ZAMS_FN(zamStatus, zamsMean_32f)(const Zam32f* pSrc, int len, Zam32f* pMean, zamHintAlgorithm hint) { return sum_fl(pSrc, len, pMean, hint, true); }
ZAMS_FN(zamStatus, zamsMean_32fc)(const Zam32fc* pSrc, int len, Zam32fc* pMean, zamHintAlgorithm hint) { return sum_fl(pSrc, len, pMean, hint, true); }
ZAMS_FN(zamStatus, zamsMean_64f)(const Zam64f* pSrc, int len, Zam64f* pMean) { return sum_fl(pSrc, len, pMean, zamAlgHintAccurate, true); }
ZAMS_FN(zamStatus, zamsMean_64fc)(const Zam64fc* pSrc, int len, Zam64fc* pMean) { return sum_fl(pSrc, len, pMean, zamAlgHintAccurate, true); }

ZAMS_FN(zamStatus, zamsStdDev_16s_Sfs)(const Zam16s* pSrc, int len, Zam16s* pStdDev, int scaleFactor) { return stddev_int(pSrc, len, pStdDev, pStdDev, scaleFactor, true); }
ZAMS_FN(zamStatus, zamsStdDev_16s32s_Sfs)(const Zam16s* pSrc, int len, Zam32s* pStdDev, int scaleFactor) { return stddev_int(pSrc, len, pStdDev, pStdDev, scaleFactor, false); }
ZAMS_FN(zamStatus, zamsStdDev_32f)(const Zam32f* pSrc, int len, Zam32f* pStdDev, zamHintAlgorithm hint) { return stddev_fl(pSrc, len, pStdDev, pStdDev, hint); }
ZAMS_FN(zamStatus, zamsStdDev_64f)(const Zam64f* pSrc, int len, Zam64f* pStdDev) { return stddev_fl(pSrc, len, pStdDev, pStdDev, zamAlgHintAccurate); }
ZAMS_FN(zamStatus, zamsMeanStdDev_16s_Sfs)(const Zam16s* pSrc, int len, Zam16s* pMean, Zam16s* pStdDev, int scaleFactor) { return stddev_int(pSrc, len, pMean, pStdDev, scaleFactor, true); }
ZAMS_FN(zamStatus, zamsMeanStdDev_16s32s_Sfs)(const Zam16s* pSrc, int len, Zam32s* pMean, Zam32s* pStdDev, int scaleFactor) { return stddev_int(pSrc, len, pMean, pStdDev, scaleFactor, false); }
ZAMS_FN(zamStatus, zamsMeanStdDev_32f)(const Zam32f* pSrc, int len, Zam32f* pMean, Zam32f* pStdDev, zamHintAlgorithm hint) { return stddev_fl(pSrc, len, pMean, pStdDev, hint); }
ZAMS_FN(zamStatus, zamsMeanStdDev_64f)(const Zam64f* pSrc, int len, Zam64f* pMean, Zam64f* pStdDev) { return stddev_fl(pSrc, len, pMean, pStdDev, zamAlgHintAccurate); }
