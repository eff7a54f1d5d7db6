// Distance of a result from an exact MPFR value, in ulps of the result type.
#pragma once

#ifdef ZAMS_TEST_MPFR
#include <cmath>
#include <limits>

#include <mpfr.h>

// |got - e| in ulps of F at e's binade (ulps of the smallest normal for
// sub-normal results).
template <class F> double ulps_from_exact(mpfr_srcptr e, F got) {
    constexpr int p = std::numeric_limits<F>::digits;
    constexpr int emin = std::numeric_limits<F>::min_exponent;
    mpfr_t g;
    mpfr_init2(g, mpfr_get_prec(e));
    mpfr_set_d(g, double(got), MPFR_RNDN);
    mpfr_sub(g, g, e, MPFR_RNDN);
    mpfr_abs(g, g, MPFR_RNDN);
    long ex = mpfr_zero_p(e) ? emin : mpfr_get_exp(e);
    if (ex < emin) ex = emin;
    mpfr_mul_2si(g, g, -(ex - p), MPFR_RNDN);
    double out = mpfr_get_d(g, MPFR_RNDN);
    mpfr_clear(g);
    return out;
}

// The same for a result meant to be exact: NaN for NaN, an infinity (or a
// value beyond the type's range) met exactly.
template <class F> double ulps_or_special(mpfr_srcptr e, F got) {
    if (mpfr_nan_p(e)) return std::isnan(got) ? 0 : 1e9;
    if (mpfr_inf_p(e) || std::isinf(got)) return F(mpfr_get_d(e, MPFR_RNDN)) == got ? 0 : 1e9;
    return ulps_from_exact(e, got);
}

// The error of both parts of a complex result in ulps of F at the binade of
// the larger exact part.
template <class F> double ulps_of_larger(mpfr_srcptr re, mpfr_srcptr im, F got_re, F got_im) {
    constexpr int p = std::numeric_limits<F>::digits;
    constexpr int emin = std::numeric_limits<F>::min_exponent;
    mpfr_srcptr big = mpfr_cmpabs(re, im) >= 0 ? re : im;
    long ex = mpfr_zero_p(big) ? emin : mpfr_get_exp(big);
    if (ex < emin) ex = emin;
    mpfr_t g;
    mpfr_init2(g, 200);
    double w = 0;
    for (int k = 0; k < 2; ++k) {
        mpfr_set_d(g, double(k ? got_im : got_re), MPFR_RNDN);
        mpfr_sub(g, g, k ? im : re, MPFR_RNDN);
        mpfr_abs(g, g, MPFR_RNDN);
        mpfr_mul_2si(g, g, -(ex - p), MPFR_RNDN);
        double u = mpfr_nan_p(g) ? 1e9 : mpfr_get_d(g, MPFR_RNDN);
        if (u > w) w = u;
    }
    mpfr_clear(g);
    return w;
}

// Error of got against fn(x) and fn(y, x) evaluated with 200-bit MPFR.
template <class F> double mpfr_ulps(int (*fn)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t), double x, F got) {
    mpfr_t a, e;
    mpfr_inits2(200, a, e, (mpfr_ptr)nullptr);
    mpfr_set_d(a, x, MPFR_RNDN);
    fn(e, a, MPFR_RNDN);
    double out = ulps_or_special(e, got);
    mpfr_clears(a, e, (mpfr_ptr)nullptr);
    return out;
}
template <class F>
double mpfr_ulps(int (*fn)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t), double y, double x, F got) {
    mpfr_t a, b, e;
    mpfr_inits2(200, a, b, e, (mpfr_ptr)nullptr);
    mpfr_set_d(a, y, MPFR_RNDN);
    mpfr_set_d(b, x, MPFR_RNDN);
    fn(e, a, b, MPFR_RNDN);
    double out = ulps_or_special(e, got);
    mpfr_clears(a, b, e, (mpfr_ptr)nullptr);
    return out;
}
#endif
