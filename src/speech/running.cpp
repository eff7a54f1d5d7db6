// Exponentially weighted running power and mean: each sample's term (x^2 or
// x, scaled by 2^-scaleFactor under the library's rule) is mixed into the
// accumulator with the Q15 weight, (w acc + (32768 - w) p) / 2^15 rounded
// half to even. Every product is exact in 64 bits.
#include <cstdint>

#include "../common/check.h"
#include "../common/scale.h"

namespace zams {
namespace {

template <bool Power, class S>
zamStatus update(const S* src, int len, Zam32s* acc, Zam16s weight, int sf) {
    if (zamStatus s = check_ptr(src, acc)) return s;
    if (zamStatus s = check_len(len)) return s;
    if (weight < 0) return zamStatusBadArgument;
    const int64_t w = weight, v = 32768 - weight;
    int64_t a = *acc;
    for (int i = 0; i < len; ++i) {
        const int64_t x = src[i];
        const int64_t p = scale_round_sat<Zam32s>(Power ? x * x : x, sf);
        a = scale_round_sat<Zam32s>(w * a + v * p, 15);
    }
    *acc = Zam32s(a);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsUpdatePower_16s32s_ISfs)(const Zam16s* s, int n, Zam32s* a, Zam16s w, int sf) {
    return update<true>(s, n, a, w, sf);
}
ZAMS_FN(zamStatus, zamsUpdatePower_32s_ISfs)(const Zam32s* s, int n, Zam32s* a, Zam16s w, int sf) {
    return update<true>(s, n, a, w, sf);
}
ZAMS_FN(zamStatus, zamsUpdateLinear_16s32s_ISfs)(const Zam16s* s, int n, Zam32s* a, Zam16s w, int sf) {
    return update<false>(s, n, a, w, sf);
}
ZAMS_FN(zamStatus, zamsUpdateLinear_32s_ISfs)(const Zam32s* s, int n, Zam32s* a, Zam16s w, int sf) {
    return update<false>(s, n, a, w, sf);
}
