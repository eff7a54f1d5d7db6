/*
 * libzamcore: the small core library that libzams imports.
 *
 * Status convention: functions that can fail return a zamCoreStatus, 0 on
 * success and a negative value on failure, and deliver their result through
 * an out pointer. Functions that cannot fail return their value directly.
 * Allocation follows the C library: null on failure.
 */
#ifndef ZAMCORE_H
#define ZAMCORE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define ZAMCORE_API __attribute__((visibility("default")))

typedef int zamCoreStatus;
enum {
    zamCoreOk = 0,
    zamCoreNullPointer = -1,  /* a required out pointer is null */
    zamCoreBadArgument = -2,  /* a value outside what the function accepts */
    zamCoreUnknown = -3       /* the machine does not tell */
};

/* Alignment of every block zamMalloc returns. */
#define ZAM_MALLOC_ALIGN 64

/* A block of at least `size` bytes aligned to ZAM_MALLOC_ALIGN, or null.
 * A size of 0 returns a valid block that may be freed. */
ZAMCORE_API void* zamMalloc(size_t size);
/* Releases a block from zamMalloc; null is ignored. */
ZAMCORE_API void zamFree(void* ptr);
/* ptr rounded up to a multiple of align (a power of two). */
ZAMCORE_API void* zamAlignPtr(void* ptr, int align);

/* Largest data cache of the machine, in bytes (CPUID, else the system). */
ZAMCORE_API zamCoreStatus zamGetMaxCacheSizeB(int* pSizeBytes);

/* CPU feature bits, as found by CPUID and allowed by the feature mask. */
#define ZAM_CPU_SSE2    (1ull << 0)
#define ZAM_CPU_SSE3    (1ull << 1)
#define ZAM_CPU_SSSE3   (1ull << 2)
#define ZAM_CPU_SSE41   (1ull << 3)
#define ZAM_CPU_SSE42   (1ull << 4)
#define ZAM_CPU_AVX     (1ull << 5)   /* instructions and OS support of ymm state */
#define ZAM_CPU_F16C    (1ull << 6)
#define ZAM_CPU_FMA     (1ull << 7)
#define ZAM_CPU_AVX2    (1ull << 8)
#define ZAM_CPU_AVX512F (1ull << 9)
#define ZAM_CPU_POPCNT  (1ull << 10)

ZAMCORE_API uint64_t ownGetFeature(void);
/* Restricts what ownGetFeature reports (all bits by default); lets callers
 * and tests force software paths. Returns the previous mask. */
ZAMCORE_API uint64_t zamSetFeatureMask(uint64_t mask);

/* Threads the library may use for its parallel loops: the number of
 * processors unless set. */
ZAMCORE_API int ownGetNumThreads(void);
/* Sets the thread count (1 or more); zamCoreBadArgument otherwise. */
ZAMCORE_API zamCoreStatus zamSetNumThreads(int n);

#ifdef __cplusplus
}
#endif

#endif
