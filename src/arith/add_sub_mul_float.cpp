// Floating-point and complex arithmetic: Add, Sub, Mul, their constant and
// in-place forms, AddProduct, AddProductC, and a real vector times a complex
// one. Plain IEEE operations in a fixed order (no fused multiply-add), so the
// 256-bit body and the scalar head and tail give the same bits.
#include <immintrin.h>

#include "../common/check.h"
#include "../common/simd.h"
#include "../common/types.h"
#include "stream_store.h"

namespace zams {
namespace {

// Eight all-ones words then eight zero words: the 32 bytes from word 8 - k
// select the first k of eight 32-bit lanes (or k/2 of four 64-bit ones).
// Selection is bitwise: a blendv would be rewritten into a branch a lane
// (AVX has no 256-bit integer compare for the compiler's form of it).
alignas(64) constexpr int32_t kFirstMask[16] = {-1, -1, -1, -1, -1, -1, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0};
inline __m256 first_mask(int from) {
    return _mm256_loadu_ps(reinterpret_cast<const float*>(kFirstMask + from));
}

// Vector traits over the base scalar of a sample type; a complex vector
// holds P = L / 2 interleaved elements.
template <class S> struct Lanes;
template <> struct Lanes<float> : Avx<float> {
    // x in the first k lanes, y in the rest (k in 0..8).
    static V first(V x, V y, int k) {
        const V m = first_mask(8 - k);
        return _mm256_or_ps(_mm256_and_ps(m, x), _mm256_andnot_ps(m, y));
    }
    static void stream(float* p, V v) { _mm256_stream_ps(p, v); }
    static V cmul(V x, V y) { return cmul_pairs<float>(x, y); }
    static V splat(float v) { return set1(v); }
    static V splat(Zam32fc v) { return _mm256_setr_ps(v.re, v.im, v.re, v.im, v.re, v.im, v.re, v.im); }
    // Four reals at p, each repeated twice: the factors of four complex elements.
    static V pairs(const float* p) {
        __m128 r = _mm_loadu_ps(p);
        return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_unpacklo_ps(r, r)), _mm_unpackhi_ps(r, r), 1);
    }
};
template <> struct Lanes<double> : Avx<double> {
    static V first(V x, V y, int k) {
        const V m = _mm256_castps_pd(first_mask(8 - 2 * k));
        return _mm256_or_pd(_mm256_and_pd(m, x), _mm256_andnot_pd(m, y));
    }
    static void stream(double* p, V v) { _mm256_stream_pd(p, v); }
    static V cmul(V x, V y) { return cmul_pairs<double>(x, y); }
    static V splat(double v) { return set1(v); }
    static V splat(Zam64fc v) { return _mm256_setr_pd(v.re, v.im, v.re, v.im); }
    static V pairs(const double* p) {
        __m128d r = _mm_loadu_pd(p);
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_unpacklo_pd(r, r)), _mm_unpackhi_pd(r, r), 1);
    }
};

template <class T> struct base { using type = T; };
template <> struct base<Zam32fc> { using type = float; };
template <> struct base<Zam64fc> { using type = double; };
template <class T> using base_t = typename base<T>::type;

// Scalar rules, one element: these state what the vector body computes.
template <class T> T add(T a, T b) { return a + b; }
template <class T> T sub(T a, T b) { return a - b; }
template <class T> T mul(T a, T b) { return a * b; }
#define ZAMS_CPLX_RULES(C)                                                          \
    C add(C a, C b) { return {a.re + b.re, a.im + b.im}; }                          \
    C sub(C a, C b) { return {a.re - b.re, a.im - b.im}; }                          \
    C mul(C a, C b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
ZAMS_CPLX_RULES(Zam32fc)
ZAMS_CPLX_RULES(Zam64fc)
#undef ZAMS_CPLX_RULES

enum class Op { Add, Sub, Mul };

template <Op O, class T> T apply(T a, T b) {
    if constexpr (O == Op::Add) return add(a, b);
    else if constexpr (O == Op::Sub) return sub(a, b);
    else return mul(a, b);
}

template <Op O, class T, class V> V apply_v(V a, V b) {
    using Ln = Lanes<base_t<T>>;
    if constexpr (O == Op::Add) return Ln::add(a, b);
    else if constexpr (O == Op::Sub) return Ln::sub(a, b);
    else if constexpr (is_complex_v<T>) return Ln::cmul(a, b);
    else return Ln::mul(a, b);
}

template <class T> auto ld(const T* p) { return Lanes<base_t<T>>::load(reinterpret_cast<const base_t<T>*>(p)); }
template <class T, class V> void st(T* p, V v) { Lanes<base_t<T>>::store(reinterpret_cast<base_t<T>*>(p), v); }

// Where the body starts: `anchor` is the pointer to align, `whole` tells
// that every pointer of the call shares its phase.
struct Phase {
    const void* anchor;
    bool whole;
};
inline bool same_phase(const void* p, const void* q) {
    return (reinterpret_cast<uintptr_t>(p) ^ reinterpret_cast<uintptr_t>(q)) % 32 == 0;
}
// The sources when they share a phase, else the destination: crossing a
// cache line costs most on loads, and two aligned sources with a crossing
// destination run about 1.4 times faster than the other way round.
inline Phase phase_of(const void* d, const void* a, const void* b) {
    const bool ab = same_phase(a, b);
    return {ab ? a : d, ab && same_phase(a, d)};
}
inline Phase phase_of(const void* d, const void* a) { return {a, same_phase(a, d)}; }

// Short calls whose pointers differ in phase start the body at element 0:
// the head and the shorter unrolled body cost more than the crossings save.
inline constexpr size_t kAnchorMinBytes = 4096;

// The loop over vectors of P elements: ve(i) computes the vector at element
// i, the loop stores it. Vectors shorter than P go element by element (sc).
// Otherwise every element takes the vector path: the first vector covers
// the elements before the body, which starts where `anchor` (a pointer
// walked in step with the destination) reaches a 32-byte boundary, and the
// last one the elements after the body, each merged with the destination's
// current contents, so in place the elements that others compute are
// written back unchanged. Long calls whose destination overlaps no source
// (`apart()`, asked only of long calls) align the destination instead and
// store the body non-temporally.
template <class T, class Apart, class Scalar, class Vector>
void each(T* d, Phase ph, int len, Apart&& apart, Scalar&& sc, Vector&& ve) {
    using Ln = Lanes<base_t<T>>;
    constexpr int P = Ln::L / (is_complex_v<T> ? 2 : 1), per = Ln::L / P;  // lanes an element
    if (len < P) {
        for (int i = 0; i < len; ++i) sc(i);
        return;
    }
    const size_t bytes = size_t(len) * sizeof(T);
    const bool stream = bytes >= kStreamMinBytes;
    const void* anchor = stream ? d : ph.anchor;
    int i = 0;
    if (stream || ph.whole || bytes >= kAnchorMinBytes)
        i = int(((32 - reinterpret_cast<uintptr_t>(anchor) % 32) % 32) / sizeof(T));
    if (i > 0) {
        const auto v = ve(0);
        st(d, Ln::first(v, ld(d), i * per));
    }
    if (stream && reinterpret_cast<uintptr_t>(d + i) % 32 == 0 && apart()) {
        auto* q = reinterpret_cast<base_t<T>*>(d);
        _mm_sfence();  // the head's store before the streamed ones that overlap it
        for (; i + 2 * P <= len; i += 2 * P) {
            const auto v0 = ve(i), v1 = ve(i + P);
            Ln::stream(q + i * per, v0);
            Ln::stream(q + (i + P) * per, v1);
        }
        _mm_sfence();
    } else {
        if constexpr (is_complex_v<T>) {
            // Complex products two a step: four took more instructions.
            for (; i + 2 * P <= len; i += 2 * P) {
                const auto v0 = ve(i), v1 = ve(i + P);
                st(d + i, v0);
                st(d + i + P, v1);
            }
        } else {
            for (; i + 4 * P <= len; i += 4 * P) {
                const auto v0 = ve(i), v1 = ve(i + P), v2 = ve(i + 2 * P), v3 = ve(i + 3 * P);
                st(d + i, v0);
                st(d + i + P, v1);
                st(d + i + 2 * P, v2);
                st(d + i + 3 * P, v3);
            }
        }
    }
    for (; i + P <= len; i += P) st(d + i, ve(i));
    if (i < len) {
        const int j = len - P;
        const auto v = ve(j);
        st(d + j, Ln::first(ld(d + j), v, (i - j) * per));
    }
}

template <class T> bool apart(const T* d, int len, const void* a, size_t asz) {
    return disjoint(d, size_t(len) * sizeof(T), a, size_t(len) * asz);
}

// d = a op b (Sub: b - a, the second source less the first).
template <Op O, class T> zamStatus vv(const T* a, const T* b, T* d, int len) {
    if (zamStatus s = check_args(len, a, b, d)) return s;
    const auto ap = [=] { return apart(d, len, a, sizeof(T)) && apart(d, len, b, sizeof(T)); };
    if constexpr (O == Op::Sub) {
        each(d, phase_of(d, a, b), len, ap, [=](int i) { d[i] = apply<O>(b[i], a[i]); },
             [=](int i) { return apply_v<O, T>(ld(b + i), ld(a + i)); });
    } else {
        each(d, phase_of(d, a, b), len, ap, [=](int i) { d[i] = apply<O>(a[i], b[i]); },
             [=](int i) { return apply_v<O, T>(ld(a + i), ld(b + i)); });
    }
    return zamStatusOk;
}

// d = x op val, or val op x when Rev.
template <Op O, bool Rev, class T> zamStatus vc(const T* a, T val, T* d, int len) {
    if (zamStatus s = check_args(len, a, d)) return s;
    const auto c = Lanes<base_t<T>>::splat(val);
    const auto ap = [=] { return apart(d, len, a, sizeof(T)); };
    if constexpr (Rev) {
        each(d, phase_of(d, a), len, ap, [=](int i) { d[i] = apply<O>(val, a[i]); },
             [=](int i) { return apply_v<O, T>(c, ld(a + i)); });
    } else {
        each(d, phase_of(d, a), len, ap, [=](int i) { d[i] = apply<O>(a[i], val); },
             [=](int i) { return apply_v<O, T>(ld(a + i), c); });
    }
    return zamStatusOk;
}

// d += a * b.
template <class T> zamStatus addprod(const T* a, const T* b, T* d, int len) {
    if (zamStatus s = check_args(len, a, b, d)) return s;
    const Phase ph{d, same_phase(a, d) && same_phase(b, d)};  // d is read and written
    each(d, ph, len, [] { return false; }, [=](int i) { d[i] = add(d[i], mul(a[i], b[i])); },
         [=](int i) { return apply_v<Op::Add, T>(ld(d + i), apply_v<Op::Mul, T>(ld(a + i), ld(b + i))); });
    return zamStatusOk;
}

// d += a * val.
template <class T> zamStatus addprodc(const T* a, T val, T* d, int len) {
    if (zamStatus s = check_args(len, a, d)) return s;
    const auto c = Lanes<base_t<T>>::splat(val);
    each(d, phase_of(d, a), len, [] { return false; }, [=](int i) { d[i] = add(d[i], mul(a[i], val)); },
         [=](int i) { return apply_v<Op::Add, T>(ld(d + i), apply_v<Op::Mul, T>(ld(a + i), c)); });
    return zamStatusOk;
}

// d = r * c for a real r and a complex c, part by part.
template <class R, class C> zamStatus mul_real_cplx(const R* r, const C* c, C* d, int len) {
    if (zamStatus s = check_args(len, r, c, d)) return s;
    using Ln = Lanes<R>;
    each(d, phase_of(d, c), len, [=] { return apart(d, len, r, sizeof(R)) && apart(d, len, c, sizeof(C)); },
         [=](int i) { d[i] = {r[i] * c[i].re, r[i] * c[i].im}; },
         [=](int i) { return Ln::mul(Ln::pairs(r + i), ld(c + i)); });
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

#define ZAMS_FLOAT_FAMILY(t)                                                                                   \
    ZAMS_FN(zamStatus, zamsAdd_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) {                      \
        return zams::vv<zams::Op::Add>(a, b, d, n);                                                            \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsSub_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) {                      \
        return zams::vv<zams::Op::Sub>(a, b, d, n);                                                            \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsMul_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) {                      \
        return zams::vv<zams::Op::Mul>(a, b, d, n);                                                            \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsAdd_##t##_I)(const Zam##t* a, Zam##t* d, int n) { return zams::vv<zams::Op::Add>(a, d, d, n); } \
    ZAMS_FN(zamStatus, zamsSub_##t##_I)(const Zam##t* a, Zam##t* d, int n) { return zams::vv<zams::Op::Sub>(a, d, d, n); } \
    ZAMS_FN(zamStatus, zamsMul_##t##_I)(const Zam##t* a, Zam##t* d, int n) { return zams::vv<zams::Op::Mul>(a, d, d, n); } \
    ZAMS_FN(zamStatus, zamsAddC_##t)(const Zam##t* a, Zam##t v, Zam##t* d, int n) {                            \
        return zams::vc<zams::Op::Add, false>(a, v, d, n);                                                     \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsSubC_##t)(const Zam##t* a, Zam##t v, Zam##t* d, int n) {                            \
        return zams::vc<zams::Op::Sub, false>(a, v, d, n);                                                     \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsSubCRev_##t)(const Zam##t* a, Zam##t v, Zam##t* d, int n) {                         \
        return zams::vc<zams::Op::Sub, true>(a, v, d, n);                                                      \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsMulC_##t)(const Zam##t* a, Zam##t v, Zam##t* d, int n) {                            \
        return zams::vc<zams::Op::Mul, false>(a, v, d, n);                                                     \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsAddC_##t##_I)(Zam##t v, Zam##t* d, int n) { return zams::vc<zams::Op::Add, false>(d, v, d, n); } \
    ZAMS_FN(zamStatus, zamsSubC_##t##_I)(Zam##t v, Zam##t* d, int n) { return zams::vc<zams::Op::Sub, false>(d, v, d, n); } \
    ZAMS_FN(zamStatus, zamsSubCRev_##t##_I)(Zam##t v, Zam##t* d, int n) { return zams::vc<zams::Op::Sub, true>(d, v, d, n); } \
    ZAMS_FN(zamStatus, zamsMulC_##t##_I)(Zam##t v, Zam##t* d, int n) { return zams::vc<zams::Op::Mul, false>(d, v, d, n); } \
    ZAMS_FN(zamStatus, zamsAddProduct_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) {               \
        return zams::addprod(a, b, d, n);                                                                      \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsAddProductC_##t)(const Zam##t* a, Zam##t v, Zam##t* d, int n) {                     \
        return zams::addprodc(a, v, d, n);                                                                     \
    }

ZAMS_FLOAT_FAMILY(32f)
ZAMS_FLOAT_FAMILY(64f)
ZAMS_FLOAT_FAMILY(32fc)
ZAMS_FLOAT_FAMILY(64fc)

ZAMS_FN(zamStatus, zamsMul_32f32fc)(const Zam32f* r, const Zam32fc* c, Zam32fc* d, int n) {
    return zams::mul_real_cplx(r, c, d, n);
}
ZAMS_FN(zamStatus, zamsMul_32f32fc_I)(const Zam32f* r, Zam32fc* d, int n) { return zams::mul_real_cplx(r, d, d, n); }
ZAMS_FN(zamStatus, zamsMul_64f64fc)(const Zam64f* r, const Zam64fc* c, Zam64fc* d, int n) {
    return zams::mul_real_cplx(r, c, d, n);
}
ZAMS_FN(zamStatus, zamsMul_64f64fc_I)(const Zam64f* r, Zam64fc* d, int n) { return zams::mul_real_cplx(r, d, d, n); }
