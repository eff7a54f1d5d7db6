// Polyphase resampling against independent models: the fixed ratio against
// zero-stuffing, filtering by the read-back rows in long double and keeping
// every down-th sample; the arbitrary ratio against the windowed sinc
// evaluated directly in long double. Streaming in pieces, the quality of a
// 44.1 kHz -> 48 kHz sine, and the value checks and their order.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <vector>

#include "digest.h"
#include "harness.h"

namespace {

using std::vector;
constexpr long double kPi = 3.141592653589793238462643383279502884L;

// The two sample types behind one set of entry points.
#define RESAMPLE_API(Sfx)                                              \
    using P = ZamsResamplingPolyphaseSpec_##Sfx;                       \
    using F = ZamsResamplingPolyphaseFixedSpec_##Sfx;                  \
    static constexpr auto alloc = zamsResamplePolyphaseInitAlloc_##Sfx; \
    static constexpr auto size = zamsResamplePolyphaseGetSize_##Sfx;   \
    static constexpr auto init = zamsResamplePolyphaseInit_##Sfx;      \
    static constexpr auto free = zamsResamplePolyphaseFree_##Sfx;      \
    static constexpr auto run = zamsResamplePolyphase_##Sfx;           \
    static constexpr auto falloc = zamsResamplePolyphaseFixedInitAlloc_##Sfx; \
    static constexpr auto fsize = zamsResamplePolyphaseFixedGetSize_##Sfx; \
    static constexpr auto finit = zamsResamplePolyphaseFixedInit_##Sfx; \
    static constexpr auto ffree = zamsResamplePolyphaseFixedFree_##Sfx; \
    static constexpr auto get = zamsResamplePolyphaseGetFixedFilter_##Sfx; \
    static constexpr auto set = zamsResamplePolyphaseSetFixedFilter_##Sfx; \
    static constexpr auto frun = zamsResamplePolyphaseFixed_##Sfx;
template <class T> struct Api;
template <> struct Api<Zam32f> {
    RESAMPLE_API(32f)
    static vector<Zam32f> data(size_t n, uint32_t seed) { return zt::random_reals<Zam32f>(n, seed, -1.0f, 1.0f); }
    static long double out(long double v) { return v; }
    static constexpr double kScale = 1;
};
template <> struct Api<Zam16s> {
    RESAMPLE_API(16s)
    // Mostly moderate samples, some at the extremes so that outputs saturate.
    static vector<Zam16s> data(size_t n, uint32_t seed) {
        auto v = zt::random_ints<Zam16s>(n, seed);
        for (size_t i = 0; i < n; ++i)
            if (i % 5) v[i] = Zam16s(v[i] / 4);
        return v;
    }
    static long double out(long double v) {
        return std::clamp(std::nearbyint(v), -32768.0L, 32767.0L);
    }
    static constexpr double kScale = 32768;
};
#undef RESAMPLE_API

template <class T> class Resample : public ::testing::Test {};
using Types = ::testing::Types<Zam32f, Zam16s>;
TYPED_TEST_SUITE(Resample, Types);

// ---- fixed ratio

struct Rates {
    int in, out, len;
};
constexpr Rates kRates[] = {{2, 3, 37}, {3, 2, 36}, {1, 1, 9}, {1, 5, 41}, {4, 1, 64}, {147, 160, 700}, {160, 147, 481}};

// The rows as the caller reads them back.
template <class T> vector<Zam32f> rows_of(const typename Api<T>::F* s, int rowLen, int height) {
    vector<Zam32f> r(size_t(rowLen + 3) * height, -9.0f);
    EXPECT_EQ(Api<T>::get(r.data(), rowLen + 3, height, s), zamStatusOk);
    return r;
}

// Zero-stuff x by up, filter by h (from the rows) in long double, keep the
// samples at i0, i0 + down, ... while i / up <= len - 1.
template <class T>
vector<long double> fixed_model(const vector<T>& x, const vector<Zam32f>& rows, int stride, int rowLen, int up, int down,
                                int64_t i0, float norm) {
    const int64_t n = int64_t(x.size()) * up;
    vector<long double> u(size_t(n), 0.0L), h;
    for (size_t k = 0; k < x.size(); ++k) u[k * up] = x[k];
    h.assign(size_t(up) * rowLen, 0.0L);
    for (int p = 0; p < up; ++p)
        for (int j = 0; j < rowLen; ++j) h[size_t(p) + size_t(up) * j] = rows[size_t(p) * stride + j];
    vector<long double> y;
    for (int64_t i = i0; i < n; i += down) {
        long double s = 0;
        for (size_t m = 0; m < h.size() && int64_t(m) <= i; ++m) s += h[m] * u[size_t(i - int64_t(m))];
        y.push_back(Api<T>::out(s * norm));
    }
    return y;
}

TYPED_TEST(Resample, FixedMatchesZeroStuffModelAndReplacedRows) {
    using T = TypeParam;
    using A = Api<T>;
    for (const Rates& r : kRates) {
        SCOPED_TRACE(::testing::Message() << r.in << " -> " << r.out << ", " << r.len << " taps");
        int size, rowLen, height;
        ASSERT_EQ(A::fsize(r.in, r.out, r.len, &size, &rowLen, &height, zamAlgHintNone), zamStatusOk);
        // Built in caller memory at an odd address.
        vector<uint8_t> mem(size_t(size) + 3);
        auto* s = reinterpret_cast<typename A::F*>(mem.data() + 3);
        ASSERT_EQ(A::finit(r.in, r.out, r.len, 0.9f, 8.0f, s, zamAlgHintNone), zamStatusOk);
        const int g = std::gcd(r.in, r.out), up = r.out / g, down = r.in / g;
        ASSERT_EQ(height, up);
        ASSERT_EQ(rowLen, (r.len + up - 1) / up);
        for (int pass = 0; pass < 2; ++pass) {
            vector<Zam32f> rows = rows_of<T>(s, rowLen, height);
            if (pass == 1) {  // replace the filter by random rows, read them back
                rows = zt::random_reals<Zam32f>(rows.size(), 7, -0.5f, 0.5f);
                ASSERT_EQ(A::set(rows.data(), rowLen + 3, height, s), zamStatusOk);
                const auto back = rows_of<T>(s, rowLen, height);
                for (int p = 0; p < height; ++p)
                    for (int j = 0; j < rowLen; ++j)
                        ASSERT_EQ(back[size_t(p) * (rowLen + 3) + j], rows[size_t(p) * (rowLen + 3) + j]);
            }
            const int len = 300;
            const auto x = A::data(len, 11 + pass);
            const float norm = pass ? 0.75f : 1.0f;
            const double t0 = rowLen - 1 + 0.4;  // rounds to the grid of 1/up
            const int64_t i0 = std::llround(t0 * up);
            const auto want = fixed_model(x, rows, rowLen + 3, rowLen, up, down, i0, norm);
            double worst = 0;
            vector<T> firstOut;
            for (size_t off : {size_t(0), size_t(6)}) {
                zt::Guarded<T> src(len, off), dst(want.size() + 8, off ? 10 - off : 0);
                src.copy_from(x.data());
                double t = t0;
                int outLen = -1;
                ASSERT_EQ(A::frun(src.data(), len, dst.data(), norm, &t, &outLen, s), zamStatusOk);
                ASSERT_EQ(size_t(outLen), want.size());
                EXPECT_TRUE(dst.guards_intact() && src.guards_intact());
                EXPECT_DOUBLE_EQ(t, double(i0 + int64_t(outLen) * down) / up);
                for (int k = 0; k < outLen; ++k)
                    worst = std::max(worst, double(std::fabs(dst[size_t(k)] - want[size_t(k)])) / A::kScale);
                vector<T> got(dst.data(), dst.data() + outLen);
                if (off == 0) firstOut = got;
                else EXPECT_TRUE(got == firstOut) << "bits depend on the buffers' addresses";
            }
            EXPECT_LE(worst, (std::is_same_v<T, Zam16s>) ? 1.0 / 32768 : 2e-5);
        }
    }
}

// Streaming: keep the last *pLen - 1 samples, shift the time; pieces give
// the bits of one call.
template <class T, class Call>
vector<T> stream(const vector<T>& x, int keep, double t0, uint32_t seed, Call call) {
    auto g = zt::rng(seed);
    vector<T> buf, out;
    double t = t0;
    size_t at = 0;
    while (at < x.size()) {
        const size_t n = std::min(x.size() - at, size_t(1 + g() % 97));
        buf.insert(buf.end(), x.begin() + long(at), x.begin() + long(at + n));
        at += n;
        vector<T> y(buf.size() * 8 + 16);
        int outLen = 0;
        EXPECT_EQ(call(buf.data(), int(buf.size()), y.data(), &t, &outLen), zamStatusOk);
        out.insert(out.end(), y.begin(), y.begin() + outLen);
        if (int(buf.size()) > keep) {
            const int drop = int(buf.size()) - keep;
            buf.erase(buf.begin(), buf.begin() + drop);
            t -= drop;
        }
    }
    return out;
}

TYPED_TEST(Resample, FixedStreamingEqualsOneCall) {
    using A = Api<TypeParam>;
    for (const Rates& r : {kRates[0], kRates[1], kRates[5], kRates[6]}) {
        typename A::F* s = nullptr;
        int size, rowLen, height;
        ASSERT_EQ(A::fsize(r.in, r.out, r.len, &size, &rowLen, &height, zamAlgHintNone), zamStatusOk);
        ASSERT_EQ(A::falloc(&s, r.in, r.out, r.len, 0.95f, 9.0f, zamAlgHintNone), zamStatusOk);
        const auto x = A::data(2000, 21);
        auto call = [&](const TypeParam* p, int n, TypeParam* d, double* t, int* o) {
            return A::frun(p, n, d, 1.0f, t, o, s);
        };
        const auto whole = stream(x, 1 << 30, rowLen - 1, 0, call);  // one call: nothing dropped
        const auto pieces = stream(x, rowLen - 1, rowLen - 1, 5, call);
        EXPECT_GT(whole.size(), size_t(0));
        EXPECT_TRUE(whole == pieces) << r.in << " -> " << r.out;
        EXPECT_EQ(A::ffree(s), zamStatusOk);
    }
}

// ---- arbitrary ratio

// The windowed sinc of the header, in long double, stretched by s.
long double proto(long double u, double window, double rollf, double alpha) {
    if (std::fabs(u) >= window) return 0;
    auto i0 = [](long double x) {  // the power series of I0
        long double term = 1, sum = 1;
        for (int k = 1; k < 200; ++k) {
            term *= (x / (2 * k)) * (x / (2 * k));
            sum += term;
        }
        return sum;
    };
    const long double r = u / window, a = rollf * u;
    const long double sinc = a == 0 ? 1.0L : std::sin(kPi * a) / (kPi * a);
    return rollf * sinc * i0(alpha * std::sqrt(1 - r * r)) / i0(alpha);
}

struct Poly {
    float window;
    int nStep;
    double factor;
};
constexpr Poly kPoly[] = {{8, 1024, 48000.0 / 44100}, {6.5f, 1024, 2.5}, {4, 1024, 1.0}, {8, 1024, 0.5}, {5, 1024, 0.3},
                          {16, 1024, 7.0}};

TYPED_TEST(Resample, ArbitraryMatchesWindowedSinc) {
    using T = TypeParam;
    using A = Api<T>;
    const float rollf = 0.9f, alpha = 7.0f;
    for (const Poly& c : kPoly) {
        SCOPED_TRACE(::testing::Message() << "window " << c.window << ", factor " << c.factor);
        int size;
        ASSERT_EQ(A::size(c.window, c.nStep, &size, zamAlgHintNone), zamStatusOk);
        vector<uint8_t> mem(size_t(size) + 1);
        auto* s = reinterpret_cast<typename A::P*>(mem.data() + 1);
        ASSERT_EQ(A::init(c.window, c.nStep, rollf, alpha, s, zamAlgHintNone), zamStatusOk);
        const double sc = std::min(1.0, c.factor);
        const int H = int(std::ceil(c.window / sc));
        const int len = 200;
        const auto x = A::data(len, 31);
        const double t0 = H - 1 + 0.3;
        const size_t room = size_t(std::ceil((len - H - t0) * c.factor)) + 1;
        vector<T> first;
        for (size_t off : {size_t(0), size_t(4)}) {
            zt::Guarded<T> src(len, off), dst(room, off);
            src.copy_from(x.data());
            double t = t0;
            int outLen = -1;
            ASSERT_EQ(A::run(src.data(), len, dst.data(), c.factor, 0.5f, &t, &outLen, s), zamStatusOk);
            EXPECT_TRUE(dst.guards_intact());
            ASSERT_GT(outLen, 0);
            EXPECT_LE(size_t(outLen), room);
            // Every time with floor(t) + H <= len - 1, and the next one returned.
            EXPECT_LE(std::floor(t0 + (outLen - 1) / c.factor) + H, len - 1);
            EXPECT_GT(std::floor(t) + H, len - 1);
            EXPECT_NEAR(t, t0 + outLen / c.factor, (outLen + 2) * 0x1p-33);  // the 2^-32 grid
            double worst = 0;
            for (int k = 0; k < outLen; ++k) {
                const long double tk = t0 + (long double)k / c.factor;
                long double y = 0;
                for (int m = 0; m < len; ++m) y += x[size_t(m)] * sc * proto(sc * (tk - m), c.window, rollf, alpha);
                worst = std::max(worst, double(std::fabs(dst[size_t(k)] - A::out(0.5L * y))) / A::kScale);
            }
            // A fractional window's edge step, spread over one table step, on two taps.
            const double edge = c.window == std::floor(c.window) ? 0 : 2 * std::fabs(double(proto(c.window - 1e-6, c.window, rollf, alpha)));
            EXPECT_LE(worst, ((std::is_same_v<T, Zam16s>) ? 1.5 / 32768 : 2e-5) + 0.5 * edge);
            vector<T> got(dst.data(), dst.data() + outLen);
            if (off == 0) first = got;
            else EXPECT_TRUE(got == first) << "bits depend on the buffers' addresses";
        }
        EXPECT_EQ(A::free(s), zamStatusOk);
        EXPECT_EQ(A::free(s), zamStatusContextMismatch);  // caller memory invalidated by Free
    }
}

TYPED_TEST(Resample, ArbitraryStreamingEqualsOneCall) {
    using A = Api<TypeParam>;
    // Rows of 24 taps (a tail past the groups of eight) and of 64 (a
    // length the kernel unrolls); pieces pair outputs on a row otherwise
    // than one call does.
    for (auto [factor, window] : {std::pair{48000.0 / 44100, 12.0f}, {48000.0 / 44100, 32.0f}, {0.7, 12.0f},
                                  {3.0, 12.0f}}) {
        typename A::P* s = nullptr;
        ASSERT_EQ(A::alloc(&s, window, 256, 0.9f, 8.0f, zamAlgHintNone), zamStatusOk);
        const int H = int(std::ceil(window / std::min(1.0, factor)));
        const auto x = A::data(3000, 41);
        auto call = [&](const TypeParam* p, int n, TypeParam* d, double* t, int* o) {
            return A::run(p, n, d, factor, 1.0f, t, o, s);
        };
        const auto whole = stream(x, 1 << 30, H, 0, call);
        const auto pieces = stream(x, 2 * H, H, 9, call);
        EXPECT_GT(whole.size(), size_t(2000));
        EXPECT_TRUE(whole == pieces) << factor;
        EXPECT_EQ(A::free(s), zamStatusOk);
    }
}

// 44.1 kHz -> 48 kHz: the SNR of resampled sines against the exact sines
// and the pass band's ripple, printed and bounded loosely as a guard
// against regressions (the filter's quality is the caller's choice).
TEST(ResampleQuality, Sine44100To48000) {
    ZamsResamplingPolyphaseSpec_32f* s = nullptr;
    const float window = 48, rollf = 0.98f, alpha = 10.0f;
    ASSERT_EQ(zamsResamplePolyphaseInitAlloc_32f(&s, window, 512, rollf, alpha, zamAlgHintNone), zamStatusOk);
    const double factor = 48000.0 / 44100, H = window;
    const int len = 20000;
    double worstSnr = 1e9, gmin = 1e9, gmax = 0;
    for (double f : {997.0, 5000.0, 12345.0, 18000.0, 20000.0}) {  // f up to 0.907 of the input Nyquist rate
        vector<Zam32f> x(len);
        for (int n = 0; n < len; ++n) x[size_t(n)] = Zam32f(0.5 * std::sin(2 * double(kPi) * f * n / 44100));
        vector<Zam32f> y(size_t(len * factor) + 8);
        double t = H;
        int outLen = 0;
        ASSERT_EQ(zamsResamplePolyphase_32f(x.data(), len, y.data(), factor, 1.0f, &t, &outLen, s), zamStatusOk);
        // Least-squares fit of a sin + b cos at the output times; the rest is noise.
        long double ss = 0, cc = 0, sc = 0, ys = 0, yc = 0;
        for (int k = 0; k < outLen; ++k) {
            const long double w = 2 * kPi * f * (H + k / factor) / 44100, sv = std::sin(w), cv = std::cos(w);
            ss += sv * sv, cc += cv * cv, sc += sv * cv, ys += y[size_t(k)] * sv, yc += y[size_t(k)] * cv;
        }
        const long double det = ss * cc - sc * sc, a = (ys * cc - yc * sc) / det, b = (yc * ss - ys * sc) / det;
        long double sig = 0, err = 0;
        for (int k = 0; k < outLen; ++k) {
            const long double w = 2 * kPi * f * (H + k / factor) / 44100;
            const long double m = a * std::sin(w) + b * std::cos(w);
            sig += m * m, err += (y[size_t(k)] - m) * (y[size_t(k)] - m);
        }
        const double snr = double(10 * std::log10(sig / err)), gain = double(std::sqrt(a * a + b * b) / 0.5L);
        std::printf("  %7.0f Hz: SNR %.1f dB, gain %+.5f dB\n", f, snr, 20 * std::log10(gain));
        worstSnr = std::min(worstSnr, snr), gmin = std::min(gmin, gain), gmax = std::max(gmax, gain);
    }
    std::printf("  worst SNR %.1f dB, pass-band ripple %.5f dB\n", worstSnr, 20 * std::log10(gmax / gmin));
    EXPECT_GT(worstSnr, 90.0);
    EXPECT_LT(20 * std::log10(gmax / gmin), 0.01);
    EXPECT_EQ(zamsResamplePolyphaseFree_32f(s), zamStatusOk);
}

// ---- statuses: checks in order, nothing written on an error

TEST(ResampleStatus, EveryPath) {
    ZamsResamplingPolyphaseSpec_32f* p = nullptr;
    ZamsResamplingPolyphaseFixedSpec_32f* f = nullptr;
    int size = -1, rl = -1, ht = -1;
    // sizes and builds
    for (float w : {0.0f, -1.0f, NAN, 5000.0f})
        EXPECT_EQ(zamsResamplePolyphaseGetSize_32f(w, 64, &size, zamAlgHintNone), zamStatusBadArgument) << w;
    for (int n : {0, -1, 65537}) EXPECT_EQ(zamsResamplePolyphaseGetSize_32f(8, n, &size, zamAlgHintNone), zamStatusBadArgument);
    EXPECT_EQ(size, -1);
    EXPECT_EQ(zamsResamplePolyphaseGetSize_32f(4096, 65536, &size, zamAlgHintNone), zamStatusNoMemory);
    for (float r : {0.0f, 1.01f, NAN})
        EXPECT_EQ(zamsResamplePolyphaseInitAlloc_32f(&p, 8, 64, r, 8, zamAlgHintNone), zamStatusBadArgument);
    for (float a : {-0.1f, 701.0f, INFINITY})
        EXPECT_EQ(zamsResamplePolyphaseInitAlloc_32f(&p, 8, 64, 0.9f, a, zamAlgHintNone), zamStatusBadArgument);
    EXPECT_EQ(p, nullptr);
    for (int r : {0, -3, 65537}) {
        EXPECT_EQ(zamsResamplePolyphaseFixedGetSize_32f(r, 3, 10, &size, &rl, &ht, zamAlgHintNone), zamStatusBadArgument);
        EXPECT_EQ(zamsResamplePolyphaseFixedInitAlloc_32f(&f, 3, r, 10, 0.9f, 8, zamAlgHintNone), zamStatusBadArgument);
    }
    EXPECT_EQ(zamsResamplePolyphaseFixedInitAlloc_32f(&f, 3, 2, 10, 0.0f, 8, zamAlgHintNone), zamStatusBadArgument);
    EXPECT_EQ(zamsResamplePolyphaseFixedGetSize_32f(1, 65536, INT32_MAX, &size, &rl, &ht, zamAlgHintNone), zamStatusNoMemory);
    EXPECT_EQ(f, nullptr);
    EXPECT_EQ(rl, -1);

    ASSERT_EQ(zamsResamplePolyphaseInitAlloc_32f(&p, 4, 64, 0.9f, 8, zamAlgHintNone), zamStatusOk);
    ASSERT_EQ(zamsResamplePolyphaseFixedInitAlloc_32f(&f, 2, 3, 12, 0.9f, 8, zamAlgHintNone), zamStatusOk);
    vector<Zam32f> x(64, 0.5f), y(256, 7.0f), rows(64, 1.0f);
    double t = 3;
    int n = -5;
    auto untouched = [&] { return t == 3 && n == -5 && std::all_of(y.begin(), y.end(), [](float v) { return v == 7.0f; }); };
    // filtering: the length and the identifier before the values
    EXPECT_EQ(zamsResamplePolyphase_32f(x.data(), 0, y.data(), NAN, 1, &t, &n, p), zamStatusBadLength);
    for (double fac : {0.0, -1.0, 1.0 / 65, 64.5, double(NAN), double(INFINITY)})
        EXPECT_EQ(zamsResamplePolyphase_32f(x.data(), 64, y.data(), fac, 1, &t, &n, p), zamStatusBadArgument) << fac;
    for (double t0 : {2.5, -1.0, double(NAN), 1e12}) {  // history of 4 needs t >= 3
        double tt = t0;
        EXPECT_EQ(zamsResamplePolyphase_32f(x.data(), 64, y.data(), 1.5, 1, &tt, &n, p), zamStatusBadArgument) << t0;
    }
    double early = 2.6;  // rows of 4 taps: n >= 3 (2.6 rounds to 8/3, below 3)
    EXPECT_EQ(zamsResamplePolyphaseFixed_32f(x.data(), 64, y.data(), 1, &early, &n, f), zamStatusBadArgument);
    EXPECT_EQ(early, 2.6);
    // the rows' layout
    EXPECT_EQ(zamsResamplePolyphaseGetFixedFilter_32f(y.data(), 3, 3, f), zamStatusBadArgument);
    EXPECT_EQ(zamsResamplePolyphaseGetFixedFilter_32f(y.data(), 4, 2, f), zamStatusBadArgument);
    EXPECT_EQ(zamsResamplePolyphaseGetFixedFilter_32f(y.data(), INT32_MAX, 3, f), zamStatusBadArgument);  // span past int
    EXPECT_EQ(zamsResamplePolyphaseSetFixedFilter_32f(rows.data(), 4, 4, f), zamStatusBadArgument);
    EXPECT_TRUE(untouched());
    // a time past the block: no output, the time kept
    double late = 100;
    EXPECT_EQ(zamsResamplePolyphaseFixed_32f(x.data(), 64, y.data(), 1, &late, &n, f), zamStatusOk);
    EXPECT_EQ(n, 0);
    EXPECT_EQ(late, 100.0);
    EXPECT_EQ(zamsResamplePolyphaseFree_32f(p), zamStatusOk);
    EXPECT_EQ(zamsResamplePolyphaseFixedFree_32f(f), zamStatusOk);
}

// ---- cross-target bits

template <class T> void digest_kind(zt::Digest& d) {
    using A = Api<T>;
    typename A::P* p = nullptr;
    typename A::F* f = nullptr;
    d.status(A::alloc(&p, 10, 128, 0.92f, 9.0f, zamAlgHintNone));
    d.status(A::falloc(&f, 147, 160, 1600, 0.92f, 9.0f, zamAlgHintNone));
    const auto x = A::data(1500, 51);
    for (double factor : {48000.0 / 44100, 0.45}) {
        vector<T> y(4000);
        double t = 23.25;
        int n = 0;
        d.status(A::run(x.data(), 1500, y.data(), factor, 0.8f, &t, &n, p));
        d.add(y.data(), size_t(n));
        d.bytes(&t, sizeof t);
    }
    vector<T> y(4000);
    double t = 10;
    int n = 0;
    d.status(A::frun(x.data(), 1500, y.data(), 1.0f, &t, &n, f));
    d.add(y.data(), size_t(n));
    d.bytes(&t, sizeof t);
    A::free(p);
    A::ffree(f);
}
ZAMS_DIGEST(resample) {
    digest_kind<Zam32f>(d);
    digest_kind<Zam16s>(d);
}

}  // namespace
