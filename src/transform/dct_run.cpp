// DCT transforms of the float kinds: the dedicated kernels, the direct
// sums, and the reorder / real transform / twiddle steps of the Fft and
// Conv methods.
#include <cmath>

#include "../common/fft_plan.h"
#include "dct_core.h"
#include "dft_core.h"
#include "fft_core.h"

namespace zams::dct {
namespace {

// ------------------------------------------------------ dedicated kernels --
// The orthonormal matrix of a length, its factors taken in double: row k
// holds s_k cos(pi (2n+1) k / 2N), s_0 = 1/sqrt(N), s_k = sqrt(2/N).
template <class F, int N> struct Matrix {
    F m[N][N];
    Matrix() {
        for (int k = 0; k < N; ++k)
            for (int n = 0; n < N; ++n) {
                double sn, cs;
                sincospi_ratio((long long)(2 * n + 1) * k, 2LL * N, &sn, &cs);
                m[k][n] = F(cs * (k == 0 ? 1.0 / std::sqrt(double(N)) : std::sqrt(2.0 / N)));
            }
    }
};
template <class F, int N> const Matrix<F, N>& matrix() {
    static const Matrix<F, N> t;
    return t;
}

// y = M x (forward) or M^T x (inverse), summed by position.
template <class F, int N, bool Inv> void small(const F* x, F* y) {
    const Matrix<F, N>& t = matrix<F, N>();
    F in[N];
    for (int n = 0; n < N; ++n) in[n] = x[n];
    for (int k = 0; k < N; ++k) {
        F s = 0;
        for (int n = 0; n < N; ++n) s += (Inv ? t.m[n][k] : t.m[k][n]) * in[n];
        y[k] = s;
    }
}

template <class F, bool Inv> void dedicated(int len, const F* x, F* y) {
    switch (len) {
        case 1: y[0] = x[0]; break;
        case 2: small<F, 2, Inv>(x, y); break;
        case 4: small<F, 4, Inv>(x, y); break;
        default: small<F, 8, Inv>(x, y); break;
    }
}

// ----------------------------------------------------------- direct sums --
// The unscaled sums with the cosine table: c[((2n+1) k) mod 4N]. The
// source is first copied into the work buffer (and, for the inverse,
// scaled there), so the destination may be the source.
template <class F, bool Inv> void direct(const Hdr<F>* h, const F* x, F* y, F* w) {
    const int n = h->len, m4 = 4 * n;
    const F* c = reinterpret_cast<const F*>(reinterpret_cast<const uint8_t*>(h) + h->cosTab);
    for (int i = 0; i < n; ++i) w[i] = x[i];
    if (Inv) {
        w[0] *= h->first;
        for (int i = 1; i < n; ++i) w[i] *= h->other;
    }
    for (int k = 0; k < n; ++k) {
        // forward: the sum over n of w[n] c[(2n+1) k]; inverse: over k of w[k] c[(2k'+1) k]
        F s = 0;
        int q = Inv ? 0 : k, step = Inv ? 2 * k + 1 : 2 * k;
        for (int i = 0; i < n; ++i) {
            s += w[i] * c[q];
            q += step;
            q -= q >= m4 ? m4 : 0;  // steps are below 4N
        }
        y[k] = s;
    }
    if (!Inv) {
        y[0] *= h->first;
        for (int i = 1; i < n; ++i) y[i] *= h->other;
    }
}

// ------------------------------------------------------ reorder, twiddle --
// v[i] = x[2i], v[N-1-i] = x[2i+1].
template <class F> void reorder(const F* x, F* v, int n) {
    const int h = n / 2;
    for (int i = 0; i < h; ++i) {
        v[i] = x[2 * i];
        v[n - 1 - i] = x[2 * i + 1];
    }
    if (n & 1) v[h] = x[n - 1];
}
// x[2i] = v[i], x[2i+1] = v[N-1-i].
template <class F> void unorder(const F* v, F* x, int n) {
    const int h = n / 2;
    for (int i = 0; i < h; ++i) {
        x[2 * i] = v[i];
        x[2 * i + 1] = v[n - 1 - i];
    }
    if (n & 1) x[n - 1] = v[h];
}

// Forward twiddle pass from the Perm spectrum p of v: for 0 < k < N/2,
// z = t_k V[k], y[k] = Re z, y[N-k] = -Im z (t_k = other w^k); y[0] =
// first V[0]; for even N, y[N/2] = Re(t_{N/2}) V[N/2].
template <class F> void twiddle_fwd(const Hdr<F>* h, const F* p, F* y) {
    const int n = h->len, odd = n & 1;
    const F* t = reinterpret_cast<const F*>(reinterpret_cast<const uint8_t*>(h) + h->tw);
    y[0] = h->first * p[0];
    if (!odd) y[n / 2] = t[n] * p[1];
    for (int k = 1; 2 * k < n; ++k) {
        const F a = p[2 * k - odd], b = p[2 * k + 1 - odd];
        const F tr = t[2 * k], ti = t[2 * k + 1];
        y[k] = tr * a - ti * b;
        y[n - k] = -(tr * b + ti * a);
    }
}

// Inverse twiddle pass into a Perm spectrum: V[k] = g_k (y[k] - i y[N-k])
// with g_k = (other / 2) conj(w^k), V[0] = first y[0], and for even N the
// real V[N/2] = (Re g + Im g) y[N/2].
template <class F> void twiddle_inv(const Hdr<F>* h, const F* y, F* p) {
    const int n = h->len, odd = n & 1;
    const F* t = reinterpret_cast<const F*>(reinterpret_cast<const uint8_t*>(h) + h->tw);
    p[0] = h->first * y[0];
    if (!odd) p[1] = (t[n] + t[n + 1]) * y[n / 2];
    for (int k = 1; 2 * k < n; ++k) {
        const F a = y[k], b = y[n - k];
        const F gr = t[2 * k], gi = t[2 * k + 1];
        p[2 * k - odd] = gr * a + gi * b;
        p[2 * k + 1 - odd] = gi * a - gr * b;
    }
}

// The inner real transform of N in place (unscaled, Perm order).
template <class F, bool Inv> zamStatus inner(const Hdr<F>* h, F* v, uint8_t* work) {
    const uint8_t* in = reinterpret_cast<const uint8_t*>(h) + h->inner;
    if (h->fftOn) {
        fftp::Real<F> p;
        p.spec = reinterpret_cast<const typename fftp::Fns<F>::RSpec*>(in);
        return Inv ? p.inv_perm(v, v, work) : p.fwd_perm(v, v, work);
    }
    const dft::Hdr<F>* d = reinterpret_cast<const dft::Hdr<F>*>(in);
    return Inv ? dft::real_inv<F>(d, dft::Fmt::Perm, v, v, work) : dft::real_fwd<F>(d, dft::Fmt::Perm, v, v, work);
}

}  // namespace

template <class F, bool Inv> zamStatus run(const Hdr<F>* h, const F* src, F* dst, uint8_t* work) {
    const int n = h->len;
    if (h->dedicated) {
        dedicated<F, Inv>(n, src, dst);
        return zamStatusOk;
    }
    F* v = reinterpret_cast<F*>(work);
    if (!h->fftOn && !h->convOn) {
        direct<F, Inv>(h, src, dst, v);
        return zamStatusOk;
    }
    uint8_t* iw = work + round64(size_t(n) * sizeof(F));
    if (Inv) {
        twiddle_inv(h, src, v);
        if (zamStatus s = inner<F, true>(h, v, iw)) return s;
        unorder(v, dst, n);
    } else {
        reorder(src, v, n);
        if (zamStatus s = inner<F, false>(h, v, iw)) return s;
        twiddle_fwd(h, v, dst);
    }
    return zamStatusOk;
}

template zamStatus run<float, false>(const Hdr<float>*, const float*, float*, uint8_t*);
template zamStatus run<float, true>(const Hdr<float>*, const float*, float*, uint8_t*);
template zamStatus run<double, false>(const Hdr<double>*, const double*, double*, uint8_t*);
template zamStatus run<double, true>(const Hdr<double>*, const double*, double*, uint8_t*);

namespace {

template <class F, bool Inv> zamStatus transform(const void* spec, const F* src, F* dst, uint8_t* buf) {
    zamStatus s;
    WorkBuf wb;
    const Hdr<F>* h = begin_call<Hdr<F>>(spec, kId<F, Inv>, src, dst, buf, wb, s);
    if (!h) return s;
    return run<F, Inv>(h, src, dst, wb.p);
}

}  // namespace
}  // namespace zams::dct

using namespace zams::dct;

#define ZAMS_DCT_RUN(DIR, K, F, INV)                                                                           \
    ZAMS_FN(zamStatus, zamsDCT##DIR##_##K)(const Zam##K* s, Zam##K* d, const ZamsDCT##DIR##Spec_##K* p,        \
                                          Zam8u* b) {                                                          \
        return transform<F, INV>(p, s, d, b);                                                                  \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##_##K##_I)(Zam##K * sd, const ZamsDCT##DIR##Spec_##K* p, Zam8u* b) {       \
        return transform<F, INV>(p, sd, sd, b);                                                                \
    }

ZAMS_DCT_RUN(Fwd, 32f, float, false)
ZAMS_DCT_RUN(Inv, 32f, float, true)
ZAMS_DCT_RUN(Fwd, 64f, double, false)
ZAMS_DCT_RUN(Inv, 64f, double, true)
