// Real FFT into and out of the Perm, Pack and CCS formats, 32-bit and
// 64-bit floats. N reals are transformed as N/2 complex points (even
// samples real, odd samples imaginary) and the halves recombined.
#include "fft_recomb.h"

namespace zams::fft {

// The complex transform of N/2 points, in place or not, with the call's buffer.
template <class F, bool Inv> zamStatus half_transform(const Hdr<F>* h, const F* src, F* dst, uint8_t* buf) {
    const int M = h->order - 1;
    if (M <= kSmallMaxOrder && M >= kSmallMinOrder) {
        small_fft<F, Inv>(src, dst, M);
        return zamStatusOk;
    }
    const Plan<F> pl = plan_of(h, M);
    if (M <= 6) {
        alignas(32) F tmp[128];
        cfft_inter<F, Inv>(pl, src, dst, tmp);
        return zamStatusOk;
    }
    WorkBuf wb;
    if (zamStatus e = wb.get(h->work, buf)) return e;
    cfft_inter<F, Inv>(pl, src, dst, reinterpret_cast<F*>(wb.p));
    return zamStatusOk;
}

template zamStatus half_transform<float, false>(const Hdr<float>*, const float*, float*, uint8_t*);
template zamStatus half_transform<float, true>(const Hdr<float>*, const float*, float*, uint8_t*);
template zamStatus half_transform<double, false>(const Hdr<double>*, const double*, double*, uint8_t*);
template zamStatus half_transform<double, true>(const Hdr<double>*, const double*, double*, uint8_t*);

namespace {

enum class Fmt { Perm, Pack, Ccs };

// What both directions read first: the checked spec, the order, the length
// and the direction's scale (on: scale != 1 applies).
template <class F> struct RealCall {
    const Hdr<F>* h;
    int R;
    size_t N;
    bool on;
    F sc;
};

template <class F, bool Inv>
zamStatus real_call(const void* spec, int32_t id, const F* src, const F* dst, RealCall<F>& c) {
    zamStatus s;
    c.h = spec_of<Hdr<F>>(spec, id, s);
    if (!c.h) return s;
    if (!src || !dst) return zamStatusNullPointer;
    c.R = c.h->order;
    c.N = size_t(1) << c.R;
    c.on = (Inv ? c.h->invOn : c.h->fwdOn) != 0;
    c.sc = c.on ? c.h->scale : F(1);
    return zamStatusOk;
}

// The 16-point forward transform, straight-line in float, every input read
// before the first store (src may be dst). n = 4 n1 + n2, k = k1 + 4 k2:
// 4-point transforms over n1 for each n2, the factors w_16^(n2 k1), then
// 4-point transforms over n2; bins 9 to 15 are the conjugates of 7 to 1.
template <Fmt Out> void real16_fwd(const float* x, float* dst, bool on, float sc) {
    const float h = kW16_32f[4], c = kW16_32f[2], s = -kW16_32f[3];
    float v0[4], v2[4], b[4], d[4];
    for (int n2 = 0; n2 < 4; ++n2) {
        const float a = x[n2] + x[n2 + 8], cc = x[n2 + 4] + x[n2 + 12];
        b[n2] = x[n2] - x[n2 + 8];
        d[n2] = x[n2 + 4] - x[n2 + 12];
        v0[n2] = a + cc;
        v2[n2] = a - cc;
    }
    // k1 = 0: bins 0, 4, 8
    const float p = v0[0] + v0[2], q = v0[1] + v0[3];
    float x0 = p + q, x8 = p - q, x4r = v0[0] - v0[2], x4i = v0[3] - v0[1];
    // k1 = 2: bins 2, 6 (v2[n2] times w_8^n2)
    const float e = h * (v2[1] - v2[3]), f = h * (v2[1] + v2[3]);
    float x2r = v2[0] + e, x2i = -(v2[2] + f), x6r = v2[0] - e, x6i = v2[2] - f;
    // k1 = 1: bins 1, 5, 9 = conj 7, 13 = conj 3 ((b - i d) times w_16^n2)
    const float y1r = b[1] * c - d[1] * s, y1i = -(b[1] * s + d[1] * c);
    const float y2r = h * (b[2] - d[2]), y2i = -h * (b[2] + d[2]);
    const float y3r = b[3] * s - d[3] * c, y3i = -(b[3] * c + d[3] * s);
    const float Ar = b[0] + y2r, Ai = y2i - d[0], Br = b[0] - y2r, Bi = -d[0] - y2i;
    const float Cr = y1r + y3r, Ci = y1i + y3i, Dr = y1r - y3r, Di = y1i - y3i;
    __m128 o1 = _mm_setr_ps(x2r, x2i, Br - Di, -(Bi + Dr));  // bins 2, 3 = conj(B + i D)
    __m128 o2 = _mm_setr_ps(x4r, x4i, Br + Di, Bi - Dr);     // bins 4, 5 = B - i D
    __m128 o3 = _mm_setr_ps(x6r, x6i, Ar - Cr, Ci - Ai);     // bins 6, 7 = conj(A - C)
    float x1r = Ar + Cr, x1i = Ai + Ci;
    if (on) {
        const __m128 v = _mm_set1_ps(sc);
        o1 = _mm_mul_ps(o1, v);
        o2 = _mm_mul_ps(o2, v);
        o3 = _mm_mul_ps(o3, v);
        x0 = x0 * sc; x8 = x8 * sc; x1r = x1r * sc; x1i = x1i * sc;
    }
    // Whole 16-byte stores: a call that reads this output back loads the
    // same pieces (no split store forwarding).
    if constexpr (Out == Fmt::Pack) {
        _mm_storeu_ps(dst, _mm_setr_ps(x0, x1r, x1i, _mm_cvtss_f32(o1)));
        // one bin to the left: lanes 1, 2, 3 of a vector and lane 0 of the next
        const auto left = [](__m128 a, __m128 b) {
            return _mm_blend_ps(_mm_shuffle_ps(a, a, 0xF9), _mm_shuffle_ps(b, b, 0x00), 0x8);
        };
        _mm_storeu_ps(dst + 4, left(o1, o2));
        _mm_storeu_ps(dst + 8, left(o2, o3));
        _mm_storeu_ps(dst + 12, left(o3, _mm_set_ss(x8)));
    } else {
        _mm_storeu_ps(dst, _mm_setr_ps(x0, Out == Fmt::Ccs ? 0.0f : x8, x1r, x1i));
        _mm_storeu_ps(dst + 4, o1);
        _mm_storeu_ps(dst + 8, o2);
        _mm_storeu_ps(dst + 12, o3);
        if constexpr (Out == Fmt::Ccs) {
            dst[16] = x8;
            dst[17] = 0;
        }
    }
}

// The 16-point inverse, straight-line in float, every input read before the
// first store. k = 4 k1 + k2, n = n1 + 4 n2: 4-point transforms over k1 for
// each k2 give H_k2[n1] after the factors w_16^(-n1 k2); H0 and H2 are real
// and H3 = conj H1, so row n2 of the output is H0 + (-1)^n2 H2 + 2 Re(i^n2 H1),
// four lanes n1 at a time.
template <Fmt In> void real16_inv(const float* src, float* dst, bool on, float sc) {
    const float h = kW16_32f[4], c = kW16_32f[2], s = -kW16_32f[3];
    const float rt2 = 2 * h;
    float X[18];  // bins 0 to 8, (re, im); the imaginary parts of 0 and 8 unused
    if constexpr (In == Fmt::Pack) {
        X[0] = src[0];
        for (int i = 1; i < 15; ++i) X[i + 1] = src[i];
        X[16] = src[15];
    } else {
        for (int i = 0; i < 16; ++i) X[i] = src[i];
        X[16] = In == Fmt::Perm ? src[1] : src[16];
    }
    const float a = X[0] + X[16], b = X[0] - X[16];
    const __m128 h0 = _mm_setr_ps(a + 2 * X[8], b - 2 * X[9], a - 2 * X[8], b + 2 * X[9]);
    const float x2r = X[4], x2i = X[5], x6r = X[12], x6i = X[13];
    const __m128 h2 = _mm_setr_ps(2 * (x2r + x6r), rt2 * ((x2r - x2i) - (x6r + x6i)), 2 * (x6i - x2i),
                                  -(rt2 * ((x2r + x2i) - (x6r - x6i))));
    // bins 1, 5, 9 = conj 7, 13 = conj 3
    const float Pr = X[2] + X[14], Pi = X[3] - X[15], Qr = X[2] - X[14], Qi = X[3] + X[15];
    const float Rr = X[10] + X[6], Ri = X[11] - X[7], Sr = X[10] - X[6], Si = X[11] + X[7];
    const float g1r = Qr - Si, g1i = Qi + Sr, g2r = Pr - Rr, g2i = Pi - Ri, g3r = Qr + Si, g3i = Qi - Sr;
    const __m128 h1r = _mm_setr_ps(Pr + Rr, g1r * c - g1i * s, h * (g2r - g2i), g3r * s - g3i * c);
    const __m128 h1i = _mm_setr_ps(Pi + Ri, g1r * s + g1i * c, h * (g2r + g2i), g3r * c + g3i * s);
    const __m128 u = _mm_add_ps(h0, h2), v = _mm_sub_ps(h0, h2);
    const __m128 t = _mm_add_ps(h1r, h1r), w = _mm_add_ps(h1i, h1i);
    __m128 r0 = _mm_add_ps(u, t), r1 = _mm_sub_ps(v, w), r2 = _mm_sub_ps(u, t), r3 = _mm_add_ps(v, w);
    if (on) {
        const __m128 k = _mm_set1_ps(sc);
        r0 = _mm_mul_ps(r0, k); r1 = _mm_mul_ps(r1, k); r2 = _mm_mul_ps(r2, k); r3 = _mm_mul_ps(r3, k);
    }
    _mm_storeu_ps(dst, r0);
    _mm_storeu_ps(dst + 4, r1);
    _mm_storeu_ps(dst + 8, r2);
    _mm_storeu_ps(dst + 12, r3);
}

template <class F, Fmt Out> zamStatus fwd(const F* src, F* dst, const void* spec, uint8_t* buf, int32_t id) {
    RealCall<F> c;
    if (zamStatus s = real_call<F, false>(spec, id, src, dst, c)) return s;
    const auto [h, R, N, on, sc] = c;
    if (R == 0) {
        dst[0] = on ? src[0] * sc : src[0];
        if (Out == Fmt::Ccs) dst[1] = 0;
        return zamStatusOk;
    }
    if constexpr (sizeof(F) == 4) {
        if (R == 4) {
            real16_fwd<Out>(src, dst, on, sc);
            return zamStatusOk;
        }
    }
    if (zamStatus e = half_transform<F, false>(h, src, dst, buf)) return e;
    recombine<F, false>(Mem<F>{dst}, Mem<F>{dst}, N, recomb_of(h, R));
    if (on) scale_n(dst, N, sc);
    const F nyq = dst[1];
    if (Out == Fmt::Pack) {
        std::memmove(dst + 1, dst + 2, (N - 2) * sizeof(F));
        dst[N - 1] = nyq;
    } else if (Out == Fmt::Ccs) {
        dst[1] = 0;
        dst[N] = nyq;
        dst[N + 1] = 0;
    }
    return zamStatusOk;
}

template <class F, Fmt In> zamStatus inv(const F* src, F* dst, const void* spec, uint8_t* buf, int32_t id) {
    RealCall<F> c;
    if (zamStatus s = real_call<F, true>(spec, id, src, dst, c)) return s;
    const auto [h, R, N, on, sc] = c;
    if (R == 0) {
        dst[0] = on ? src[0] * sc : src[0];
        return zamStatusOk;
    }
    if constexpr (sizeof(F) == 4) {
        if (R == 4) {
            real16_inv<In>(src, dst, on, sc);
            return zamStatusOk;
        }
    }
    // A caller without a buffer gets one before anything is written.
    WorkBuf wb;
    if (R - 1 > 6)
        if (zamStatus e = wb.get(h->work, buf)) return e;
    uint8_t* b = wb.p;
    // To Perm order in the destination.
    if (In == Fmt::Perm) {
        if (src != dst) std::memcpy(dst, src, N * sizeof(F));
    } else {
        const F nyq = In == Fmt::Pack ? src[N - 1] : src[N];
        const F r0 = src[0];
        std::memmove(dst + 2, src + (In == Fmt::Pack ? 1 : 2), (N - 2) * sizeof(F));
        dst[0] = r0;
        dst[1] = nyq;
    }
    recombine<F, true>(Mem<F>{dst}, Mem<F>{dst}, N, recomb_of(h, R));
    half_transform<F, true>(h, dst, dst, b);
    if (on) scale_n(dst, N, sc);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::fft

using namespace zams::fft;

#define ZAMS_FFT_REAL(T, FMT, FNAME, SPEC, ID)                                                                   \
    ZAMS_FN(zamStatus, zamsFFTFwd_RTo##FNAME##_##T)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_##SPEC* p,    \
                                                    Zam8u* b) {                                                  \
        return fwd<Zam##T, FMT>(s, d, p, b, ID);                                                                 \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsFFTFwd_RTo##FNAME##_##T##_I)(Zam##T * sd, const ZamsFFTSpec_##SPEC* p, Zam8u* b) {    \
        return fwd<Zam##T, FMT>(sd, sd, p, b, ID);                                                               \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsFFTInv_##FNAME##ToR_##T)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_##SPEC* p,    \
                                                    Zam8u* b) {                                                  \
        return inv<Zam##T, FMT>(s, d, p, b, ID);                                                                 \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsFFTInv_##FNAME##ToR_##T##_I)(Zam##T * sd, const ZamsFFTSpec_##SPEC* p, Zam8u* b) {    \
        return inv<Zam##T, FMT>(sd, sd, p, b, ID);                                                               \
    }

ZAMS_FFT_REAL(32f, Fmt::Perm, Perm, R_32f, kIdR32f)
ZAMS_FFT_REAL(32f, Fmt::Pack, Pack, R_32f, kIdR32f)
ZAMS_FFT_REAL(32f, Fmt::Ccs, CCS, R_32f, kIdR32f)
ZAMS_FFT_REAL(64f, Fmt::Perm, Perm, R_64f, kIdR64f)
ZAMS_FFT_REAL(64f, Fmt::Pack, Pack, R_64f, kIdR64f)
ZAMS_FFT_REAL(64f, Fmt::Ccs, CCS, R_64f, kIdR64f)
