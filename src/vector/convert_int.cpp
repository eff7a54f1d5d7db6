// Integer to integer conversion: widening, saturating narrowing, and
// narrowing with a scale factor.
#include <immintrin.h>

#include <algorithm>
#include <climits>
#include <cstring>

#include "../common/check.h"
#include "convert_kernels.h"

namespace zams {
namespace {

using cvt::ld;
using cvt::run_blocks;
using cvt::st;


// ---- widening ----

zamStatus widen_8s16s(const Zam8s* src, Zam16s* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_blocks<1, 2, 16>(src, dst, size_t(len), [](const uint8_t* s, uint8_t* d) {
        __m128i x = ld(s);
        st(d, _mm_cvtepi8_epi16(x));
        st(d + 16, _mm_cvtepi8_epi16(_mm_srli_si128(x, 8)));
    });
    return zamStatusOk;
}

zamStatus widen_16s32s(const Zam16s* src, Zam32s* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_blocks<2, 4, 8>(src, dst, size_t(len), [](const uint8_t* s, uint8_t* d) {
        __m128i x = ld(s);
        st(d, _mm_cvtepi16_epi32(x));
        st(d + 16, _mm_cvtepi16_epi32(_mm_srli_si128(x, 8)));
    });
    return zamStatusOk;
}

template <bool Signed> zamStatus widen_24(const uint8_t* src, void* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_blocks<3, 4, 8>(src, dst, size_t(len), [](const uint8_t* s, uint8_t* d) {
        __m128i lo, hi;
        cvt::load24x8<Signed>(s, lo, hi);
        st(d, lo);
        st(d + 16, hi);
    });
    return zamStatusOk;
}

// ---- narrowing with a scale: 4 int32 lanes, x * 2^-sf rounded half to
// even (on the signed value) and clamped to [lo, hi] ----

template <bool Signed> class Narrow {
public:
    Narrow(int sf, int32_t lo, int32_t hi) : sf_(sf), lo_(_mm_set1_epi32(lo)), hi_(_mm_set1_epi32(hi)) {
        cnt_ = _mm_cvtsi32_si128(sf > 0 ? sf : -sf);
        if (sf > 0) {
            mask_ = _mm_set1_epi32(int32_t((1u << sf) - 1));
            half_ = _mm_set1_epi32(int32_t(1u << (sf - 1)));
        } else if (sf < 0) {
            // x * 2^k leaves the range exactly where x leaves [lo_in, hi_in].
            int k = -sf;
            hi_in_ = _mm_set1_epi32(Signed ? hi >> k : int32_t(uint32_t(hi) >> k));
            lo_in_ = _mm_set1_epi32(Signed ? -int32_t((uint32_t(-int64_t(lo))) >> k) : 0);
        }
    }

    __m128i operator()(__m128i x) const {
        if (sf_ > 0) {
            // q = floor(x / 2^sf); one more where the remainder passes one
            // half, or equals it and q is odd. No sum can overflow.
            __m128i q = Signed ? _mm_sra_epi32(x, cnt_) : _mm_srl_epi32(x, cnt_);
            __m128i rem = _mm_and_si128(x, mask_);
            __m128i t = _mm_add_epi32(_mm_sub_epi32(rem, half_), _mm_and_si128(q, _mm_set1_epi32(1)));
            q = _mm_sub_epi32(q, _mm_cmpgt_epi32(t, _mm_setzero_si128()));
            return clamp(q);
        }
        if (sf_ == 0) return clamp(x);
        __m128i r = _mm_sll_epi32(x, cnt_);
        if constexpr (Signed) {
            r = _mm_blendv_epi8(r, hi_, _mm_cmpgt_epi32(x, hi_in_));
            return _mm_blendv_epi8(r, lo_, _mm_cmpgt_epi32(lo_in_, x));
        } else {
            __m128i fits = _mm_cmpeq_epi32(_mm_min_epu32(x, hi_in_), x);
            return _mm_blendv_epi8(hi_, r, fits);
        }
    }

private:
    __m128i clamp(__m128i x) const {
        if constexpr (Signed) return _mm_min_epi32(_mm_max_epi32(x, lo_), hi_);
        else return _mm_min_epu32(x, hi_);
    }
    int sf_;
    __m128i lo_, hi_, cnt_, mask_{}, half_{}, hi_in_{}, lo_in_{};
};

zamStatus narrow_32s16s(const Zam32s* src, Zam16s* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_blocks<4, 2, 8>(src, dst, size_t(len), [](const uint8_t* s, uint8_t* d) {
        st(d, _mm_packs_epi32(ld(s), ld(s + 16)));
    });
    return zamStatusOk;
}

zamStatus narrow_32s16s_sfs(const Zam32s* src, Zam16s* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const Narrow<true> f(std::clamp(sf, -15, 31), -32768, 32767);
    run_blocks<4, 2, 8>(src, dst, size_t(len), [&](const uint8_t* s, uint8_t* d) {
        st(d, _mm_packs_epi32(f(ld(s)), f(ld(s + 16))));
    });
    return zamStatusOk;
}

template <bool Signed> zamStatus narrow_32_24_sfs(const void* src, uint8_t* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const Narrow<Signed> f(std::clamp(sf, -31, 31), Signed ? -8388608 : 0, Signed ? 8388607 : 16777215);
    run_blocks<4, 3, 8>(src, dst, size_t(len), [&](const uint8_t* s, uint8_t* d) {
        cvt::store24x8(d, f(ld(s)), f(ld(s + 16)));
    });
    return zamStatusOk;
}

// ---- 16s to 8s with a mode and a scale ----

zamStatus narrow_16s8s_sfs(const Zam16s* src, Zam8s* dst, int len, int mode, int sf) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (len == 0) return zamStatusBadLength;  // the length is an unsigned count here
    const size_t n = static_cast<unsigned>(len);
    if (sf >= 18) {
        std::memset(dst, 0, n);
        return zamStatusOk;
    }
    if (sf <= 0) {
        // A shift by 7 already saturates every nonzero value: below -6 only the sign counts.
        const __m128i k = _mm_cvtsi32_si128(sf < -7 ? 7 : -sf);
        run_blocks<2, 1, 16>(src, dst, n, [&](const uint8_t* s, uint8_t* d) {
            __m128i a = ld(s), b = ld(s + 16);
            __m128i w0 = _mm_sll_epi32(_mm_cvtepi16_epi32(a), k), w1 = _mm_sll_epi32(_mm_cvtepi16_epi32(_mm_srli_si128(a, 8)), k);
            __m128i w2 = _mm_sll_epi32(_mm_cvtepi16_epi32(b), k), w3 = _mm_sll_epi32(_mm_cvtepi16_epi32(_mm_srli_si128(b, 8)), k);
            st(d, _mm_packs_epi16(_mm_packs_epi32(w0, w1), _mm_packs_epi32(w2, w3)));
        });
        return zamStatusOk;
    }
    // On the magnitude m: r = (m + add + ((m >> sf) & odd)) >> sf, where
    // nearest-even adds half - 1 plus the lowest kept bit, toward zero adds
    // nothing and half-away adds half. The sign comes back after rounding.
    const int half = 1 << (sf - 1);
    const __m128i cnt = _mm_cvtsi32_si128(sf);
    const __m128i add = _mm_set1_epi32(mode == 1 ? half - 1 : mode == 0 ? 0 : half);
    const __m128i odd = _mm_set1_epi32(mode == 1 ? 1 : 0);
    auto lane = [&](__m128i x) {
        __m128i m = _mm_abs_epi32(x);
        __m128i r = _mm_add_epi32(_mm_add_epi32(m, add), _mm_and_si128(_mm_srl_epi32(m, cnt), odd));
        r = _mm_srl_epi32(r, cnt);
        __m128i sg = _mm_srai_epi32(x, 31);
        return _mm_sub_epi32(_mm_xor_si128(r, sg), sg);
    };
    run_blocks<2, 1, 16>(src, dst, n, [&](const uint8_t* s, uint8_t* d) {
        __m128i a = ld(s), b = ld(s + 16);
        __m128i w0 = lane(_mm_cvtepi16_epi32(a)), w1 = lane(_mm_cvtepi16_epi32(_mm_srli_si128(a, 8)));
        __m128i w2 = lane(_mm_cvtepi16_epi32(b)), w3 = lane(_mm_cvtepi16_epi32(_mm_srli_si128(b, 8)));
        st(d, _mm_packs_epi16(_mm_packs_epi32(w0, w1), _mm_packs_epi32(w2, w3)));
    });
    return zamStatusOk;
}

// ---- 64s to 32s with a mode and a scale, 2 lanes of 64 bits a vector ----

// An int64 lane clamped to the int32 range.
inline __m128i sat32(__m128i v) {
    const __m128i hi = _mm_set1_epi64x(INT32_MAX), lo = _mm_set1_epi64x(INT32_MIN);
    v = _mm_blendv_epi8(v, hi, _mm_cmpgt_epi64(v, hi));
    return _mm_blendv_epi8(v, lo, _mm_cmpgt_epi64(lo, v));
}

class Narrow64 {
public:
    Narrow64(int mode, int sf) : sf_(std::clamp(sf, -31, 63)) {
        cnt_ = _mm_cvtsi32_si128(sf_ > 0 ? sf_ : -sf_);
        if (sf_ > 0) {
            // One more unit where rem - half + (q & odd) + extra > 0: nearest-even
            // counts the lowest kept bit, half-away any remainder from one half
            // up; toward zero never adds (half above every remainder).
            mask_ = _mm_set1_epi64x(int64_t((uint64_t(1) << sf_) - 1));
            half_ = _mm_set1_epi64x(mode == 0 ? INT64_MAX : int64_t(1) << (sf_ - 1));
            odd_ = _mm_set1_epi64x(mode == 1 ? 1 : 0);
            extra_ = _mm_set1_epi64x(mode == 1 || mode == 0 ? 0 : 1);
        } else if (sf_ < 0) {
            hi_in_ = _mm_set1_epi64x(int64_t(INT32_MAX) >> -sf_);
            lo_in_ = _mm_set1_epi64x(-(int64_t(1) << (31 + sf_)));
        }
    }

    __m128i operator()(__m128i x) const {
        if (sf_ == 0) return sat32(x);
        if (sf_ < 0) {
            __m128i r = _mm_sll_epi64(x, cnt_);
            r = _mm_blendv_epi8(r, _mm_set1_epi64x(INT32_MAX), _mm_cmpgt_epi64(x, hi_in_));
            return _mm_blendv_epi8(r, _mm_set1_epi64x(INT32_MIN), _mm_cmpgt_epi64(lo_in_, x));
        }
        // On the magnitude (as unsigned, so INT64_MIN's is 2^63), then the sign back.
        __m128i sg = _mm_cmpgt_epi64(_mm_setzero_si128(), x);
        __m128i m = _mm_sub_epi64(_mm_xor_si128(x, sg), sg);
        __m128i q = _mm_srl_epi64(m, cnt_);
        __m128i t = _mm_sub_epi64(_mm_and_si128(m, mask_), half_);
        t = _mm_add_epi64(t, _mm_add_epi64(_mm_and_si128(q, odd_), extra_));
        q = _mm_sub_epi64(q, _mm_cmpgt_epi64(t, _mm_setzero_si128()));
        return sat32(_mm_sub_epi64(_mm_xor_si128(q, sg), sg));
    }

private:
    int sf_;
    __m128i cnt_, mask_{}, half_{}, odd_{}, extra_{}, hi_in_{}, lo_in_{};
};

zamStatus narrow_64s32s_sfs(const Zam64s* src, Zam32s* dst, int len, int mode, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const Narrow64 f(mode, sf);
    run_blocks<8, 4, 4>(src, dst, size_t(len), [&](const uint8_t* s, uint8_t* d) {
        __m128 a = _mm_castsi128_ps(f(ld(s))), b = _mm_castsi128_ps(f(ld(s + 16)));
        st(d, _mm_castps_si128(_mm_shuffle_ps(a, b, _MM_SHUFFLE(2, 0, 2, 0))));
    });
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsConvert_8s16s)(const Zam8s* pSrc, Zam16s* pDst, int len) { return widen_8s16s(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_16s32s)(const Zam16s* pSrc, Zam32s* pDst, int len) { return widen_16s32s(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_24s32s)(const Zam24s* pSrc, Zam32s* pDst, int len) { return widen_24<true>(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_24u32u)(const Zam24u* pSrc, Zam32u* pDst, int len) { return widen_24<false>(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_32s16s)(const Zam32s* pSrc, Zam16s* pDst, int len) { return narrow_32s16s(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_32s16s_Sfs)(const Zam32s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    return narrow_32s16s_sfs(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_32s24s_Sfs)(const Zam32s* pSrc, Zam24s* pDst, int len, int scaleFactor) {
    return narrow_32_24_sfs<true>(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_32u24u_Sfs)(const Zam32u* pSrc, Zam24u* pDst, int len, int scaleFactor) {
    return narrow_32_24_sfs<false>(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_16s8s_Sfs)(const Zam16s* pSrc, Zam8s* pDst, int len, zamRoundMode rndMode,
                                          int scaleFactor) {
    return narrow_16s8s_sfs(pSrc, pDst, len, rndMode, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_64s32s_Sfs)(const Zam64s* pSrc, Zam32s* pDst, int len, zamRoundMode rndMode,
                                           int scaleFactor) {
    return narrow_64s32s_sfs(pSrc, pDst, len, rndMode, scaleFactor);
}
