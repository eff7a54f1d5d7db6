// The arbitrary ratio's row handling against the windowed sinc evaluated
// directly in long double: long runs whose outputs share formed rows (a
// ratio whose times repeat their table rows, one whose times do not, and a
// ratio of 1), times just below a whole sample (the weight rounded up to
// the next row), and rows too long to form in a buffer.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "harness.h"

namespace {

using std::vector;

// h(u) of the header, with I0 by its power series.
long double kaiser_sinc(long double u, long double window, long double rollf, long double alpha) {
    if (std::fabs(u) >= window) return 0;
    auto i0 = [](long double x) {
        long double term = 1, sum = 1;
        for (int k = 1; k < 400 && term > 1e-22L * sum; ++k) {
            term *= (x / (2 * k)) * (x / (2 * k));
            sum += term;
        }
        return sum;
    };
    const long double pi = 3.141592653589793238462643383279502884L, r = u / window, a = rollf * u;
    const long double sinc = a == 0 ? 1.0L : std::sin(pi * a) / (pi * a);
    return rollf * sinc * i0(alpha * std::sqrt(1 - r * r)) / i0(alpha);
}

struct Case {
    float window;
    double factor, t0;  // t0 past H - 1
    int len;
};

// Resamples random samples in one call and returns the worst distance of
// every output from the model, in units of full scale (1 for 32f, 32768 for
// 16s); the 16s model is rounded and saturated as the outputs are.
template <class T> double worst_error(const Case& c, int nStep) {
    const float rollf = 0.9f, alpha = 7.0f;
    const int H = int(std::ceil(c.window));
    vector<T> x;
    double scale = 1;
    if constexpr (std::is_same_v<T, Zam32f>) {
        x = zt::random_reals<Zam32f>(size_t(c.len), 77, -1.0f, 1.0f);
    } else {
        x = zt::random_ints<Zam16s>(size_t(c.len), 77);
        for (auto& v : x) v = Zam16s(v / 2);
        scale = 32768;
    }
    vector<T> y(size_t(std::ceil((c.len - H - c.t0) * c.factor)) + 2);
    double t = H - 1 + c.t0;
    int n = -1;
    zamStatus st;
    if constexpr (std::is_same_v<T, Zam32f>) {
        ZamsResamplingPolyphaseSpec_32f* s = nullptr;
        EXPECT_EQ(zamsResamplePolyphaseInitAlloc_32f(&s, c.window, nStep, rollf, alpha, zamAlgHintNone), zamStatusOk);
        st = zamsResamplePolyphase_32f(x.data(), c.len, y.data(), c.factor, 1.0f, &t, &n, s);
        zamsResamplePolyphaseFree_32f(s);
    } else {
        ZamsResamplingPolyphaseSpec_16s* s = nullptr;
        EXPECT_EQ(zamsResamplePolyphaseInitAlloc_16s(&s, c.window, nStep, rollf, alpha, zamAlgHintNone), zamStatusOk);
        st = zamsResamplePolyphase_16s(x.data(), c.len, y.data(), c.factor, 1.0f, &t, &n, s);
        zamsResamplePolyphaseFree_16s(s);
    }
    EXPECT_EQ(st, zamStatusOk);
    EXPECT_GT(n, 0);
    // h steps from h(window) to 0 at the window's edge; a tap within one
    // table step of it sees that step spread over the step.
    const long double edge = std::fabs(kaiser_sinc(c.window * (1 - 1e-12L), c.window, rollf, alpha));
    double worst = 0;
    for (int k = 0; k < n; ++k) {
        const long double tk = H - 1 + c.t0 + (long double)k / c.factor;
        const long double fl = std::floor(tk);
        long double v = 0, spread = 0;
        for (long double m = fl - H + 1; m <= fl + H; ++m) {
            v += x[size_t(m)] * kaiser_sinc(tk - m, c.window, rollf, alpha);
            if (std::fabs(c.window - std::fabs(tk - m)) < 1.0L / nStep) spread += edge * std::fabs(x[size_t(m)]);
        }
        if constexpr (!std::is_same_v<T, Zam32f>) v = std::clamp(std::nearbyint(v), -32768.0L, 32767.0L);
        worst = std::max(worst, double((std::fabs(y[size_t(k)] - v) - spread) / scale));
    }
    return worst;
}

template <class T> class ResampleRows : public ::testing::Test {};
using Types = ::testing::Types<Zam32f, Zam16s>;
TYPED_TEST_SUITE(ResampleRows, Types);

// Long runs: 48/44.1 revisits nearly the same rows every 160 outputs, so
// runs of outputs share a formed row; 1.1635 (an irrational ratio) does
// not; a ratio of 1 puts every output on one row. Times just below a whole
// sample round their weight up to the next row past the table's last step.
TYPED_TEST(ResampleRows, SharedRowsAndLastStepMatchModel) {
    const double bound = std::is_same_v<TypeParam, Zam32f> ? 2e-5 : 1.5 / 32768;
    for (const Case& c : {Case{8, 48000.0 / 44100, 0.3, 12000}, Case{8, 3.14159265358979 / 2.7, 0.61, 9000},
                          Case{6.5f, 1.0, 0.3, 6000}, Case{8, 1.0, 1 - 0x1p-30, 6000},
                          Case{8, 48000.0 / 44100, 1 - 0x1p-31, 3000}}) {
        SCOPED_TRACE(::testing::Message() << "factor " << c.factor << ", t0 " << c.t0);
        EXPECT_LE(worst_error<TypeParam>(c, 1024), bound);
    }
}

// 2 x 512 taps are formed in a buffer, 2 x 517 on the fly (with a tail past the last eight); both follow the
// model (the bound grows with the taps summed in single precision).
TEST(ResampleRowsLong, WideWindowsMatchModel) {
    for (float window : {512.0f, 517.0f}) {
        SCOPED_TRACE(window);
        EXPECT_LE(worst_error<Zam32f>(Case{window, 48000.0 / 44100, 0.4, 1100 + 2 * int(window)}, 256), 2e-4);
    }
}

}  // namespace
