// Median filter over a window kept sorted: each step replaces the sample
// that leaves the window by the one that enters, moving only the entries
// between their two places (a third of the mask on average), instead of
// selecting the median of the whole window anew. Samples are held as keys
// whose integer order is the filter's order (floats: their bits with the
// magnitude bits of negative values inverted), and a ring keeps the raw
// window so that the in-place form never reads an overwritten sample.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "../common/check.h"
#include "../common/num/bits.h"
#include "../common/spec.h"

namespace zams {
namespace {

inline int32_t key_of(float x) {
    const int32_t b = int32_t(to_bits(x));
    return b ^ ((b >> 31) & 0x7FFFFFFF);
}
inline float value_of(int32_t k, float) { return float_from_bits(uint32_t(k ^ ((k >> 31) & 0x7FFFFFFF))); }
inline int16_t key_of(int16_t x) { return x; }
inline int16_t value_of(int16_t k, int16_t) { return k; }

template <class T> zamStatus median(const T* src, T* dst, int len, int mask) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (zamStatus s = check_len(len, mask)) return s;
    if (mask % 2 == 0) return zamStatusBadArgument;
    using K = decltype(key_of(T()));
    WorkBuf work;
    if (zamStatus s = work.get(int64_t(mask) * 2 * int64_t(sizeof(K)), nullptr)) return s;
    K* win = reinterpret_cast<K*>(work.p);  // sorted
    K* ring = win + mask;                    // in order of position
    const int h = mask / 2;
    auto at = [&](int64_t j) { return key_of(src[j < 0 ? 0 : (j >= len ? len - 1 : j)]); };
    for (int j = 0; j < mask; ++j) ring[j] = win[j] = at(int64_t(j) - h);
    std::sort(win, win + mask);
    int oldest = 0;
    for (int n = 0;; ++n) {
        const K med = win[h];
        if (n + 1 == len) {
            dst[n] = value_of(med, T());
            break;
        }
        const K in = at(int64_t(n) + 1 + h);
        dst[n] = value_of(med, T());
        const K out = ring[oldest];
        ring[oldest] = in;
        oldest = oldest + 1 == mask ? 0 : oldest + 1;
        int p = int(std::lower_bound(win, win + mask, out) - win);
        if (in > out) {
            for (; p + 1 < mask && win[p + 1] < in; ++p) win[p] = win[p + 1];
        } else {
            for (; p > 0 && win[p - 1] > in; --p) win[p] = win[p - 1];
        }
        win[p] = in;
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsFilterMedian_32f)(const Zam32f* s, Zam32f* d, int n, int m) { return median(s, d, n, m); }
ZAMS_FN(zamStatus, zamsFilterMedian_32f_I)(Zam32f* sd, int n, int m) { return median(sd, sd, n, m); }
ZAMS_FN(zamStatus, zamsFilterMedian_16s)(const Zam16s* s, Zam16s* d, int n, int m) { return median(s, d, n, m); }
ZAMS_FN(zamStatus, zamsFilterMedian_16s_I)(Zam16s* sd, int n, int m) { return median(sd, sd, n, m); }
