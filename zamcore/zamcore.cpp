// libzamcore: aligned allocation, CPU features, cache size, thread count.
#include "zamcore.h"

#include <atomic>
#include <cpuid.h>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

std::atomic<uint64_t> g_feature_mask{~0ull};
std::atomic<int> g_threads{0};  // 0: not set, use the processor count

uint64_t detect_features() {
    unsigned a, b, c, d;
    uint64_t f = 0;
    if (!__get_cpuid(1, &a, &b, &c, &d)) return 0;
    if (d & bit_SSE2) f |= ZAM_CPU_SSE2;
    if (c & bit_SSE3) f |= ZAM_CPU_SSE3;
    if (c & bit_SSSE3) f |= ZAM_CPU_SSSE3;
    if (c & bit_SSE4_1) f |= ZAM_CPU_SSE41;
    if (c & bit_SSE4_2) f |= ZAM_CPU_SSE42;
    if (c & bit_POPCNT) f |= ZAM_CPU_POPCNT;
    bool osxsave = (c & bit_OSXSAVE) != 0;
    bool ymm_ok = false;
    if (osxsave) {
        unsigned lo, hi;
        __asm__("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
        ymm_ok = (lo & 6u) == 6u;
    }
    if (ymm_ok && (c & bit_AVX)) {
        f |= ZAM_CPU_AVX;
        if (c & bit_F16C) f |= ZAM_CPU_F16C;
        if (c & bit_FMA) f |= ZAM_CPU_FMA;
        if (__get_cpuid_count(7, 0, &a, &b, &c, &d)) {
            if (b & bit_AVX2) f |= ZAM_CPU_AVX2;
            if (b & bit_AVX512F) f |= ZAM_CPU_AVX512F;
        }
    }
    return f;
}

const uint64_t g_features = detect_features();

int cpuid_max_cache() {
    unsigned a, b, c, d;
    unsigned best = 0;
    // Deterministic cache parameters: leaf 4 (Intel), 0x8000001D (AMD).
    unsigned leaves[2] = {4u, 0x8000001Du};
    for (unsigned leaf : leaves) {
        unsigned maxleaf = __get_cpuid_max(leaf & 0x80000000u, nullptr);
        if (maxleaf < leaf) continue;
        for (unsigned i = 0; i < 16; ++i) {
            __cpuid_count(leaf, i, a, b, c, d);
            unsigned type = a & 31u;
            if (type == 0) break;
            if (type == 2) continue;  // instruction cache
            unsigned ways = (b >> 22) + 1, parts = ((b >> 12) & 1023u) + 1,
                     line = (b & 4095u) + 1, sets = c + 1;
            unsigned long long size = 1ull * ways * parts * line * sets;
            if (size > best && size < (1ull << 31)) best = (unsigned)size;
        }
        if (best) break;
    }
    return (int)best;
}

}  // namespace

extern "C" {

void* zamMalloc(size_t size) {
    void* p = nullptr;
    if (size == 0) size = 1;
    if (posix_memalign(&p, ZAM_MALLOC_ALIGN, size) != 0) return nullptr;
    return p;
}

void zamFree(void* ptr) { free(ptr); }

void* zamAlignPtr(void* ptr, int align) {
    uintptr_t a = (uintptr_t)(align > 0 ? align : 1);
    return (void*)(((uintptr_t)ptr + a - 1) & ~(a - 1));
}

zamCoreStatus zamGetMaxCacheSizeB(int* pSizeBytes) {
    if (!pSizeBytes) return zamCoreNullPointer;
    int size = cpuid_max_cache();
    if (size <= 0) {
        long s = sysconf(_SC_LEVEL3_CACHE_SIZE);
        if (s <= 0) s = sysconf(_SC_LEVEL2_CACHE_SIZE);
        size = s > 0 && s < (1L << 31) ? (int)s : 0;
    }
    if (size <= 0) return zamCoreUnknown;
    *pSizeBytes = size;
    return zamCoreOk;
}

uint64_t ownGetFeature(void) { return g_features & g_feature_mask.load(std::memory_order_relaxed); }

uint64_t zamSetFeatureMask(uint64_t mask) { return g_feature_mask.exchange(mask); }

int ownGetNumThreads(void) {
    int n = g_threads.load(std::memory_order_relaxed);
    if (n > 0) return n;
    long p = sysconf(_SC_NPROCESSORS_ONLN);
    return p > 0 ? (int)p : 1;
}

zamCoreStatus zamSetNumThreads(int n) {
    if (n < 1) return zamCoreBadArgument;
    g_threads.store(n, std::memory_order_relaxed);
    return zamCoreOk;
}

}  // extern "C"
