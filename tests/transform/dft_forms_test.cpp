// DFT forms checked against their already-tested siblings: real specs built
// in caller memory against InitAlloc's, the OutOrd kinds' life cycle and
// in-place forms, and the 16-bit in-place inverse against the out-of-place
// one.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

#include "dft_model.h"
#include "harness.h"
#include "life_cycle.h"

namespace {

using namespace dftt;

template <class T> bool same_bits(const std::vector<T>& a, const std::vector<T>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

// ---- real kinds: the DFT spec built in caller memory

// One real kind: its life cycle and its forward and inverse in a format,
// the 16-bit kind at scale factor 0.
template <class T, class S> struct RealKind {
    using Sample = T;
    using Spec = S;
    zamStatus (*getSize)(int, int, int, int*, int*, int*);
    zamStatus (*init)(S**, int, int, int, Zam8u*, Zam8u*);
    zamStatus (*alloc)(S**, int, int, int);
    zamStatus (*bufSize)(const S*, int*);
    zamStatus (*free)(S*);
    zamStatus (*fwd)(const T*, T*, const S*, Fmt, Zam8u*);
    zamStatus (*inv)(const T*, T*, const S*, Fmt, Zam8u*);
};

template <class F> RealKind<F, typename RKind<F>::S> floatKind() {
    using K = RKind<F>;
    return {K::getSize, K::init, K::alloc, K::bufSize, K::free,
            [](const F* x, F* y, const typename K::S* s, Fmt f, Zam8u* b) { return K::fwd[f](x, y, s, b); },
            [](const F* x, F* y, const typename K::S* s, Fmt f, Zam8u* b) { return K::inv[f](x, y, s, b); }};
}

RealKind<Zam16s, ZamsDFTSpec_R_16s> int16Kind() {
    using S = ZamsDFTSpec_R_16s;
    return {zamsDFTGetSize_R_16s, zamsDFTInit_R_16s, zamsDFTInitAlloc_R_16s, zamsDFTGetBufSize_R_16s, zamsDFTFree_R_16s,
            [](const Zam16s* x, Zam16s* y, const S* s, Fmt f, Zam8u* b) {
                zamStatus (*const fw[3])(const Zam16s*, Zam16s*, const S*, int, Zam8u*) = {
                    zamsDFTFwd_RToPerm_16s_Sfs, zamsDFTFwd_RToPack_16s_Sfs, zamsDFTFwd_RToCCS_16s_Sfs};
                return fw[f](x, y, s, 0, b);
            },
            [](const Zam16s* x, Zam16s* y, const S* s, Fmt f, Zam8u* b) {
                zamStatus (*const iv[3])(const Zam16s*, Zam16s*, const S*, int, Zam8u*) = {
                    zamsDFTInv_PermToR_16s_Sfs, zamsDFTInv_PackToR_16s_Sfs, zamsDFTInv_CCSToR_16s_Sfs};
                return iv[f](x, y, s, 0, b);
            }};
}

template <class T> std::vector<T> real_input(size_t n, uint32_t seed) {
    if constexpr (std::is_same_v<T, Zam16s>) {
        std::vector<T> v(n);
        for (size_t i = 0; i < n; ++i) v[i] = Zam16s(int((i * 389 + seed) % 6001) - 3000);
        return v;
    } else {
        return random_r<T>(n, seed);
    }
}

// Init in caller memory of exactly the reported sizes equals InitAlloc's
// build in every format both ways, the one with a caller's work buffer of
// the size GetBufSize reports (the query's), the other with none.
template <class K> void check_caller_memory(const K& k, const char* name) {
    using T = typename K::Sample;
    SCOPED_TRACE(name);
    for (int n : {1, 2, 9, 16, 30, 97, 257, 1000, 4096, 4099, 2 * 4099}) {
        SCOPED_TRACE(n);
        const int flag = 1 << (n % 4);
        int ss = 0, is = 0, ws = 0;
        ASSERT_EQ(k.getSize(n, flag, 0, &ss, &is, &ws), zamStatusOk);
        const auto x = real_input<T>(static_cast<size_t>(n), uint32_t(n));
        bool withWork = true;
        zt::caller_memory_equals_alloc(
            ss, is, [&](auto** s, Zam8u* m, Zam8u* t) { return k.init(s, n, flag, 0, m, t); },
            [&](auto** s) { return k.alloc(s, n, flag, 0); }, k.free, [&](const auto* s) {
                int bs = -1;
                EXPECT_EQ(k.bufSize(s, &bs), zamStatusOk);
                EXPECT_EQ(bs, ws);
                zt::Guarded<Zam8u> work(static_cast<size_t>(bs), 5);
                Zam8u* const buf = bs && withWork ? work.data() : nullptr;
                withWork = false;
                std::vector<uint8_t> out;
                for (Fmt f : {kPerm, kPack, kCcs}) {
                    std::vector<T> y(packed_len(f, static_cast<size_t>(n))), z(static_cast<size_t>(n));
                    EXPECT_EQ(k.fwd(x.data(), y.data(), s, f, buf), zamStatusOk);
                    EXPECT_EQ(k.inv(y.data(), z.data(), s, f, buf), zamStatusOk);
                    const auto b = zt::bytes_of(y, z);
                    out.insert(out.end(), b.begin(), b.end());
                }
                EXPECT_TRUE(work.guards_intact());
                return out;
            });
    }
}

// Init checks the length before the memory and the memory before the flag;
// a length that needs a build block refuses a null one.
template <class K> void check_real_statuses(const K& k, const char* name) {
    using S = typename K::Spec;
    SCOPED_TRACE(name);
    int ss = 0, is = 0, ws = 0;
    ASSERT_EQ(k.getSize(2 * 4099, 1, 0, &ss, &is, &ws), zamStatusOk);
    ASSERT_GT(is, 0);  // the convolution method needs a build block
    std::vector<Zam8u> mem(static_cast<size_t>(ss) + 64), tmp(static_cast<size_t>(is) + 64);
    S* spec = nullptr;
    EXPECT_EQ(k.init(&spec, 0, 1, 0, nullptr, nullptr), zamStatusBadLength);  // length before memory
    EXPECT_EQ(k.init(&spec, (1 << 23) + 1, 1, 0, mem.data(), nullptr), zamStatusBadLength);
    EXPECT_EQ(k.init(&spec, 10, 3, 0, nullptr, nullptr), zamStatusNullPointer);  // memory before flag
    EXPECT_EQ(k.init(&spec, 10, 3, 0, mem.data(), nullptr), zamStatusBadFftFlag);
    EXPECT_EQ(k.init(&spec, 2 * 4099, 1, 0, mem.data(), nullptr), zamStatusNullPointer);
    ASSERT_EQ(k.init(&spec, 2 * 4099, 1, 0, mem.data(), tmp.data()), zamStatusOk);
    EXPECT_EQ(k.free(spec), zamStatusOk);
}

TEST(DftForms, RealInitInCallerMemoryEqualsInitAlloc) {
    check_caller_memory(floatKind<float>(), "R_32f");
    check_caller_memory(floatKind<double>(), "R_64f");
    check_caller_memory(int16Kind(), "R_16s");
}

TEST(DftForms, RealInitChecksInOrder) {
    check_real_statuses(floatKind<float>(), "R_32f");
    check_real_statuses(floatKind<double>(), "R_64f");
    check_real_statuses(int16Kind(), "R_16s");
}

// ---- OutOrd kinds

template <class F> class DftOutOrdForms : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(DftOutOrdForms, Precisions);

const int kOutOrdLengths[] = {1, 7, 12, 64, 97, 257, 360, 1000, 4099};

// Whatever the order of its spectrum, the OutOrd forward holds the same
// values as the plain DFT's spectrum: the magnitudes, sorted, agree, and
// so do the sums of the values and of their squared magnitudes. The
// OutOrd inverse takes it back to the input, as the plain pair does.
TYPED_TEST(DftOutOrdForms, SpectrumHoldsThePlainDftsValuesAndInvertsBack) {
    using F = TypeParam;
    using O = OKind<F>;
    using K = CKind<F>;
    for (int n : kOutOrdLengths) {
        typename O::S* s = nullptr;
        ASSERT_EQ(O::alloc(&s, n, zamFftScaleInverse, 0), zamStatusOk) << n;
        Owned<K> plain;
        ASSERT_EQ(plain.build(n, zamFftScaleInverse), zamStatusOk);
        const auto x = random_c<typename O::C>(static_cast<size_t>(n), uint32_t(n) + 11);
        std::vector<typename O::C> y(static_cast<size_t>(n)), p(static_cast<size_t>(n)), z(static_cast<size_t>(n));
        ASSERT_EQ(O::fwd(x.data(), y.data(), s, nullptr), zamStatusOk);
        ASSERT_EQ(K::fwd(x.data(), p.data(), plain.spec, nullptr), zamStatusOk);
        std::vector<long double> my, mp;
        LC sy = 0, sp = 0;
        long double ey = 0, ep = 0;
        for (int i = 0; i < n; ++i) {
            const LC a(y[static_cast<size_t>(i)].re, y[static_cast<size_t>(i)].im), b(p[static_cast<size_t>(i)].re, p[static_cast<size_t>(i)].im);
            my.push_back(std::abs(a)), mp.push_back(std::abs(b));
            sy += a, sp += b, ey += std::norm(a), ep += std::norm(b);
        }
        std::sort(my.begin(), my.end());
        std::sort(mp.begin(), mp.end());
        const long double tol = bound<F>(static_cast<size_t>(n)) * std::sqrt(ep / n);
        for (size_t i = 0; i < my.size(); ++i) EXPECT_NEAR(double(my[i]), double(mp[i]), 4 * double(tol)) << n << " at " << i;
        EXPECT_LE(std::abs(sy - sp), 4 * tol * n) << n;
        EXPECT_LE(std::abs(ey - ep), 4 * bound<F>(static_cast<size_t>(n)) * ep) << n;
        ASSERT_EQ(O::inv(y.data(), z.data(), s, nullptr), zamStatusOk);
        std::vector<LC> wx;
        for (const auto& v : x) wx.emplace_back(v.re, v.im);
        EXPECT_LE(rel_rms(z, wx), 2 * bound<F>(static_cast<size_t>(n))) << n;
        EXPECT_EQ(O::free(s), zamStatusOk);
    }
}

// Element-wise products of two spectra are the spectra of cyclic
// convolutions, the long double sum.
TYPED_TEST(DftOutOrdForms, ProductsOfSpectraAreCyclicConvolutions) {
    using F = TypeParam;
    using O = OKind<F>;
    for (int n : {12, 97, 360}) {
        typename O::S* s = nullptr;
        ASSERT_EQ(O::alloc(&s, n, zamFftScaleInverse, 0), zamStatusOk);
        const auto a = random_c<typename O::C>(static_cast<size_t>(n), 1), b = random_c<typename O::C>(static_cast<size_t>(n), 2);
        std::vector<typename O::C> A(static_cast<size_t>(n)), B(static_cast<size_t>(n)), y(static_cast<size_t>(n));
        ASSERT_EQ(O::fwd(a.data(), A.data(), s, nullptr), zamStatusOk);
        ASSERT_EQ(O::fwd(b.data(), B.data(), s, nullptr), zamStatusOk);
        for (size_t k = 0; k < static_cast<size_t>(n); ++k)
            A[k] = {A[k].re * B[k].re - A[k].im * B[k].im, A[k].re * B[k].im + A[k].im * B[k].re};
        ASSERT_EQ(O::inv(A.data(), y.data(), s, nullptr), zamStatusOk);
        std::vector<LC> ref(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j)
                ref[static_cast<size_t>(i)] += LC(a[static_cast<size_t>(j)].re, a[static_cast<size_t>(j)].im) *
                                  LC(b[static_cast<size_t>((i - j + n) % n)].re, b[static_cast<size_t>((i - j + n) % n)].im);
        EXPECT_LE(rel_rms(y, ref), 4 * bound<F>(static_cast<size_t>(n))) << n;
        EXPECT_EQ(O::free(s), zamStatusOk);
    }
}

// The _I forms and a caller's work buffer give the bits of the
// out-of-place forms on the same input.
TYPED_TEST(DftOutOrdForms, InPlaceFormsEqualOutOfPlace) {
    using F = TypeParam;
    using O = OKind<F>;
    for (int n : kOutOrdLengths) {
        typename O::S* s = nullptr;
        ASSERT_EQ(O::alloc(&s, n, zamFftScaleSqrtBoth, 0), zamStatusOk);
        int bs = -1;
        ASSERT_EQ(O::bufSize(s, &bs), zamStatusOk);
        zt::Guarded<Zam8u> work(static_cast<size_t>(bs), 3);
        const auto x = random_c<typename O::C>(static_cast<size_t>(n), uint32_t(n));
        std::vector<typename O::C> y(static_cast<size_t>(n)), a = x, z(static_cast<size_t>(n));
        ASSERT_EQ(O::fwd(x.data(), y.data(), s, nullptr), zamStatusOk);
        ASSERT_EQ(O::fwdI(a.data(), s, bs ? work.data() : nullptr), zamStatusOk);
        EXPECT_TRUE(same_bits(y, a)) << n;
        ASSERT_EQ(O::inv(y.data(), z.data(), s, nullptr), zamStatusOk);
        ASSERT_EQ(O::invI(a.data(), s, bs ? work.data() : nullptr), zamStatusOk);
        EXPECT_TRUE(same_bits(z, a)) << n;
        EXPECT_TRUE(work.guards_intact()) << n;
        EXPECT_EQ(O::free(s), zamStatusOk);
    }
}

// Init in caller memory of the reported sizes equals InitAlloc's build.
TYPED_TEST(DftOutOrdForms, InitInCallerMemoryEqualsInitAlloc) {
    using O = OKind<TypeParam>;
    for (int n : kOutOrdLengths) {
        SCOPED_TRACE(n);
        const int flag = 1 << (n % 4);
        int ss = 0, is = 0, ws = 0;
        ASSERT_EQ(O::getSize(n, flag, 0, &ss, &is, &ws), zamStatusOk);
        const auto x = random_c<typename O::C>(static_cast<size_t>(n), 4);
        zt::caller_memory_equals_alloc(
            ss, is, [&](auto** s, Zam8u* m, Zam8u* t) { return O::init(s, n, flag, 0, m, t); },
            [&](auto** s) { return O::alloc(s, n, flag, 0); }, O::free, [&](const auto* s) {
                int bs = -1;
                EXPECT_EQ(O::bufSize(s, &bs), zamStatusOk);
                EXPECT_EQ(bs, ws);
                std::vector<typename O::C> y(x.size()), z(x.size());
                EXPECT_EQ(O::fwd(x.data(), y.data(), s, nullptr), zamStatusOk);
                EXPECT_EQ(O::inv(y.data(), z.data(), s, nullptr), zamStatusOk);
                return zt::bytes_of(y, z);
            });
    }
}

// The size query checks the length, then the pointers, then the flag.
TYPED_TEST(DftOutOrdForms, ChecksInOrder) {
    using O = OKind<TypeParam>;
    int a = -1, b = -1, c = -1;
    EXPECT_EQ(O::getSize(0, 9, 0, nullptr, &b, &c), zamStatusBadLength);
    EXPECT_EQ(O::getSize(10, 9, 0, nullptr, &b, &c), zamStatusNullPointer);
    EXPECT_EQ(O::getSize(10, 3, 0, &a, &b, &c), zamStatusBadFftFlag);
}

// ---- 16-bit complex in place

// The _ISfs forms give the bits of the _Sfs forms on the same input, in
// both directions, at scale factors that round, saturate and widen.
TEST(DftForms, Int16ComplexInPlaceEqualsOutOfPlace) {
    using Out = zamStatus (*)(const Zam16sc*, Zam16sc*, const ZamsDFTSpec_C_16sc*, int, Zam8u*);
    using In = zamStatus (*)(Zam16sc*, const ZamsDFTSpec_C_16sc*, int, Zam8u*);
    const struct {
        const char* name;
        Out out;
        In in;
    } dirs[] = {{"fwd", zamsDFTFwd_CToC_16sc_Sfs, zamsDFTFwd_CToC_16sc_ISfs},
                {"inv", zamsDFTInv_CToC_16sc_Sfs, zamsDFTInv_CToC_16sc_ISfs}};
    for (int n : {1, 6, 64, 97, 300, 4099})
        for (int flag : {1, 2, 4, 8}) {
            ZamsDFTSpec_C_16sc* s = nullptr;
            ASSERT_EQ(zamsDFTInitAlloc_C_16sc(&s, n, flag, 0), zamStatusOk);
            int bs = -1;
            ASSERT_EQ(zamsDFTGetBufSize_C_16sc(s, &bs), zamStatusOk);
            zt::Guarded<Zam8u> work(static_cast<size_t>(bs), 1);
            std::vector<Zam16sc> x(static_cast<size_t>(n));
            for (size_t i = 0; i < static_cast<size_t>(n); ++i)
                x[i] = {Zam16s(int(i * 263 % 20001) - 10000), Zam16s(int(i * 71 % 16001) - 8000)};
            for (const auto& d : dirs)
                for (int sf : {-3, 0, 2, 9}) {
                    std::vector<Zam16sc> y(static_cast<size_t>(n)), z = x;
                    ASSERT_EQ(d.out(x.data(), y.data(), s, sf, nullptr), zamStatusOk);
                    ASSERT_EQ(d.in(z.data(), s, sf, bs ? work.data() : nullptr), zamStatusOk);
                    EXPECT_TRUE(same_bits(y, z)) << d.name << " len " << n << " flag " << flag << " sf " << sf;
                }
            EXPECT_TRUE(work.guards_intact()) << n;
            std::vector<Zam16sc> v(1);
            EXPECT_EQ(zamsDFTInv_CToC_16sc_ISfs(nullptr, s, 0, nullptr), zamStatusNullPointer);
            EXPECT_EQ(zamsDFTInv_CToC_16sc_ISfs(v.data(), nullptr, 0, nullptr), zamStatusNullPointer);
            EXPECT_EQ(zamsDFTFree_C_16sc(s), zamStatusOk);
        }
}

}  // namespace
