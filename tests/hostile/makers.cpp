// How to build a valid structure of each type that exports take, one row a
// type: the hostile test passes them as the valid case, as a structure of
// another kind, and released, as a freed one. A new stateful family adds its
// rows here; an export whose structure type has no row fails the test.
#include "hostile.h"

namespace hostile {
namespace {

// FFT specifications: order 3, no normalisation, accurate hint.
template <class S, zamStatus (*Alloc)(S**, int, int, int), zamStatus (*Free)(S*)> constexpr Maker fft(const char* type) {
    return {type, [](void** out) { return Alloc(reinterpret_cast<S**>(out), 3, 8, 0); },
            [](void* p) { return Free(static_cast<S*>(p)); }};
}
#define ZAMS_FFT_ROW(K) fft<ZamsFFTSpec_##K, zamsFFTInitAlloc_##K, zamsFFTFree_##K>("ZamsFFTSpec_" #K)

}  // namespace

const Maker kMakers[] = {
    ZAMS_FFT_ROW(C_32fc), ZAMS_FFT_ROW(C_32f),  ZAMS_FFT_ROW(C_64fc), ZAMS_FFT_ROW(C_64f), ZAMS_FFT_ROW(R_32f),
    ZAMS_FFT_ROW(R_64f),  ZAMS_FFT_ROW(C_16sc), ZAMS_FFT_ROW(C_16s),  ZAMS_FFT_ROW(R_16s), ZAMS_FFT_ROW(C_32s),
    ZAMS_FFT_ROW(C_32sc), ZAMS_FFT_ROW(R_32s),  ZAMS_FFT_ROW(R_16s32s),
};
const size_t kMakerCount = sizeof(kMakers) / sizeof(kMakers[0]);

}  // namespace hostile
