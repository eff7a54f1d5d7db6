// PolarToCart and Cubrt_64f against SLEEF's AVX vector functions and plain
// loops over the C library.
#include <immintrin.h>
#include <sleef.h>

#include <cmath>
#include <string>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

template <class F> std::vector<F> spread(int n, double lo, double hi) {
    std::vector<F> v(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) v[size_t(i)] = F(lo + (hi - lo) * ((i * 7919) % n) / n);
    return v;
}

const int kSizes[] = {4096, 1 << 18};

}  // namespace

ZAMS_BENCH(polar) {
    for (int n : kSizes) {
        auto mag = spread<double>(n, 0.5, 100.0), ph = spread<double>(n, -50.0, 50.0);
        auto magf = spread<float>(n, 0.5, 100.0), phf = spread<float>(n, -50.0, 50.0);
        auto big = spread<double>(n, -1e300, 1e300);
        std::vector<Zam64fc> yd(static_cast<size_t>(n));
        std::vector<Zam32fc> yf(static_cast<size_t>(n));
        std::vector<double> re(static_cast<size_t>(n)), im(static_cast<size_t>(n)), c(static_cast<size_t>(n));
        b.row("PolarToCart_64f", n, n * 32.0,
              {{"zams", [&] { zamsPolarToCart_64f(mag.data(), ph.data(), re.data(), im.data(), n); }},
               {"sleef", [&] {
                    for (int i = 0; i + 4 <= n; i += 4) {
                        __m256d m = _mm256_loadu_pd(&mag[i]);
                        Sleef___m256d_2 sc = Sleef_sincosd4_u10(_mm256_loadu_pd(&ph[i]));
                        _mm256_storeu_pd(&re[i], _mm256_mul_pd(m, sc.y));
                        _mm256_storeu_pd(&im[i], _mm256_mul_pd(m, sc.x));
                    }
                }},
               {"libm", [&] {
                    for (int i = 0; i < n; ++i) re[i] = mag[i] * std::cos(ph[i]), im[i] = mag[i] * std::sin(ph[i]);
                }}});
        b.row("PolarToCart_64fc huge phase", n, n * 32.0,
              {{"zams", [&] { zamsPolarToCart_64fc(mag.data(), big.data(), yd.data(), n); }},
               {"libm", [&] {
                    for (int i = 0; i < n; ++i) yd[i].re = mag[i] * std::cos(big[i]), yd[i].im = mag[i] * std::sin(big[i]);
                }}});
        b.row("PolarToCart_32fc", n, n * 16.0,
              {{"zams", [&] { zamsPolarToCart_32fc(magf.data(), phf.data(), yf.data(), n); }},
               {"sleef", [&] {
                    float* y = reinterpret_cast<float*>(yf.data());
                    for (int i = 0; i + 8 <= n; i += 8) {
                        __m256 m = _mm256_loadu_ps(&magf[i]);
                        Sleef___m256_2 sc = Sleef_sincosf8_u10(_mm256_loadu_ps(&phf[i]));
                        __m256 r = _mm256_mul_ps(m, sc.y), s = _mm256_mul_ps(m, sc.x);
                        __m256 lo = _mm256_unpacklo_ps(r, s), hi = _mm256_unpackhi_ps(r, s);
                        _mm256_storeu_ps(y + 2 * i, _mm256_permute2f128_ps(lo, hi, 0x20));
                        _mm256_storeu_ps(y + 2 * i + 8, _mm256_permute2f128_ps(lo, hi, 0x31));
                    }
                }},
               {"libm", [&] {
                    for (int i = 0; i < n; ++i) yf[i].re = magf[i] * std::cos(phf[i]), yf[i].im = magf[i] * std::sin(phf[i]);
                }}});
        auto x = spread<double>(n, -1e6, 1e6);
        b.row("Cubrt_64f", n, n * 16.0,
              {{"zams", [&] { zamsCubrt_64f(x.data(), c.data(), n); }},
               {"sleef", [&] {
                    for (int i = 0; i + 4 <= n; i += 4) _mm256_storeu_pd(&c[i], Sleef_cbrtd4_u10(_mm256_loadu_pd(&x[i])));
                }},
               {"libm", [&] { for (int i = 0; i < n; ++i) c[i] = std::cbrt(x[i]); }}});
    }
}
