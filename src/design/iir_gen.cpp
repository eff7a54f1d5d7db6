// IIR design: the poles of an analog low-pass prototype (Butterworth or
// Chebyshev type I, cutoff 1 rad/s), moved to the prewarped cutoff as a
// low-pass or high-pass filter and mapped by the bilinear transform; then
// either the polynomials b and a or a cascade of second-order sections.
//
// Every transcendental value comes from src/common (sincospi, the
// library's log and exp), so both targets give the same bits.
#include <cmath>

#include "../common/check.h"
#include "../common/num/elem.h"
#include "../common/trig.h"
#include "design.h"

namespace zams::design {
namespace {

constexpr int kMaxOrder = 64;
constexpr double kMaxRipple = 60.0;  // dB

// Complex arithmetic in plain double operations (the C library's complex
// division differs between targets); division by Smith's scaling, which
// does not overflow in the squared magnitude.
struct Cx {
    double re, im;
};
Cx operator+(Cx a, Cx b) { return {a.re + b.re, a.im + b.im}; }
Cx operator-(Cx a, Cx b) { return {a.re - b.re, a.im - b.im}; }
Cx operator*(Cx a, Cx b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
Cx operator/(Cx a, Cx b) {
    if (std::fabs(b.re) >= std::fabs(b.im)) {
        const double r = b.im / b.re, d = b.re + b.im * r;
        return {(a.re + a.im * r) / d, (a.im - a.re * r) / d};
    }
    const double r = b.re / b.im, d = b.re * r + b.im;
    return {(a.re * r + a.im) / d, (a.im * r - a.re) / d};
}
double abs2(Cx a) { return a.re * a.re + a.im * a.im; }

// e^x - 1 without the cancellation of the plain difference near 0.
double expm1(double x) {
    const double u = elem::exp(x);
    if (u == 1.0) return x;
    return (u - 1.0) * x / elem::log(u);
}

// asinh of a positive x.
double asinh_pos(double x) {
    if (x > 0x1p28) return elem::log(x) + 0.6931471805599453094;
    return elem::log(x + std::sqrt(x * x + 1.0));
}

// The analog prototype: poles p[0..N-1] (angles pi m / 2N, m = 1-N, 3-N,
// ..., N-1) and the gain that makes the low-pass gain 1 at 0 (Chebyshev of
// even order: 1 / sqrt(1 + eps^2), the bottom of the ripple).
struct Prototype {
    Cx p[kMaxOrder];
    double gain;
};

void butterworth(int N, double, Prototype& a) {
    for (int i = 0; i < N; ++i) {
        double s, c;
        sincospi_ratio(2 * i + 1 - N, 2 * N, &s, &c);
        a.p[i] = {-c, -s};
    }
    a.gain = 1.0;
}

void chebyshev1(int N, double ripple, Prototype& a) {
    const double eps2 = expm1(0.1 * ripple * 2.302585092994045684);  // 10^(ripple/10) - 1
    const double mu = asinh_pos(1.0 / std::sqrt(eps2)) / N;
    const double em = elem::exp(mu), sh = 0.5 * (em - 1.0 / em), ch = 0.5 * (em + 1.0 / em);
    Cx k{1.0, 0.0};
    for (int i = 0; i < N; ++i) {
        double s, c;
        sincospi_ratio(2 * i + 1 - N, 2 * N, &s, &c);
        a.p[i] = {-sh * c, -ch * s};  // -sinh(mu + j theta)
        k = k * Cx{-a.p[i].re, -a.p[i].im};
    }
    a.gain = N % 2 == 0 ? k.re / std::sqrt(1.0 + eps2) : k.re;
}

// The filter families as data, in zamIIRFilterType order: the prototype
// and whether it reads the ripple.
struct Family {
    void (*prototype)(int, double, Prototype&);
    bool usesRipple;
};
constexpr Family kFamilies[] = {{butterworth, false}, {chebyshev1, true}};
constexpr int kTypeCount = sizeof kFamilies / sizeof kFamilies[0];

// A digital filter as zeros, poles and gain. Every zero lies at -1
// (low-pass) or at +1 (high-pass).
struct Digital {
    int N;
    double zero;
    Cx p[kMaxOrder];
    double gain;
};

// With t = tan(pi f): a low-pass pole s maps to (1 + t s) / (1 - t s) and
// the gain is k t^N / prod(1 - t s); a high-pass pole (s + t) / (s - t)
// and the gain k / prod(t - s).
void digital(bool high, int N, double f, const Prototype& a, Digital& d) {
    double sn, cs;
    sincospi(f, &sn, &cs);
    const double t = sn / cs;
    const Cx one{1.0, 0.0}, T{t, 0.0};
    Cx den = one;
    double num = a.gain;
    for (int i = 0; i < N; ++i) {
        const Cx s = a.p[i];
        if (high) {
            d.p[i] = (s + T) / (s - T);
            den = den * (T - s);
        } else {
            d.p[i] = (one + T * s) / (one - T * s);
            den = den * (one - T * s);
            num *= t;
        }
    }
    d.N = N;
    d.zero = high ? 1.0 : -1.0;
    d.gain = num / den.re;
}

// b = gain (1 - zero z^-1)^N, a = prod (1 - p z^-1), expanded in the
// poles' order; a's imaginary parts cancel.
void to_ar(const Digital& d, double* taps) {
    const int N = d.N;
    double* b = taps;
    double* a = taps + N + 1;
    Cx c[kMaxOrder + 1] = {{1.0, 0.0}};
    b[0] = 1.0;
    for (int i = 0; i < N; ++i) {
        b[i + 1] = 0.0;
        c[i + 1] = {0.0, 0.0};
        for (int j = i + 1; j > 0; --j) {
            b[j] -= d.zero * b[j - 1];
            c[j] = c[j] - d.p[i] * c[j - 1];
        }
    }
    for (int j = 0; j <= N; ++j) {
        b[j] *= d.gain;
        a[j] = c[j].re;
    }
}

// Second-order sections: the poles paired with zeros nearest-first.
// Candidates are one pole of each conjugate pair (upper half plane) and
// the real poles; an odd order adds a pole and a zero at 0 so that every
// section has two of each. Filling from the last section, each step takes
// the pole nearest the unit circle, its conjugate (or the remaining real
// pole nearest the circle), the zero nearest to it and the real zero
// nearest to it of those left; the gain goes into the first section's b.
void to_sos(const Digital& d, double* taps) {
    const int N = d.N, numBq = (N + 1) / 2;
    Cx p[kMaxOrder + 1];
    int np = 0;
    for (int i = 0; i < N; ++i)
        if (d.p[i].im > 0) p[np++] = d.p[i];
    for (int i = 0; i < N; ++i)
        if (d.p[i].im == 0) p[np++] = d.p[i];
    double z[kMaxOrder + 1];
    int nz = 0;
    for (int i = 0; i < N; ++i) z[nz++] = d.zero;
    if (N % 2) {
        p[np++] = {0.0, 0.0};
        z[nz++] = 0.0;
    }
    auto take_pole = [&](bool realOnly) {
        int best = -1;
        for (int i = 0; i < np; ++i) {
            if (realOnly && p[i].im != 0) continue;
            if (best < 0 || std::fabs(1.0 - std::sqrt(abs2(p[i]))) < std::fabs(1.0 - std::sqrt(abs2(p[best]))))
                best = i;
        }
        const Cx r = p[best];
        p[best] = p[--np];
        return r;
    };
    auto take_zero = [&](Cx to) {
        int best = 0;
        for (int i = 1; i < nz; ++i)
            if (abs2(Cx{z[i], 0.0} - to) < abs2(Cx{z[best], 0.0} - to)) best = i;
        const double r = z[best];
        z[best] = z[--nz];
        return r;
    };
    for (int si = numBq - 1; si >= 0; --si) {
        double* s = taps + 6 * si;
        const Cx p1 = take_pole(false);
        double a1, a2;
        if (p1.im != 0) {
            a1 = -2.0 * p1.re;
            a2 = abs2(p1);
        } else {
            const Cx p2 = take_pole(true);  // an odd order's real pole pairs with the added one
            a1 = -(p1.re + p2.re);
            a2 = p1.re * p2.re;
        }
        const double z1 = take_zero(p1), z2 = take_zero(p1);
        s[0] = 1.0;
        s[1] = -(z1 + z2);
        s[2] = z1 * z2;
        s[3] = 1.0;
        s[4] = a1;
        s[5] = a2;
    }
    for (int j = 0; j < 3; ++j) taps[j] *= d.gain;
}

using FormFn = void (*)(const Digital&, double*);

zamStatus iir_gen(bool high, FormFn form, double f, double ripple, int order, double* taps, int type) {
    if (zamStatus s = check_ptr(taps)) return s;
    if (order < 1 || order > kMaxOrder) return zamStatusBadFilterOrder;
    if (bad_freq(f)) return zamStatusBadRelativeFreq;
    if (type < 0 || type >= kTypeCount) return zamStatusBadArgument;
    const Family& fam = kFamilies[type];
    if (fam.usesRipple && !(ripple > 0.0 && ripple <= kMaxRipple)) return zamStatusBadArgument;
    Prototype a;
    fam.prototype(order, ripple, a);
    Digital d;
    digital(high, order, f, a, d);
    form(d, taps);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::design

using namespace zams::design;

ZAMS_FN(zamStatus, zamsIIRGenLowpass_64f)(Zam64f f, Zam64f rp, int order, Zam64f* t, zamIIRFilterType type) {
    return iir_gen(false, to_ar, f, rp, order, t, type);
}
ZAMS_FN(zamStatus, zamsIIRGenHighpass_64f)(Zam64f f, Zam64f rp, int order, Zam64f* t, zamIIRFilterType type) {
    return iir_gen(true, to_ar, f, rp, order, t, type);
}
ZAMS_FN(zamStatus, zamsIIRGenLowpass_BiQuad_64f)(Zam64f f, Zam64f rp, int order, Zam64f* t, zamIIRFilterType type) {
    return iir_gen(false, to_sos, f, rp, order, t, type);
}
ZAMS_FN(zamStatus, zamsIIRGenHighpass_BiQuad_64f)(Zam64f f, Zam64f rp, int order, Zam64f* t, zamIIRFilterType type) {
    return iir_gen(true, to_sos, f, rp, order, t, type);
}
