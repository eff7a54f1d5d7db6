// Flip (reverse) and SwapBytes.
#include <utility>

#include "common/check.h"
#include "common/types.h"

namespace zams {
namespace {

// Reverses in place: swap pairs from both ends inward.
template <class T> void reverse(T* p, int len) {
    for (int i = 0, j = len - 1; i < j; ++i, --j) std::swap(p[i], p[j]);
}

template <class T> zamStatus flip(const T* src, T* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (src == dst) {
        reverse(dst, len);
    } else {
        for (int i = 0; i < len; ++i) dst[i] = src[len - 1 - i];
    }
    return zamStatusOk;
}

template <class T> zamStatus flip_i(T* p, int len) {
    if (zamStatus s = check_args(len, p)) return s;
    reverse(p, len);
    return zamStatusOk;
}

inline Zam16u bswap(Zam16u x) { return __builtin_bswap16(x); }
inline Zam32u bswap(Zam32u x) { return __builtin_bswap32(x); }
inline Zam64u bswap(Zam64u x) { return __builtin_bswap64(x); }

template <class T> zamStatus swap_bytes(const T* src, T* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = bswap(src[i]);
    return zamStatusOk;
}

// 24-bit elements: bytes 0 and 2 of each 3-byte group change places.
zamStatus swap_bytes_24(const Zam8u* src, Zam8u* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) {
        Zam8u a = src[3 * i], b = src[3 * i + 1], c = src[3 * i + 2];
        dst[3 * i] = c;
        dst[3 * i + 1] = b;
        dst[3 * i + 2] = a;
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

#define ZAMS_FLIP(T)                                                                                  \
    ZAMS_FN(zamStatus, zamsFlip_##T)(const Zam##T* s, Zam##T* d, int n) { return flip(s, d, n); }     \
    ZAMS_FN(zamStatus, zamsFlip_##T##_I)(Zam##T * p, int n) { return flip_i(p, n); }
ZAMS_FLIP(8u)
ZAMS_FLIP(16u)
ZAMS_FLIP(32f)
ZAMS_FLIP(32fc)
ZAMS_FLIP(64f)
ZAMS_FLIP(64fc)

#define ZAMS_SWAP(T)                                                                                        \
    ZAMS_FN(zamStatus, zamsSwapBytes_##T)(const Zam##T* s, Zam##T* d, int n) { return swap_bytes(s, d, n); } \
    ZAMS_FN(zamStatus, zamsSwapBytes_##T##_I)(Zam##T * p, int n) { return swap_bytes<Zam##T>(p, p, n); }
ZAMS_SWAP(16u)
ZAMS_SWAP(32u)
ZAMS_SWAP(64u)
ZAMS_FN(zamStatus, zamsSwapBytes_24u)(const Zam8u* s, Zam8u* d, int n) { return swap_bytes_24(s, d, n); }
ZAMS_FN(zamStatus, zamsSwapBytes_24u_I)(Zam8u* p, int n) { return swap_bytes_24(p, p, n); }
