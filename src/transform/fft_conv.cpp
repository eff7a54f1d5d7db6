// The real transforms of a convolution by sections (interface in
// src/common/fft_plan.h): a specification holding only the tables its
// transforms read, and one section (forward transform, product with the
// kernel's Perm spectrum, inverse transform) with the three passes over
// the spectrum fused into one.
#include "../common/fft_plan.h"
#include "fft_recomb.h"

namespace zams::fftp {
namespace fft = zams::fft;
namespace {

template <class F> constexpr int32_t kRealId = sizeof(F) == 4 ? fft::kIdR32f : fft::kIdR64f;

// Orders whose half-length transform runs size-compiled code, which reads
// no stage or bit-reversal table: their specification needs only the
// recombination factors. Below order 8 the ordinary build is that already;
// from order 18 the factors are split in two tables.
template <class F> constexpr bool lean(int order) {
    return order >= 8 && order - 1 <= fft::sort_max_order<F>() && order < fft::kRealSplitOrder;
}
template <class F> constexpr int64_t lean_bytes(int order) {
    return 128 + int64_t(round64(((size_t(1) << order) / 4 + 1) * 2 * sizeof(F)));
}

// The spectrum product of the Perm format's pairs (complex index k), the
// complex product's arithmetic.
template <class F> inline void mul_pair(F* b, const F* k) {
    const F re = b[0] * k[0] - b[1] * k[1], im = b[0] * k[1] + b[1] * k[0];
    b[0] = re;
    b[1] = im;
}

}  // namespace

template <class F> zamStatus conv_sizes(int order, Sizes& s) {
    if (!lean<F>(order)) return Real<F>::sizes(order, zamFftScaleInverse, s);
    s.spec = int(lean_bytes<F>(order));
    s.init = 0;
    s.work = int(((size_t(1) << order) * sizeof(F)) + 64);
    return zamStatusOk;
}

template <class F> zamStatus conv_build(int order, uint8_t* mem, uint8_t* tmp, Real<F>& out) {
    if (!lean<F>(order)) return Real<F>::build(order, zamFftScaleInverse, mem, tmp, out);
    // The header and the factors as the ordinary build lays them (every
    // factor has the bits of its own evaluation, whichever table it is
    // copied from there), the inverse scaled by 1/N.
    auto* h = reinterpret_cast<fft::Hdr<F>*>(mem);
    std::memset(h, 0, sizeof(*h));
    const size_t N = size_t(1) << order;
    h->order = order;
    h->invOn = 1;
    h->scale = F(1) / F(N);
    h->work = int32_t(N * sizeof(F));
    h->offRecomb = h->offCcs = 128;
    fft::build_quarter(reinterpret_cast<F*>(mem + 128), N, N / 4, static_cast<const F*>(nullptr));
    h->id = kRealId<F>;
    out.spec = reinterpret_cast<const typename Fns<F>::RSpec*>(h);
    return zamStatusOk;
}

template <class F>
zamStatus conv_section(const Real<F>& d, const F* x, F* buf, const F* k, uint8_t* work, F* out, int64_t from,
                       int64_t count) {
    using T = fft::VT<F>;
    constexpr size_t W = T::W;
    const auto* h = reinterpret_cast<const fft::Hdr<F>*>(d.spec);
    const int R = h->order;
    const size_t N = size_t(1) << R, H = N / 2;
    // Short orders (float order 4 runs its own straight-line transform):
    // the three steps one after another.
    if (R < 5) {
        if (zamStatus st = d.fwd_perm(x, buf, work); st < 0) return st;
        d.mul_perm(k, buf, int(N));
        const zamStatus st = d.inv_perm(buf, buf, work);
        if (st >= 0 && out != buf + from) std::memmove(out, buf + from, size_t(count) * sizeof(F));
        return st;
    }
    if (zamStatus st = fft::half_transform<F, false>(h, x, buf, work)) return st;
    const fft::Recomb<F> w = fft::recomb_of(h, R);
    // The two real bins.
    const F v0 = buf[0] + buf[1], vh = buf[0] - buf[1];
    const F y0 = v0 * k[0], yh = vh * k[1];
    buf[0] = y0 + yh;
    buf[1] = y0 - yh;
    // Pairs (k, H - k), W of each at a time: the forward recombination, the
    // product and the inverse recombination in registers. The values of
    // H - k stay in reversed order throughout (the kernel's are reversed
    // to match), so neither recombination turns them.
    const auto half = T::set1(F(0.5));
    const auto imneg = T::imsign(), flip = T::xor_(imneg, T::allsign());
    size_t i = 1;
    for (; i + W - 1 < H - (i + W - 1); i += W) {
        F* lo = buf + 2 * i;
        F* hi = buf + 2 * (H - i - (W - 1));
        const auto A = T::load(lo);
        const auto Bc = T::xor_(fft::reverse_cplx<F>(T::load(hi)), imneg);
        const auto wk = fft::load_w(w, i);
        const auto E = T::mul(T::add(A, Bc), half);
        const auto D = T::mul(T::sub(A, Bc), half);
        const auto WO = fft::cmul<F, false>(fft::mul_negi<F>(D), wk);
        const auto P = cmul_pairs<F>(T::add(E, WO), T::load(k + 2 * i));
        const auto Q = cmul_pairs<F>(fft::blend_im<F>(T::sub(E, WO), T::sub(WO, E)),
                                     fft::reverse_cplx<F>(T::load(k + 2 * (H - i - (W - 1)))));
        const auto Qc = T::xor_(Q, imneg);
        const auto E2 = T::add(P, Qc), D2 = T::sub(P, Qc);
        const auto V = fft::cmul<F, true>(D2, wk);
        const auto iV = T::xor_(T::swap(V), flip);  // (-V.im, V.re)
        T::store(lo, T::add(E2, iV));
        T::store(hi, fft::reverse_cplx<F>(fft::blend_im<F>(T::sub(E2, iV), T::sub(iV, E2))));
    }
    // The pairs about H/2 left over: the same three steps, one after another.
    const fft::Mem<F> m{buf};
    size_t j = i;
    if constexpr (sizeof(F) == 4)
        if (!w.coarse) j = fft::recombine_pairs<false>(m, m, H, w.t, i);
    fft::recombine_tail<F, false>(m, m, H, w, j);
    for (size_t p = i; p <= H - i; ++p) mul_pair(buf + 2 * p, k + 2 * p);
    if constexpr (sizeof(F) == 4)
        if (!w.coarse) fft::recombine_pairs<true>(m, m, H, w.t, i);
    fft::recombine_tail<F, true>(m, m, H, w, j);
    fft::half_transform<F, true>(h, buf, buf, work);
    // The inverse's scale as the values go out.
    if (h->invOn) fft::scale_n(buf + from, out, size_t(count), h->scale);
    else if (out != buf + from) std::memmove(out, buf + from, size_t(count) * sizeof(F));
    return zamStatusOk;
}

// Two real sections as the real and imaginary parts of one complex
// transform: self-sorting orders, which read no table (so no specification
// is built), up to float order 12 and double 13. Above them two real
// transforms of half the order and their recombination took less time
// (256 Ki x 1024 taps: 1.06 of it, x86-64, timed before the self-sorting
// passes reached the longer orders).
template <class F> bool pair_order(int order) {
    return order >= fft::kSortMinOrder && order <= (sizeof(F) == 4 ? 12 : 13);
}
template <class F> int64_t pair_work_bytes(int order) { return (int64_t(2) << order) * int64_t(sizeof(F)) + 64; }

namespace {
template <class F, bool Inv> void pair_fft(int order, F* buf, uint8_t* work) {
    const fft::Plan<F> pl{order, nullptr, 0, nullptr, nullptr};
    fft::cfft_inter<F, Inv>(pl, buf, buf, reinterpret_cast<F*>(align64(work)));
}

// c[2i] = a[i], c[2i + 1] = b[i] (0 when b is null), i < n.
template <class F> void interleave(const F* a, const F* b, F* c, int64_t n) {
    int64_t i = 0;
    if constexpr (sizeof(F) == 4) {
        const __m256 z = _mm256_setzero_ps();
        for (; i + 8 <= n; i += 8) {
            const __m256 x = _mm256_loadu_ps(a + i), y = b ? _mm256_loadu_ps(b + i) : z;
            const __m256 lo = _mm256_unpacklo_ps(x, y), hi = _mm256_unpackhi_ps(x, y);
            _mm256_storeu_ps(c + 2 * i, _mm256_permute2f128_ps(lo, hi, 0x20));
            _mm256_storeu_ps(c + 2 * i + 8, _mm256_permute2f128_ps(lo, hi, 0x31));
        }
    }
    for (; i < n; ++i) {
        c[2 * i] = a[i];
        c[2 * i + 1] = b ? b[i] : F(0);
    }
}

// a[i] = c[2 (from + i)] s for i < na, b[i] = c[2 (from + i) + 1] s for i < nb.
template <class F> void deinterleave(const F* c, int64_t from, F s, F* a, int64_t na, F* b, int64_t nb) {
    c += 2 * from;
    int64_t i = 0;
    if constexpr (sizeof(F) == 4) {
        const __m256 v = _mm256_set1_ps(s);
        for (; i + 8 <= std::min(na, nb); i += 8) {
            const __m256 x0 = _mm256_loadu_ps(c + 2 * i), x1 = _mm256_loadu_ps(c + 2 * i + 8);
            const __m256 t0 = _mm256_permute2f128_ps(x0, x1, 0x20), t1 = _mm256_permute2f128_ps(x0, x1, 0x31);
            _mm256_storeu_ps(a + i, _mm256_mul_ps(_mm256_shuffle_ps(t0, t1, 0x88), v));
            _mm256_storeu_ps(b + i, _mm256_mul_ps(_mm256_shuffle_ps(t0, t1, 0xDD), v));
        }
    }
    for (int64_t j = i; j < na; ++j) a[j] = c[2 * j] * s;
    for (int64_t j = i; j < nb; ++j) b[j] = c[2 * j + 1] * s;
}
}  // namespace

template <class F> void pair_kernel(int order, const F* h, int taps, F* k, uint8_t* work) {
    const int64_t N = int64_t(1) << order;
    interleave<F>(h, nullptr, k, taps);
    std::memset(static_cast<void*>(k + 2 * taps), 0, size_t(2 * (N - taps)) * sizeof(F));
    pair_fft<F, false>(order, k, work);
}

template <class F>
void pair_section(int order, const F* a, const F* b, F* buf, const F* k, uint8_t* work, F* outA, F* outB,
                  int64_t from, int64_t countA, int64_t countB) {
    using T = fft::VT<F>;
    const int64_t N = int64_t(1) << order;
    interleave(a, b, buf, N);
    pair_fft<F, false>(order, buf, work);
    for (int64_t i = 0; i < 2 * N; i += 2 * T::W) T::store(buf + i, cmul_pairs<F>(T::load(buf + i), T::load(k + i)));
    pair_fft<F, true>(order, buf, work);
    deinterleave(buf, from, F(1) / F(N), outA, countA, outB, b ? countB : 0);
}

#define ZAMS_FFT_CONV(F)                                                                          \
    template zamStatus conv_sizes<F>(int, Sizes&);                                                \
    template zamStatus conv_build<F>(int, uint8_t*, uint8_t*, Real<F>&);                          \
    template zamStatus conv_section<F>(const Real<F>&, const F*, F*, const F*, uint8_t*, F*, int64_t, int64_t); \
    template bool pair_order<F>(int);                                                             \
    template int64_t pair_work_bytes<F>(int);                                                     \
    template void pair_kernel<F>(int, const F*, int, F*, uint8_t*);                               \
    template void pair_section<F>(int, const F*, const F*, F*, const F*, uint8_t*, F*, F*, int64_t, int64_t, int64_t);
ZAMS_FFT_CONV(float)
ZAMS_FFT_CONV(double)

}  // namespace zams::fftp
