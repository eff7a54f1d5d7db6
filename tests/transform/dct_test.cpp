// DCT: every length to 300 and the method boundaries against a long double
// model of the orthonormal sums, the exact sizes, the check orders and the
// limits, the 16-bit kinds against the float transform, address
// independence.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "digest.h"
#include "harness.h"
#include "life_cycle.h"
#include "zams.h"

namespace {

// The exported functions of a float kind.
#define DCT_KIND(F, Sfx, tolerance)                                                 \
    template <> struct K<F> {                                                       \
        using FS = ZamsDCTFwdSpec_##Sfx;                                            \
        using IS = ZamsDCTInvSpec_##Sfx;                                            \
        static constexpr auto fsize = zamsDCTFwdGetSize_##Sfx; \
        static constexpr auto isize = zamsDCTInvGetSize_##Sfx; \
        static constexpr auto finit = zamsDCTFwdInit_##Sfx; \
        static constexpr auto iinit = zamsDCTInvInit_##Sfx; \
        static constexpr auto falloc = zamsDCTFwdInitAlloc_##Sfx; \
        static constexpr auto ialloc = zamsDCTInvInitAlloc_##Sfx; \
        static constexpr auto fbuf = zamsDCTFwdGetBufSize_##Sfx; \
        static constexpr auto ibuf = zamsDCTInvGetBufSize_##Sfx; \
        static constexpr auto ffree = zamsDCTFwdFree_##Sfx; \
        static constexpr auto ifree = zamsDCTInvFree_##Sfx; \
        static constexpr auto fwd = zamsDCTFwd_##Sfx; \
        static constexpr auto inv = zamsDCTInv_##Sfx; \
        static constexpr auto fwdI = zamsDCTFwd_##Sfx##_I; \
        static constexpr auto invI = zamsDCTInv_##Sfx##_I; \
        static constexpr long double tol = tolerance;                               \
    };
template <class F> struct K;
DCT_KIND(float, 32f, 5e-7L)
DCT_KIND(double, 64f, 1e-15L)
#undef DCT_KIND

// The orthonormal DCT-II (or its transpose, the DCT-III) in long double,
// the cosines indexed by (2n+1) k mod 4N.
std::vector<long double> model(const std::vector<long double>& x, bool inv) {
    const size_t n = x.size();
    const long double pi = 3.141592653589793238462643383279502884L;
    std::vector<long double> c(4 * n), y(n, 0);
    for (size_t m = 0; m < 4 * n; ++m) c[m] = std::cos(2 * pi * (long double)m / (long double)(4 * n));
    const long double s0 = 1 / std::sqrt((long double)n), s1 = std::sqrt(2.0L / (long double)n);
    for (size_t k = 0; k < n; ++k)
        for (size_t j = 0; j < n; ++j) {
            const size_t kk = inv ? j : k, nn = inv ? k : j;  // coefficient kk, sample nn
            y[k] += x[j] * (kk ? s1 : s0) * c[(2 * nn + 1) * kk % (4 * n)];
        }
    return y;
}

template <class F> long double rel_rms(const std::vector<F>& y, const std::vector<long double>& r) {
    long double num = 0, den = 0;
    for (size_t i = 0; i < r.size(); ++i) {
        num += (y[i] - r[i]) * (y[i] - r[i]);
        den += r[i] * r[i];
    }
    return std::sqrt(num / den);
}

template <class F> struct Pair {
    typename K<F>::FS* f = nullptr;
    typename K<F>::IS* i = nullptr;
    explicit Pair(int n) {
        EXPECT_EQ(K<F>::falloc(&f, n, 0), zamStatusOk) << n;
        EXPECT_EQ(K<F>::ialloc(&i, n, 0), zamStatusOk) << n;
    }
    ~Pair() {
        EXPECT_EQ(K<F>::ffree(f), zamStatusOk);
        EXPECT_EQ(K<F>::ifree(i), zamStatusOk);
    }
};

std::vector<int> lengths() {
    std::vector<int> v;
    for (int n = 1; n <= 300; ++n) v.push_back(n);
    for (int k = 9; k <= 12; ++k)
        for (int d : {-1, 0, 1}) v.push_back((1 << k) + d);
    for (int n : {1000, 3000}) v.push_back(n);
    return v;
}

// Both directions against the model; in place, a caller's work buffer and
// none give the same bits; inverse after forward returns the input.
template <class F> void against_model() {
    for (int n : lengths()) {
        const size_t len = size_t(n);
        const auto x = zt::random_reals<F>(len, uint32_t(n));
        const std::vector<long double> xl(x.begin(), x.end());
        Pair<F> p(n);
        std::vector<F> y(len + 1, F(7)), z(len + 1, F(7)), w(len);
        ASSERT_EQ(K<F>::fwd(x.data(), y.data(), p.f, nullptr), zamStatusOk) << n;
        EXPECT_LE(rel_rms(y, model(xl, false)), K<F>::tol * std::max(1.0, std::log2(double(n)))) << n;
        EXPECT_EQ(y[len], F(7)) << n;
        ASSERT_EQ(K<F>::inv(x.data(), z.data(), p.i, nullptr), zamStatusOk) << n;
        EXPECT_LE(rel_rms(z, model(xl, true)), K<F>::tol * std::max(1.0, std::log2(double(n)))) << n;
        EXPECT_EQ(z[len], F(7)) << n;
        // round trip
        ASSERT_EQ(K<F>::inv(y.data(), z.data(), p.i, nullptr), zamStatusOk);
        EXPECT_LE(rel_rms(z, xl), 2 * K<F>::tol * std::max(1.0, std::log2(double(n)))) << n;
        // in place with a caller's buffer: the same bits
        int bs = 0;
        ASSERT_EQ(K<F>::fbuf(p.f, &bs), zamStatusOk);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        w = x;
        ASSERT_EQ(K<F>::fwdI(w.data(), p.f, bs ? buf.data() + 1 : nullptr), zamStatusOk);
        EXPECT_EQ(0, std::memcmp(w.data(), y.data(), len * sizeof(F))) << n;
        ASSERT_EQ(K<F>::invI(w.data(), p.i, nullptr), zamStatusOk);
        EXPECT_EQ(0, std::memcmp(w.data(), z.data(), len * sizeof(F))) << n;
    }
}
TEST(Dct, Float32AgainstTheModel) { against_model<float>(); }
TEST(Dct, Float64AgainstTheModel) { against_model<double>(); }

// The sizes of the dedicated and direct methods; the inverse's query and
// the built spec's work size agree with the forward query at every length.
template <class F> void sizes() {
    const int esz = int(sizeof(F));
    for (int n = 1; n <= 300; ++n) {
        int a, b, c, a2, b2, c2;
        ASSERT_EQ(K<F>::fsize(n, 0, &a, &b, &c), zamStatusOk) << n;
        ASSERT_EQ(K<F>::isize(n, 5, &a2, &b2, &c2), zamStatusOk) << n;
        EXPECT_TRUE(a == a2 && b == b2 && c == c2) << n;
        if (n == 1 || n == 2 || n == 4 || n == 8) {
            EXPECT_TRUE(a == 128 + esz && b == 0 && c == 0) << n;
        } else if (n <= 35 && (n & (n - 1))) {
            EXPECT_TRUE(a == 16 * esz / 4 * n + 192 && b == 0 && c == esz * n + 64) << n << " " << a << " " << c;
        }
        // both directions built in caller memory of these sizes equal InitAlloc's, and report c
        const auto x = zt::random_reals<F>(size_t(n), 5);
        auto use = [&](auto fwd, auto buf) {
            return [&x, c, fwd, buf](const auto* s) {
                int w = -1;
                EXPECT_EQ(buf(s, &w), zamStatusOk);
                EXPECT_EQ(w, c);
                std::vector<F> y(x.size());
                EXPECT_EQ(fwd(x.data(), y.data(), s, nullptr), zamStatusOk);
                return zt::bytes_of(y);
            };
        };
        SCOPED_TRACE(n);
        zt::caller_memory_equals_alloc(
            a, b, [&](auto** s, Zam8u* m, Zam8u* t) { return K<F>::finit(s, n, 0, m, t); },
            [&](auto** s) { return K<F>::falloc(s, n, 0); }, K<F>::ffree, use(K<F>::fwd, K<F>::fbuf));
        zt::caller_memory_equals_alloc(
            a, b, [&](auto** s, Zam8u* m, Zam8u* t) { return K<F>::iinit(s, n, 0, m, t); },
            [&](auto** s) { return K<F>::ialloc(s, n, 0); }, K<F>::ifree, use(K<F>::inv, K<F>::ibuf));
    }
}
TEST(Dct, SizesOfTheMethods) {
    sizes<float>();
    sizes<double>();
    int a, b, c;
    ASSERT_EQ(zamsDCTFwdGetSize_32f(3, 0, &a, &b, &c), zamStatusOk);
    EXPECT_TRUE(a == 240 && b == 0 && c == 76);
    ASSERT_EQ(zamsDCTFwdGetSize_16s(1, 0, &a, &b, &c), zamStatusOk);
    EXPECT_TRUE(a == 88 && b == 0 && c == 0);
    for (int n : {2, 3, 16, 36, 1000}) {
        int f, g, h;
        ASSERT_EQ(zamsDCTFwdGetSize_32f(n, 0, &f, &g, &h), zamStatusOk);
        ASSERT_EQ(zamsDCTInvGetSize_16s(n, 0, &a, &b, &c), zamStatusOk);
        EXPECT_TRUE(a == f + 88 && b == g && c == h + 4 * n + 64) << n;
    }
}

// Check orders and the length limits of each method.
TEST(Dct, ChecksAndLimits) {
    int a, b, c;
    ZamsDCTFwdSpec_32f* f = nullptr;
    ZamsDCTFwdSpec_16s* s16 = nullptr;
    Zam8u mem[512];
    // the size query and the float Init check the length first, the 16-bit Init the pointer
    EXPECT_EQ(zamsDCTFwdGetSize_32f(0, 0, nullptr, &b, &c), zamStatusBadLength);
    EXPECT_EQ(zamsDCTFwdInit_32f(nullptr, 0, 0, mem, nullptr), zamStatusBadLength);
    EXPECT_EQ(zamsDCTFwdInit_32f(&f, 3, 0, nullptr, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsDCTFwdInit_16s(nullptr, 0, 0, mem, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsDCTFwdInit_16s(&s16, 0, 0, nullptr, nullptr), zamStatusBadLength);
    // limits: powers of two to 2^28 - 1, others to 2^25 - 1 (sizing), 2^26 - 1 (Init)
    EXPECT_EQ(zamsDCTFwdGetSize_32f(1 << 28, 0, &a, &b, &c), zamStatusBadLength);
    EXPECT_EQ(zamsDCTFwdGetSize_32f((1 << 25) + 1, 0, &a, &b, &c), zamStatusBadLength);
    EXPECT_EQ(zamsDCTFwdGetSize_32f((1 << 25) - 1, 0, &a, &b, &c), zamStatusBadLength);  // the DFT's own limit
    EXPECT_EQ(zamsDCTFwdGetSize_16s(1 << 29, 0, &a, &b, &c), zamStatusBadLength);
    std::memset(mem, 0x5A, sizeof mem);
    EXPECT_EQ(zamsDCTFwdInit_32f(&f, (1 << 26) + 1, 0, mem, nullptr), zamStatusBadLength);
    EXPECT_EQ(zamsDCTFwdInit_32f(&f, 1 << 29, 0, mem, nullptr), zamStatusBadLength);
    for (Zam8u v : mem) ASSERT_EQ(v, 0x5A);  // refused before the memory is touched
    // a build that needs a build block and gets none
    std::vector<Zam8u> big(1 << 16);
    EXPECT_EQ(zamsDCTFwdInit_32f(&f, 4096, 0, big.data(), nullptr), zamStatusNullPointer);
}

// The first coefficient's factor is the FFT's flag-4 one: a 12-bit estimate
// of 1/sqrt(N) and one Newton step in single precision.
TEST(Dct, FirstFactorIsTheRefinedEstimate) {
    int differ = 0;
    for (int n : {3, 5, 6, 7, 9, 10, 11, 12, 13, 32, 36, 37, 100, 128}) {
        Pair<float> p(n);
        std::vector<float> x(static_cast<size_t>(n), 0.0f), y(static_cast<size_t>(n));
        x[0] = 1.0f;  // the sum of the DC row is exactly 1
        ASSERT_EQ(zamsDCTFwd_32f(x.data(), y.data(), p.f, nullptr), zamStatusOk);
        const double r = 1.0 / std::sqrt(double(n));
        int e = 0;
        const double m = std::frexp(r, &e);  // r = m 2^e, m in [1/2, 1)
        const float est = float(std::ldexp(std::floor(std::ldexp(m, 12)), e - 12));
        const float want = (est * -0.5f) * ((float(n) * est) * est - 3.0f);
        EXPECT_EQ(y[0], want) << n;
        differ += want != float(r);
    }
    EXPECT_GT(differ, 0);  // the correctly rounded factor would fail some of the lengths above
}

// The 16-bit kinds: the float transform of the converted samples, times
// 2^-scaleFactor, rounded to nearest even and saturated; in place alike.
TEST(Dct, Int16IsTheFloatTransformScaled) {
    for (int n : {1, 2, 5, 8, 16, 35, 36, 64, 100}) {
        const size_t len = size_t(n);
        std::vector<Zam16s> x(len), y(len), z(len);
        std::vector<float> xf(len), yf(len);
        for (size_t i = 0; i < len; ++i) xf[i] = x[i] = Zam16s(int(i * 389 % 6001) - 3000);
        Pair<float> p(n);
        ZamsDCTFwdSpec_16s* f = nullptr;
        ZamsDCTInvSpec_16s* iv = nullptr;
        ASSERT_EQ(zamsDCTFwdInitAlloc_16s(&f, n, 0), zamStatusOk);
        ASSERT_EQ(zamsDCTInvInitAlloc_16s(&iv, n, 0), zamStatusOk);
        for (bool inv : {false, true}) {
            ASSERT_EQ(inv ? zamsDCTInv_32f(xf.data(), yf.data(), p.i, nullptr)
                          : zamsDCTFwd_32f(xf.data(), yf.data(), p.f, nullptr),
                      zamStatusOk);
            for (int sf : {-3, 0, 2}) {
                ASSERT_EQ(inv ? zamsDCTInv_16s_Sfs(x.data(), y.data(), iv, sf, nullptr)
                              : zamsDCTFwd_16s_Sfs(x.data(), y.data(), f, sf, nullptr),
                          zamStatusOk);
                for (size_t i = 0; i < len; ++i) {
                    const double v = std::nearbyint(std::ldexp(double(yf[i]), -sf));
                    ASSERT_EQ(y[i], Zam16s(std::fmax(-32768.0, std::fmin(32767.0, v)))) << n << " sf " << sf;
                }
                z = x;
                ASSERT_EQ(inv ? zamsDCTInv_16s_ISfs(z.data(), iv, sf, nullptr)
                              : zamsDCTFwd_16s_ISfs(z.data(), f, sf, nullptr),
                          zamStatusOk);
                EXPECT_EQ(z, y) << n;
            }
        }
        int bs = -1;
        ASSERT_EQ(zamsDCTFwdGetBufSize_16s(f, &bs), zamStatusOk);
        int a, b, c;
        ASSERT_EQ(zamsDCTFwdGetSize_16s(n, 0, &a, &b, &c), zamStatusOk);
        EXPECT_EQ(bs, c) << n;
        ASSERT_EQ(zamsDCTInvGetBufSize_16s(iv, &bs), zamStatusOk);
        EXPECT_EQ(bs, c) << n;
        EXPECT_EQ(zamsDCTFwdFree_16s(f), zamStatusOk);
        EXPECT_EQ(zamsDCTInvFree_16s(iv), zamStatusOk);
    }
    // built in caller memory
    int a, b, c;
    ASSERT_EQ(zamsDCTFwdGetSize_16s(4096, 0, &a, &b, &c), zamStatusOk);
    std::vector<Zam8u> mem(size_t(a) + 3), tmp(size_t(b) + 3);
    ZamsDCTFwdSpec_16s* f = nullptr;
    ASSERT_EQ(zamsDCTFwdInit_16s(&f, 4096, 0, mem.data() + 3, tmp.data() + 3), zamStatusOk);
    std::vector<Zam16s> x(4096, 100), y(4096);
    ASSERT_EQ(zamsDCTFwd_16s_Sfs(x.data(), y.data(), f, 0, nullptr), zamStatusOk);
    EXPECT_EQ(y[0], 6400);  // 100 * 4096 / sqrt(4096)
    EXPECT_EQ(y[1], 0);
    EXPECT_EQ(zamsDCTFwdFree_16s(f), zamStatusOk);
    ZamsDCTInvSpec_16s* iv = nullptr;
    ASSERT_EQ(zamsDCTInvInit_16s(&iv, 4096, 0, mem.data() + 3, tmp.data() + 3), zamStatusOk);
    ASSERT_EQ(zamsDCTInv_16s_Sfs(y.data(), x.data(), iv, 0, nullptr), zamStatusOk);
    for (Zam16s v : x) ASSERT_EQ(v, 100);  // back to the constant
    EXPECT_EQ(zamsDCTInvFree_16s(iv), zamStatusOk);
}

// The same bits whatever the addresses of the caller's vectors.
TEST(Dct, ResultsDoNotDependOnAddresses) {
    for (int n : {7, 35, 64, 100, 1024}) {
        Pair<float> p(n);
        const auto x = zt::random_reals<float>(size_t(n), 9);
        std::vector<float> a(size_t(n) + 16), b(size_t(n) + 16);
        for (int inv = 0; inv < 2; ++inv) {
            std::copy(x.begin(), x.end(), a.begin() + 1);
            std::copy(x.begin(), x.end(), b.begin() + 6);
            if (inv) {
                ASSERT_EQ(zamsDCTInv_32f_I(a.data() + 1, p.i, nullptr), zamStatusOk);
                ASSERT_EQ(zamsDCTInv_32f_I(b.data() + 6, p.i, nullptr), zamStatusOk);
            } else {
                ASSERT_EQ(zamsDCTFwd_32f_I(a.data() + 1, p.f, nullptr), zamStatusOk);
                ASSERT_EQ(zamsDCTFwd_32f_I(b.data() + 6, p.f, nullptr), zamStatusOk);
            }
            EXPECT_EQ(0, std::memcmp(a.data() + 1, b.data() + 6, size_t(n) * 4)) << n;
        }
    }
}

ZAMS_DIGEST(dct) {
    for (int n : {2, 8, 15, 16, 36, 100, 512, 1000}) {
        const auto x = zt::random_reals<float>(size_t(n), uint32_t(n));
        const auto xd = zt::random_reals<double>(size_t(n), uint32_t(n));
        std::vector<float> y(static_cast<size_t>(n));
        std::vector<double> yd(static_cast<size_t>(n));
        {
            Pair<float> p(n);
            d.status(zamsDCTFwd_32f(x.data(), y.data(), p.f, nullptr));
            d.add(y);
            d.status(zamsDCTInv_32f(x.data(), y.data(), p.i, nullptr));
            d.add(y);
        }
        {
            Pair<double> p(n);
            d.status(zamsDCTFwd_64f(xd.data(), yd.data(), p.f, nullptr));
            d.add(yd);
            d.status(zamsDCTInv_64f(xd.data(), yd.data(), p.i, nullptr));
            d.add(yd);
        }
        std::vector<Zam16s> xs = zt::random_ints<Zam16s>(size_t(n), uint32_t(n)), ys(static_cast<size_t>(n));
        ZamsDCTFwdSpec_16s* f = nullptr;
        ZamsDCTInvSpec_16s* iv = nullptr;
        d.status(zamsDCTFwdInitAlloc_16s(&f, n, 0));
        d.status(zamsDCTInvInitAlloc_16s(&iv, n, 0));
        d.status(zamsDCTFwd_16s_Sfs(xs.data(), ys.data(), f, 3, nullptr));
        d.add(ys);
        d.status(zamsDCTInv_16s_Sfs(xs.data(), ys.data(), iv, 3, nullptr));
        d.add(ys);
        zamsDCTFwdFree_16s(f);
        zamsDCTInvFree_16s(iv);
    }
}

}  // namespace
