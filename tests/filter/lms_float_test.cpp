// Float LMS filters: the Direct forms bit for bit against a scalar model of
// the step, the states against the Direct forms sample by sample, mu = 0 as
// a fixed FIR, identification of an unknown 16-tap system, the deliberate
// statuses.
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

#include "digest.h"
#include "harness.h"

namespace {

// The step in plain scalar code: eight partial sums by j mod 8 from 8 taps.
template <class W> float model_dot(const float* t, const W* w, int n) {
    if (n < 8) {
        float s = t[0] * float(w[0]);
        for (int j = 1; j < n; ++j) s += t[j] * float(w[j]);
        return s;
    }
    float p[8];
    const int n8 = n / 8 * 8;
    for (int l = 0; l < 8; ++l) {
        p[l] = t[l] * float(w[l]);
        for (int j = l + 8; j < n8; j += 8) p[l] += t[j] * float(w[j]);
    }
    float s = ((p[0] + p[4]) + (p[2] + p[6])) + ((p[1] + p[5]) + (p[3] + p[7]));
    for (int j = n8; j < n; ++j) s += t[j] * float(w[j]);
    return s;
}
// Span order taps; the line as a plain history, newest last. Returns y.
template <class W> float model_step(std::vector<float>& t, std::vector<W>& hist, W x, float ref, float mu) {
    hist.erase(hist.begin());
    hist.push_back(x);
    const float y = model_dot(t.data(), hist.data(), int(t.size()));
    const float g = (ref - y) * (mu + mu);
    for (size_t j = 0; j < t.size(); ++j) t[j] += float(hist[j]) * g;
    return y;
}
Zam16s to16(float y) { return Zam16s(std::fmax(-32768.f, std::fmin(32767.f, std::nearbyint(y)))); }

std::vector<float> reversed(std::vector<float> v) { return {v.rbegin(), v.rend()}; }

struct State32f {
    ZamsFIRLMSState_32f* p = nullptr;
    State32f(const std::vector<float>& taps, const float* dly, int index) {
        EXPECT_EQ(zamsFIRLMSInitAlloc_32f(&p, taps.data(), int(taps.size()), dly, index), 0);
    }
    ~State32f() { EXPECT_EQ(zamsFIRLMSFree_32f(p), 0); }
};

const int kLens[] = {1, 2, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 64, 100};

TEST(LmsDirect32f, MatchesTheStepModelBitForBit) {
    for (int L : kLens) {
        auto t = zt::random_reals<float>(size_t(L), uint32_t(L), -0.5f, 0.5f);
        auto x = zt::random_reals<float>(300, 7, -1.f, 1.f), r = zt::random_reals<float>(300, 8, -1.f, 1.f);
        std::vector<float> mt = t, hist(size_t(L), 0.f);
        // The caller's line one float off the 32-byte grid, so the sums cannot follow addresses.
        std::vector<float> buf(size_t(2 * L + 1), 0.f);
        float* line = buf.data() + 1;
        int idx = L / 3;
        for (int i = 0; i < 300; ++i) {
            float y = 0;
            ASSERT_EQ(zamsFIRLMSOne_Direct_32f(x[i], r[i], &y, t.data(), L, 0.01f, line, &idx), 0);
            const float my = model_step(mt, hist, x[i], r[i], 0.01f);
            ASSERT_EQ(zt::bits(y), zt::bits(my)) << "L " << L << " i " << i;
            ASSERT_EQ(idx, (L / 3 + i + 1) % L);
            for (int k = 0; k < L; ++k) ASSERT_EQ(line[idx + k], hist[size_t(k)]);
        }
        for (int j = 0; j < L; ++j) ASSERT_EQ(zt::bits(t[j]), zt::bits(mt[j])) << L;
    }
}

// A delay-line index outside [0, tapsLen) is refused; nothing changes.
TEST(LmsDirect32f, BadIndexRefused) {
    float t[4] = {1, 2, 3, 4}, l[8] = {}, y = -7;
    Zam16s l16[8] = {}, y16 = -7;
    Zam32s tq[4] = {};
    int idx = 0;
    for (int bad : {-1, 4}) {
        idx = bad;
        EXPECT_EQ(zamsFIRLMSOne_Direct_32f(1, 1, &y, t, 4, 0.1f, l, &idx), -24);
        EXPECT_EQ(zamsFIRLMSOne_Direct32f_16s(1, 1, &y16, t, 4, 0.1f, l16, &idx), -24);
        EXPECT_EQ(zamsFIRLMSOne_DirectQ15_16s(1, 1, &y16, tq, 4, 100, l16, &idx), -24);
        EXPECT_EQ(idx, bad);
    }
    const float t0[4] = {1, 2, 3, 4};
    EXPECT_EQ(std::memcmp(t, t0, sizeof t), 0);
    EXPECT_EQ(y, -7);
    EXPECT_EQ(y16, -7);
    for (float v : l) EXPECT_EQ(v, 0);
}

// The state made from taps h runs as the Direct form given h reversed, for
// blocks shorter and longer than the filter, out of place and in place.
TEST(Lms32f, StateEqualsDirectSampleBySample) {
    for (int L : {1, 3, 8, 13, 32, 40}) {
        for (bool inPlace : {false, true}) {
            auto h = zt::random_reals<float>(size_t(L), 3, -0.3f, 0.3f);
            auto d0 = zt::random_reals<float>(size_t(L), 4, -1.f, 1.f);
            auto x = zt::random_reals<float>(500, 5, -1.f, 1.f), r = zt::random_reals<float>(500, 6, -1.f, 1.f);
            const int index = 2 * L + 1;  // taken modulo tapsLen
            State32f s(h, d0.data(), index);
            std::vector<float> t = reversed(h), line(size_t(2 * L));
            for (int k = 0; k < L; ++k) line[size_t(k)] = line[size_t(k + L)] = d0[size_t(k)];
            int idx = index % L;
            std::vector<float> y(x.size()), yd(x.size());
            for (size_t i = 0; i < x.size(); ++i)
                ASSERT_EQ(zamsFIRLMSOne_Direct_32f(x[i], r[i], &yd[i], t.data(), L, 0.02f, line.data(), &idx), 0);
            size_t at = 0;
            for (int blk : {1, 2, L - 1, L, L + 3, 1, 97, 500}) {
                const int n = std::max(1, std::min(blk, int(x.size() - at)));
                if (at == x.size()) break;
                if (inPlace) {
                    std::copy(x.begin() + long(at), x.begin() + long(at) + n, y.begin() + long(at));
                    ASSERT_EQ(zamsFIRLMS_32f(y.data() + at, r.data() + at, y.data() + at, n, 0.02f, s.p), 0);
                } else {
                    ASSERT_EQ(zamsFIRLMS_32f(x.data() + at, r.data() + at, y.data() + at, n, 0.02f, s.p), 0);
                }
                at += size_t(n);
            }
            ASSERT_EQ(at, x.size());
            for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(zt::bits(y[i]), zt::bits(yd[i])) << L << " " << i;
            std::vector<float> got(static_cast<size_t>(L)), span(line.begin() + idx, line.begin() + idx + L);
            ASSERT_EQ(zamsFIRLMSGetTaps_32f(s.p, got.data()), 0);
            EXPECT_EQ(got, reversed(t));
            ASSERT_EQ(zamsFIRLMSGetDlyLine_32f(s.p, got.data()), 0);
            EXPECT_EQ(got, span);
        }
    }
}

// mu = 0: a fixed FIR with the last tap on the newest sample.
TEST(Lms32f, ZeroMuIsAFixedFir) {
    const int L = 21;
    auto h = zt::random_reals<float>(L, 11, -1.f, 1.f), x = zt::random_reals<float>(200, 12, -1.f, 1.f);
    State32f s(h, nullptr, 0);
    std::vector<float> y(x.size()), got(L);
    ASSERT_EQ(zamsFIRLMS_32f(x.data(), x.data(), y.data(), int(x.size()), 0.f, s.p), 0);
    for (size_t n = 0; n < x.size(); ++n) {
        long double e = 0, mag = 0;
        for (int k = 0; k < L && k <= int(n); ++k) {
            e += (long double)h[size_t(k)] * x[n - size_t(k)];
            mag += std::fabs((long double)h[size_t(k)] * x[n - size_t(k)]);
        }
        EXPECT_NEAR(y[n], double(e), double(mag) * 1e-6) << n;
    }
    ASSERT_EQ(zamsFIRLMSGetTaps_32f(s.p, got.data()), 0);
    EXPECT_EQ(got, h);
}

// White noise through an unknown 16-tap system: the filter finds it.
TEST(Lms32f, IdentifiesA16TapSystem) {
    const int L = 16, N = 20000;
    std::vector<float> h(L);
    for (int k = 0; k < L; ++k) h[size_t(k)] = float(std::exp(-0.25 * k) * std::cos(0.9 * k));
    auto x = zt::random_reals<float>(N, 21, -1.f, 1.f);
    std::vector<float> d(N), y(N), w(L);
    for (int n = 0; n < N; ++n) {
        double s = 0;
        for (int k = 0; k < L && k <= n; ++k) s += double(h[size_t(k)]) * x[size_t(n - k)];
        d[size_t(n)] = float(s);
    }
    State32f s(std::vector<float>(L, 0.f), nullptr, 0);
    ASSERT_EQ(zamsFIRLMS_32f(x.data(), d.data(), y.data(), N, 0.02f, s.p), 0);
    ASSERT_EQ(zamsFIRLMSGetTaps_32f(s.p, w.data()), 0);
    double err = 0, ref = 0;
    for (int k = 0; k < L; ++k) {
        err += (w[size_t(k)] - h[size_t(k)]) * double(w[size_t(k)] - h[size_t(k)]);
        ref += double(h[size_t(k)]) * h[size_t(k)];
    }
    EXPECT_LT(10 * std::log10(err / ref), -60.0);
}

// The deliberate statuses: length 0, a state too large, Free of null;
// null taps and line start at zero.
TEST(Lms32f, StatusesAndNullStart) {
    ZamsFIRLMSState_32f* p = nullptr;
    const float t[3] = {1, 2, 3};
    EXPECT_EQ(zamsFIRLMSInitAlloc_32f(&p, t, 0, nullptr, 0), -6);  // -6, not the fixed filters' -26
    EXPECT_EQ(p, nullptr);
    EXPECT_EQ(zamsFIRLMSInitAlloc_32f(&p, t, 1 << 29, nullptr, 0), -9);
    EXPECT_EQ(zamsFIRLMSFree_32f(nullptr), 0);
    // Null taps and line are zeros.
    ASSERT_EQ(zamsFIRLMSInitAlloc_32f(&p, nullptr, 3, nullptr, -5), 0);
    float x[4] = {1, 2, 3, 4}, y[4] = {9, 9, 9, 9}, got[3] = {9, 9, 9};
    ASSERT_EQ(zamsFIRLMS_32f(x, x, y, 1, 0.f, p), 0);
    EXPECT_EQ(y[0], 0);
    ASSERT_EQ(zamsFIRLMSGetDlyLine_32f(p, got), 0);
    EXPECT_EQ(got[0], 0);
    EXPECT_EQ(got[2], 1);
    EXPECT_EQ(zamsFIRLMSFree_32f(p), 0);
}

// 16-bit data: the Direct form against the model with rounded outputs, the
// state against the Direct form, the line through Set and Get.
TEST(Lms32f16s, DirectModelAndState) {
    for (int L : {1, 6, 8, 19, 32}) {
        auto h = zt::random_reals<float>(size_t(L), 31, -0.05f, 0.05f);
        auto x = zt::random_ints<Zam16s>(400, 32), r = zt::random_ints<Zam16s>(400, 33);
        const float mu = 1e-11f;
        std::vector<float> t = reversed(h), mt = t;
        std::vector<Zam16s> line(size_t(2 * L), 0), hist(size_t(L), 0), yd(x.size()), y(x.size());
        int idx = 0;
        for (size_t i = 0; i < x.size(); ++i) {
            ASSERT_EQ(zamsFIRLMSOne_Direct32f_16s(x[i], r[i], &yd[i], t.data(), L, mu, line.data(), &idx), 0);
            ASSERT_EQ(yd[i], to16(model_step(mt, hist, x[i], float(r[i]), mu))) << L << " " << i;
        }
        ASSERT_EQ(std::memcmp(t.data(), mt.data(), t.size() * 4), 0);
        ZamsFIRLMSState32f_16s* s = nullptr;
        ASSERT_EQ(zamsFIRLMSInitAlloc32f_16s(&s, h.data(), L, nullptr, 0), 0);
        ASSERT_EQ(zamsFIRLMS32f_16s(x.data(), r.data(), y.data(), 150, mu, s), 0);
        ASSERT_EQ(zamsFIRLMS32f_16s(x.data() + 150, r.data() + 150, y.data() + 150, 250, mu, s), 0);
        EXPECT_EQ(y, yd);
        std::vector<float> got(static_cast<size_t>(L));
        ASSERT_EQ(zamsFIRLMSGetTaps32f_16s(s, got.data()), 0);
        EXPECT_EQ(got, reversed(t));
        std::vector<Zam16s> dl(static_cast<size_t>(L)), back(static_cast<size_t>(L));
        ASSERT_EQ(zamsFIRLMSGetDlyLine32f_16s(s, dl.data()), 0);
        EXPECT_EQ(dl, hist);
        for (auto& v : dl) v = Zam16s(-v / 2);
        ASSERT_EQ(zamsFIRLMSSetDlyLine32f_16s(s, dl.data()), 0);
        ASSERT_EQ(zamsFIRLMSGetDlyLine32f_16s(s, back.data()), 0);
        EXPECT_EQ(back, dl);
        EXPECT_EQ(zamsFIRLMSFree32f_16s(s), 0);
    }
}

// Outputs that leave the 16-bit range saturate.
TEST(Lms32f16s, OutputSaturates) {
    float t[2] = {2.f, 2.f};
    Zam16s line[4] = {}, y = 0;
    int idx = 0;
    for (Zam16s x : {30000, 30000}) ASSERT_EQ(zamsFIRLMSOne_Direct32f_16s(x, 0, &y, t, 2, 0.f, line, &idx), 0);
    EXPECT_EQ(y, 32767);
    for (Zam16s x : {-30000, -30000}) ASSERT_EQ(zamsFIRLMSOne_Direct32f_16s(x, 0, &y, t, 2, 0.f, line, &idx), 0);
    EXPECT_EQ(y, -32768);
}

ZAMS_DIGEST(lms_float) {
    for (int L : {5, 32, 45}) {
        auto h = zt::random_reals<float>(size_t(L), 41, -0.2f, 0.2f);
        auto x = zt::random_reals<float>(700, 42, -1.f, 1.f), r = zt::random_reals<float>(700, 43, -1.f, 1.f);
        ZamsFIRLMSState_32f* p = nullptr;
        d.status(zamsFIRLMSInitAlloc_32f(&p, h.data(), L, nullptr, 0));
        std::vector<float> y(x.size()), t(static_cast<size_t>(L));
        d.status(zamsFIRLMS_32f(x.data(), r.data(), y.data(), 300, 0.01f, p));
        d.status(zamsFIRLMS_32f(x.data() + 300, r.data() + 300, y.data() + 300, 400, 0.01f, p));
        d.status(zamsFIRLMSGetTaps_32f(p, t.data()));
        d.add(y);
        d.add(t);
        d.status(zamsFIRLMSFree_32f(p));
        auto xi = zt::random_ints<Zam16s>(300, 44), ri = zt::random_ints<Zam16s>(300, 45);
        std::vector<Zam16s> yi(xi.size());
        ZamsFIRLMSState32f_16s* q = nullptr;
        d.status(zamsFIRLMSInitAlloc32f_16s(&q, h.data(), L, nullptr, 0));
        d.status(zamsFIRLMS32f_16s(xi.data(), ri.data(), yi.data(), 300, 1e-11f, q));
        d.add(yi);
        d.status(zamsFIRLMSFree32f_16s(q));
    }
}

}  // namespace
