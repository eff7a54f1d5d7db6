// Multi-channel split and join with a fixed normalisation: an interleaved
// integer buffer to one single-precision vector a channel, mapped onto
// [-1, 1] symmetrically about -0.5, and back.
#include <immintrin.h>

#include <cstring>

#include "../common/check.h"
#include "../common/fpenv.h"
#include "convert_kernels.h"

namespace zams {
namespace {

// 2/65535 and 1/65535 in single precision: -32768 maps to -1, 32767 to +1.
// 2/16777215 and 1/16777215, worked in double precision.
constexpr double kScale24 = 2.0 / 16777215.0, kOffset24 = 1.0 / 16777215.0;

inline int32_t load24(const uint8_t* p) {
    return int32_t(uint32_t(p[0]) << 8 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 24) >> 8;
}
inline void store24(uint8_t* p, int32_t v) {
    p[0] = uint8_t(v), p[1] = uint8_t(v >> 8), p[2] = uint8_t(v >> 16);
}

// The channel checks: the interleaved buffer's pointer first (the source of
// a split, the destination of a join), then the counts, then the table and
// every pointer in it, all before anything is written.
template <class P> zamStatus check_channels(const void* interleaved, P const* table, int nch, int clen) {
    if (interleaved == nullptr) return zamStatusNullPointer;
    if (nch < 1 || clen < 1) return zamStatusBadLength;
    if (table == nullptr) return zamStatusNullPointer;
    for (int c = 0; c < nch; ++c)
        if (table[c] == nullptr) return zamStatusNullPointer;
    return zamStatusOk;
}

// Runs over channel c: `vec(i)` converts frames i..i+7, `one(i)` frame i.
// The vector and scalar forms use the same operations on each element.
template <class V, class S> inline void per_channel(int clen, V vec, S one) {
    int i = 0;
    for (; i + 8 <= clen; i += 8) vec(i);
    for (; i < clen; ++i) one(i);
}

// Gathers frame i..i+7 of channel c (stride nch) as int32.
template <class Get> inline __m256 gather8(Get get, size_t base, size_t stride) {
    return _mm256_cvtepi32_ps(_mm256_setr_epi32(get(base), get(base + stride), get(base + 2 * stride),
                                                get(base + 3 * stride), get(base + 4 * stride),
                                                get(base + 5 * stride), get(base + 6 * stride),
                                                get(base + 7 * stride)));
}

zamStatus split16(const Zam16s* src, Zam32f* const* dst, int nch, int clen) {
    if (zamStatus s = check_channels(src, dst, nch, clen)) return s;
    const float a = float_from_bits(0x38000080u), b = float_from_bits(0x37800080u);
    const __m256 va = _mm256_set1_ps(a), vb = _mm256_set1_ps(b);
    const size_t st = size_t(nch);
    auto get = [&](size_t k) { return int32_t(src[k]); };
    for (int c = 0; c < nch; ++c) {
        Zam32f* d = dst[c];
        per_channel(
            clen,
            [&](int i) { _mm256_storeu_ps(d + i, _mm256_add_ps(_mm256_mul_ps(gather8(get, size_t(i) * st + c, st), va), vb)); },
            [&](int i) { d[i] = float(src[size_t(i) * st + c]) * a + b; });
    }
    return zamStatusOk;
}

zamStatus split24(const Zam24s* src, Zam32f* const* dst, int nch, int clen) {
    if (zamStatus s = check_channels(src, dst, nch, clen)) return s;
    const __m256d va = _mm256_set1_pd(kScale24), vb = _mm256_set1_pd(kOffset24);
    const size_t st = size_t(nch);
    auto get = [&](size_t k) { return load24(src + 3 * k); };
    auto four = [&](__m128i x) { return _mm256_cvtpd_ps(_mm256_add_pd(_mm256_mul_pd(_mm256_cvtepi32_pd(x), va), vb)); };
    for (int c = 0; c < nch; ++c) {
        Zam32f* d = dst[c];
        per_channel(
            clen,
            [&](int i) {
                size_t k = size_t(i) * st + c;
                __m128i lo = _mm_setr_epi32(get(k), get(k + st), get(k + 2 * st), get(k + 3 * st));
                __m128i hi = _mm_setr_epi32(get(k + 4 * st), get(k + 5 * st), get(k + 6 * st), get(k + 7 * st));
                _mm_storeu_ps(d + i, four(lo));
                _mm_storeu_ps(d + i + 4, four(hi));
            },
            [&](int i) { d[i] = float(double(get(size_t(i) * st + c)) * kScale24 + kOffset24); });
    }
    return zamStatusOk;
}

// y clamped to [-1, 1] (a NaN takes -1), times 32767.5 minus 0.5 in single
// precision, converted to nearest-even with the processor's direction set to
// nearest for the call: the exact inverse of the split.
zamStatus join16(const Zam32f* const* src, int nch, int clen, Zam16s* dst) {
    if (zamStatus s = check_channels(dst, src, nch, clen)) return s;
    RoundingScope scope(Rounding::Nearest);
    const __m256 one = _mm256_set1_ps(1.0f), mone = _mm256_set1_ps(-1.0f), k = _mm256_set1_ps(32767.5f),
                 h = _mm256_set1_ps(-0.5f);
    const size_t st = size_t(nch);
    for (int c = 0; c < nch; ++c) {
        const Zam32f* s = src[c];
        auto y8 = [&](__m256 y) {
            y = _mm256_min_ps(_mm256_max_ps(y, mone), one);
            return _mm256_cvtps_epi32(_mm256_add_ps(_mm256_mul_ps(y, k), h));
        };
        per_channel(
            clen,
            [&](int i) {
                __m256i r = y8(_mm256_loadu_ps(s + i));
                alignas(16) int16_t t[8];
                _mm_store_si128(reinterpret_cast<__m128i*>(t), _mm_packs_epi32(cvt::lo128(r), cvt::hi128(r)));
                for (int j = 0; j < 8; ++j) dst[size_t(i + j) * st + c] = t[j];
            },
            [&](int i) {
                __m256i r = y8(_mm256_set1_ps(s[i]));
                dst[size_t(i) * st + c] = int16_t(_mm_extract_epi16(_mm_packs_epi32(cvt::lo128(r), cvt::lo128(r)), 0));
            });
    }
    return zamStatusOk;
}

// The same in double precision with 8388607.5, stored as packed 24-bit.
zamStatus join24(const Zam32f* const* src, int nch, int clen, Zam24s* dst) {
    if (zamStatus s = check_channels(dst, src, nch, clen)) return s;
    RoundingScope scope(Rounding::Nearest);
    const __m256d one = _mm256_set1_pd(1.0), mone = _mm256_set1_pd(-1.0), k = _mm256_set1_pd(8388607.5),
                  h = _mm256_set1_pd(-0.5);
    const size_t st = size_t(nch);
    auto y4 = [&](__m128 y) {
        __m256d v = _mm256_min_pd(_mm256_max_pd(_mm256_cvtps_pd(y), mone), one);
        return _mm256_cvtpd_epi32(_mm256_add_pd(_mm256_mul_pd(v, k), h));
    };
    for (int c = 0; c < nch; ++c) {
        const Zam32f* s = src[c];
        per_channel(
            clen,
            [&](int i) {
                alignas(16) int32_t t[8];
                _mm_store_si128(reinterpret_cast<__m128i*>(t), y4(_mm_loadu_ps(s + i)));
                _mm_store_si128(reinterpret_cast<__m128i*>(t + 4), y4(_mm_loadu_ps(s + i + 4)));
                for (int j = 0; j < 8; ++j) store24(dst + 3 * (size_t(i + j) * st + c), t[j]);
            },
            [&](int i) { store24(dst + 3 * (size_t(i) * st + c), _mm_cvtsi128_si32(y4(_mm_set1_ps(s[i])))); });
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsSplitScaled_16s32f_D2L)(const Zam16s* pSrc, Zam32f** ppDst, int nChannels, int chanLen) {
    return split16(pSrc, ppDst, nChannels, chanLen);
}
ZAMS_FN(zamStatus, zamsSplitScaled_24s32f_D2L)(const Zam24s* pSrc, Zam32f** ppDst, int nChannels, int chanLen) {
    return split24(pSrc, ppDst, nChannels, chanLen);
}
ZAMS_FN(zamStatus, zamsJoinScaled_32f16s_D2L)(const Zam32f* const* ppSrc, int nChannels, int chanLen, Zam16s* pDst) {
    return join16(ppSrc, nChannels, chanLen, pDst);
}
ZAMS_FN(zamStatus, zamsJoinScaled_32f24s_D2L)(const Zam32f* const* ppSrc, int nChannels, int chanLen, Zam24s* pDst) {
    return join24(ppSrc, nChannels, chanLen, pDst);
}
