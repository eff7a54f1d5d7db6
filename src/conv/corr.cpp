// Auto- and cross-correlation: direct sums below the crossovers, FFT paths
// above them (one whole-signal transform for the auto-correlation, the block
// convolution engine for the cross-correlation).
#include <algorithm>
#include <cstring>

#include "../common/blockconv.h"
#include "../common/check.h"
#include "../common/scale.h"
#include "../common/spec.h"
#include "direct.h"
#include "zamcore.h"

namespace zams::corr {
namespace {

// Lags at or above which the auto-correlation takes the FFT; the
// cross-correlation's work measure above which it does.
inline constexpr int kAutoFftLags = 856;
inline constexpr int kCrossFftWork = 383;

template <class T> inline constexpr bool kInt = std::is_same_v<T, Zam16s>;
template <class T> using real_t = std::conditional_t<is_complex_v<T>, part_t<T>, T>;
// The FFT domain of a floating element type.
template <class T>
using Domain = std::conditional_t<is_complex_v<T>, fftp::Complex<real_t<T>>, fftp::Real<real_t<T>>>;

template <class T> void zero(T* p, int64_t n) {
    if (n > 0) std::memset(static_cast<void*>(p), 0, size_t(n) * sizeof(T));
}

// ------------------------------------------------------- auto-correlation
// m lags by one transform of N >= 2 srcLen: the spectrum times its own
// conjugate, transformed back.
template <class T> zamStatus auto_fft(const T* x, int len, T* dst, int m) {
    using D = Domain<T>;
    const int order = conv::order_at_least(2 * int64_t(len));
    const int64_t N = int64_t(1) << order;
    D fft;
    if (zamStatus s = D::alloc(order, zamFftScaleInverse, fft)) return s;
    const int64_t work = fft.work_bytes();
    zamStatus st = zamStatusNoMemory;
    const int64_t bytes = N * int64_t(sizeof(T)) + work;
    if (uint8_t* mem = bytes < INT32_MAX ? zamsMalloc_8u(int(bytes)) : nullptr) {
        T* buf = reinterpret_cast<T*>(mem);
        uint8_t* w = work ? mem + N * int64_t(sizeof(T)) : nullptr;
        std::memcpy(static_cast<void*>(buf), x, size_t(len) * sizeof(T));
        zero(buf + len, N - len);
        if constexpr (is_complex_v<T>) {
            st = fft.fwd(buf, buf, w);
            if (st >= 0) {
                for (int64_t i = 0; i < N; ++i) buf[i] = T{buf[i].re * buf[i].re + buf[i].im * buf[i].im, 0};
                st = fft.inv(buf, buf, w);
            }
        } else {
            st = fft.fwd_pack(buf, buf, w);
            if (st >= 0) {
                D::mul_pack_conj(buf, buf, int(N));
                st = fft.inv_pack(buf, buf, w);
            }
        }
        if (st >= 0) std::memcpy(static_cast<void*>(dst), buf, size_t(m) * sizeof(T));
        zamsFree(mem);
    }
    fft.release();
    return st;
}

// The raw lags, or the exact sums of the integer members.
template <class T> zamStatus auto_raw(const T* x, int len, T* dst, int m) {
    if (m >= kAutoFftLags) return auto_fft(x, len, dst, m);
    for (int k = 0; k < m; ++k) dst[k] = round_to<T>(lag_sum(x, x + k, len - k));
    return zamStatusOk;
}

enum class Norm { None, A, B };

// Floating normalisations: one reciprocal and a multiplication (A), or a
// vector of the term counts and a division (B), through the arithmetic
// family's own entries.
template <class T> zamStatus normalise(T* dst, int len, int m, Norm norm) {
    using R = real_t<T>;
    constexpr int parts = is_complex_v<T> ? 2 : 1;
    R* d = reinterpret_cast<R*>(dst);
    if (norm == Norm::A) {
        const R r = R(1) / R(len);
        if constexpr (sizeof(R) == 4) return zamsMulC_32f_I(r, d, parts * m);
        else return zamsMulC_64f_I(r, d, parts * m);
    }
    R* div = sizeof(R) == 4 ? reinterpret_cast<R*>(zamsMalloc_32f(parts * m))
                            : reinterpret_cast<R*>(zamsMalloc_64f(parts * m));
    if (!div) return zamStatusNoMemory;
    for (int k = 0; k < m; ++k)
        for (int p = 0; p < parts; ++p) div[parts * k + p] = R(len - k);
    zamStatus s;
    if constexpr (sizeof(R) == 4) s = zamsDiv_32f_I(div, d, parts * m);
    else s = zamsDiv_64f_I(div, d, parts * m);
    zamsFree(div);
    return s;
}

template <class T> zamStatus autocorr(const T* src, int len, T* dst, int dstLen, Norm norm, int sf = 0) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (zamStatus s = check_len(len, dstLen)) return s;
    const int m = std::min(len, dstLen);
    if constexpr (kInt<T>) {
        for (int k = 0; k < m; ++k) {
            const int64_t r = lag_sum(src, src + k, len - k);
            const int64_t d = norm == Norm::A ? len : norm == Norm::B ? len - k : 1;
            dst[k] = div_scale_round_sat<T>(r, d, sf);
        }
        zero(dst + m, dstLen - m);
        return zamStatusOk;
    } else {
        if (zamStatus s = auto_raw(src, len, dst, m); s < 0) return s;
        zero(dst + m, dstLen - m);
        return norm == Norm::None ? zamStatusOk : normalise(dst, len, m, norm);
    }
}

// ------------------------------------------------------ cross-correlation
template <class T> using wide_out_t = std::conditional_t<kInt<T>, int64_t, T>;

template <class T, class O>
zamStatus crosscorr(const T* a, int la, const T* b, int lb, O* dst, int dstLen, int lowLag, int sf = 0) {
    if (zamStatus s = check_ptr(a, b, dst)) return s;
    if (zamStatus s = check_len(la, lb, dstLen)) return s;
    // Lags below 1 - la and above lb - 1 are 0.
    const int64_t lo = int64_t(lowLag), firstLag = 1 - int64_t(la), lastLag = int64_t(lb) - 1;
    const int64_t before = std::clamp<int64_t>(firstLag - lo, 0, dstLen);
    zero(dst, before);
    if (before == dstLen) return zamStatusOk;
    const int64_t start = lo + before;  // first lag to compute
    const int64_t count = std::clamp<int64_t>(lastLag - start + 1, 0, dstLen - before);
    zero(dst + before + count, dstLen - before - count);
    if (count == 0) return zamStatusOk;
    O* out = dst + before;
    if constexpr (!kInt<T>) {
        const int shortLen = std::min(la, lb), longLen = std::max(la, lb);
        if (int(float(shortLen) * float(count) / float(longLen)) > kCrossFftWork) {
            using D = Domain<T>;
            // The kernel is the first source reversed and conjugated.
            T* h = reinterpret_cast<T*>(zamsMalloc_8u(int(int64_t(la) * sizeof(T))));
            if (!h) return zamStatusNoMemory;
            for (int j = 0; j < la; ++j) h[j] = conj_of(a[la - 1 - j]);
            const bool whole = longLen < 3 * int64_t(shortLen) || start - firstLag > shortLen;
            const int order =
                whole ? conv::order_at_least(int64_t(la) + lb - 1) : conv::section_order(la, count);
            const conv::Signal s{nullptr, 0, b, lb, start + la - 1};
            const int threads = !whole && count >= conv::kConv.minParallel ? ownGetNumThreads() : 1;
            zamStatus st = conv::run_once<D>(h, la, s, out, count, std::max(order, conv::order_at_least(la + 1)), threads);
            zamsFree(h);
            return st < 0 ? st : zamStatusOk;
        }
    }
    // Lags in the pointer's width: from here they lie in [1 - la, lb - 1].
    using P = std::ptrdiff_t;
    auto one = [&, start = P(start)](P n) {
        const P lag = start + n;
        const P k0 = std::max<P>(0, -lag), k1 = std::min<P>(la, lb - lag);
        const auto s = lag_sum(a + k0, b + k0 + lag, k1 - k0);
        if constexpr (std::is_same_v<O, Zam64s>) out[n] = s;
        else if constexpr (kInt<T>) out[n] = scale_round_sat<O>(s, sf);
        else out[n] = round_to<T>(s);
    };
    // Floating data: the lags 0 .. lb - la, where the first source lies
    // wholly inside the second, several a step (one at a time, the same
    // bits, when the kernel's buffer cannot be had).
    int64_t full0 = count, full1 = count;
    if constexpr (!kInt<T>) {
        full0 = std::clamp<int64_t>(-start, 0, count);
        full1 = std::clamp<int64_t>(int64_t(lb) - la - start + 1, full0, count);
        bool many = false;
        if (full1 - full0 >= 4 * kVecs) {
            const DoubleTaps<T> ad(a, la, 1);
            many = ad.ok();
            if (many) dot_many(ad.get(), la, b + start + full0, out + full0, full1 - full0, ad.scratch());
        }
        if (!many) full0 = full1 = count;
    }
    for (P n = 0; n < P(full0); ++n) one(n);
    for (P n = P(full1); n < P(count); ++n) one(n);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::corr

using namespace zams::corr;

#define ZAMS_AUTOCORR(T)                                                                                        \
    ZAMS_FN(zamStatus, zamsAutoCorr_##T)(const Zam##T* s, int n, Zam##T* d, int m) {                            \
        return autocorr(s, n, d, m, Norm::None);                                                                \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsAutoCorr_NormA_##T)(const Zam##T* s, int n, Zam##T* d, int m) {                      \
        return autocorr(s, n, d, m, Norm::A);                                                                   \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsAutoCorr_NormB_##T)(const Zam##T* s, int n, Zam##T* d, int m) {                      \
        return autocorr(s, n, d, m, Norm::B);                                                                   \
    }
ZAMS_AUTOCORR(32f)
ZAMS_AUTOCORR(64f)
ZAMS_AUTOCORR(32fc)
ZAMS_AUTOCORR(64fc)

ZAMS_FN(zamStatus, zamsAutoCorr_16s_Sfs)(const Zam16s* s, int n, Zam16s* d, int m, int sf) {
    return autocorr(s, n, d, m, Norm::None, sf);
}
ZAMS_FN(zamStatus, zamsAutoCorr_NormA_16s_Sfs)(const Zam16s* s, int n, Zam16s* d, int m, int sf) {
    return autocorr(s, n, d, m, Norm::A, sf);
}
ZAMS_FN(zamStatus, zamsAutoCorr_NormB_16s_Sfs)(const Zam16s* s, int n, Zam16s* d, int m, int sf) {
    return autocorr(s, n, d, m, Norm::B, sf);
}

#define ZAMS_CROSSCORR(T)                                                                                       \
    ZAMS_FN(zamStatus, zamsCrossCorr_##T)(const Zam##T* a, int la, const Zam##T* b, int lb, Zam##T* d, int n,   \
                                          int lag) {                                                            \
        return crosscorr(a, la, b, lb, d, n, lag);                                                              \
    }
ZAMS_CROSSCORR(32f)
ZAMS_CROSSCORR(64f)
ZAMS_CROSSCORR(32fc)
ZAMS_CROSSCORR(64fc)

ZAMS_FN(zamStatus, zamsCrossCorr_16s_Sfs)(const Zam16s* a, int la, const Zam16s* b, int lb, Zam16s* d, int n, int lag,
                                          int sf) {
    return crosscorr(a, la, b, lb, d, n, lag, sf);
}
ZAMS_FN(zamStatus, zamsCrossCorr_16s64s)(const Zam16s* a, int la, const Zam16s* b, int lb, Zam64s* d, int n, int lag) {
    return crosscorr(a, la, b, lb, d, n, lag);
}
