// The FFT spec's twiddle tables are built from one octant by exact
// symmetries: every entry must carry the bits of evaluating it alone
// (put_w), signs of zeros included, at every order and in every layout.
#include <gtest/gtest.h>

#include <cstring>

#include "transform/fft_core.h"
#include "zams.h"

namespace {

using namespace zams::fft;

// Entry i of `got` against put_w(t, k(i), n(i)); reports the first mismatch.
template <class F, class Fn> void expect_entries(const F* got, size_t count, Fn kn, const char* what, int order) {
    for (size_t i = 0; i < count; ++i) {
        long long k, n;
        kn(i, k, n);
        F want[2];
        put_w(want, k, n);
        if (std::memcmp(want, got + 2 * i, sizeof(want)) != 0) {
            ADD_FAILURE() << what << " of order " << order << ", entry " << i << ": " << got[2 * i] << ", "
                          << got[2 * i + 1] << " instead of " << want[0] << ", " << want[1];
            return;
        }
    }
}

// Checks the stage, large and recombination tables of a built spec.
template <class F> void check_tables(const Hdr<F>* h, int order, bool real) {
    const uint8_t* base = reinterpret_cast<const uint8_t*>(h);
    const int M = real ? order - 1 : order;
    if (M >= 7) {
        const int K = int(h->tabOrder);
        const size_t first = (K & 1) ? 8 : 4;
        for (size_t L = first; 4 * L <= (size_t(1) << K); L *= 4)
            expect_entries(reinterpret_cast<const F*>(base + h->offTw) + 2 * (L - first), 3 * L,
                           [&](size_t i, long long& k, long long& n) { k = (long long)((i / L + 1) * (i % L)), n = (long long)(2 * L); },
                           "stage table", order);
        if (h->offTop)
            expect_entries(reinterpret_cast<const F*>(base + h->offTop), (size_t(1) << M) / 2,
                           [&](size_t i, long long& k, long long& n) { k = (long long)(2 * i), n = 1LL << M; }, "large table", order);
    }
    if (!real) return;
    const long long N = 1LL << order;
    const F* rc = reinterpret_cast<const F*>(base + h->offRecomb);
    auto at = [&](long long step) { return [=](size_t i, long long& k, long long& n) { k = 2 * step * (long long)i, n = N; }; };
    if (order < kRealSplitOrder) {
        expect_entries(rc, size_t(N / 4 + 1), at(1), "recombination", order);
    } else {
        const long long fine = 1LL << fine_bits<F>();
        expect_entries(rc, size_t(fine), at(1), "fine recombination", order);
        expect_entries(reinterpret_cast<const F*>(base + h->offCoarse), size_t((N / 4 >> fine_bits<F>()) + 1), at(fine),
                       "coarse recombination", order);
    }
}

// Orders lo..hi and, if given, `extra`.
template <class F, class S>
void check_kind(zamStatus (*alloc)(S**, int, int, int), zamStatus (*release)(S*), bool real, int lo, int hi, int extra = 0) {
    for (int i = lo; i <= hi + (extra ? 1 : 0); ++i) {
        const int order = i > hi ? extra : i;
        S* spec = nullptr;
        ASSERT_EQ(alloc(&spec, order, 8, 0), zamStatusOk) << order;
        check_tables(reinterpret_cast<const Hdr<F>*>(spec), order, real);
        release(spec);
    }
}

// Orders cover the stage layout of both parities, the large layouts of one
// and two levels and the coarse x fine recombination.
TEST(FftSpecTables, EveryEntryHasTheBitsOfItsOwnEvaluation) {
    check_kind<float>(zamsFFTInitAlloc_C_32fc, zamsFFTFree_C_32fc, false, 7, 20, 23);
    check_kind<double>(zamsFFTInitAlloc_C_64fc, zamsFFTFree_C_64fc, false, 7, 20, 22);
    check_kind<float>(zamsFFTInitAlloc_R_32f, zamsFFTFree_R_32f, true, 5, 20);
    check_kind<double>(zamsFFTInitAlloc_R_64f, zamsFFTFree_R_64f, true, 5, 20);
}

}  // namespace
