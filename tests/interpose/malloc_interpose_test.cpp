// libzams reaches the core allocator through the dynamic linker, so this
// binary's own zamMalloc sees every request the library makes.
#include <dlfcn.h>

#include <cstddef>
#include <vector>

#include "harness.h"
#include "zamcore.h"

namespace {
std::vector<size_t> g_requests;
}

extern "C" void* zamMalloc(size_t size) {
    g_requests.push_back(size);
    using Fn = void* (*)(size_t);
    static Fn real = reinterpret_cast<Fn>(dlsym(RTLD_NEXT, "zamMalloc"));
    // The wrapped byte counts of huge lengths are recorded but not allocated.
    if (size > (size_t(1) << 30)) return nullptr;
    return real(size);
}

namespace {

template <class F> std::vector<size_t> requests_of(F f) {
    g_requests.clear();
    f();
    return g_requests;
}

TEST(MallocRequests, NoCallForNonPositiveLength) {
    EXPECT_TRUE(requests_of([] { EXPECT_EQ(zamsMalloc_32f(0), nullptr); }).empty());
    EXPECT_TRUE(requests_of([] { EXPECT_EQ(zamsMalloc_32f(-5), nullptr); }).empty());
    EXPECT_TRUE(requests_of([] { EXPECT_EQ(zamsMalloc_8u(-2147483647 - 1), nullptr); }).empty());
}

TEST(MallocRequests, ByteCountsPerType) {
    struct Case {
        void* (*alloc)(int);
        size_t elem;
    };
    const Case cases[] = {
        {[](int n) -> void* { return zamsMalloc_8u(n); }, 1},   {[](int n) -> void* { return zamsMalloc_8s(n); }, 1},
        {[](int n) -> void* { return zamsMalloc_16u(n); }, 2},  {[](int n) -> void* { return zamsMalloc_16s(n); }, 2},
        {[](int n) -> void* { return zamsMalloc_8sc(n); }, 2},  {[](int n) -> void* { return zamsMalloc_32u(n); }, 4},
        {[](int n) -> void* { return zamsMalloc_32s(n); }, 4},  {[](int n) -> void* { return zamsMalloc_32f(n); }, 4},
        {[](int n) -> void* { return zamsMalloc_16sc(n); }, 4}, {[](int n) -> void* { return zamsMalloc_64s(n); }, 8},
        {[](int n) -> void* { return zamsMalloc_64f(n); }, 8},  {[](int n) -> void* { return zamsMalloc_32sc(n); }, 8},
        {[](int n) -> void* { return zamsMalloc_32fc(n); }, 8}, {[](int n) -> void* { return zamsMalloc_64sc(n); }, 16},
        {[](int n) -> void* { return zamsMalloc_64fc(n); }, 16},
    };
    for (const Case& c : cases) {
        void* p = nullptr;
        auto r = requests_of([&] { p = c.alloc(3); });
        ASSERT_EQ(r.size(), 1u);
        EXPECT_EQ(r[0], 3 * c.elem);
        zamsFree(p);
    }
}

TEST(MallocRequests, ByteCountWrapsIn32Bits) {
    // 2^30 + 1 elements of 16 bytes: 2^34 + 16 bytes wraps to 16.
    void* p = nullptr;
    auto r = requests_of([&] { p = zamsMalloc_64fc((1 << 30) + 1); });
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0], 16u);
    zamsFree(p);
    // 2^29 elements of 8 bytes: exactly 2^32 wraps to 0.
    r = requests_of([&] { p = zamsMalloc_64f(1 << 29); });
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0], 0u);
    zamsFree(p);
    // 2^28 + 3 elements of 8 bytes stays below 2^32 and is asked for as is.
    r = requests_of([&] { p = zamsMalloc_32fc((1 << 28) + 3); });
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0], (size_t(1) << 31) + 24);
    zamsFree(p);
}

}  // namespace

// The cache size the fills see: the machine's unless a test sets one.
namespace {
int g_cache_override = 0;
}

extern "C" zamCoreStatus zamGetMaxCacheSizeB(int* pSize) {
    if (g_cache_override > 0) {
        *pSize = g_cache_override;
        return zamCoreOk;
    }
    if (g_cache_override < 0) return zamCoreUnknown;
    using Fn = zamCoreStatus (*)(int*);
    static Fn real = reinterpret_cast<Fn>(dlsym(RTLD_NEXT, "zamGetMaxCacheSizeB"));
    return real(pSize);
}

namespace {

// Fills larger than both 2 MiB and the cache write 64-byte blocks after an
// unaligned first block, then 32..1-byte pieces: every start misalignment and
// every tail length must still give exactly the value everywhere.
TEST(LargeFill, BeyondTheCacheEveryAlignmentAndTail) {
    g_cache_override = 1 << 21;
    const int base = (3 << 20) / 2;  // 3 MiB of 16-bit elements
    for (int off : {0, 1, 2, 6, 30, 62}) {
        for (int extra : {0, 1, 15, 16, 17, 31, 32, 33}) {
            const int len = base + extra;
            zt::Guarded<Zam16s> d(len, off);
            ASSERT_EQ(zamsSet_16s(Zam16s(0x1234), d.data(), len), zamStatusOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d[i], 0x1234) << off << " " << extra << " " << i;
            ASSERT_TRUE(d.guards_intact());
            ASSERT_EQ(zamsZero_16s(d.data(), len), zamStatusOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d[i], 0);
            ASSERT_TRUE(d.guards_intact());
        }
    }
    zt::Guarded<Zam64fc> c((3 << 20) / 16 + 3, 8);
    const Zam64fc v{1.5, -7.25};
    ASSERT_EQ(zamsSet_64fc(v, c.data(), int(c.size())), zamStatusOk);
    for (size_t i = 0; i < c.size(); ++i) ASSERT_TRUE(c[i].re == 1.5 && c[i].im == -7.25) << i;
    ASSERT_TRUE(c.guards_intact());
    g_cache_override = -1;  // an unknown cache size: the plain fill serves
    zt::Guarded<Zam8u> b((3 << 20) + 5, 3);
    ASSERT_EQ(zamsSet_8u(0xEE, b.data(), int(b.size())), zamStatusOk);
    for (size_t i = 0; i < b.size(); ++i) ASSERT_EQ(b[i], 0xEE);
    ASSERT_TRUE(b.guards_intact());
    g_cache_override = 0;
}

}  // namespace
