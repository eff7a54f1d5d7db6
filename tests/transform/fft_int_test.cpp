// FFT of the integer kinds: sizes, results within one unit of the
// correctly rounded, scaled and saturated transform.
#include "digest.h"
#include "fft_kinds.h"

namespace {

using namespace ft;

// Correctly rounded (half to even) and saturated.
template <class T> T round_sat(LD v) {
    const LD lo = LD(std::numeric_limits<T>::min()), hi = LD(std::numeric_limits<T>::max());
    if (v <= lo) return std::numeric_limits<T>::min();
    if (v >= hi) return std::numeric_limits<T>::max();
    LD f = std::floor(v), d = v - f;
    if (d > 0.5L || (d == 0.5L && std::fmod(f, 2.0L) != 0)) f += 1;
    return T(f);
}

LD scale_of(int flag, int order, bool inv, int sf) { return flag_scale(flag, order, inv) * std::ldexp(1.0L, -sf); }

// Complex kinds: every flag, small and floating paths, scale factors,
// in place, against the long double DFT rounded once.
template <class K> void check_complex(auto run, int max_order, LD amp) {
    using P = typename K::F;
    for (int order = 0; order <= max_order; ++order)
        for (int hint : {0, 2})
            for (int flag : kFlags)
                for (int sf : {-1, 0, 3}) {
                    const size_t n = size_t(1) << order;
                    auto xr = zt::random_reals<double>(2 * n, order * 31 + flag + sf, -double(amp), double(amp));
                    std::vector<P> x(2 * n);
                    for (size_t i = 0; i < 2 * n; ++i) x[i] = P(std::lround(xr[i]));
                    const auto xl = to_cl(x.data(), n);
                    typename K::Spec* s = nullptr;
                    ASSERT_EQ(K::init_alloc(&s, order, flag, hint), zamStatusOk);
                    for (int inv = 0; inv < 2; ++inv) {
                        const auto ref = dft(xl, inv ? 1 : -1);
                        const LD sc = scale_of(flag, order, inv, sf);
                        for (int inplace = 0; inplace < 2; ++inplace) {
                            std::vector<P> y = inplace ? x : std::vector<P>(2 * n, P(0));
                            ASSERT_EQ(run(inv, inplace, x.data(), y.data(), s, sf), zamStatusOk);
                            for (size_t k = 0; k < n; ++k) {
                                const P wr = round_sat<P>(ref[k].real() * sc), wi = round_sat<P>(ref[k].imag() * sc);
                                ASSERT_LE(std::abs(double(y[2 * k]) - double(wr)), 1.0)
                                    << K::kName << " order " << order << " hint " << hint << " flag " << flag << " sf " << sf << " inv " << inv << " k " << k;
                                ASSERT_LE(std::abs(double(y[2 * k + 1]) - double(wi)), 1.0) << order << " " << k;
                            }
                        }
                    }
                    K::free_spec(s);
                }
}

// Interleaved kinds run straight; split kinds through an interleaving adaptor.
template <class C, class P, class Spec> auto inter_runner(auto fwd, auto inv_fn, auto fwd_i, auto inv_i) {
    return [=](int inv, int ip, const P* x, P* y, const Spec* s, int sf) {
        auto* d = reinterpret_cast<C*>(y);
        if (ip) return inv ? inv_i(d, s, sf, nullptr) : fwd_i(d, s, sf, nullptr);
        auto* c = reinterpret_cast<const C*>(x);
        return inv ? inv_fn(c, d, s, sf, nullptr) : fwd(c, d, s, sf, nullptr);
    };
}

template <class P, class Spec> auto split_runner(auto fwd, auto inv_fn, auto fwd_i, auto inv_i) {
    return [=](int inv, int ip, const P* x, P* y, const Spec* s, int sf) {
        const size_t n = 1u << *(reinterpret_cast<const int32_t*>(s) + 1);
        return via_split(ip ? y : x, y, n, ip, [&](P* re, P* im, P* orr, P* oi) {
            if (ip) return inv ? inv_i(re, im, s, sf, nullptr) : fwd_i(re, im, s, sf, nullptr);
            return inv ? inv_fn(re, im, orr, oi, s, sf, nullptr) : fwd(re, im, orr, oi, s, sf, nullptr);
        });
    };
}

TEST(FftInt, Complex) {
    check_complex<I16sc>(inter_runner<Zam16sc, Zam16s, ZamsFFTSpec_C_16sc>(zamsFFTFwd_CToC_16sc_Sfs, zamsFFTInv_CToC_16sc_Sfs,
                                                                      zamsFFTFwd_CToC_16sc_ISfs, zamsFFTInv_CToC_16sc_ISfs), 7, 3000);
    check_complex<I16s>(split_runner<Zam16s, ZamsFFTSpec_C_16s>(zamsFFTFwd_CToC_16s_Sfs, zamsFFTInv_CToC_16s_Sfs,
                                                             zamsFFTFwd_CToC_16s_ISfs, zamsFFTInv_CToC_16s_ISfs), 6, 20000);
    check_complex<I32s>(split_runner<Zam32s, ZamsFFTSpec_C_32s>(zamsFFTFwd_CToC_32s_Sfs, zamsFFTInv_CToC_32s_Sfs,
                                                             zamsFFTFwd_CToC_32s_ISfs, zamsFFTInv_CToC_32s_ISfs), 6, 3e8);
    check_complex<I32sc>(inter_runner<Zam32sc, Zam32s, ZamsFFTSpec_C_32sc>(zamsFFTFwd_CToC_32sc_Sfs, zamsFFTInv_CToC_32sc_Sfs,
                                                                      zamsFFTFwd_CToC_32sc_ISfs, zamsFFTInv_CToC_32sc_ISfs), 6, 1e8);
}

// Real kinds: the transforms by format (none where a kind lacks one).
template <class K, class Q> struct IntReal {
    using P = typename K::F;
    using S = typename K::Spec;
    zamStatus (*fwd[3])(const P*, Q*, const S*, int, Zam8u*);
    zamStatus (*inv[3])(const Q*, P*, const S*, int, Zam8u*);
    zamStatus (*fwd_i[3])(P*, const S*, int, Zam8u*);
    zamStatus (*inv_i[3])(Q*, const S*, int, Zam8u*);
};
#define FT_INT_REAL(T)                                                                                              \
    {{zamsFFTFwd_RToPerm_##T##_Sfs, zamsFFTFwd_RToPack_##T##_Sfs, zamsFFTFwd_RToCCS_##T##_Sfs},                     \
     {zamsFFTInv_PermToR_##T##_Sfs, zamsFFTInv_PackToR_##T##_Sfs, zamsFFTInv_CCSToR_##T##_Sfs},                     \
     {zamsFFTFwd_RToPerm_##T##_ISfs, zamsFFTFwd_RToPack_##T##_ISfs, zamsFFTFwd_RToCCS_##T##_ISfs},                  \
     {zamsFFTInv_PermToR_##T##_ISfs, zamsFFTInv_PackToR_##T##_ISfs, zamsFFTInv_CCSToR_##T##_ISfs}}

// Each format forward, and back from the rounded model spectrum; in place
// (where the kind has it) under hint 3.
template <class K, class Q> void check_real(const IntReal<K, Q>& t, int max_order, LD amp) {
    using P = typename K::F;
    for (int order = 0; order <= max_order; ++order)
        for (int hint : {1, 3})
            for (int flag : kFlags)
                for (int f = 0; f < 3; ++f) {
                    if (!t.fwd[f]) continue;
                    const int sf = order % 3 - 1;
                    const size_t n = size_t(1) << order;
                    const bool ip = hint == 3 && t.fwd_i[f];
                    auto xr = zt::random_reals<double>(n, order * 7 + flag + f, -double(amp), double(amp));
                    std::vector<P> x(n + 2);
                    std::vector<CL> xl(n);
                    for (size_t i = 0; i < n; ++i) { x[i] = P(std::lround(xr[i])); xl[i] = x[i]; }
                    const auto X = dft(xl, -1);
                    typename K::Spec* s = nullptr;
                    ASSERT_EQ(K::init_alloc(&s, order, flag, hint), zamStatusOk);
                    const LD sc = scale_of(flag, order, false, sf);
                    const auto m = pack_model(Fmt(f), X, n);
                    std::vector<Q> y(n + 2, Q(0)), spec(n + 2, Q(0));
                    std::copy(x.begin(), x.end(), y.begin());
                    ASSERT_EQ(ip ? t.fwd_i[f](reinterpret_cast<P*>(y.data()), s, sf, nullptr) : t.fwd[f](x.data(), y.data(), s, sf, nullptr),
                              zamStatusOk);
                    for (size_t i = 0; i < m.size(); ++i) {
                        spec[i] = round_sat<Q>(m[i] * sc);
                        ASSERT_LE(std::abs(double(y[i]) - double(spec[i])), 1.0)
                            << K::kName << " order " << order << " fmt " << f << " flag " << flag << " in place " << ip << " i " << i;
                    }
                    if (f == kCcs) {  // the imaginary parts of R0 and R(N/2) are zero, not rounded
                        EXPECT_TRUE(y[1] == 0 && y[m.size() - 1] == 0) << K::kName << " order " << order;
                    }
                    // inverse of the (rounded) spectrum, against the long double inverse
                    const auto back = dft(unpack_model(Fmt(f), spec.data(), n), 1);
                    std::vector<P> z(n + 2, P(0));
                    std::copy(spec.begin(), spec.end(), z.begin());
                    ASSERT_EQ(ip ? t.inv_i[f](reinterpret_cast<Q*>(z.data()), s, -sf, nullptr) : t.inv[f](spec.data(), z.data(), s, -sf, nullptr),
                              zamStatusOk);
                    const LD isc = scale_of(flag, order, true, -sf);
                    for (size_t i = 0; i < n; ++i)
                        ASSERT_LE(std::abs(double(z[i]) - double(round_sat<P>(back[i].real() * isc))), 1.0)
                            << K::kName << " inverse order " << order << " fmt " << f << " flag " << flag << " in place " << ip << " i " << i;
                    K::free_spec(s);
                }
}

TEST(FftInt, Real) {
    check_real<IR16s, Zam16s>(FT_INT_REAL(16s), 7, 1500);
    check_real<IR32s, Zam32s>(FT_INT_REAL(32s), 6, 2e7);
    check_real<IR16s32s, Zam32s>({{nullptr, nullptr, zamsFFTFwd_RToCCS_16s32s_Sfs}, {nullptr, nullptr, zamsFFTInv_CCSToR_32s16s_Sfs}, {}, {}}, 6, 30000);
}

ZAMS_DIGEST(fft_int) {
    for (int order : {0, 1, 2, 3, 4, 9}) {
        const size_t n = size_t(1) << order;
        auto x16 = zt::random_ints<Zam16s>(2 * n + 2, 60 + order);
        auto x32 = zt::random_ints<Zam32s>(2 * n + 2, 70 + order);
        const int flag = kFlags[order % 4];
        OwnedSpec<I16sc> a;
        OwnedSpec<IR16s> r;
        OwnedSpec<I32s> c;
        OwnedSpec<IR16s32s> m;
        for (zamStatus st : {a.build(order, flag), r.build(order, flag), c.build(order, flag), m.build(order, flag)}) d.status(st);
        std::vector<Zam16s> y16(2 * n + 2);
        std::vector<Zam32s> y32(2 * n + 2), z32(2 * n + 2);
        for (int sf : {-2, 0, 4}) {
            d.status(zamsFFTFwd_CToC_16sc_Sfs((Zam16sc*)x16.data(), (Zam16sc*)y16.data(), a.spec, sf, nullptr)); d.add(y16);
            d.status(zamsFFTFwd_RToPack_16s_Sfs(x16.data(), y16.data(), r.spec, sf, nullptr)); d.add(y16);
            d.status(zamsFFTInv_CCSToR_16s_Sfs(x16.data(), y16.data(), r.spec, sf, nullptr)); d.add(y16);
            d.status(zamsFFTInv_CToC_32s_Sfs(x32.data(), x32.data() + n, y32.data(), z32.data(), c.spec, sf, nullptr)); d.add(y32); d.add(z32);
            d.status(zamsFFTFwd_RToCCS_16s32s_Sfs(x16.data(), y32.data(), m.spec, sf, nullptr)); d.add(y32);
        }
    }
}

}  // namespace
