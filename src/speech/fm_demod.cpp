// FM demodulation: the angle of x[n] conj(x[n-1]), from an exact (16-bit) or
// once-rounded (float) product in double. Adding +0 to each part turns a
// negative zero into +0, so that a zero product gives 0 and a step on the
// negative real axis +pi.
#include <cstdint>

#include "../common/check.h"
#include "../common/num/elem.h"
#include "../common/round.h"

namespace zams {
namespace {

inline double angle(const Zam32fc& a, const Zam32fc& b) {
    const double re = double(a.re) * b.re + double(a.im) * b.im;
    const double im = double(a.im) * b.re - double(a.re) * b.im;
    return elem::atan2(im + 0.0, re + 0.0);
}
inline double angle(const Zam16sc& a, const Zam16sc& b) {
    const int64_t re = int64_t(a.re) * b.re + int64_t(a.im) * b.im;
    const int64_t im = int64_t(a.im) * b.re - int64_t(a.re) * b.im;
    return elem::atan2(double(im), double(re));
}

inline void put(Zam32f& d, double a) { d = float(a); }
inline void put(Zam16s& d, double a) {
    constexpr double kQ15PerRad = 10430.378350470452;  // 32768 / pi
    const double q = round_even(a * kQ15PerRad);
    d = Zam16s(q > 32767.0 ? 32767.0 : q);
}

template <class C, class R> zamStatus fm_demod(const C* src, R* dst, int len, C* mem) {
    if (zamStatus s = check_ptr(src, dst, mem)) return s;
    if (zamStatus s = check_len(len)) return s;
    C prev = *mem;
    for (int n = 0; n < len; ++n) {
        const C cur = src[n];
        put(dst[n], angle(cur, prev));
        prev = cur;
    }
    *mem = prev;
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsFMDemod_32fc32f)(const Zam32fc* s, Zam32f* d, int n, Zam32fc* m) { return fm_demod(s, d, n, m); }
ZAMS_FN(zamStatus, zamsFMDemod_16sc16s)(const Zam16sc* s, Zam16s* d, int n, Zam16sc* m) { return fm_demod(s, d, n, m); }
