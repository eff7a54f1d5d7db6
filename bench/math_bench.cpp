// Division, elementary functions and magnitude against SLEEF's AVX vector
// functions, VOLK and plain loops over the C library, on one and two threads.
#include <immintrin.h>
#include <sleef.h>
#include <volk/volk.h>

#include <cmath>
#include <string>
#include <vector>

#include "harness.h"
#include "zamcore.h"
#include "zams.h"

namespace {

template <class F> std::vector<F> ramp(int n, double lo, double hi) {
    std::vector<F> v(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) v[size_t(i)] = F(lo + (hi - lo) * double((int64_t(i) * 7919) % n) / n);
    return v;
}

template <class V, class F, class Fn> void sleef_map(const F* x, F* y, int n, Fn fn) {
    constexpr int w = sizeof(V) / sizeof(F);
    int i = 0;
    for (; i + w <= n; i += w) {
        if constexpr (sizeof(F) == 4) _mm256_storeu_ps(y + i, fn(_mm256_loadu_ps(x + i)));
        else _mm256_storeu_pd(y + i, fn(_mm256_loadu_pd(x + i)));
    }
    for (; i < n; ++i) y[i] = std::exp(x[i]);  // never reached: sizes are multiples of 8
}

const int kSizes[] = {4096, 1 << 20};

}  // namespace

ZAMS_BENCH(math) {
    int old = ownGetNumThreads();
    for (int threads : {1, 2}) {
        zamSetNumThreads(threads);
        std::string t = threads == 1 ? " 1T" : " 2T";
        for (int n : kSizes) {
            auto pos = ramp<float>(n, 0.001, 1000.0);
            auto arg = ramp<float>(n, -80.0, 80.0);
            auto any = ramp<float>(n, -50.0, 50.0);
            auto argd = ramp<double>(n, -700.0, 700.0);
            std::vector<float> y(static_cast<size_t>(n));
            std::vector<double> yd(static_cast<size_t>(n));
            b.row("Sqrt_32f" + t, n, n * 8.0,
                  {{"zams", [&] { zamsSqrt_32f(pos.data(), y.data(), n); }},
                   {"sleef", [&] { sleef_map<__m256>(pos.data(), y.data(), n, Sleef_sqrtf8_u05avx); }},
                   {"libm", [&] { for (int i = 0; i < n; ++i) y[i] = std::sqrt(pos[i]); }}});
            b.row("Exp_32f" + t, n, n * 8.0,
                  {{"zams", [&] { zamsExp_32f(arg.data(), y.data(), n); }},
                   {"sleef", [&] { sleef_map<__m256>(arg.data(), y.data(), n, Sleef_expf8_u10avx); }},
                   {"libm", [&] { for (int i = 0; i < n; ++i) y[i] = std::exp(arg[i]); }}});
            b.row("Ln_32f" + t, n, n * 8.0,
                  {{"zams", [&] { zamsLn_32f(pos.data(), y.data(), n); }},
                   {"sleef", [&] { sleef_map<__m256>(pos.data(), y.data(), n, Sleef_logf8_u10avx); }},
                   {"libm", [&] { for (int i = 0; i < n; ++i) y[i] = std::log(pos[i]); }}});
            b.row("Arctan_32f" + t, n, n * 8.0,
                  {{"zams", [&] { zamsArctan_32f(any.data(), y.data(), n); }},
                   {"sleef", [&] { sleef_map<__m256>(any.data(), y.data(), n, Sleef_atanf8_u10avx); }},
                   {"libm", [&] { for (int i = 0; i < n; ++i) y[i] = std::atan(any[i]); }}});
            b.row("Exp_64f" + t, n, n * 16.0,
                  {{"zams", [&] { zamsExp_64f(argd.data(), yd.data(), n); }},
                   {"sleef", [&] { sleef_map<__m256d>(argd.data(), yd.data(), n, Sleef_expd4_u10avx); }},
                   {"libm", [&] { for (int i = 0; i < n; ++i) yd[i] = std::exp(argd[i]); }}});
            b.row("Div_32f" + t, n, n * 12.0,
                  {{"zams", [&] { zamsDiv_32f(pos.data(), any.data(), y.data(), n); }},
                   {"volk", [&] { volk_32f_x2_divide_32f(y.data(), any.data(), pos.data(), unsigned(n)); }},
                   {"loop", [&] { for (int i = 0; i < n; ++i) y[i] = any[i] / pos[i]; }}});
            std::vector<Zam16s> d16(static_cast<size_t>(n)), n16(static_cast<size_t>(n)), y16(static_cast<size_t>(n));
            for (int i = 0; i < n; ++i) d16[i] = Zam16s(1 + (i * 37) % 3000), n16[i] = Zam16s((i * 7919) % 65536 - 32768);
            b.row("Div_16s_Sfs" + t, n, n * 6.0,
                  {{"zams", [&] { zamsDiv_16s_Sfs(d16.data(), n16.data(), y16.data(), n, 0); }},
                   {"loop", [&] {
                        for (int i = 0; i < n; ++i) {
                            int q = n16[i] / d16[i], r = n16[i] % d16[i];
                            int twice = 2 * (r < 0 ? -r : r);
                            if (twice > d16[i] || (twice == d16[i] && (q & 1))) q += (n16[i] < 0) ? -1 : 1;
                            y16[i] = Zam16s(q);
                        }
                    }}});
            std::vector<Zam32fc> c(static_cast<size_t>(n));
            for (int i = 0; i < n; ++i) c[i] = {any[i], pos[i]};
            b.row("Magnitude_32fc" + t, n, n * 12.0,
                  {{"zams", [&] { zamsMagnitude_32fc(c.data(), y.data(), n); }},
                   {"volk", [&] { volk_32fc_magnitude_32f(y.data(), reinterpret_cast<const lv_32fc_t*>(c.data()), unsigned(n)); }},
                   {"libm", [&] { for (int i = 0; i < n; ++i) y[i] = std::hypot(c[i].re, c[i].im); }}});
        }
    }
    zamSetNumThreads(old);
}
