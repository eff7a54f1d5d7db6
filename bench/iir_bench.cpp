// IIR filters against liquid-dsp (iirfilt_rrrf from second-order sections)
// and the plain C loops a user writes by hand: a transposed-direct-form-II
// cascade and a direct-form AR loop, 16 Ki-sample blocks.
#include <liquid/liquid.h>

#include <cmath>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

const int kLen = 16384;

std::vector<float> signal(int n) {
    std::vector<float> v(n);
    for (int i = 0; i < n; ++i) v[i] = float((i * 7919) % 1000) * 0.001f - 0.5f;
    return v;
}

// numBq stable sections of gain 1 at 0 Hz, 6 taps each (b0 b1 b2 a0 a1 a2),
// a0 = 1, so that a long cascade keeps the signal's size.
std::vector<float> sections(int numBq) {
    std::vector<float> t;
    for (int s = 0; s < numBq; ++s) {
        const double r = 0.5 + 0.3 * s / numBq, th = 0.3 + 2.5 * s / numBq;
        const double a1 = -2 * r * std::cos(th), a2 = r * r, g = (1 + a1 + a2) / 0.6;
        const float sec[6] = {float(0.3 * g), float(0.2 * g), float(0.1 * g), 1.0f, float(a1), float(a2)};
        t.insert(t.end(), sec, sec + 6);
    }
    return t;
}

// The cascade a user writes: sample by sample, section by section.
void plain_cascade(const float* t, float* st, int numBq, const float* x, float* y, int n) {
    for (int i = 0; i < n; ++i) {
        float v = x[i];
        for (int s = 0; s < numBq; ++s) {
            const float* c = t + 6 * s;
            float* d = st + 2 * s;
            const float o = c[0] * v + d[0];
            d[0] = c[1] * v - c[4] * o + d[1];
            d[1] = c[2] * v - c[5] * o;
            v = o;
        }
        y[i] = v;
    }
}

void bench_cascade(zb::Bench& b, int numBq) {
    const auto x = signal(kLen);
    std::vector<float> y(kLen), taps = sections(numBq), st(2 * numBq);
    ZamsIIRState_32f* z = nullptr;
    zamsIIRInitAlloc_BiQuad_32f(&z, taps.data(), numBq, nullptr);
    std::vector<float> lb, la;
    for (int s = 0; s < numBq; ++s) {
        lb.insert(lb.end(), &taps[6 * s], &taps[6 * s + 3]);
        la.insert(la.end(), &taps[6 * s + 3], &taps[6 * s + 6]);
    }
    iirfilt_rrrf q = iirfilt_rrrf_create_sos(lb.data(), la.data(), unsigned(numBq));
    b.row("IIR_32f biquad x" + std::to_string(numBq), kLen, 0,
          {{"zams", [&] { zamsIIR_32f(x.data(), y.data(), kLen, z); zb::keep(y); }},
           {"liquid", [&] { iirfilt_rrrf_execute_block(q, const_cast<float*>(x.data()), kLen, y.data()); zb::keep(y); }},
           {"loop", [&] { plain_cascade(taps.data(), st.data(), numBq, x.data(), y.data(), kLen); zb::keep(y); }}});
    iirfilt_rrrf_destroy(q);
    zamsIIRFree_32f(z);
}

}  // namespace

ZAMS_BENCH(iir_biquad) {
    bench_cascade(b, 4);
    bench_cascade(b, 32);
}

ZAMS_BENCH(iir_ar) {
    const int N = 8;
    const auto x = signal(kLen);
    std::vector<float> y(kLen);
    // Four stable sections multiplied out: numerator and denominator of order 8.
    const auto sec = sections(4);
    std::vector<double> B{1}, A{1};
    for (int s = 0; s < 4; ++s) {
        std::vector<double> nb(B.size() + 2), na(A.size() + 2);
        for (size_t i = 0; i < B.size(); ++i)
            for (int j = 0; j < 3; ++j) nb[i + j] += B[i] * sec[6 * s + j], na[i + j] += A[i] * sec[6 * s + 3 + j];
        B = nb, A = na;
    }
    std::vector<float> taps;
    for (double v : B) taps.push_back(float(v));
    for (double v : A) taps.push_back(float(v));
    ZamsIIRState_32f* z = nullptr;
    zamsIIRInitAlloc_32f(&z, taps.data(), N, nullptr);
    // The direct-form loop a user writes, with the histories kept in arrays.
    std::vector<float> xh(N + 1), yh(N + 1);
    auto plain = [&] {
        for (int i = 0; i < kLen; ++i) {
            for (int k = N; k > 0; --k) xh[k] = xh[k - 1];
            xh[0] = x[i];
            float acc = 0;
            for (int k = 0; k <= N; ++k) acc += taps[k] * xh[k];
            for (int k = 1; k <= N; ++k) acc -= taps[N + 1 + k] * yh[k];
            for (int k = N; k > 1; --k) yh[k] = yh[k - 1];
            yh[1] = acc;
            y[i] = acc;
        }
        zb::keep(y);
    };
    iirfilt_rrrf q = iirfilt_rrrf_create(taps.data(), N + 1, taps.data() + N + 1, N + 1);
    b.row("IIR_32f AR order 8", kLen, 0,
          {{"zams", [&] { zamsIIR_32f(x.data(), y.data(), kLen, z); zb::keep(y); }},
           {"liquid", [&] { iirfilt_rrrf_execute_block(q, const_cast<float*>(x.data()), kLen, y.data()); zb::keep(y); }},
           {"loop", plain}});
    iirfilt_rrrf_destroy(q);
    zamsIIRFree_32f(z);
}
