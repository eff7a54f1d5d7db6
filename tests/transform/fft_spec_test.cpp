// FFT specs: reported sizes, building in caller memory, allocation,
// query, release, and the order of the checks.
#include "digest.h"
#include "fft_kinds.h"

namespace {

using namespace ft;

struct SizeRow {
    int order, spec, init, work, hint = 3;  // the floating kinds ignore the hint
};

// Worked out by hand from the size rules, including the large layouts.
template <class K> std::vector<SizeRow> kRows;
template <> std::vector<SizeRow> kRows<C32fc> = {{0, 148, 0, 0}, {6, 148, 0, 0}, {7, 1472, 0, 1088},
    {10, 9536, 0, 8256}, {11, 18752, 2176, 16448}, {18, 2359616, 262272, 2097216},
    {19, 2364224, 524416, 262208}, {23, 33829184, 8388736, 262208},
    {28, 1078726976, 268435584, 524352}};
template <> std::vector<SizeRow> kRows<C64fc> = {{0, 152, 0, 0}, {6, 152, 0, 0}, {7, 2496, 0, 2112},
    {11, 35136, 4224, 32832}, {17, 2228544, 262272, 2097216},
    {18, 2361664, 524416, 262208}, {27, 1078986048, 268435584, 524352}};
template <> std::vector<SizeRow> kRows<R32f> = {{0, 148, 0, 0}, {4, 148, 0, 0}, {5, 320, 0, 0},
    {7, 704, 0, 0}, {8, 2496, 0, 1088}, {11, 17728, 2176, 8256},
    {17, 1114432, 131200, 524352}, {18, 1197376, 262272, 1048640},
    {19, 1202752, 524416, 131136}, {29, 1080840512, 536871040, 524352}};
template <> std::vector<SizeRow> kRows<R64f> = {{0, 152, 0, 0}, {4, 152, 0, 0}, {5, 448, 0, 0},
    {8, 4544, 0, 2112}, {11, 34112, 4224, 16448}, {18, 2249024, 524416, 2097216},
    {19, 2386240, 1048704, 262208}};
template <> std::vector<SizeRow> kRows<C32f> = kRows<C32fc>;  // the split kinds share the layouts
template <> std::vector<SizeRow> kRows<C64f> = kRows<C64fc>;

// The integer kinds' sizes depend on the hint.
template <> std::vector<SizeRow> kRows<I16sc> = {{0, 116, 0, 0, 0}, {2, 256, 128, 96, 0}, {2, 276, 64, 96, 2}, {7, 1600, 64, 2176, 1}};
template <> std::vector<SizeRow> kRows<I16s> = {{2, 256, 128, 112, 1}, {3, 276, 64, 128, 5}};
template <> std::vector<SizeRow> kRows<IR16s> = {{0, 116, 0, 0, 1}, {3, 320, 128, 104, 0}, {8, 2624, 64, 2184, 0}};
template <> std::vector<SizeRow> kRows<I32sc> = {{0, 280, 0, 80, 0}, {11, 35264, 4288, 65664, 0}};
template <> std::vector<SizeRow> kRows<I32s> = {{7, 2624, 0, 4224, 0}};
template <> std::vector<SizeRow> kRows<IR32s> = {{8, 4672, 0, 4240, 0}};
template <> std::vector<SizeRow> kRows<IR16s32s> = {{5, 576, 0, 336, 0}};

TEST(FftSpec, ReportedSizes) {
    AllKinds::each([]<class K>() {
        for (const SizeRow& r : kRows<K>) {
            int a = -1, b = -1, c = -1;
            for (int flag : kFlags) {
                ASSERT_EQ(K::get_size(r.order, flag, r.hint, &a, &b, &c), zamStatusOk) << K::kName << " " << r.order;
                EXPECT_EQ(a, r.spec) << K::kName << " order " << r.order << " hint " << r.hint;
                EXPECT_EQ(b, r.init) << K::kName << " order " << r.order << " hint " << r.hint;
                EXPECT_EQ(c, r.work) << K::kName << " order " << r.order << " hint " << r.hint;
            }
        }
    });
}

// Every order: sizes reported up to the kind's top (never shrinking for the
// floating kinds), and a build in exactly the reported memory (any misalignment, each
// hint for the integer kinds) that stays inside it, reports the same work
// size, and is invalidated (not released) by Free.
template <class K> void check_all_orders(int built_up_to) {
    int prev = 0, a, b, c;
    for (int order = 0; order <= K::kTop; ++order) {
        ASSERT_EQ(K::get_size(order, 8, 0, &a, &b, &c), zamStatusOk) << K::kName << " " << order;
        EXPECT_TRUE(std::is_integral_v<typename K::F> || a >= prev) << K::kName << " " << order;
        prev = a;
    }
    if (K::kTop < K::kMax) {
        EXPECT_EQ(K::get_size(K::kMax, 8, 0, &a, &b, &c), zamStatusNoMemory) << K::kName;
    }
    const int hints = std::is_integral_v<typename K::F> ? 2 : 0;
    for (int order = 0; order <= built_up_to; ++order)
        for (int hint = 0; hint <= hints; hint += 2) {
            OwnedSpec<K> os;
            const size_t mis = size_t(order * 7 + 3) % 64;
            ASSERT_EQ(os.build(order, 1 << (order % 4), mis, hint), zamStatusOk) << K::kName << " " << order;
            EXPECT_TRUE(os.guard_intact(mis)) << K::kName << " " << order;
            EXPECT_EQ(reinterpret_cast<uintptr_t>(os.spec) % 64, 0u);
            EXPECT_EQ(*reinterpret_cast<const int32_t*>(os.spec), K::kId);
            int w = -1;
            ASSERT_EQ(K::buf_size(os.spec, &w), zamStatusOk);
            EXPECT_EQ(w, os.workSize) << K::kName << " " << order;
            EXPECT_EQ(K::free_spec(os.spec), zamStatusOk);
            EXPECT_EQ(K::free_spec(os.spec), zamStatusContextMismatch);  // caller memory: invalidated only
            EXPECT_EQ(K::buf_size(os.spec, &w), zamStatusContextMismatch);
            typename K::Spec* al = nullptr;
            ASSERT_EQ(K::init_alloc(&al, order, 2, hint), zamStatusOk);
            EXPECT_EQ(K::buf_size(al, &w), zamStatusOk);
            EXPECT_EQ(w, os.workSize);
            EXPECT_EQ(K::free_spec(al), zamStatusOk);
        }
}

TEST(FftSpec, EveryOrderBuildsInItsReportedSize) {
    const int top = sizeof(void*) == 8 ? 20 : 16, itop = sizeof(void*) == 8 ? 14 : 10;
    AllKinds::each([&]<class K>() {
        check_all_orders<K>(std::is_integral_v<typename K::F> ? itop : top + (K::kName[0] == 'R'));
    });
}

template <class K> void check_order_of_checks() {
    int a = 1, b = 2, c = 3;
    // order first (unsigned: negatives too), before any pointer
    EXPECT_EQ(K::get_size(-1, 1, 0, nullptr, nullptr, nullptr), zamStatusBadFftOrder);
    EXPECT_EQ(K::get_size(31, 99, 0, nullptr, nullptr, nullptr), zamStatusBadFftOrder);
    // then pointers, then the flag, then the kind's maximum
    EXPECT_EQ(K::get_size(K::kMax + 1, 99, 0, &a, nullptr, &c), zamStatusNullPointer);
    EXPECT_EQ(K::get_size(K::kMax + 1, 3, 0, &a, &b, &c), zamStatusBadFftFlag);
    EXPECT_EQ(K::get_size(K::kMax + 1, 4, 0, &a, &b, &c), zamStatusBadFftOrder);
    EXPECT_EQ(K::get_size(30, 8, 0, &a, &b, &c), zamStatusBadFftOrder);
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
    EXPECT_EQ(c, 3);
    for (int flag : {0, 3, 5, 16, -1}) EXPECT_EQ(K::get_size(4, flag, 0, &a, &b, &c), zamStatusBadFftFlag);

    // Init: ppSpec, order, memory, flag; a flag failure leaves identifier 0
    std::vector<uint8_t> mem(1 << 16, 0xEE), tmp(1 << 14);
    typename K::Spec* s = nullptr;
    EXPECT_EQ(K::init(nullptr, 3, 1, 0, mem.data(), tmp.data()), zamStatusNullPointer);
    // (the integer kinds check their own limit, 30, first and the maximum after the pointers)
    EXPECT_EQ(K::init(&s, 31, 1, 0, nullptr, nullptr), zamStatusBadFftOrder);
    EXPECT_EQ(K::init(&s, K::kMax + 1, 1, 0, nullptr, nullptr),
              std::is_integral_v<typename K::F> ? zamStatusNullPointer : zamStatusBadFftOrder);
    EXPECT_EQ(K::init(&s, -2, 1, 0, mem.data(), tmp.data()), zamStatusBadFftOrder);
    EXPECT_EQ(K::init(&s, 3, 1, 0, nullptr, tmp.data()), zamStatusNullPointer);
    EXPECT_EQ(K::init(&s, 3, 7, 0, mem.data(), tmp.data()), zamStatusBadFftFlag);
    EXPECT_EQ(s, nullptr);
    const auto* id = reinterpret_cast<const int32_t*>(fft_align(mem.data()));
    EXPECT_EQ(id[0], 0);
    EXPECT_EQ(K::buf_size(reinterpret_cast<typename K::Spec*>(fft_align(mem.data())), &a), zamStatusContextMismatch);
    // the build buffer is required from the first order that reports one
    int first = 0;
    while (K::get_size(first, 1, 0, &a, &b, &c) == zamStatusOk && b == 0) ++first;
    EXPECT_EQ(K::init(&s, first, 1, 0, mem.data(), nullptr), zamStatusNullPointer) << K::kName;
    EXPECT_EQ(id[0], 0);
    EXPECT_EQ(K::init(&s, first - 1, 1, 0, mem.data(), nullptr), zamStatusOk) << K::kName;
    EXPECT_EQ(id[0], K::kId);
    // InitAlloc takes the size query's statuses
    EXPECT_EQ(K::init_alloc(&s, 31, 1, 0), zamStatusBadFftOrder);
    EXPECT_EQ(K::init_alloc(&s, K::kMax + 1, 9, 0), zamStatusBadFftFlag);
}

TEST(FftSpec, OrderOfChecks) {
    AllKinds::each([]<class K>() { check_order_of_checks<K>(); });
}

// The kinds with the same layout refuse each other's specs.
TEST(FftSpec, KindsRefuseEachOther) {
    OwnedSpec<C32fc> a;
    OwnedSpec<C32f> b;
    ASSERT_EQ(a.build(8, 1), zamStatusOk);
    ASSERT_EQ(b.build(8, 1), zamStatusOk);
    int w;
    EXPECT_EQ(C32f::buf_size(reinterpret_cast<C32f::Spec*>(a.spec), &w), zamStatusContextMismatch);
    EXPECT_EQ(C32fc::buf_size(reinterpret_cast<C32fc::Spec*>(b.spec), &w), zamStatusContextMismatch);
    EXPECT_EQ(C32fc::free_spec(reinterpret_cast<C32fc::Spec*>(b.spec)), zamStatusContextMismatch);
    EXPECT_EQ(R32f::free_spec(reinterpret_cast<R32f::Spec*>(a.spec)), zamStatusContextMismatch);
    EXPECT_EQ(C64f::free_spec(reinterpret_cast<C64f::Spec*>(b.spec)), zamStatusContextMismatch);
}

// Flag 4: the 64-bit kinds use 1/sqrt(N) correctly rounded; the 32-bit
// kinds a refined estimate within a few units of the last place.
TEST(FftSpec, SqrtScale) {
    for (int order : {1, 2, 5, 9}) {
        const size_t n = size_t(1) << order;
        const double want = 1.0 / std::sqrt(double(n));
        OwnedSpec<R64f> d;
        OwnedSpec<R32f> f;
        ASSERT_EQ(d.build(order, 4), zamStatusOk);
        ASSERT_EQ(f.build(order, 4), zamStatusOk);
        std::vector<double> x(n, 0.0), y(n);
        std::vector<float> xf(n, 0.f), yf(n);
        x[0] = xf[0] = 1;
        ASSERT_EQ(zamsFFTFwd_RToPerm_64f(x.data(), y.data(), d.spec, nullptr), zamStatusOk);
        ASSERT_EQ(zamsFFTFwd_RToPerm_32f(xf.data(), yf.data(), f.spec, nullptr), zamStatusOk);
        EXPECT_EQ(y[0], want);
        EXPECT_NEAR(yf[0], want, 3e-7 * want);
    }
}

ZAMS_DIGEST(fft_sizes) {
    int a = 0, b = 0, c = 0;
    for (int order = -1; order <= 31; ++order)
        for (int flag : {1, 2, 4, 8, 3}) {
            d.status(zamsFFTGetSize_C_32fc(order, flag, 0, &a, &b, &c)); d.add(&a, 1); d.add(&b, 1); d.add(&c, 1);
            d.status(zamsFFTGetSize_C_64fc(order, flag, 0, &a, &b, &c)); d.add(&a, 1); d.add(&b, 1); d.add(&c, 1);
            d.status(zamsFFTGetSize_R_32f(order, flag, 0, &a, &b, &c)); d.add(&a, 1); d.add(&b, 1); d.add(&c, 1);
            d.status(zamsFFTGetSize_R_64f(order, flag, 0, &a, &b, &c)); d.add(&a, 1); d.add(&b, 1); d.add(&c, 1);
        }
}

}  // namespace
