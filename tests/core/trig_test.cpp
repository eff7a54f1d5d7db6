// The library's own sin(pi x) and cos(pi x), which every table is built from.
#include <immintrin.h>

#include <cmath>
#include <utility>

#include "common/trig.h"
#include "digest.h"
#include "harness.h"

namespace {

double ulps(double got, long double want) {
    double w = static_cast<double>(want);
    double u = std::nextafter(std::fabs(w), INFINITY) - std::fabs(w);
    return static_cast<double>(std::fabs(static_cast<long double>(got) - want) / u);
}

TEST(Trig, RatioFormWithinTwoUlp) {
    const long double pi = 3.141592653589793238462643383279502884L;
    double worst = 0;
    for (long long n : {3LL, 8LL, 12LL, 64LL, 1000LL, 4096LL, 1LL << 20, 3000000019LL}) {
        long long step = n > 5000 ? 97 + n / 8192 : 1;
        for (long long k = -n; k <= 2 * n; k += step) {
            double s, c;
            zams::sincospi_ratio(k, n, &s, &c);
            if ((n & (n - 1)) == 0) {  // k / n exact: the double form agrees
                double s2, c2;
                zams::sincospi(double(k) / n, &s2, &c2);
                EXPECT_EQ(zt::bits(s), zt::bits(s2));
                EXPECT_EQ(zt::bits(c), zt::bits(c2));
            }
            // Reference: reduce k/n = q/2 + r exactly in integers, so the
            // long double argument pi r carries no reduction error.
            long long q = static_cast<long long>(std::llround(2.0L * k / n));
            long double r = static_cast<long double>(2LL * k - q * n) / (2.0L * n);
            long double sr = std::sin(pi * r), cr = std::cos(pi * r);
            const long double rot[4][2] = {{sr, cr}, {cr, -sr}, {-sr, -cr}, {-cr, sr}};
            long double ws = rot[((q % 4) + 4) % 4][0], wc = rot[((q % 4) + 4) % 4][1];
            for (auto [got, want] : {std::pair{s, ws}, std::pair{c, wc}}) {
                if (want == 0) EXPECT_EQ(zt::bits(got), zt::bits(0.0)) << k << "/" << n;
                else worst = std::max(worst, ulps(got, want));
            }
        }
    }
    EXPECT_LE(worst, 2.0);
}

// The four-lane cosine gives the scalar form's bits in every lane: negative
// numerators, every quarter (zeros included), and operands beyond 32 bits.
TEST(Trig, FourLaneCosineMatchesScalar) {
    for (long long n : {3LL, 8LL, 1000LL, 4095LL, 3000000019LL}) {
        const long long step = n > 5000 ? n / 1013 : 1;
        for (long long k = -2 * n; k <= 3 * n; k += 4 * step) {
            const long long ks[4] = {k, k + step, k + 2 * step, k + 3 * step};
            alignas(32) double got[4];
            _mm256_store_pd(got, zams::cospi_ratio4(ks, n));
            for (int i = 0; i < 4; ++i) {
                double s, c;
                zams::sincospi_ratio(ks[i], n, &s, &c);
                ASSERT_EQ(zt::bits(got[i]), zt::bits(c)) << ks[i] << "/" << n;
            }
        }
    }
}

TEST(Trig, ExactAtQuarterTurns) {
    for (int k = -8; k <= 8; ++k) {
        double s, c;
        zams::sincospi(k * 0.5, &s, &c);
        const double want_s[] = {0, 1, 0, -1}, want_c[] = {1, 0, -1, 0};
        int q = ((k % 4) + 4) % 4;
        EXPECT_EQ(zt::bits(s), zt::bits(want_s[q])) << k;
        EXPECT_EQ(zt::bits(c), zt::bits(want_c[q])) << k;
    }
}

ZAMS_DIGEST(sincospi) {
    for (int k = 0; k < 4096; ++k) {
        double s, c;
        zams::sincospi(k / 2048.0 - 0.37, &s, &c);
        d.add(&s, 1);
        d.add(&c, 1);
    }
}

}  // namespace
