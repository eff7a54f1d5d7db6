// Linear convolution (whole, or a window of its outputs) and the small
// cyclic convolutions.
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

template <class T> inline constexpr bool kInt = std::is_same_v<T, Zam16s>;

// Outputs first .. first + count - 1 of the convolution of a (the shorter,
// la values) with b (lb values), all inside [0, la + lb - 1).
template <class T> zamStatus conv_range(const T* a, int la, const T* b, int lb, T* out, int64_t first, int64_t count,
                                        int sf) {
    const int64_t total = int64_t(la) + lb - 1;
    if constexpr (!kInt<T>) {
        if (conv::use_fft(conv::kConv, total, la)) {
            const bool whole = lb < 3 * int64_t(la);
            const int order = whole ? conv::order_at_least(total) : conv::section_order(la, count);
            const int threads = !whole && count >= conv::kConv.minParallel ? ownGetNumThreads() : 1;
            const conv::Signal s{nullptr, 0, b, lb, first};
            const zamStatus st = conv::run_once<fftp::Real<T>>(a, la, s, out, count, order, threads);
            return st < 0 ? st : zamStatusOk;
        }
    }
    // Direct: one lag sum an output against the shorter source reversed;
    // the outputs where it lies wholly inside the longer, several a step.
    if constexpr (kInt<T>) {
        for (int64_t i = 0; i < count; ++i) {
            const int64_t n = first + i;
            const int64_t k0 = std::max<int64_t>(0, n - lb + 1), k1 = std::min<int64_t>(la - 1, n);
            int64_t s = 0;
            for (int64_t k = k0; k <= k1; ++k) s += int32_t(a[k]) * int32_t(b[n - k]);
            out[i] = scale_round_sat<T>(s, sf);
        }
    } else {
        const DoubleTaps<T> ar(a + la - 1, la, -1);
        if (!ar.ok()) return zamStatusNoMemory;
        // Output indices in the pointer's width: they address the sources.
        using P = std::ptrdiff_t;
        const P f = P(first), e = P(first + count);
        const P full0 = std::clamp<P>(la - 1, f, e), full1 = std::clamp<P>(lb, full0, e);
        auto edge = [&](P n) {
            const P k0 = std::max<P>(0, n - lb + 1), k1 = std::min<P>(la - 1, n);
            out[n - f] = T(dot_real(ar.get() + (la - 1 - k1), b + (n - k1), k1 - k0 + 1));
        };
        for (P n = f; n < full0; ++n) edge(n);
        dot_many(ar.get(), la, b + (full0 - la + 1), out + (full0 - f), full1 - full0, ar.scratch());
        for (P n = full1; n < e; ++n) edge(n);
    }
    return zamStatusOk;
}

template <class T> zamStatus conv_full(const T* a, int la, const T* b, int lb, T* dst, int sf = 0) {
    if (zamStatus s = check_ptr(a, b, dst)) return s;
    if (zamStatus s = check_len(la, lb)) return s;
    if (la > lb) {
        std::swap(a, b);
        std::swap(la, lb);
    }
    return conv_range(a, la, b, lb, dst, 0, int64_t(la) + lb - 1, sf);
}

// Outputs bias .. bias + dstLen - 1 of the convolution, 0 outside it.
zamStatus conv_biased(const float* a, int la, const float* b, int lb, float* dst, int dstLen, int bias) {
    if (zamStatus s = check_ptr(a, b, dst)) return s;
    if (zamStatus s = check_len(la, lb, dstLen)) return s;
    if (la > lb) {
        std::swap(a, b);
        std::swap(la, lb);
    }
    const int64_t total = int64_t(la) + lb - 1;
    const int64_t lead = std::clamp<int64_t>(-int64_t(bias), 0, dstLen);
    const int64_t first = int64_t(bias) + lead;
    const int64_t count = std::clamp<int64_t>(total - first, 0, dstLen - lead);
    std::fill(dst, dst + lead, 0.0f);
    std::fill(dst + lead + count, dst + dstLen, 0.0f);
    return count ? conv_range(a, la, b, lb, dst + lead, first, count, 0) : zamStatusOk;
}

// Cyclic convolution of two size-point vectors, each sum formed exactly
// (16-bit data) or in double precision and rounded once.
template <int Size, class A, class B, class O, class Round>
zamStatus cyclic(const A* a, const B* b, O* dst, Round round) {
    if (!a || !b || !dst) return zamStatusOk;  // no checks, deliberately: nothing to do
    O out[Size];
    for (int n = 0; n < Size; ++n) {
        if constexpr (is_complex_v<B>) {
            double re = 0, im = 0;
            for (int k = 0; k < Size; ++k) {
                re += double(a[k]) * double(b[(n - k) & (Size - 1)].re);
                im += double(a[k]) * double(b[(n - k) & (Size - 1)].im);
            }
            out[n] = O{float(re), float(im)};
        } else {
            typename Acc<A>::type s{};
            for (int k = 0; k < Size; ++k) s += typename Acc<A>::type(a[k]) * typename Acc<A>::type(b[(n - k) & (Size - 1)]);
            out[n] = round(s);
        }
    }
    std::memcpy(dst, out, sizeof out);  // every source read before the first store
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::corr

using namespace zams::corr;

ZAMS_FN(zamStatus, zamsConv_32f)(const Zam32f* a, int la, const Zam32f* b, int lb, Zam32f* d) {
    return conv_full(a, la, b, lb, d);
}
ZAMS_FN(zamStatus, zamsConv_64f)(const Zam64f* a, int la, const Zam64f* b, int lb, Zam64f* d) {
    return conv_full(a, la, b, lb, d);
}
ZAMS_FN(zamStatus, zamsConv_16s_Sfs)(const Zam16s* a, int la, const Zam16s* b, int lb, Zam16s* d, int sf) {
    return conv_full(a, la, b, lb, d, sf);
}
ZAMS_FN(zamStatus, zamsConvBiased_32f)(const Zam32f* a, int la, const Zam32f* b, int lb, Zam32f* d, int n, int bias) {
    return conv_biased(a, la, b, lb, d, n, bias);
}

ZAMS_FN(zamStatus, zamsConvCyclic4x4_32f32fc)(const Zam32f* a, const Zam32fc* b, Zam32fc* d) {
    return cyclic<4>(a, b, d, [](double) { return Zam32fc{}; });
}
ZAMS_FN(zamStatus, zamsConvCyclic8x8_32f)(const Zam32f* a, const Zam32f* b, Zam32f* d) {
    return cyclic<8>(a, b, d, [](double s) { return float(s); });
}
ZAMS_FN(zamStatus, zamsConvCyclic8x8_16s_Sfs)(const Zam16s* a, const Zam16s* b, Zam16s* d, int sf) {
    return cyclic<8>(a, b, d, [sf](int64_t s) { return zams::scale_round_sat<Zam16s>(s, sf); });
}
