// And, Or, Xor (two vectors, constant, in place) and Not on 8u, 16u, 32u.
// The body works on 256-bit registers through the float logic instructions,
// which move bits unchanged.
#include <immintrin.h>

#include "../common/loop.h"
#include "bits_handoff.h"

namespace zams::bits {
namespace {

enum class Op { And, Or, Xor };

template <Op O, class T> T apply(T a, T b) {
    if constexpr (O == Op::And) return T(a & b);
    else if constexpr (O == Op::Or) return T(a | b);
    else return T(a ^ b);
}
template <Op O> __m256 apply_v(__m256 a, __m256 b) {
    if constexpr (O == Op::And) return _mm256_and_ps(a, b);
    else if constexpr (O == Op::Or) return _mm256_or_ps(a, b);
    else return _mm256_xor_ps(a, b);
}

template <class T> __m256 ld(const T* p) { return _mm256_loadu_ps(reinterpret_cast<const float*>(p)); }
template <class T> void st(T* p, __m256 v) { _mm256_storeu_ps(reinterpret_cast<float*>(p), v); }

// d[i] = f(i) for scalars, 32 bytes a vector step.
template <class T, class Sc, class Ve> void each(T* d, int len, Sc sc, Ve ve) {
    constexpr int P = 32 / sizeof(T);
    for_each_block<2 * P, 32>(d, len, sc, [&](int i) {
        ve(i);
        ve(i + P);
    });
}

template <Op O, class T> zamStatus vv(const T* a, const T* b, T* d, int len) {
    if (zamStatus s = check_args(len, a, b, d)) return s;
    each(d, len, [&](int i) { d[i] = apply<O>(a[i], b[i]); }, [&](int i) { st(d + i, apply_v<O>(ld(a + i), ld(b + i))); });
    return zamStatusOk;
}

// The constant repeated over a register.
template <class T> __m256 splat(T v) {
    uint32_t w = v;
    if constexpr (sizeof(T) == 1) w *= 0x01010101u;
    else if constexpr (sizeof(T) == 2) w *= 0x00010001u;
    return _mm256_castsi256_ps(_mm256_set1_epi32(static_cast<int32_t>(w)));
}

template <Op O, class T> void vc_kernel(const T* a, T v, T* d, int len) {
    const __m256 c = splat(v);
    each(d, len, [&](int i) { d[i] = apply<O>(a[i], v); }, [&](int i) { st(d + i, apply_v<O>(ld(a + i), c)); });
}

template <Op O, class T> zamStatus vc(const T* a, T v, T* d, int len) {
    if (v == 0) {
        if constexpr (O == Op::And) {
            if (zamStatus s = check_ptr(a)) return s;
            return zero(d, len);
        } else {
            return copy(a, d, len);
        }
    }
    if (zamStatus s = check_args(len, a, d)) return s;
    vc_kernel<O>(a, v, d, len);
    return zamStatusOk;
}

template <Op O, class T> zamStatus vc_i(T v, T* d, int len) {
    if (O == Op::And && v == 0) return zero(d, len);
    if (zamStatus s = check_args(len, d)) return s;
    if (v != 0) vc_kernel<O>(d, v, d, len);
    return zamStatusOk;
}

template <class T> zamStatus not_v(const T* a, T* d, int len) {
    if (zamStatus s = check_args(len, a, d)) return s;
    vc_kernel<Op::Xor>(a, static_cast<T>(~T(0)), d, len);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::bits

using namespace zams::bits;

#define ZAMS_LOGIC(name, O, t)                                                                                    \
    ZAMS_FN(zamStatus, zams##name##_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) { return vv<O>(a, b, d, n); } \
    ZAMS_FN(zamStatus, zams##name##_##t##_I)(const Zam##t* a, Zam##t* d, int n) { return vv<O>(a, d, d, n); }     \
    ZAMS_FN(zamStatus, zams##name##C_##t)(const Zam##t* a, Zam##t v, Zam##t* d, int n) { return vc<O>(a, v, d, n); } \
    ZAMS_FN(zamStatus, zams##name##C_##t##_I)(Zam##t v, Zam##t* d, int n) { return vc_i<O>(v, d, n); }

#define ZAMS_LOGIC_TYPE(t)              \
    ZAMS_LOGIC(And, Op::And, t)         \
    ZAMS_LOGIC(Or, Op::Or, t)           \
    ZAMS_LOGIC(Xor, Op::Xor, t)         \
    ZAMS_FN(zamStatus, zamsNot_##t)(const Zam##t* a, Zam##t* d, int n) { return not_v(a, d, n); } \
    ZAMS_FN(zamStatus, zamsNot_##t##_I)(Zam##t* d, int n) { return not_v<Zam##t>(d, d, n); }

ZAMS_LOGIC_TYPE(8u)
ZAMS_LOGIC_TYPE(16u)
ZAMS_LOGIC_TYPE(32u)
