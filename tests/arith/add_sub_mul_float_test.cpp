// Floating-point and complex arithmetic against the plain formulas, bit for bit.
#include <cstring>

#include "digest.h"
#include "sweep.h"
#include "../../src/arith/stream_store.h"

namespace {

// The rules, written out element by element.
template <class T> T m_add(T a, T b) { return a + b; }
template <class T> T m_sub(T a, T b) { return a - b; }
template <class T> T m_mul(T a, T b) { return a * b; }
Zam32fc m_add(Zam32fc a, Zam32fc b) { return {a.re + b.re, a.im + b.im}; }
Zam64fc m_add(Zam64fc a, Zam64fc b) { return {a.re + b.re, a.im + b.im}; }
Zam32fc m_sub(Zam32fc a, Zam32fc b) { return {a.re - b.re, a.im - b.im}; }
Zam64fc m_sub(Zam64fc a, Zam64fc b) { return {a.re - b.re, a.im - b.im}; }
template <class C> C cmul(C a, C b) {
    auto ac = a.re * b.re, bd = a.im * b.im, ad = a.re * b.im, bc = a.im * b.re;
    return {ac - bd, ad + bc};
}
Zam32fc m_mul(Zam32fc a, Zam32fc b) { return cmul(a, b); }
Zam64fc m_mul(Zam64fc a, Zam64fc b) { return cmul(a, b); }

template <class T> std::vector<T> pool(uint32_t seed, size_t n = 300) {
    if constexpr (std::is_floating_point_v<T>) {
        return zt::random_reals<T>(n, seed);
    } else {
        using S = decltype(T{}.re);
        auto r = zt::random_reals<S>(2 * n, seed);
        std::vector<T> v(n);
        std::memcpy(v.data(), r.data(), n * sizeof(T));
        return v;
    }
}

// The functions of one type, as pointers.
template <class T> struct Fns {
    using Bin = zamStatus (*)(const T*, const T*, T*, int);
    using BinI = zamStatus (*)(const T*, T*, int);
    using Con = zamStatus (*)(const T*, T, T*, int);
    using ConI = zamStatus (*)(T, T*, int);
    Bin add, sub, mul, addprod;
    BinI add_i, sub_i, mul_i;
    Con addc, subc, subcrev, mulc, addprodc;
    ConI addc_i, subc_i, subcrev_i, mulc_i;
};
#define FNS(t)                                                                                          \
    Fns<Zam##t> {                                                                                      \
        zamsAdd_##t, zamsSub_##t, zamsMul_##t, zamsAddProduct_##t, zamsAdd_##t##_I, zamsSub_##t##_I,    \
            zamsMul_##t##_I, zamsAddC_##t, zamsSubC_##t, zamsSubCRev_##t, zamsMulC_##t,                 \
            zamsAddProductC_##t, zamsAddC_##t##_I, zamsSubC_##t##_I, zamsSubCRev_##t##_I, zamsMulC_##t##_I \
    }
template <class T> Fns<T> fns();
template <> Fns<Zam32f> fns() { return FNS(32f); }
template <> Fns<Zam64f> fns() { return FNS(64f); }
template <> Fns<Zam32fc> fns() { return FNS(32fc); }
template <> Fns<Zam64fc> fns() { return FNS(64fc); }

template <class T> class FloatArith : public ::testing::Test {};
using Types = ::testing::Types<Zam32f, Zam64f, Zam32fc, Zam64fc>;
TYPED_TEST_SUITE(FloatArith, Types);

// An in-place form seen as a two-source one: pSrcDst starts as the second source.
template <class T, class F, class A = T> auto as_binary(F f) {
    return [f](const A* a, const T* b, T* d, int n) {
        std::memmove(d, b, size_t(n) * sizeof(T));
        return f(a, d, n);
    };
}
template <class T, class F> auto as_unary(F f, T v) {
    return [f, v](const T* a, T* d, int n) {
        std::memmove(d, a, size_t(n) * sizeof(T));
        return f(v, d, n);
    };
}

TYPED_TEST(FloatArith, TwoVectorsEveryLengthAndAlignment) {
    using T = TypeParam;
    auto f = fns<T>();
    auto a = pool<T>(1), b = pool<T>(2);
    zt::SweepOptions o;
    o.max_len = 100;
    zt::sweep_binary<T, T, T>(f.add, [](T x, T y) { return m_add(x, y); }, a, b, o);
    zt::sweep_binary<T, T, T>(f.sub, [](T x, T y) { return m_sub(y, x); }, a, b, o);
    zt::sweep_binary<T, T, T>(f.mul, [](T x, T y) { return m_mul(x, y); }, a, b, o);
    o.len_step = 7;
    zt::sweep_binary<T, T, T>(as_binary<T>(f.add_i), [](T x, T y) { return m_add(x, y); }, a, b, o);
    zt::sweep_binary<T, T, T>(as_binary<T>(f.sub_i), [](T x, T y) { return m_sub(y, x); }, a, b, o);
    zt::sweep_binary<T, T, T>(as_binary<T>(f.mul_i), [](T x, T y) { return m_mul(x, y); }, a, b, o);
}

TYPED_TEST(FloatArith, ConstantFormsEveryLengthAndAlignment) {
    using T = TypeParam;
    auto f = fns<T>();
    auto a = pool<T>(3);
    const T v = pool<T>(4, 1)[0];
    zt::SweepOptions o;
    o.max_len = 100;
    auto con = [&](auto fn) { return [fn, v](const T* s, T* d, int n) { return fn(s, v, d, n); }; };
    zt::sweep_unary<T, T>(con(f.addc), [&](T x) { return m_add(x, v); }, a, o);
    zt::sweep_unary<T, T>(con(f.subc), [&](T x) { return m_sub(x, v); }, a, o);
    zt::sweep_unary<T, T>(con(f.subcrev), [&](T x) { return m_sub(v, x); }, a, o);
    zt::sweep_unary<T, T>(con(f.mulc), [&](T x) { return m_mul(x, v); }, a, o);
    o.len_step = 7;
    zt::sweep_unary<T, T>(as_unary(f.addc_i, v), [&](T x) { return m_add(x, v); }, a, o);
    zt::sweep_unary<T, T>(as_unary(f.subc_i, v), [&](T x) { return m_sub(x, v); }, a, o);
    zt::sweep_unary<T, T>(as_unary(f.subcrev_i, v), [&](T x) { return m_sub(v, x); }, a, o);
    zt::sweep_unary<T, T>(as_unary(f.mulc_i, v), [&](T x) { return m_mul(x, v); }, a, o);
}

// The accumulator is also a source: pSrcDst holds c, the sources a and b.
TYPED_TEST(FloatArith, AddProductAccumulates) {
    using T = TypeParam;
    auto f = fns<T>();
    auto a = pool<T>(5), b = pool<T>(6), c = pool<T>(7);
    const T v = pool<T>(8, 1)[0];
    for (int len = 1; len <= 70; ++len) {
        for (size_t off : {0, 4, 8, 12, 20, 28}) {
            zt::Guarded<T> ga(len, (off * 3) % 64), gb(len, (off * 5 + 8) % 64), g1(len, off), g2(len, off);
            ga.copy_from(a.data());
            gb.copy_from(b.data());
            g1.copy_from(c.data());
            g2.copy_from(c.data());
            ASSERT_EQ(f.addprod(ga.data(), gb.data(), g1.data(), len), zamStatusOk);
            ASSERT_EQ(f.addprodc(ga.data(), v, g2.data(), len), zamStatusOk);
            for (int i = 0; i < len; ++i) {
                T w1 = m_add(c[i], m_mul(a[i], b[i])), w2 = m_add(c[i], m_mul(a[i], v));
                ASSERT_EQ(std::memcmp(&g1[i], &w1, sizeof(T)), 0) << len << " " << i;
                ASSERT_EQ(std::memcmp(&g2[i], &w2, sizeof(T)), 0) << len << " " << i;
            }
            ASSERT_TRUE(g1.guards_intact() && g2.guards_intact() && ga.guards_intact());
        }
    }
}

// Calls of 4 KiB and more start the body where the sources are aligned when
// they share a 32-byte phase, else where the destination is; shorter ones of
// mixed phase start at element 0. Every combination of phases, and a length
// that leaves a head and a tail.
TYPED_TEST(FloatArith, EveryPhaseOfSourcesAndDestination) {
    using T = TypeParam;
    auto f = fns<T>();
    constexpr size_t e = sizeof(T) < 8 ? sizeof(T) : 8;  // offsets keep the parts aligned
    for (int n : {int(4096 / sizeof(T)) + 13, 61}) {
        auto a = pool<T>(41, n), b = pool<T>(42, n), c = pool<T>(43, n);
        const T v = pool<T>(44, 1)[0];
        for (size_t oa : {size_t(0), e, size_t(16)}) {
            for (size_t ob : {size_t(0), e, size_t(16)}) {
                for (size_t od : {size_t(0), e, size_t(16)}) {
                    zt::Guarded<T> ga(n, oa), gb(n, ob), d(n, od), acc(n, od);
                    ga.copy_from(a.data());
                    gb.copy_from(b.data());
                    acc.copy_from(c.data());
                    for (int op = 0; op < 4; ++op) {
                        const zamStatus st = op == 0   ? f.add(ga.data(), gb.data(), d.data(), n)
                                             : op == 1 ? f.sub(ga.data(), gb.data(), d.data(), n)
                                             : op == 2 ? f.mul(ga.data(), gb.data(), d.data(), n)
                                                       : f.mulc(ga.data(), v, d.data(), n);
                        ASSERT_EQ(st, zamStatusOk);
                        for (int i = 0; i < n; ++i) {
                            const T w = op == 0   ? m_add(a[i], b[i])
                                        : op == 1 ? m_sub(b[i], a[i])
                                        : op == 2 ? m_mul(a[i], b[i])
                                                  : m_mul(a[i], v);
                            ASSERT_EQ(std::memcmp(&d[i], &w, sizeof(T)), 0)
                                << "op " << op << " n " << n << " offsets " << oa << " " << ob << " " << od << " at " << i;
                        }
                    }
                    ASSERT_EQ(f.addprod(ga.data(), gb.data(), acc.data(), n), zamStatusOk);
                    for (int i = 0; i < n; ++i) {
                        const T w = m_add(c[i], m_mul(a[i], b[i]));
                        ASSERT_EQ(std::memcmp(&acc[i], &w, sizeof(T)), 0) << "addprod at " << i;
                    }
                    ASSERT_TRUE(d.guards_intact() && acc.guards_intact());
                }
            }
        }
    }
}

// Destinations long enough for non-temporal stores, at a 32-byte boundary,
// one element off it, and off the element size (no streaming there); and
// the same length in place, which never streams. x86-64 only: the i386 run
// is emulated and slow.
TYPED_TEST(FloatArith, LongVectorsStreamTheDestination) {
    if (sizeof(void*) != 8) GTEST_SKIP() << "long vectors on x86-64 only";
    using T = TypeParam;
    auto f = fns<T>();
    const int n = int(zams::kStreamMinBytes / sizeof(T)) + 13;
    auto a = pool<T>(31, n), b = pool<T>(32, n);
    const T v = pool<T>(33, 1)[0];
    auto check = [&](const zt::Guarded<T>& d, auto model, const char* what) {
        for (int i = 0; i < n; ++i) {
            const T w = model(i);
            ASSERT_EQ(std::memcmp(&d.data()[i], &w, sizeof(T)), 0) << what << " element " << i;
        }
        ASSERT_TRUE(d.guards_intact()) << what;
    };
    for (size_t off : {size_t(0), sizeof(T), size_t(36)}) {
        zt::Guarded<T> d(n, off);
        ASSERT_EQ(f.add(a.data(), b.data(), d.data(), n), zamStatusOk);
        check(d, [&](int i) { return m_add(a[i], b[i]); }, "add");
        ASSERT_EQ(f.subcrev(a.data(), v, d.data(), n), zamStatusOk);
        check(d, [&](int i) { return m_sub(v, a[i]); }, "subcrev");
        ASSERT_EQ(f.mul(a.data(), b.data(), d.data(), n), zamStatusOk);
        check(d, [&](int i) { return m_mul(a[i], b[i]); }, "mul");
    }
    zt::Guarded<T> io(n, sizeof(T));
    io.copy_from(b.data());
    ASSERT_EQ(f.sub_i(a.data(), io.data(), n), zamStatusOk);
    check(io, [&](int i) { return m_sub(b[i], a[i]); }, "sub in place");
    if constexpr (std::is_same_v<T, Zam32fc>) {
        auto r = pool<Zam32f>(34, n);
        zt::Guarded<T> d(n, 0);
        ASSERT_EQ(zamsMul_32f32fc(r.data(), a.data(), d.data(), n), zamStatusOk);
        check(d, [&](int i) { return Zam32fc{r[i] * a[i].re, r[i] * a[i].im}; }, "real times complex");
    }
}

// Pointers first, then the length; nothing written on an error.
TYPED_TEST(FloatArith, ChecksPointersThenLength) {
    using T = TypeParam;
    auto f = fns<T>();
    T x[2] = {}, y[2] = {};
    std::memset(y, 0x5A, sizeof y);
    const T v{};
    for (auto fn : {f.add, f.sub, f.mul, f.addprod}) {
        EXPECT_EQ(fn(nullptr, x, y, 0), zamStatusNullPointer);
        EXPECT_EQ(fn(x, nullptr, y, 1), zamStatusNullPointer);
        EXPECT_EQ(fn(x, x, nullptr, 1), zamStatusNullPointer);
        EXPECT_EQ(fn(x, x, y, 0), zamStatusBadLength);
        EXPECT_EQ(fn(x, x, y, -1), zamStatusBadLength);
    }
    for (auto fn : {f.add_i, f.sub_i, f.mul_i}) {
        EXPECT_EQ(fn(nullptr, y, 0), zamStatusNullPointer);
        EXPECT_EQ(fn(x, nullptr, 1), zamStatusNullPointer);
        EXPECT_EQ(fn(x, y, 0), zamStatusBadLength);
    }
    for (auto fn : {f.addc, f.subc, f.subcrev, f.mulc, f.addprodc}) {
        EXPECT_EQ(fn(nullptr, v, y, 0), zamStatusNullPointer);
        EXPECT_EQ(fn(x, v, nullptr, 1), zamStatusNullPointer);
        EXPECT_EQ(fn(x, v, y, 0), zamStatusBadLength);
    }
    for (auto fn : {f.addc_i, f.subc_i, f.subcrev_i, f.mulc_i}) {
        EXPECT_EQ(fn(v, nullptr, 0), zamStatusNullPointer);
        EXPECT_EQ(fn(v, y, -5), zamStatusBadLength);
    }
    T fill;
    std::memset(&fill, 0x5A, sizeof fill);
    for (const T& e : y) EXPECT_EQ(std::memcmp(&e, &fill, sizeof(T)), 0);
}

TEST(FloatArith, SubIsSecondMinusFirst) {
    Zam32f a[1] = {1}, b[1] = {5}, d[1];
    ASSERT_EQ(zamsSub_32f(a, b, d, 1), zamStatusOk);
    EXPECT_EQ(d[0], 4.0f);
    ASSERT_EQ(zamsSubCRev_32f(a, 10.0f, d, 1), zamStatusOk);
    EXPECT_EQ(d[0], 9.0f);
    Zam64fc p[1] = {{1, 2}}, q[1] = {{3, 4}}, r[1];
    ASSERT_EQ(zamsMul_64fc(p, q, r, 1), zamStatusOk);  // (1+2i)(3+4i) = -5 + 10i
    EXPECT_EQ(r[0].re, -5.0);
    EXPECT_EQ(r[0].im, 10.0);
}

TEST(FloatArith, RealTimesComplex) {
    auto r32 = pool<Zam32f>(9);
    auto r64 = pool<Zam64f>(10);
    auto c32 = pool<Zam32fc>(11);
    auto c64 = pool<Zam64fc>(12);
    zt::SweepOptions o;
    o.max_len = 100;
    zt::sweep_binary<Zam32f, Zam32fc, Zam32fc>(
        zamsMul_32f32fc, [](Zam32f r, Zam32fc c) { return Zam32fc{r * c.re, r * c.im}; }, r32, c32, o);
    zt::sweep_binary<Zam64f, Zam64fc, Zam64fc>(
        zamsMul_64f64fc, [](Zam64f r, Zam64fc c) { return Zam64fc{r * c.re, r * c.im}; }, r64, c64, o);
    o.len_step = 9;
    zt::sweep_binary<Zam32f, Zam32fc, Zam32fc>(
        as_binary<Zam32fc, decltype(zamsMul_32f32fc_I)*, Zam32f>(zamsMul_32f32fc_I),
        [](Zam32f r, Zam32fc c) { return Zam32fc{r * c.re, r * c.im}; }, r32, c32, o);
    zt::sweep_binary<Zam64f, Zam64fc, Zam64fc>(
        as_binary<Zam64fc, decltype(zamsMul_64f64fc_I)*, Zam64f>(zamsMul_64f64fc_I),
        [](Zam64f r, Zam64fc c) { return Zam64fc{r * c.re, r * c.im}; }, r64, c64, o);
    Zam32f x[1] = {1};
    Zam32fc y[1] = {};
    EXPECT_EQ(zamsMul_32f32fc(x, nullptr, y, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsMul_64f64fc_I(nullptr, nullptr, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsMul_32f32fc_I(x, y, 0), zamStatusBadLength);
}

template <class T> void digest_type(zt::Digest& d, uint32_t seed) {
    auto f = fns<T>();
    const int n = 257;
    auto a = pool<T>(seed, n), b = pool<T>(seed + 1, n);
    const T v = pool<T>(seed + 2, 1)[0];
    std::vector<T> y(n);
    for (auto fn : {f.add, f.sub, f.mul}) {
        d.status(fn(a.data(), b.data(), y.data(), n));
        d.add(y);
    }
    for (auto fn : {f.addc, f.subc, f.subcrev, f.mulc}) {
        d.status(fn(a.data(), v, y.data(), n));
        d.add(y);
    }
    y = b;
    d.status(f.addprod(a.data(), b.data(), y.data(), n));
    d.status(f.addprodc(a.data(), v, y.data(), n));
    d.status(f.mul_i(a.data(), y.data(), n));
    d.status(f.subcrev_i(v, y.data(), n));
    d.add(y);
}

ZAMS_DIGEST(float_arith) {
    digest_type<Zam32f>(d, 21);
    digest_type<Zam64f>(d, 22);
    digest_type<Zam32fc>(d, 23);
    digest_type<Zam64fc>(d, 24);
    auto r = pool<Zam32f>(25, 99);
    auto c = pool<Zam32fc>(26, 99);
    d.status(zamsMul_32f32fc_I(r.data(), c.data(), 99));
    d.add(c);
}

}  // namespace
