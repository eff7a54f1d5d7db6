// The loops of the scalar-kernel elementary functions: one function of
// double (or of a double pair, for complex data) applied to every element,
// after the argument checks. A 32f or 32fc element is widened to double,
// evaluated by the double kernel and rounded once; the double kernels are
// accurate to well under an ulp of double, so single precision results
// are within an ulp. Elements are independent, so in place is the same
// loop with the source as the destination.
#pragma once

#include "../common/check.h"

namespace zams::elemf {

using Fn1 = double (*)(double);
using Fn2 = double (*)(double, double);
// complex kernel: (re, im) -> (*re_out, *im_out)
using FnC = void (*)(double, double, double*, double*);
using FnC2 = void (*)(double, double, double, double, double*, double*);

template <class F, Fn1 Fn> zamStatus unary(const F* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(Fn(double(src[i])));
    return zamStatusOk;
}

template <class F, Fn2 Fn> zamStatus binary(const F* a, const F* b, F* dst, int len) {
    if (zamStatus s = check_args(len, a, b, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(Fn(double(a[i]), double(b[i])));
    return zamStatusOk;
}

// Fn(element, constant)
template <class F, Fn2 Fn> zamStatus with_const(const F* src, F val, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(Fn(double(src[i]), double(val)));
    return zamStatusOk;
}

// two outputs of one argument
template <class F, void (*Fn)(double, double*, double*)> zamStatus unary2(const F* src, F* d1, F* d2, int len) {
    if (zamStatus s = check_args(len, src, d1, d2)) return s;
    for (int i = 0; i < len; ++i) {
        double a, b;
        Fn(double(src[i]), &a, &b);
        d1[i] = F(a);
        d2[i] = F(b);
    }
    return zamStatusOk;
}

template <class C, FnC Fn> zamStatus complex_unary(const C* src, C* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    using F = decltype(src->re);
    for (int i = 0; i < len; ++i) {
        double re, im;
        Fn(double(src[i].re), double(src[i].im), &re, &im);
        dst[i].re = F(re);
        dst[i].im = F(im);
    }
    return zamStatusOk;
}

template <class C, FnC2 Fn> zamStatus complex_binary(const C* a, const C* b, C* dst, int len) {
    if (zamStatus s = check_args(len, a, b, dst)) return s;
    using F = decltype(a->re);
    for (int i = 0; i < len; ++i) {
        double re, im;
        Fn(double(a[i].re), double(a[i].im), double(b[i].re), double(b[i].im), &re, &im);
        dst[i].re = F(re);
        dst[i].im = F(im);
    }
    return zamStatusOk;
}

// complex element, real constant
template <class C, FnC2 Fn> zamStatus complex_with_const(const C* src, decltype(src->re) val, C* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    using F = decltype(src->re);
    for (int i = 0; i < len; ++i) {
        double re, im;
        Fn(double(src[i].re), double(src[i].im), double(val), 0.0, &re, &im);
        dst[i].re = F(re);
        dst[i].im = F(im);
    }
    return zamStatusOk;
}

}  // namespace zams::elemf

// The bindings: one line a function family in every type and form.
#define ZAMS_UNARY(Name, T, fn)                                                                          \
    ZAMS_FN(zamStatus, zams##Name##_##T)(const Zam##T* pSrc, Zam##T* pDst, int len) {                   \
        return zams::elemf::unary<Zam##T, fn>(pSrc, pDst, len);                                         \
    }                                                                                                   \
    ZAMS_FN(zamStatus, zams##Name##_##T##_I)(Zam##T * pSrcDst, int len) {                               \
        return zams::elemf::unary<Zam##T, fn>(pSrcDst, pSrcDst, len);                                   \
    }
#define ZAMS_UNARY_REAL(Name, fn) ZAMS_UNARY(Name, 32f, fn) ZAMS_UNARY(Name, 64f, fn)

#define ZAMS_BINARY(Name, T, fn)                                                                         \
    ZAMS_FN(zamStatus, zams##Name##_##T)(const Zam##T* pSrc1, const Zam##T* pSrc2, Zam##T* pDst, int len) { \
        return zams::elemf::binary<Zam##T, fn>(pSrc1, pSrc2, pDst, len);                                \
    }
#define ZAMS_BINARY_REAL(Name, fn) ZAMS_BINARY(Name, 32f, fn) ZAMS_BINARY(Name, 64f, fn)

#define ZAMS_WITH_CONST(Name, T, fn)                                                                     \
    ZAMS_FN(zamStatus, zams##Name##_##T)(const Zam##T* pSrc, Zam##T val, Zam##T* pDst, int len) {       \
        return zams::elemf::with_const<Zam##T, fn>(pSrc, val, pDst, len);                               \
    }                                                                                                   \
    ZAMS_FN(zamStatus, zams##Name##_##T##_I)(Zam##T val, Zam##T * pSrcDst, int len) {                   \
        return zams::elemf::with_const<Zam##T, fn>(pSrcDst, val, pSrcDst, len);                         \
    }

#define ZAMS_COMPLEX_UNARY(Name, T, fn)                                                                  \
    ZAMS_FN(zamStatus, zams##Name##_##T)(const Zam##T* pSrc, Zam##T* pDst, int len) {                   \
        return zams::elemf::complex_unary<Zam##T, fn>(pSrc, pDst, len);                                 \
    }                                                                                                   \
    ZAMS_FN(zamStatus, zams##Name##_##T##_I)(Zam##T * pSrcDst, int len) {                               \
        return zams::elemf::complex_unary<Zam##T, fn>(pSrcDst, pSrcDst, len);                           \
    }
#define ZAMS_COMPLEX_UNARY_BOTH(Name, fn) ZAMS_COMPLEX_UNARY(Name, 32fc, fn) ZAMS_COMPLEX_UNARY(Name, 64fc, fn)

#define ZAMS_COMPLEX_BINARY(Name, T, fn)                                                                 \
    ZAMS_FN(zamStatus, zams##Name##_##T)(const Zam##T* pSrc1, const Zam##T* pSrc2, Zam##T* pDst, int len) { \
        return zams::elemf::complex_binary<Zam##T, fn>(pSrc1, pSrc2, pDst, len);                        \
    }
#define ZAMS_COMPLEX_WITH_CONST(Name, T, P, fn)                                                          \
    ZAMS_FN(zamStatus, zams##Name##_##T)(const Zam##T* pSrc, Zam##P val, Zam##T* pDst, int len) {       \
        return zams::elemf::complex_with_const<Zam##T, fn>(pSrc, val, pDst, len);                       \
    }                                                                                                   \
    ZAMS_FN(zamStatus, zams##Name##_##T##_I)(Zam##P val, Zam##T * pSrcDst, int len) {                   \
        return zams::elemf::complex_with_const<Zam##T, fn>(pSrcDst, val, pSrcDst, len);                 \
    }
