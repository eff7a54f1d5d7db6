// Elementary functions of floating vectors: Exp, Ln, Arctan on 32f and 64f.
// Special values follow IEEE and C99 Annex F: ln(+-0) = -inf, ln of a
// negative number is NaN, exp(-inf) = 0, atan(+-inf) = +-pi/2; no warnings.
#include "../common/check.h"
#include "../common/loop.h"
#include "elem_float32.h"
#include "elem_kernel.h"

namespace zams {

namespace {

template <class F, double (*Fn)(double)> zamStatus apply(const F* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(Fn(double(src[i])));
    return zamStatusOk;
}

// Single precision through the four-wide double kernels; a group with an
// argument they do not cover runs element by element.
template <class K, double (*Fallback)(double)> zamStatus apply32(const Zam32f* src, Zam32f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    auto one = [&](int i) {
        double x = src[i];
        dst[i] = Zam32f(K::covered(x) ? K::scalar(x) : Fallback(x));
    };
    for_each_block<4, 16>(dst, len, one, [&](int i) {
        __m256d x = _mm256_cvtps_pd(_mm_loadu_ps(src + i));
        __m256d in = _mm256_and_pd(_mm256_cmp_pd(x, _mm256_set1_pd(K::kLow), _CMP_GT_OQ),
                                   _mm256_cmp_pd(x, _mm256_set1_pd(K::kHigh), _CMP_LT_OQ));
        if (_mm256_movemask_pd(in) == 0xf) {
            _mm_storeu_ps(dst + i, _mm256_cvtpd_ps(K::vector(x)));
        } else {
            for (int j = i; j < i + 4; ++j) one(j);
        }
    });
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

#define ZAMS_ELEM_FLOAT32(Name, fn)                                                                 \
    ZAMS_FN(zamStatus, zams##Name##_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {              \
        return zams::apply<Zam32f, zams::elem::fn>(pSrc, pDst, len);                               \
    }                                                                                              \
    ZAMS_FN(zamStatus, zams##Name##_32f_I)(Zam32f * pSrcDst, int len) {                            \
        return zams::apply<Zam32f, zams::elem::fn>(pSrcDst, pSrcDst, len);                         \
    }

#define ZAMS_ELEM_FLOAT(Name, fn)                                                                   \
    ZAMS_FN(zamStatus, zams##Name##_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) {              \
        return zams::apply<Zam64f, zams::elem::fn>(pSrc, pDst, len);                               \
    }                                                                                              \
    ZAMS_FN(zamStatus, zams##Name##_64f_I)(Zam64f * pSrcDst, int len) {                            \
        return zams::apply<Zam64f, zams::elem::fn>(pSrcDst, pSrcDst, len);                         \
    }

ZAMS_ELEM_FLOAT(Exp, exp)
ZAMS_ELEM_FLOAT(Ln, log)
ZAMS_ELEM_FLOAT(Arctan, atan)
ZAMS_ELEM_FLOAT32(Arctan, atan)

ZAMS_FN(zamStatus, zamsExp_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {
    return zams::apply32<zams::elem32::ExpD, zams::elem::exp>(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsExp_32f_I)(Zam32f* pSrcDst, int len) {
    return zams::apply32<zams::elem32::ExpD, zams::elem::exp>(pSrcDst, pSrcDst, len);
}
ZAMS_FN(zamStatus, zamsLn_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {
    return zams::apply32<zams::elem32::LnD, zams::elem::log>(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsLn_32f_I)(Zam32f* pSrcDst, int len) {
    return zams::apply32<zams::elem32::LnD, zams::elem::log>(pSrcDst, pSrcDst, len);
}
