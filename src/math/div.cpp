// Integer division of two vectors: Div and Div_Round on 8u, 16s, 16u, 16sc,
// 32s and 32s16s. The first source is the divisor.
#include "../common/check.h"
#include "../common/loop.h"
#include "../core/parallel.h"
#include "div_kernel.h"

namespace zams {

namespace {

enum class Body { Exact, Pd, Rcp8u };

struct DivOp {
    DivRange range;
    int threshold;
    Team team;
    Body body;  // vector body inside the range
};

constexpr DivOp kDiv8u{{-15, 8}, threshold::Div_8u, Team::AtMostTwo, Body::Rcp8u};
constexpr DivOp kDiv16s{{-30, 15}, threshold::Div_16s, Team::AtMostTwo, Body::Pd};
constexpr DivOp kDiv32s{{-62, 32}, threshold::Div_32s, Team::AtMostTwo, Body::Exact};
constexpr DivOp kDiv32s16s{{-29, 31}, threshold::Div_32s16s, Team::AtMostTwo, Body::Exact};
constexpr DivOp kDivRound8u{{-15, 8}, threshold::Div_Round_8u, Team::All, Body::Pd};
constexpr DivOp kDivRound16s{{-30, 16}, threshold::Div_Round_16s, Team::All, Body::Pd};
constexpr DivOp kDivRound16u{{-31, 16}, threshold::Div_Round_16u, Team::All, Body::Pd};
constexpr DivRange kDiv16scRange{-32, 32};

// One slice of a real division; true when a divisor was zero.
template <class S, class D>
bool div_slice(const S* div, const S* num, D* dst, int cnt, int sf, Rnd mode, const DivOp& op) {
    bool zero = false;
    auto scalar = [&](int i) { dst[i] = div_elem<D>(int64_t(num[i]), int64_t(div[i]), sf, op.range, mode, zero); };
    bool inside = sf >= op.range.lo && sf <= op.range.hi;
    if constexpr (std::is_same_v<S, D> && sizeof(S) <= 2) {
        if (inside && op.body == Body::Pd) {
            DivPd<D> k(sf, mode);
            int zm = 0;
            for_each_block<8, 16>(dst, cnt, scalar, [&](int i) {
                __m256d n0, n1, d0, d1;
                Lanes8<S>::load(num + i, n0, n1);
                Lanes8<S>::load(div + i, d0, d1);
                Lanes8<D>::store(dst + i, k.quot(n0, d0, zm), k.quot(n1, d1, zm));
            });
            return zero || zm != 0;
        }
        if constexpr (std::is_same_v<S, Zam8u>) {
            if (inside && op.body == Body::Rcp8u) {
                int zm = 0;
                for_each_block<8, 8>(dst, cnt, scalar, [&](int i) {
                    __m128i n = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(num + i));
                    __m128i d = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(div + i));
                    _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + i), div8u_refined(n, d, sf, RcpHardware{}, zm));
                });
                return zero || zm != 0;
            }
        }
    }
    for (int i = 0; i < cnt; ++i) scalar(i);
    return zero;
}

template <class S, class D>
zamStatus div_real(const S* div, const S* num, D* dst, int len, int sf, Rnd mode, const DivOp& op) {
    int warned = run_threshold(len, op.threshold, op.team, [&](int off, int cnt) {
        return div_slice(div + off, num + off, dst + off, cnt, sf, mode, op);
    });
    return warned ? zamStatusWarnDivByZero : zamStatusOk;
}

template <class S, class D>
zamStatus div_checked(const S* div, const S* num, D* dst, int len, int sf, const DivOp& op) {
    if (zamStatus s = check_args(len, div, num, dst)) return s;
    return div_real(div, num, dst, len, sf, Rnd::Even, op);
}

template <class T>
zamStatus div_round(const T* div, const T* num, T* dst, int len, int mode, int sf, const DivOp& op) {
    if (zamStatus s = check_args(len, div, num, dst)) return s;
    if (zamStatus s = check_round(mode)) return s;
    return div_real(div, num, dst, len, sf, Rnd(mode), op);
}

// (a + bi) / (c + di) = ((ac + bd) + (bc - ad) i) / (c^2 + d^2), each part
// by the real rule with the squared norm as divisor; above the range every
// part is 0.
inline Zam16s div16sc_part(int64_t num, int64_t dividend, uint64_t norm, int sf, bool& zero) {
    if (sf > kDiv16scRange.hi) {
        if (norm == 0) zero = true;
        return 0;
    }
    return div_elem<Zam16s>(norm == 0 ? dividend : num, norm, false, sf, kDiv16scRange, Rnd::Even, zero);
}

zamStatus div_16sc(const Zam16sc* div, const Zam16sc* num, Zam16sc* dst, int len, int sf) {
    if (zamStatus s = check_args(len, div, num, dst)) return s;
    int warned = run_threshold(len, threshold::Div_16sc, Team::AtMostTwo, [&](int off, int cnt) {
        bool zero = false;
        for (int i = off; i < off + cnt; ++i) {
            int64_t a = num[i].re, b = num[i].im, c = div[i].re, d = div[i].im;
            uint64_t norm = uint64_t(c * c + d * d);
            Zam16s re = div16sc_part(a * c + b * d, a, norm, sf, zero);
            Zam16s im = div16sc_part(b * c - a * d, b, norm, sf, zero);
            dst[i].re = re;
            dst[i].im = im;
        }
        return zero;
    });
    return warned ? zamStatusWarnDivByZero : zamStatusOk;
}

}  // namespace

}  // namespace zams

using zams::Rnd;

ZAMS_FN(zamStatus, zamsDiv_8u_Sfs)(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len, int scaleFactor) {
    return zams::div_checked(pSrc1, pSrc2, pDst, len, scaleFactor, zams::kDiv8u);
}
ZAMS_FN(zamStatus, zamsDiv_8u_ISfs)(const Zam8u* pSrc, Zam8u* pSrcDst, int len, int scaleFactor) {
    return zamsDiv_8u_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDiv_16s_Sfs)(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor) {
    return zams::div_checked(pSrc1, pSrc2, pDst, len, scaleFactor, zams::kDiv16s);
}
ZAMS_FN(zamStatus, zamsDiv_16s_ISfs)(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int scaleFactor) {
    return zamsDiv_16s_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDiv_32s_Sfs)(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam32s* pDst, int len, int scaleFactor) {
    return zams::div_checked(pSrc1, pSrc2, pDst, len, scaleFactor, zams::kDiv32s);
}
ZAMS_FN(zamStatus, zamsDiv_32s_ISfs)(const Zam32s* pSrc, Zam32s* pSrcDst, int len, int scaleFactor) {
    return zamsDiv_32s_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDiv_32s16s_Sfs)(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam16s* pDst, int len, int scaleFactor) {
    return zams::div_checked(pSrc1, pSrc2, pDst, len, scaleFactor, zams::kDiv32s16s);
}
ZAMS_FN(zamStatus, zamsDiv_16sc_Sfs)(const Zam16sc* pSrc1, const Zam16sc* pSrc2, Zam16sc* pDst, int len, int scaleFactor) {
    return zams::div_16sc(pSrc1, pSrc2, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDiv_16sc_ISfs)(const Zam16sc* pSrc, Zam16sc* pSrcDst, int len, int scaleFactor) {
    return zamsDiv_16sc_Sfs(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}

ZAMS_FN(zamStatus, zamsDiv_Round_8u_Sfs)(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len, int rndMode, int scaleFactor) {
    return zams::div_round(pSrc1, pSrc2, pDst, len, rndMode, scaleFactor, zams::kDivRound8u);
}
ZAMS_FN(zamStatus, zamsDiv_Round_8u_ISfs)(const Zam8u* pSrc, Zam8u* pSrcDst, int len, int rndMode, int scaleFactor) {
    return zamsDiv_Round_8u_Sfs(pSrc, pSrcDst, pSrcDst, len, rndMode, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDiv_Round_16s_Sfs)(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int rndMode, int scaleFactor) {
    return zams::div_round(pSrc1, pSrc2, pDst, len, rndMode, scaleFactor, zams::kDivRound16s);
}
ZAMS_FN(zamStatus, zamsDiv_Round_16s_ISfs)(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int rndMode, int scaleFactor) {
    return zamsDiv_Round_16s_Sfs(pSrc, pSrcDst, pSrcDst, len, rndMode, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDiv_Round_16u_Sfs)(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len, int rndMode, int scaleFactor) {
    return zams::div_round(pSrc1, pSrc2, pDst, len, rndMode, scaleFactor, zams::kDivRound16u);
}
ZAMS_FN(zamStatus, zamsDiv_Round_16u_ISfs)(const Zam16u* pSrc, Zam16u* pSrcDst, int len, int rndMode, int scaleFactor) {
    return zamsDiv_Round_16u_Sfs(pSrc, pSrcDst, pSrcDst, len, rndMode, scaleFactor);
}
