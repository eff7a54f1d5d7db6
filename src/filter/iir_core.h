// IIR states: kinds, layout, normalised taps and the one-sample steps of
// the transposed direct form II (and of the direct-form-I cascade).
//
// A state is a Hdr followed by regions at 32-byte offsets from its start:
//   taps   normalised taps: AR b'[0..N] then a'[1..N]; cascades 5 a
//          section, b0' b1' b2' a1' a2'
//   dly    the delay line: AR N values and one kept 0 (so every update of
//          the line reads the same way); cascades 2 a section; the
//          direct-form-I cascade 4 a section, x1 x2 y1 y2
// Regions are found by offsets, so one layout serves both targets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "../common/ids.h"
#include "../common/spec.h"
#include "../common/types.h"

namespace zams::iir {

enum Form : int32_t { Ar = 0, Bq = 1, Df1 = 2 };

// Complex arithmetic in plain operations (no library calls, the same bits
// on both targets).
template <class F> struct Cx {
    F re, im;
};
template <class F> inline Cx<F> operator+(Cx<F> a, Cx<F> b) { return {a.re + b.re, a.im + b.im}; }
template <class F> inline Cx<F> operator-(Cx<F> a, Cx<F> b) { return {a.re - b.re, a.im - b.im}; }
template <class F> inline Cx<F> operator*(Cx<F> a, Cx<F> b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
template <class F> inline bool is_zero(Cx<F> a) { return a.re == 0 && a.im == 0; }
template <class F> inline bool is_one(Cx<F> a) { return a.re == 1 && a.im == 0; }
template <class F> inline Cx<F> recip(Cx<F> a) {
    const F d = a.re * a.re + a.im * a.im;
    return {a.re / d, -a.im / d};
}
template <class F> inline bool is_zero(F a) { return a == 0; }
template <class F> inline bool is_one(F a) { return a == 1; }
template <class F> inline F recip(F a) { return F(1) / a; }

// The arithmetic type of a taps type, and sample loads and stores.
template <class T> struct arith { using type = T; };
template <> struct arith<Zam32fc> { using type = Cx<float>; };
template <> struct arith<Zam64fc> { using type = Cx<double>; };
template <class T> using arith_t = typename arith<T>::type;

template <class A, class D> inline A load(const D& v) {
    if constexpr (is_complex_v<D>) return {decltype(A::re)(v.re), decltype(A::re)(v.im)};
    else return A(v);
}
template <class D, class A> inline D store(A v) {
    if constexpr (is_complex_v<D>) return {part_t<D>(v.re), part_t<D>(v.im)};
    else return D(v);
}

// A taps/data kind: its identifier words (AR, cascade, direct-form-I
// cascade; a kind without one repeats another, so the list of accepted
// words never holds 0) and whether its sizes follow the fixed formulas of
// the float-taps layout.
template <class T, class D, int32_t IdAr, int32_t IdBq, int32_t IdDf1 = IdBq> struct Kind {
    using taps = T;
    using data = D;
    using A = arith_t<T>;
    static constexpr int32_t ids[3] = {IdAr, IdBq, IdDf1};
    static constexpr bool floatTaps = std::is_same_v<T, Zam32f>;
    static constexpr bool block = floatTaps && std::is_same_v<D, Zam32f>;  // the 32f block filters
};

struct Hdr {
    int32_t id;
    int32_t form;
    int32_t n;       // order N, or numBq
    int32_t dlyLen;  // values in the caller's delay line
    uint32_t offTaps, offDly;
    uint32_t offTable;    // block-recursion tables (32f data), 0: none
    uint32_t offScratch;  // the block filters' rows and buffers (iir_block.h)
    int32_t tableOk;      // the tables were built and are finite
    int32_t fill;         // block filters: samples since the last reset, up to W + 7
    int32_t owned;        // 1: made by InitAlloc
};

inline constexpr Shape kShape{32, offsetof(Hdr, owned), false};

constexpr int64_t ru16(int64_t v) { return (v + 15) & ~int64_t(15); }
constexpr int64_t ru32(int64_t v) { return (v + 31) & ~int64_t(31); }

inline int64_t taps_count(Form f, int64_t n) { return f == Ar ? 2 * n + 1 : 5 * n; }
inline int64_t dly_count(Form f, int64_t n) { return f == Ar ? n : (f == Bq ? 2 * n : 4 * n); }

// The block filters of 32f data run 8 samples at a time from tables
// (iir_block.h): an AR filter of order N up to kMaxBlockOrder keeps
// 16 N + 16 floats of them, a cascade 48 floats a section. Their rows and
// buffers take a work area: 4096 bytes for an AR filter, for a cascade
// n + 1 rows of 10 floats and two buffers of kBqChunk + 10.
inline constexpr int kMaxBlockOrder = 64;
inline constexpr int64_t kScratchBytes = 4096;
inline constexpr int kBqChunk = 480;
template <class K> constexpr int64_t recursion_floats(int64_t n) { return K::block ? 16 * n + 16 : 4 * n + 12; }
template <class K> int64_t table_floats(Form f, int64_t n) {
    if (!K::block || f == Df1) return 0;
    return f == Ar ? (n <= kMaxBlockOrder ? recursion_floats<K>(n) : 0) : 48 * n;
}

struct Layout {
    int64_t taps, dly, table, scratch, end;
};
template <class K> Layout layout(Form f, int64_t n) {
    using T = typename K::taps;
    Layout l;
    l.taps = ru32(sizeof(Hdr));
    l.dly = l.taps + ru32(taps_count(f, n) * int64_t(sizeof(T)));
    l.table = l.dly + ru32((dly_count(f, n) + 1) * int64_t(sizeof(T)));
    l.scratch = l.table + ru32(table_floats<K>(f, n) * 4);
    l.end = l.scratch + (!K::block || f == Df1 ? 0 : f == Ar ? kScratchBytes : ru32(4 * (10 * (n + 1) + 2 * (kBqChunk + 10))));
    return l;
}

// Bytes a state needs: the float-taps forms by their fixed formulas (which
// leave room for the layout and the 32-byte rounding of the caller's
// buffer), the others by their layout and that rounding.
template <class K> int64_t state_size(Form f, int64_t n) {
    if constexpr (K::floatTaps) {
        if (f == Ar) return ru16(8 * n + 4) + ru16(4 * n + 4) + 4 * (recursion_floats<K>(n) + 4 * n + 4 + (K::block ? 1024 : 2048)) + 120;
        if (f == Bq) {
            const int64_t tail = K::block ? ru16(160 * n + 4151) + 128 * n : 160 * n + 8232;
            return ru16(20 * n) + ru16(8 * n) + tail + 16 + 80;
        }
        return ru16(20 * n) + 16 * n + 128 * n + 80;
    }
    return layout<K>(f, n).end + 31;
}

template <class T> inline T* at(Hdr* h, uint32_t off) {
    return reinterpret_cast<T*>(reinterpret_cast<uint8_t*>(h) + off);
}
template <class T> inline const T* at(const Hdr* h, uint32_t off) {
    return reinterpret_cast<const T*>(reinterpret_cast<const uint8_t*>(h) + off);
}

// The form a state's identifier names (the word is already checked).
template <class K> inline Form form_of(const Hdr* h) {
    return h->id == K::ids[0] ? Ar : (h->id == K::ids[1] ? Bq : Df1);
}

// ---- one-sample steps, in the arithmetic type A

// AR of order N: t = b'[0..N] a'[1..N], d = N values and a 0.
template <class A> inline A step_ar(const A* t, A* d, int N, A x) {
    const A* a = t + N;  // a[k] is a'[k], k >= 1
    const A y = t[0] * x + d[0];
    for (int k = 0; k < N; ++k) d[k] = (t[k + 1] * x - a[k + 1] * y) + d[k + 1];
    return y;
}

// One section of a cascade: t = b0' b1' b2' a1' a2', d = d1 d2.
template <class A> inline A step_bq(const A* t, A* d, A x) {
    const A y = t[0] * x + d[0];
    d[0] = (t[1] * x - t[3] * y) + d[1];
    d[1] = t[2] * x - t[4] * y;
    return y;
}

// One direct-form-I section: d = x1 x2 y1 y2.
template <class A> inline A step_df1(const A* t, A* d, A x) {
    const A y = (((t[0] * x + t[1] * d[0]) + t[2] * d[1]) - t[3] * d[2]) - t[4] * d[3];
    d[1] = d[0];
    d[0] = x;
    d[3] = d[2];
    d[2] = y;
    return y;
}

}  // namespace zams::iir
