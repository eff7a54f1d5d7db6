// The multirate 32f filter (up 3, down 2, 96 taps) against liquid-dsp's
// interpolator followed by its decimator on the same signal, and against a
// plain polyphase loop; the 16-bit filter (32-bit taps over 16-bit data)
// against a plain polyphase loop with a 64-bit accumulator.
#include <liquid/liquid.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

std::vector<float> signal(int n, int salt) {
    std::vector<float> v(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) v[size_t(i)] = float((uint64_t(i + salt) * 7919u) % 1000u) * 0.001f - 0.5f;
    return v;
}

}  // namespace

ZAMS_BENCH(firmr_32f) {
    constexpr int U = 3, D = 2, L = 96, kIn = 16384, N = kIn / D, kOut = N * U;
    auto taps = signal(L, 1), x = signal(kIn, 2);
    std::vector<float> y(static_cast<size_t>(kOut)), up(static_cast<size_t>(kIn * U)), yl(static_cast<size_t>(kOut));

    // liquid's decimator keeps the first of each pair: down phase 0.
    ZamsFIRState_32f* st = nullptr;
    zamsFIRMRInitAlloc_32f(&st, taps.data(), L, U, 0, D, 0, nullptr);
    firinterp_rrrf interp = firinterp_rrrf_create(U, taps.data(), L);
    float one = 1.0f;
    firdecim_rrrf keep = firdecim_rrrf_create(D, &one, 1);
    firdecim_rrrf decim = firdecim_rrrf_create(D, taps.data(), L);

    // The same outputs from both (a check, printed once).
    zamsFIR_32f(x.data(), y.data(), N, st);
    firinterp_rrrf_execute_block(interp, x.data(), kIn, up.data());
    firdecim_rrrf_execute_block(keep, up.data(), kOut, yl.data());
    double worst = 0;
    for (int i = 0; i < kOut; ++i) worst = std::fmax(worst, std::fabs(double(y[size_t(i)]) - yl[size_t(i)]));
    std::printf("firmr_32f: largest difference from liquid's interpolator and decimator %.3g\n", worst);

    // The floor: the polyphase sum in a plain loop.
    std::vector<float> hist(static_cast<size_t>(L / U) + size_t(kIn), 0.0f);
    std::copy(x.begin(), x.end(), hist.begin() + L / U);
    b.row("FIRMR_32f up 3 down 2 taps 96", kIn, 0,
          {{"zams", [&] { zamsFIR_32f(x.data(), y.data(), N, st); }},
           {"liquid interp+decim(1 tap)",
            [&] {
                firinterp_rrrf_execute_block(interp, x.data(), kIn, up.data());
                firdecim_rrrf_execute_block(keep, up.data(), kOut, yl.data());
            }},
           {"liquid interp+decim(96 taps)",
            [&] {
                firinterp_rrrf_execute_block(interp, x.data(), kIn, up.data());
                firdecim_rrrf_execute_block(decim, up.data(), kOut, yl.data());
            }},
           {"loop", [&] {
                for (int o = 0; o < kOut; ++o) {
                    const int t = o * D, p = t % U, q = t / U + L / U;
                    float s = 0;
                    for (int k = p, i = q; k < L; k += U, --i) s += taps[size_t(k)] * hist[size_t(i)];
                    y[size_t(o)] = s;
                }
            }}});
    firinterp_rrrf_destroy(interp);
    firdecim_rrrf_destroy(keep);
    firdecim_rrrf_destroy(decim);
    zamsFIRFree_32f(st);
}

ZAMS_BENCH(firmr_16s) {
    struct Case {
        int U, D, L;
    };
    for (const Case c : {Case{3, 2, 96}, Case{1, 4, 64}}) {
        const int kIn = 16384, N = kIn / c.D, kOut = N * c.U, H = (c.L + c.U - 1) / c.U;
        std::vector<Zam32s> taps(static_cast<size_t>(c.L));
        for (int k = 0; k < c.L; ++k) taps[size_t(k)] = (k * 977) % 20000 - 10000;
        std::vector<Zam16s> x(static_cast<size_t>(kIn)), y(static_cast<size_t>(kOut)), hist(size_t(H + kIn), 0);
        for (int i = 0; i < kIn; ++i) x[size_t(i)] = Zam16s((i * 7919) % 60000 - 30000);
        std::copy(x.begin(), x.end(), hist.begin() + H);
        ZamsFIRState32s_16s* st = nullptr;
        zamsFIRMRInitAlloc32s_16s(&st, taps.data(), c.L, 0, c.U, 0, c.D, 0, nullptr);
        char name[64];
        std::snprintf(name, sizeof name, "FIRMR32s_16s_Sfs up %d down %d taps %d", c.U, c.D, c.L);
        b.row(name, kIn, 0,
              {{"zams", [&] { zamsFIR32s_16s_Sfs(x.data(), y.data(), N, st, 16); }},
               {"loop int64", [&] {
                    for (int o = 0; o < kOut; ++o) {
                        const int t = o * c.D, q = t / c.U + H;
                        int64_t s = 0;
                        for (int k = t % c.U, i = q; k < c.L; k += c.U, --i) s += int64_t(taps[size_t(k)]) * hist[size_t(i)];
                        y[size_t(o)] = Zam16s(s >> 16);
                    }
                }}});
        zamsFIRFree32s_16s(st);
    }
}
