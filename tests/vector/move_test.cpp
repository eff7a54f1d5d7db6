// Copy, Move, Set, Zero, Flip, SwapBytes and the parts of complex vectors.
#include <algorithm>
#include <cstring>
#include <functional>

#include "digest.h"
#include "sweep.h"

namespace {

// Every function of the family: a null pointer wins over a bad length, then
// a length below 1 is refused, and nothing is written either way.
TEST(Move, CheckOrderAcrossTheFamily) {
    alignas(16) uint8_t a[64], b[64], c[64];
    std::memset(b, 0x77, sizeof b);
    std::memset(c, 0x77, sizeof c);
    using Call = std::function<zamStatus(const void*, void*, int)>;
    const std::vector<std::pair<const char*, Call>> calls = {
        {"Copy_8u", [](const void* s, void* d, int n) { return zamsCopy_8u((const Zam8u*)s, (Zam8u*)d, n); }},
        {"Copy_64fc", [](const void* s, void* d, int n) { return zamsCopy_64fc((const Zam64fc*)s, (Zam64fc*)d, n); }},
        {"Copy_1u", [](const void* s, void* d, int n) { return zamsCopy_1u((const Zam8u*)s, 0, (Zam8u*)d, 0, n); }},
        {"Move_16s", [](const void* s, void* d, int n) { return zamsMove_16s((const Zam16s*)s, (Zam16s*)d, n); }},
        {"Set_32f", [](const void* s, void* d, int n) { return s ? zamsSet_32f(1.f, (Zam32f*)d, n) : zamStatusNullPointer; }},
        {"Zero_16s", [](const void* s, void* d, int n) { return s ? zamsZero_16s((Zam16s*)d, n) : zamStatusNullPointer; }},
        {"Flip_32fc", [](const void* s, void* d, int n) { return zamsFlip_32fc((const Zam32fc*)s, (Zam32fc*)d, n); }},
        {"Flip_8u_I", [](const void* s, void* d, int n) { return s ? zamsFlip_8u_I((Zam8u*)d, n) : zamStatusNullPointer; }},
        {"SwapBytes_24u", [](const void* s, void* d, int n) { return zamsSwapBytes_24u((const Zam8u*)s, (Zam8u*)d, n); }},
        {"Real_16sc", [](const void* s, void* d, int n) { return zamsReal_16sc((const Zam16sc*)s, (Zam16s*)d, n); }},
        {"CplxToReal_32fc", [&c](const void* s, void* d, int n) { return zamsCplxToReal_32fc((const Zam32fc*)s, (Zam32f*)d, (Zam32f*)c, n); }},
        {"RealToCplx_64f", [&c](const void* s, void* d, int n) { return zamsRealToCplx_64f((const Zam64f*)s, (const Zam64f*)c, (Zam64fc*)d, n); }},
        {"Conj_16sc", [](const void* s, void* d, int n) { return zamsConj_16sc((const Zam16sc*)s, (Zam16sc*)d, n); }},
        {"ConjFlip_64fc", [](const void* s, void* d, int n) { return zamsConjFlip_64fc((const Zam64fc*)s, (Zam64fc*)d, n); }},
    };
    for (auto& [name, call] : calls) {
        EXPECT_EQ(call(a, nullptr, 0), zamStatusNullPointer) << name;
        EXPECT_EQ(call(nullptr, b, -1), zamStatusNullPointer) << name;
        EXPECT_EQ(call(a, b, 0), zamStatusBadLength) << name;
        EXPECT_EQ(call(a, b, -7), zamStatusBadLength) << name;
    }
    EXPECT_EQ(zamsZero_16s(nullptr, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsZero_16s(reinterpret_cast<Zam16s*>(b), 0), zamStatusBadLength);
    EXPECT_EQ(zamsCplxToReal_16sc(reinterpret_cast<Zam16sc*>(a), reinterpret_cast<Zam16s*>(b), nullptr, 1),
              zamStatusNullPointer);
    for (uint8_t x : b) ASSERT_EQ(x, 0x77);
    for (uint8_t x : c) ASSERT_EQ(x, 0x77);
}

TEST(Move, CopyEveryLengthAndAlignment) {
    auto pool = zt::random_ints<Zam16s>(300, 1);
    zt::sweep_unary<Zam16s, Zam16s>(zamsCopy_16s, [](Zam16s x) { return x; }, pool, {.in_place = false});
    auto poolc = zt::random_reals<Zam64f>(600, 2);
    std::vector<Zam64fc> c(300);
    std::memcpy(c.data(), poolc.data(), 300 * sizeof(Zam64fc));
    zt::sweep_unary<Zam64fc, Zam64fc>(zamsCopy_64fc, [](Zam64fc x) { return x; }, c, {.max_len = 100, .in_place = false});
}

TEST(Move, OverlapInBothDirections) {
    for (int shift : {1, 3, 8, 33}) {
        for (int len : {1, 7, 64, 257}) {
            std::vector<Zam32f> v(len + 2 * shift);
            for (size_t i = 0; i < v.size(); ++i) v[i] = float(i);
            auto up = v, down = v;
            ASSERT_EQ(zamsMove_32f(up.data(), up.data() + shift, len), zamStatusOk);
            ASSERT_EQ(zamsMove_32f(down.data() + shift, down.data(), len), zamStatusOk);
            for (int i = 0; i < len; ++i) {
                ASSERT_EQ(up[shift + i], float(i)) << "up, shift " << shift << " len " << len;
                ASSERT_EQ(down[i], float(i + shift)) << "down, shift " << shift << " len " << len;
            }
        }
    }
}

// Set and Zero go through one pattern fill: every element width, every
// start misalignment (including ones that break the element grid), lengths
// around the 32-byte store width; bytes through every short-fill class and
// the long fill's aligned body and overlapping last stores.
TEST(Move, SetAndZeroEveryWidthAndAlignment) {
    auto check = [](auto val, auto set_fn, auto zero_fn, int max_len) {
        using T = decltype(val);
        const T zero{};
        for (int len = 1; len <= max_len; ++len) {
            for (size_t off : sizeof(T) == 1 ? zt::all_offsets() : zt::offsets_for(len)) {
                zt::Guarded<T> d(len, off);
                std::memset(d.data(), 0x3C, len * sizeof(T));
                ASSERT_EQ(set_fn(val, d.data(), len), zamStatusOk);
                for (int i = 0; i < len; ++i) ASSERT_EQ(std::memcmp(&d[i], &val, sizeof(T)), 0) << len << " " << off;
                ASSERT_TRUE(d.guards_intact()) << len << " " << off;
                ASSERT_EQ(zero_fn(d.data(), len), zamStatusOk);
                for (int i = 0; i < len; ++i) ASSERT_EQ(std::memcmp(&d[i], &zero, sizeof(T)), 0);
                ASSERT_TRUE(d.guards_intact()) << len << " " << off;
            }
        }
    };
    check(Zam8u(0xA7), zamsSet_8u, zamsZero_8u, 600);
    check(Zam16s(-12345), zamsSet_16s, zamsZero_16s, 140);
    check(Zam16sc{-3, 1234}, zamsSet_16sc, zamsZero_16sc, 300);
    check(Zam32f(-1.5f), zamsSet_32f, zamsZero_32f, 140);
    check(Zam32sc{7, -8}, zamsSet_32sc, zamsZero_32sc, 140);
    check(Zam64s(-0x123456789ALL), zamsSet_64s, zamsZero_64s, 140);
    check(Zam64fc{1.25, -2.5}, zamsSet_64fc, zamsZero_64fc, 140);
}

TEST(Move, FillAboveTwoMebibytesWithinCache) {
    // Above 2 MiB the fill asks for the cache size; this machine's cache is
    // larger, so the plain fill serves (the cache-bypassing path is tested
    // with an interposed cache size in the interpose tests).
    const int len = (2 << 20) / 4 + 5;
    zt::Guarded<Zam32s> d(len, 4);
    ASSERT_EQ(zamsSet_32s(-2, d.data(), len), zamStatusOk);
    ASSERT_EQ(std::count(d.data(), d.data() + len, -2), len);
    ASSERT_TRUE(d.guards_intact());
}

TEST(Move, CopyBits) {
    auto bit = [](const uint8_t* p, int i) { return (p[i >> 3] >> (7 - (i & 7))) & 1; };
    auto src = zt::random_ints<uint8_t>(40, 3);
    for (int so = 0; so < 8; ++so)
        for (int doff = 0; doff < 8; ++doff)
            for (int len : {1, 2, 5, 7, 8, 9, 15, 16, 17, 63, 200, 300}) {
                std::vector<uint8_t> dst(42, 0x5A), before = dst;
                ASSERT_EQ(zamsCopy_1u(src.data(), so, dst.data(), doff, len), zamStatusOk);
                for (int i = 0; i < 42 * 8; ++i) {
                    bool inside = i >= doff && i < doff + len;
                    int want = inside ? bit(src.data(), so + i - doff) : bit(before.data(), i);
                    ASSERT_EQ(bit(dst.data(), i), want) << so << " " << doff << " " << len << " bit " << i;
                }
            }
    uint8_t a = 0, b = 0;
    EXPECT_EQ(zamsCopy_1u(&a, 8, &b, 0, 1), zamStatusBadArgument);
    EXPECT_EQ(zamsCopy_1u(&a, 0, &b, -1, 1), zamStatusBadArgument);
    EXPECT_EQ(zamsCopy_1u(&a, 9, &b, 0, 0), zamStatusBadLength);
}

TEST(Move, FlipOutOfPlaceAndInPlace) {
    Zam16u v[3] = {1, 2, 3};
    ASSERT_EQ(zamsFlip_16u_I(v, 3), zamStatusOk);
    EXPECT_TRUE(v[0] == 3 && v[1] == 2 && v[2] == 1);
    auto pool = zt::random_reals<Zam32f>(300, 4);
    for (int len = 1; len <= 300; len += 7) {
        zt::Guarded<Zam32f> d(len, 4 * (len % 9)), io(len, len % 5 * 4);
        io.copy_from(pool.data());
        ASSERT_EQ(zamsFlip_32f(pool.data(), d.data(), len), zamStatusOk);
        ASSERT_EQ(zamsFlip_32f_I(io.data(), len), zamStatusOk);
        for (int i = 0; i < len; ++i) {
            ASSERT_EQ(d[i], pool[len - 1 - i]);
            ASSERT_EQ(io[i], pool[len - 1 - i]);
        }
        ASSERT_TRUE(d.guards_intact() && io.guards_intact());
    }
}

TEST(Move, SwapBytes) {
    Zam8u b[6] = {1, 2, 3, 4, 5, 6}, out[6];
    ASSERT_EQ(zamsSwapBytes_24u(b, out, 2), zamStatusOk);
    const Zam8u want[6] = {3, 2, 1, 6, 5, 4};
    EXPECT_EQ(std::memcmp(out, want, 6), 0);
    ASSERT_EQ(zamsSwapBytes_24u_I(b, 2), zamStatusOk);
    EXPECT_EQ(std::memcmp(b, want, 6), 0);
    Zam16u h = 0x1234;
    Zam32u w = 0x12345678u;
    Zam64u q = 0x0102030405060708ull;
    ASSERT_EQ(zamsSwapBytes_16u_I(&h, 1), zamStatusOk);
    ASSERT_EQ(zamsSwapBytes_32u_I(&w, 1), zamStatusOk);
    ASSERT_EQ(zamsSwapBytes_64u_I(&q, 1), zamStatusOk);
    EXPECT_EQ(h, 0x3412);
    EXPECT_EQ(w, 0x78563412u);
    EXPECT_EQ(q, 0x0807060504030201ull);
}

TEST(Move, ComplexParts) {
    const Zam16sc z[4] = {{1, -2}, {-32768, -32768}, {32767, 32767}, {0, 5}};
    Zam16s re[4], im[4];
    Zam16sc back[4], cj[4], cf[4];
    ASSERT_EQ(zamsCplxToReal_16sc(z, re, im, 4), zamStatusOk);
    ASSERT_EQ(zamsRealToCplx_16s(re, im, back, 4), zamStatusOk);
    EXPECT_EQ(std::memcmp(back, z, sizeof z), 0);
    Zam16s r2[4], i2[4];
    ASSERT_EQ(zamsReal_16sc(z, r2, 4), zamStatusOk);
    ASSERT_EQ(zamsImag_16sc(z, i2, 4), zamStatusOk);
    EXPECT_EQ(std::memcmp(r2, re, sizeof re), 0);
    EXPECT_EQ(std::memcmp(i2, im, sizeof im), 0);
    ASSERT_EQ(zamsConj_16sc(z, cj, 4), zamStatusOk);
    EXPECT_EQ(cj[0].im, 2);
    EXPECT_EQ(cj[1].im, 32767);  // saturated
    EXPECT_EQ(cj[2].im, -32767);
    ASSERT_EQ(zamsConjFlip_16sc(z, cf, 4), zamStatusOk);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(std::memcmp(&cf[i], &cj[3 - i], sizeof(Zam16sc)), 0);

    // In place (odd and even lengths) equals out of place.
    auto pool = zt::random_reals<Zam32f>(2 * 65, 5);
    for (int len : {1, 2, 64, 65}) {
        std::vector<Zam32fc> src(len), out(len), io(len);
        std::memcpy(src.data(), pool.data(), len * sizeof(Zam32fc));
        io = src;
        ASSERT_EQ(zamsConjFlip_32fc(src.data(), out.data(), len), zamStatusOk);
        ASSERT_EQ(zamsConjFlip_32fc(io.data(), io.data(), len), zamStatusOk);
        for (int i = 0; i < len; ++i) {
            EXPECT_EQ(out[i].re, src[len - 1 - i].re);
            EXPECT_EQ(out[i].im, -src[len - 1 - i].im);
            EXPECT_EQ(std::memcmp(&io[i], &out[i], sizeof(Zam32fc)), 0);
        }
        io = src;
        ASSERT_EQ(zamsConj_32fc_I(io.data(), len), zamStatusOk);
        for (int i = 0; i < len; ++i) EXPECT_EQ(io[i].im, -src[i].im);
    }
}

ZAMS_DIGEST(move_family) {
    auto x = zt::random_ints<Zam16s>(515, 9);
    std::vector<Zam16s> y(515);
    d.status(zamsCopy_16s(x.data(), y.data(), 515));
    d.add(y);
    d.status(zamsFlip_16u(reinterpret_cast<Zam16u*>(x.data()), reinterpret_cast<Zam16u*>(y.data()), 515));
    d.add(y);
    d.status(zamsSwapBytes_16u_I(reinterpret_cast<Zam16u*>(y.data()), 515));
    d.add(y);
    d.status(zamsSet_16s(-3, y.data() + 1, 300));
    d.add(y);
    std::vector<Zam16sc> c(257);
    d.status(zamsRealToCplx_16s(x.data(), x.data() + 257, c.data(), 257));
    d.status(zamsConjFlip_16sc(c.data(), c.data(), 257));
    d.add(c);
}

}  // namespace
