// Element-wise arithmetic against VOLK, a plain loop, and memcpy/memset as
// the memory limit. "volk" is VOLK's own choice for this machine (AVX-512 or
// AVX2 with FMA where the processor has them); "volk-avx" is its AVX kernel,
// the instruction set this library is built for.
#include <volk/volk.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

// The rounding rule of the scaled integer functions, element by element: the
// scalar floor the vector kernels are measured against.
template <class T> inline T scaled_loop(int64_t s, int sf) {
    constexpr int64_t lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    if (sf > 0) s = (s + (int64_t(1) << (sf - 1)) - 1 + ((s >> sf) & 1)) >> sf;
    if (sf < 0) s = (s < lo - 1 ? lo - 1 : (s > hi + 1 ? hi + 1 : s)) * (int64_t(1) << -sf);
    return T(s > hi ? hi : (s < lo ? lo : s));
}

// The plain scalar loop (kept scalar: the compiler would vectorise it).
template <class T, class Op> __attribute__((noinline, optimize("no-tree-vectorize"))) void scalar_loop(
    const T* x, const T* y, T* z, int n, int sf, Op op) {
    for (int i = 0; i < n; ++i) z[i] = scaled_loop<T>(op(x[i], y[i]), sf);
}

// The complex product, scaled part by part (P: the part type). For 32sc the
// sums are taken in 64 bits: the one sum that leaves them (2^63) is not in
// the data.
template <class P, class C>
__attribute__((noinline, optimize("no-tree-vectorize"))) void scalar_cmul(const C* x, const C* y, C* z, int n, int sf) {
    for (int i = 0; i < n; ++i) {
        const int64_t re = int64_t(x[i].re) * y[i].re - int64_t(x[i].im) * y[i].im;
        const int64_t im = int64_t(x[i].re) * y[i].im + int64_t(x[i].im) * y[i].re;
        z[i] = {scaled_loop<P>(re, sf), scaled_loop<P>(im, sf)};
    }
}

// A vector times a constant, scaled.
__attribute__((noinline, optimize("no-tree-vectorize"))) void scalar_const(const Zam32s* x, Zam32s c, Zam32s* z,
                                                                            int n, int sf) {
    for (int i = 0; i < n; ++i) z[i] = scaled_loop<Zam32s>(int64_t(x[i]) * c, sf);
}

}  // namespace

// Two layouts: buffers at unaligned phases, as a caller's std::vector
// buffers fall (placed alike on both targets, zb::Placed), and 64-byte
// aligned buffers as zamsMalloc and volk_malloc give them (rows marked "al";
// VOLK then runs its aligned kernels).
template <class T> struct Buffers {
    zb::Placed<T> v;
    T* al[4];
    explicit Buffers(int n) : v(4, n) {
        for (int k = 0; k < 4; ++k) {
            std::fill(v[k], v[k] + n, T(1.5f + k));
            al[k] = reinterpret_cast<T*>(zamsMalloc_8u(int(n * sizeof(T))));
            std::copy(v[k], v[k] + n, al[k]);
        }
    }
    ~Buffers() {
        for (T* p : al) zamsFree(p);
    }
    T* get(bool aligned, int k) { return aligned ? al[k] : v[k]; }
};

ZAMS_BENCH(arith_float) {
    for (int n : b.sizes()) {
        Buffers<float> buf(n);
        for (bool al : {false, true}) {
            float *px = buf.get(al, 0), *py = buf.get(al, 1), *pz = buf.get(al, 2), *pa = buf.get(al, 3);
            const std::string sfx = al ? " al" : "";
            const char* avx = al ? "a_avx" : "u_avx";
            b.row("Add_32f" + sfx, n, n * 12.0,
                  {{"zams", [&] { zamsAdd_32f(px, py, pz, n); }},
                   {"volk", [&] { volk_32f_x2_add_32f(pz, px, py, n); }},
                   {"volk-avx", [&] { volk_32f_x2_add_32f_manual(pz, px, py, n, avx); }},
                   {"loop", [&] { for (int i = 0; i < n; ++i) pz[i] = px[i] + py[i]; zb::keep(pz); }},
                   {"memcpy", [&] { std::memcpy(pz, px, n * sizeof(float)); }}});
            b.row("MulC_32f" + sfx, n, n * 8.0,
                  {{"zams", [&] { zamsMulC_32f(px, 3.0f, pz, n); }},
                   {"volk", [&] { volk_32f_s32f_multiply_32f(pz, px, 3.0f, n); }},
                   {"volk-avx", [&] { volk_32f_s32f_multiply_32f_manual(pz, px, 3.0f, n, avx); }},
                   {"loop", [&] { for (int i = 0; i < n; ++i) pz[i] = px[i] * 3.0f; zb::keep(pz); }},
                   {"memcpy", [&] { std::memcpy(pz, px, n * sizeof(float)); }}});
            if (al) continue;
            b.row("AddProduct_32f", n, n * 16.0,
                  {{"zams", [&] { zamsAddProduct_32f(px, py, pa, n); }},
                   {"loop", [&] { for (int i = 0; i < n; ++i) pa[i] += px[i] * py[i]; zb::keep(pa); }},
                   {"memcpy", [&] { std::memcpy(pz, px, n * sizeof(float)); }}});
        }
    }
    for (int n : b.sizes()) {
        Buffers<lv_32fc_t> buf(n);
        for (bool al : {false, true}) {
            lv_32fc_t *px = buf.get(al, 0), *py = buf.get(al, 1), *pz = buf.get(al, 2);
            auto *zx = reinterpret_cast<Zam32fc*>(px), *zy = reinterpret_cast<Zam32fc*>(py), *zz = reinterpret_cast<Zam32fc*>(pz);
            b.row(al ? "Mul_32fc al" : "Mul_32fc", n, n * 24.0,
                  {{"zams", [&] { zamsMul_32fc(zx, zy, zz, n); }},
                   {"volk", [&] { volk_32fc_x2_multiply_32fc(pz, px, py, n); }},
                   {"volk-avx", [&] { volk_32fc_x2_multiply_32fc_manual(pz, px, py, n, al ? "a_avx" : "u_avx"); }},
                   {"loop", [&] {
                        for (int i = 0; i < n; ++i)
                            zz[i] = {zx[i].re * zy[i].re - zx[i].im * zy[i].im, zx[i].re * zy[i].im + zx[i].im * zy[i].re};
                        zb::keep(zz);
                    }},
                   {"memcpy", [&] { std::memcpy(pz, px, n * sizeof(Zam32fc)); }}});
        }
    }
}

ZAMS_BENCH(arith_scaled) {
    for (int n : b.sizes()) {
        zb::Placed<Zam16s> buf(3, n);
        Zam16s *px = buf[0], *py = buf[1], *pz = buf[2];
        for (int i = 0; i < n; ++i) px[i] = Zam16s(i * 7919), py[i] = Zam16s(i * 104729 + 3);
        for (int sf : {0, 3}) {
            b.row(sf ? "Add_16s_Sfs sf3" : "Add_16s_Sfs sf0", n, n * 6.0,
                  {{"zams", [&] { zamsAdd_16s_Sfs(px, py, pz, n, sf); }},
                   {"scalar", [&] { scalar_loop(px, py, pz, n, sf, [](int64_t a, int64_t b) { return a + b; }); }},
                   {"memcpy", [&] { std::memcpy(pz, px, n * sizeof(Zam16s)); }}});
        }
        b.row("Mul_16s_Sfs sf8", n, n * 6.0,
              {{"zams", [&] { zamsMul_16s_Sfs(px, py, pz, n, 8); }},
               {"scalar", [&] { scalar_loop(px, py, pz, n, 8, [](int64_t a, int64_t b) { return a * b; }); }},
               {"memcpy", [&] { std::memcpy(pz, px, n * sizeof(Zam16s)); }}});
    }
    for (int n : b.sizes()) {
        zb::Placed<Zam8u> b8(3, n);
        zb::Placed<Zam32s> b32(3, n);
        Zam8u *x = b8[0], *y = b8[1], *z = b8[2];
        Zam32s *u = b32[0], *v = b32[1], *w = b32[2];
        for (int i = 0; i < n; ++i) {
            x[i] = Zam8u(i * 7919), y[i] = Zam8u(i * 104729 + 3);
            u[i] = Zam32s(i * 2654435761u), v[i] = Zam32s(i * 40503u + 3);
        }
        auto add = [](int64_t a, int64_t b) { return a + b; };
        auto sub = [](int64_t a, int64_t b) { return a - b; };
        auto mul = [](int64_t a, int64_t b) { return a * b; };
        b.row("Add_8u_Sfs sf0", n, n * 3.0,
              {{"zams", [&] { zamsAdd_8u_Sfs(x, y, z, n, 0); }},
               {"scalar", [&] { scalar_loop(x, y, z, n, 0, add); }},
               {"memcpy", [&] { std::memcpy(z, x, n); }}});
        zb::Placed<Zam16sc> b16c(3, n);
        Zam16sc *p = b16c[0], *q = b16c[1], *r = b16c[2];
        for (int i = 0; i < n; ++i) p[i] = {x[i], Zam16s(i * 31)}, q[i] = {y[i], Zam16s(-i * 17)};
        b.row("Mul_16sc_Sfs sf15", n, n * 12.0,
              {{"zams", [&] { zamsMul_16sc_Sfs(p, q, r, n, 15); }},
               {"scalar", [&] { scalar_cmul<Zam16s>(p, q, r, n, 15); }},
               {"memcpy", [&] { std::memcpy(r, p, n * sizeof(Zam16sc)); }}});
        b.row("Add_32s_Sfs sf1", n, n * 12.0,
              {{"zams", [&] { zamsAdd_32s_Sfs(u, v, w, n, 1); }},
               {"scalar", [&] { scalar_loop(u, v, w, n, 1, add); }},
               {"memcpy", [&] { std::memcpy(w, u, n * sizeof(Zam32s)); }}});
        b.row("Sub_32s_Sfs sf-3", n, n * 12.0,
              {{"zams", [&] { zamsSub_32s_Sfs(u, v, w, n, -3); }},
               {"scalar", [&] { scalar_loop(v, u, w, n, -3, sub); }},
               {"memcpy", [&] { std::memcpy(w, u, n * sizeof(Zam32s)); }}});
        b.row("Mul_32s_Sfs sf20", n, n * 12.0,
              {{"zams", [&] { zamsMul_32s_Sfs(u, v, w, n, 20); }},
               {"scalar", [&] { scalar_loop(u, v, w, n, 20, mul); }},
               {"memcpy", [&] { std::memcpy(w, u, n * sizeof(Zam32s)); }}});
        b.row("MulC_32s_Sfs sf0", n, n * 8.0,
              {{"zams", [&] { zamsMulC_32s_Sfs(u, -7, w, n, 0); }},
               {"scalar", [&] { scalar_const(u, -7, w, n, 0); }},
               {"memcpy", [&] { std::memcpy(w, u, n * sizeof(Zam32s)); }}});
        zb::Placed<Zam32sc> b32c(3, n);
        Zam32sc *e = b32c[0], *f = b32c[1], *h = b32c[2];
        for (int i = 0; i < n; ++i) e[i] = {u[i], v[i]}, f[i] = {v[i], -u[i] / 3};
        b.row("Mul_32sc_Sfs sf31", n, n * 24.0,
              {{"zams", [&] { zamsMul_32sc_Sfs(e, f, h, n, 31); }},
               {"scalar", [&] { scalar_cmul<Zam32s>(e, f, h, n, 31); }},
               {"memcpy", [&] { std::memcpy(h, e, n * sizeof(Zam32sc)); }}});
    }
}

ZAMS_BENCH(arith_move) {
    for (int n : b.sizes()) {
        zb::Placed<float> f(2, n);
        zb::Placed<Zam16s> h(1, n);
        float *x = f[0], *y = f[1];
        Zam16s* s = h[0];
        std::fill(x, x + n, 1.0f);
        b.row("Copy_32f", n, n * 8.0,
              {{"zams", [&] { zamsCopy_32f(x, y, n); }},
               {"memcpy", [&] { std::memcpy(y, x, n * sizeof(float)); }}});
        b.row("Set_32f", n, n * 4.0,
              {{"zams", [&] { zamsSet_32f(2.5f, y, n); }},
               {"loop", [&] { for (int i = 0; i < n; ++i) y[i] = 2.5f; zb::keep(y); }},
               {"memset", [&] { std::memset(y, 0, n * sizeof(float)); }}});
        b.row("Zero_16s", n, n * 2.0,
              {{"zams", [&] { zamsZero_16s(s, n); }},
               {"memset", [&] { std::memset(s, 0, n * sizeof(Zam16s)); }}});
    }
}
