// How to build a valid structure of each type that exports take, one row a
// type: the hostile test passes them as the valid case, as a structure of
// another kind, and released, as a freed one. A new stateful family adds its
// rows here; an export whose structure type has no row fails the test.
#include <cstring>

#include "hostile.h"

namespace hostile {
namespace {

// FFT specifications: order 3, no normalisation, accurate hint.
template <class S, zamStatus (*Alloc)(S**, int, int, int), zamStatus (*Free)(S*)> constexpr Maker fft(const char* type) {
    return {type, [](void** out) { return Alloc(reinterpret_cast<S**>(out), 3, 8, 0); },
            [](void* p) { return Free(static_cast<S*>(p)); }};
}
#define ZAMS_FFT_ROW(K) fft<ZamsFFTSpec_##K, zamsFFTInitAlloc_##K, zamsFFTFree_##K>("ZamsFFTSpec_" #K)

// Any other state: its InitAlloc with fixed valid arguments, and its Free.
template <class S, zamStatus (*Free)(S*)> constexpr auto release_of() {
    return [](void* p) { return Free(static_cast<S*>(p)); };
}
#define ZAMS_ROW(S, FREE, ...)                                                                        \
    Maker{#S, [](void** out) { return __VA_ARGS__; }, release_of<S, FREE>()}
#define ZAMS_STATE(S) reinterpret_cast<S**>(out)

// IIR: order 2 (or one section) of a stable low-pass.
template <class T> const T* iir_taps() {
    static const T taps[6] = {T{0.2}, T{0.4}, T{0.2}, T{1}, T{-0.3}, T{0.1}};
    return taps;
}
template <class T> const T* iir_ctaps() {
    static const T taps[6] = {{0.2, 0}, {0.4, 0}, {0.2, 0}, {1, 0}, {-0.3, 0}, {0.1, 0}};
    return taps;
}
// DFT and Hilbert: length 100 (mixed radix), no normalisation.
#define ZAMS_DFT_ROW(S, ALLOC, FREE) ZAMS_ROW(S, FREE, ALLOC(ZAMS_STATE(S), 100, 8, 0))
#define ZAMS_HILBERT_ROW(K) \
    ZAMS_ROW(ZamsHilbertSpec_##K, zamsHilbertFree_##K, zamsHilbertInitAlloc_##K(ZAMS_STATE(ZamsHilbertSpec_##K), 100, 0))
// DCT: length 100 (the DFT underneath).
#define ZAMS_DCT_ROW(D, K) \
    ZAMS_ROW(ZamsDCT##D##Spec_##K, zamsDCT##D##Free_##K, zamsDCT##D##InitAlloc_##K(ZAMS_STATE(ZamsDCT##D##Spec_##K), 100, 0))
// FIR: four taps; the integer-taps kinds with a taps factor of 0.
template <class T> const T* fir_taps() {
    static const T taps[4] = {T{0.25}, T{0.5}, T{0.25}, T{0.125}};
    return taps;
}
template <class T> const T* fir_ctaps() {
    static const T taps[4] = {{0.25, 0}, {0.5, 0}, {0.25, 0}, {0.125, 0}};
    return taps;
}
template <class T> const T* fir_itaps() {
    static const T taps[4] = {T{1000}, T{2000}, T{1000}, T{500}};
    return taps;
}
template <class T> const T* fir_ictaps() {
    static const T taps[4] = {{1000, 0}, {2000, 0}, {1000, 0}, {500, 0}};
    return taps;
}
#define ZAMS_FIR_ROW(S, SUF, TAPS) ZAMS_ROW(S, zamsFIRFree##SUF, zamsFIRInitAlloc##SUF(ZAMS_STATE(S), TAPS, 4, nullptr))
#define ZAMS_FIR_IROW(S, SUF, TAPS) \
    ZAMS_ROW(S, zamsFIRFree##SUF, zamsFIRInitAlloc##SUF(ZAMS_STATE(S), TAPS, 4, 0, nullptr))

// The sparse FIR lives in caller memory only: states from a pool, released
// by clearing them.
alignas(64) unsigned char gSparse[8][1024];
int gSparseNext = 0;
zamStatus make_sparse(void** out) {
    static const Zam32f taps[2] = {1.0f, 0.5f};
    static const Zam32s pos[2] = {0, 5};
    unsigned char* mem = gSparse[gSparseNext++ % 8];
    return zamsFIRSparseInit_32f(reinterpret_cast<ZamsFIRSparseState_32f**>(out), taps, pos, 2, nullptr, mem);
}
zamStatus clear_sparse(void* p) {
    int size = 0;
    zamsFIRSparseGetStateSize_32f(2, 5, &size);
    std::memset(p, 0, size_t(size) < sizeof gSparse[0] - 64 ? size_t(size) : 64);
    return zamStatusOk;
}

// Wavelet filter banks: four taps a band, offsets 0 (low) and -1 (high).
#define ZAMS_WT_ROW(S, PRE, SUF) \
    ZAMS_ROW(S, zamsWT##PRE##Free##SUF, \
             zamsWT##PRE##InitAlloc##SUF(ZAMS_STATE(S), fir_taps<Zam32f>(), 4, 0, fir_taps<Zam32f>(), 4, -1))

#define ZAMS_IIR_ROW(S, SUF, TAPS)                                                                    \
    ZAMS_ROW(S, zamsIIRFree##SUF, zamsIIRInitAlloc##SUF(ZAMS_STATE(S), TAPS, 2, nullptr))

}  // namespace

const Maker kMakers[] = {
    ZAMS_FFT_ROW(C_32fc), ZAMS_FFT_ROW(C_32f),  ZAMS_FFT_ROW(C_64fc), ZAMS_FFT_ROW(C_64f), ZAMS_FFT_ROW(R_32f),
    ZAMS_FFT_ROW(R_64f),  ZAMS_FFT_ROW(C_16sc), ZAMS_FFT_ROW(C_16s),  ZAMS_FFT_ROW(R_16s), ZAMS_FFT_ROW(C_32s),
    ZAMS_FFT_ROW(C_32sc), ZAMS_FFT_ROW(R_32s),  ZAMS_FFT_ROW(R_16s32s),
    ZAMS_ROW(ZamsRandUniState_8u, zamsRandUniformFree_8u, zamsRandUniformInitAlloc_8u(ZAMS_STATE(ZamsRandUniState_8u), 0, 255, 1)),
    ZAMS_ROW(ZamsRandUniState_16s, zamsRandUniformFree_16s, zamsRandUniformInitAlloc_16s(ZAMS_STATE(ZamsRandUniState_16s), -100, 100, 1)),
    ZAMS_ROW(ZamsRandUniState_32f, zamsRandUniformFree_32f, zamsRandUniformInitAlloc_32f(ZAMS_STATE(ZamsRandUniState_32f), 0.f, 1.f, 1)),
    ZAMS_ROW(ZamsRandGaussState_8u, zamsRandGaussFree_8u, zamsRandGaussInitAlloc_8u(ZAMS_STATE(ZamsRandGaussState_8u), 128, 30, 1)),
    ZAMS_ROW(ZamsRandGaussState_16s, zamsRandGaussFree_16s, zamsRandGaussInitAlloc_16s(ZAMS_STATE(ZamsRandGaussState_16s), 0, 1000, 1)),
    ZAMS_ROW(ZamsRandGaussState_32f, zamsRandGaussFree_32f, zamsRandGaussInitAlloc_32f(ZAMS_STATE(ZamsRandGaussState_32f), 0.f, 1.f, 1)),
    ZAMS_ROW(ZamsTriangleState_16s, zamsTriangleFree, zamsTriangleInitAllocQ15_16s(ZAMS_STATE(ZamsTriangleState_16s), 1000, 1000, 0, 0)),
    ZAMS_ROW(ZamsToneState_16s, zamsToneFree, zamsToneInitAllocQ15_16s(ZAMS_STATE(ZamsToneState_16s), 1000, 1000, 0)),
    ZAMS_DFT_ROW(ZamsDFTSpec_C_32fc, zamsDFTInitAlloc_C_32fc, zamsDFTFree_C_32fc),
    ZAMS_DFT_ROW(ZamsDFTSpec_C_64fc, zamsDFTInitAlloc_C_64fc, zamsDFTFree_C_64fc),
    ZAMS_DFT_ROW(ZamsDFTSpec_R_32f, zamsDFTInitAlloc_R_32f, zamsDFTFree_R_32f),
    ZAMS_DFT_ROW(ZamsDFTSpec_R_64f, zamsDFTInitAlloc_R_64f, zamsDFTFree_R_64f),
    ZAMS_DFT_ROW(ZamsDFTSpec_C_16sc, zamsDFTInitAlloc_C_16sc, zamsDFTFree_C_16sc),
    ZAMS_DFT_ROW(ZamsDFTSpec_R_16s, zamsDFTInitAlloc_R_16s, zamsDFTFree_R_16s),
    ZAMS_DFT_ROW(ZamsDFTOutOrdSpec_C_32fc, zamsDFTOutOrdInitAlloc_C_32fc, zamsDFTOutOrdFree_C_32fc),
    ZAMS_DFT_ROW(ZamsDFTOutOrdSpec_C_64fc, zamsDFTOutOrdInitAlloc_C_64fc, zamsDFTOutOrdFree_C_64fc),
    ZAMS_HILBERT_ROW(32f32fc),
    ZAMS_HILBERT_ROW(16s32fc),
    ZAMS_HILBERT_ROW(16s16sc),
    ZAMS_DCT_ROW(Fwd, 32f), ZAMS_DCT_ROW(Inv, 32f), ZAMS_DCT_ROW(Fwd, 64f),
    ZAMS_DCT_ROW(Inv, 64f), ZAMS_DCT_ROW(Fwd, 16s), ZAMS_DCT_ROW(Inv, 16s),
    ZAMS_FIR_ROW(ZamsFIRState_32f, _32f, fir_taps<Zam32f>()),
    ZAMS_FIR_ROW(ZamsFIRState_32fc, _32fc, fir_ctaps<Zam32fc>()),
    ZAMS_FIR_ROW(ZamsFIRState_64f, _64f, fir_taps<Zam64f>()),
    ZAMS_FIR_ROW(ZamsFIRState_64fc, _64fc, fir_ctaps<Zam64fc>()),
    ZAMS_FIR_ROW(ZamsFIRState32f_16s, 32f_16s, fir_taps<Zam32f>()),
    ZAMS_FIR_ROW(ZamsFIRState32fc_16sc, 32fc_16sc, fir_ctaps<Zam32fc>()),
    ZAMS_FIR_ROW(ZamsFIRState64f_16s, 64f_16s, fir_taps<Zam64f>()),
    ZAMS_FIR_ROW(ZamsFIRState64f_32s, 64f_32s, fir_taps<Zam64f>()),
    ZAMS_FIR_ROW(ZamsFIRState64f_32f, 64f_32f, fir_taps<Zam64f>()),
    ZAMS_FIR_ROW(ZamsFIRState64fc_16sc, 64fc_16sc, fir_ctaps<Zam64fc>()),
    ZAMS_FIR_ROW(ZamsFIRState64fc_32sc, 64fc_32sc, fir_ctaps<Zam64fc>()),
    ZAMS_FIR_ROW(ZamsFIRState64fc_32fc, 64fc_32fc, fir_ctaps<Zam64fc>()),
    ZAMS_FIR_IROW(ZamsFIRState32s_16s, 32s_16s, fir_itaps<Zam32s>()),
    ZAMS_FIR_IROW(ZamsFIRState32sc_16sc, 32sc_16sc, fir_ictaps<Zam32sc>()),
    ZAMS_FIR_IROW(ZamsFIRState_16s, _16s, fir_itaps<Zam16s>()),
    Maker{"ZamsFIRSparseState_32f", make_sparse, clear_sparse},
    ZAMS_IIR_ROW(ZamsIIRState_32f, _32f, iir_taps<Zam32f>()),
    ZAMS_IIR_ROW(ZamsIIRState32f_16s, 32f_16s, iir_taps<Zam32f>()),
    ZAMS_IIR_ROW(ZamsIIRState32fc_16sc, 32fc_16sc, iir_ctaps<Zam32fc>()),
    ZAMS_IIR_ROW(ZamsIIRState_64f, _64f, iir_taps<Zam64f>()),
    ZAMS_IIR_ROW(ZamsIIRState_64fc, _64fc, iir_ctaps<Zam64fc>()),
    ZAMS_IIR_ROW(ZamsIIRState64f_32f, 64f_32f, iir_taps<Zam64f>()),
    ZAMS_IIR_ROW(ZamsIIRState64fc_32fc, 64fc_32fc, iir_ctaps<Zam64fc>()),
    ZAMS_IIR_ROW(ZamsIIRState64f_32s, 64f_32s, iir_taps<Zam64f>()),
    ZAMS_IIR_ROW(ZamsIIRState64fc_32sc, 64fc_32sc, iir_ctaps<Zam64fc>()),
    ZAMS_IIR_ROW(ZamsIIRState64f_16s, 64f_16s, iir_taps<Zam64f>()),
    ZAMS_IIR_ROW(ZamsIIRState64fc_16sc, 64fc_16sc, iir_ctaps<Zam64fc>()),
    ZAMS_ROW(ZamsFIRLMSState_32f, zamsFIRLMSFree_32f, zamsFIRLMSInitAlloc_32f(ZAMS_STATE(ZamsFIRLMSState_32f), fir_taps<Zam32f>(), 4, nullptr, 0)),
    ZAMS_ROW(ZamsFIRLMSState32f_16s, zamsFIRLMSFree32f_16s, zamsFIRLMSInitAlloc32f_16s(ZAMS_STATE(ZamsFIRLMSState32f_16s), fir_taps<Zam32f>(), 4, nullptr, 0)),
    ZAMS_ROW(ZamsFIRLMSMRState32s_16s, zamsFIRLMSMRFree32s_16s, zamsFIRLMSMRInitAlloc32s_16s(ZAMS_STATE(ZamsFIRLMSMRState32s_16s), fir_itaps<Zam32s>(), 4, nullptr, 0, 100)),
    ZAMS_ROW(ZamsFIRLMSMRState32sc_16sc, zamsFIRLMSMRFree32sc_16sc, zamsFIRLMSMRInitAlloc32sc_16sc(ZAMS_STATE(ZamsFIRLMSMRState32sc_16sc), fir_ictaps<Zam32sc>(), 4, nullptr, 0, 100)),
    ZAMS_WT_ROW(ZamsWTFwdState_32f, Fwd, _32f),
    ZAMS_WT_ROW(ZamsWTInvState_32f, Inv, _32f),
    ZAMS_WT_ROW(ZamsWTFwdState32f_16s, Fwd, 32f_16s),
    ZAMS_WT_ROW(ZamsWTInvState32f_16s, Inv, 32f_16s),
    // Resampling: window 4, 16 steps; the fixed ratio 2 -> 3 with 12 taps.
    ZAMS_ROW(ZamsResamplingPolyphaseSpec_32f, zamsResamplePolyphaseFree_32f,
             zamsResamplePolyphaseInitAlloc_32f(ZAMS_STATE(ZamsResamplingPolyphaseSpec_32f), 4, 16, 0.9f, 8, zamAlgHintNone)),
    ZAMS_ROW(ZamsResamplingPolyphaseSpec_16s, zamsResamplePolyphaseFree_16s,
             zamsResamplePolyphaseInitAlloc_16s(ZAMS_STATE(ZamsResamplingPolyphaseSpec_16s), 4, 16, 0.9f, 8, zamAlgHintNone)),
    ZAMS_ROW(ZamsResamplingPolyphaseFixedSpec_32f, zamsResamplePolyphaseFixedFree_32f,
             zamsResamplePolyphaseFixedInitAlloc_32f(ZAMS_STATE(ZamsResamplingPolyphaseFixedSpec_32f), 2, 3, 12, 0.9f, 8, zamAlgHintNone)),
    ZAMS_ROW(ZamsResamplingPolyphaseFixedSpec_16s, zamsResamplePolyphaseFixedFree_16s,
             zamsResamplePolyphaseFixedInitAlloc_16s(ZAMS_STATE(ZamsResamplingPolyphaseFixedSpec_16s), 2, 3, 12, 0.9f, 8, zamAlgHintNone)),
};
const size_t kMakerCount = sizeof(kMakers) / sizeof(kMakers[0]);

}  // namespace hostile
