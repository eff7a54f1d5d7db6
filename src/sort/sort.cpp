// Sorting: plain, index and radix sorts of every key type, bound to the
// engine in sort_engine.h.
#include <climits>

#include "sort_engine.h"

namespace zams {
namespace {

using sorting::Dir;

// The plain and index sorts run on the calling thread.
template <class T, Dir D> zamStatus sort_values(T* a, int len) {
    if (zamStatus s = check_args(len, a)) return s;
    return sorting::sort<T, D>(a, nullptr, len, nullptr, INT_MAX);
}

template <class T, Dir D> zamStatus sort_index(T* a, int* idx, int len) {
    if (zamStatus s = check_args(len, a, idx)) return s;
    return sorting::sort<T, D>(a, idx, len, nullptr, INT_MAX);
}

// The radix sorts split long vectors over threads from `threshold` on.
template <class T, Dir D, int threshold> zamStatus sort_radix(T* a, uint8_t* buf, int len) {
    if (zamStatus s = check_args(len, a)) return s;
    return sorting::sort<T, D>(a, nullptr, len, buf, threshold);
}

template <class T> zamStatus radix_size(int len, int* pSize) {
    return sorting::buffer_size(len, sizeof(T), false, pSize);
}

}  // namespace
}  // namespace zams

using zams::sorting::Dir;

#define ZAMS_SORT(code, T)                                                                                        \
    ZAMS_FN(zamStatus, zamsSortAscend_##code##_I)(T * p, int len) { return zams::sort_values<T, Dir::Ascend>(p, len); } \
    ZAMS_FN(zamStatus, zamsSortDescend_##code##_I)(T * p, int len) {                                               \
        return zams::sort_values<T, Dir::Descend>(p, len);                                                        \
    }                                                                                                             \
    ZAMS_FN(zamStatus, zamsSortIndexAscend_##code##_I)(T * p, int* idx, int len) {                                 \
        return zams::sort_index<T, Dir::Ascend>(p, idx, len);                                                     \
    }                                                                                                             \
    ZAMS_FN(zamStatus, zamsSortIndexDescend_##code##_I)(T * p, int* idx, int len) {                                \
        return zams::sort_index<T, Dir::Descend>(p, idx, len);                                                    \
    }

ZAMS_SORT(8u, Zam8u)
ZAMS_SORT(16s, Zam16s)
ZAMS_SORT(16u, Zam16u)
ZAMS_SORT(32s, Zam32s)
ZAMS_SORT(32u, Zam32u)
ZAMS_SORT(32f, Zam32f)
ZAMS_SORT(64f, Zam64f)

#define ZAMS_SORT_RADIX(code, T, threshold)                                                                \
    ZAMS_FN(zamStatus, zamsSortRadixGetBufferSize_##code)(int len, int* pSize) {                           \
        return zams::radix_size<T>(len, pSize);                                                            \
    }                                                                                                      \
    ZAMS_FN(zamStatus, zamsSortRadixAscend_##code##_I)(T * p, Zam8u * buf, int len) {                      \
        return zams::sort_radix<T, Dir::Ascend, threshold>(p, buf, len);                                   \
    }                                                                                                      \
    ZAMS_FN(zamStatus, zamsSortRadixDescend_##code##_I)(T * p, Zam8u * buf, int len) {                     \
        return zams::sort_radix<T, Dir::Descend, threshold>(p, buf, len);                                  \
    }

ZAMS_SORT_RADIX(32f, Zam32f, zams::threshold::SortRadix_32)
ZAMS_SORT_RADIX(32s, Zam32s, zams::threshold::SortRadix_32)
ZAMS_SORT_RADIX(32u, Zam32u, zams::threshold::SortRadix_32)
ZAMS_SORT_RADIX(64f, Zam64f, zams::threshold::SortRadix_64f)
