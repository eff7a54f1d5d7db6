// The block convolution engine (interface and rules in
// src/common/blockconv.h).
#include <omp.h>

#include <algorithm>
#include <cassert>
#include <cstring>
#include <type_traits>

#include "../common/blockconv.h"
#include "../common/spec.h"

namespace zams::conv {
namespace {

// The domains. Real data: the FFT spec structure holds only what its
// transforms read, and a section runs the spectrum's three steps in one pass
// (conv_section). Complex data: the ordinary specification, and the
// transform, the product and the inverse one after another.
template <class F> zamStatus sizes(const fftp::Real<F>&, int order, fftp::Sizes& z) { return fftp::conv_sizes<F>(order, z); }
template <class F> zamStatus build(fftp::Real<F>& d, int order, uint8_t* mem, uint8_t* tmp) {
    return fftp::conv_build<F>(order, mem, tmp, d);
}
template <class F> zamStatus fwd(const fftp::Real<F>& d, const F* s, F* b, uint8_t* w) { return d.fwd_perm(s, b, w); }
// One section of N values s into the scratch b, values [from, from + count)
// of the result to out.
template <class F>
zamStatus section(const fftp::Real<F>& d, const F* s, F* b, const F* k, uint8_t* w, int, F* out, int64_t from,
                  int64_t count) {
    return fftp::conv_section(d, s, b, k, w, out, from, count);
}
template <class F> zamStatus sizes(const fftp::Complex<F>&, int order, fftp::Sizes& z) {
    return fftp::Complex<F>::sizes(order, zamFftScaleInverse, z);
}
template <class F> zamStatus build(fftp::Complex<F>& d, int order, uint8_t* mem, uint8_t* tmp) {
    return fftp::Complex<F>::build(order, zamFftScaleInverse, mem, tmp, d);
}
template <class F, class E> zamStatus fwd(const fftp::Complex<F>& d, const E* s, E* b, uint8_t* w) { return d.fwd(s, b, w); }
template <class F, class E>
zamStatus section(const fftp::Complex<F>& d, const E* s, E* b, const E* k, uint8_t* w, int n, E* out, int64_t from,
                  int64_t count) {
    zamStatus st = d.fwd(s, b, w);
    if (st < 0) return st;
    fftp::Complex<F>::mul(k, b, n);
    st = d.inv(b, b, w);
    if (st >= 0 && out != b + from) std::memcpy(static_cast<void*>(out), b + from, size_t(count) * sizeof(E));
    return st;
}

// One thread's scratch block: the FFT's work buffer, then the section.
template <class D> struct Scratch {
    uint8_t* work;
    typename D::Elem* buf;
    Scratch(const D& fft, uint8_t* p) : work(p) {
        buf = reinterpret_cast<typename D::Elem*>(align_up(p + fft.work_bytes(), 16));
    }
};

// Values [p, p + n) of the signal into dst, zeros outside its pieces.
template <class E> void gather(const Signal& s, int64_t p, int64_t n, E* dst) {
    const E* head = static_cast<const E*>(s.head);
    const E* body = static_cast<const E*>(s.body);
    int64_t i = 0;
    auto fill = [&](int64_t end, const E* src, int64_t srcStart) {
        end = std::min(end, n);
        if (end <= i) return;
        if (src) std::memcpy(dst + i, src + (p + i - srcStart), size_t(end - i) * sizeof(E));
        else std::memset(static_cast<void*>(dst + i), 0, size_t(end - i) * sizeof(E));
        i = end;
    };
    fill(-p, nullptr, 0);                                         // before the head
    fill(s.headLen - p, head, 0);                                 // the head
    fill(s.headLen + s.bodyLen - p, body, s.headLen);             // the body
    fill(n, nullptr, 0);                                          // after the body
}

// Sections [first, last) of the call, in the given direction.
template <class D>
zamStatus sections(const Kernel<D>& k, const Signal& s, typename D::Elem* y, int64_t outLen, uint8_t* scratch,
                   int64_t first, int64_t last, bool backwards) {
    using E = typename D::Elem;
    const int64_t N = int64_t(1) << k.order, h = k.taps - 1, step = N - h;
    const Scratch<D> sc(k.fft, scratch);
    const E* body = static_cast<const E*>(s.body);
    zamStatus worst = zamStatusOk;
    for (int64_t j = 0; j < last - first; ++j) {
        const int64_t sec = backwards ? last - 1 - j : first + j;
        const int64_t n0 = sec * step, cnt = std::min(step, outLen - n0);
        const int64_t p = n0 + s.shift - h;
        const E* src = sc.buf;
        if (p >= s.headLen && p + N <= s.headLen + s.bodyLen) src = body + (p - s.headLen);
        else gather(s, p, N, sc.buf);
        const zamStatus st = section(k.fft, src, sc.buf, k.spectrum, sc.work, int(N), y + n0, h, cnt);
        if (st < 0) return st;
        worst = std::min(worst, st);
    }
    return worst;
}

}  // namespace

int section_order(int64_t taps, int64_t outputs) {
    // The call's set-up (a specification of the recombination factors, or
    // none for pairs of sections; the kernel's buffers) is charged kBuild N
    // in the units in which a transform costs N (m + 1); 5 keeps the orders
    // the calls had before the set-up got cheaper.
    constexpr double kBuild = 5;
    const int lo = order_at_least(taps) + 1;
    // No longer than one section holding every output needs.
    const int hi = std::max(lo, order_at_least(outputs + taps - 1));
    int best = lo;
    double bestCost = 0;
    for (int m = lo; m <= std::min(hi, lo + 10); ++m) {
        const int64_t N = int64_t(1) << m, step = N - taps + 1;
        const double transforms = double((outputs + step - 1) / step + 1);  // the sections and the kernel
        const double cost = double(N) * (transforms * double(m + 1) + kBuild);
        if (m == lo || cost < bestCost) {
            best = m;
            bestCost = cost;
        }
    }
    return best;
}

template <class D> int64_t scratch_bytes(const D& fft, int order) {
    return int64_t(fft.work_bytes()) + (int64_t(1) << order) * int64_t(sizeof(typename D::Elem)) + 16;
}

template <class D>
zamStatus make_kernel(const D& fft, int order, const typename D::Elem* h, int taps, typename D::Elem* spectrum,
                      uint8_t* scratch, Kernel<D>& out) {
    using E = typename D::Elem;
    const int64_t N = int64_t(1) << order;
    std::memcpy(static_cast<void*>(spectrum), h, size_t(taps) * sizeof(E));
    std::memset(static_cast<void*>(spectrum + taps), 0, size_t(N - taps) * sizeof(E));
    const Scratch<D> sc(fft, scratch);
    if (zamStatus st = fwd(fft, static_cast<const E*>(spectrum), spectrum, sc.work); st < 0) return st;
    out.fft = fft;
    out.order = order;
    out.taps = taps;
    out.spectrum = spectrum;
    return zamStatusOk;
}

template <class D>
zamStatus run(const Kernel<D>& k, const Signal& s, typename D::Elem* y, int64_t outLen, uint8_t* scratch,
              int64_t stride, int threads) {
    using E = typename D::Elem;
    const int64_t N = int64_t(1) << k.order, step = N - (k.taps - 1);
    const int64_t count = (outLen + step - 1) / step;
    const E* body = static_cast<const E*>(s.body);
    const uintptr_t yb = uintptr_t(y), ye = uintptr_t(y + outLen), bb = uintptr_t(body), be = uintptr_t(body + s.bodyLen);
    const bool inPlace = yb < be && bb < ye;
    if (inPlace || threads <= 1 || count < 2) return sections(k, s, y, outLen, scratch, 0, count, inPlace);
    const int team = int(std::min<int64_t>(threads, count));
    zamStatus worst = zamStatusOk;
#pragma omp parallel num_threads(team) reduction(min : worst)
    {
        const int t = omp_get_thread_num(), n = omp_get_num_threads();
        const int64_t first = count * t / n, last = count * (t + 1) / n;
        worst = sections(k, s, y, outLen, scratch + t * stride, first, last, false);
    }
    return worst;
}

template <class D> zamStatus cyclic(const Kernel<D>& k, typename D::Elem* buf, uint8_t* work) {
    return section(k.fft, buf, buf, k.spectrum, work, 1 << k.order, buf, 0, int64_t(1) << k.order);
}

// Real data in a call of several sections: two sections a transform, as
// the real and imaginary parts of one complex transform of N points
// (pair_section). Pairs [first, last) of the call, in the given direction.
template <class F>
void pairs(const F* k, int order, int taps, const Signal& s, F* y, int64_t outLen, uint8_t* scratch, int64_t first,
           int64_t last, bool backwards) {
    const int64_t N = int64_t(1) << order, h = taps - 1, step = N - h;
    F* buf = reinterpret_cast<F*>(scratch);  // 2N values, then two of N for gathered sections
    uint8_t* work = scratch + 4 * N * int64_t(sizeof(F));
    const F* body = static_cast<const F*>(s.body);
    // A section's N signal values: in place in the body, or gathered.
    const auto input = [&](int64_t sec, F* tmp) {
        const int64_t p = sec * step + s.shift - h;
        if (p >= s.headLen && p + N <= s.headLen + s.bodyLen) return body + (p - s.headLen);
        gather(s, p, N, tmp);
        return static_cast<const F*>(tmp);
    };
    for (int64_t j = 0; j < last - first; ++j) {
        const int64_t pr = backwards ? last - 1 - j : first + j;
        const int64_t n0 = 2 * pr * step, n1 = n0 + step;
        const bool two = n1 < outLen;
        const F* a = input(2 * pr, buf + 2 * N);
        const F* b = two ? input(2 * pr + 1, buf + 3 * N) : nullptr;
        fftp::pair_section(order, a, b, buf, k, work, y + n0, two ? y + n1 : nullptr, h, std::min(step, outLen - n0),
                           two ? std::min(step, outLen - n1) : 0);
    }
}

template <class F>
zamStatus run_pairs(const F* h, int taps, const Signal& s, F* y, int64_t outLen, int order, int threads) {
    const int64_t N = int64_t(1) << order, step = N - taps + 1;
    const int64_t count = (outLen + step - 1) / step, npairs = (count + 1) / 2;
    // One block for the call: the kernel's spectrum, then the threads' scratch.
    const int64_t kBytes = round_up(size_t(2 * N) * sizeof(F), 64);
    const int64_t stride = round_up(size_t(4 * N * int64_t(sizeof(F)) + fftp::pair_work_bytes<F>(order)), 64);
    threads = int(std::max<int64_t>(1, std::min<int64_t>(threads, npairs)));
    const int64_t bytes = kBytes + stride * threads;
    uint8_t* mem = bytes < INT32_MAX ? zamsMalloc_8u(int(bytes)) : nullptr;
    if (!mem) return zamStatusNoMemory;
    F* k = reinterpret_cast<F*>(mem);
    uint8_t* scratch = mem + kBytes;
    fftp::pair_kernel<F>(order, h, taps, k, scratch + 4 * N * int64_t(sizeof(F)));
    const uintptr_t yb = uintptr_t(y), ye = uintptr_t(y + outLen), bb = uintptr_t(s.body);
    const uintptr_t be = uintptr_t(static_cast<const F*>(s.body) + s.bodyLen);
    const bool inPlace = yb < be && bb < ye;
    if (inPlace || threads <= 1) {
        pairs(k, order, taps, s, y, outLen, scratch, 0, npairs, inPlace);
    } else {
#pragma omp parallel num_threads(threads)
        {
            const int t = omp_get_thread_num(), n = omp_get_num_threads();
            pairs(k, order, taps, s, y, outLen, scratch + t * stride, npairs * t / n, npairs * (t + 1) / n, false);
        }
    }
    zamsFree(mem);
    return zamStatusOk;
}

template <class D>
zamStatus run_once(const typename D::Elem* h, int taps, const Signal& s, typename D::Elem* y, int64_t outLen,
                   int order, int threads) {
    using E = typename D::Elem;
    if constexpr (std::is_same_v<D, fftp::Real<typename D::Elem>>) {
        const int64_t step = (int64_t(1) << order) - taps + 1;
        if (outLen > step && fftp::pair_order<E>(order)) return run_pairs(h, taps, s, y, outLen, order, threads);
    }
    fftp::Sizes z;
    D fft;
    if (zamStatus st = sizes(fft, order, z)) return st;
    // One block, allocated for the call and released on every path: the
    // FFT specification, the kernel's spectrum, then the threads' scratch
    // blocks (the build's temporary space lies where the spectrum and the
    // scratch go, before they are used).
    const int64_t N = int64_t(1) << order;
    const int64_t specBytes = round_up(size_t(z.spec), 64);
    const int64_t stride = round_up(size_t(int64_t(z.work) + N * int64_t(sizeof(E)) + 16), 64);
    const int64_t count = (outLen + N - taps) / (N - taps + 1);
    threads = int(std::max<int64_t>(1, std::min<int64_t>(threads, count)));
    const int64_t bytes = specBytes + std::max<int64_t>(z.init, N * int64_t(sizeof(E)) + stride * threads);
    uint8_t* mem = bytes < INT32_MAX ? zamsMalloc_8u(int(bytes)) : nullptr;
    if (!mem) return zamStatusNoMemory;
    zamStatus st = build(fft, order, mem, z.init ? mem + specBytes : nullptr);
    if (st >= 0) {
        E* spectrum = reinterpret_cast<E*>(mem + specBytes);
        uint8_t* scratch = mem + specBytes + N * int64_t(sizeof(E));
        assert(scratch_bytes(fft, order) <= stride);
        Kernel<D> k;
        st = make_kernel(fft, order, h, taps, spectrum, scratch, k);
        if (st >= 0) st = run(k, s, y, outLen, scratch, stride, threads);
    }
    zamsFree(mem);
    return st;
}

#define ZAMS_BLOCKCONV(D)                                                                                      \
    template int64_t scratch_bytes<D>(const D&, int);                                                         \
    template zamStatus make_kernel<D>(const D&, int, const D::Elem*, int, D::Elem*, uint8_t*, Kernel<D>&);     \
    template zamStatus run<D>(const Kernel<D>&, const Signal&, D::Elem*, int64_t, uint8_t*, int64_t, int);    \
    template zamStatus run_once<D>(const D::Elem*, int, const Signal&, D::Elem*, int64_t, int, int);        \
    template zamStatus cyclic<D>(const Kernel<D>&, D::Elem*, uint8_t*);
ZAMS_BLOCKCONV(fftp::Real<float>)
ZAMS_BLOCKCONV(fftp::Real<double>)
ZAMS_BLOCKCONV(fftp::Complex<float>)
ZAMS_BLOCKCONV(fftp::Complex<double>)

}  // namespace zams::conv
