// Companding against the segment and quantisation arithmetic of the two laws
// as the telephony standard states it (written here bit by bit, apart from
// the library's tables and vector code): every code decoded, every 16-bit
// value encoded, floats through the stated clamp and rounding.
#include <cmath>
#include <limits>

#include "digest.h"
#include "sweep.h"

namespace {

// A-law: 12-bit magnitude (ones' complement for negative values), segment by
// repeated halving, even bits inverted.
int alaw_encode(int x) {
    int ix = x < 0 ? (~x) >> 4 : x >> 4;
    if (ix > 15) {
        int seg = 1;
        while (ix > 16 + 15) {
            ix >>= 1;
            ++seg;
        }
        ix = ix - 16 + (seg << 4);
    }
    if (x >= 0) ix |= 0x80;
    return ix ^ 0x55;
}
int alaw_decode(int c) {
    int ix = (c ^ 0x55) & 0x7F, seg = ix >> 4, mant = ix & 15;
    if (seg > 0) mant += 16;
    mant = (mant << 4) + 8;
    if (seg > 1) mant <<= seg - 1;
    return c > 127 ? mant : -mant;
}
// mu-law: magnitude over 4 biased by 33, segment number from the bits above 6.
int mulaw_encode(int x) {
    int a = (x < 0 ? (~x) >> 2 : x >> 2) + 33;
    if (a > 0x1FFF) a = 0x1FFF;
    int seg = 1;
    for (int i = a >> 6; i; i >>= 1) ++seg;
    int code = (8 - seg) << 4 | (15 - ((a >> seg) & 15));
    return x >= 0 ? code | 0x80 : code;
}
int mulaw_decode(int c) {
    const int m = ~c, e = (m >> 4) & 7, q = m & 15, step = 4 << (e + 1);
    const int v = (0x80 << e) + step * q + step / 2 - 4 * 33;
    return c < 0x80 ? -v : v;
}

int lin_of(float x) {
    if (std::isnan(x)) return 0;
    return int(std::floor(std::fmin(std::fmax(x, -32768.0f), 32767.0f)));
}

std::vector<Zam8u> code_pool() {
    std::vector<Zam8u> v(512);
    for (size_t i = 0; i < v.size(); ++i) v[i] = Zam8u(i * 167 + (i >> 8));
    return v;
}
std::vector<Zam16s> lin_pool() {
    auto v = zt::random_ints<Zam16s>(400, 11);
    for (size_t i = 0; i < 64; ++i) v[i * 5] = Zam16s(int(i) * 7 - 200);  // the small segments
    return v;
}
std::vector<Zam32f> float_pool() {
    auto v = zt::random_reals<Zam32f>(400, 12, -40000.0f, 40000.0f);
    const float special[] = {NAN, -NAN, INFINITY, -INFINITY, -0.0f, 0.0f, -0.5f, 0.5f, 15.99f, 16.0f, -16.0f,
                             -16.5f, -1.0f, -1e-30f, 32767.9f, -32768.5f, 3.5f, -3.5f, 4.0f, -4.25f};
    for (size_t i = 0; i < std::size(special); ++i) v[i * 17 % v.size()] = special[i];
    for (size_t i = 3; i < v.size(); i += 4) v[i] = std::ldexp(v[i], -6);  // small values too
    return v;
}

TEST(Companding, DecodeEveryCodeAnyLengthAndAlignment) {
    const auto codes = code_pool();
    zt::sweep_unary<Zam8u, Zam16s>(zamsALawToLin_8u16s, [](Zam8u c) { return Zam16s(alaw_decode(c)); }, codes);
    zt::sweep_unary<Zam8u, Zam16s>(zamsMuLawToLin_8u16s, [](Zam8u c) { return Zam16s(mulaw_decode(c)); }, codes);
    zt::SweepOptions o{300, false, 3};
    zt::sweep_unary<Zam8u, Zam32f>(zamsALawToLin_8u32f, [](Zam8u c) { return Zam32f(alaw_decode(c)); }, codes, o);
    zt::sweep_unary<Zam8u, Zam32f>(zamsMuLawToLin_8u32f, [](Zam8u c) { return Zam32f(mulaw_decode(c)); }, codes, o);
}

TEST(Companding, EncodeEverySixteenBitValue) {
    std::vector<Zam16s> all(65536);
    for (int i = 0; i < 65536; ++i) all[i] = Zam16s(i - 32768);
    std::vector<Zam8u> a(65536), m(65536);
    ASSERT_EQ(zamsLinToALaw_16s8u(all.data(), a.data(), 65536), zamStatusOk);
    ASSERT_EQ(zamsLinToMuLaw_16s8u(all.data(), m.data(), 65536), zamStatusOk);
    for (int i = 0; i < 65536; ++i) {
        ASSERT_EQ(a[i], alaw_encode(all[i])) << all[i];
        ASSERT_EQ(m[i], mulaw_encode(all[i])) << all[i];
    }
}

TEST(Companding, EncodeAnyLengthAndAlignment) {
    const auto lin = lin_pool();
    zt::sweep_unary<Zam16s, Zam8u>(zamsLinToALaw_16s8u, [](Zam16s x) { return Zam8u(alaw_encode(x)); }, lin);
    zt::sweep_unary<Zam16s, Zam8u>(zamsLinToMuLaw_16s8u, [](Zam16s x) { return Zam8u(mulaw_encode(x)); }, lin);
    const auto fl = float_pool();
    zt::sweep_unary<Zam32f, Zam8u>(zamsLinToALaw_32f8u, [](Zam32f x) { return Zam8u(alaw_encode(lin_of(x))); }, fl);
    zt::sweep_unary<Zam32f, Zam8u>(zamsLinToMuLaw_32f8u, [](Zam32f x) { return Zam8u(mulaw_encode(lin_of(x))); }, fl);
}

TEST(Companding, BetweenTheLaws) {
    const auto codes = code_pool();
    zt::sweep_unary<Zam8u, Zam8u>(zamsALawToMuLaw_8u, [](Zam8u c) { return Zam8u(mulaw_encode(alaw_decode(c))); },
                                  codes);
    zt::sweep_unary<Zam8u, Zam8u>(zamsMuLawToALaw_8u, [](Zam8u c) { return Zam8u(alaw_encode(mulaw_decode(c))); },
                                  codes);
}

ZAMS_DIGEST(companding) {
    const auto codes = code_pool();
    const auto lin = lin_pool();
    const auto fl = float_pool();
    const int n = 300;
    std::vector<Zam16s> s(n);
    std::vector<Zam32f> f(n);
    std::vector<Zam8u> c(n);
    d.status(zamsALawToLin_8u16s(codes.data(), s.data(), n)), d.add(s);
    d.status(zamsMuLawToLin_8u16s(codes.data(), s.data(), n)), d.add(s);
    d.status(zamsALawToLin_8u32f(codes.data(), f.data(), n)), d.add(f);
    d.status(zamsMuLawToLin_8u32f(codes.data(), f.data(), n)), d.add(f);
    d.status(zamsLinToALaw_16s8u(lin.data(), c.data(), n)), d.add(c);
    d.status(zamsLinToMuLaw_16s8u(lin.data(), c.data(), n)), d.add(c);
    d.status(zamsLinToALaw_32f8u(fl.data(), c.data(), n)), d.add(c);
    d.status(zamsLinToMuLaw_32f8u(fl.data(), c.data(), n)), d.add(c);
    d.status(zamsALawToMuLaw_8u(codes.data(), c.data(), n)), d.add(c);
    d.status(zamsMuLawToALaw_8u(codes.data(), c.data(), n)), d.add(c);
}

}  // namespace
