// DCT of 2^18 points, the first length whose real FFT takes its
// recombination factors as products of a coarse and a fine table: chosen
// bins of the forward and samples of the inverse against long double sums.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

constexpr int kN = 1 << 18;

// s_k sum over n of x[n] cos(pi (2n+1) k / 2N) (forward) or s_n y[n]
// cos(pi (2k+1) n / 2N) summed over n (inverse, bin k of the result).
template <class F> long double model(const std::vector<F>& x, int k, bool inv) {
    const long double pi = 3.141592653589793238462643383279502884L;
    long double s = 0;
    for (int n = 0; n < kN; ++n) {
        const long long a = inv ? (2LL * k + 1) * n : (2LL * n + 1) * k;
        const long double c = std::cos(pi * (long double)(a % (4LL * kN)) / (2.0L * kN));
        const long double w = inv ? (n ? std::sqrt(2.0L / kN) : 1 / std::sqrt((long double)kN)) : 1;
        s += w * x[size_t(n)] * c;
    }
    return inv ? s : s * (k ? std::sqrt(2.0L / kN) : 1 / std::sqrt((long double)kN));
}

template <class F, class FS, class IS>
void check(zamStatus (*falloc)(FS**, int, int), zamStatus (*ialloc)(IS**, int, int),
           zamStatus (*fwd)(const F*, F*, const FS*, Zam8u*), zamStatus (*inv)(const F*, F*, const IS*, Zam8u*),
           zamStatus (*ffree)(FS*), zamStatus (*ifree)(IS*), long double tol) {
    const auto x = zt::random_reals<F>(size_t(kN), 18u, F(-1), F(1));
    std::vector<F> y(static_cast<size_t>(kN)), z(static_cast<size_t>(kN));
    FS* f = nullptr;
    IS* i = nullptr;
    ASSERT_EQ(falloc(&f, kN, 0), zamStatusOk);
    ASSERT_EQ(ialloc(&i, kN, 0), zamStatusOk);
    ASSERT_EQ(fwd(x.data(), y.data(), f, nullptr), zamStatusOk);
    ASSERT_EQ(inv(x.data(), z.data(), i, nullptr), zamStatusOk);
    // both ends, both sides of N/4 and N/2 (the pairs' meeting points), and spread bins
    for (int k : {0, 1, 2, 7, 2047, 2048, 2049, kN / 4 - 1, kN / 4, kN / 4 + 1, kN / 2 - 1, kN / 2, kN / 2 + 1,
                  100003, 3 * kN / 4, kN - 2, kN - 1}) {
        EXPECT_NEAR(double(y[size_t(k)]), double(model(x, k, false)), double(tol)) << "forward bin " << k;
        EXPECT_NEAR(double(z[size_t(k)]), double(model(x, k, true)), double(tol)) << "inverse sample " << k;
    }
    EXPECT_EQ(ffree(f), zamStatusOk);
    EXPECT_EQ(ifree(i), zamStatusOk);
}

TEST(DctLong, ChosenBinsAgainstTheSums) {
    // outputs are about 0.6 in size; an error of the rounding's order is below 1e-5 (float)
    check<float>(zamsDCTFwdInitAlloc_32f, zamsDCTInvInitAlloc_32f, zamsDCTFwd_32f, zamsDCTInv_32f,
                 zamsDCTFwdFree_32f, zamsDCTInvFree_32f, 2e-5L);
    check<double>(zamsDCTFwdInitAlloc_64f, zamsDCTInvInitAlloc_64f, zamsDCTFwd_64f, zamsDCTInv_64f,
                  zamsDCTFwdFree_64f, zamsDCTInvFree_64f, 1e-12L);
}

}  // namespace
