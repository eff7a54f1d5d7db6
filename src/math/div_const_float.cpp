// Floating division by a constant: multiplication by the reciprocal, handed
// to the MulC family by its exported names.
#include "../common/check.h"
#include "../common/types.h"

namespace zams {
namespace {

template <class T> inline bool is_zero(T v) {
    if constexpr (is_complex_v<T>) return v.re == 0 && v.im == 0;
    else return v == 0;
}

// 1 / v in the type's precision; for a complex v = a + bi, (a - bi) / (a^2 + b^2).
template <class T> inline T reciprocal(T v) {
    if constexpr (is_complex_v<T>) {
        using P = part_t<T>;
        P d = v.re * v.re + v.im * v.im;
        return T{v.re / d, -v.im / d};
    } else {
        return T(1) / v;
    }
}

template <class T, class MulC> zamStatus div_const(const T* src, T val, T* dst, int len, MulC mulc) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (is_zero(val)) return zamStatusDivideByZero;
    return mulc(src, reciprocal(val), dst, len);
}

}  // namespace
}  // namespace zams

using zams::div_const;

#define ZAMS_DIVC_FLOAT(T)                                                                       \
    ZAMS_FN(zamStatus, zamsDivC_##T)(const Zam##T* s, Zam##T v, Zam##T* d, int n) {              \
        return div_const(s, v, d, n, zamsMulC_##T);                                              \
    }                                                                                            \
    ZAMS_FN(zamStatus, zamsDivC_##T##_I)(Zam##T v, Zam##T * p, int n) {                          \
        return div_const<Zam##T>(p, v, p, n, zamsMulC_##T);                                      \
    }
ZAMS_DIVC_FLOAT(32f)
ZAMS_DIVC_FLOAT(64f)
ZAMS_DIVC_FLOAT(32fc)
ZAMS_DIVC_FLOAT(64fc)
