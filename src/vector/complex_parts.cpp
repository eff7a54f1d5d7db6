// Parts of complex vectors: Real, Imag, CplxToReal, RealToCplx, Conj, ConjFlip.
#include <utility>

#include "common/check.h"
#include "common/types.h"

namespace zams {
namespace {

// Negation of an imaginary part: integers saturate (-32768 gives 32767).
template <class P> inline P negate(P x) {
    if constexpr (std::is_integral_v<P>) return saturate<P>(-static_cast<typename traits<P>::wide>(x));
    else return -x;
}
template <class C> inline C conj(C z) { return C{z.re, negate(z.im)}; }

template <class C, class P> zamStatus real(const C* src, P* re, int len) {
    if (zamStatus s = check_args(len, src, re)) return s;
    for (int i = 0; i < len; ++i) re[i] = src[i].re;
    return zamStatusOk;
}

template <class C, class P> zamStatus imag(const C* src, P* im, int len) {
    if (zamStatus s = check_args(len, src, im)) return s;
    for (int i = 0; i < len; ++i) im[i] = src[i].im;
    return zamStatusOk;
}

template <class C, class P> zamStatus to_real(const C* src, P* re, P* im, int len) {
    if (zamStatus s = check_args(len, src, re, im)) return s;
    for (int i = 0; i < len; ++i) {
        C z = src[i];
        re[i] = z.re;
        im[i] = z.im;
    }
    return zamStatusOk;
}

template <class P, class C> zamStatus to_cplx(const P* re, const P* im, C* dst, int len) {
    if (zamStatus s = check_args(len, re, im, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = C{re[i], im[i]};
    return zamStatusOk;
}

template <class C> zamStatus conj_v(const C* src, C* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = conj(src[i]);
    return zamStatusOk;
}

template <class C> zamStatus conj_flip(const C* src, C* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (src == dst) {
        int i = 0, j = len - 1;
        for (; i < j; ++i, --j) {
            C a = dst[i], b = dst[j];
            dst[i] = conj(b);
            dst[j] = conj(a);
        }
        if (i == j) dst[i] = conj(dst[i]);
    } else {
        for (int i = 0; i < len; ++i) dst[i] = conj(src[len - 1 - i]);
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

#define ZAMS_CPLX_PARTS(C, P)                                                                                   \
    ZAMS_FN(zamStatus, zamsReal_##C)(const Zam##C* s, Zam##P* re, int n) { return real(s, re, n); }             \
    ZAMS_FN(zamStatus, zamsImag_##C)(const Zam##C* s, Zam##P* im, int n) { return imag(s, im, n); }             \
    ZAMS_FN(zamStatus, zamsCplxToReal_##C)(const Zam##C* s, Zam##P* re, Zam##P* im, int n) {                    \
        return to_real(s, re, im, n);                                                                           \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsRealToCplx_##P)(const Zam##P* re, const Zam##P* im, Zam##C* d, int n) {              \
        return to_cplx(re, im, d, n);                                                                           \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsConj_##C)(const Zam##C* s, Zam##C* d, int n) { return conj_v(s, d, n); }             \
    ZAMS_FN(zamStatus, zamsConj_##C##_I)(Zam##C * p, int n) { return conj_v<Zam##C>(p, p, n); }                 \
    ZAMS_FN(zamStatus, zamsConjFlip_##C)(const Zam##C* s, Zam##C* d, int n) { return conj_flip(s, d, n); }

ZAMS_CPLX_PARTS(16sc, 16s)
ZAMS_CPLX_PARTS(32fc, 32f)
ZAMS_CPLX_PARTS(64fc, 64f)
