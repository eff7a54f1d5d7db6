// FFT specs: reported sizes, building in caller memory, allocation,
// query, release, and the order of the checks.
#include "digest.h"
#include "fft_kinds.h"

namespace {

using namespace ft;

struct SizeRow {
    int order, spec, init, work;
};

// Worked out by hand from the size rules, including the large layouts.
const SizeRow kC32fc[] = {{0, 148, 0, 0},         {6, 148, 0, 0},         {7, 1472, 0, 1088},
                          {10, 9536, 0, 8256},    {11, 18752, 2176, 16448}, {18, 2359616, 262272, 2097216},
                          {19, 2364224, 524416, 262208}, {23, 33829184, 8388736, 262208},
                          {28, 1078726976, 268435584, 524352}};
const SizeRow kC64fc[] = {{0, 152, 0, 0},          {6, 152, 0, 0},           {7, 2496, 0, 2112},
                          {11, 35136, 4224, 32832}, {17, 2228544, 262272, 2097216},
                          {18, 2361664, 524416, 262208}, {27, 1078986048, 268435584, 524352}};
const SizeRow kR32f[] = {{0, 148, 0, 0},        {4, 148, 0, 0},           {5, 320, 0, 0},
                         {7, 704, 0, 0},        {8, 2496, 0, 1088},       {11, 17728, 2176, 8256},
                         {17, 1114432, 131200, 524352}, {18, 1197376, 262272, 1048640},
                         {19, 1202752, 524416, 131136}, {29, 1080840512, 536871040, 524352}};
const SizeRow kR64f[] = {{0, 152, 0, 0},          {4, 152, 0, 0},          {5, 448, 0, 0},
                         {8, 4544, 0, 2112},      {11, 34112, 4224, 16448}, {18, 2249024, 524416, 2097216},
                         {19, 2386240, 1048704, 262208}};

template <class K, size_t R> void check_rows(const SizeRow (&rows)[R]) {
    for (const SizeRow& r : rows) {
        int a = -1, b = -1, c = -1;
        for (int flag : kFlags) {
            ASSERT_EQ(K::get_size(r.order, flag, 3, &a, &b, &c), zamStatusOk) << K::kName << " " << r.order;
            EXPECT_EQ(a, r.spec) << K::kName << " order " << r.order;
            EXPECT_EQ(b, r.init) << K::kName << " order " << r.order;
            EXPECT_EQ(c, r.work) << K::kName << " order " << r.order;
        }
    }
}

TEST(FftSpec, ReportedSizes) {
    check_rows<C32fc>(kC32fc);
    check_rows<C32f>(kC32fc);
    check_rows<C64fc>(kC64fc);
    check_rows<C64f>(kC64fc);
    check_rows<R32f>(kR32f);
    check_rows<R64f>(kR64f);
}

// Every order: the ordinary formulas between the rows above, sizes that
// never shrink with the order, and a build in exactly the reported memory
// (any misalignment) that stays inside it and reports the same work size.
template <class K> void check_all_orders(int built_up_to) {
    int prev = 0;
    for (int order = 0; order <= K::kMax; ++order) {
        int a, b, c;
        ASSERT_EQ(K::get_size(order, 8, 0, &a, &b, &c), zamStatusOk) << K::kName << " " << order;
        EXPECT_GE(a, prev) << K::kName << " " << order;
        prev = a;
        if (order > built_up_to) continue;
        OwnedSpec<K> os;
        const size_t mis = size_t(order * 7) % 64;
        ASSERT_EQ(os.build(order, 1 << (order % 4), mis), zamStatusOk) << K::kName << " " << order;
        EXPECT_TRUE(os.guard_intact(mis)) << K::kName << " " << order;
        EXPECT_EQ(reinterpret_cast<uintptr_t>(os.spec) % 64, 0u);
        int w = -1;
        ASSERT_EQ(K::buf_size(os.spec, &w), zamStatusOk);
        EXPECT_EQ(w, c) << K::kName << " " << order;
        EXPECT_EQ(*reinterpret_cast<const int32_t*>(os.spec), K::kId);
        typename K::Spec* al = nullptr;
        ASSERT_EQ(K::init_alloc(&al, order, 2, 0), zamStatusOk);
        EXPECT_EQ(K::buf_size(al, &w), zamStatusOk);
        EXPECT_EQ(w, c);
        EXPECT_EQ(K::free_spec(al), zamStatusOk);
    }
}

TEST(FftSpec, EveryOrderBuildsInItsReportedSize) {
    const int top = sizeof(void*) == 8 ? 20 : 16;
    check_all_orders<C32fc>(top);
    check_all_orders<C32f>(top);
    check_all_orders<C64fc>(top);
    check_all_orders<C64f>(top);
    check_all_orders<R32f>(top + 1);
    check_all_orders<R64f>(top + 1);
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
    EXPECT_EQ(K::init(&s, K::kMax + 1, 1, 0, nullptr, nullptr), zamStatusBadFftOrder);
    EXPECT_EQ(K::init(&s, -2, 1, 0, mem.data(), tmp.data()), zamStatusBadFftOrder);
    EXPECT_EQ(K::init(&s, 3, 1, 0, nullptr, tmp.data()), zamStatusNullPointer);
    EXPECT_EQ(K::init(&s, 3, 7, 0, mem.data(), tmp.data()), zamStatusBadFftFlag);
    EXPECT_EQ(s, nullptr);
    const auto* id = reinterpret_cast<const int32_t*>(fft_align(mem.data()));
    EXPECT_EQ(id[0], 0);
    EXPECT_EQ(K::buf_size(reinterpret_cast<typename K::Spec*>(fft_align(mem.data())), &a), zamStatusContextMismatch);
    // from order 11 the build buffer is required
    EXPECT_EQ(K::init(&s, 11, 1, 0, mem.data(), nullptr), zamStatusNullPointer);
    EXPECT_EQ(id[0], 0);
    EXPECT_EQ(K::init(&s, 10, 1, 0, mem.data(), nullptr), zamStatusOk);
    EXPECT_EQ(id[0], K::kId);

    // InitAlloc takes the size query's statuses
    EXPECT_EQ(K::init_alloc(nullptr, 3, 1, 0), zamStatusNullPointer);
    EXPECT_EQ(K::init_alloc(&s, 31, 1, 0), zamStatusBadFftOrder);
    EXPECT_EQ(K::init_alloc(&s, K::kMax + 1, 9, 0), zamStatusBadFftFlag);

    // query and release
    EXPECT_EQ(K::buf_size(nullptr, &a), zamStatusNullPointer);
    EXPECT_EQ(K::buf_size(s, nullptr), zamStatusNullPointer);
    EXPECT_EQ(K::free_spec(nullptr), zamStatusNullPointer);
    EXPECT_EQ(K::free_spec(s), zamStatusOk);
    EXPECT_EQ(K::free_spec(s), zamStatusContextMismatch);  // caller memory: invalidated only
    EXPECT_EQ(K::buf_size(s, &a), zamStatusContextMismatch);
    ASSERT_EQ(K::init_alloc(&s, 2, 4, 0), zamStatusOk);
    EXPECT_EQ(K::buf_size(s, &a), zamStatusOk);
    EXPECT_EQ(a, 0);  // no work buffer at small orders
    EXPECT_EQ(K::free_spec(s), zamStatusOk);
}

TEST(FftSpec, OrderOfChecks) {
    check_order_of_checks<C32fc>();
    check_order_of_checks<C32f>();
    check_order_of_checks<C64fc>();
    check_order_of_checks<C64f>();
    check_order_of_checks<R32f>();
    check_order_of_checks<R64f>();
}

// The kinds with the same layout refuse each other's specs.
TEST(FftSpec, KindsRefuseEachOther) {
    ZamsFFTSpec_C_32fc* a = nullptr;
    ZamsFFTSpec_C_32f* b = nullptr;
    ASSERT_EQ(zamsFFTInitAlloc_C_32fc(&a, 8, 1, 0), zamStatusOk);
    ASSERT_EQ(zamsFFTInitAlloc_C_32f(&b, 8, 1, 0), zamStatusOk);
    int w;
    EXPECT_EQ(zamsFFTGetBufSize_C_32f(reinterpret_cast<ZamsFFTSpec_C_32f*>(a), &w), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTGetBufSize_C_32fc(reinterpret_cast<ZamsFFTSpec_C_32fc*>(b), &w), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTFree_C_32fc(reinterpret_cast<ZamsFFTSpec_C_32fc*>(b)), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTFree_R_32f(reinterpret_cast<ZamsFFTSpec_R_32f*>(a)), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTFree_C_64f(reinterpret_cast<ZamsFFTSpec_C_64f*>(b)), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTFree_C_32fc(a), zamStatusOk);
    EXPECT_EQ(zamsFFTFree_C_32f(b), zamStatusOk);
}

// Flag 4: the 64-bit kinds use 1/sqrt(N) correctly rounded; the 32-bit
// kinds a refined estimate within a few units of the last place.
TEST(FftSpec, SqrtScale) {
    for (int order : {1, 2, 5, 9}) {
        const size_t n = size_t(1) << order;
        ZamsFFTSpec_R_64f* d = nullptr;
        ASSERT_EQ(zamsFFTInitAlloc_R_64f(&d, order, 4, 0), zamStatusOk);
        std::vector<double> x(n, 0.0), y(n);
        x[0] = 1;
        ASSERT_EQ(zamsFFTFwd_RToPerm_64f(x.data(), y.data(), d, nullptr), zamStatusOk);
        EXPECT_EQ(y[0], 1.0 / std::sqrt(double(n)));
        zamsFFTFree_R_64f(d);
        ZamsFFTSpec_R_32f* f = nullptr;
        ASSERT_EQ(zamsFFTInitAlloc_R_32f(&f, order, 4, 0), zamStatusOk);
        std::vector<float> xf(n, 0.f), yf(n);
        xf[0] = 1;
        ASSERT_EQ(zamsFFTFwd_RToPerm_32f(xf.data(), yf.data(), f, nullptr), zamStatusOk);
        EXPECT_NEAR(yf[0], 1.0 / std::sqrt(double(n)), 3e-7 / std::sqrt(double(n)));
        zamsFFTFree_R_32f(f);
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
