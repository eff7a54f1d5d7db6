// Nearest-value search against a linear scan; bit packing and unpacking
// against a stream of single bits; running power and mean against exact
// rationals in long double.
#include <algorithm>
#include <climits>
#include <cmath>

#include "digest.h"
#include "sweep.h"

namespace {

using LD = long double;

// The first index of least distance, by a scan of the whole table.
template <class T> int scan_nearest(const std::vector<T>& t, T x) {
    if constexpr (std::is_floating_point_v<T>) {
        if (std::isnan(x) || x == -INFINITY) return 0;
        if (x == INFINITY) return int(std::find(t.begin(), t.end(), t.back()) - t.begin());
    }
    int best = 0;
    for (int j = 1; j < int(t.size()); ++j)
        if (std::fabs(LD(x) - LD(t[j])) < std::fabs(LD(x) - LD(t[best]))) best = j;
    return best;
}

template <class T, class Fn> void check_nearest(Fn fn, std::vector<T> table, std::vector<T> x) {
    std::sort(table.begin(), table.end());
    const int n = int(x.size()), m = int(table.size());
    zt::Guarded<T> d(n, 4);
    zt::Guarded<int> ix(n, 8);
    ASSERT_EQ(fn(x.data(), d.data(), ix.data(), n, table.data(), m), zamStatusOk);
    for (int i = 0; i < n; ++i) {
        const int want = scan_nearest(table, x[i]);
        ASSERT_EQ(ix[i], want) << "x " << x[i] << " table size " << m;
        ASSERT_EQ(zt::bits(d[i]), zt::bits(table[want]));
    }
    ASSERT_TRUE(d.guards_intact() && ix.guards_intact());
}

TEST(FindNearest, AgainstLinearScanWithTiesAndDuplicates) {
    for (int m : {1, 2, 3, 7, 64, 255}) {
        auto t16 = zt::random_ints<Zam16u>(m, 40 + m);
        for (int j = 0; j + 1 < m; j += 4) t16[j + 1] = t16[j];  // duplicates
        auto x16 = zt::random_ints<Zam16u>(500, 50 + m);
        for (int j = 0; j < m && j < 100; ++j) x16[j] = Zam16u(t16[j] + 1), x16[j + 100] = t16[j];
        std::vector<Zam16u> mid16{0, 10, 20};  // 15 is a tie: the lower entry
        check_nearest(zamsFindNearest_16u, mid16, std::vector<Zam16u>{15, 5, 25, 0, 65535});
        check_nearest(zamsFindNearest_16u, t16, x16);
        auto tf = zt::random_reals<float>(m, 60 + m, -100.0f, 100.0f);
        for (int j = 0; j + 2 < m; j += 5) tf[j + 2] = tf[j];
        auto xf = zt::random_reals<float>(500, 70 + m, -120.0f, 120.0f);
        xf[0] = NAN, xf[1] = INFINITY, xf[2] = -INFINITY, xf[3] = -0.0f;
        check_nearest(zamsFindNearest_32f, tf, xf);
    }
    check_nearest(zamsFindNearest_32f, std::vector<float>{-1.0f, 1.0f, 2.0f}, std::vector<float>{0.0f, 1.5f});
}

// ------------------------------------------------------------ bit packing

template <class T> struct BitFns {
    zamStatus (*pack)(const T*, Zam8u*, int, int, int);
    zamStatus (*unpack)(const Zam8u*, int, T*, int, int);
};

template <class T> void check_bits(BitFns<T> f) {
    const int width = int(sizeof(T) * 8);
    const auto sym = zt::random_ints<T>(70, 90 + width);
    for (int nb = 1; nb <= width; ++nb) {
        for (int off = 0; off < 8; ++off) {
            for (int len : {1, 2, 3, 9, 70}) {
                // the model: the destination as single bits, the symbols' bits written in
                const size_t bytes = (size_t(off) + size_t(len) * nb + 7) / 8;
                auto before = zt::random_ints<Zam8u>(bytes, unsigned(len * 131 + off));
                std::vector<int> bitsv(bytes * 8);
                for (size_t b = 0; b < bitsv.size(); ++b) bitsv[b] = before[b / 8] >> (7 - b % 8) & 1;
                for (int i = 0; i < len; ++i)
                    for (int k = 0; k < nb; ++k) bitsv[off + i * nb + k] = int((uint64_t(sym[i]) >> (nb - 1 - k)) & 1);
                std::vector<Zam8u> want(bytes, 0);
                for (size_t b = 0; b < bitsv.size(); ++b) want[b / 8] |= Zam8u(bitsv[b] << (7 - b % 8));

                zt::Guarded<Zam8u> dst(bytes, size_t(off * 3));
                dst.copy_from(before.data());
                ASSERT_EQ(f.pack(sym.data(), dst.data(), off, len, nb), zamStatusOk);
                ASSERT_EQ(dst.to_vector(), want) << "width " << nb << " offset " << off << " len " << len;
                ASSERT_TRUE(dst.guards_intact());

                zt::Guarded<T> back(len, size_t(off * 5));
                ASSERT_EQ(f.unpack(dst.data(), off, back.data(), len, nb), zamStatusOk);
                for (int i = 0; i < len; ++i)
                    ASSERT_EQ(uint64_t(back[i]), uint64_t(sym[i]) & ((uint64_t(1) << nb) - 1)) << nb << " " << i;
                ASSERT_TRUE(back.guards_intact());
            }
        }
    }
    // offsets outside 0..7 and widths outside 1..width: -5, nothing written
    T s[2] = {1, 2};
    Zam8u b[8] = {0x11, 0x22};
    for (auto [off, nb] : {std::pair{-1, 3}, {8, 3}, {0, 0}, {0, width + 1}, {INT_MIN, 1}, {0, INT_MIN}}) {
        EXPECT_EQ(f.pack(s, b, off, 2, nb), zamStatusBadArgument);
        EXPECT_EQ(f.unpack(b, off, s, 2, nb), zamStatusBadArgument);
    }
    EXPECT_EQ(f.pack(s, b, 9, 0, 1), zamStatusBadLength);  // the length before the offset
    EXPECT_TRUE(b[0] == 0x11 && b[1] == 0x22 && s[0] == 1 && s[1] == 2);
}

TEST(BitPacking, AgainstBitStreamEveryWidthAndOffset) {
    check_bits(BitFns<Zam8u>{zamsPackBits_8u, zamsUnpackBits_8u});
    check_bits(BitFns<Zam16u>{zamsPackBits_16u, zamsUnpackBits_16u});
    check_bits(BitFns<Zam32u>{zamsPackBits_32u, zamsUnpackBits_32u});
}

// ------------------------------------------------ running power and mean

Zam32s round_sat(LD v) {
    v = std::nearbyint(v);
    return Zam32s(v > INT32_MAX ? INT32_MAX : v < INT32_MIN ? INT32_MIN : v);
}

template <class S> Zam32s update_model(const std::vector<S>& x, Zam32s acc, int w, int sf, bool power) {
    LD a = acc;
    for (S s : x) {
        const LD p = round_sat(std::ldexp(power ? LD(s) * LD(s) : LD(s), -sf));
        a = round_sat((w * a + (32768 - w) * p) / 32768);
    }
    return Zam32s(a);
}

template <class S> void check_update(zamStatus (*fn)(const S*, int, Zam32s*, Zam16s, int), bool power) {
    const auto x = zt::random_ints<S>(300, power ? 3 : 4);
    for (int w : {0, 1, 16384, 31130, 32767}) {
        for (int sf : {0, 1, 7, 16, 31, -3, -31, 100, -100}) {
            for (Zam32s a0 : {0, -77777, INT32_MAX}) {
                Zam32s a = a0;
                ASSERT_EQ(fn(x.data(), 200, &a, Zam16s(w), sf), zamStatusOk);
                ASSERT_EQ(fn(x.data() + 200, 100, &a, Zam16s(w), sf), zamStatusOk);
                ASSERT_EQ(a, update_model(x, a0, w, sf, power)) << "w " << w << " sf " << sf << " a0 " << a0;
            }
        }
    }
    Zam32s a = 5;
    EXPECT_EQ(fn(x.data(), 3, &a, Zam16s(-1), 0), zamStatusBadArgument);
    EXPECT_EQ(fn(x.data(), 0, &a, Zam16s(-1), 0), zamStatusBadLength);
    EXPECT_EQ(a, 5);
}

TEST(RunningUpdate, PowerAndMeanAgainstExactModel) {
    check_update<Zam16s>(zamsUpdatePower_16s32s_ISfs, true);
    check_update<Zam32s>(zamsUpdatePower_32s_ISfs, true);
    check_update<Zam16s>(zamsUpdateLinear_16s32s_ISfs, false);
    check_update<Zam32s>(zamsUpdateLinear_32s_ISfs, false);
}

ZAMS_DIGEST(search_bits_running) {
    auto t = zt::random_reals<float>(100, 1, -10.0f, 10.0f);
    std::sort(t.begin(), t.end());
    const auto x = zt::random_reals<float>(300, 2, -12.0f, 12.0f);
    std::vector<float> y(300);
    std::vector<int> ix(300);
    d.status(zamsFindNearest_32f(x.data(), y.data(), ix.data(), 300, t.data(), 100)), d.add(y), d.add(ix);
    auto t16 = zt::random_ints<Zam16u>(50, 3);
    std::sort(t16.begin(), t16.end());
    const auto x16 = zt::random_ints<Zam16u>(300, 4);
    std::vector<Zam16u> y16(300);
    d.status(zamsFindNearest_16u(x16.data(), y16.data(), ix.data(), 300, t16.data(), 50)), d.add(y16), d.add(ix);
    std::vector<Zam8u> packed(300);
    d.status(zamsPackBits_16u(x16.data(), packed.data(), 3, 100, 13)), d.add(packed);
    std::vector<Zam32u> un(100);
    d.status(zamsUnpackBits_32u(packed.data(), 5, un.data(), 100, 21)), d.add(un);
    const auto s = zt::random_ints<Zam16s>(300, 5);
    Zam32s acc = 12345;
    d.status(zamsUpdatePower_16s32s_ISfs(s.data(), 300, &acc, 30000, 3)), d.add(&acc, 1);
    d.status(zamsUpdateLinear_16s32s_ISfs(s.data(), 300, &acc, 100, -2)), d.add(&acc, 1);
}

}  // namespace
