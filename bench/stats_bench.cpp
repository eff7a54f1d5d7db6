// Reductions, windows and thresholds against VOLK (where it has the
// operation) and plain loops.
#include <volk/volk.h>

#include <cmath>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

const int kSizes[] = {4096, 4 << 20};

std::vector<float> data(int n) {
    std::vector<float> v(n);
    for (int i = 0; i < n; ++i) v[i] = float((i * 7919) % 1000) * 0.01f - 5.0f;
    return v;
}

}  // namespace

ZAMS_BENCH(stats_sum) {
    for (int n : kSizes) {
        auto x = data(n);
        float r = 0;
        b.row("Sum_32f fast", n, n * 4.0,
              {{"zams", [&] { zamsSum_32f(x.data(), n, &r, zamAlgHintFast); zb::keep(r); }},
               {"volk", [&] { volk_32f_accumulator_s32f(&r, x.data(), n); zb::keep(r); }},
               {"loop", [&] { float s = 0; for (int i = 0; i < n; ++i) s += x[i]; r = s; zb::keep(r); }}});
        b.row("Sum_32f accurate", n, n * 4.0,
              {{"zams", [&] { zamsSum_32f(x.data(), n, &r, zamAlgHintAccurate); zb::keep(r); }},
               {"volk", [&] { volk_32f_accumulator_s32f(&r, x.data(), n); zb::keep(r); }},
               {"loop", [&] { double s = 0; for (int i = 0; i < n; ++i) s += x[i]; r = float(s); zb::keep(r); }}});
    }
}

ZAMS_BENCH(stats_max) {
    for (int n : kSizes) {
        auto x = data(n);
        float r = 0;
        int k = 0;
        uint32_t vk = 0;
        b.row("Max_32f", n, n * 4.0,
              {{"zams", [&] { zamsMax_32f(x.data(), n, &r); zb::keep(r); }},
               {"volk", [&] { volk_32f_index_max_32u(&vk, x.data(), n); r = x[vk]; zb::keep(r); }},
               {"loop", [&] { float m = x[0]; for (int i = 1; i < n; ++i) m = x[i] > m ? x[i] : m; r = m; zb::keep(r); }}});
        b.row("MaxIndx_32f", n, n * 4.0,
              {{"zams", [&] { zamsMaxIndx_32f(x.data(), n, &r, &k); zb::keep(k); }},
               {"volk", [&] { volk_32f_index_max_32u(&vk, x.data(), n); zb::keep(vk); }},
               {"loop", [&] { int m = 0; for (int i = 1; i < n; ++i) if (x[i] > x[m]) m = i; k = m; zb::keep(k); }}});
    }
}

ZAMS_BENCH(stats_dot) {
    for (int n : kSizes) {
        auto x = data(n), y = data(n);
        float r = 0;
        b.row("DotProd_32f", n, n * 8.0,
              {{"zams", [&] { zamsDotProd_32f(x.data(), y.data(), n, &r); zb::keep(r); }},
               {"volk", [&] { volk_32f_x2_dot_prod_32f(&r, x.data(), y.data(), n); zb::keep(r); }},
               {"loop", [&] { float s = 0; for (int i = 0; i < n; ++i) s += x[i] * y[i]; r = s; zb::keep(r); }}});
        // VOLK has no norm: its dot product of x with itself stands in.
        b.row("Norm_L2_32f", n, n * 4.0,
              {{"zams", [&] { zamsNorm_L2_32f(x.data(), n, &r); zb::keep(r); }},
               {"volk", [&] { volk_32f_x2_dot_prod_32f(&r, x.data(), x.data(), n); r = std::sqrt(r); zb::keep(r); }},
               {"loop", [&] { double s = 0; for (int i = 0; i < n; ++i) s += double(x[i]) * x[i]; r = float(std::sqrt(s)); zb::keep(r); }}});
    }
}

ZAMS_BENCH(stats_window) {
    for (int n : kSizes) {
        auto x = data(n);
        std::vector<float> y(n), w(n);
        for (int i = 0; i < n; ++i) w[i] = float(0.5 - 0.5 * std::cos(2 * M_PI * i / (n - 1)));
        b.row("WinHann_32f", n, n * 8.0,
              {{"zams", [&] { zamsWinHann_32f(x.data(), y.data(), n); zb::keep(y[0]); }},
               {"volk", [&] { volk_32f_x2_multiply_32f(y.data(), x.data(), w.data(), n); zb::keep(y[0]); }},
               {"loop", [&] { for (int i = 0; i < n; ++i) y[i] = x[i] * float(0.5 - 0.5 * std::cos(2 * M_PI * i / (n - 1))); zb::keep(y[0]); }}});
    }
}

ZAMS_BENCH(stats_threshold) {
    for (int n : kSizes) {
        auto x = data(n);
        std::vector<float> y(n), lv(n, 0.5f);
        b.row("Threshold_LT_32f", n, n * 8.0,
              {{"zams", [&] { zamsThreshold_LT_32f(x.data(), y.data(), n, 0.5f); zb::keep(y[0]); }},
               {"volk", [&] { volk_32f_x2_max_32f(y.data(), x.data(), lv.data(), n); zb::keep(y[0]); }},
               {"loop", [&] { for (int i = 0; i < n; ++i) y[i] = x[i] < 0.5f ? 0.5f : x[i]; zb::keep(y[0]); }}});
    }
}
