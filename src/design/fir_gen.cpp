// FIR design by the window method: the ideal response of the pass bands,
// sinc terms centred on the middle tap, times one of the library's
// windows or a Kaiser window of a given shape, optionally scaled to gain 1
// at the middle of the first pass band. And the Kaiser estimates of length
// and shape.
#include <cmath>

#include "../common/check.h"
#include "../common/num/bessel.h"
#include "../common/num/elem.h"
#include "../common/trig.h"
#include "design.h"

namespace zams::design {
namespace {

// The four responses as data. Band edges and the frequency where doNormal
// sets the gain to 1 are indexes into {0, e1, e2, 1}, the edges as
// fractions of the Nyquist rate; the gain is set at the mean of two of
// them. A response that passes the Nyquist rate needs an odd length (a
// symmetric filter of even length has a zero there).
enum Kind { kLow, kHigh, kPass, kStop };
struct Response {
    int bands;
    int edge[2][2];  // [band][lo, hi]
    int normAt[2];
    bool twoEdges, passesNyquist;
};
constexpr Response kResponse[] = {
    {1, {{0, 1}}, {0, 0}, false, false},          // lowpass   [0, e1], gain 1 at 0
    {1, {{1, 3}}, {3, 3}, false, true},           // highpass  [e1, 1], at the Nyquist rate
    {1, {{1, 2}}, {1, 2}, true, false},           // bandpass  [e1, e2], at the centre
    {2, {{0, 1}, {2, 3}}, {0, 0}, true, true},    // bandstop  [0, e1] and [e2, 1], at 0
};

// The windows in zamWinType order, applied in place by the window family's
// own kernels; the rectangular window leaves the taps alone.
using WindowFn = zamStatus (*)(Zam64f*, int);
zamStatus rect(Zam64f*, int) { return zamStatusOk; }
constexpr WindowFn kWindows[] = {g9_zamsWinBartlett_64f_I, g9_zamsWinBlackmanStd_64f_I, g9_zamsWinHamming_64f_I,
                                 g9_zamsWinHann_64f_I, rect};
constexpr int kWindowCount = sizeof kWindows / sizeof kWindows[0];

// The window argument of fir_gen: valid() is its check (-5 when false),
// apply() multiplies the taps by it.
struct TableWindow {
    int type;
    bool valid() const { return type >= 0 && type < kWindowCount; }
    zamStatus apply(double* taps, int len) const { return kWindows[type](taps, len); }
};

// I0(beta sqrt(1 - t^2)) / I0(beta), t = (n - c) / c, c = (L - 1) / 2.
constexpr double kMaxBeta = 700.0;  // I0(beta) finite
constexpr double kMaxAttenuation = 1000.0;  // dB
struct KaiserWindow {
    double beta;
    bool valid() const { return beta >= 0.0 && beta <= kMaxBeta; }
    zamStatus apply(double* taps, int len) const {
        const double c = 0.5 * (len - 1), den = num::bessel_i0_series(beta);
        for (int n = 0; n < len; ++n) {
            const double t = (n - c) / c;
            taps[n] *= num::bessel_i0_series(beta * std::sqrt(1.0 - t * t)) / den;
        }
        return zamStatusOk;
    }
};

// e sinc(e m), sinc(x) = sin(pi x) / (pi x).
double edge_term(double e, double m) {
    const double x = e * m;
    return x == 0.0 ? e : e * (sinpi(x) / (kPi * x));
}

template <class Window> zamStatus fir_gen(Kind k, double f1, double f2, double* taps, int len, Window win, int normal) {
    const Response& r = kResponse[k];
    if (zamStatus s = check_ptr(taps)) return s;
    if (len < 3 || (r.passesNyquist && len % 2 == 0)) return zamStatusBadTapsLength;
    if (bad_freq(f1) || (r.twoEdges && (bad_freq(f2) || !(f1 < f2)))) return zamStatusBadRelativeFreq;
    if (!win.valid()) return zamStatusBadArgument;

    const double edge[4] = {0.0, 2.0 * f1, 2.0 * f2, 1.0};
    const double mid = 0.5 * (len - 1);
    for (int n = 0; n < len; ++n) {
        const double m = n - mid;
        double h = 0.0;
        for (int b = 0; b < r.bands; ++b) {
            h += edge_term(edge[r.edge[b][1]], m);
            h -= edge_term(edge[r.edge[b][0]], m);
        }
        taps[n] = h;
    }
    if (zamStatus s = win.apply(taps, len)) return s;  // cannot fail: len >= 3 was checked
    if (normal) {
        const double f0 = 0.5 * (edge[r.normAt[0]] + edge[r.normAt[1]]);
        double gain = 0.0;
        for (int n = 0; n < len; ++n) gain += taps[n] * cospi((n - mid) * f0);
        for (int n = 0; n < len; ++n) taps[n] /= gain;
    }
    return zamStatusOk;
}

// The Kaiser estimates for a stop-band attenuation A dB and a transition
// width w (relative to the sampling rate): L = ceil((A - 7.95) /
// (2.285 * 2 pi w) + 1) taps and the shape beta of the header.
zamStatus kaiser_order(double att, double width, int* pLen, double* pBeta) {
    if (zamStatus s = check_ptr(pLen, pBeta)) return s;
    if (bad_freq(width)) return zamStatusBadRelativeFreq;
    if (!(att >= 8.0 && att <= kMaxAttenuation)) return zamStatusBadArgument;
    const double len = std::ceil((att - 7.95) / 2.285 / (kPi * (2.0 * width)) + 1.0);
    if (!(len <= 2147483647.0)) return zamStatusBadArgument;
    double beta = 0.0;
    if (att > 50.0) beta = 0.1102 * (att - 8.7);
    else if (att > 21.0) beta = 0.5842 * elem::exp(0.4 * elem::log(att - 21.0)) + 0.07886 * (att - 21.0);
    *pLen = int(len);
    *pBeta = beta;
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::design

using zams::design::fir_gen;
using zams::design::KaiserWindow;
using zams::design::TableWindow;

// The four responses with a window argument of type WARG made into WINDOW.
#define ZAMS_FIR_GEN_FNS(SFX, WARG, WINDOW)                                                                      \
    ZAMS_FN(zamStatus, zamsFIRGenLowpass##SFX)(Zam64f f, Zam64f * t, int len, WARG w, int norm) {                \
        return fir_gen(zams::design::kLow, f, 0.0, t, len, WINDOW{w}, norm);                                     \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsFIRGenHighpass##SFX)(Zam64f f, Zam64f * t, int len, WARG w, int norm) {               \
        return fir_gen(zams::design::kHigh, f, 0.0, t, len, WINDOW{w}, norm);                                    \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsFIRGenBandpass##SFX)(Zam64f f1, Zam64f f2, Zam64f * t, int len, WARG w, int norm) {   \
        return fir_gen(zams::design::kPass, f1, f2, t, len, WINDOW{w}, norm);                                    \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsFIRGenBandstop##SFX)(Zam64f f1, Zam64f f2, Zam64f * t, int len, WARG w, int norm) {   \
        return fir_gen(zams::design::kStop, f1, f2, t, len, WINDOW{w}, norm);                                    \
    }

ZAMS_FIR_GEN_FNS(_64f, zamWinType, TableWindow)
ZAMS_FIR_GEN_FNS(Kaiser_64f, Zam64f, KaiserWindow)

ZAMS_FN(zamStatus, zamsFIRKaiserOrder_64f)(Zam64f attenuationDB, Zam64f rTransWidth, int* pTapsLen, Zam64f* pBeta) {
    return zams::design::kaiser_order(attenuationDB, rTransWidth, pTapsLen, pBeta);
}
