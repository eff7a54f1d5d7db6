// The power-of-two FFTs as families inside the library use them: typed
// plans over the transforms' own implementations, so that a filter, a
// correlation or another transform builds, runs and releases an FFT
// specification without going through the exported entry points and
// without casting one function type to another.
//
// A plan is a pointer to a built specification plus the calls that take
// it. Arguments are the caller's to get right (these are internal calls:
// the FFT specification is valid, the vectors hold N or the packed length);
// statuses are the transforms' own, passed on unchanged.
//
// Where an exported function is defined as handing a case to another
// export and returning its status, it calls that export by name instead.
#pragma once

#include <cstdint>

#include "zams_impl.h"

// Hidden like the implementations the plans call, also where this header
// is compiled with default visibility (the engine's tests).
#pragma GCC visibility push(hidden)
namespace zams::fftp {

// The three byte counts of a specification's size query.
struct Sizes {
    int spec = 0, init = 0, work = 0;
};

// The implementations of one precision, as typed function pointers.
template <class F> struct Fns;
template <> struct Fns<float> {
    using RSpec = ZamsFFTSpec_R_32f;
    using CSpec = ZamsFFTSpec_C_32fc;
    using Cplx = Zam32fc;
    static constexpr auto rsize = g9_zamsFFTGetSize_R_32f;
    static constexpr auto rinit = g9_zamsFFTInit_R_32f;
    static constexpr auto ralloc = g9_zamsFFTInitAlloc_R_32f;
    static constexpr auto rbuf = g9_zamsFFTGetBufSize_R_32f;
    static constexpr auto rfree = g9_zamsFFTFree_R_32f;
    static constexpr auto fwdPerm = g9_zamsFFTFwd_RToPerm_32f;
    static constexpr auto invPerm = g9_zamsFFTInv_PermToR_32f;
    static constexpr auto fwdPack = g9_zamsFFTFwd_RToPack_32f;
    static constexpr auto invPack = g9_zamsFFTInv_PackToR_32f;
    static constexpr auto fwdCcs = g9_zamsFFTFwd_RToCCS_32f;
    static constexpr auto invCcs = g9_zamsFFTInv_CCSToR_32f;
    static constexpr auto mulPerm = g9_zamsMulPerm_32f_I;
    static constexpr auto mulPack = g9_zamsMulPack_32f_I;
    static constexpr auto mulPackConj = g9_zamsMulPackConj_32f_I;
    static constexpr auto csize = g9_zamsFFTGetSize_C_32fc;
    static constexpr auto cinit = g9_zamsFFTInit_C_32fc;
    static constexpr auto calloc = g9_zamsFFTInitAlloc_C_32fc;
    static constexpr auto cbuf = g9_zamsFFTGetBufSize_C_32fc;
    static constexpr auto cfree = g9_zamsFFTFree_C_32fc;
    static constexpr auto cfwd = g9_zamsFFTFwd_CToC_32fc;
    static constexpr auto cinv = g9_zamsFFTInv_CToC_32fc;
    static constexpr auto cmul = g9_zamsMul_32fc_I;
};
template <> struct Fns<double> {
    using RSpec = ZamsFFTSpec_R_64f;
    using CSpec = ZamsFFTSpec_C_64fc;
    using Cplx = Zam64fc;
    static constexpr auto rsize = g9_zamsFFTGetSize_R_64f;
    static constexpr auto rinit = g9_zamsFFTInit_R_64f;
    static constexpr auto ralloc = g9_zamsFFTInitAlloc_R_64f;
    static constexpr auto rbuf = g9_zamsFFTGetBufSize_R_64f;
    static constexpr auto rfree = g9_zamsFFTFree_R_64f;
    static constexpr auto fwdPerm = g9_zamsFFTFwd_RToPerm_64f;
    static constexpr auto invPerm = g9_zamsFFTInv_PermToR_64f;
    static constexpr auto fwdPack = g9_zamsFFTFwd_RToPack_64f;
    static constexpr auto invPack = g9_zamsFFTInv_PackToR_64f;
    static constexpr auto fwdCcs = g9_zamsFFTFwd_RToCCS_64f;
    static constexpr auto invCcs = g9_zamsFFTInv_CCSToR_64f;
    static constexpr auto mulPerm = g9_zamsMulPerm_64f_I;
    static constexpr auto mulPack = g9_zamsMulPack_64f_I;
    static constexpr auto mulPackConj = g9_zamsMulPackConj_64f_I;
    static constexpr auto csize = g9_zamsFFTGetSize_C_64fc;
    static constexpr auto cinit = g9_zamsFFTInit_C_64fc;
    static constexpr auto calloc = g9_zamsFFTInitAlloc_C_64fc;
    static constexpr auto cbuf = g9_zamsFFTGetBufSize_C_64fc;
    static constexpr auto cfree = g9_zamsFFTFree_C_64fc;
    static constexpr auto cfwd = g9_zamsFFTFwd_CToC_64fc;
    static constexpr auto cinv = g9_zamsFFTInv_CToC_64fc;
    static constexpr auto cmul = g9_zamsMul_64fc_I;
};

// What every plan shares: the specification pointer and its life cycle,
// through the kind's size query, build, allocating build, work-size query
// and release.
template <class S, auto Size, auto Init, auto Alloc, auto Buf, auto Free> struct Plan {
    const S* spec = nullptr;

    static zamStatus sizes(int order, int flag, Sizes& s) { return Size(order, flag, 0, &s.spec, &s.init, &s.work); }
    // Into caller memory of sizes().spec bytes (tmp: sizes().init bytes, or null when 0).
    template <class P> static zamStatus build(int order, int flag, uint8_t* mem, uint8_t* tmp, P& out) {
        S* p = nullptr;
        zamStatus s = Init(&p, order, flag, 0, mem, tmp);
        if (s == zamStatusOk) out.spec = p;
        return s;
    }
    template <class P> static zamStatus alloc(int order, int flag, P& out) {
        S* p = nullptr;
        zamStatus s = Alloc(&p, order, flag, 0);
        if (s == zamStatusOk) out.spec = p;
        return s;
    }
    // Releases a specification made by alloc (invalidates one made by build).
    zamStatus release() {
        zamStatus s = spec ? Free(const_cast<S*>(spec)) : zamStatusOk;
        spec = nullptr;
        return s;
    }
    // Bytes of the work buffer a call needs (its 64 bytes of slack included).
    int work_bytes() const {
        int w = 0;
        Buf(spec, &w);
        return w;
    }
};

// Real transform of order `order`: N real values to a packed spectrum of N
// (Perm, Pack) or N + 2 (CCS) values and back.
template <class F>
struct Real : Plan<typename Fns<F>::RSpec, Fns<F>::rsize, Fns<F>::rinit, Fns<F>::ralloc, Fns<F>::rbuf, Fns<F>::rfree> {
    using X = Fns<F>;
    using Elem = F;
    zamStatus fwd_perm(const F* s, F* d, uint8_t* w) const { return X::fwdPerm(s, d, this->spec, w); }
    zamStatus inv_perm(const F* s, F* d, uint8_t* w) const { return X::invPerm(s, d, this->spec, w); }
    zamStatus fwd_pack(const F* s, F* d, uint8_t* w) const { return X::fwdPack(s, d, this->spec, w); }
    zamStatus inv_pack(const F* s, F* d, uint8_t* w) const { return X::invPack(s, d, this->spec, w); }
    zamStatus fwd_ccs(const F* s, F* d, uint8_t* w) const { return X::fwdCcs(s, d, this->spec, w); }
    zamStatus inv_ccs(const F* s, F* d, uint8_t* w) const { return X::invCcs(s, d, this->spec, w); }
    // d = d * k, both in Perm (or Pack) order, n values.
    static void mul_perm(const F* k, F* d, int n) { X::mulPerm(k, d, n); }
    static void mul_pack(const F* k, F* d, int n) { X::mulPack(k, d, n); }
    // d = d * conj(k), Pack order.
    static void mul_pack_conj(const F* k, F* d, int n) { X::mulPackConj(k, d, n); }
};

// Interleaved complex transform of order `order`.
template <class F>
struct Complex : Plan<typename Fns<F>::CSpec, Fns<F>::csize, Fns<F>::cinit, Fns<F>::calloc, Fns<F>::cbuf, Fns<F>::cfree> {
    using X = Fns<F>;
    using Elem = typename X::Cplx;
    zamStatus fwd(const Elem* s, Elem* d, uint8_t* w) const { return X::cfwd(s, d, this->spec, w); }
    zamStatus inv(const Elem* s, Elem* d, uint8_t* w) const { return X::cinv(s, d, this->spec, w); }
    static void mul(const Elem* k, Elem* d, int n) { X::cmul(k, d, n); }
};

// Convolution by sections on the real transform (src/transform/fft_conv.cpp).
// conv_sizes and conv_build: a real specification of `order` with the
// inverse scaled by 1/N (flag 2) that holds only the tables its transforms
// read (at the orders whose transforms are size-compiled code; the ordinary
// build elsewhere). It serves every call of Real<F> and conv_section, and is
// released with the memory it lies in (tmp: sizes().init bytes, or null
// when 0).
template <class F> zamStatus conv_sizes(int order, Sizes& s);
template <class F> zamStatus conv_build(int order, uint8_t* mem, uint8_t* tmp, Real<F>& out);
// One section: y = the inverse transform of (the transform of x times k),
// k a Perm spectrum of N values, x N reals (x may be buf), computed in buf
// (N values); out[0 .. count) = y[from .. from + count) (out may be buf +
// from, or lie apart from buf). The same bits as fwd_perm, the Perm product
// and inv_perm one after another, in one pass over the spectrum instead of
// three, the inverse's scale applied as the values go out. w: the plan's
// work buffer.
template <class F>
zamStatus conv_section(const Real<F>& d, const F* x, F* buf, const F* k, uint8_t* w, F* out, int64_t from,
                       int64_t count);

// Two real sections at once (src/transform/fft_conv.cpp), for one-call
// convolutions of several sections: a and b (N reals each; b null for
// zeros) as the real and imaginary parts of one complex transform of
// N = 2^order points, times the kernel's complex spectrum k (N complex
// values, interleaved, from pair_kernel), transformed back: the real part is
// a's convolution with the kernel, the imaginary part b's. At the orders of
// pair_order only, whose transforms read no table (so no specification);
// work: pair_work_bytes. buf: 2N values. outA[i] = result a at from + i for
// i < countA, outB likewise (the 1/N applied).
template <class F> bool pair_order(int order);
template <class F> int64_t pair_work_bytes(int order);
template <class F> void pair_kernel(int order, const F* h, int taps, F* k, uint8_t* work);
template <class F>
void pair_section(int order, const F* a, const F* b, F* buf, const F* k, uint8_t* work, F* outA, F* outB,
                  int64_t from, int64_t countA, int64_t countB);

}  // namespace zams::fftp
#pragma GCC visibility pop
