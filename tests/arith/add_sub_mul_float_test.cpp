// Floating-point and complex arithmetic against the plain formulas, bit for bit.
#include <cstring>

#include "digest.h"
#include "scaled_model.h"
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

using st::in_place;

// Every export of the type over lengths and alignments: the two-vector forms
// on every length, the constant and in-place forms on every seventh.
TYPED_TEST(FloatArith, EveryFormLengthAndAlignment) {
    using T = TypeParam;
    auto f = fns<T>();
    auto a = pool<T>(1), b = pool<T>(2), c = pool<T>(3);
    const T v = pool<T>(4, 1)[0];
    auto add = [](T x, T y) { return m_add(x, y); };
    auto sub = [](T x, T y) { return m_sub(y, x); };
    auto mul = [](T x, T y) { return m_mul(x, y); };
    auto con = [v](auto fn) { return [fn, v](const T* s, T* d, int n) { return fn(s, v, d, n); }; };
    zt::SweepOptions o{.max_len = 100};
    zt::sweep_binary<T, T, T>(f.add, add, a, b, o);
    zt::sweep_binary<T, T, T>(f.sub, sub, a, b, o);
    zt::sweep_binary<T, T, T>(f.mul, mul, a, b, o);
    zt::sweep_unary<T, T>(con(f.addc), [&](T x) { return m_add(x, v); }, c, o);
    zt::sweep_unary<T, T>(con(f.subc), [&](T x) { return m_sub(x, v); }, c, o);
    zt::sweep_unary<T, T>(con(f.subcrev), [&](T x) { return m_sub(v, x); }, c, o);
    zt::sweep_unary<T, T>(con(f.mulc), [&](T x) { return m_mul(x, v); }, c, o);
    o = {.max_len = 100, .in_place = false, .len_step = 7};
    zt::sweep_binary<T, T, T>(in_place(f.add_i), add, a, b, o);
    zt::sweep_binary<T, T, T>(in_place(f.sub_i), sub, a, b, o);
    zt::sweep_binary<T, T, T>(in_place(f.mul_i), mul, a, b, o);
    zt::sweep_unary<T, T>(in_place(f.addc_i, v), [&](T x) { return m_add(x, v); }, c, o);
    zt::sweep_unary<T, T>(in_place(f.subc_i, v), [&](T x) { return m_sub(x, v); }, c, o);
    zt::sweep_unary<T, T>(in_place(f.subcrev_i, v), [&](T x) { return m_sub(v, x); }, c, o);
    zt::sweep_unary<T, T>(in_place(f.mulc_i, v), [&](T x) { return m_mul(x, v); }, c, o);
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
    const typename Fns<T>::Bin bin[3] = {f.add, f.sub, f.mul};
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
                        ASSERT_EQ(op < 3 ? bin[op](ga.data(), gb.data(), d.data(), n) : f.mulc(ga.data(), v, d.data(), n), zamStatusOk);
                        for (int i = 0; i < n; ++i) {
                            const T w = op == 0 ? m_add(a[i], b[i]) : op == 1 ? m_sub(b[i], a[i]) : m_mul(a[i], op == 2 ? b[i] : v);
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

template <class R, class C> void real_times_complex(zamStatus (*f)(const R*, const C*, C*, int),
                                                   zamStatus (*fi)(const R*, C*, int), uint32_t seed) {
    auto r = pool<R>(seed), c = pool<C>(seed + 1);
    auto m = [](R x, C y) { return C{x * y.re, x * y.im}; };
    zt::sweep_binary<R, C, C>(f, m, r, c, {.max_len = 100});
    zt::sweep_binary<R, C, C>(in_place(fi), m, r, c, {.max_len = 100, .in_place = false, .len_step = 9});
}

TEST(FloatArith, RealTimesComplex) {
    real_times_complex(zamsMul_32f32fc, zamsMul_32f32fc_I, 9);
    real_times_complex(zamsMul_64f64fc, zamsMul_64f64fc_I, 11);
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
