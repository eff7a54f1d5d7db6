// The Direct forms: the caller keeps the delay line (2 x tapsLen samples,
// each at i and i + tapsLen) and its index. Each input is written twice,
// the index moves on, and the output is the span [index, index + tapsLen)
// against the reversed taps: one template for every type.
#include <algorithm>

#include "fir_direct32f.h"
#include "fir_generic.h"
#include "../common/check.h"

namespace zams::fir {
namespace {

template <class TapsT, class DataT, class PartT> struct DPair {
    using Taps = TapsT;
    using Data = DataT;
    using Part = PartT;
    using Acc = typename AccOf<Taps, Data>::type;
    static constexpr bool exact = std::is_integral_v<Acc> || std::is_same_v<Acc, CI>;
};

// The caller's delay line and index, after the taps: the 32f forms take the
// index as given (the caller keeps it in [0, tapsLen)); the others refuse
// one outside it with -24 before writing anything.
template <class P> zamStatus check_line(const typename P::Data* dly, const int* pIdx, int L) {
    if (zamStatus s = check_ptr(dly, pIdx)) return s;
    constexpr bool f32 = std::is_same_v<typename P::Taps, float> && std::is_same_v<typename P::Data, float>;
    if (!f32 && (*pIdx < 0 || *pIdx >= L)) return zamStatusBadDelayIndex;
    return zamStatusOk;
}

// One input: written, index advanced, the span summed into acc.
template <class P> inline void step(const typename P::Data& x, const typename P::Taps* taps, int L,
                                    typename P::Data* dly, int* pIdx, typename P::Acc& acc) {
    int idx = *pIdx;
    dly[idx] = x;
    dly[idx + L] = x;
    idx = idx + 1 == L ? 0 : idx + 1;
    *pIdx = idx;
    const typename P::Data* span = dly + idx;
    if constexpr (std::is_same_v<typename P::Taps, float> && std::is_same_v<typename P::Data, float>) {
        acc = direct_sum32f(taps, span, L);
    } else {
        typename P::Acc a{};
        for (int k = 0; k < L; ++k) mac(a, taps[L - 1 - k], span[k]);
        acc = a;
    }
}

template <class P>
zamStatus run(const typename P::Data* src, typename P::Data* dst, int len, const typename P::Taps* taps, int L,
              int factor, typename P::Data* dly, int* pIdx, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (zamStatus s = check_ptr(taps)) return s;
    if (L < 1) return zamStatusBadTapsLength;
    if (zamStatus s = check_line<P>(dly, pIdx, L)) return s;
    constexpr int kPiece = 128;
    typename P::Acc acc[kPiece];
    for (int i0 = 0; i0 < len; i0 += kPiece) {
        const int m = std::min(kPiece, len - i0);
        for (int i = 0; i < m; ++i) step<P>(src[i0 + i], taps, L, dly, pIdx, acc[i]);
        emit<typename P::Part>(acc, dst + i0, m, P::exact ? add_scale(factor, sf) : sf);
    }
    return zamStatusOk;
}

template <class P>
zamStatus run_i(typename P::Data* sd, int len, const typename P::Taps* taps, int L, int factor, typename P::Data* dly,
                int* pIdx, int sf) {
    if (zamStatus s = check_ptr(sd)) return s;
    return run<P>(sd, sd, len, taps, L, factor, dly, pIdx, sf);
}

template <class P>
zamStatus one(typename P::Data x, typename P::Data* y, const typename P::Taps* taps, int L, int factor,
              typename P::Data* dly, int* pIdx, int sf) {
    if (zamStatus s = check_ptr(y, taps)) return s;
    if (L < 1) return zamStatusBadTapsLength;
    if (zamStatus s = check_line<P>(dly, pIdx, L)) return s;
    typename P::Acc acc;
    step<P>(x, taps, L, dly, pIdx, acc);
    emit<typename P::Part>(&acc, y, 1, P::exact ? add_scale(factor, sf) : sf);
    return zamStatusOk;
}

template <class P>
zamStatus one_i(typename P::Data* sd, const typename P::Taps* taps, int L, int factor, typename P::Data* dly, int* pIdx,
                int sf) {
    if (zamStatus s = check_ptr(sd)) return s;
    return one<P>(*sd, sd, taps, L, factor, dly, pIdx, sf);
}

using D32f = DPair<Zam32f, Zam32f, float>;
using D32fc = DPair<Zam32fc, Zam32fc, float>;
using D64f = DPair<Zam64f, Zam64f, double>;
using D64fc = DPair<Zam64fc, Zam64fc, double>;
using D16s = DPair<Zam16s, Zam16s, double>;
using D32f16s = DPair<Zam32f, Zam16s, float>;
using D32fc16sc = DPair<Zam32fc, Zam16sc, float>;
using D32s16s = DPair<Zam32s, Zam16s, double>;
using D32sc16sc = DPair<Zam32sc, Zam16sc, double>;
using D64f16s = DPair<Zam64f, Zam16s, double>;
using D64f32f = DPair<Zam64f, Zam32f, double>;
using D64f32s = DPair<Zam64f, Zam32s, double>;
using D64fc16sc = DPair<Zam64fc, Zam16sc, double>;
using D64fc32fc = DPair<Zam64fc, Zam32fc, double>;
using D64fc32sc = DPair<Zam64fc, Zam32sc, double>;

}  // namespace
}  // namespace zams::fir

using namespace zams::fir;

// The four Direct forms of a type: block, in place, one sample, one in place.
#define FIR_DIRECT(PRE, MID, P)                                                                                     \
    ZAMS_FN(zamStatus, zamsFIR##PRE##_Direct##MID)(const P::Data* s, P::Data* d, int n, const P::Taps* t, int L,    \
                                                   P::Data* dl, int* ix) {                                          \
        return run<P>(s, d, n, t, L, 0, dl, ix, 0);                                                                 \
    }                                                                                                               \
    ZAMS_FN(zamStatus, zamsFIR##PRE##_Direct##MID##_I)(P::Data * sd, int n, const P::Taps* t, int L, P::Data* dl,  \
                                                       int* ix) {                                                   \
        return run_i<P>(sd, n, t, L, 0, dl, ix, 0);                                                                 \
    }                                                                                                               \
    ZAMS_FN(zamStatus, zamsFIROne##PRE##_Direct##MID)(P::Data x, P::Data * y, const P::Taps* t, int L, P::Data* dl, \
                                                      int* ix) {                                                    \
        return one<P>(x, y, t, L, 0, dl, ix, 0);                                                                    \
    }                                                                                                               \
    ZAMS_FN(zamStatus, zamsFIROne##PRE##_Direct##MID##_I)(P::Data * sd, const P::Taps* t, int L, P::Data* dl,      \
                                                          int* ix) {                                                \
        return one_i<P>(sd, t, L, 0, dl, ix, 0);                                                                    \
    }

// Integer results: with a scale factor (F: and a taps factor).
#define FIR_DIRECT_SFS(PRE, MID, P, FA, FV)                                                                         \
    ZAMS_FN(zamStatus, zamsFIR##PRE##_Direct##MID##_Sfs)(const P::Data* s, P::Data* d, int n, const P::Taps* t,     \
                                                         int L FA, P::Data* dl, int* ix, int sf) {                  \
        return run<P>(s, d, n, t, L, FV, dl, ix, sf);                                                               \
    }                                                                                                               \
    ZAMS_FN(zamStatus, zamsFIR##PRE##_Direct##MID##_ISfs)(P::Data * sd, int n, const P::Taps* t, int L FA,         \
                                                          P::Data* dl, int* ix, int sf) {                           \
        return run_i<P>(sd, n, t, L, FV, dl, ix, sf);                                                               \
    }                                                                                                               \
    ZAMS_FN(zamStatus, zamsFIROne##PRE##_Direct##MID##_Sfs)(P::Data x, P::Data * y, const P::Taps* t, int L FA,    \
                                                            P::Data* dl, int* ix, int sf) {                         \
        return one<P>(x, y, t, L, FV, dl, ix, sf);                                                                  \
    }                                                                                                               \
    ZAMS_FN(zamStatus, zamsFIROne##PRE##_Direct##MID##_ISfs)(P::Data * sd, const P::Taps* t, int L FA, P::Data* dl, \
                                                             int* ix, int sf) {                                     \
        return one_i<P>(sd, t, L, FV, dl, ix, sf);                                                                  \
    }

#define FACTOR , int f

FIR_DIRECT(, _32f, D32f)
FIR_DIRECT(, _32fc, D32fc)
FIR_DIRECT(, _64f, D64f)
FIR_DIRECT(, _64fc, D64fc)
FIR_DIRECT(64f, _32f, D64f32f)
FIR_DIRECT(64fc, _32fc, D64fc32fc)
FIR_DIRECT_SFS(, _16s, D16s, FACTOR, f)
FIR_DIRECT_SFS(32f, _16s, D32f16s, , 0)
FIR_DIRECT_SFS(32fc, _16sc, D32fc16sc, , 0)
FIR_DIRECT_SFS(32s, _16s, D32s16s, FACTOR, f)
FIR_DIRECT_SFS(32sc, _16sc, D32sc16sc, FACTOR, f)
FIR_DIRECT_SFS(64f, _16s, D64f16s, , 0)
FIR_DIRECT_SFS(64f, _32s, D64f32s, , 0)
FIR_DIRECT_SFS(64fc, _16sc, D64fc16sc, , 0)
FIR_DIRECT_SFS(64fc, _32sc, D64fc32sc, , 0)
