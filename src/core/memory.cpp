// Typed aligned allocation over the core library's allocator.
#include <cstdint>

#include "zamcore.h"
#include "zams_impl.h"

namespace zams {

// len elements of 2^Log2Size bytes each; the byte count wraps in 32 bits
// by design, and no call reaches the core library for len < 1.
template <class T, unsigned Log2Size> T* malloc_n(int len) {
    static_assert(sizeof(T) == (1u << Log2Size));
    if (len < 1) return nullptr;
    uint32_t bytes = static_cast<uint32_t>(len) << Log2Size;
    return static_cast<T*>(zamMalloc(bytes));
}

}  // namespace zams

using zams::malloc_n;

ZAMS_FN(Zam8u*, zamsMalloc_8u)(int len) { return malloc_n<Zam8u, 0>(len); }
ZAMS_FN(Zam8s*, zamsMalloc_8s)(int len) { return malloc_n<Zam8s, 0>(len); }
ZAMS_FN(Zam16u*, zamsMalloc_16u)(int len) { return malloc_n<Zam16u, 1>(len); }
ZAMS_FN(Zam16s*, zamsMalloc_16s)(int len) { return malloc_n<Zam16s, 1>(len); }
ZAMS_FN(Zam8sc*, zamsMalloc_8sc)(int len) { return malloc_n<Zam8sc, 1>(len); }
ZAMS_FN(Zam32u*, zamsMalloc_32u)(int len) { return malloc_n<Zam32u, 2>(len); }
ZAMS_FN(Zam32s*, zamsMalloc_32s)(int len) { return malloc_n<Zam32s, 2>(len); }
ZAMS_FN(Zam32f*, zamsMalloc_32f)(int len) { return malloc_n<Zam32f, 2>(len); }
ZAMS_FN(Zam16sc*, zamsMalloc_16sc)(int len) { return malloc_n<Zam16sc, 2>(len); }
ZAMS_FN(Zam64s*, zamsMalloc_64s)(int len) { return malloc_n<Zam64s, 3>(len); }
ZAMS_FN(Zam64f*, zamsMalloc_64f)(int len) { return malloc_n<Zam64f, 3>(len); }
ZAMS_FN(Zam32sc*, zamsMalloc_32sc)(int len) { return malloc_n<Zam32sc, 3>(len); }
ZAMS_FN(Zam32fc*, zamsMalloc_32fc)(int len) { return malloc_n<Zam32fc, 3>(len); }
ZAMS_FN(Zam64sc*, zamsMalloc_64sc)(int len) { return malloc_n<Zam64sc, 4>(len); }
ZAMS_FN(Zam64fc*, zamsMalloc_64fc)(int len) { return malloc_n<Zam64fc, 4>(len); }

ZAMS_FN(void, zamsFree)(void* ptr) { zamFree(ptr); }
