// Multi-channel split and join: the mapping onto [-1, 1], exact round trips,
// channel layouts, check orders and the rounding direction around join.
#include <cmath>
#include <limits>
#include <memory>

#include "digest.h"
#include "convert_util.h"

namespace {

using ct::get24;
const float kA16 = ct::ffrom(0x38000080u), kB16 = ct::ffrom(0x37800080u);  // 2/65535, 1/65535

// Channel buffers with guards, and the tables of their pointers.
struct Channels {
    Channels(int nch, int len) {
        for (int c = 0; c < nch; ++c) {
            bufs.push_back(std::make_unique<zt::Guarded<Zam32f>>(size_t(len), size_t(4 * c + 4 * (c & 1)) % 64));
            ptrs.push_back(bufs.back()->data());
            cptrs.push_back(bufs.back()->data());
        }
    }
    bool intact() const {
        for (auto& b : bufs)
            if (!b->guards_intact()) return false;
        return true;
    }
    std::vector<std::unique_ptr<zt::Guarded<Zam32f>>> bufs;
    std::vector<Zam32f*> ptrs;
    std::vector<const Zam32f*> cptrs;
};

// x (len frames of nch channels) split, each value within 2^-24 of
// (2x + 1) / 65535 and exactly the float formula, joined back unchanged;
// and through the 24-bit join and split, all within the guards.
void round_trip16(const std::vector<Zam16s>& x, int nch, int len) {
    Channels ch(nch, len);
    ASSERT_EQ(zamsSplitScaled_16s32f_D2L(x.data(), ch.ptrs.data(), nch, len), zamStatusOk);
    ASSERT_TRUE(ch.intact());
    for (int i = 0; i < nch * len; ++i) {
        float y = (*ch.bufs[i % nch])[i / nch];
        ASSERT_EQ(zt::bits(y), zt::bits(float(x[i]) * kA16 + kB16)) << x[i] << " " << nch << " " << len;
        ASSERT_LE(std::fabs(y - (2.0L * x[i] + 1) / 65535), 0x1p-24L) << x[i];
    }
    zt::Guarded<Zam16s> back(size_t(nch * len), 6);
    ASSERT_EQ(zamsJoinScaled_32f16s_D2L(ch.cptrs.data(), nch, len, back.data()), zamStatusOk);
    for (int i = 0; i < nch * len; ++i) ASSERT_EQ(back[i], x[i]) << i;
    ASSERT_TRUE(back.guards_intact());
    zt::Guarded<Zam8u> j24(size_t(3 * nch * len), 1);
    ASSERT_EQ(zamsJoinScaled_32f24s_D2L(ch.cptrs.data(), nch, len, j24.data()), zamStatusOk);
    ASSERT_TRUE(j24.guards_intact());
    Channels c24(nch, len);
    ASSERT_EQ(zamsSplitScaled_24s32f_D2L(j24.data(), c24.ptrs.data(), nch, len), zamStatusOk);
    ASSERT_TRUE(c24.intact());
}

// Every 16-bit value as 1 and 4 channels; random ones over channel counts
// and lengths around the vector widths.
TEST(ConvertSplit, Every16BitValueAndLayoutRoundTrips) {
    std::vector<Zam16s> x(65536);
    for (int i = 0; i < 65536; ++i) x[i] = Zam16s(i * 7919);  // a permutation of all values
    round_trip16(x, 1, 65536);
    round_trip16(x, 4, 16384);
    x = zt::random_ints<Zam16s>(5 * 40, 3);
    for (int nch : {1, 2, 3, 5})
        for (int len : {1, 2, 7, 8, 9, 15, 16, 17, 33, 40}) round_trip16(x, nch, len);
    Zam16s ends[2] = {-32768, 32767};
    Zam32f a, b;
    Zam32f* p[2] = {&a, &b};
    ASSERT_EQ(zamsSplitScaled_16s32f_D2L(ends, p, 2, 1), zamStatusOk);
    EXPECT_EQ(a, -1.0f);
    EXPECT_EQ(b, 1.0f);
}

TEST(ConvertSplit, Dense24BitRoundTrip) {
    // Every 97th value of the 24-bit range, both ends included, over 3 channels.
    std::vector<int32_t> v;
    for (int64_t x = -8388608; x <= 8388607; x += 97) v.push_back(int32_t(x));
    v.push_back(8388607);
    while (v.size() % 3) v.push_back(-1);
    const int nch = 3, len = int(v.size() / 3);
    zt::Guarded<Zam8u> src(v.size() * 3, 1);
    for (size_t i = 0; i < v.size(); ++i) std::memcpy(&src[3 * i], ct::p24(v[i]).b, 3);
    Channels ch(nch, len);
    ASSERT_EQ(zamsSplitScaled_24s32f_D2L(src.data(), ch.ptrs.data(), nch, len), zamStatusOk);
    ASSERT_TRUE(ch.intact());
    for (size_t i = 0; i < v.size(); ++i) {
        float y = (*ch.bufs[i % nch])[i / nch];
        ASSERT_EQ(zt::bits(y), zt::bits(float(double(v[i]) * (2.0 / 16777215) + 1.0 / 16777215))) << v[i];
    }
    EXPECT_EQ((*ch.bufs[0])[0], -1.0f);
    zt::Guarded<Zam8u> back(v.size() * 3, 5);
    ASSERT_EQ(zamsJoinScaled_32f24s_D2L(ch.cptrs.data(), nch, len, back.data()), zamStatusOk);
    for (size_t i = 0; i < v.size(); ++i) ASSERT_EQ(get24(&back[3 * i]), v[i]) << i;
    ASSERT_TRUE(back.guards_intact());
}

TEST(ConvertSplit, JoinClampsAndRoundsToNearestWhateverTheDirection) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float y[] = {2.0f, -7.0f, 1.0f, -1.0f, nan, 0.0f, 0.5f, -0.5f, 1e-3f, 3.0517578125e-05f, -1e30f, 0.25f};
    const Zam16s w16[] = {32767, -32768, 32767, -32768, -32768, 0, 16383, -16384, 32, 0, -32768, 8191};
    const int32_t w24[] = {8388607, -8388608, 8388607, -8388608, -8388608, 0, 4194303, -4194304, 8388, 255, -8388608, 2097151};
    const unsigned saved = _mm_getcsr();
    for (unsigned dir : {0u, 1u, 2u, 3u}) {
        const Zam32f* p[1] = {y};
        Zam16s o16[12];
        Zam8u o24[36];
        const unsigned csr = (saved & ~0x6000u) | dir << 13;
        _mm_setcsr(csr);
        zamStatus s1 = zamsJoinScaled_32f16s_D2L(p, 1, 12, o16);
        unsigned after1 = _mm_getcsr();
        zamStatus s2 = zamsJoinScaled_32f24s_D2L(p, 1, 12, o24);
        unsigned after2 = _mm_getcsr();
        _mm_setcsr(saved);
        ASSERT_EQ(s1, zamStatusOk);
        ASSERT_EQ(s2, zamStatusOk);
        EXPECT_EQ(after1, csr);
        EXPECT_EQ(after2, csr);
        for (int i = 0; i < 12; ++i) {
            EXPECT_EQ(o16[i], w16[i]) << "direction " << dir << " element " << i;
            EXPECT_EQ(get24(o24 + 3 * i), w24[i]) << "direction " << dir << " element " << i;
        }
    }
}

TEST(ConvertSplit, CheckOrders) {
    Zam16s x[4] = {1, 2, 3, 4};
    Zam32f a[2] = {9, 9}, b[2] = {9, 9};
    Zam32f* half_null[2] = {a, nullptr};
    // Split: source, then counts, then the table, then each pointer in it.
    EXPECT_EQ(zamsSplitScaled_16s32f_D2L(nullptr, nullptr, 0, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsSplitScaled_16s32f_D2L(x, nullptr, 0, 2), zamStatusBadLength);
    EXPECT_EQ(zamsSplitScaled_24s32f_D2L(reinterpret_cast<Zam8u*>(x), nullptr, 2, -1), zamStatusBadLength);
    EXPECT_EQ(zamsSplitScaled_16s32f_D2L(x, nullptr, 2, 2), zamStatusNullPointer);
    EXPECT_EQ(zamsSplitScaled_16s32f_D2L(x, half_null, 2, 2), zamStatusNullPointer);
    EXPECT_EQ(zamsSplitScaled_24s32f_D2L(reinterpret_cast<Zam8u*>(x), half_null, 2, 1), zamStatusNullPointer);
    EXPECT_EQ(a[0], 9);
    // Join: destination first, then counts, then the table and its pointers.
    const Zam32f* ps[2] = {a, b};
    const Zam32f* ps_null[2] = {nullptr, b};
    Zam16s y[4] = {7, 7, 7, 7};
    EXPECT_EQ(zamsJoinScaled_32f16s_D2L(ps, 0, 0, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsJoinScaled_32f16s_D2L(nullptr, 0, 2, y), zamStatusBadLength);
    EXPECT_EQ(zamsJoinScaled_32f24s_D2L(nullptr, 2, 0, reinterpret_cast<Zam8u*>(y)), zamStatusBadLength);
    EXPECT_EQ(zamsJoinScaled_32f16s_D2L(nullptr, 2, 2, y), zamStatusNullPointer);
    EXPECT_EQ(zamsJoinScaled_32f16s_D2L(ps_null, 2, 2, y), zamStatusNullPointer);
    EXPECT_EQ(zamsJoinScaled_32f24s_D2L(ps_null, 2, 1, reinterpret_cast<Zam8u*>(y)), zamStatusNullPointer);
    for (Zam16s v : y) EXPECT_EQ(v, 7);
}

ZAMS_DIGEST(convert_split) {
    auto x = zt::random_ints<Zam16s>(3 * 101, 7);
    Channels ch(3, 101);
    d.status(zamsSplitScaled_16s32f_D2L(x.data(), ch.ptrs.data(), 3, 101));
    for (auto& b : ch.bufs) d.add(b->data(), 101);
    std::vector<Zam16s> y(3 * 101);
    for (auto& b : ch.bufs) (*b)[5] *= 1.5f, (*b)[9] = -3.0f;
    d.status(zamsJoinScaled_32f16s_D2L(ch.cptrs.data(), 3, 101, y.data()));
    d.add(y);
    std::vector<Zam8u> y24(9 * 101);
    d.status(zamsJoinScaled_32f24s_D2L(ch.cptrs.data(), 3, 101, y24.data()));
    d.add(y24);
    d.status(zamsSplitScaled_24s32f_D2L(y24.data(), ch.ptrs.data(), 3, 101));
    for (auto& b : ch.bufs) d.add(b->data(), 101);
}

}  // namespace
