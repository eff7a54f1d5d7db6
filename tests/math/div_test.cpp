// Integer division: Div, Div_Round (the first source divides the second).
#include "math/div_kernel.h"
#include "digest.h"
#include "math_util.h"

namespace {

using mt::Wide;

struct Range {
    int lo, hi;
};

// The division rule from its statement: sign rule below the range, zero
// rule above it, otherwise the exact quotient rounded by the mode.
template <class T> T ref_div(Wide n, Wide d, int sf, Range r, int mode = 1) {
    using L = std::numeric_limits<T>;
    if (sf < r.lo) {
        if (n == 0) return 0;
        return ((n < 0) != (d < 0)) ? L::min() : L::max();
    }
    if (d == 0) return n > 0 ? L::max() : (n < 0 ? L::min() : T(0));
    if (sf > r.hi) return 0;
    Wide N = n, D = d;
    for (int k = sf; k < 0; ++k) N *= 2;
    for (int k = 0; k < sf; ++k) D *= 2;
    if (D < 0) N = -N, D = -D;
    return mt::clamp_to<T>(mt::round_div(N, D, mode));
}

// Runs fn over pools of divisors and dividends at several destination
// misalignments and compares with the model; returns the status of the
// aligned run.
template <class S, class D, class Fn, class Model>
void check_pools(Fn fn, Model model, const std::vector<S>& div, const std::vector<S>& num, const char* what) {
    int len = int(div.size());
    bool any_zero = false;
    std::vector<D> want(len);
    for (int i = 0; i < len; ++i) {
        want[i] = model(num[i], div[i]);
        any_zero |= div[i] == S(0);
    }
    for (size_t off : {size_t(0), size_t(1), sizeof(D) * 3, size_t(17)}) {
        zt::Guarded<D> dst(len, off);
        zamStatus st = fn(div.data(), num.data(), dst.data(), len);
        ASSERT_EQ(st, any_zero ? zamStatusWarnDivByZero : zamStatusOk) << what;
        for (int i = 0; i < len; ++i)
            ASSERT_EQ(dst[i], want[i]) << what << " n " << +num[i] << " d " << +div[i] << " at " << i;
        ASSERT_TRUE(dst.guards_intact()) << what;
    }
}

// Values worked by hand: the zero rules below and above the range,
// saturation, and ties to even (6 / 4, 10 / 4, -3 / 2).
TEST(Div, WorkedValues) {
    struct Case {
        Zam16s d, n;
        int sf;
        Zam16s want;
    } const cases[] = {{0, 3, -31, 32767}, {-2, 3, -31, -32768}, {5, 0, -31, 0}, {0, -9, 16, -32768},
                       {4, 9, 16, 0},      {4, 6, 0, 2},         {4, 10, 0, 2},  {2, -3, 0, -2}};
    for (const Case& c : cases) {
        Zam16s y;
        EXPECT_EQ(zamsDiv_16s_Sfs(&c.d, &c.n, &y, 1, c.sf), c.d ? zamStatusOk : zamStatusWarnDivByZero);
        EXPECT_EQ(y, c.want) << c.n << " / " << c.d << " sf " << c.sf;
    }
}

TEST(Div, ChecksInOrder) {
    Zam16s a[2] = {1, 1}, b[2] = {5, 5}, y[2] = {7, 7};
    EXPECT_EQ(zamsDiv_Round_16s_Sfs(a, b, y, 2, 3, 0), zamStatusBadRoundMode);
    EXPECT_EQ(zamsDiv_Round_16s_Sfs(a, b, y, 0, 3, 0), zamStatusBadLength);
    EXPECT_EQ(zamsDiv_Round_16u_ISfs(nullptr, nullptr, 0, 7, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsDiv_Round_8u_Sfs(nullptr, nullptr, nullptr, 1, -1, 0), zamStatusNullPointer);
    EXPECT_EQ(mt::first(y, 2), (std::vector<Zam16s>{7, 7}));
}

// Every 8u pair at every scale factor, through the public function (whose
// body mixes scalar steps and the reciprocal kernel) and in place.
TEST(Div8u, EveryPairEveryScale) {
    std::vector<Zam8u> div(65536), num(65536);
    for (int i = 0; i < 65536; ++i) div[i] = Zam8u(i >> 8), num[i] = Zam8u(i);
    const int sf_step = sizeof(void*) == 8 ? 1 : 3;  // lighter under emulation
    for (int sf = -17; sf <= 10; sf += sf_step) {
        auto model = [sf](Zam8u n, Zam8u d) { return ref_div<Zam8u>(n, d, sf, {-15, 8}); };
        check_pools<Zam8u, Zam8u>([sf](const Zam8u* d, const Zam8u* n, Zam8u* y, int len) {
            return zamsDiv_8u_Sfs(d, n, y, len, sf);
        }, model, div, num, "div_8u");
        std::vector<Zam8u> io = num;
        ASSERT_EQ(zamsDiv_8u_ISfs(div.data(), io.data(), 65536, sf), zamStatusWarnDivByZero);
        for (int i = 0; i < 65536; i += 97) ASSERT_EQ(io[i], model(num[i], div[i]));
    }
}

// The reciprocal body gives the exact quotient for any estimate within the
// estimate instruction's documented error (1.5 * 2^-12): exact reciprocals,
// both extremes and the hardware's own, over every pair and scale factor.
struct ScaledEstimate {
    float factor;
    __m256 operator()(__m256 d) const {
        __m256 r = _mm256_div_ps(_mm256_set1_ps(1.0f), d);
        return _mm256_mul_ps(r, _mm256_set1_ps(factor));
    }
};

template <class Est> void check_refined(Est est, const char* what) {
    alignas(16) Zam8u n[8], d[8], q[8];
    for (int sf = -15; sf <= 8; ++sf) {
        for (int dv = 0; dv < 256; ++dv) {
            for (int base = 0; base < 256; base += 8) {
                for (int j = 0; j < 8; ++j) n[j] = Zam8u(base + j), d[j] = Zam8u(dv);
                int zm = 0;
                __m128i r = zams::div8u_refined(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(n)),
                                                _mm_loadl_epi64(reinterpret_cast<const __m128i*>(d)), sf, est, zm);
                _mm_storel_epi64(reinterpret_cast<__m128i*>(q), r);
                ASSERT_EQ(zm != 0, dv == 0);
                for (int j = 0; j < 8; ++j)
                    ASSERT_EQ(q[j], ref_div<Zam8u>(n[j], dv, sf, {-15, 8}))
                        << what << " n " << int(n[j]) << " d " << dv << " sf " << sf;
            }
        }
    }
}

TEST(Div8u, ReciprocalBodyDoesNotDependOnTheEstimate) {
    check_refined(zams::RcpHardware{}, "hardware");
    if (sizeof(void*) == 8) {
        const float err = 1.5f / 4096.0f;
        check_refined(ScaledEstimate{1.0f}, "exact");
        check_refined(ScaledEstimate{1.0f + err}, "high");
        check_refined(ScaledEstimate{1.0f - err}, "low");
    }
}

template <class T> std::vector<T> with_zeros(std::vector<T> v) {
    for (size_t i = 5; i < v.size(); i += 37) v[i] = T(0);
    return v;
}

// One function of the form fn(src1, src2, dst, len, mode, sf) against the
// model over random pairs (zero divisors and small ones among them).
template <class T, class Fn> void check_round(Fn fn, Range r, int sf_lo, int sf_hi, uint32_t seed, bool round, const char* what) {
    auto div = with_zeros(zt::random_ints<T>(500, seed)), num = zt::random_ints<T>(500, seed + 1);
    // small divisors make ties and near-ties common
    for (int i = 0; i < 500; i += 3) div[i] = T(div[i] % 9);
    for (int mode = round ? 0 : 1; mode <= (round ? 2 : 1); ++mode)
        for (int sf = sf_lo; sf <= sf_hi; ++sf)
            check_pools<T, T>([=](const T* d, const T* n, T* y, int len) { return fn(d, n, y, len, mode, sf); },
                              [=](T n, T d) { return ref_div<T>(n, d, sf, r, mode); }, div, num, what);
}

// Div_16s (nearest) and Div_Round (every mode): each type's range of scale
// factors differs.
TEST(DivRound, EveryModeEveryScale) {
    check_round<Zam16s>([](auto d, auto n, auto y, int len, int, int sf) { return zamsDiv_16s_Sfs(d, n, y, len, sf); },
                        {-30, 15}, -33, 18, 3, false, "div_16s");
    check_round<Zam8u>(zamsDiv_Round_8u_Sfs, {-15, 8}, -34, 19, 5, true, "round_8u");
    check_round<Zam16s>(zamsDiv_Round_16s_Sfs, {-30, 16}, -34, 19, 7, true, "round_16s");
    check_round<Zam16u>(zamsDiv_Round_16u_Sfs, {-31, 16}, -34, 19, 9, true, "round_16u");
    // In place divides pSrcDst by pSrc.
    auto d16 = with_zeros(zt::random_ints<Zam16s>(500, 7)), n16 = zt::random_ints<Zam16s>(500, 8), io = n16;
    zamsDiv_Round_16s_ISfs(d16.data(), io.data(), 500, 2, -3);
    for (int i = 0; i < 500; ++i) ASSERT_EQ(io[i], ref_div<Zam16s>(n16[i], d16[i], -3, {-30, 16}, 2));
    auto d8 = with_zeros(zt::random_ints<Zam8u>(500, 10)), n8 = zt::random_ints<Zam8u>(500, 11), io8 = n8;
    for (int i = 0; i < 500; i += 3) d8[i] = Zam8u(d8[i] % 9);
    for (int mode = 0; mode <= 2; ++mode) {
        io8 = n8;
        ASSERT_EQ(zamsDiv_Round_8u_ISfs(d8.data(), io8.data(), 500, mode, 2), zamStatusWarnDivByZero);
        for (int i = 0; i < 500; ++i) ASSERT_EQ(io8[i], ref_div<Zam8u>(n8[i], d8[i], 2, {-15, 8}, mode)) << i << " mode " << mode;
    }
}

TEST(Div32s, RandomPairsEveryScale) {
    auto div = with_zeros(zt::random_ints<Zam32s>(400, 11));
    auto num = zt::random_ints<Zam32s>(400, 12);
    for (int i = 0; i < 400; i += 4) div[i] = div[i] % 1000, num[i] = num[i] % 100000;
    bool wide = sizeof(Wide) > 8;
    for (int sf = wide ? -64 : -31; sf <= (wide ? 34 : 31); ++sf) {
        check_pools<Zam32s, Zam32s>([sf](const Zam32s* d, const Zam32s* n, Zam32s* y, int len) {
            return zamsDiv_32s_Sfs(d, n, y, len, sf);
        }, [sf](Zam32s n, Zam32s d) { return ref_div<Zam32s>(n, d, sf, {-62, 32}); }, div, num, "div_32s");
        check_pools<Zam32s, Zam16s>([sf](const Zam32s* d, const Zam32s* n, Zam16s* y, int len) {
            return zamsDiv_32s16s_Sfs(d, n, y, len, sf);
        }, [sf](Zam32s n, Zam32s d) { return ref_div<Zam16s>(n, d, sf, {-29, 31}); }, div, num, "div_32s16s");
        auto io = num;  // in place divides pSrcDst by pSrc
        ASSERT_EQ(zamsDiv_32s_ISfs(div.data(), io.data(), 400, sf), zamStatusWarnDivByZero);
        for (int i = 0; i < 400; ++i) ASSERT_EQ(io[i], ref_div<Zam32s>(num[i], div[i], sf, {-62, 32})) << i << " sf " << sf;
    }
}

Zam16s ref_16sc_part(Wide num, Wide dividend, Wide norm, int sf) {
    if (sf > 32) return 0;
    return ref_div<Zam16s>(norm == 0 ? dividend : num, norm, sf, {-32, 32});
}

TEST(Div16sc, RandomPairsEveryScale) {
    auto dv = with_zeros(zt::random_ints<Zam16s>(600, 13));
    auto nv = zt::random_ints<Zam16s>(600, 14);
    std::vector<Zam16sc> div(300), num(300);
    for (int i = 0; i < 300; ++i) {
        div[i] = {dv[2 * i], dv[2 * i + 1]};
        num[i] = {nv[2 * i], nv[2 * i + 1]};
        if (i % 37 == 5) div[i] = {0, 0};
    }
    bool wide = sizeof(Wide) > 8;
    for (int sf = wide ? -34 : -31; sf <= (wide ? 34 : 31); ++sf) {
        std::vector<Zam16sc> y(300);
        ASSERT_EQ(zamsDiv_16sc_Sfs(div.data(), num.data(), y.data(), 300, sf), zamStatusWarnDivByZero);
        for (int i = 0; i < 300; ++i) {
            Wide a = num[i].re, b = num[i].im, c = div[i].re, d = div[i].im;
            Wide norm = c * c + d * d;
            ASSERT_EQ(y[i].re, ref_16sc_part(a * c + b * d, a, norm, sf)) << i << " sf " << sf;
            ASSERT_EQ(y[i].im, ref_16sc_part(b * c - a * d, b, norm, sf)) << i << " sf " << sf;
        }
        auto io = num;
        ASSERT_EQ(zamsDiv_16sc_ISfs(div.data(), io.data(), 300, sf), zamStatusWarnDivByZero);
        ASSERT_EQ(std::memcmp(io.data(), y.data(), y.size() * sizeof(Zam16sc)), 0) << "in place, sf " << sf;
    }
}

ZAMS_DIGEST(div_integer) {
    auto d8 = with_zeros(zt::random_ints<Zam8u>(1500, 31));
    auto n8 = zt::random_ints<Zam8u>(1500, 32);
    auto d16 = with_zeros(zt::random_ints<Zam16s>(1500, 33));
    auto n16 = zt::random_ints<Zam16s>(1500, 34);
    auto d32 = with_zeros(zt::random_ints<Zam32s>(1500, 35));
    auto n32 = zt::random_ints<Zam32s>(1500, 36);
    std::vector<Zam8u> y8(1500);
    std::vector<Zam16s> y16(1500);
    std::vector<Zam16u> yu(1500);
    std::vector<Zam32s> y32(1500);
    std::vector<Zam16sc> yc(750);
    auto* du = reinterpret_cast<const Zam16u*>(d16.data());
    auto* nu = reinterpret_cast<const Zam16u*>(n16.data());
    auto* dc = reinterpret_cast<const Zam16sc*>(d16.data());
    auto* nc = reinterpret_cast<const Zam16sc*>(n16.data());
    for (int sf : {-40, -20, -3, 0, 1, 5, 16, 40}) {
        mt::rec(d, zamsDiv_8u_Sfs(d8.data(), n8.data(), y8.data(), 1500, sf), y8);
        mt::rec(d, zamsDiv_16s_Sfs(d16.data(), n16.data(), y16.data(), 1500, sf), y16);
        mt::rec(d, zamsDiv_32s_Sfs(d32.data(), n32.data(), y32.data(), 1500, sf), y32);
        mt::rec(d, zamsDiv_32s16s_Sfs(d32.data(), n32.data(), y16.data(), 1500, sf), y16);
        mt::rec(d, zamsDiv_16sc_Sfs(dc, nc, yc.data(), 750, sf), yc);
        for (int mode = 0; mode <= 2; ++mode) {
            mt::rec(d, zamsDiv_Round_8u_Sfs(d8.data(), n8.data(), y8.data(), 1500, mode, sf), y8);
            mt::rec(d, zamsDiv_Round_16s_Sfs(d16.data(), n16.data(), y16.data(), 1500, mode, sf), y16);
            mt::rec(d, zamsDiv_Round_16u_Sfs(du, nu, yu.data(), 1500, mode, sf), yu);
        }
    }
    std::vector<Zam16s> io = n16;
    mt::rec(d, zamsDiv_16s_ISfs(d16.data(), io.data(), 1500, 2), io);
}

}  // namespace
