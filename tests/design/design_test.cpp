// Filter design against coefficient sets computed once by scipy.signal
// (design_ref.h), and the designed IIR filters run in single precision
// against the response those coefficients predict.
#include <zams.h>

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstring>
#include <vector>

#include "design_ref.h"
#include "digest.h"

namespace {

using design_ref::kFir;
using design_ref::kIir;
using design_ref::kKaiser;
using design_ref::kKaiserOrder;

using FirFn = zamStatus (*)(Zam64f, Zam64f, Zam64f*, int, zamWinType, int);
zamStatus low(Zam64f f, Zam64f, Zam64f* t, int n, zamWinType w, int k) { return zamsFIRGenLowpass_64f(f, t, n, w, k); }
zamStatus high(Zam64f f, Zam64f, Zam64f* t, int n, zamWinType w, int k) { return zamsFIRGenHighpass_64f(f, t, n, w, k); }
const FirFn kFirFns[] = {low, high, zamsFIRGenBandpass_64f, zamsFIRGenBandstop_64f};

using KaiserFn = zamStatus (*)(Zam64f, Zam64f, Zam64f*, int, Zam64f, int);
zamStatus lowK(Zam64f f, Zam64f, Zam64f* t, int n, Zam64f b, int k) { return zamsFIRGenLowpassKaiser_64f(f, t, n, b, k); }
zamStatus highK(Zam64f f, Zam64f, Zam64f* t, int n, Zam64f b, int k) { return zamsFIRGenHighpassKaiser_64f(f, t, n, b, k); }
const KaiserFn kKaiserFns[] = {lowK, highK, zamsFIRGenBandpassKaiser_64f, zamsFIRGenBandstopKaiser_64f};

using IirFn = zamStatus (*)(Zam64f, Zam64f, int, Zam64f*, zamIIRFilterType);
const IirFn kArFns[] = {zamsIIRGenLowpass_64f, zamsIIRGenHighpass_64f};
const IirFn kBqFns[] = {zamsIIRGenLowpass_BiQuad_64f, zamsIIRGenHighpass_BiQuad_64f};

int sections(int order) { return (order + 1) / 2; }

std::vector<double> fir(const design_ref::FirCase& c, zamStatus* s = nullptr) {
    std::vector<double> t(c.len);
    zamStatus r = kFirFns[c.kind](c.f1, c.f2, t.data(), c.len, zamWinType(c.win), c.normal);
    if (s) *s = r;
    else EXPECT_EQ(r, zamStatusOk);
    return t;
}
std::vector<double> kaiser(const design_ref::KaiserCase& c, zamStatus* s = nullptr) {
    std::vector<double> t(c.len);
    zamStatus r = kKaiserFns[c.kind](c.f1, c.f2, t.data(), c.len, c.beta, c.normal);
    if (s) *s = r;
    else EXPECT_EQ(r, zamStatusOk);
    return t;
}
std::vector<double> iir(const design_ref::IirCase& c, bool biquad) {
    std::vector<double> t(biquad ? 6 * sections(c.order) : 2 * (c.order + 1));
    EXPECT_EQ((biquad ? kBqFns : kArFns)[c.high](c.f, c.ripple, c.order, t.data(), zamIIRFilterType(c.type)),
              zamStatusOk);
    return t;
}

// Each group of n coefficients within 1e-9 of its largest reference value.
void expect_close(const std::vector<double>& got, const double* ref, int n, const char* what, int i) {
    for (size_t g = 0; g < got.size(); g += n) {
        double scale = 0;
        for (int k = 0; k < n; ++k) scale = std::fmax(scale, std::fabs(ref[g + k]));
        for (int k = 0; k < n; ++k)
            EXPECT_NEAR(got[g + k], ref[g + k], 1e-9 * scale) << what << " case " << i << " coefficient " << g + k;
    }
}

TEST(Design, FirMatchesReference) {
    for (size_t i = 0; i < std::size(kFir); ++i) {
        const auto& c = kFir[i];
        expect_close(fir(c), c.taps, c.len, "FIR", int(i));
    }
}

TEST(Design, KaiserMatchesReference) {
    for (size_t i = 0; i < std::size(kKaiser); ++i) {
        const auto& c = kKaiser[i];
        expect_close(kaiser(c), c.taps, c.len, "Kaiser", int(i));
    }
}

// Lengths exactly; shapes to 1e-12 relative (the shape's power in the
// library's own log and exp).
TEST(Design, KaiserOrderMatchesReference) {
    for (const auto& c : kKaiserOrder) {
        int len = -1;
        double beta = -1;
        ASSERT_EQ(zamsFIRKaiserOrder_64f(c.att, c.width, &len, &beta), zamStatusOk) << c.att;
        EXPECT_EQ(len, c.len) << c.att << " dB, width " << c.width;
        EXPECT_NEAR(beta, c.beta, 1e-12 * c.beta) << c.att << " dB";
    }
}

// A Kaiser window of shape 0 is no window; a designed filter reaches the
// attenuation its estimate was made for, within the estimate's few dB.
TEST(Design, KaiserShapeZeroAndEstimateMeetsAttenuation) {
    for (int kind = 0; kind < 4; ++kind) {
        std::vector<double> a(31), b(31);
        ASSERT_EQ(kKaiserFns[kind](0.1, 0.3, a.data(), 31, 0.0, 1), zamStatusOk);
        ASSERT_EQ(kFirFns[kind](0.1, 0.3, b.data(), 31, zamWinRect, 1), zamStatusOk);
        EXPECT_EQ(a, b) << kind;
    }
    int len = 0;
    double beta = 0;
    ASSERT_EQ(zamsFIRKaiserOrder_64f(70.0, 0.05, &len, &beta), zamStatusOk);
    len |= 1;
    std::vector<double> t(len);
    ASSERT_EQ(zamsFIRGenLowpassKaiser_64f(0.2, t.data(), len, beta, 1), zamStatusOk);
    double worst = 0;  // the stop band starts half a transition width above the cutoff
    for (double f = 0.225; f < 0.5; f += 0.0005) {
        std::complex<long double> h = 0;
        for (int n = 0; n < len; ++n) h += (long double)t[n] * std::polar(1.0L, -2.0L * M_PIl * f * n);
        worst = std::fmax(worst, double(std::abs(h)));
    }
    EXPECT_LT(20 * std::log10(worst), -67.0);  // the estimate is empirical: within a few dB
}

// The response H(e^jw) of AR taps or of a cascade, in long double.
std::complex<long double> response(const double* t, int order, bool biquad, long double w) {
    const std::complex<long double> zi = std::polar(1.0L, -w);
    auto poly = [&](const double* c, int n) {
        std::complex<long double> v = 0;
        for (int k = n; k >= 0; --k) v = v * zi + (long double)c[k];
        return v;
    };
    if (!biquad) return poly(t, order) / poly(t + order + 1, order);
    std::complex<long double> h = 1;
    for (int s = 0; s < sections(order); ++s) h *= poly(t + 6 * s, 2) / poly(t + 6 * s + 3, 2);
    return h;
}

// AR taps: b and a each against their own scale; sections: each b and a.
// The gain at the cutoff, independent of the reference: 1/sqrt(2) for a
// Butterworth filter, the bottom of the ripple for a Chebyshev one.
TEST(Design, IirMatchesReference) {
    for (size_t i = 0; i < std::size(kIir); ++i) {
        const auto& c = kIir[i];
        expect_close(iir(c, false), c.ar, c.order + 1, "AR", int(i));
        const std::vector<double> sos = iir(c, true);
        expect_close(sos, c.sos, 3, "BiQuad", int(i));
        const double edge = c.type ? std::pow(10.0, -c.ripple / 20) : std::sqrt(0.5);
        EXPECT_NEAR(double(std::abs(response(sos.data(), c.order, true, 2.0L * M_PIl * c.f))), edge, 1e-9) << i;
    }
}


// The designed taps in single precision through zamsIIR_32f: the FFT of
// the impulse response is the response the reference coefficients give.
TEST(Design, IirResponseInSinglePrecision) {
    constexpr int kOrder = 10, N = 1 << kOrder;
    ZamsFFTSpec_R_32f* spec = nullptr;
    ASSERT_EQ(zamsFFTInitAlloc_R_32f(&spec, kOrder, zamFftScaleNone, 0), zamStatusOk);
    for (size_t i = 0; i < std::size(kIir); ++i) {
        const auto& c = kIir[i];
        for (bool biquad : {false, true}) {
            // AR taps rounded to single precision move poles that crowd near
            // z = 1 or z = -1 by more than the tolerance: AR cases keep their
            // cutoff away from both.
            if (!biquad && std::fmin(c.f, 0.5 - c.f) < 0.15) continue;
            const std::vector<double> t = iir(c, biquad);
            const std::vector<float> tf(t.begin(), t.end());
            ZamsIIRState_32f* st = nullptr;
            ASSERT_EQ(biquad ? zamsIIRInitAlloc_BiQuad_32f(&st, tf.data(), sections(c.order), nullptr)
                             : zamsIIRInitAlloc_32f(&st, tf.data(), c.order, nullptr),
                      zamStatusOk);
            std::vector<float> x(N, 0.0f), y(N + 2);
            x[0] = 1.0f;
            ASSERT_EQ(zamsIIR_32f(x.data(), y.data(), N, st), zamStatusOk);
            ASSERT_EQ(zamsFFTFwd_RToCCS_32f(y.data(), y.data(), spec, nullptr), zamStatusOk);
            double worst = 0;
            for (int k = 0; k <= N / 2; ++k) {
                const auto h = response(biquad ? c.sos : c.ar, c.order, biquad, 2.0L * M_PIl * k / N);
                worst = std::fmax(worst, double(std::abs(std::complex<long double>(y[2 * k], y[2 * k + 1]) - h)));
            }
            EXPECT_LT(worst, 1e-4) << "case " << i << (biquad ? " BiQuad" : " AR");
            zamsIIRFree_32f(st);
        }
    }
    zamsFFTFree_R_32f(spec);
}

// Orders up to 64: every section stable, the cascade's gain 1 at 0
// (Butterworth low-pass) or at the Nyquist rate (high-pass).
TEST(Design, HighestOrderIsStable) {
    for (int hp : {0, 1}) {
        std::vector<double> t(6 * 32);
        ASSERT_EQ(kBqFns[hp](0.2, 0, 64, t.data(), zamButterworth), zamStatusOk);
        long double gain = 1;
        for (int s = 0; s < 32; ++s) {
            const double* q = &t[6 * s];
            EXPECT_LT(std::fabs(q[5]), 1.0) << s;
            EXPECT_LT(std::fabs(q[4]), 1.0 + q[5]) << s;
            const long double sg = hp ? -1 : 1;
            gain *= (q[0] + sg * q[1] + q[2]) / ((long double)q[3] + sg * q[4] + q[5]);
        }
        EXPECT_NEAR(double(gain), 1.0, 1e-9) << hp;
    }
}

// Bad values: each its status, in the checking order, and the taps
// untouched (null pointers and lengths alone are the hostile sweep's).
TEST(Design, Statuses) {
    const double nan = std::nan("");
    std::vector<double> t(200, 7.0);
    const std::vector<double> fresh = t;
    auto F = [&](int kind, double f1, double f2, int len, int win, double* p = nullptr) {
        return kFirFns[kind](f1, f2, p ? p : t.data(), len, zamWinType(win), 1);
    };
    auto K = [&](int kind, double f1, double f2, int len, double beta, double* p = nullptr) {
        return kKaiserFns[kind](f1, f2, p ? p : t.data(), len, beta, 0);
    };
    int len = 7;
    double beta = 7;
    auto O = [&](double att, double width, int* pl, double* pb) { return zamsFIRKaiserOrder_64f(att, width, pl, pb); };
    auto I = [&](bool bq, int hp, double f, double rp, int order, int type) {
        return (bq ? kBqFns : kArFns)[hp](f, rp, order, t.data(), zamIIRFilterType(type));
    };
    struct Row {
        zamStatus got, want;
        const char* what;
    } rows[] = {
        {zamsFIRGenLowpass_64f(0.1, nullptr, 0, zamWinType(9), 1), zamStatusNullPointer, "null before length"},
        {zamsIIRGenLowpass_64f(nan, 0, 0, nullptr, zamButterworth), zamStatusNullPointer, "IIR null before order"},
        {F(0, 0.1, 0, 2, 0), zamStatusBadTapsLength, "2 taps"},
        {F(0, nan, 0, -1, 0), zamStatusBadTapsLength, "length before frequency"},
        {F(1, 0.1, 0, 20, 0), zamStatusBadTapsLength, "even high-pass"},
        {F(3, 0.1, 0.2, 20, 0), zamStatusBadTapsLength, "even band-stop"},
        {F(0, 0.0, 0, 21, 0), zamStatusBadRelativeFreq, "f = 0"},
        {F(1, 0.5, 0, 21, 0), zamStatusBadRelativeFreq, "f = 0.5"},
        {F(0, nan, 0, 21, 0), zamStatusBadRelativeFreq, "f NaN"},
        {F(2, 0.2, 0.2, 21, 0), zamStatusBadRelativeFreq, "empty band"},
        {F(3, 0.3, 0.2, 21, 0), zamStatusBadRelativeFreq, "reversed band"},
        {F(2, 0.1, 0.6, 21, 0), zamStatusBadRelativeFreq, "upper edge above 0.5"},
        {F(0, 0.1, 0, 21, 5), zamStatusBadArgument, "window 5"},
        {F(0, 0.1, 0, 21, -1), zamStatusBadArgument, "window -1"},
        {zamsFIRGenLowpassKaiser_64f(0.1, nullptr, 0, nan, 1), zamStatusNullPointer, "Kaiser null before length"},
        {K(0, 0.1, 0, 2, 1), zamStatusBadTapsLength, "Kaiser 2 taps"},
        {K(3, 0.1, 0.2, 20, 1), zamStatusBadTapsLength, "Kaiser even band-stop"},
        {K(2, 0.2, 0.1, 21, nan), zamStatusBadRelativeFreq, "Kaiser frequency before shape"},
        {K(0, 0.1, 0, 21, -0.5), zamStatusBadArgument, "negative shape"},
        {K(1, 0.1, 0, 21, nan), zamStatusBadArgument, "shape NaN"},
        {K(2, 0.1, 0.2, 21, 700.5), zamStatusBadArgument, "shape above 700"},
        {O(nan, 0.0, &len, &beta), zamStatusBadRelativeFreq, "width before attenuation"},
        {O(60, 0.5, &len, &beta), zamStatusBadRelativeFreq, "width 0.5"},
        {O(7.9, 0.1, &len, &beta), zamStatusBadArgument, "attenuation below 8 dB"},
        {O(nan, 0.1, &len, &beta), zamStatusBadArgument, "attenuation NaN"},
        {O(1000.5, 0.1, &len, &beta), zamStatusBadArgument, "attenuation above 1000 dB"},
        {O(1000, 1e-9, &len, &beta), zamStatusBadArgument, "length past the int range"},
        {I(false, 0, 0.1, 1, 0, 0), zamStatusBadFilterOrder, "order 0"},
        {I(true, 1, 0.1, 1, 65, 0), zamStatusBadFilterOrder, "order 65"},
        {I(false, 1, nan, 1, 2, 9), zamStatusBadRelativeFreq, "frequency before type"},
        {I(true, 0, 0.1, 1, 2, 2), zamStatusBadArgument, "type 2"},
        {I(false, 0, 0.1, 0, 2, 1), zamStatusBadArgument, "ripple 0"},
        {I(true, 1, 0.1, nan, 2, 1), zamStatusBadArgument, "ripple NaN"},
        {I(false, 1, 0.1, 60.5, 2, 1), zamStatusBadArgument, "ripple above 60 dB"},
    };
    for (const Row& r : rows) EXPECT_EQ(r.got, r.want) << r.what;
    EXPECT_EQ(t, fresh) << "an error wrote the taps";
    EXPECT_TRUE(len == 7 && beta == 7) << "an error wrote the estimate";
    // A Butterworth filter does not read the ripple.
    EXPECT_EQ(I(true, 0, 0.1, nan, 3, 0), zamStatusOk);
    EXPECT_TRUE(std::isfinite(t[0]));
}

// The same taps wherever the buffer lies.
TEST(Design, BitsDoNotDependOnAddress) {
    alignas(64) unsigned char buf[2][8 * 64 + 16];
    double a[41], b[41];
    for (int k = 0; k < 2; ++k) {
        double* p = reinterpret_cast<double*>(buf[k] + 8 + 16 * k);
        ASSERT_EQ(zamsFIRGenBandpass_64f(0.05, 0.35, p, 41, zamWinBlackman, 1), zamStatusOk);
        std::memcpy(k ? b : a, p, sizeof a);
    }
    EXPECT_EQ(std::memcmp(a, b, sizeof a), 0);
}

ZAMS_DIGEST(design) {
    for (const auto& c : kFir) {
        zamStatus s;
        d.add(fir(c, &s));
        d.status(s);
    }
    for (const auto& c : kIir)
        for (bool bq : {false, true}) d.add(iir(c, bq));
    for (const auto& c : kKaiser) d.add(kaiser(c));
    for (const auto& c : kKaiserOrder) {
        int len = 0;
        double beta = 0;
        d.status(zamsFIRKaiserOrder_64f(c.att, c.width, &len, &beta));
        d.add(std::vector<double>{double(len), beta});
    }
}

}  // namespace
