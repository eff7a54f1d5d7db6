// Packed spectra: products in Pack and Perm order, the conjugate product,
// and expansion to full spectra, against models built from the formats.
#include "digest.h"
#include "fft_kinds.h"

namespace {

using namespace ft;

// Straight from the layout: pairs start after the reals.
template <class T> void model_mul(bool perm, const T* a, const T* b, LD* out, int len, bool conj_b) {
    const bool even = len % 2 == 0;
    std::vector<int> reals{0};
    int p0 = 1, pend = len;  // pairs in [p0, pend)
    if (even && len > 1) {
        if (perm) { reals.push_back(1); p0 = 2; }
        else { reals.push_back(len - 1); pend = len - 1; }
    }
    for (int r : reals) out[r] = LD(a[r]) * LD(b[r]);
    for (int i = p0; i + 1 < pend; i += 2) {
        CL x(a[i], a[i + 1]), y(b[i], b[i + 1]);
        CL z = conj_b ? x * std::conj(y) : x * y;
        out[i] = z.real();
        out[i + 1] = z.imag();
    }
}

template <class F> double tol(LD want) { return (sizeof(F) == 4 ? 1e-5 : 1e-14) * (1 + std::fabs(double(want))); }

// Products, and for Pack the conjugate product (in place only).
template <class F> void check_mul_float(auto mul, auto mul_i, bool perm, zamStatus (*conj_i)(const F*, F*, int) = nullptr) {
    for (int len = 1; len <= 19; ++len) {
        auto a = zt::random_reals<F>(len, len, F(-4), F(4));
        auto b = zt::random_reals<F>(len, len + 50, F(-4), F(4));
        std::vector<LD> want(len);
        model_mul(perm, a.data(), b.data(), want.data(), len, false);
        zt::Guarded<F> d(len, 4);
        ASSERT_EQ(mul(a.data(), b.data(), d.data(), len), zamStatusOk);
        for (int i = 0; i < len; ++i) EXPECT_NEAR(double(d[i]), double(want[i]), tol<F>(want[i])) << len << " " << i;
        EXPECT_TRUE(d.guards_intact());
        // either source may be the destination; the bits are the same
        std::vector<F> x = a, y = b;
        ASSERT_EQ(mul(x.data(), b.data(), x.data(), len), zamStatusOk);
        ASSERT_EQ(mul(a.data(), y.data(), y.data(), len), zamStatusOk);
        ASSERT_EQ(0, std::memcmp(x.data(), d.data(), len * sizeof(F)));
        ASSERT_EQ(0, std::memcmp(y.data(), d.data(), len * sizeof(F)));
        std::vector<F> z = b;
        ASSERT_EQ(mul_i(a.data(), z.data(), len), zamStatusOk);
        ASSERT_EQ(0, std::memcmp(z.data(), d.data(), len * sizeof(F)));
        if (!conj_i) continue;
        model_mul(perm, a.data(), b.data(), want.data(), len, true);
        z = b;
        ASSERT_EQ(conj_i(a.data(), z.data(), len), zamStatusOk);
        for (int i = 0; i < len; ++i) EXPECT_NEAR(double(z[i]), double(want[i]), tol<F>(want[i])) << "conj " << len << " " << i;
    }
}

TEST(FftPacked, MulFloat) {
    check_mul_float<float>(zamsMulPack_32f, zamsMulPack_32f_I, false, zamsMulPackConj_32f_I);
    check_mul_float<float>(zamsMulPerm_32f, zamsMulPerm_32f_I, true);
    check_mul_float<double>(zamsMulPack_64f, zamsMulPack_64f_I, false, zamsMulPackConj_64f_I);
    check_mul_float<double>(zamsMulPerm_64f, zamsMulPerm_64f_I, true);
}

TEST(FftPacked, MulPack16sScaling) {
    // Pack: reals at 0 and len-1, pair (1, 2)
    const Zam16s a[4] = {300, 200, -100, 32767}, b[4] = {-200, 50, 40, 2};
    Zam16s d[4];
    ASSERT_EQ(zamsMulPack_16s_Sfs(a, b, d, 4, 4), zamStatusOk);
    EXPECT_EQ(d[0], -3750);                      // -60000 / 16
    EXPECT_EQ(d[1], 875);                        // (200*50 + 100*40) / 16 = 14000 / 16
    EXPECT_EQ(d[2], 188);                        // (-100*50 + 200*40) / 16 = 187.5, ties to even
    EXPECT_EQ(d[3], 4096);                       // 65534 / 16 = 4095.875
    // saturation both ways, ties to even, negative factors
    const Zam16s m[3] = {-32768, -32768, -32768}, n1[3] = {-32768, 2, 3};
    Zam16s r[3];
    ASSERT_EQ(zamsMulPerm_16s_Sfs(m, n1, r, 3, 0), zamStatusOk);  // odd: real 0, pair (1, 2)
    EXPECT_EQ(r[0], 32767);
    // (-32768*2 - -32768*3, -32768*2 + -32768*3) = (32768, -163840)
    EXPECT_EQ(r[1], 32767);
    EXPECT_EQ(r[2], -32768);
    const Zam16s t1[2] = {3, 5}, t2[2] = {1, 1};
    ASSERT_EQ(zamsMulPerm_16s_Sfs(t1, t2, r, 2, 1), zamStatusOk);  // 3/2 -> 2, 5/2 -> 2
    EXPECT_EQ(r[0], 2);
    EXPECT_EQ(r[1], 2);
    ASSERT_EQ(zamsMulPerm_16s_Sfs(t1, t2, r, 2, -2), zamStatusOk);
    EXPECT_EQ(r[0], 12);
    EXPECT_EQ(r[1], 20);
    Zam16s io[2] = {1, 1};
    ASSERT_EQ(zamsMulPack_16s_ISfs(t1, io, 2, 0), zamStatusOk);
    EXPECT_EQ(io[0], 3);
    EXPECT_EQ(io[1], 5);
}

// Expansion: the full spectrum of a real signal, from each format.
template <class C, class P> void check_conj(auto pack, auto pack_i, auto perm, auto perm_i, auto ccs, auto ccs_i) {
    for (int n = 1; n <= 11; ++n) {
        // a Hermitian spectrum X of length n, integer-valued, in each format
        std::vector<CL> X(n);
        for (int k = 0; k <= n / 2; ++k) X[k] = CL(3 * k + 1, (k == 0 || 2 * k == n) ? 0 : 7 - 2 * k);
        for (int k = n / 2 + 1; k < n; ++k) X[k] = std::conj(X[n - k]);
        std::vector<P> src[3];
        for (Fmt f : {kPack, kPerm, kCcs})
            for (LD v : pack_model(f, X, n)) src[f == kPack ? 0 : f == kPerm ? 1 : 2].push_back(P(v));
        // out of place, then in place from the packed data at the front
        for (int fmt = 0; fmt < 3; ++fmt)
            for (int inplace = 0; inplace < 2; ++inplace) {
                std::vector<P> out(2 * n + 2, P(99));
                const auto& s = src[fmt];
                if (inplace) std::copy(s.begin(), s.begin() + std::min<size_t>(s.size(), 2 * n), out.begin());
                const zamStatus st = inplace ? (fmt == 0 ? pack_i : fmt == 1 ? perm_i : ccs_i)((C*)out.data(), n)
                                   : fmt == 0 ? pack(s.data(), (C*)out.data(), n)
                                   : fmt == 1 ? perm(s.data(), (C*)out.data(), n)
                                              : ccs((const C*)s.data(), (C*)out.data(), n);
                ASSERT_EQ(st, zamStatusOk);
                for (int k = 0; k < n; ++k) {
                    EXPECT_EQ(out[2 * k], P(X[k].real())) << "fmt " << fmt << " in place " << inplace << " n " << n << " k " << k;
                    EXPECT_EQ(out[2 * k + 1], P(X[k].imag())) << "fmt " << fmt << " in place " << inplace << " n " << n << " k " << k;
                }
                EXPECT_EQ(out[2 * n], P(99)) << "fmt " << fmt << " in place " << inplace << " wrote past " << n;
                EXPECT_EQ(out[2 * n + 1], P(99));
            }
    }
}

TEST(FftPacked, ConjExpansion) {
    check_conj<Zam32fc, Zam32f>(zamsConjPack_32fc, zamsConjPack_32fc_I, zamsConjPerm_32fc, zamsConjPerm_32fc_I,
                                zamsConjCcs_32fc, zamsConjCcs_32fc_I);
    check_conj<Zam64fc, Zam64f>(zamsConjPack_64fc, zamsConjPack_64fc_I, zamsConjPerm_64fc, zamsConjPerm_64fc_I,
                                zamsConjCcs_64fc, zamsConjCcs_64fc_I);
    check_conj<Zam16sc, Zam16s>(zamsConjPack_16sc, zamsConjPack_16sc_I, zamsConjPerm_16sc, zamsConjPerm_16sc_I,
                                zamsConjCcs_16sc, zamsConjCcs_16sc_I);
    // the mirrored -32768 saturates
    const Zam16sc c[2] = {{5, 0}, {1, -32768}};
    Zam16sc o[3];
    ASSERT_EQ(zamsConjCcs_16sc(c, o, 3), zamStatusOk);
    EXPECT_EQ(o[2].re, 1);
    EXPECT_EQ(o[2].im, 32767);
}

ZAMS_DIGEST(fft_packed) {
    for (int len : {1, 2, 7, 64}) {
        auto a = zt::random_reals<float>(len, 11), b = zt::random_reals<float>(len, 12);
        std::vector<float> o(len);
        d.status(zamsMulPack_32f(a.data(), b.data(), o.data(), len)); d.add(o);
        d.status(zamsMulPerm_32f(a.data(), b.data(), o.data(), len)); d.add(o);
        d.status(zamsMulPackConj_32f_I(a.data(), b.data(), len)); d.add(b);
        auto x = zt::random_ints<Zam16s>(len, 13), y = zt::random_ints<Zam16s>(len, 14);
        std::vector<Zam16s> z(len);
        for (int sf : {-3, 0, 5, 40}) {
            d.status(zamsMulPack_16s_Sfs(x.data(), y.data(), z.data(), len, sf)); d.add(z);
            d.status(zamsMulPerm_16s_Sfs(x.data(), y.data(), z.data(), len, sf)); d.add(z);
        }
        std::vector<Zam64fc> full(len);
        auto r = zt::random_reals<double>(len, 15);
        d.status(zamsConjPack_64fc(r.data(), full.data(), len)); d.add(full);
        d.status(zamsConjPerm_64fc(r.data(), full.data(), len)); d.add(full);
    }
}

}  // namespace
