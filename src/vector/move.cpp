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

// The element repeated over 16 bytes: one broadcast a power-of-two size,
// chosen by table (index log2 of the size).
using Broadcast = __m128i (*)(const uint8_t*);
template <class W> __m128i broadcast(const uint8_t* p) {
    W w;
    std::memcpy(&w, p, sizeof w);
    if constexpr (sizeof(W) == 1) return _mm_set1_epi8(static_cast<char>(w));
    else if constexpr (sizeof(W) == 2) return _mm_set1_epi16(static_cast<short>(w));
    else return _mm_set1_epi32(static_cast<int>(w));
}
__m128i broadcast8(const uint8_t* p) {
    const __m128i x = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
    return _mm_unpacklo_epi64(x, x);
}
__m128i broadcast16(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
constexpr Broadcast kBroadcast[5] = {broadcast<uint8_t>, broadcast<uint16_t>, broadcast<uint32_t>, broadcast8,
                                     broadcast16};

// The pattern in phase 0 (byte i is elem[i % esize]) and, for the aligned
// body, in the phase of byte offset o: every byte offset that is a multiple
// of the element size (all that the unaligned stores use) has phase 0.
struct Pattern {
    __m128i p16;
    __m256i p32;
    Pattern(const uint8_t* elem, size_t esize)
        : p16(kBroadcast[__builtin_ctz(unsigned(esize))](elem)), p32(both(p16)) {}
    static __m256i both(__m128i x) { return _mm256_insertf128_si256(_mm256_castsi128_si256(x), x, 1); }
    // Bytes o, o+1, ... of the fill (the element size divides 16).
    __m256i at(size_t o) const {
        const __m128i idx = _mm_and_si128(_mm_add_epi8(_mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15),
                                                       _mm_set1_epi8(static_cast<char>(o & 15))),
                                          _mm_set1_epi8(15));
        return both(_mm_shuffle_epi8(p16, idx));
    }
};

inline void store32(uint8_t* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
inline void store16(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }

// Up to 32 bytes: two stores of the widest piece that fits, overlapping in
// the middle (n is a multiple of the element size, so both are in phase 0).
inline void fill_short(uint8_t* d, size_t n, __m128i p) {
    if (n >= 16) {
        store16(d, p);
        store16(d + n - 16, p);
    } else if (n >= 8) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(d), p);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(d + n - 8), p);
    } else if (n >= 4) {
        const uint32_t w = uint32_t(_mm_cvtsi128_si32(p));
        std::memcpy(d, &w, 4);
        std::memcpy(d + n - 4, &w, 4);
    } else if (n >= 2) {
        const uint16_t w = uint16_t(_mm_cvtsi128_si32(p));
        std::memcpy(d, &w, 2);
        std::memcpy(d + n - 2, &w, 2);
    } else {
        *d = uint8_t(_mm_cvtsi128_si32(p));
    }
}

// Vector fill. Up to 128 bytes: two or four overlapping unaligned stores.
// Longer: one unaligned store at the start, aligned stores four at a time
// from the next 32-byte boundary, and the last 128 bytes as four unaligned
// stores ending at the last byte.
void fill_plain(uint8_t* d, size_t n, const Pattern& pat) {
    const __m256i p = pat.p32;
    if (n <= 32) return fill_short(d, n, pat.p16);
    if (n <= 64) {
        store32(d, p);
        store32(d + n - 32, p);
        return;
    }
    if (n <= 128) {
        store32(d, p);
        store32(d + 32, p);
        store32(d + n - 64, p);
        store32(d + n - 32, p);
        return;
    }
    store32(d, p);
    size_t o = 32 - (reinterpret_cast<uintptr_t>(d) & 31);
    const __m256i body = pat.at(o);
    for (; o + 128 <= n; o += 128) {
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o), body);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o + 32), body);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o + 64), body);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o + 96), body);
    }
    uint8_t* e = d + n;
    store32(e - 128, p);
    store32(e - 96, p);
    store32(e - 64, p);
    store32(e - 32, p);
}

// Fill larger than the cache: a 64-byte block at the start, whole 64-byte
// blocks from the next 64-byte boundary with stores that bypass the cache,
// then the last 64 bytes as two unaligned stores.
void fill_blocks(uint8_t* d, size_t n, const Pattern& pat) {
    const __m256i p = pat.p32;
    store32(d, p);
    store32(d + 32, p);
    size_t o = 64 - (reinterpret_cast<uintptr_t>(d) & 63);
    const __m256i body = pat.at(o);
    for (; o + 64 <= n; o += 64) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + o), body);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + o + 32), body);
    }
    _mm_sfence();
    store32(d + n - 64, p);
    store32(d + n - 32, p);
}

#if !defined(__x86_64__)
// i386's C library copies sixteen bytes a step; a copy that stays in the
// first-level cache goes twice as fast in 32-byte vectors. Beyond 16 KiB the
// caches bound both, and the C library's copy is kept.
constexpr size_t kCopyVector = size_t(16) << 10;

void copy_vector(uint8_t* d, const uint8_t* s, size_t n) {  // 32 <= n, no overlap
    const auto load = [](const uint8_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); };
    const __m256i first = load(s), last = load(s + n - 32);
    size_t o = 32 - (reinterpret_cast<uintptr_t>(d) & 31);  // aligned stores from here on
    for (; o + 64 <= n; o += 64) {
        const __m256i a = load(s + o), b = load(s + o + 32);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o), a);
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + o + 32), b);
    }
    if (o + 32 <= n) _mm256_store_si256(reinterpret_cast<__m256i*>(d + o), load(s + o));
    store32(d, first);
    store32(d + n - 32, last);
}
#endif

template <class T> zamStatus copy(const T* src, T* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    uint64_t bytes = uint64_t(len) * sizeof(T);
    const uint8_t* s8 = reinterpret_cast<const uint8_t*>(src);
    uint8_t* d8 = reinterpret_cast<uint8_t*>(dst);
    if constexpr (sizeof(T) > 1) {
        for (; bytes > kCopyPiece; bytes -= kCopyPiece, s8 += kCopyPiece, d8 += kCopyPiece)
            zamsCopy_8u(s8, d8, int(kCopyPiece));
    }
#if !defined(__x86_64__)
    if (bytes >= 32 && bytes <= kCopyVector) {
        copy_vector(d8, s8, size_t(bytes));
        return zamStatusOk;
    }
#endif
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

// Out of line, so that short fills keep a small frame.
__attribute__((noinline)) void fill_large(uint8_t* d, size_t n, const Pattern& pat) {
    int cache = 0;
    if (zamGetMaxCacheSizeB(&cache) == zamCoreOk && n > size_t(cache)) fill_blocks(d, n, pat);
    else fill_plain(d, n, pat);
}

}  // namespace

void fill_pattern(uint8_t* d, size_t n, const uint8_t* elem, size_t esize) {
    const Pattern pat(elem, esize);
    if (n > kLargeFill) fill_large(d, n, pat);
    else fill_plain(d, n, pat);
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
