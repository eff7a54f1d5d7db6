// Arithmetic on packed real spectra: products in Pack and Perm order and
// expansion of CCS, Pack and Perm spectra to full complex spectra.
#include "../common/check.h"
#include "../common/scale.h"
#include "../common/types.h"
#include "zams.h"
#include "zams_impl.h"

namespace zams::fft {
namespace {

enum class Fmt { Pack, Perm };

// Element products: real by real, and complex pairs, floating or scaled 16-bit.
template <class F> struct FloatMul {
    int sf = 0;
    F real(F a, F b) const { return a * b; }
    void cplx(F p, F q, F r, F s, F& re, F& im) const {
        re = p * r - q * s;
        im = q * r + p * s;
    }
    void cplx_conj(F sr, F si, F dr, F di, F& re, F& im) const {
        re = sr * dr + si * di;
        im = dr * si - sr * di;
    }
};
struct Int16Mul {
    int sf = 0;
    Zam16s real(Zam16s a, Zam16s b) const { return scale_round_sat<Zam16s>(int64_t(a) * b, sf); }
    void cplx(Zam16s p, Zam16s q, Zam16s r, Zam16s s, Zam16s& re, Zam16s& im) const {
        re = scale_round_sat<Zam16s>(int64_t(p) * r - int64_t(q) * s, sf);
        im = scale_round_sat<Zam16s>(int64_t(q) * r + int64_t(p) * s, sf);
    }
};

// Positions of a packed spectrum of len elements: the reals, then the
// first element of the complex pairs.
template <Fmt Form> void layout(int len, int& nreal, int reals[2], int& pair0) {
    const bool even = (len & 1) == 0;
    reals[0] = 0;
    nreal = 1;
    if (Form == Fmt::Pack) {
        if (even && len > 1) reals[nreal++] = len - 1;
        pair0 = 1;
    } else {
        if (even && len > 1) reals[nreal++] = 1;
        pair0 = even ? 2 : 1;
    }
}

// dst = a * b over a packed spectrum; dst may be a or b.
template <Fmt Form, class T, class Ops> void mul_packed(const T* a, const T* b, T* dst, int len, const Ops& op) {
    int nreal, reals[2], p0;
    layout<Form>(len, nreal, reals, p0);
    const int npairs = (len - 1) / 2;
    for (int k = 0; k < npairs; ++k) {
        const int i = p0 + 2 * k;
        T re, im;
        op.cplx(a[i], a[i + 1], b[i], b[i + 1], re, im);
        dst[i] = re;
        dst[i + 1] = im;
    }
    for (int r = 0; r < nreal; ++r) dst[reals[r]] = op.real(a[reals[r]], b[reals[r]]);
}

template <Fmt Form, class T, class Ops>
zamStatus mul_checked(const T* a, const T* b, T* dst, int len, const Ops& op) {
    if (zamStatus s = check_ptr(a, b, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    mul_packed<Form>(a, b, dst, len, op);
    return zamStatusOk;
}

template <class F> zamStatus mul_pack_conj(const F* src, F* sd, int len) {
    if (zamStatus s = check_ptr(src, sd)) return s;
    if (len < 1) return zamStatusBadLength;
    FloatMul<F> op;
    int nreal, reals[2], p0;
    layout<Fmt::Pack>(len, nreal, reals, p0);
    for (int k = 0; k < (len - 1) / 2; ++k) {
        const int i = p0 + 2 * k;
        op.cplx_conj(src[i], src[i + 1], sd[i], sd[i + 1], sd[i], sd[i + 1]);
    }
    for (int r = 0; r < nreal; ++r) sd[reals[r]] = src[reals[r]] * sd[reals[r]];
    return zamStatusOk;
}

// Conjugate with the 16-bit imaginary part saturated (-(-32768) is 32767).
template <class P> P neg(P v) {
    if constexpr (std::is_integral_v<P>) return v == traits<P>::min ? traits<P>::max : P(-v);
    else return -v;
}

// Expansion of a Pack or Perm spectrum of N = dstLen reals at the start of
// src into N complex values. Writes run from the top down, so src may lie
// at the start of dst.
template <Fmt Form, class P> zamStatus conj_packed(const P* src, P* dst, int n) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (n < 1) return zamStatusBadLength;
    const bool even = (n & 1) == 0;
    const int npairs = (n - 1) / 2;
    const int p0 = (Form == Fmt::Perm && even) ? 2 : 1;
    const P r0 = src[0];
    const P nyq = even ? src[Form == Fmt::Pack ? n - 1 : 1] : P(0);
    for (int k = npairs; k >= 1; --k) {
        const P re = src[p0 + 2 * (k - 1)], im = src[p0 + 2 * (k - 1) + 1];
        dst[2 * k] = re;
        dst[2 * k + 1] = im;
    }
    if (even) {
        dst[n] = nyq;
        dst[n + 1] = 0;
    }
    dst[0] = r0;
    dst[1] = 0;
    for (int k = 1; k <= npairs; ++k) {
        dst[2 * (n - k)] = dst[2 * k];
        dst[2 * (n - k) + 1] = neg(dst[2 * k + 1]);
    }
    return zamStatusOk;
}

template <class P> zamStatus conj_ccs(const P* src, P* dst, int n) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (n < 1) return zamStatusBadLength;
    if (src != dst)
        for (int i = 0; i < 2 * (n / 2 + 1) && i < 2 * n; ++i) dst[i] = src[i];
    const int mirrored = (n & 1) ? n / 2 : n / 2 - 1;
    for (int k = 1; k <= mirrored; ++k) {
        dst[2 * (n - k)] = src[2 * k];
        dst[2 * (n - k) + 1] = neg(src[2 * k + 1]);
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::fft

using namespace zams::fft;

// Products. A destination equal to a source runs the in-place form first.
#define ZAMS_MUL_PACKED_F(OP, FORM, T)                                                                    \
    ZAMS_FN(zamStatus, zamsMul##OP##_##T##_I)(const Zam##T* s, Zam##T* sd, int len) {                     \
        return mul_checked<FORM>(s, static_cast<const Zam##T*>(sd), sd, len, FloatMul<Zam##T>{});          \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsMul##OP##_##T)(const Zam##T* a, const Zam##T* b, Zam##T* d, int len) {         \
        if (b == d) return zamsMul##OP##_##T##_I(a, d, len);                                              \
        if (a == d) return zamsMul##OP##_##T##_I(b, d, len);                                              \
        return mul_checked<FORM>(a, b, d, len, FloatMul<Zam##T>{});                                        \
    }
ZAMS_MUL_PACKED_F(Pack, Fmt::Pack, 32f)
ZAMS_MUL_PACKED_F(Perm, Fmt::Perm, 32f)
ZAMS_MUL_PACKED_F(Pack, Fmt::Pack, 64f)
ZAMS_MUL_PACKED_F(Perm, Fmt::Perm, 64f)

#define ZAMS_MUL_PACKED_16S(OP, FORM)                                                                     \
    ZAMS_FN(zamStatus, zamsMul##OP##_16s_ISfs)(const Zam16s* s, Zam16s* sd, int len, int sf) {            \
        return mul_checked<FORM>(s, static_cast<const Zam16s*>(sd), sd, len, Int16Mul{sf});               \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsMul##OP##_16s_Sfs)(const Zam16s* a, const Zam16s* b, Zam16s* d, int len, int sf) { \
        if (b == d) return zamsMul##OP##_16s_ISfs(a, d, len, sf);                                         \
        if (a == d) return zamsMul##OP##_16s_ISfs(b, d, len, sf);                                         \
        return mul_checked<FORM>(a, b, d, len, Int16Mul{sf});                                             \
    }
ZAMS_MUL_PACKED_16S(Pack, Fmt::Pack)
ZAMS_MUL_PACKED_16S(Perm, Fmt::Perm)

ZAMS_FN(zamStatus, zamsMulPackConj_32f_I)(const Zam32f* s, Zam32f* sd, int len) { return mul_pack_conj(s, sd, len); }
ZAMS_FN(zamStatus, zamsMulPackConj_64f_I)(const Zam64f* s, Zam64f* sd, int len) { return mul_pack_conj(s, sd, len); }

// Expansion to full spectra.
#define ZAMS_CONJ(T, P)                                                                                   \
    ZAMS_FN(zamStatus, zamsConjPack_##T##_I)(Zam##T * sd, int n) {                                        \
        return conj_packed<Fmt::Pack>(reinterpret_cast<const P*>(sd), reinterpret_cast<P*>(sd), n);      \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsConjPack_##T)(const P* s, Zam##T* d, int n) {                                  \
        if (static_cast<const void*>(s) == static_cast<const void*>(d)) return zamsConjPack_##T##_I(d, n); \
        return conj_packed<Fmt::Pack>(s, reinterpret_cast<P*>(d), n);                                    \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsConjPerm_##T##_I)(Zam##T * sd, int n) {                                        \
        return conj_packed<Fmt::Perm>(reinterpret_cast<const P*>(sd), reinterpret_cast<P*>(sd), n);      \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsConjPerm_##T)(const P* s, Zam##T* d, int n) {                                  \
        if (static_cast<const void*>(s) == static_cast<const void*>(d)) return zamsConjPerm_##T##_I(d, n); \
        return conj_packed<Fmt::Perm>(s, reinterpret_cast<P*>(d), n);                                    \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsConjCcs_##T##_I)(Zam##T * sd, int n) {                                         \
        return conj_ccs(reinterpret_cast<const P*>(sd), reinterpret_cast<P*>(sd), n);                    \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsConjCcs_##T)(const Zam##T* s, Zam##T* d, int n) {                              \
        return conj_ccs(reinterpret_cast<const P*>(s), reinterpret_cast<P*>(d), n);                      \
    }
ZAMS_CONJ(32fc, Zam32f)
ZAMS_CONJ(64fc, Zam64f)
ZAMS_CONJ(16sc, Zam16s)
