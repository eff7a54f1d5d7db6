// Logarithms of integer vectors with a scale factor: Ln_16s and 10Log10_32s.
// Each result is round(f(x) 2^-sf), ties to even, saturated. A non-positive
// element gives the type's minimum; the first of them decides the warning:
// 7 for a zero, 8 for a negative number.
#include <immintrin.h>

#include <limits>

#include "../common/check.h"
#include "../common/num/elem.h"
#include "div_kernel.h"

namespace zams {

namespace {

constexpr double kTenOverLn10 = 4.34294481903251827651;

template <class T> T round_scaled(double v, int sf) {
    if (sf > 200) sf = 200;
    if (sf < -200) sf = -200;
    v *= pow2(-sf);
    v = _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(v), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
    if (v >= double(std::numeric_limits<T>::max())) return std::numeric_limits<T>::max();
    if (v <= double(std::numeric_limits<T>::min())) return std::numeric_limits<T>::min();
    return T(int32_t(v));
}

// 10 log10(x) is an integer only at powers of ten; those are exact, so that
// a tie after scaling rounds the exact value, not a neighbour of it.
inline bool power_of_ten(int64_t x, double& v) {
    int64_t p = 1;
    for (int j = 0; j <= 18; ++j) {
        if (x == p) {
            v = 10.0 * j;
            return true;
        }
        if (p > x || j == 18) return false;
        p *= 10;
    }
    return false;
}

template <class T> zamStatus log_int(const T* src, T* dst, int len, int sf, double factor) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    zamStatus warn = zamStatusOk;
    for (int i = 0; i < len; ++i) {
        T x = src[i];
        if (x <= 0) {
            if (warn == zamStatusOk) warn = x == 0 ? zamStatusWarnLnZero : zamStatusWarnLnNegative;
            dst[i] = std::numeric_limits<T>::min();
        } else {
            double v;
            if (!(factor != 1.0 && power_of_ten(x, v))) v = elem::log(double(x)) * factor;
            dst[i] = round_scaled<T>(v, sf);
        }
    }
    return warn;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsLn_16s_ISfs)(Zam16s* pSrcDst, int len, int scaleFactor) {
    return zams::log_int(pSrcDst, pSrcDst, len, scaleFactor, 1.0);
}
ZAMS_FN(zamStatus, zamsLn_16s_Sfs)(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    if (pSrc == pDst) return zamsLn_16s_ISfs(pDst, len, scaleFactor);
    return zams::log_int(pSrc, pDst, len, scaleFactor, 1.0);
}
ZAMS_FN(zamStatus, zams10Log10_32s_ISfs)(Zam32s* pSrcDst, int len, int scaleFactor) {
    return zams::log_int(pSrcDst, pSrcDst, len, scaleFactor, zams::kTenOverLn10);
}
ZAMS_FN(zamStatus, zams10Log10_32s_Sfs)(const Zam32s* pSrc, Zam32s* pDst, int len, int scaleFactor) {
    if (pSrc == pDst) return zams10Log10_32s_ISfs(pDst, len, scaleFactor);
    return zams::log_int(pSrc, pDst, len, scaleFactor, zams::kTenOverLn10);
}
