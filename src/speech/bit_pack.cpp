// Packing symbols of nBits bits into a bit stream and back. Bits run from the
// most significant bit of each byte; a 64-bit accumulator holds fewer than
// 8 + 32 pending bits, so every symbol width up to 32 goes in one step.
#include <climits>
#include <cstddef>
#include <cstdint>

#include "../common/check.h"

namespace zams {
namespace {

template <class T> zamStatus check_bits(int offset, int nBits) {
    if (offset < 0 || offset > 7) return zamStatusBadArgument;
    if (nBits < 1 || nBits > int(sizeof(T) * CHAR_BIT)) return zamStatusBadArgument;
    return zamStatusOk;
}

inline uint64_t low_mask(int n) { return (uint64_t(1) << n) - 1; }

template <class T> zamStatus pack(const T* src, Zam8u* dst, int offset, int len, int nBits) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (zamStatus s = check_bits<T>(offset, nBits)) return s;
    uint64_t acc = dst[0] >> (8 - offset);  // the kept bits ahead of the offset
    int pending = offset;
    std::size_t o = 0;
    for (int i = 0; i < len; ++i) {
        acc = acc << nBits | (uint64_t(src[i]) & low_mask(nBits));
        for (pending += nBits; pending >= 8; pending -= 8) dst[o++] = Zam8u(acc >> (pending - 8));
    }
    if (pending > 0) {  // the last byte keeps its bits past the end
        const unsigned keep = unsigned(low_mask(8 - pending));
        dst[o] = Zam8u((unsigned(acc << (8 - pending)) & ~keep) | (dst[o] & keep));
    }
    return zamStatusOk;
}

template <class T> zamStatus unpack(const Zam8u* src, int offset, T* dst, int len, int nBits) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (zamStatus s = check_bits<T>(offset, nBits)) return s;
    uint64_t acc = src[0] & (0xFFu >> offset);
    int pending = 8 - offset;
    std::size_t o = 1;
    for (int i = 0; i < len; ++i) {
        for (; pending < nBits; pending += 8) acc = acc << 8 | src[o++];
        pending -= nBits;
        dst[i] = T((acc >> pending) & low_mask(nBits));
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

#define ZAMS_BITS(T)                                                                                  \
    ZAMS_FN(zamStatus, zamsPackBits_##T)(const Zam##T* s, Zam8u* d, int off, int n, int nBits) {     \
        return pack(s, d, off, n, nBits);                                                             \
    }                                                                                                 \
    ZAMS_FN(zamStatus, zamsUnpackBits_##T)(const Zam8u* s, int off, Zam##T* d, int n, int nBits) {   \
        return unpack(s, off, d, n, nBits);                                                           \
    }

ZAMS_BITS(8u)
ZAMS_BITS(16u)
ZAMS_BITS(32u)
