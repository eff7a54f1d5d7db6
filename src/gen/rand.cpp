// Random fills: uniform and Gaussian, their states and the Direct members.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <type_traits>

#include "../common/num/elem.h"
#include "gen_common.h"
#include "rand_core.h"

namespace zams::gen {
namespace {

// The scale constants as the generator is defined with them (a hair off
// 2^-32 and 2^-31).
constexpr double kUniScale = 2.3283064365387e-10, kGaussScale = 4.656612873077e-10;

// ---- uniform

template <class T> inline T uniform_value(double v) {
    if constexpr (std::is_floating_point_v<T>) return T(v);
    else return T(int32_t(v));  // toward zero; v lies between the bounds
}

template <class T> void fill_uniform(T* d, int len, double mid, double scale, Gen& g) {
    constexpr int kBlock = 256;
    int32_t r[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        const int n = std::min(kBlock, len - i);
        draw(g, r, n);
        for (int k = 0; k < n; ++k) d[i + k] = uniform_value<T>(mid + scale * double(r[k]));
    }
}

inline double mid_of(double low, double high) { return (low + high) * 0.5; }
inline double scale_of(double low, double high) { return (high - low) * kUniScale; }

// The midpoint of an integer kind's bounds has at most 17 significant bits
// and is kept in single precision, exactly; that leaves the 16-bit state
// room for its owned mark within 48 bytes.
template <class T> using Mid = std::conditional_t<std::is_floating_point_v<T>, double, float>;

template <class T> struct UniHdr {
    int32_t id;
    int32_t owned;
    uint32_t seed;
    T low, high;
    alignas(8) double scale;
    Mid<T> mid;
    Gen g;
};
static_assert(sizeof(UniHdr<Zam16s>) <= 48 && sizeof(UniHdr<Zam8u>) <= 48);
constexpr int kUniSize16s = 48;

template <class T> zamStatus uni_init(void* p, T low, T high, uint32_t seed, int32_t id) {
    return build_state<UniHdr<T>>(p, id, [&](UniHdr<T>& h) {
        h.seed = seed;
        h.low = low;
        h.high = high;
        h.mid = Mid<T>(mid_of(low, high));
        h.scale = scale_of(low, high);
        h.g = seeded(seed);
    });
}

template <class T> zamStatus uni_init_alloc(void** pp, T low, T high, uint32_t seed, int32_t id) {
    return alloc_state<UniHdr<T>>(pp, [&](uint8_t* mem) { return uni_init<T>(mem, low, high, seed, id); });
}

template <class T> zamStatus uni_fill(T* d, int len, void* p, int32_t id) {
    return with_state<UniHdr<T>>(d, len, p, id,
                                 [&](UniHdr<T>& h) { fill_uniform(d, len, double(h.mid), h.scale, h.g); });
}

// The seed cell of the Direct members: it seeds the generator, and receives
// the generator's next output after the fill.
template <class Fill> zamStatus direct(const void* d, int len, unsigned* pSeed, Fill&& fill) {
    if (zamStatus s = check_args(len, d, pSeed)) return s;
    Gen g = seeded(*pSeed);
    fill(g);
    *pSeed = uint32_t(step(g));
    return zamStatusOk;
}

template <class T> zamStatus uni_direct(T* d, int len, T low, T high, unsigned* pSeed) {
    return direct(d, len, pSeed, [&](Gen& g) { fill_uniform(d, len, mid_of(low, high), scale_of(low, high), g); });
}

// ---- Gaussian

// A normal value not yet written: factor * coordinate, pending unless
// `none` is 1.
struct Spare {
    int32_t none = 1;
    double factor = 0, u = 0;
};

template <class T> void fill_gauss(T* d, int len, double mean, double sd, Gen& state, Spare& spare) {
    Gen g = state;
    int i = 0;
    if (!spare.none) {
        d[i++] = round_to<T>((sd * spare.factor) * spare.u + mean);
        spare.none = 1;
    }
    while (i < len) {
        double u, v, s;
        do {
            int32_t r1, r2;
            step2(g, r1, r2);
            u = double(r1) * kGaussScale;
            v = double(r2) * kGaussScale;
            s = u * u + v * v;
        } while (s >= 1.0 || s == 0.0);
        const double f = std::sqrt(-2.0 * elem::log(s) / s);
        d[i++] = round_to<T>((sd * f) * v + mean);
        if (i < len) d[i++] = round_to<T>((sd * f) * u + mean);
        else spare = {0, f, u};
    }
    state = g;
}

template <class T> struct GaussHdr {
    int32_t id;
    int32_t owned;
    T mean, sd;
    Gen g;
    int32_t none;  // 1: no spare pending
    alignas(8) double factor, u;
};

template <class T> zamStatus gauss_init(void* p, T mean, T sd, uint32_t seed, int32_t id) {
    return build_state<GaussHdr<T>>(p, id, [&](GaussHdr<T>& h) {
        h.mean = mean;
        h.sd = sd;
        h.g = seeded(seed);
        h.none = 1;
    });
}

template <class T> zamStatus gauss_init_alloc(void** pp, T mean, T sd, uint32_t seed, int32_t id) {
    return alloc_state<GaussHdr<T>>(pp, [&](uint8_t* mem) { return gauss_init<T>(mem, mean, sd, seed, id); });
}

template <class T> zamStatus gauss_fill(T* d, int len, void* p, int32_t id) {
    return with_state<GaussHdr<T>>(d, len, p, id, [&](GaussHdr<T>& h) {
        Spare spare{h.none, h.factor, h.u};
        fill_gauss(d, len, double(h.mean), double(h.sd), h.g, spare);
        h.none = spare.none;
        h.factor = spare.factor;
        h.u = spare.u;
    });
}

template <class T> zamStatus gauss_direct(T* d, int len, T mean, T sd, unsigned* pSeed) {
    return direct(d, len, pSeed, [&](Gen& g) {
        Spare spare;
        fill_gauss(d, len, double(mean), double(sd), g, spare);
    });
}

}  // namespace
}  // namespace zams::gen

using namespace zams::gen;
namespace id = zams::id;

ZAMS_FN(zamStatus, zamsRandUniformGetSize_16s)(int* pSize) {
    if (!pSize) return zamStatusNullPointer;
    *pSize = kUniSize16s;
    return zamStatusOk;
}
ZAMS_FN(zamStatus, zamsRandGaussGetSize_16s)(int* pSize) {
    if (!pSize) return zamStatusNullPointer;
    *pSize = int(sizeof(GaussHdr<Zam16s>));
    return zamStatusOk;
}
ZAMS_FN(zamStatus, zamsRandUniformInit_16s)(ZamsRandUniState_16s* p, Zam16s lo, Zam16s hi, unsigned seed) {
    return uni_init<Zam16s>(p, lo, hi, seed, id::RandUni16s);
}
ZAMS_FN(zamStatus, zamsRandGaussInit_16s)(ZamsRandGaussState_16s* p, Zam16s mean, Zam16s sd, unsigned seed) {
    return gauss_init<Zam16s>(p, mean, sd, seed, id::RandGauss16s);
}

#define ZAMS_RAND_FNS(T, UID, GID)                                                                               \
    ZAMS_FN(zamStatus, zamsRandUniformInitAlloc_##T)(ZamsRandUniState_##T * *pp, Zam##T lo, Zam##T hi,          \
                                                      unsigned seed) {                                          \
        return uni_init_alloc<Zam##T>(reinterpret_cast<void**>(pp), lo, hi, seed, UID);                         \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsRandUniform_##T)(Zam##T * d, int len, ZamsRandUniState_##T * p) {                    \
        return uni_fill<Zam##T>(d, len, p, UID);                                                                \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsRandUniformFree_##T)(ZamsRandUniState_##T * p) {                                     \
        return free_state<UniHdr<Zam##T>>(p, UID);                                                              \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsRandGaussInitAlloc_##T)(ZamsRandGaussState_##T * *pp, Zam##T mean, Zam##T sd,        \
                                                    unsigned seed) {                                            \
        return gauss_init_alloc<Zam##T>(reinterpret_cast<void**>(pp), mean, sd, seed, GID);                     \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsRandGauss_##T)(Zam##T * d, int len, ZamsRandGaussState_##T * p) {                    \
        return gauss_fill<Zam##T>(d, len, p, GID);                                                              \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsRandGaussFree_##T)(ZamsRandGaussState_##T * p) {                                     \
        return free_state<GaussHdr<Zam##T>>(p, GID);                                                            \
    }

ZAMS_RAND_FNS(8u, id::RandUni8u, id::RandGauss8u)
ZAMS_RAND_FNS(16s, id::RandUni16s, id::RandGauss16s)
ZAMS_RAND_FNS(32f, id::RandUni32f, id::RandGauss32f)

#define ZAMS_RAND_DIRECT(T)                                                                                      \
    ZAMS_FN(zamStatus, zamsRandUniform_Direct_##T)(Zam##T * d, int len, Zam##T lo, Zam##T hi, unsigned* seed) {  \
        return uni_direct<Zam##T>(d, len, lo, hi, seed);                                                        \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsRandGauss_Direct_##T)(Zam##T * d, int len, Zam##T mean, Zam##T sd, unsigned* seed) {  \
        return gauss_direct<Zam##T>(d, len, mean, sd, seed);                                                    \
    }

ZAMS_RAND_DIRECT(16s)
ZAMS_RAND_DIRECT(32f)
ZAMS_RAND_DIRECT(64f)
