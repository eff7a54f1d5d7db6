// FFT of the integer kinds: sizes, statuses, results within one unit of the
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

struct SizeRow {
    int order, hint, spec, init, work;
};

template <class Fn> void check_sizes(Fn get_size, std::initializer_list<SizeRow> rows, const char* what) {
    for (const SizeRow& r : rows) {
        int a = -1, b = -1, c = -1;
        ASSERT_EQ(get_size(r.order, 4, r.hint, &a, &b, &c), zamStatusOk) << what << " " << r.order;
        EXPECT_EQ(a, r.spec) << what << " order " << r.order << " hint " << r.hint;
        EXPECT_EQ(b, r.init) << what << " order " << r.order << " hint " << r.hint;
        EXPECT_EQ(c, r.work) << what << " order " << r.order << " hint " << r.hint;
    }
}

TEST(FftInt, ReportedSizes) {
    check_sizes(zamsFFTGetSize_C_16sc, {{0, 0, 116, 0, 0}, {2, 0, 256, 128, 96}, {2, 2, 276, 64, 96}, {7, 1, 1600, 64, 2176}}, "C_16sc");
    check_sizes(zamsFFTGetSize_C_16s, {{2, 1, 256, 128, 112}, {3, 5, 276, 64, 128}}, "C_16s");
    check_sizes(zamsFFTGetSize_R_16s, {{0, 1, 116, 0, 0}, {3, 0, 320, 128, 104}, {8, 0, 2624, 64, 2184}}, "R_16s");
    check_sizes(zamsFFTGetSize_C_32sc, {{0, 0, 280, 0, 80}, {11, 0, 35264, 4288, 65664}}, "C_32sc");
    check_sizes(zamsFFTGetSize_C_32s, {{7, 0, 2624, 0, 4224}}, "C_32s");
    check_sizes(zamsFFTGetSize_R_32s, {{8, 0, 4672, 0, 4240}}, "R_32s");
    check_sizes(zamsFFTGetSize_R_16s32s, {{5, 0, 576, 0, 336}}, "R_16s32s");
    int a, b, c;
    // the integer kinds' own check accepts up to 30; the float kind refuses above its maximum
    EXPECT_EQ(zamsFFTGetSize_C_16sc(31, 1, 0, nullptr, nullptr, nullptr), zamStatusBadFftOrder);
    EXPECT_EQ(zamsFFTGetSize_C_16sc(29, 1, 0, &a, &b, &c), zamStatusBadFftOrder);
    EXPECT_EQ(zamsFFTGetSize_R_16s(28, 1, 0, &a, &b, &c), zamStatusOk);
    // at order 29 the work buffer would reach 2^31 bytes
    EXPECT_EQ(zamsFFTGetSize_R_16s(29, 1, 0, &a, &b, &c), zamStatusNoMemory);
    EXPECT_EQ(zamsFFTGetSize_C_32s(28, 1, 0, &a, &b, &c), zamStatusBadFftOrder);
    EXPECT_EQ(zamsFFTGetSize_R_32s(28, 3, 0, &a, &b, &c), zamStatusBadFftFlag);
    EXPECT_EQ(zamsFFTGetSize_R_16s32s(5, 1, 0, &a, nullptr, &c), zamStatusNullPointer);
}

// Builds in exactly the reported memory, queries, frees; bad builds leave
// identifier 0.
template <class S> void check_life(auto get_size, auto init, auto init_alloc, auto buf_size, auto free_spec, int32_t id, int top) {
    for (int order = 0; order <= top; ++order)
        for (int hint : {0, 2}) {
            int a, b, c;
            ASSERT_EQ(get_size(order, 1 << (order % 4), hint, &a, &b, &c), zamStatusOk);
            std::vector<uint8_t> mem(size_t(a) + 128, 0x5A), tmp(size_t(b) + 1);
            S* s = nullptr;
            ASSERT_EQ(init(&s, order, 1 << (order % 4), hint, mem.data() + 3, tmp.data()), zamStatusOk) << order;
            for (size_t i = size_t(a) + 3; i < mem.size(); ++i) ASSERT_EQ(mem[i], 0x5A) << order;
            EXPECT_EQ(*reinterpret_cast<int32_t*>(s), id);
            int w = -1;
            ASSERT_EQ(buf_size(s, &w), zamStatusOk);
            EXPECT_EQ(w, c) << order;
            EXPECT_EQ(free_spec(s), zamStatusOk);
            EXPECT_EQ(free_spec(s), zamStatusContextMismatch);
            ASSERT_EQ(init_alloc(&s, order, 8, hint), zamStatusOk);
            EXPECT_EQ(free_spec(s), zamStatusOk);
        }
    std::vector<uint8_t> mem(4096), tmp(256);
    S* s = nullptr;
    EXPECT_EQ(init(nullptr, 2, 1, 0, mem.data(), tmp.data()), zamStatusNullPointer);
    EXPECT_EQ(init(&s, 31, 1, 0, nullptr, tmp.data()), zamStatusBadFftOrder);
    EXPECT_EQ(init(&s, 2, 1, 0, nullptr, tmp.data()), zamStatusNullPointer);
    EXPECT_EQ(init(&s, 2, 6, 0, mem.data(), tmp.data()), zamStatusBadFftFlag);
    EXPECT_EQ(*reinterpret_cast<int32_t*>(fft_align(mem.data())), 0);
    EXPECT_EQ(init_alloc(&s, 3, 6, 0), zamStatusBadFftFlag);
    EXPECT_EQ(init_alloc(nullptr, 3, 1, 0), zamStatusNullPointer);
    EXPECT_EQ(buf_size(nullptr, nullptr), zamStatusNullPointer);
    EXPECT_EQ(free_spec(nullptr), zamStatusNullPointer);
}

TEST(FftInt, SpecLifeCycle) {
    const int top = sizeof(void*) == 8 ? 14 : 10;
    check_life<ZamsFFTSpec_C_16sc>(zamsFFTGetSize_C_16sc, zamsFFTInit_C_16sc, zamsFFTInitAlloc_C_16sc, zamsFFTGetBufSize_C_16sc, zamsFFTFree_C_16sc, 1, top);
    check_life<ZamsFFTSpec_C_16s>(zamsFFTGetSize_C_16s, zamsFFTInit_C_16s, zamsFFTInitAlloc_C_16s, zamsFFTGetBufSize_C_16s, zamsFFTFree_C_16s, 2, top);
    check_life<ZamsFFTSpec_R_16s>(zamsFFTGetSize_R_16s, zamsFFTInit_R_16s, zamsFFTInitAlloc_R_16s, zamsFFTGetBufSize_R_16s, zamsFFTFree_R_16s, 3, top);
    check_life<ZamsFFTSpec_C_32s>(zamsFFTGetSize_C_32s, zamsFFTInit_C_32s, zamsFFTInitAlloc_C_32s, zamsFFTGetBufSize_C_32s, zamsFFTFree_C_32s, 0x434D414D, top);
    check_life<ZamsFFTSpec_C_32sc>(zamsFFTGetSize_C_32sc, zamsFFTInit_C_32sc, zamsFFTInitAlloc_C_32sc, zamsFFTGetBufSize_C_32sc, zamsFFTFree_C_32sc, 0x434D414C, top);
    check_life<ZamsFFTSpec_R_32s>(zamsFFTGetSize_R_32s, zamsFFTInit_R_32s, zamsFFTInitAlloc_R_32s, zamsFFTGetBufSize_R_32s, zamsFFTFree_R_32s, 0x434D414E, top);
    check_life<ZamsFFTSpec_R_16s32s>(zamsFFTGetSize_R_16s32s, zamsFFTInit_R_16s32s, zamsFFTInitAlloc_R_16s32s, zamsFFTGetBufSize_R_16s32s, zamsFFTFree_R_16s32s, 0x434D414F, top);
    // the 16-bit kinds need the build buffer from order 1
    std::vector<uint8_t> mem(4096);
    ZamsFFTSpec_C_16sc* s = nullptr;
    EXPECT_EQ(zamsFFTInit_C_16sc(&s, 1, 1, 0, mem.data(), nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsFFTInit_C_16sc(&s, 0, 1, 0, mem.data(), nullptr), zamStatusOk);
}

// Complex kinds: every flag, small and floating paths, scale factors,
// in place, against the long double DFT rounded once.
template <class P, class Spec> void check_complex(auto init_alloc, auto free_spec, auto run, int max_order, LD amp) {
    for (int order = 0; order <= max_order; ++order)
        for (int hint : {0, 2})
            for (int flag : kFlags)
                for (int sf : {-1, 0, 3}) {
                    const size_t n = size_t(1) << order;
                    auto xr = zt::random_reals<double>(2 * n, order * 31 + flag + sf, -double(amp), double(amp));
                    std::vector<P> x(2 * n);
                    for (size_t i = 0; i < 2 * n; ++i) x[i] = P(std::lround(xr[i]));
                    std::vector<CL> xl(n);
                    for (size_t i = 0; i < n; ++i) xl[i] = CL(x[2 * i], x[2 * i + 1]);
                    Spec* s = nullptr;
                    ASSERT_EQ(init_alloc(&s, order, flag, hint), zamStatusOk);
                    for (int inv = 0; inv < 2; ++inv) {
                        const auto ref = dft(xl, inv ? 1 : -1);
                        const LD sc = scale_of(flag, order, inv, sf);
                        for (int inplace = 0; inplace < 2; ++inplace) {
                            std::vector<P> y = inplace ? x : std::vector<P>(2 * n, P(0));
                            ASSERT_EQ(run(inv, inplace, x.data(), y.data(), s, sf), zamStatusOk);
                            for (size_t k = 0; k < n; ++k) {
                                const P wr = round_sat<P>(ref[k].real() * sc), wi = round_sat<P>(ref[k].imag() * sc);
                                ASSERT_LE(std::abs(double(y[2 * k]) - double(wr)), 1.0)
                                    << "order " << order << " hint " << hint << " flag " << flag << " sf " << sf << " inv " << inv << " k " << k;
                                ASSERT_LE(std::abs(double(y[2 * k + 1]) - double(wi)), 1.0) << order << " " << k;
                            }
                        }
                    }
                    free_spec(s);
                }
}

TEST(FftInt, Complex16sc) {
    check_complex<Zam16s, ZamsFFTSpec_C_16sc>(
        zamsFFTInitAlloc_C_16sc, zamsFFTFree_C_16sc,
        [](int inv, int ip, const Zam16s* x, Zam16s* y, const ZamsFFTSpec_C_16sc* s, int sf) {
            auto* d = reinterpret_cast<Zam16sc*>(y);
            if (ip) return inv ? zamsFFTInv_CToC_16sc_ISfs(d, s, sf, nullptr) : zamsFFTFwd_CToC_16sc_ISfs(d, s, sf, nullptr);
            auto* c = reinterpret_cast<const Zam16sc*>(x);
            return inv ? zamsFFTInv_CToC_16sc_Sfs(c, d, s, sf, nullptr) : zamsFFTFwd_CToC_16sc_Sfs(c, d, s, sf, nullptr);
        },
        7, 3000);
}

// Split kinds through an interleaving adaptor.
template <class P, class Spec> auto split_runner(auto fwd, auto inv_fn, auto fwd_i, auto inv_i) {
    return [=](int inv, int ip, const P* x, P* y, const Spec* s, int sf) {
        const size_t n = 1u << *(reinterpret_cast<const int32_t*>(s) + 1);
        std::vector<P> re(n), im(n), orr(n), oi(n);
        for (size_t i = 0; i < n; ++i) { re[i] = (ip ? y : x)[2 * i]; im[i] = (ip ? y : x)[2 * i + 1]; }
        zamStatus st;
        if (ip) {
            st = inv ? inv_i(re.data(), im.data(), s, sf, nullptr) : fwd_i(re.data(), im.data(), s, sf, nullptr);
            orr = re; oi = im;
        } else {
            st = inv ? inv_fn(re.data(), im.data(), orr.data(), oi.data(), s, sf, nullptr)
                     : fwd(re.data(), im.data(), orr.data(), oi.data(), s, sf, nullptr);
        }
        for (size_t i = 0; i < n; ++i) { y[2 * i] = orr[i]; y[2 * i + 1] = oi[i]; }
        return st;
    };
}

TEST(FftInt, Complex16sAnd32s) {
    check_complex<Zam16s, ZamsFFTSpec_C_16s>(zamsFFTInitAlloc_C_16s, zamsFFTFree_C_16s,
        split_runner<Zam16s, ZamsFFTSpec_C_16s>(zamsFFTFwd_CToC_16s_Sfs, zamsFFTInv_CToC_16s_Sfs, zamsFFTFwd_CToC_16s_ISfs, zamsFFTInv_CToC_16s_ISfs), 6, 20000);
    check_complex<Zam32s, ZamsFFTSpec_C_32s>(zamsFFTInitAlloc_C_32s, zamsFFTFree_C_32s,
        split_runner<Zam32s, ZamsFFTSpec_C_32s>(zamsFFTFwd_CToC_32s_Sfs, zamsFFTInv_CToC_32s_Sfs, zamsFFTFwd_CToC_32s_ISfs, zamsFFTInv_CToC_32s_ISfs), 6, 3e8);
    check_complex<Zam32s, ZamsFFTSpec_C_32sc>(
        zamsFFTInitAlloc_C_32sc, zamsFFTFree_C_32sc,
        [](int inv, int ip, const Zam32s* x, Zam32s* y, const ZamsFFTSpec_C_32sc* s, int sf) {
            auto* d = reinterpret_cast<Zam32sc*>(y);
            if (ip) return inv ? zamsFFTInv_CToC_32sc_ISfs(d, s, sf, nullptr) : zamsFFTFwd_CToC_32sc_ISfs(d, s, sf, nullptr);
            auto* c = reinterpret_cast<const Zam32sc*>(x);
            return inv ? zamsFFTInv_CToC_32sc_Sfs(c, d, s, sf, nullptr) : zamsFFTFwd_CToC_32sc_Sfs(c, d, s, sf, nullptr);
        },
        6, 1e8);
}

// Real kinds: each format forward, and back from the rounded model spectrum.
template <class P, class Q, class Spec>
void check_real(auto init_alloc, auto free_spec, auto fwd, auto inv, int max_order, LD amp, std::vector<int> fmts) {
    for (int order = 0; order <= max_order; ++order)
        for (int hint : {1, 3})
            for (int flag : kFlags)
                for (int f : fmts) {
                    const int sf = order % 3 - 1;
                    const size_t n = size_t(1) << order;
                    auto xr = zt::random_reals<double>(n, order * 7 + flag + f, -double(amp), double(amp));
                    std::vector<P> x(n + 2);
                    std::vector<CL> xl(n);
                    for (size_t i = 0; i < n; ++i) { x[i] = P(std::lround(xr[i])); xl[i] = x[i]; }
                    const auto X = dft(xl, -1);
                    Spec* s = nullptr;
                    ASSERT_EQ(init_alloc(&s, order, flag, hint), zamStatusOk);
                    // model spectrum in the format
                    std::vector<LD> m;
                    if (f == 2) {  // CCS
                        for (size_t k = 0; k <= n / 2; ++k) { m.push_back(X[k].real()); m.push_back(k == 0 || 2 * k == n ? 0 : X[k].imag()); }
                        if (n == 1) m.resize(2);
                    } else {
                        m.push_back(X[0].real());
                        if (f == 0 && n > 1) m.push_back(X[n / 2].real());
                        for (size_t k = 1; k < n / 2; ++k) { m.push_back(X[k].real()); m.push_back(X[k].imag()); }
                        if (f == 1 && n > 1) m.push_back(X[n / 2].real());
                    }
                    const LD sc = scale_of(flag, order, false, sf);
                    std::vector<Q> y(n + 2, Q(0));
                    ASSERT_EQ(fwd(f, x.data(), y.data(), s, sf), zamStatusOk);
                    std::vector<Q> spec(m.size());
                    for (size_t i = 0; i < m.size(); ++i) {
                        const Q w = round_sat<Q>(m[i] * sc);
                        ASSERT_LE(std::abs(double(y[i]) - double(w)), 1.0) << "order " << order << " fmt " << f << " flag " << flag << " i " << i;
                        spec[i] = w;
                    }
                    // inverse of the (rounded) spectrum, against the long double inverse
                    std::vector<LD> full_r(n), full_i(n);
                    std::vector<CL> S(n);
                    for (size_t k = 0; k <= n / 2; ++k) {
                        LD re, im = 0;
                        if (f == 2) { re = spec[2 * k]; im = spec[2 * k + 1]; }
                        else if (k == 0) re = spec[0];
                        else if (2 * k == n) re = spec[f == 0 ? 1 : n - 1];
                        else { size_t p = (f == 0 ? 2 : 1) + 2 * (k - 1); re = spec[p]; im = spec[p + 1]; }
                        if (k == 0 || 2 * k == n) im = 0;
                        S[k] = CL(re, im);
                        if (k > 0) S[n - k] = std::conj(S[k]);
                    }
                    const auto back = dft(S, 1);
                    std::vector<Q> in(spec);
                    in.resize(n + 2);
                    std::vector<P> z(n + 2, P(0));
                    ASSERT_EQ(inv(f, in.data(), z.data(), s, -sf), zamStatusOk);
                    const LD isc = scale_of(flag, order, true, -sf);
                    for (size_t i = 0; i < n; ++i)
                        ASSERT_LE(std::abs(double(z[i]) - double(round_sat<P>(back[i].real() * isc))), 1.0)
                            << "inverse order " << order << " fmt " << f << " flag " << flag << " i " << i;
                    free_spec(s);
                }
}

TEST(FftInt, Real16sAnd32s) {
    auto fwd16 = [](int f, const Zam16s* x, Zam16s* y, const ZamsFFTSpec_R_16s* s, int sf) {
        return f == 0 ? zamsFFTFwd_RToPerm_16s_Sfs(x, y, s, sf, nullptr) : f == 1 ? zamsFFTFwd_RToPack_16s_Sfs(x, y, s, sf, nullptr) : zamsFFTFwd_RToCCS_16s_Sfs(x, y, s, sf, nullptr);
    };
    auto inv16 = [](int f, Zam16s* x, Zam16s* y, const ZamsFFTSpec_R_16s* s, int sf) {
        // in place for Pack, out of place otherwise
        if (f == 1) {
            std::copy(x, x + (1 << *(reinterpret_cast<const int32_t*>(s) + 1)), y);
            return zamsFFTInv_PackToR_16s_ISfs(y, s, sf, nullptr);
        }
        return f == 0 ? zamsFFTInv_PermToR_16s_Sfs(x, y, s, sf, nullptr) : zamsFFTInv_CCSToR_16s_Sfs(x, y, s, sf, nullptr);
    };
    check_real<Zam16s, Zam16s, ZamsFFTSpec_R_16s>(zamsFFTInitAlloc_R_16s, zamsFFTFree_R_16s, fwd16, inv16, 7, 1500, {0, 1, 2});
    auto fwd32 = [](int f, const Zam32s* x, Zam32s* y, const ZamsFFTSpec_R_32s* s, int sf) {
        return f == 0 ? zamsFFTFwd_RToPerm_32s_Sfs(x, y, s, sf, nullptr) : f == 1 ? zamsFFTFwd_RToPack_32s_Sfs(x, y, s, sf, nullptr) : zamsFFTFwd_RToCCS_32s_Sfs(x, y, s, sf, nullptr);
    };
    auto inv32 = [](int f, Zam32s* x, Zam32s* y, const ZamsFFTSpec_R_32s* s, int sf) {
        if (f == 2) {
            std::copy(x, x + (1 << *(reinterpret_cast<const int32_t*>(s) + 1)) + 2, y);
            return zamsFFTInv_CCSToR_32s_ISfs(y, s, sf, nullptr);
        }
        return f == 0 ? zamsFFTInv_PermToR_32s_Sfs(x, y, s, sf, nullptr) : zamsFFTInv_PackToR_32s_Sfs(x, y, s, sf, nullptr);
    };
    check_real<Zam32s, Zam32s, ZamsFFTSpec_R_32s>(zamsFFTInitAlloc_R_32s, zamsFFTFree_R_32s, fwd32, inv32, 6, 2e7, {0, 1, 2});
    auto fwdm = [](int, const Zam16s* x, Zam32s* y, const ZamsFFTSpec_R_16s32s* s, int sf) { return zamsFFTFwd_RToCCS_16s32s_Sfs(x, y, s, sf, nullptr); };
    auto invm = [](int, Zam32s* x, Zam16s* y, const ZamsFFTSpec_R_16s32s* s, int sf) { return zamsFFTInv_CCSToR_32s16s_Sfs(x, y, s, sf, nullptr); };
    check_real<Zam16s, Zam32s, ZamsFFTSpec_R_16s32s>(zamsFFTInitAlloc_R_16s32s, zamsFFTFree_R_16s32s, fwdm, invm, 6, 30000, {2});
}

TEST(FftInt, SaturationAndStatuses) {
    // a full-scale constant saturates the DC bin without scaling
    ZamsFFTSpec_C_16sc* s = nullptr;
    ASSERT_EQ(zamsFFTInitAlloc_C_16sc(&s, 5, 8, 0), zamStatusOk);
    std::vector<Zam16sc> x(32, Zam16sc{30000, -30000}), y(32, Zam16sc{7, 7});
    ASSERT_EQ(zamsFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), s, 0, nullptr), zamStatusOk);
    EXPECT_EQ(y[0].re, 32767);
    EXPECT_EQ(y[0].im, -32768);
    EXPECT_EQ(y[1].re, 0);
    ASSERT_EQ(zamsFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), s, 5, nullptr), zamStatusOk);
    EXPECT_EQ(y[0].re, 30000);
    // statuses: spec, identifier, data; nothing written
    std::fill(y.begin(), y.end(), Zam16sc{7, 7});
    EXPECT_EQ(zamsFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), nullptr, 0, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsFFTInv_CToC_16sc_Sfs(nullptr, y.data(), s, 0, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsFFTInv_CToC_32sc_Sfs(nullptr, nullptr, reinterpret_cast<const ZamsFFTSpec_C_32sc*>(s), 0, nullptr),
              zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTFwd_RToCCS_16s_Sfs(&x[0].re, &y[0].re, reinterpret_cast<const ZamsFFTSpec_R_16s*>(s), 0, nullptr),
              zamStatusContextMismatch);
    for (auto v : y) ASSERT_EQ(v.re, 7);
    zamsFFTFree_C_16sc(s);
    EXPECT_EQ(zamsFFTFwd_CToC_16sc_ISfs(x.data(), s == nullptr ? nullptr : reinterpret_cast<ZamsFFTSpec_C_16sc*>(y.data()), 0, nullptr), zamStatusContextMismatch);
}

ZAMS_DIGEST(fft_int) {
    for (int order : {0, 1, 2, 3, 4, 9}) {
        const size_t n = size_t(1) << order;
        auto x16 = zt::random_ints<Zam16s>(2 * n + 2, 60 + order);
        auto x32 = zt::random_ints<Zam32s>(2 * n + 2, 70 + order);
        const int flag = kFlags[order % 4];
        ZamsFFTSpec_C_16sc* a = nullptr;
        ZamsFFTSpec_R_16s* r = nullptr;
        ZamsFFTSpec_C_32s* c = nullptr;
        ZamsFFTSpec_R_16s32s* m = nullptr;
        d.status(zamsFFTInitAlloc_C_16sc(&a, order, flag, 0));
        d.status(zamsFFTInitAlloc_R_16s(&r, order, flag, 0));
        d.status(zamsFFTInitAlloc_C_32s(&c, order, flag, 0));
        d.status(zamsFFTInitAlloc_R_16s32s(&m, order, flag, 0));
        std::vector<Zam16s> y16(2 * n + 2);
        std::vector<Zam32s> y32(2 * n + 2), z32(2 * n + 2);
        for (int sf : {-2, 0, 4}) {
            d.status(zamsFFTFwd_CToC_16sc_Sfs((Zam16sc*)x16.data(), (Zam16sc*)y16.data(), a, sf, nullptr)); d.add(y16);
            d.status(zamsFFTFwd_RToPack_16s_Sfs(x16.data(), y16.data(), r, sf, nullptr)); d.add(y16);
            d.status(zamsFFTInv_CCSToR_16s_Sfs(x16.data(), y16.data(), r, sf, nullptr)); d.add(y16);
            d.status(zamsFFTInv_CToC_32s_Sfs(x32.data(), x32.data() + n, y32.data(), z32.data(), c, sf, nullptr)); d.add(y32); d.add(z32);
            d.status(zamsFFTFwd_RToCCS_16s32s_Sfs(x16.data(), y32.data(), m, sf, nullptr)); d.add(y32);
        }
        zamsFFTFree_C_16sc(a);
        zamsFFTFree_R_16s(r);
        zamsFFTFree_C_32s(c);
        zamsFFTFree_R_16s32s(m);
    }
}

}  // namespace
