// The float time passes keep w alone in their largest factor tables and
// form i w by a shuffle. The product must carry the bits of the product with
// both vectors from the table (only a zero may take the other sign: the
// table's i w is evaluated on its own, and its zero parts at the quarter
// turns need not be the negated parts of w), or the output bits of a
// transform would hang on the size of its tables.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "harness.h"
#include "transform/fft_core.h"

namespace {

using namespace zams::fft;

// Every factor w_n^e of a table (e < n), against points of every sign and
// zero part, forward and inverse: cmul_in (w and i w from the table as the
// full layout stores them) against cmul_in_half (w alone).
TEST(FftSortPasses, ProductWithHalfTableKeepsBits) {
    const float special[] = {0.0f, -0.0f, 1.0f, -1.0f, 0.70710678f, -3.5e-20f, 1e30f};
    auto x = zt::random_reals<float>(8 * 64, 7, -2.0f, 2.0f);
    for (size_t i = 0; i < 64; ++i) x[i] = special[i % 7], x[64 + i] = special[(i / 7) % 7];
    for (long long n : {16LL, 4096LL}) {
        for (long long e = 0; e < n; e += 4) {
            alignas(32) float full[16], half[8];
            for (int l = 0; l < 4; ++l) {
                const long long el = e + l;
                put_w(full + 2 * l, 2 * el, n);
                put_w(full + 8 + 2 * l, (2 * el - n / 2 + 2 * n) % (2 * n), n);
                half[2 * l] = full[2 * l], half[2 * l + 1] = full[2 * l + 1];
            }
            for (size_t p = 0; p + 8 <= x.size(); p += 8) {
                alignas(32) float a[2][8], b[2][8];
                _mm256_store_ps(a[0], cmul_in<false>(x.data() + p, full));
                _mm256_store_ps(b[0], cmul_in_half<false>(x.data() + p, half));
                _mm256_store_ps(a[1], cmul_in<true>(x.data() + p, full));
                _mm256_store_ps(b[1], cmul_in_half<true>(x.data() + p, half));
                for (int inv = 0; inv < 2; ++inv)
                    for (int l = 0; l < 8; ++l) {
                        const bool same = a[inv][l] == 0.0f ? b[inv][l] == 0.0f
                                                           : std::memcmp(&a[inv][l], &b[inv][l], sizeof(float)) == 0;
                        ASSERT_TRUE(same) << "n " << n << " e " << e + l / 2 << " point " << p + l << " inverse " << inv
                                          << ": " << a[inv][l] << " against " << b[inv][l];
                    }
            }
        }
    }
}

// The transforms by real products (the last passes of double orders 9
// to 11), every size the recursion meets, against the sum itself in long
// double, forward and inverse: each lane its own sequence, so a swapped lane
// or part, a wrong bin of the split or a factor of the wrong sign shows.
template <int N> void check_real_product_dft() {
    constexpr int W = 2;
    const auto x = zt::random_reals<double>(2 * W * N, N, -1.0, 1.0);
    const double* rt = small_tabs<double>().root[ilog2(N)];
    for (int inv = 0; inv < 2; ++inv) {
        alignas(32) double y[2 * W * N];
        __m256d c[N];
        const auto ld = [&x](int n) { return _mm256_loadu_pd(x.data() + 2 * W * n); };
        if (inv) rvdft_ld<double, true, N>(ld, c, rt);
        else rvdft_ld<double, false, N>(ld, c, rt);
        for (int k = 0; k < N; ++k) _mm256_store_pd(y + 2 * W * k, c[k]);
        for (int l = 0; l < W; ++l)
            for (int k = 0; k < N; ++k) {
                long double re = 0, im = 0;
                for (int n = 0; n < N; ++n) {
                    const long double a = (inv ? 2 : -2) * 3.14159265358979323846264338327950288L * ((n * k) % N) / N;
                    const double xr = x[2 * (W * n + l)], xi = x[2 * (W * n + l) + 1];
                    re += xr * cosl(a) - xi * sinl(a);
                    im += xr * sinl(a) + xi * cosl(a);
                }
                const double tol = 1e-15 * N;
                ASSERT_NEAR(y[2 * (W * k + l)], double(re), tol) << "N " << N << " bin " << k << " lane " << l << " inverse " << inv;
                ASSERT_NEAR(y[2 * (W * k + l) + 1], double(im), tol) << "N " << N << " bin " << k << " lane " << l << " inverse " << inv;
            }
    }
}

TEST(FftSortPasses, RealProductTransformMatchesSum) {
    check_real_product_dft<8>();
    check_real_product_dft<16>();
    check_real_product_dft<32>();
    check_real_product_dft<64>();
}

}  // namespace
