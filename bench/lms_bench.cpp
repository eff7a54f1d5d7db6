// Adaptive LMS filters against liquid-dsp's LMS equaliser (eqlms_rrrf: push,
// execute, step for every sample) and a plain C loop of the same step,
// 4 Ki-sample blocks, one thread.
#include <liquid/liquid.h>

#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

const int kLen = 4096;

std::vector<float> noise(int n, unsigned seed) {
    std::vector<float> v(static_cast<size_t>(n));
    unsigned s = seed;
    for (auto& x : v) {
        s = s * 1664525u + 1013904223u;
        x = float(s >> 8) * (1.0f / 16777216.0f) - 0.5f;
    }
    return v;
}

// liquid's header marks its push as deprecated, yet it is still the way to
// feed the equaliser one sample; the warning is off for this one call.
void liquid_step(eqlms_rrrf q, float x, float d, float* y) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    eqlms_rrrf_push(q, x);
#pragma GCC diagnostic pop
    eqlms_rrrf_execute(q, y);
    eqlms_rrrf_step(q, d, *y);
}

// The step a user writes: a shifted history, the sum, the update.
void plain_lms(float* t, float* hist, int L, const float* x, const float* d, float* y, int n, float mu) {
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j + 1 < L; ++j) hist[j] = hist[j + 1];
        hist[L - 1] = x[i];
        float s = 0;
        for (int j = 0; j < L; ++j) s += t[j] * hist[j];
        y[i] = s;
        const float g = 2 * mu * (d[i] - s);
        for (int j = 0; j < L; ++j) t[j] += g * hist[j];
    }
}

void bench_lms(zb::Bench& b, int L) {
    const auto x = noise(kLen, 1), d = noise(kLen, 2);
    std::vector<float> y(kLen), t(static_cast<size_t>(L), 0.f), hist(static_cast<size_t>(L), 0.f);
    const float mu = 0.001f;
    ZamsFIRLMSState_32f* z = nullptr;
    zamsFIRLMSInitAlloc_32f(&z, t.data(), L, nullptr, 0);
    eqlms_rrrf q = eqlms_rrrf_create(t.data(), unsigned(L));
    eqlms_rrrf_set_bw(q, mu);
    b.row("FIRLMS_32f " + std::to_string(L) + " taps", kLen, 0,
          {{"zams", [&] { zamsFIRLMS_32f(x.data(), d.data(), y.data(), kLen, mu, z); zb::keep(y); }},
           {"liquid", [&] {
                for (int i = 0; i < kLen; ++i) liquid_step(q, x[size_t(i)], d[size_t(i)], &y[size_t(i)]);
                zb::keep(y);
            }},
           {"loop", [&] { plain_lms(t.data(), hist.data(), L, x.data(), d.data(), y.data(), kLen, mu); zb::keep(y); }}});
    eqlms_rrrf_destroy(q);
    zamsFIRLMSFree_32f(z);
}

}  // namespace

ZAMS_BENCH(lms) {
    bench_lms(b, 32);
    bench_lms(b, 8);
    bench_lms(b, 128);
}
