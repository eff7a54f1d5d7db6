// Read-only specifications shared by threads: two threads run transforms
// through one specification at once, each with its own source, destination
// and work buffer, and must get the results that one thread gets alone.
// Under the thread checker (the tsan preset) a write into the shared
// structure, or any other race, fails the run as well.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "zams.h"

namespace {

constexpr int kOrder = 10, kN = 1 << kOrder, kRounds = 8;

// One read-only specification type: how to build it, ask its work size,
// run one transform and release it. Planar kinds take the real parts, then
// the imaginary ones, from one block.
struct Kind {
    const char* name;
    zamStatus (*make)(void** spec);
    zamStatus (*bufsize)(const void* spec, int* size);
    zamStatus (*run)(const void* spec, const void* in, void* out, Zam8u* buf);
    zamStatus (*release)(void* spec);
    size_t elem, in_elems, out_elems;
    bool floating;
};

#define ZAMS_SPEC(K) ZamsFFTSpec_##K
#define ZAMS_LIFE(K)                                                                                              \
    [](void** p) { return zamsFFTInitAlloc_##K(reinterpret_cast<ZAMS_SPEC(K)**>(p), kOrder, 8, 0); },              \
        [](const void* s, int* n) { return zamsFFTGetBufSize_##K(static_cast<const ZAMS_SPEC(K)*>(s), n); }
#define ZAMS_FREE(K) [](void* s) { return zamsFFTFree_##K(static_cast<ZAMS_SPEC(K)*>(s)); }
// Interleaved source and destination, with a scale factor where the kind has one.
#define ZAMS_ONE(K, fn, T, D, ...)                                                                                 \
    ZAMS_LIFE(K), [](const void* s, const void* in, void* out, Zam8u* b) {                                        \
        return fn(static_cast<const T*>(in), static_cast<D*>(out), static_cast<const ZAMS_SPEC(K)*>(s), __VA_ARGS__ b); \
    }, ZAMS_FREE(K)
// Real and imaginary parts in two halves of each block.
#define ZAMS_TWO(K, fn, T, ...)                                                                                    \
    ZAMS_LIFE(K), [](const void* s, const void* in, void* out, Zam8u* b) {                                        \
        const T* i = static_cast<const T*>(in);                                                                    \
        T* o = static_cast<T*>(out);                                                                               \
        return fn(i, i + kN, o, o + kN, static_cast<const ZAMS_SPEC(K)*>(s), __VA_ARGS__ b);                      \
    }, ZAMS_FREE(K)

// DFT kinds of any length: mixed radix (1000) and Bluestein (1009).
#define ZAMS_DFT(K, L, fn, T)                                                                                      \
    [](void** p) { return zamsDFTInitAlloc_##K(reinterpret_cast<ZamsDFTSpec_##K**>(p), L, 8, 0); },                \
        [](const void* s, int* n) { return zamsDFTGetBufSize_##K(static_cast<const ZamsDFTSpec_##K*>(s), n); },      \
        [](const void* s, const void* in, void* out, Zam8u* b) {                                                  \
            return fn(static_cast<const T*>(in), static_cast<T*>(out), static_cast<const ZamsDFTSpec_##K*>(s), b);  \
        },                                                                                                         \
        [](void* s) { return zamsDFTFree_##K(static_cast<ZamsDFTSpec_##K*>(s)); }
// The Hilbert transform: no work buffer, its blocks are its own.
#define ZAMS_HILBERT(L)                                                                                            \
    [](void** p) { return zamsHilbertInitAlloc_32f32fc(reinterpret_cast<ZamsHilbertSpec_32f32fc**>(p), L, 0); },  \
        [](const void*, int* n) -> zamStatus { *n = 0; return zamStatusOk; },                                                \
        [](const void* s, const void* in, void* out, Zam8u*) {                                                    \
            return zamsHilbert_32f32fc(static_cast<const Zam32f*>(in), static_cast<Zam32fc*>(out),                \
                                       static_cast<const ZamsHilbertSpec_32f32fc*>(s));                            \
        },                                                                                                         \
        [](void* s) { return zamsHilbertFree_32f32fc(static_cast<ZamsHilbertSpec_32f32fc*>(s)); }

// DCT kinds: the FFT method (1024), the DFT underneath (1000), the direct sums (30).
#define ZAMS_DCT(D, K, FN, L, T, ...)                                                                              \
    [](void** p) { return zamsDCT##D##InitAlloc_##K(reinterpret_cast<ZamsDCT##D##Spec_##K**>(p), L, 0); },          \
        [](const void* s, int* n) { return zamsDCT##D##GetBufSize_##K(static_cast<const ZamsDCT##D##Spec_##K*>(s), n); }, \
        [](const void* s, const void* in, void* out, Zam8u* b) {                                                  \
            return FN(static_cast<const T*>(in), static_cast<T*>(out), static_cast<const ZamsDCT##D##Spec_##K*>(s),  \
                      __VA_ARGS__ b);                                                                              \
        },                                                                                                         \
        [](void* s) { return zamsDCT##D##Free_##K(static_cast<ZamsDCT##D##Spec_##K*>(s)); }
// Resampling 44.1 kHz -> 48 kHz: arbitrary ratio (window 16) and fixed (147 -> 160, 3200 taps), from
// time 20; the outputs are exactly the ones the calls write (1050 and 1067).
zamStatus resample_free(void* s) { return zamsResamplePolyphaseFree_32f(static_cast<ZamsResamplingPolyphaseSpec_32f*>(s)); }
zamStatus resample_fixed_free(void* s) {
    return zamsResamplePolyphaseFixedFree_32f(static_cast<ZamsResamplingPolyphaseFixedSpec_32f*>(s));
}

const Kind kKinds[] = {
    {"Resample 32f",
     [](void** p) {
         return zamsResamplePolyphaseInitAlloc_32f(reinterpret_cast<ZamsResamplingPolyphaseSpec_32f**>(p), 16, 256, 0.95f,
                                                   9, zamAlgHintNone);
     },
     [](const void*, int* n) -> zamStatus { *n = 0; return zamStatusOk; },
     [](const void* s, const void* in, void* out, Zam8u*) {
         double t = 20;
         int n = 0;
         return zamsResamplePolyphase_32f(static_cast<const Zam32f*>(in), 1000, static_cast<Zam32f*>(out),
                                          48000.0 / 44100, 1.0f, &t, &n,
                                          static_cast<const ZamsResamplingPolyphaseSpec_32f*>(s));
     },
     resample_free, 4, 1000, 1050, true},
    {"Resample fixed 32f",
     [](void** p) {
         return zamsResamplePolyphaseFixedInitAlloc_32f(reinterpret_cast<ZamsResamplingPolyphaseFixedSpec_32f**>(p), 147,
                                                        160, 3200, 0.95f, 9, zamAlgHintNone);
     },
     [](const void*, int* n) -> zamStatus { *n = 0; return zamStatusOk; },
     [](const void* s, const void* in, void* out, Zam8u*) {
         double t = 20;
         int n = 0;
         return zamsResamplePolyphaseFixed_32f(static_cast<const Zam32f*>(in), 1000, static_cast<Zam32f*>(out), 1.0f, &t,
                                               &n, static_cast<const ZamsResamplingPolyphaseFixedSpec_32f*>(s));
     },
     resample_fixed_free, 4, 1000, 1067, true},
    {"DFT C_32fc 1000", ZAMS_DFT(C_32fc, 1000, zamsDFTFwd_CToC_32fc, Zam32fc), 4, 2000, 2000, true},
    {"DFT C_32fc 1009", ZAMS_DFT(C_32fc, 1009, zamsDFTFwd_CToC_32fc, Zam32fc), 4, 2018, 2018, true},
    {"DFT C_64fc 1009", ZAMS_DFT(C_64fc, 1009, zamsDFTFwd_CToC_64fc, Zam64fc), 8, 2018, 2018, true},
    {"DFT R_32f 1000", ZAMS_DFT(R_32f, 1000, zamsDFTFwd_RToCCS_32f, Zam32f), 4, 1000, 1002, true},
    {"Hilbert 32f32fc 1000", ZAMS_HILBERT(1000), 4, 1000, 2000, true},
    {"DCT Fwd 32f 1024", ZAMS_DCT(Fwd, 32f, zamsDCTFwd_32f, 1024, Zam32f), 4, 1024, 1024, true},
    {"DCT Inv 32f 1000", ZAMS_DCT(Inv, 32f, zamsDCTInv_32f, 1000, Zam32f), 4, 1000, 1000, true},
    {"DCT Fwd 64f 30", ZAMS_DCT(Fwd, 64f, zamsDCTFwd_64f, 30, Zam64f), 8, 30, 30, true},
    {"DCT Inv 16s 1000", ZAMS_DCT(Inv, 16s, zamsDCTInv_16s_Sfs, 1000, Zam16s, 2, ), 2, 1000, 1000, false},
    {"C_32fc", ZAMS_ONE(C_32fc, zamsFFTFwd_CToC_32fc, Zam32fc, Zam32fc), 4, 2 * kN, 2 * kN, true},
    {"C_64fc", ZAMS_ONE(C_64fc, zamsFFTFwd_CToC_64fc, Zam64fc, Zam64fc), 8, 2 * kN, 2 * kN, true},
    {"C_32f", ZAMS_TWO(C_32f, zamsFFTFwd_CToC_32f, Zam32f), 4, 2 * kN, 2 * kN, true},
    {"C_64f", ZAMS_TWO(C_64f, zamsFFTFwd_CToC_64f, Zam64f), 8, 2 * kN, 2 * kN, true},
    {"R_32f", ZAMS_ONE(R_32f, zamsFFTFwd_RToCCS_32f, Zam32f, Zam32f), 4, kN, kN + 2, true},
    {"R_64f", ZAMS_ONE(R_64f, zamsFFTFwd_RToCCS_64f, Zam64f, Zam64f), 8, kN, kN + 2, true},
    {"C_16sc", ZAMS_ONE(C_16sc, zamsFFTFwd_CToC_16sc_Sfs, Zam16sc, Zam16sc, 5, ), 2, 2 * kN, 2 * kN, false},
    {"C_32sc", ZAMS_ONE(C_32sc, zamsFFTFwd_CToC_32sc_Sfs, Zam32sc, Zam32sc, 5, ), 4, 2 * kN, 2 * kN, false},
    {"C_16s", ZAMS_TWO(C_16s, zamsFFTFwd_CToC_16s_Sfs, Zam16s, 5, ), 2, 2 * kN, 2 * kN, false},
    {"C_32s", ZAMS_TWO(C_32s, zamsFFTFwd_CToC_32s_Sfs, Zam32s, 5, ), 4, 2 * kN, 2 * kN, false},
    {"R_16s", ZAMS_ONE(R_16s, zamsFFTFwd_RToCCS_16s_Sfs, Zam16s, Zam16s, 5, ), 2, kN, kN + 2, false},
    {"R_32s", ZAMS_ONE(R_32s, zamsFFTFwd_RToCCS_32s_Sfs, Zam32s, Zam32s, 5, ), 4, kN, kN + 2, false},
    {"R_16s32s", ZAMS_ONE(R_16s32s, zamsFFTFwd_RToCCS_16s32s_Sfs, Zam16s, Zam32s, 5, ), 2, kN, kN + 2, false},
};

// Seeded source data: values in [-1000, 1000] of the kind's element type.
std::vector<uint8_t> source(const Kind& k, uint32_t seed) {
    std::mt19937 g(seed);
    std::uniform_int_distribution<int> d(-1000, 1000);
    std::vector<uint8_t> v(k.in_elems * k.elem);
    for (size_t i = 0; i < k.in_elems; ++i) {
        const int x = d(g);
        if (k.floating && k.elem == 4) { const float f = float(x); std::memcpy(&v[i * 4], &f, 4); }
        else if (k.floating) { const double f = x; std::memcpy(&v[i * 8], &f, 8); }
        else if (k.elem == 2) { const int16_t s = int16_t(x); std::memcpy(&v[i * 2], &s, 2); }
        else { const int32_t s = x; std::memcpy(&v[i * 4], &s, 4); }
    }
    return v;
}

// The output width of R_16s32s is twice its input's.
size_t out_bytes(const Kind& k) { return k.out_elems * (std::strcmp(k.name, "R_16s32s") == 0 ? 4 : k.elem); }

TEST(SharedSpec, TwoThreadsGetTheSingleThreadResults) {
    for (const Kind& k : kKinds) {
        void* spec = nullptr;
        ASSERT_EQ(k.make(&spec), zamStatusOk) << k.name;
        int bytes = 0;
        ASSERT_EQ(k.bufsize(spec, &bytes), zamStatusOk) << k.name;
        // What one thread gets alone, for each thread's data.
        std::vector<uint8_t> in[2], want[2];
        for (int t = 0; t < 2; ++t) {
            in[t] = source(k, uint32_t(t + 1));
            want[t].assign(out_bytes(k), 0);
            std::vector<Zam8u> buf(size_t(bytes) + 64);
            ASSERT_EQ(k.run(spec, in[t].data(), want[t].data(), buf.data()), zamStatusOk) << k.name;
        }
        int bad[2] = {0, 0};
        auto worker = [&](int t) {
            std::vector<uint8_t> out(out_bytes(k));
            std::vector<Zam8u> buf(size_t(bytes) + 64);
            for (int r = 0; r < kRounds; ++r) {
                std::fill(out.begin(), out.end(), uint8_t(0xA5));
                if (k.run(spec, in[t].data(), out.data(), buf.data()) != zamStatusOk || out != want[t]) ++bad[t];
            }
        };
        std::thread a(worker, 0), b(worker, 1);
        a.join();
        b.join();
        EXPECT_EQ(bad[0] + bad[1], 0) << k.name;
        EXPECT_EQ(k.release(spec), zamStatusOk) << k.name;
    }
}

}  // namespace
