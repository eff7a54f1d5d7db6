// The modified Bessel function of the first kind of order zero, I0(x) for
// x >= 0, from plain arithmetic (the C library's exp differs between
// targets), for Kaiser windows and filter design.
#pragma once

#include <cmath>

#include "../round.h"

namespace zams::num {

// e^x for 0 <= x <= 709: x = k ln2 + r, |r| <= ln2 / 2, e^r by its Taylor series.
inline double exp_pos(double x) {
    constexpr double kLn2Hi = 6.93147180369123816490e-01;  // low bits zero: k * kLn2Hi is exact
    constexpr double kLn2Lo = 1.90821492927058770002e-10;
    constexpr double kInvLn2 = 1.44269504088896338700e+00;
    double k = round_even(x * kInvLn2);
    double r = (x - k * kLn2Hi) - k * kLn2Lo;
    // sum of r^i / i!, i = 0..13, as 1 + r (1 + r/2 (1 + r/3 (...))).
    double e = 1.0;
    for (int i = 13; i >= 1; --i) e = 1.0 + e * r / i;
    return e * pow2(static_cast<int>(k));
}

// I0 by the polynomial approximations of Abramowitz and Stegun 9.8.1 and
// 9.8.2; x >= 0.
inline double bessel_i0(double x) {
    if (x < 3.75) {
        double t = x * 0.26666666666666666;
        double t2 = t * t;
        return 1.0 + t2 * (3.5156229 + t2 * (3.0899424 + t2 * (1.2067492 + t2 * (0.2659732 + t2 * (0.0360768 + t2 * 0.0045813)))));
    }
    double u = 3.75 / x;
    double p = 0.39894228 + u * (0.01328592 + u * (0.00225319 + u * (-0.00157565 + u * (0.00916281 + u * (-0.02057706 + u * (0.02635537 + u * (-0.01647633 + u * 0.00392377)))))));
    return exp_pos(x) / std::sqrt(x) * p;
}

// I0 by its power series, the sum over k of ((x/2)^k / k!)^2: every term
// positive, so full double precision (a few ulps) for 0 <= x <= 700; the
// design functions' Kaiser window.
inline double bessel_i0_series(double x) {
    const double q = 0.25 * x * x;
    double term = 1.0, sum = 1.0;
    for (int k = 1; term > sum * 1e-17; ++k) {
        term *= q / (double(k) * k);
        sum += term;
    }
    return sum;
}

}  // namespace zams::num
