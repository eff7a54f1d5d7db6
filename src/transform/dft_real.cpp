// DFT of any length, real floating kinds: the packed formats around a
// complex plan (dft_core.h). Even lengths: the samples in pairs as len/2
// complex points, then a recombination
//
//     X[k] = E + W^k O,  X[len/2 - k] = conj(E - W^k O),  W = exp(-2 pi i / len),
//     E = (Z[k] + conj Z[len/2 - k]) / 2,  O = -i (Z[k] - conj Z[len/2 - k]) / 2,
//
// and its mirror before the inverse (without the halves: the inverse
// complex transform of len/2 points supplies the rest of the factor len).
// Odd lengths: the complex transform of the real samples, of which the
// first (len + 1)/2 values are kept; the inverse rebuilds the conjugate
// half and keeps the real parts.
#include <cmath>

#include "dft_core.h"
#include "fft_core.h"

namespace zams::dft {
namespace {

// The real layer's normalisation (the plan underneath runs unscaled).
template <class F> bool scale_of(const Hdr<F>* h, bool inv, F& f) {
    const int fl = h->flag;
    if (fl == 8 || (fl == 1 && inv) || (fl == 2 && !inv)) return false;
    f = F(fl == 4 ? 1.0 / std::sqrt(double(h->len)) : 1.0 / double(h->len));
    return true;
}

// X[k] of a packed spectrum of an even len (k <= len/2; X[0], X[len/2] real).
template <class F> inline void get_x(Fmt f, const F* s, int len, int k, F& re, F& im) {
    const int h = len / 2;
    if (k == 0 || k == h) {
        re = k == 0 ? s[0] : (f == Fmt::Perm ? s[1] : f == Fmt::Pack ? s[len - 1] : s[len]);
        im = 0;
        return;
    }
    const int at = f == Fmt::Pack ? 2 * k - 1 : 2 * k;
    re = s[at];
    im = s[at + 1];
}

// The complex values of a vector in reverse order.
template <class F> inline typename fft::VT<F>::V reverse(typename fft::VT<F>::V v) {
    if constexpr (sizeof(F) == 4) return _mm256_permute_ps(_mm256_permute2f128_ps(v, v, 1), 0x4E);
    else return _mm256_permute2f128_pd(v, v, 1);
}

}  // namespace

template <class F> zamStatus real_fwd(const Hdr<F>* h, Fmt fmt, const F* src, F* dst, uint8_t* work) {
    const uint8_t* base = reinterpret_cast<const uint8_t*>(h);
    const int len = h->len;
    F f = 1;
    const bool sc = scale_of(h, false, f);
    if (len % 2 == 0) {
        const int n = len / 2;
        if (zamStatus s = run_cplan<F, false>(base, h->plan, src, dst, work)) return s;
        const F* w = reinterpret_cast<const F*>(base + h->recomb);
        const F a = dst[0], b = dst[1];
        int k = 1;
        // W pairs a vector at k and the mirrored vector ending at n - k
        using T = fft::VT<F>;
        constexpr int W = T::W;
        const auto half = T::set1(F(0.5)), fv = T::set1(f), cs = T::imsign();
        for (; 2 * (k + W - 1) < n; k += W) {
            const int m = n - k - (W - 1);
            const auto z = T::load(dst + 2 * k), y = reverse<F>(T::load(dst + 2 * m));
            const auto cy = T::xor_(y, cs);
            const auto e = T::mul(half, T::add(z, cy));
            const auto o = T::mul(half, fft::mul_negi<F>(T::sub(z, cy)));
            const auto t = fft::cmul<F, false>(o, T::load(w + 2 * k));
            auto xk = T::add(e, t), xm = T::xor_(T::sub(e, t), cs);
            if (sc) {
                xk = T::mul(xk, fv);
                xm = T::mul(xm, fv);
            }
            T::store(dst + 2 * k, xk);
            T::store(dst + 2 * m, reverse<F>(xm));
        }
        for (; 2 * k <= n; ++k) {
            const int m = n - k;
            const F zr = dst[2 * k], zi = dst[2 * k + 1], yr = dst[2 * m], yi = dst[2 * m + 1];
            const F er = F(0.5) * (zr + yr), ei = F(0.5) * (zi - yi);
            const F orr = F(0.5) * (zi + yi), oi = F(0.5) * (yr - zr);  // -i (Z - conj Y) / 2
            const F wr = w[2 * k], wi = w[2 * k + 1];
            F tr = wr * orr - wi * oi, ti = wr * oi + wi * orr;
            F xr = er + tr, xi = ei + ti, mr = er - tr, mi = ti - ei;
            if (sc) { xr *= f; xi *= f; mr *= f; mi *= f; }
            dst[2 * k] = xr;
            dst[2 * k + 1] = xi;
            dst[2 * m] = mr;  // when k == m the same values land twice
            dst[2 * m + 1] = mi;
        }
        F r0 = a + b, rh = a - b;
        if (sc) { r0 *= f; rh *= f; }
        dst[0] = r0;
        if (fmt == Fmt::Perm) {
            dst[1] = rh;
        } else if (fmt == Fmt::Pack) {
            std::memmove(dst + 1, dst + 2, size_t(len - 2) * sizeof(F));
            dst[len - 1] = rh;
        } else {
            dst[1] = 0;
            dst[len] = rh;
            dst[len + 1] = 0;
        }
        return zamStatusOk;
    }
    // odd: the complex transform of the real samples in the work buffer
    F* z = reinterpret_cast<F*>(work);
    uint8_t* pw = work + round64(size_t(len) * 2 * sizeof(F));
    for (int i = 0; i < len; ++i) { z[2 * i] = src[i]; z[2 * i + 1] = 0; }
    if (zamStatus s = run_cplan<F, false>(base, h->plan, z, z, pw)) return s;
    const int half = (len - 1) / 2;
    const int at = fmt == Fmt::Ccs ? 0 : -1;  // X[k] at 2k + at
    dst[0] = sc ? z[0] * f : z[0];
    if (fmt == Fmt::Ccs) dst[1] = 0;
    for (int k = 1; k <= half; ++k) {
        dst[2 * k + at] = sc ? z[2 * k] * f : z[2 * k];
        dst[2 * k + at + 1] = sc ? z[2 * k + 1] * f : z[2 * k + 1];
    }
    return zamStatusOk;
}

template <class F> zamStatus real_inv(const Hdr<F>* h, Fmt fmt, const F* src, F* dst, uint8_t* work) {
    const uint8_t* base = reinterpret_cast<const uint8_t*>(h);
    const int len = h->len;
    F f = 1;
    const bool sc = scale_of(h, true, f);
    if (len % 2 == 0) {
        const int n = len / 2;
        F* z = reinterpret_cast<F*>(work);
        uint8_t* pw = work + round64(size_t(n) * 2 * sizeof(F));
        const F* w = reinterpret_cast<const F*>(base + h->recomb);
        for (int k = 0; k < n; ++k) {
            F xr, xi, yr, yi;
            get_x(fmt, src, len, k, xr, xi);
            get_x(fmt, src, len, n - k, yr, yi);
            // (X + conj Y) + i (X - conj Y) conj(W^k)
            const F dr = xr - yr, di = xi + yi, wr = w[2 * k], wi = -w[2 * k + 1];
            const F pr = dr * wr - di * wi, pi = dr * wi + di * wr;
            F zr = xr + yr - pi, zi = xi - yi + pr;
            if (sc) { zr *= f; zi *= f; }
            z[2 * k] = zr;
            z[2 * k + 1] = zi;
        }
        return run_cplan<F, true>(base, h->plan, z, dst, pw);
    }
    F* z = reinterpret_cast<F*>(work);
    uint8_t* pw = work + round64(size_t(len) * 2 * sizeof(F));
    const int half = (len - 1) / 2;
    const int at = fmt == Fmt::Ccs ? 0 : -1;
    z[0] = src[0];
    z[1] = 0;
    for (int k = 1; k <= half; ++k) {
        const F re = src[2 * k + at], im = src[2 * k + at + 1];
        z[2 * k] = re;
        z[2 * k + 1] = im;
        z[2 * (len - k)] = re;
        z[2 * (len - k) + 1] = -im;
    }
    if (zamStatus s = run_cplan<F, true>(base, h->plan, z, z, pw)) return s;
    for (int i = 0; i < len; ++i) dst[i] = sc ? z[2 * i] * f : z[2 * i];
    return zamStatusOk;
}

template zamStatus real_fwd<float>(const Hdr<float>*, Fmt, const float*, float*, uint8_t*);
template zamStatus real_fwd<double>(const Hdr<double>*, Fmt, const double*, double*, uint8_t*);
template zamStatus real_inv<float>(const Hdr<float>*, Fmt, const float*, float*, uint8_t*);
template zamStatus real_inv<double>(const Hdr<double>*, Fmt, const double*, double*, uint8_t*);

namespace {

template <class F, bool Inv> zamStatus transform(const void* spec, int32_t id, Fmt fmt, const F* src, F* dst, uint8_t* buf) {
    zamStatus s;
    WorkBuf wb;
    const Hdr<F>* h = begin_call<Hdr<F>>(spec, id, src, dst, buf, wb, s);
    if (!h) return s;
    return Inv ? real_inv<F>(h, fmt, src, dst, wb.p) : real_fwd<F>(h, fmt, src, dst, wb.p);
}

}  // namespace
}  // namespace zams::dft

using namespace zams::dft;

ZAMS_DFT_LIFE(DFT, ZamsDFTSpec, R_32f, float, true, kIdR32f)
ZAMS_DFT_LIFE(DFT, ZamsDFTSpec, R_64f, double, true, kIdR64f)

#define ZAMS_DFT_REAL(T, F, ID, FMT, NAME)                                                                      \
    ZAMS_FN(zamStatus, zamsDFTFwd_RTo##NAME##_##T)(const Zam##T* s, Zam##T* d, const ZamsDFTSpec_R_##T* p,     \
                                                   Zam8u* b) {                                                 \
        return transform<F, false>(p, ID, FMT, s, d, b);                                                      \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDFTFwd_RTo##NAME##_##T##_I)(Zam##T * sd, const ZamsDFTSpec_R_##T* p, Zam8u* b) {    \
        return transform<F, false>(p, ID, FMT, sd, sd, b);                                                    \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDFTInv_##NAME##ToR_##T)(const Zam##T* s, Zam##T* d, const ZamsDFTSpec_R_##T* p,     \
                                                   Zam8u* b) {                                                 \
        return transform<F, true>(p, ID, FMT, s, d, b);                                                       \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDFTInv_##NAME##ToR_##T##_I)(Zam##T * sd, const ZamsDFTSpec_R_##T* p, Zam8u* b) {    \
        return transform<F, true>(p, ID, FMT, sd, sd, b);                                                     \
    }

ZAMS_DFT_REAL(32f, float, kIdR32f, Fmt::Perm, Perm)
ZAMS_DFT_REAL(32f, float, kIdR32f, Fmt::Pack, Pack)
ZAMS_DFT_REAL(32f, float, kIdR32f, Fmt::Ccs, CCS)
ZAMS_DFT_REAL(64f, double, kIdR64f, Fmt::Perm, Perm)
ZAMS_DFT_REAL(64f, double, kIdR64f, Fmt::Pack, Pack)
ZAMS_DFT_REAL(64f, double, kIdR64f, Fmt::Ccs, CCS)
