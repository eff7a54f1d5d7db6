// DCT transforms of the float kinds: the dedicated kernels, the direct
// sums, and the reorder / real transform / twiddle steps of the Fft and
// Conv methods.
#include <cmath>

#include "dct_core.h"
#include "dft_core.h"
#include "fft_recomb.h"

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
// Lane moves of the passes: a vector holds L reals (8 floats, 4 doubles).
template <class F> struct Lanes;
template <> struct Lanes<float> : Avx<float> {
    // (x0 .. x15) in two vectors -> the even ones, the odd ones
    static void deint(V a, V b, V& e, V& o) {
        const V lo = _mm256_permute2f128_ps(a, b, 0x20), hi = _mm256_permute2f128_ps(a, b, 0x31);
        e = _mm256_shuffle_ps(lo, hi, 0x88);
        o = _mm256_shuffle_ps(lo, hi, 0xDD);
    }
    static void inter(V e, V o, V& a, V& b) {
        const V l = _mm256_unpacklo_ps(e, o), h = _mm256_unpackhi_ps(e, o);
        a = _mm256_permute2f128_ps(l, h, 0x20);
        b = _mm256_permute2f128_ps(l, h, 0x31);
    }
    static V rev(V v) { return _mm256_permute_ps(_mm256_permute2f128_ps(v, v, 1), 0x1B); }
    static V neg(V v) { return _mm256_xor_ps(v, _mm256_set1_ps(-0.0f)); }
};
template <> struct Lanes<double> : Avx<double> {
    static void deint(V a, V b, V& e, V& o) {
        const V lo = _mm256_permute2f128_pd(a, b, 0x20), hi = _mm256_permute2f128_pd(a, b, 0x31);
        e = _mm256_unpacklo_pd(lo, hi);
        o = _mm256_unpackhi_pd(lo, hi);
    }
    static void inter(V e, V o, V& a, V& b) {
        const V l = _mm256_unpacklo_pd(e, o), h = _mm256_unpackhi_pd(e, o);
        a = _mm256_permute2f128_pd(l, h, 0x20);
        b = _mm256_permute2f128_pd(l, h, 0x31);
    }
    static V rev(V v) { return _mm256_permute_pd(_mm256_permute2f128_pd(v, v, 1), 0x5); }
    static V neg(V v) { return _mm256_xor_pd(v, _mm256_set1_pd(-0.0)); }
};

// v[i] = x[2i], v[N-1-i] = x[2i+1]. Vectors and the scalar tail move the
// same values; which elements a vector takes depends on i alone.
template <class F> void reorder(const F* x, F* v, int n) {
    using A = Lanes<F>;
    constexpr int L = A::L;
    const int h = n / 2;
    int i = 0;
    for (; i + L <= h; i += L) {
        typename A::V e, o;
        A::deint(A::load(x + 2 * i), A::load(x + 2 * i + L), e, o);
        A::store(v + i, e);
        A::store(v + n - L - i, A::rev(o));
    }
    for (; i < h; ++i) {
        v[i] = x[2 * i];
        v[n - 1 - i] = x[2 * i + 1];
    }
    if (n & 1) v[h] = x[n - 1];
}
// x[2i] = v[i], x[2i+1] = v[N-1-i].
template <class F> void unorder(const F* v, F* x, int n) {
    using A = Lanes<F>;
    constexpr int L = A::L;
    const int h = n / 2;
    int i = 0;
    for (; i + L <= h; i += L) {
        typename A::V a, b;
        A::inter(A::load(v + i), A::rev(A::load(v + n - L - i)), a, b);
        A::store(x + 2 * i, a);
        A::store(x + 2 * i + L, b);
    }
    for (; i < h; ++i) {
        x[2 * i] = v[i];
        x[2 * i + 1] = v[n - 1 - i];
    }
    if (n & 1) x[n - 1] = v[h];
}

// The twiddle table: real parts t[k], imaginary parts t[N/2 + 1 + k].
template <class F> const F* twiddles(const Hdr<F>* h) {
    return reinterpret_cast<const F*>(reinterpret_cast<const uint8_t*>(h) + h->tw);
}

// The forward twiddle pass: for 0 < k < N/2, z = t_k V[k], y[k] = Re z,
// y[N-k] = -Im z (t_k = other w^k); y[0] = first V[0]; for even N,
// y[N/2] = Re(t_{N/2}) V[N/2]. V comes one value at a time (set, ends:
// the scalar recombination's sink) or as a vector of real parts and one of
// imaginary parts for the L bins from k (out) or for the bins N/2 - k - i,
// lane i (out_mirror).
template <class F> struct TwiddleOut {
    using A = Lanes<F>;
    using V = typename A::V;
    static constexpr int L = A::L;
    const F *tr, *ti;
    F* y;
    int n;
    F first;
    TwiddleOut(const Hdr<F>* h, F* out) : tr(twiddles(h)), ti(tr + h->len / 2 + 1), y(out), n(h->len), first(h->first) {}
    void ends(F v0, F vh) const {
        y[0] = first * v0;
        y[n / 2] = tr[n / 2] * vh;
    }
    void set(size_t k, F a, F b) const {
        y[k] = tr[k] * a - ti[k] * b;
        y[n - k] = -(tr[k] * b + ti[k] * a);
    }
    void out(int k, V a, V b) const {
        const V r = A::load(tr + k), i = A::load(ti + k);
        A::store(y + k, A::sub(A::mul(r, a), A::mul(i, b)));
        A::store(y + n - k - L + 1, A::rev(A::neg(A::add(A::mul(r, b), A::mul(i, a)))));
    }
    void out_mirror(int k, V a, V b) const {
        const int j = n / 2 - k - L + 1;
        const V r = A::rev(A::load(tr + j)), i = A::rev(A::load(ti + j));
        A::store(y + j, A::rev(A::sub(A::mul(r, a), A::mul(i, b))));
        A::store(y + n / 2 + k, A::neg(A::add(A::mul(r, b), A::mul(i, a))));
    }
};

// The inverse twiddle pass: V[k] = g_k (y[k] - i y[N-k]) with g_k =
// (other / 2) conj(w^k), V[0] = first y[0], and for even N the real
// V[N/2] = (Re g + Im g) y[N/2]; the same three shapes as TwiddleOut.
template <class F> struct TwiddleIn {
    using A = Lanes<F>;
    using V = typename A::V;
    static constexpr int L = A::L;
    const F *gr, *gi;
    const F* y;
    int n;
    F first;
    TwiddleIn(const Hdr<F>* h, const F* in) : gr(twiddles(h)), gi(gr + h->len / 2 + 1), y(in), n(h->len), first(h->first) {}
    F v0() const { return first * y[0]; }
    F vh() const { return (gr[n / 2] + gi[n / 2]) * y[n / 2]; }
    void get(size_t k, F& re, F& im) const {
        const F a = y[k], b = y[n - k];
        re = gr[k] * a + gi[k] * b;
        im = gi[k] * a - gr[k] * b;
    }
    void in(int k, V& re, V& im) const {
        const V a = A::load(y + k), b = A::rev(A::load(y + n - k - L + 1));
        const V r = A::load(gr + k), i = A::load(gi + k);
        re = A::add(A::mul(r, a), A::mul(i, b));
        im = A::sub(A::mul(i, a), A::mul(r, b));
    }
    void in_mirror(int k, V& re, V& im) const {
        const int j = n / 2 - k - L + 1;
        const V a = A::rev(A::load(y + j)), b = A::load(y + n / 2 + k);
        const V r = A::rev(A::load(gr + j)), i = A::rev(A::load(gi + j));
        re = A::add(A::mul(r, a), A::mul(i, b));
        im = A::sub(A::mul(i, a), A::mul(r, b));
    }
};

// The twiddle passes on a Perm spectrum p of N (the Conv method): V[k] is
// at 2k (even N) or 2k - 1 (odd N).
template <class F> void twiddle_fwd(const Hdr<F>* h, const F* p, F* y) {
    using A = Lanes<F>;
    const TwiddleOut<F> o(h, y);
    const int n = h->len, odd = n & 1;
    const F* q = p - odd;
    if (odd) y[0] = o.first * p[0];
    else o.ends(p[0], p[1]);
    int k = 1;
    for (; k + A::L <= (n - 1) / 2 + 1; k += A::L) {
        typename A::V a, b;
        A::deint(A::load(q + 2 * k), A::load(q + 2 * k + A::L), a, b);
        o.out(k, a, b);
    }
    for (; 2 * k < n; ++k) o.set(size_t(k), q[2 * k], q[2 * k + 1]);
}
template <class F> void twiddle_inv(const Hdr<F>* h, const F* y, F* p) {
    using A = Lanes<F>;
    const TwiddleIn<F> in(h, y);
    const int n = h->len, odd = n & 1;
    F* q = p - odd;
    const F v0 = in.v0(), vh = odd ? F(0) : in.vh();
    int k = 1;
    for (; k + A::L <= (n - 1) / 2 + 1; k += A::L) {
        typename A::V re, im, lo, hi;
        in.in(k, re, im);
        A::inter(re, im, lo, hi);
        A::store(q + 2 * k, lo);
        A::store(q + 2 * k + A::L, hi);
    }
    for (; 2 * k < n; ++k) in.get(size_t(k), q[2 * k], q[2 * k + 1]);
    p[0] = v0;
    if (!odd) p[1] = vh;
}

// W^k of the real FFT's recombination for the L bins from k, as real and
// imaginary parts.
template <class F>
__attribute__((always_inline)) inline void load_w(const fft::Recomb<F>& w, int k, typename Lanes<F>::V& wr, typename Lanes<F>::V& wi) {
    using A = Lanes<F>;
    if (!w.coarse) {
        A::deint(A::load(w.t + 2 * k), A::load(w.t + 2 * k + A::L), wr, wi);
        return;
    }
    alignas(32) F r[A::L], i[A::L];
    for (int j = 0; j < A::L; ++j) w.get(size_t(k + j), r[j], i[j]);
    wr = A::load(r);
    wi = A::load(i);
}

// The Fft method's pass between the twiddles and the complex FFT of N/2,
// over the pairs (k, N/2 - k) with the values in registers, L pairs a step
// in real and imaginary vectors, the last pairs through the real FFT's
// scalar recombination. Forward: Z (interleaved, src) to the real spectrum
// V, twiddled into y (dst). Inverse: y (src) twiddled to V, then 2 Z into
// dst (interleaved), the same steps backwards.
template <class F, bool Inv> void fused(const Hdr<F>* h, const F* src, F* dst, const fft::Recomb<F>& w) {
    using A = Lanes<F>;
    using V = typename A::V;
    constexpr int L = A::L;
    const auto s = [&] {
        if constexpr (Inv) return TwiddleIn<F>(h, src);
        else return fft::Mem<F>{const_cast<F*>(src)};
    }();
    const auto d = [&] {
        if constexpr (Inv) return fft::Mem<F>{dst};
        else return TwiddleOut<F>(h, dst);
    }();
    const int H = h->len / 2;
    fft::recombine_ends(s, d);
    const V half = A::set1(F(0.5));
    int k = 1;
    if (w.step == 1)
        for (; k + L - 1 < H - (k + L - 1); k += L) {
            V ar, ai, br, bi, wr, wi;
            load_w(w, k, wr, wi);
            if constexpr (!Inv) {
                A::deint(A::load(src + 2 * k), A::load(src + 2 * k + L), ar, ai);
                const F* m = src + 2 * (H - k - L + 1);
                A::deint(A::load(m), A::load(m + L), br, bi);
                br = A::rev(br);  // Z[H - k - i] in lane i
                bi = A::rev(bi);
                // E = (Z[k] + conj Z[H-k]) / 2, D = (Z[k] - conj Z[H-k]) / 2,
                // X = W^k (-i D); V[k] = E + X, V[H-k] = conj(E - X)
                const V er = A::mul(A::add(ar, br), half), ei = A::mul(A::sub(ai, bi), half);
                const V dr = A::mul(A::sub(ar, br), half), di = A::mul(A::add(ai, bi), half);
                const V xr = A::add(A::mul(di, wr), A::mul(dr, wi)), xi = A::sub(A::mul(di, wi), A::mul(dr, wr));
                d.out(k, A::add(er, xr), A::add(ei, xi));
                d.out_mirror(k, A::sub(er, xr), A::sub(xi, ei));
            } else {
                s.in(k, ar, ai);
                s.in_mirror(k, br, bi);
                // E = V[k] + conj V[H-k], D = V[k] - conj V[H-k], X = conj(W^k) D;
                // 2 Z[k] = E + i X, 2 Z[H-k] = conj(E - i X)
                const V er = A::add(ar, br), ei = A::sub(ai, bi);
                const V dr = A::sub(ar, br), di = A::add(ai, bi);
                const V xr = A::add(A::mul(dr, wr), A::mul(di, wi)), xi = A::sub(A::mul(di, wr), A::mul(dr, wi));
                V lo, hi;
                A::inter(A::sub(er, xi), A::add(ei, xr), lo, hi);
                A::store(dst + 2 * k, lo);
                A::store(dst + 2 * k + L, hi);
                A::inter(A::rev(A::add(er, xi)), A::rev(A::sub(xr, ei)), lo, hi);
                F* m = dst + 2 * (H - k - L + 1);
                A::store(m, lo);
                A::store(m + L, hi);
            }
        }
    fft::recombine_tail<F, Inv>(s, d, size_t(H), w, size_t(k));
}

template <class F, bool Inv> zamStatus fft_method(const Hdr<F>* h, const F* src, F* dst, F* v, F* u, uint8_t* work) {
    const fft::Hdr<F>* f = reinterpret_cast<const fft::Hdr<F>*>(reinterpret_cast<const uint8_t*>(h) + h->inner);
    const fft::Recomb<F> w = fft::recomb_of(f, h->order);
    const int n = h->len;
    if (Inv) {
        fused<F, true>(h, src, v, w);
        if (zamStatus s = fft::half_transform<F, true>(f, v, u, work)) return s;
        unorder(u, dst, n);
    } else {
        reorder(src, v, n);
        if (zamStatus s = fft::half_transform<F, false>(f, v, u, work)) return s;
        fused<F, false>(h, u, dst, w);
    }
    return zamStatusOk;
}

// The inner real DFT of N, v to u (unscaled, Perm order).
template <class F, bool Inv> zamStatus inner_dft(const Hdr<F>* h, const F* v, F* u, uint8_t* work) {
    const dft::Hdr<F>* d = reinterpret_cast<const dft::Hdr<F>*>(reinterpret_cast<const uint8_t*>(h) + h->inner);
    return Inv ? dft::real_inv<F>(d, dft::Fmt::Perm, v, u, work) : dft::real_fwd<F>(d, dft::Fmt::Perm, v, u, work);
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
    F* u = reinterpret_cast<F*>(work + round64(size_t(n) * sizeof(F)));
    uint8_t* iw = work + 2 * round64(size_t(n) * sizeof(F));
    if (h->fftOn) return fft_method<F, Inv>(h, src, dst, v, u, iw);
    if (Inv) {
        twiddle_inv(h, src, v);
        if (zamStatus s = inner_dft<F, true>(h, v, u, iw)) return s;
        unorder(u, dst, n);
    } else {
        reorder(src, v, n);
        if (zamStatus s = inner_dft<F, false>(h, v, u, iw)) return s;
        twiddle_fwd(h, u, dst);
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
