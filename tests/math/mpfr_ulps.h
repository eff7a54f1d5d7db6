// Distance of a result from an exact MPFR value, in ulps of the result type.
#pragma once

#ifdef ZAMS_TEST_MPFR
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
#endif
