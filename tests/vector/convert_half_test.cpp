// Half precision, exhaustively over the 65,536 patterns, on the hardware
// path and with it masked off, against a model that works on the values
// (frexp, ldexp and rounding in double precision) rather than on the bits.
#include <cfloat>
#include <cmath>
#include <limits>

#include "digest.h"
#include "convert_util.h"
#include "zamcore.h"

namespace {

// Masks the F16C bit for a scope, so that the software path runs.
class SoftwareOnly {
public:
    SoftwareOnly() : old_(zamSetFeatureMask(~ZAM_CPU_F16C)) {}
    ~SoftwareOnly() { zamSetFeatureMask(old_); }

private:
    uint64_t old_;
};

// Runs body() on the hardware path (where the machine has one) and on the software path.
template <class F> void both_paths(F body) {
    {
        SCOPED_TRACE("hardware path");
        body();
    }
    SoftwareOnly soft;
    ASSERT_EQ(ownGetFeature() & ZAM_CPU_F16C, 0u);
    SCOPED_TRACE("software path");
    body();
}

using ct::ffrom;
uint32_t fbits(float f) { return zt::bits(f); }

// The value of a half pattern; NaNs come out quiet with their payload.
uint32_t half_to_float(uint16_t h) {
    uint32_t sign = uint32_t(h >> 15) << 31;
    int e = (h >> 10) & 31, f = h & 0x3FF;
    if (e == 31) return sign | (f ? 0x7FC00000u | uint32_t(f) << 13 : 0x7F800000u);
    double v = e ? std::ldexp(1024.0 + f, e - 25) : std::ldexp(double(f), -24);
    return sign | fbits(float(v));
}

// IEEE conversion to half: round |x| on the grid of its binade (or of the
// sub-normals), then encode. Overflow: infinity to nearest, 65504 toward zero.
uint16_t float_to_half(float x, bool even) {
    uint32_t b = fbits(x);
    uint16_t sign = uint16_t(b >> 16 & 0x8000);
    if (std::isnan(x)) return uint16_t(sign | 0x7E00 | (b >> 13 & 0x3FF));
    double a = std::fabs(double(x));
    if (std::isinf(x)) return sign | 0x7C00;
    if (a == 0) return sign;
    int e;
    std::frexp(a, &e);                      // a in [2^(e-1), 2^e)
    int q = std::max(e - 11, -24);          // the grid: 11 significant bits, no finer than 2^-24
    double n = std::ldexp(a, -q);
    n = even ? std::rint(n) : std::trunc(n);
    double v = std::ldexp(n, q);
    if (v >= 65536.0) return sign | (even ? 0x7C00 : 0x7BFF);
    if (v < std::ldexp(1.0, -14)) return uint16_t(sign | int(n));  // sub-normal (or 0)
    std::frexp(v, &e);
    int m = int(std::ldexp(v, 11 - e)) - 1024;
    return uint16_t(sign | (e - 1 + 15) << 10 | m);
}

// Half to 16-bit integer times 2^-sf: the significand shifted by the net
// amount, rounded on the magnitude; more than 4 bits to the left saturates.
Zam16s half_to_16s(uint16_t h, int mode, int sf) {
    bool neg = h >> 15;
    int e = (h >> 10) & 31, f = h & 0x3FF;
    Zam16s bound = neg ? -32768 : 32767;
    if (e == 31) return f ? 0 : bound;
    int s = e ? 1024 + f : f;
    if (s == 0) return 0;
    int64_t shift = int64_t(e ? e : 1) - 25 - sf;
    if (shift > 4) return bound;
    double v = std::ldexp(double(s), int(std::max<int64_t>(shift, -100)));
    v = mode == 1 ? std::rint(v) : std::trunc(v);
    if (v >= 32768) return bound;
    return Zam16s(neg ? -v : v);
}

std::vector<Zam16f> all_halves() {
    std::vector<Zam16f> h(65536);
    for (uint32_t i = 0; i < 65536; ++i) h[i].bits = uint16_t(i);
    return h;
}

// Floats around every point where the conversion to half changes: each half
// value, the midpoints between neighbours, one single ulp either side; then
// the boundary classes and a spread of random patterns.
std::vector<float> boundary_floats() {
    std::vector<float> v;
    for (uint32_t h = 0; h < 0x7C00; ++h) {
        float lo = ffrom(half_to_float(uint16_t(h)));
        float hi = h == 0x7BFF ? 65536.0f : ffrom(half_to_float(uint16_t(h + 1)));
        float mid = (lo + hi) / 2;  // exact: one more bit than a half has
        for (float x : {lo, mid, std::nextafter(mid, 0.0f), std::nextafter(mid, hi), std::nextafter(hi, 0.0f)}) {
            v.push_back(x);
            v.push_back(-x);
        }
    }
    const uint32_t special[] = {0x7F800000, 0xFF800000, 0x7F800001, 0x7FC00000, 0x7FFFFFFF, 0xFF812345, 0x7FBFFFFF,
                                0x7F802000, 0xFFC01FFF, 0x00000001, 0x80000001, 0x007FFFFF, 0x33000000, 0x33000001,
                                0x32FFFFFF, 0x33800000, 0x477FE000, 0x477FEFFF, 0x477FF000, 0x477FFFFF, 0x47800000,
                                0x7F7FFFFF, 0xFF7FFFFF, 0x38800000, 0x387FFFFF, 0x387FF000};
    for (uint32_t b : special) v.push_back(ffrom(b));
    std::mt19937 g(99);
    for (int i = 0; i < 65536; ++i) v.push_back(ffrom(uint32_t(g())));
    return v;
}

// Every half to single and back; singles around every rounding boundary.
TEST(ConvertHalf, EveryPatternBothWaysAndBoundaries) {
    auto h = all_halves();
    std::vector<Zam32f> x(65536);
    for (uint32_t i = 0; i < 65536; ++i) x[i] = ffrom(half_to_float(uint16_t(i)));
    both_paths([&] {
        std::vector<Zam32f> y(65536);
        ASSERT_EQ(zamsConvert_16f32f(h.data(), y.data(), 65536), zamStatusOk);
        ASSERT_EQ(std::memcmp(x.data(), y.data(), 65536 * 4), 0);
    });
    auto b = boundary_floats();
    x.insert(x.end(), b.begin(), b.end());
    const int n = int(x.size());
    std::vector<uint16_t> want_even(n), want_zero(n);
    for (int i = 0; i < n; ++i) want_even[i] = float_to_half(x[i], true), want_zero[i] = float_to_half(x[i], false);
    both_paths([&] {
        std::vector<Zam16f> y(n);
        for (int mode : {1, 0, 3, -7}) {
            ASSERT_EQ(zamsConvert_32f16f(x.data(), y.data(), n, zamRoundMode(mode)), zamStatusOk);
            auto& want = mode == 1 ? want_even : want_zero;
            for (int i = 0; i < n; ++i)
                ASSERT_EQ(y[i].bits, want[i]) << "mode " << mode << " x " << std::hexfloat << x[i] << " bits " << std::hex << fbits(x[i]);
        }
        // Every finite half comes back unchanged; a NaN comes back quiet.
        ASSERT_EQ(zamsConvert_32f16f(x.data(), y.data(), 65536, zamRoundNearestEven), zamStatusOk);
        for (uint32_t i = 0; i < 65536; ++i) {
            bool nan = (i & 0x7C00) == 0x7C00 && (i & 0x3FF);
            ASSERT_EQ(y[i].bits, nan ? i | 0x200 : i) << std::hex << i;
        }
    });
}

TEST(ConvertHalf, From16sEveryValue) {
    std::vector<Zam16s> x(65536);
    for (int i = 0; i < 65536; ++i) x[i] = Zam16s(i - 32768);
    both_paths([&] {
        std::vector<Zam16f> y(65536);
        for (int mode : {1, 0, 9}) {
            ASSERT_EQ(zamsConvert_16s16f(x.data(), y.data(), 65536, zamRoundMode(mode)), zamStatusOk);
            for (int i = 0; i < 65536; ++i) ASSERT_EQ(y[i].bits, float_to_half(float(x[i]), mode == 1)) << x[i];
        }
    });
}

TEST(ConvertHalf, To16sEveryPatternAndFactor) {
    auto h = all_halves();
    const int factors[] = {INT32_MIN, -41, -29, -28, -5, 0, 3, 11, 13, 25, 40, 41, INT32_MAX};
    // The models first, once for both paths.
    std::vector<std::vector<Zam16s>> want;
    for (int mode : {1, 0})
        for (int sf : factors) {
            std::vector<Zam16s> w(65536);
            for (uint32_t i = 0; i < 65536; ++i) w[i] = half_to_16s(uint16_t(i), mode, sf);
            want.push_back(std::move(w));
        }
    both_paths([&] {
        std::vector<Zam16s> y(65536);
        size_t k = 0;
        for (int mode : {1, 0})
            for (int sf : factors) {
                const auto& w = want[k++];
                for (int m : {mode, mode == 0 ? 4 : 1}) {  // any mode other than 1 and 2 truncates
                    ASSERT_EQ(zamsConvert_16f16s_Sfs(h.data(), y.data(), 65536, zamRoundMode(m), sf), zamStatusOk);
                    for (uint32_t i = 0; i < 65536; ++i)
                        ASSERT_EQ(y[i], w[i]) << "mode " << m << " sf " << sf << " half " << std::hex << i;
                }
            }
    });
}

TEST(ConvertHalf, ModeTwoRefusedAfterPointersAndLength) {
    Zam32f x[2] = {1, 2};
    Zam16s s[2] = {1, 2};
    Zam16f h[2] = {{0x3C00}, {0x4000}};
    Zam16f y[2] = {{7}, {7}};
    Zam16s z[2] = {7, 7};
    EXPECT_EQ(zamsConvert_32f16f(x, y, 2, zamRoundHalfAway), zamStatusBadRoundMode);
    EXPECT_EQ(zamsConvert_16s16f(s, y, 2, zamRoundHalfAway), zamStatusBadRoundMode);
    EXPECT_EQ(zamsConvert_16f16s_Sfs(h, z, 2, zamRoundHalfAway, 0), zamStatusBadRoundMode);
    EXPECT_EQ(zamsConvert_32f16f(x, y, 0, zamRoundHalfAway), zamStatusBadLength);
    EXPECT_EQ(zamsConvert_16f16s_Sfs(h, z, -1, zamRoundHalfAway, 0), zamStatusBadLength);
    EXPECT_EQ(zamsConvert_16s16f(nullptr, y, 0, zamRoundHalfAway), zamStatusNullPointer);
    EXPECT_EQ(y[0].bits, 7);
    EXPECT_EQ(y[1].bits, 7);
    EXPECT_EQ(z[0], 7);
    EXPECT_EQ(x[0], 1);
}

TEST(ConvertHalf, EveryLengthAndAlignment) {
    std::vector<Zam16f> h(100);
    std::mt19937 g(5);
    for (auto& v : h) v.bits = uint16_t(g());
    std::vector<Zam32f> f(100);
    for (int i = 0; i < 100; ++i) f[i] = ffrom(half_to_float(h[i].bits)) * (1.0f + 0x1p-13f);
    auto s = zt::random_ints<Zam16s>(100, 6);
    zt::SweepOptions o{.max_len = 100};
    both_paths([&] {
        zt::sweep_unary<Zam16f, Zam32f>(zamsConvert_16f32f, [](Zam16f v) { return ffrom(half_to_float(v.bits)); }, h, o);
        zt::sweep_unary<Zam32f, Zam16f>([](const Zam32f* a, Zam16f* b, int n) { return zamsConvert_32f16f(a, b, n, zamRoundNearestEven); },
                                        [](Zam32f v) { return Zam16f{float_to_half(v, true)}; }, f, o);
        zt::sweep_unary<Zam16s, Zam16f>([](const Zam16s* a, Zam16f* b, int n) { return zamsConvert_16s16f(a, b, n, zamRoundTowardZero); },
                                        [](Zam16s v) { return Zam16f{float_to_half(float(v), false)}; }, s, o);
        zt::sweep_unary<Zam16f, Zam16s>([](const Zam16f* a, Zam16s* b, int n) { return zamsConvert_16f16s_Sfs(a, b, n, zamRoundNearestEven, -3); },
                                        [](Zam16f v) { return half_to_16s(v.bits, 1, -3); }, h, o);
    });
}

ZAMS_DIGEST(convert_half) {
    auto h = all_halves();
    std::vector<Zam32f> f(65536);
    std::vector<Zam16f> y(65536);
    std::vector<Zam16s> s(65536);
    d.status(zamsConvert_16f32f(h.data(), f.data(), 65536));
    d.add(f);
    for (auto& v : f) v *= 1.0009765625f;  // off the half grid
    for (int mode : {0, 1, 2, 3}) {
        d.status(zamsConvert_32f16f(f.data(), y.data(), 65536, zamRoundMode(mode)));
        d.add(y);
        d.status(zamsConvert_16s16f(reinterpret_cast<Zam16s*>(h.data()), y.data(), 65536, zamRoundMode(mode)));
        d.add(y);
        for (int sf : {-30, -4, 0, 7, 20}) {
            d.status(zamsConvert_16f16s_Sfs(h.data(), s.data(), 65536, zamRoundMode(mode), sf));
            d.add(s);
        }
    }
}

}  // namespace
