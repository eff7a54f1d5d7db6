// Nearest entry of a table sorted ascending, by binary search: the first
// entry not below x and the one before it are the candidates; of equal
// distances (and of equal entries) the lower index wins.
#include <cstdint>
#include <type_traits>

#include "../common/check.h"

namespace zams {
namespace {

// First index in [lo, hi) whose entry is not below x (NaN: none is below).
template <class T> inline int lower_bound(const T* t, int lo, int hi, T x) {
    while (lo < hi) {
        const int mid = lo + (hi - lo) / 2;
        if (t[mid] < x) lo = mid + 1;
        else hi = mid;
    }
    return lo;
}

// Distances are exact: 16-bit in int, float differences in double.
template <class T> using dist_t = std::conditional_t<sizeof(T) == 2, int32_t, double>;

template <class T> zamStatus find_nearest(const T* src, T* dst, int* idx, int len, const T* table, int tblLen) {
    if (zamStatus s = check_ptr(src, dst, idx, table)) return s;
    if (zamStatus s = check_len(len, tblLen)) return s;
    using D = dist_t<T>;
    for (int i = 0; i < len; ++i) {
        const T x = src[i];
        int j = lower_bound(table, 0, tblLen, x);
        if (j == tblLen || (j > 0 && D(x) - D(table[j - 1]) <= D(table[j]) - D(x))) {
            j = j == 0 ? 0 : lower_bound(table, 0, j - 1, table[j - 1]);
        }
        dst[i] = table[j];
        idx[i] = j;
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsFindNearest_16u)(const Zam16u* s, Zam16u* d, int* ix, int n, const Zam16u* t, int tblLen) {
    return find_nearest(s, d, ix, n, t, tblLen);
}
ZAMS_FN(zamStatus, zamsFindNearest_32f)(const Zam32f* s, Zam32f* d, int* ix, int n, const Zam32f* t, int tblLen) {
    return find_nearest(s, d, ix, n, t, tblLen);
}
