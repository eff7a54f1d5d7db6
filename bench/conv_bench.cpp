// Linear convolution and cross-correlation against what a user writes
// instead: a plain C loop (double sums) and an FFTW overlap-add (r2c,
// multiply, c2r over blocks, the kernel transformed in the call, plans made
// beforehand with FFTW_MEASURE). zams runs on one thread, as its peers do.
#include <fftw3.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "harness.h"
#include "zamcore.h"
#include "zams.h"

namespace {

// Overlap-add of x (n) with h (taps) into y (n + taps - 1).
struct FftwOverlapAdd {
    int n, taps, N, L;
    float *buf, *hbuf;
    fftwf_complex *X, *H;
    fftwf_plan fwd, inv, fwdH;
    FftwOverlapAdd(int n_, int taps_) : n(n_), taps(taps_) {
        N = 1;
        while (N < 2 * taps) N *= 2;
        if (N < 256) N = 256;
        L = N - taps + 1;
        buf = fftwf_alloc_real(size_t(N));
        hbuf = fftwf_alloc_real(size_t(N));
        X = fftwf_alloc_complex(size_t(N / 2 + 1));
        H = fftwf_alloc_complex(size_t(N / 2 + 1));
        fwd = fftwf_plan_dft_r2c_1d(N, buf, X, FFTW_MEASURE);
        fwdH = fftwf_plan_dft_r2c_1d(N, hbuf, H, FFTW_MEASURE);
        inv = fftwf_plan_dft_c2r_1d(N, X, buf, FFTW_MEASURE);
    }
    ~FftwOverlapAdd() {
        fftwf_destroy_plan(fwd), fftwf_destroy_plan(fwdH), fftwf_destroy_plan(inv);
        fftwf_free(buf), fftwf_free(hbuf), fftwf_free(X), fftwf_free(H);
    }
    void run(const float* x, const float* h, float* y) {
        std::memcpy(hbuf, h, size_t(taps) * 4);
        std::memset(hbuf + taps, 0, size_t(N - taps) * 4);
        fftwf_execute(fwdH);
        const float s = 1.0f / float(N);
        std::memset(y, 0, size_t(n + taps - 1) * 4);
        for (int p = 0; p < n; p += L) {
            const int c = std::min(L, n - p);
            std::memcpy(buf, x + p, size_t(c) * 4);
            std::memset(buf + c, 0, size_t(N - c) * 4);
            fftwf_execute(fwd);
            for (int k = 0; k <= N / 2; ++k) {
                const float re = X[k][0] * H[k][0] - X[k][1] * H[k][1];
                const float im = X[k][0] * H[k][1] + X[k][1] * H[k][0];
                X[k][0] = re * s, X[k][1] = im * s;
            }
            fftwf_execute(inv);
            const int m = std::min(N, n + taps - 1 - p);
            for (int i = 0; i < m; ++i) y[p + i] += buf[i];
        }
    }
};

void plain_conv(const float* x, int n, const float* h, int taps, float* y) {
    for (int i = 0; i < n + taps - 1; ++i) {
        double s = 0;
        for (int k = std::max(0, i - n + 1); k <= std::min(taps - 1, i); ++k) s += double(h[k]) * x[i - k];
        y[i] = float(s);
    }
}

// One thread for the scope of a benchmark.
struct OneThread {
    int old = ownGetNumThreads();
    OneThread() { zamSetNumThreads(1); }
    ~OneThread() { zamSetNumThreads(old); }
};

}  // namespace

ZAMS_BENCH(conv) {
    const OneThread one;
    const std::pair<int, int> grid[] = {{1024, 8},     {1024, 64},    {16384, 8},    {16384, 64},
                                        {16384, 512},  {65536, 256},  {262144, 64},  {262144, 1024},
                                        {1048576, 4096}};
    for (auto [n, taps] : grid) {
        std::vector<float> x(static_cast<size_t>(n)), h(static_cast<size_t>(taps)), y(size_t(n + taps - 1));
        for (int i = 0; i < n; ++i) x[size_t(i)] = float((i * 7919) % 1000) * 1e-3f - 0.5f;
        for (int i = 0; i < taps; ++i) h[size_t(i)] = float((i * 104729) % 1000) * 1e-3f - 0.5f;
        FftwOverlapAdd ola(n, taps);
        std::vector<zb::Contender> c = {
            {"zams", [&] { zamsConv_32f(x.data(), n, h.data(), taps, y.data()); }},
            {"fftw-ola", [&] { ola.run(x.data(), h.data(), y.data()); }}};
        if (double(n) * taps <= double(1 << 24))
            c.push_back({"loop", [&] { plain_conv(x.data(), n, h.data(), taps, y.data()); }});
        b.row("Conv_32f taps " + std::to_string(taps), n, 0, c);
    }
}

ZAMS_BENCH(crosscorr) {
    const OneThread one;
    // Lags -taps+1 .. n-1: the whole correlation, the FFT path from the work measure.
    const std::pair<int, int> grid[] = {{4096, 16}, {4096, 256}, {65536, 64}, {262144, 1024}};
    for (auto [n, taps] : grid) {
        std::vector<float> x(static_cast<size_t>(n)), h(static_cast<size_t>(taps)), y(size_t(n + taps - 1));
        for (int i = 0; i < n; ++i) x[size_t(i)] = float((i * 7919) % 1000) * 1e-3f - 0.5f;
        for (int i = 0; i < taps; ++i) h[size_t(i)] = float((i * 104729) % 1000) * 1e-3f - 0.5f;
        std::vector<float> hr(h.rbegin(), h.rend());
        FftwOverlapAdd ola(n, taps);
        std::vector<zb::Contender> c = {
            {"zams", [&] { zamsCrossCorr_32f(h.data(), taps, x.data(), n, y.data(), n + taps - 1, 1 - taps); }},
            {"fftw-ola", [&] { ola.run(x.data(), hr.data(), y.data()); }}};
        if (double(n) * taps <= double(1 << 24))
            c.push_back({"loop", [&] { plain_conv(x.data(), n, hr.data(), taps, y.data()); }});
        b.row("CrossCorr_32f taps " + std::to_string(taps), n, 0, c);
    }
}
