// Polyphase resampling: the Kaiser-windowed sinc tables of the arbitrary
// and the fixed ratio, their life cycle on src/common/spec.h, and the
// filtering loops over the dot-product kernels of kernel.h.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "../common/num/bessel.h"
#include "../common/spec.h"
#include "../common/trig.h"
#include "kernel.h"

namespace zams::resample {
namespace {

// One header for both forms; the table follows on a 64-byte boundary.
struct Hdr {
    int32_t id;
    int32_t owned;
    int32_t rows;    // arbitrary: nStep; fixed: up
    int32_t stride;  // taps a row: arbitrary 2K (2 x 2K floats: values and differences); fixed: ceil(len / up)
    uint32_t tableOff;
    int32_t nStep, half;  // arbitrary: table steps a sample, K = ceil(window)
    float window;
    int32_t up, down, len;  // fixed
};
constexpr Shape kShape{1, offsetof(Hdr, owned), true};

inline float* table(Hdr* h) { return reinterpret_cast<float*>(reinterpret_cast<uint8_t*>(h) + h->tableOff); }
inline const float* table(const Hdr* h) {
    return reinterpret_cast<const float*>(reinterpret_cast<const uint8_t*>(h) + h->tableOff);
}

// The block: header, alignment slack, rows x stride floats.
inline int64_t block_size(int64_t rows, int64_t stride) { return int64_t(sizeof(Hdr)) + 64 + rows * stride * 4; }

// The header of a build, the table placed on the next 64-byte boundary.
inline Hdr* lay_header(uint8_t* base, int rows, int stride) {
    Hdr* h = reinterpret_cast<Hdr*>(base);
    std::memset(static_cast<void*>(h), 0, sizeof *h);
    h->rows = rows;
    h->stride = stride;
    h->tableOff = uint32_t(align64(base + sizeof(Hdr)) - base);
    return h;
}

// I0(alpha sqrt(1 - r^2)) / I0(alpha), |r| < 1.
inline double kaiser(double r, double alpha) {
    const double q = 1.0 - r * r;
    return q <= 0 ? 0.0 : num::bessel_i0(alpha * std::sqrt(q)) / num::bessel_i0(alpha);
}
inline double sinc(double x) { return x == 0.0 ? 1.0 : sinpi(x) / (trig_detail::kPiHi * x); }

inline bool finite(double v) { return std::isfinite(v); }
// The largest time a call accepts (a time past the block gives no output).
constexpr double kMaxTime = 0x1p31;
constexpr double kGrid = 0x1p32;
// The longest row the arbitrary ratio forms in a buffer (taps), and the
// bits of the weight between two table rows.
constexpr int kFormed = 1024, kWeightBits = 12;

// ---- arbitrary ratio

inline zamStatus poly_geometry(float window, int nStep, int64_t& size, int& half) {
    if (!(window > 0.0f && window <= 4096.0f) || nStep < 1 || nStep > 65536) return zamStatusBadArgument;
    half = int(std::ceil(double(window)));
    size = block_size(nStep, 4 * int64_t(half));
    return size >= INT32_MAX ? zamStatusNoMemory : zamStatusOk;
}

zamStatus poly_size(float window, int nStep, int* pSize) {
    if (zamStatus s = check_ptr(pSize)) return s;
    int64_t size;
    int half;
    if (zamStatus s = poly_geometry(window, nStep, size, half)) return s;
    return report_size(size, pSize);
}

zamStatus poly_init(float window, int nStep, float rollf, float alpha, void* pSpec, int32_t id) {
    if (zamStatus s = check_ptr(pSpec)) return s;
    int64_t size;
    int half;
    if (zamStatus s = poly_geometry(window, nStep, size, half)) return s;
    if (!(rollf > 0.0f && rollf <= 1.0f) || !(alpha >= 0.0f && alpha <= 700.0f)) return zamStatusBadArgument;
    void* out;
    return lay_into(&out, pSpec, kShape, [&](uint8_t* base, int32_t& idOut) {
        const int n = 2 * half;
        Hdr* h = lay_header(base, nStep, n);
        h->nStep = nStep;
        h->half = half;
        h->window = window;
        // Row p, tap j: the value h(p/nStep - (j - K + 1)) and its
        // difference to row p + 1 (row nStep is the row of the next
        // sample's first phase), laid out as kernel.h reads them.
        auto value = [&](int p, int j) {
            const double u = double(p) / nStep - (j - half + 1);
            return float(std::fabs(u) < window ? rollf * sinc(rollf * u) * kaiser(u / window, alpha) : 0.0);
        };
        float* t = table(h);
        for (int j = 0; j < n; ++j) {
            int gap;
            const size_t at = size_t(lerp_at(j, n, gap));
            float v = value(0, j);
            for (int p = 0; p < nStep; ++p) {
                const float next = value(p + 1, j);
                float* r = t + size_t(p) * 2 * n + at;
                r[0] = v;
                r[gap] = next - v;
                v = next;
            }
        }
        idOut = id;
        return zamStatusOk;
    });
}

zamStatus poly_alloc(void** pp, float window, int nStep, float rollf, float alpha, int32_t id) {
    if (zamStatus s = check_ptr(pp)) return s;
    int64_t size;
    int half;
    if (zamStatus s = poly_geometry(window, nStep, size, half)) return s;
    return lay_alloc(pp, size, 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) {
        *out = mem;
        return poly_init(window, nStep, rollf, alpha, mem, id);
    });
}

// The row and weight of a table position x (in steps, 0 <= x <= nStep).
inline void row_of(double x, int nStep, int& p, float& a) {
    p = int(x);
    if (p >= nStep) p = nStep - 1;
    a = float(x - p);
}

// factor < 1: the filter stretched by s = factor, one interpolated
// coefficient per tap, summed in double.
template <class T> float stretched(const T* x, const Hdr* h, double t, double s, int H) {
    const float* tab = table(h);
    const int64_t n = int64_t(std::floor(t));
    const double frac = t - double(n);
    double acc = 0;
    for (int k = -H + 1; k <= H; ++k) {
        const double z = (h->half - 1) - (frac - k) * s;  // j - p/nStep
        const double j = std::ceil(z);
        if (j < 0 || j >= h->stride) continue;
        int p, gap;
        float a;
        row_of((j - z) * h->nStep, h->nStep, p, a);
        const float* r = tab + size_t(p) * 2 * h->stride + lerp_at(int(j), h->stride, gap);
        const float c = r[0] + a * r[gap];
        acc += double(c) * double(x[n + k]);
    }
    return float(acc * s);
}

// The count of times t + k step (on the 2^-32 grid) whose sample is at most
// last, at most INT32_MAX.
inline int outputs(uint64_t t, uint64_t step, int64_t last) {
    if (last < 0 || int64_t(t >> 32) > last) return 0;
    const uint64_t n = ((uint64_t(last + 1) << 32) - 1 - t) / step + 1;
    return n < uint64_t(INT32_MAX) ? int(n) : INT32_MAX;
}

// Visits the outputs k = 0..count-1 at times t + k step in chains, as
// f(k, time, m, jump, end): the outputs k, k + m, k + 2m, ... below end,
// at times time, time + jump, ... (jump = m step), in an order that keeps
// the table rows read close together: for the stride m (1 to 256, at most
// count / 32) whose multiple of the step lies nearest a whole number of
// samples, the outputs of a chain read (nearly) the same row; tiles of
// 32 m outputs keep the samples they read in cache. Every output is
// computed alone, so the order changes no bit.
template <class F> void in_row_order(int count, uint64_t t, uint64_t step, F&& f) {
    int m = 1;
    uint32_t best = ~0u;
    for (int s = 1; s <= 256 && s <= count / 32; ++s) {
        const uint32_t r = uint32_t(step * uint64_t(s)), off = r < 0x80000000u ? r : 0u - r;
        if (off < best) best = off, m = s;
    }
    const uint32_t tile = 32u * uint32_t(m), n = uint32_t(count);
    const uint64_t jump = step * uint64_t(m);
    // Unsigned counters: a tile or stride past the last output wraps harmlessly.
    for (uint32_t k0 = 0; k0 < n; k0 += tile) {
        const uint32_t k1 = n - k0 < tile ? n : k0 + tile;
        for (uint32_t r = k0; r < k0 + uint32_t(m) && r < k1; ++r) f(r, t + uint64_t(r) * step, uint32_t(m), jump, k1);
    }
}

// f(n), n a constant for the rows of windows 8, 16, 32 and 64 (the loops
// over the taps then unrolled, their counters out of the registers).
template <class F> inline void with_len(int n, F&& f) {
    switch (n) {
    case 16: return f(std::integral_constant<int, 16>{});
    case 32: return f(std::integral_constant<int, 32>{});
    case 64: return f(std::integral_constant<int, 64>{});
    case 128: return f(std::integral_constant<int, 128>{});
    default: return f(n);
    }
}

template <class T>
zamStatus poly_run(const T* pSrc, int len, T* pDst, double factor, float norm, double* pTime, int* pOutlen,
                   const void* pSpec, int32_t id) {
    if (zamStatus s = check_ptr(pSrc, pDst, pTime, pOutlen, pSpec)) return s;
    if (zamStatus s = check_len(len)) return s;
    zamStatus s;
    const Hdr* h = spec_of<Hdr>(pSpec, id, s);
    if (!h) return s;
    if (!(factor >= 1.0 / 64 && factor <= 64.0)) return zamStatusBadArgument;
    const double sc = factor < 1.0 ? factor : 1.0;
    const int H = int(std::ceil(double(h->window) / sc));
    const double t0 = *pTime;
    if (!finite(t0) || t0 < H - 1 || t0 > kMaxTime) return zamStatusBadArgument;
    // Times and the step sit on a grid of 2^-32 of a sample, counted in
    // 64-bit integers (the sample above, the fraction below bit 32): every
    // sum is exact, and a stream shifted by whole samples gives the bits of
    // one call while the returned time (a double) holds the grid exactly.
    const uint64_t step = uint64_t(round_even(kGrid / factor));
    const float* tab = table(h);
    const int n2 = h->stride, back = h->half - 1;
    const uint32_t steps = uint32_t(h->nStep);
    const uint64_t t = uint64_t(round_even(t0 * kGrid));  // at most 2^63
    const int count = outputs(t, step, int64_t(len) - 1 - H);
    if (factor >= 1.0) {
        // Outputs in turn that fall on the same row and weight share the
        // row formed between two table rows (rows too long for the buffer
        // are formed on the fly: the same bits).
        alignas(32) float c[kFormed];
        // The time's place in the table in 2^-kWeightBits steps (below
        // 2^28), rounded (ties up): row p and weight a (a = 1 in the last
        // step only).
        auto place = [&](uint64_t tk) {
            return uint32_t((uint64_t(uint32_t(tk)) * steps + (uint64_t(1) << (31 - kWeightBits))) >>
                            (32 - kWeightBits));
        };
        auto row_at = [&](uint32_t q, float& a) {
            const uint32_t p = std::min(q >> kWeightBits, steps - 1);
            a = float(q - (p << kWeightBits)) * (1.0f / (1 << kWeightBits));
            return tab + size_t(p) * 2 * n2;
        };
        auto src_at = [&](uint64_t tk) { return pSrc + (int(tk >> 32) - back); };
        in_row_order(count, t, step, [&](uint32_t k, uint64_t tk, uint32_t m, uint64_t jump, uint32_t end) {
            if (n2 > kFormed) {
                for (; k < end; k += m, tk += jump) {
                    float a;
                    const float* row = row_at(place(tk), a);
                    pDst[k] = to_sample<T>(dot_lerp(src_at(tk), row, n2, a) * norm);
                }
                return;
            }
            // Outputs in turn that fall on the same row and weight share
            // the row formed between two table rows.
            uint32_t formed = ~0u;
            while (k < end) {
                const uint32_t q = place(tk);
                if (q != formed) {
                    float a;
                    const float* row = row_at(q, a);
                    lerp_row(row, n2, a, c);
                    formed = q;
                }
                const T* x0 = src_at(tk);
                const uint32_t k0 = k;
                k += m, tk += jump;
                float y0, y1;
                if (k < end && place(tk) == q) {
                    const T* x1 = src_at(tk);
                    with_len(n2, [&](auto len) { dot2(x0, x1, c, int(len), y0, y1); });
                    pDst[k] = to_sample<T>(y1 * norm);
                    k += m, tk += jump;
                } else {
                    y0 = dot(x0, c, n2);
                }
                pDst[k0] = to_sample<T>(y0 * norm);
            }
        });
    } else {
        for (int k = 0; k < count; ++k)
            pDst[k] = to_sample<T>(stretched(pSrc, h, double(t + uint64_t(k) * step) / kGrid, sc, H) * norm);
    }
    *pOutlen = count;
    *pTime = double(t + uint64_t(count) * step) / kGrid;
    return zamStatusOk;
}

// ---- fixed ratio

inline int64_t gcd(int64_t a, int64_t b) {
    while (b) {
        const int64_t r = a % b;
        a = b;
        b = r;
    }
    return a;
}

struct FixedGeom {
    int up, down, rowLen;
    int64_t size;
};
inline zamStatus fixed_geometry(int inRate, int outRate, int len, FixedGeom& g) {
    if (zamStatus s = check_len(len)) return s;
    if (inRate < 1 || inRate > 65536 || outRate < 1 || outRate > 65536) return zamStatusBadArgument;
    const int64_t d = gcd(inRate, outRate);
    g.up = int(outRate / d);
    g.down = int(inRate / d);
    g.rowLen = int((int64_t(len) + g.up - 1) / g.up);
    g.size = block_size(g.up, g.rowLen);
    return g.size >= INT32_MAX ? zamStatusNoMemory : zamStatusOk;
}

zamStatus fixed_size(int inRate, int outRate, int len, int* pSize, int* pLen, int* pHeight) {
    if (zamStatus s = check_ptr(pSize, pLen, pHeight)) return s;
    FixedGeom g;
    if (zamStatus s = fixed_geometry(inRate, outRate, len, g)) return s;
    if (zamStatus s = report_size(g.size, pSize)) return s;
    *pLen = g.rowLen;
    *pHeight = g.up;
    return zamStatusOk;
}

// Rows are kept reversed (tap j of row p at rowLen - 1 - j), so that an
// output is one ascending dot product over pSrc[n - rowLen + 1 .. n].
inline size_t fixed_at(const Hdr* h, int p, int j) { return size_t(p) * h->stride + size_t(h->stride - 1 - j); }

zamStatus fixed_init(int inRate, int outRate, int len, float rollf, float alpha, void* pSpec, int32_t id) {
    if (zamStatus s = check_ptr(pSpec)) return s;
    FixedGeom g;
    if (zamStatus s = fixed_geometry(inRate, outRate, len, g)) return s;
    if (!(rollf > 0.0f && rollf <= 1.0f) || !(alpha >= 0.0f && alpha <= 700.0f)) return zamStatusBadArgument;
    void* out;
    return lay_into(&out, pSpec, kShape, [&](uint8_t* base, int32_t& idOut) {
        Hdr* h = lay_header(base, g.up, g.rowLen);
        h->up = g.up;
        h->down = g.down;
        h->len = len;
        const double fc = double(rollf) / (g.up > g.down ? g.up : g.down), c = (len - 1) / 2.0;
        float* t = table(h);
        for (int p = 0; p < g.up; ++p)
            for (int j = 0; j < g.rowLen; ++j) {
                const int64_t m = p + int64_t(g.up) * j;
                const double v = m < len ? g.up * fc * sinc(fc * (m - c)) * kaiser((m - c) / (len / 2.0), alpha) : 0.0;
                t[fixed_at(h, p, j)] = float(v);
            }
        idOut = id;
        return zamStatusOk;
    });
}

zamStatus fixed_alloc(void** pp, int inRate, int outRate, int len, float rollf, float alpha, int32_t id) {
    if (zamStatus s = check_ptr(pp)) return s;
    FixedGeom g;
    if (zamStatus s = fixed_geometry(inRate, outRate, len, g)) return s;
    return lay_alloc(pp, g.size, 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) {
        *out = mem;
        return fixed_init(inRate, outRate, len, rollf, alpha, mem, id);
    });
}

// Get (ToCaller) and Set (!ToCaller) of the rows: pointers, identifier,
// then the caller's row layout.
template <bool ToCaller, class P, class S> zamStatus fixed_filter(P* pBuf, int step, int height, S* pSpec, int32_t id) {
    if (zamStatus s = check_ptr(pBuf, pSpec)) return s;
    zamStatus s;
    auto* h = state_of<Hdr>(const_cast<void*>(static_cast<const void*>(pSpec)), {id}, s);
    if (!h) return s;
    // Rows of the caller's layout, their span within the int range of an index.
    if (step < h->stride || height != h->rows || int64_t(height - 1) * step + h->stride > INT32_MAX)
        return zamStatusBadArgument;
    float* t = table(h);
    for (int p = 0; p < h->rows; ++p)
        for (int j = 0; j < h->stride; ++j) {
            if constexpr (ToCaller) pBuf[size_t(p) * step + j] = t[fixed_at(h, p, j)];
            else t[fixed_at(h, p, j)] = pBuf[size_t(p) * step + j];
        }
    return zamStatusOk;
}

template <class T>
zamStatus fixed_run(const T* pSrc, int len, T* pDst, float norm, double* pTime, int* pOutlen, const void* pSpec,
                    int32_t id) {
    if (zamStatus s = check_ptr(pSrc, pDst, pTime, pOutlen, pSpec)) return s;
    if (zamStatus s = check_len(len)) return s;
    zamStatus s;
    const Hdr* h = spec_of<Hdr>(pSpec, id, s);
    if (!h) return s;
    const double t0 = *pTime;
    if (!finite(t0) || t0 < 0 || t0 > kMaxTime) return zamStatusBadArgument;
    const int64_t i = int64_t(round_even(t0 * h->up));
    // The up-sampled index i = n up + p, advanced by down = dn up + dp.
    int64_t n = i / h->up;
    int p = int(i % h->up);
    if (n < h->stride - 1) return zamStatusBadArgument;
    const int dn = h->down / h->up, dp = h->down % h->up;
    const float* tab = table(h);
    int count = 0;
    for (; n <= len - 1; n += dn, p += dp) {
        if (p >= h->up) p -= h->up, ++n;
        if (n > len - 1 || count == INT32_MAX) break;
        pDst[count++] = to_sample<T>(dot(pSrc + n - h->stride + 1, tab + size_t(p) * h->stride, h->stride) * norm);
    }
    if (p >= h->up) p -= h->up, ++n;
    *pOutlen = count;
    *pTime = double(n * h->up + p) / h->up;
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::resample

using namespace zams;
using namespace zams::resample;

#define ZAMS_RESAMPLE_FNS(SUF, T, PID, FID)                                                                           \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseGetSize_##SUF)(Zam32f window, int nStep, int* pSize, zamHintAlgorithm) {  \
        return poly_size(window, nStep, pSize);                                                                       \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseInit_##SUF)(Zam32f window, int nStep, Zam32f rollf, Zam32f alpha,         \
                                                        ZamsResamplingPolyphaseSpec_##SUF * pSpec, zamHintAlgorithm) { \
        return poly_init(window, nStep, rollf, alpha, pSpec, PID);                                                    \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseInitAlloc_##SUF)(ZamsResamplingPolyphaseSpec_##SUF * *pp, Zam32f window,  \
                                                             int nStep, Zam32f rollf, Zam32f alpha, zamHintAlgorithm) { \
        return poly_alloc(reinterpret_cast<void**>(pp), window, nStep, rollf, alpha, PID);                            \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseFree_##SUF)(ZamsResamplingPolyphaseSpec_##SUF * p) {                      \
        return release(p, {PID}, kShape);                                                                             \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphase_##SUF)(const T* pSrc, int len, T* pDst, Zam64f factor, Zam32f norm,      \
                                                    Zam64f* pTime, int* pOutlen,                                      \
                                                    const ZamsResamplingPolyphaseSpec_##SUF* pSpec) {                 \
        return poly_run(pSrc, len, pDst, factor, norm, pTime, pOutlen, pSpec, PID);                                   \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseFixedGetSize_##SUF)(int inRate, int outRate, int len, int* pSize,         \
                                                                int* pLen, int* pHeight, zamHintAlgorithm) {          \
        return fixed_size(inRate, outRate, len, pSize, pLen, pHeight);                                                \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseFixedInit_##SUF)(int inRate, int outRate, int len, Zam32f rollf,          \
                                                             Zam32f alpha,                                            \
                                                             ZamsResamplingPolyphaseFixedSpec_##SUF * pSpec,          \
                                                             zamHintAlgorithm) {                                      \
        return fixed_init(inRate, outRate, len, rollf, alpha, pSpec, FID);                                            \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseFixedInitAlloc_##SUF)(ZamsResamplingPolyphaseFixedSpec_##SUF * *pp,       \
                                                                  int inRate, int outRate, int len, Zam32f rollf,     \
                                                                  Zam32f alpha, zamHintAlgorithm) {                   \
        return fixed_alloc(reinterpret_cast<void**>(pp), inRate, outRate, len, rollf, alpha, FID);                    \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseFixedFree_##SUF)(ZamsResamplingPolyphaseFixedSpec_##SUF * p) {            \
        return release(p, {FID}, kShape);                                                                             \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseGetFixedFilter_##SUF)(Zam32f * pDst, int step, int height,                \
                                                                  const ZamsResamplingPolyphaseFixedSpec_##SUF* p) {  \
        return fixed_filter<true>(pDst, step, height, p, FID);                                                        \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseSetFixedFilter_##SUF)(const Zam32f* pSrc, int step, int height,           \
                                                                  ZamsResamplingPolyphaseFixedSpec_##SUF * p) {       \
        return fixed_filter<false>(pSrc, step, height, p, FID);                                                       \
    }                                                                                                                 \
    ZAMS_FN(zamStatus, zamsResamplePolyphaseFixed_##SUF)(const T* pSrc, int len, T* pDst, Zam32f norm, Zam64f* pTime, \
                                                         int* pOutlen,                                                \
                                                         const ZamsResamplingPolyphaseFixedSpec_##SUF* pSpec) {       \
        return fixed_run(pSrc, len, pDst, norm, pTime, pOutlen, pSpec, FID);                                          \
    }

ZAMS_RESAMPLE_FNS(32f, Zam32f, id::ResamplePoly32f, id::ResampleFixed32f)
ZAMS_RESAMPLE_FNS(16s, Zam16s, id::ResamplePoly16s, id::ResampleFixed16s)
