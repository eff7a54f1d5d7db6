// Wavelet transforms against GSL (gsl_wavelet_transform_forward, in place,
// double samples, periodic boundary) at 1 Mi samples: the Haar transform
// and the Daubechies-4 filter bank, as the whole pyramid GSL computes (one
// level after another on the low band, down to 2 samples) and as one level.
#include <gsl/gsl_wavelet.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

const int kLen = 1 << 20;

std::vector<float> signal(int n) {
    std::vector<float> v(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) v[size_t(i)] = float((int64_t(i) * 7919) % 1000) * 0.001f - 0.5f;
    return v;
}

std::vector<float> daub4_low() {
    const double r3 = std::sqrt(3.0), d = 4 * std::sqrt(2.0);
    return {float((1 + r3) / d), float((3 + r3) / d), float((3 - r3) / d), float((1 - r3) / d)};
}
std::vector<float> high_of(const std::vector<float>& h) {
    std::vector<float> g(h.size());
    for (size_t k = 0; k < h.size(); ++k) g[k] = (k & 1 ? -1.f : 1.f) * h[h.size() - 1 - k];
    return g;
}

// GSL's forward transform of n doubles in place; the transforms are
// orthonormal, so repeating it on its own output keeps the values' size.
struct Gsl {
    gsl_wavelet* w;
    gsl_wavelet_workspace* ws;
    std::vector<double> data;
    Gsl(const gsl_wavelet_type* t, size_t k, const std::vector<float>& x)
        : w(gsl_wavelet_alloc(t, k)), ws(gsl_wavelet_workspace_alloc(x.size())), data(x.begin(), x.end()) {}
    ~Gsl() {
        gsl_wavelet_workspace_free(ws);
        gsl_wavelet_free(w);
    }
    void run() {
        gsl_wavelet_transform_forward(w, data.data(), 1, data.size(), ws);
    }
};

// A level-by-level pyramid: level j splits the low band of level j-1.
struct Pyramid {
    std::vector<float> out, work[2];  // all high bands after the last low band; the low bands
    explicit Pyramid(int n) : out(size_t(n)), work{std::vector<float>(size_t(n / 2)), std::vector<float>(size_t(n / 2))} {}
    // runs level(src, n, low, high) from n down to 2 samples
    template <class Level> void run(const float* x, int n, Level level) {
        const float* src = x;
        int at = n, k = 0;
        for (; n >= 2; n /= 2, ++k) {
            at -= n / 2;
            float* low = work[k & 1].data();
            level(k, src, n, low, out.data() + at);
            src = low;
        }
        out[0] = src[0];
    }
};

}  // namespace

ZAMS_BENCH(wavelet) {
    const auto x = signal(kLen);
    // Haar
    {
        Gsl g(gsl_wavelet_haar, 2, x);
        Pyramid p(kLen);
        auto pyramid = [&] {
            p.run(x.data(), kLen, [](int, const float* s, int n, float* l, float* h) { zamsWTHaarFwd_32f(s, n, l, h); });
        };
        std::vector<float> lo(kLen / 2), hi(kLen / 2);
        b.row("Haar 32f pyramid, 1 Mi", kLen, 0, {{"zams", pyramid}, {"gsl", [&] { g.run(); }}});
        b.row("Haar 32f one level, 1 Mi", kLen, 0,
              {{"zams", [&] { zamsWTHaarFwd_32f(x.data(), kLen, lo.data(), hi.data()); }}, {"gsl pyramid", [&] { g.run(); }}});
    }
    // Daubechies-4: one forward state a level
    {
        Gsl g(gsl_wavelet_daubechies, 4, x);
        const auto h = daub4_low(), h1 = high_of(h);
        std::vector<ZamsWTFwdState_32f*> st;
        for (int n = kLen; n >= 2; n /= 2) {
            ZamsWTFwdState_32f* s = nullptr;
            zamsWTFwdInitAlloc_32f(&s, h.data(), 4, -1, h1.data(), 4, -1);
            st.push_back(s);
        }
        Pyramid p(kLen);
        auto pyramid = [&] {
            p.run(x.data(), kLen,
                  [&](int k, const float* s, int n, float* l, float* hb) { zamsWTFwd_32f(s, l, hb, n / 2, st[size_t(k)]); });
        };
        std::vector<float> lo(kLen / 2), hi(kLen / 2);
        b.row("Daubechies-4 32f pyramid, 1 Mi", kLen, 0, {{"zams", pyramid}, {"gsl", [&] { g.run(); }}});
        b.row("Daubechies-4 32f one level, 1 Mi", kLen, 0,
              {{"zams", [&] { zamsWTFwd_32f(x.data(), lo.data(), hi.data(), kLen / 2, st[0]); }},
               {"gsl pyramid", [&] { g.run(); }}});
        for (auto* s : st) zamsWTFwdFree_32f(s);
    }
}
