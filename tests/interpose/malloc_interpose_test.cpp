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
