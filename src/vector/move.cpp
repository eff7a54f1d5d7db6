// Copy, Move, Set and Zero.
#include <immintrin.h>

#include <cstring>

#include "common/check.h"
#include "common/types.h"
#include "vector/fill.h"
#include "zamcore.h"

namespace zams {
namespace {

// A copy larger than this many bytes goes through zamsCopy_8u in pieces, so
// a byte count beyond the signed 32-bit range works on the 32-bit target.
constexpr uint64_t kCopyPiece = 0x7FFFFFE0u;
// Fills above this size ask for the cache size; beyond the cache they write
// whole 64-byte blocks that bypass it.
constexpr size_t kLargeFill = size_t(2) << 20;

// Pattern bytes for every phase: a store at byte offset o of the fill takes
// its bytes from buf + o % esize.
struct Pattern {
    alignas(32) uint8_t buf[96];
    Pattern(const uint8_t* elem, size_t esize) {
        // esize is a power of two: a mask, not a division per byte.
        for (size_t i = 0; i < sizeof buf; i += esize) std::memcpy(buf + i, elem, esize);
    }
};

inline void store32(uint8_t* p, const uint8_t* src) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src)));
}

// Vector fill: one unaligned store at the start, aligned stores from the
// next 32-byte boundary, one unaligned store ending at the last byte.
void fill_plain(uint8_t* d, size_t n, const Pattern& pat, size_t esize) {
    if (n < 32) {
        std::memcpy(d, pat.buf, n);
        return;
    }
    store32(d, pat.buf);
    size_t o = 32 - (reinterpret_cast<uintptr_t>(d) & 31);
    const __m256i body = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pat.buf + (o & (esize - 1))));
    for (; o + 128 <= n; o += 128) {
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o), body);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o + 32), body);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o + 64), body);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o + 96), body);
    }
    for (; o + 32 <= n; o += 32) _mm256_store_si256(reinterpret_cast<__m256i*>(d + o), body);
    if (o < n) store32(d + n - 32, pat.buf + ((n - 32) & (esize - 1)));
}

// Fill larger than the cache: a 64-byte block at the start, whole 64-byte
// blocks from the next 64-byte boundary with stores that bypass the cache,
// then pieces of 32, 16, 8, 4, 2 and 1 bytes.
void fill_blocks(uint8_t* d, size_t n, const Pattern& pat, size_t esize) {
    store32(d, pat.buf);
    store32(d + 32, pat.buf + 32 % esize);
    size_t o = 64 - (reinterpret_cast<uintptr_t>(d) & 63);
    const __m256i body = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pat.buf + o % esize));
    for (; o + 64 <= n; o += 64) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + o), body);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + o + 32), body);
    }
    _mm_sfence();
    for (size_t piece = 32; piece >= 1; piece /= 2) {
        if (n - o >= piece) {
            std::memcpy(d + o, pat.buf + o % esize, piece);
            o += piece;
        }
    }
}

template <class T> zamStatus copy(const T* src, T* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    uint64_t bytes = uint64_t(len) * sizeof(T);
    const uint8_t* s8 = reinterpret_cast<const uint8_t*>(src);
    uint8_t* d8 = reinterpret_cast<uint8_t*>(dst);
    if constexpr (sizeof(T) > 1) {
        for (; bytes > kCopyPiece; bytes -= kCopyPiece, s8 += kCopyPiece, d8 += kCopyPiece)
            zamsCopy_8u(s8, d8, int(kCopyPiece));
    }
    std::memcpy(d8, s8, size_t(bytes));
    return zamStatusOk;
}

template <class T> zamStatus move(const T* src, T* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    // The byte count is computed in 32 bits, as on the 32-bit target.
    uint32_t bytes = uint32_t(len) * uint32_t(sizeof(T));
    std::memmove(dst, src, bytes);
    return zamStatusOk;
}

template <class T> zamStatus set(T val, T* dst, int len) {
    if (zamStatus s = check_args(len, dst)) return s;
    fill_pattern(reinterpret_cast<uint8_t*>(dst), size_t(len) * sizeof(T), reinterpret_cast<const uint8_t*>(&val),
                 sizeof(T));
    return zamStatusOk;
}

template <class T> zamStatus zero(T* dst, int len) { return set<T>(T{}, dst, len); }

// Bit copy, most significant bit first.
zamStatus copy_bits(const Zam8u* src, int soff, Zam8u* dst, int doff, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (soff < 0 || soff > 7 || doff < 0 || doff > 7) return zamStatusBadArgument;
    if (soff == doff) {
        // Same phase: partial first byte, whole bytes, partial last byte.
        int first = 8 - soff;
        if (len <= first) {
            Zam8u mask = Zam8u((0xFFu >> soff) & ~(0xFFu >> (soff + len)));
            dst[0] = Zam8u((dst[0] & ~mask) | (src[0] & mask));
            return zamStatusOk;
        }
        Zam8u mask = Zam8u(0xFFu >> soff);
        dst[0] = Zam8u((dst[0] & ~mask) | (src[0] & mask));
        int rest = len - first, whole = rest / 8, tail = rest % 8;
        std::memmove(dst + 1, src + 1, size_t(whole));
        if (tail) {
            Zam8u tm = Zam8u(0xFFu << (8 - tail));
            dst[1 + whole] = Zam8u((dst[1 + whole] & ~tm) | (src[1 + whole] & tm));
        }
        return zamStatusOk;
    }
    for (int i = 0; i < len; ++i) {
        int sb = soff + i, db = doff + i;
        int bit = (src[sb >> 3] >> (7 - (sb & 7))) & 1;
        Zam8u m = Zam8u(0x80u >> (db & 7));
        dst[db >> 3] = Zam8u(bit ? (dst[db >> 3] | m) : (dst[db >> 3] & ~m));
    }
    return zamStatusOk;
}

}  // namespace

void fill_pattern(uint8_t* d, size_t n, const uint8_t* elem, size_t esize) {
    Pattern pat(elem, esize);
    if (n > kLargeFill) {
        int cache = 0;
        if (zamGetMaxCacheSizeB(&cache) == zamCoreOk && n > size_t(cache)) {
            fill_blocks(d, n, pat, esize);
            return;
        }
    }
    fill_plain(d, n, pat, esize);
}

}  // namespace zams

using namespace zams;

#define ZAMS_MOVE_FAMILY(T)                                                                              \
    ZAMS_FN(zamStatus, zamsCopy_##T)(const Zam##T* s, Zam##T* d, int n) { return copy(s, d, n); }        \
    ZAMS_FN(zamStatus, zamsMove_##T)(const Zam##T* s, Zam##T* d, int n) { return move(s, d, n); }        \
    ZAMS_FN(zamStatus, zamsSet_##T)(Zam##T v, Zam##T* d, int n) { return set(v, d, n); }                 \
    ZAMS_FN(zamStatus, zamsZero_##T)(Zam##T* d, int n) { return zero(d, n); }

ZAMS_MOVE_FAMILY(8u)
ZAMS_MOVE_FAMILY(16s)
ZAMS_MOVE_FAMILY(16sc)
ZAMS_MOVE_FAMILY(32s)
ZAMS_MOVE_FAMILY(32sc)
ZAMS_MOVE_FAMILY(32f)
ZAMS_MOVE_FAMILY(32fc)
ZAMS_MOVE_FAMILY(64s)
ZAMS_MOVE_FAMILY(64sc)
ZAMS_MOVE_FAMILY(64f)
ZAMS_MOVE_FAMILY(64fc)

ZAMS_FN(zamStatus, zamsCopy_1u)(const Zam8u* pSrc, int srcBitOffset, Zam8u* pDst, int dstBitOffset, int len) {
    return copy_bits(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}
