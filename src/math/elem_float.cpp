// Elementary functions of floating vectors: Exp, Ln, Arctan on 32f and 64f.
// Special values follow IEEE and C99 Annex F: ln(+-0) = -inf, ln of a
// negative number is NaN, exp(-inf) = 0, atan(+-inf) = +-pi/2; no warnings.
#include "../common/check.h"
#include "../common/loop.h"
#include "../common/num/elem.h"
#include "elem_float32.h"
#include "elem_vec.h"
#include "exp64.h"

namespace zams {

namespace {

template <class F, double (*Fn)(double)> zamStatus apply(const F* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(Fn(double(src[i])));
    return zamStatusOk;
}

// Vector steps of W elements where `step` takes the group (it returns false
// for a group holding an argument its kernel does not cover, before
// storing anything), element steps `one` for the rest; both give the same
// bits for a covered argument.
template <int W, int Align = 32, class T, class One, class Step> void blocks(T* dst, int len, One&& one, Step&& step) {
    for_each_block<W, Align>(dst, len, one, [&](int i) {
        if (!step(i))
            for (int j = i; j < i + W; ++j) one(j);
    });
}

// Single precision through the four-wide double kernels of elem_float32.h.
template <class K, double (*Fallback)(double)> zamStatus apply32(const Zam32f* src, Zam32f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    auto one = [&](int i) {
        double x = src[i];
        dst[i] = Zam32f(K::covered(x) ? K::scalar(x) : Fallback(x));
    };
    blocks<4, 16>(dst, len, one, [&](int i) {
        __m256d x = _mm256_cvtps_pd(_mm_loadu_ps(src + i));
        __m256d in = _mm256_and_pd(_mm256_cmp_pd(x, _mm256_set1_pd(K::kLow), _CMP_GT_OQ),
                                   _mm256_cmp_pd(x, _mm256_set1_pd(K::kHigh), _CMP_LT_OQ));
        if (_mm256_movemask_pd(in) != 0xf) return false;
        _mm_storeu_ps(dst + i, _mm256_cvtpd_ps(K::vector(x)));
        return true;
    });
    return zamStatusOk;
}

// Single-precision e^x eight at a time; elements outside the kernel's
// range take the double kernel, rounded once.
zamStatus exp32(const Zam32f* src, Zam32f* dst, int len) {
    using K = elem32::ExpF;
    if (zamStatus s = check_args(len, src, dst)) return s;
    auto one = [&](int i) {
        float x = src[i];
        dst[i] = K::covered(x) ? K::scalar(x) : Zam32f(elem::exp(double(x)));
    };
    blocks<8>(dst, len, one, [&](int i) {
        __m256 x = _mm256_loadu_ps(src + i);
        if (!K::covered(x)) return false;
        _mm256_storeu_ps(dst + i, K::vector(x));
        return true;
    });
    return zamStatusOk;
}

// Double precision four at a time through the lane-wise kernels of
// elem_vec.h, which give the scalar kernel's bits.
template <class V, double (*Fn)(double)> zamStatus apply64v(const Zam64f* src, Zam64f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    // two groups per step, so that their long dependency chains overlap
    blocks<8>(dst, len, [&](int i) { dst[i] = Fn(src[i]); }, [&](int i) {
        __m256d x = _mm256_loadu_pd(src + i), y = _mm256_loadu_pd(src + i + 4);
        if (!V::covered(x) || !V::covered(y)) return false;
        __m256d a = V::eval(x), b = V::eval(y);
        _mm256_storeu_pd(dst + i, a);
        _mm256_storeu_pd(dst + i + 4, b);
        return true;
    });
    return zamStatusOk;
}

// e^x in double: the table kernel of exp64.h, four lanes or one, and the
// classical kernel for arguments outside its range.
inline double exp_any(double x) { return exp64::covered(x) ? exp64::scalar(x) : elem::exp(x); }
struct ExpTable {
    static bool covered(__m256d x) { return exp64::covered(x); }
    static __m256d eval(__m256d x) { return exp64::vector(x); }
};

}  // namespace

}  // namespace zams

#define ZAMS_ELEM_FLOAT(Name, fn)                                                                   \
    ZAMS_FN(zamStatus, zams##Name##_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) {              \
        return zams::apply<Zam64f, zams::elem::fn>(pSrc, pDst, len);                               \
    }                                                                                              \
    ZAMS_FN(zamStatus, zams##Name##_64f_I)(Zam64f * pSrcDst, int len) {                            \
        return zams::apply<Zam64f, zams::elem::fn>(pSrcDst, pSrcDst, len);                         \
    }

#define ZAMS_ELEM_VEC(Name, V, fn)                                                                  \
    ZAMS_FN(zamStatus, zams##Name##_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) {              \
        return zams::apply64v<zams::V, zams::fn>(pSrc, pDst, len);                                 \
    }                                                                                              \
    ZAMS_FN(zamStatus, zams##Name##_64f_I)(Zam64f * pSrcDst, int len) {                            \
        return zams::apply64v<zams::V, zams::fn>(pSrcDst, pSrcDst, len);                           \
    }

ZAMS_ELEM_VEC(Exp, ExpTable, exp_any)
ZAMS_ELEM_FLOAT(Ln, log)
ZAMS_ELEM_VEC(Arctan, elemv::Atan, elem::atan)

ZAMS_FN(zamStatus, zamsArctan_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {
    return zams::apply32<zams::elem32::AtanD, zams::elem::atan>(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsArctan_32f_I)(Zam32f* pSrcDst, int len) {
    return zams::apply32<zams::elem32::AtanD, zams::elem::atan>(pSrcDst, pSrcDst, len);
}

ZAMS_FN(zamStatus, zamsExp_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {
    return zams::exp32(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsExp_32f_I)(Zam32f* pSrcDst, int len) {
    return zams::exp32(pSrcDst, pSrcDst, len);
}
ZAMS_FN(zamStatus, zamsLn_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {
    return zams::apply32<zams::elem32::LnD, zams::elem::log>(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsLn_32f_I)(Zam32f* pSrcDst, int len) {
    return zams::apply32<zams::elem32::LnD, zams::elem::log>(pSrcDst, pSrcDst, len);
}
