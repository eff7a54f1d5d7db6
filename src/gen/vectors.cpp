// Test vectors: the Jaehne chirp, ramps and slopes.
#include "../common/trig.h"
#include "gen_common.h"

namespace zams::gen {
namespace {

// magn sin(pi n^2 / (2 len)), the angle reduced exactly in integers: n^2
// modulo 4 len (the period) over 2 len half-turns.
template <class T> zamStatus jaehne(T* d, int len, T magn) {
    if (zamStatus s = check_args(len, d)) return s;
    if constexpr (std::is_signed_v<T>)
        if (magn < 0) return zamStatusBadArgument;
    const int64_t period = 4 * int64_t(len);
    for (int n = 0; n < len; ++n) {
        double s, c;
        sincospi_ratio((int64_t(n) * n) % period, 2 * int64_t(len), &s, &c);
        d[n] = round_to<T>(double(magn) * s);
    }
    return zamStatusOk;
}

// offset + slope n.
template <class T> zamStatus slope(T* d, int len, double offset, double slope) {
    if (zamStatus s = check_args(len, d)) return s;
    for (int n = 0; n < len; ++n) d[n] = round_to<T>(offset + slope * double(n));
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::gen

using namespace zams::gen;

#define ZAMS_GEN_VECTOR_FNS(T)                                                                            \
    ZAMS_FN(zamStatus, zamsVectorJaehne_##T)(Zam##T * d, int len, Zam##T magn) { return jaehne(d, len, magn); } \
    ZAMS_FN(zamStatus, zamsVectorRamp_##T)(Zam##T * d, int len, Zam32f off, Zam32f sl) {                  \
        return slope(d, len, off, sl);                                                                    \
    }                                                                                                     \
    ZAMS_FN(zamStatus, zamsVectorSlope_##T)(Zam##T * d, int len, Zam64f off, Zam64f sl) {                 \
        return slope(d, len, off, sl);                                                                    \
    }

ZAMS_GEN_VECTOR_FNS(8u)
ZAMS_GEN_VECTOR_FNS(8s)
ZAMS_GEN_VECTOR_FNS(16u)
ZAMS_GEN_VECTOR_FNS(16s)
ZAMS_GEN_VECTOR_FNS(32u)
ZAMS_GEN_VECTOR_FNS(32s)
ZAMS_GEN_VECTOR_FNS(32f)
ZAMS_GEN_VECTOR_FNS(64f)
