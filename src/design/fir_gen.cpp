// FIR design by the window method: the ideal response of the pass bands,
// sinc terms centred on the middle tap, times one of the library's
// windows, optionally scaled to gain 1 at the middle of the first pass band.
#include "../common/check.h"
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

// e sinc(e m), sinc(x) = sin(pi x) / (pi x).
double edge_term(double e, double m) {
    const double x = e * m;
    return x == 0.0 ? e : e * (sinpi(x) / (kPi * x));
}

zamStatus fir_gen(Kind k, double f1, double f2, double* taps, int len, int win, int normal) {
    const Response& r = kResponse[k];
    if (zamStatus s = check_ptr(taps)) return s;
    if (len < 3 || (r.passesNyquist && len % 2 == 0)) return zamStatusBadTapsLength;
    if (bad_freq(f1) || (r.twoEdges && (bad_freq(f2) || !(f1 < f2)))) return zamStatusBadRelativeFreq;
    if (win < 0 || win >= kWindowCount) return zamStatusBadArgument;

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
    if (zamStatus s = kWindows[win](taps, len)) return s;  // cannot fail: len >= 3 was checked
    if (normal) {
        const double f0 = 0.5 * (edge[r.normAt[0]] + edge[r.normAt[1]]);
        double gain = 0.0;
        for (int n = 0; n < len; ++n) gain += taps[n] * cospi((n - mid) * f0);
        for (int n = 0; n < len; ++n) taps[n] /= gain;
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::design

using zams::design::fir_gen;

ZAMS_FN(zamStatus, zamsFIRGenLowpass_64f)(Zam64f f, Zam64f* t, int len, zamWinType w, int norm) {
    return fir_gen(zams::design::kLow, f, 0.0, t, len, w, norm);
}
ZAMS_FN(zamStatus, zamsFIRGenHighpass_64f)(Zam64f f, Zam64f* t, int len, zamWinType w, int norm) {
    return fir_gen(zams::design::kHigh, f, 0.0, t, len, w, norm);
}
ZAMS_FN(zamStatus, zamsFIRGenBandpass_64f)(Zam64f f1, Zam64f f2, Zam64f* t, int len, zamWinType w, int norm) {
    return fir_gen(zams::design::kPass, f1, f2, t, len, w, norm);
}
ZAMS_FN(zamStatus, zamsFIRGenBandstop_64f)(Zam64f f1, Zam64f f2, Zam64f* t, int len, zamWinType w, int norm) {
    return fir_gen(zams::design::kStop, f1, f2, t, len, w, norm);
}
