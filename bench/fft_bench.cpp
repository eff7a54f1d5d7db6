// FFT against FFTW 3 (FFTW_MEASURE plans, one thread): complex 32fc and
// 64fc, real 32f, orders 4 to 22, out of place and in place.
#include <fftw3.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

// ZAMS_FFT_ORDERS=lo-hi narrows the orders (e.g. 12-16).
std::vector<int> fft_orders() {
    int lo = 4, hi = 22;
    if (const char* e = std::getenv("ZAMS_FFT_ORDERS")) std::sscanf(e, "%d-%d", &lo, &hi);
    std::vector<int> v;
    for (int o = 4; o <= 22; o += (o < 16 ? 1 : 2))
        if (o >= lo && o <= hi) v.push_back(o);
    return v;
}

// ZAMS_FFT_SHIFT=16 moves the sources and destinations 16 bytes off the
// 64-byte boundary of fftw_malloc, where malloc's alignment may leave them.
size_t shift() {
    static const size_t s = [] {
        const char* e = std::getenv("ZAMS_FFT_SHIFT");
        return e ? size_t(std::atoi(e)) & 63 : 0;
    }();
    return s;
}
template <class T> T* alloc(size_t n) {
    return reinterpret_cast<T*>(static_cast<char*>(fftw_malloc(n * sizeof(T) + 64)) + shift());
}
template <class T> void release(T* p) { fftw_free(reinterpret_cast<char*>(p) - shift()); }

}  // namespace

ZAMS_BENCH(fft_c32fc) {
    for (int order : fft_orders()) {
        const int n = 1 << order;
        auto* x = alloc<Zam32fc>(n);
        auto* y = alloc<Zam32fc>(n);
        for (int i = 0; i < n; ++i) x[i] = {float(i % 7) - 3, float(i % 5) - 2};
        ZamsFFTSpec_C_32fc* spec = nullptr;
        zamsFFTInitAlloc_C_32fc(&spec, order, 8, 0);
        int bs = 0;
        zamsFFTGetBufSize_C_32fc(spec, &bs);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        auto* fx = reinterpret_cast<fftwf_complex*>(x);
        auto* fy = reinterpret_cast<fftwf_complex*>(y);
        std::vector<Zam32fc> save(x, x + n);
        fftwf_plan po = fftwf_plan_dft_1d(n, fx, fy, FFTW_FORWARD, FFTW_MEASURE);
        fftwf_plan pi = fftwf_plan_dft_1d(n, fy, fy, FFTW_FORWARD, FFTW_MEASURE);
        std::memcpy(x, save.data(), n * sizeof(Zam32fc));
        std::memcpy(y, save.data(), n * sizeof(Zam32fc));
        b.row("FFT_C_32fc out", n, 0,
              {{"zams", [&] { zamsFFTFwd_CToC_32fc(x, y, spec, buf.data()); }}, {"fftwf", [&] { fftwf_execute(po); }}});
        b.row("FFT_C_32fc in", n, 0,
              {{"zams", [&] { zamsFFTFwd_CToC_32fc_I(y, spec, buf.data()); }}, {"fftwf", [&] { fftwf_execute(pi); }}});
        fftwf_destroy_plan(po);
        fftwf_destroy_plan(pi);
        zamsFFTFree_C_32fc(spec);
        release(x);
        release(y);
    }
}

ZAMS_BENCH(fft_c64fc) {
    for (int order : fft_orders()) {
        const int n = 1 << order;
        auto* x = alloc<Zam64fc>(n);
        auto* y = alloc<Zam64fc>(n);
        ZamsFFTSpec_C_64fc* spec = nullptr;
        zamsFFTInitAlloc_C_64fc(&spec, order, 8, 0);
        int bs = 0;
        zamsFFTGetBufSize_C_64fc(spec, &bs);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        auto* fx = reinterpret_cast<fftw_complex*>(x);
        auto* fy = reinterpret_cast<fftw_complex*>(y);
        fftw_plan po = fftw_plan_dft_1d(n, fx, fy, FFTW_FORWARD, FFTW_MEASURE);
        fftw_plan pi = fftw_plan_dft_1d(n, fy, fy, FFTW_FORWARD, FFTW_MEASURE);
        for (int i = 0; i < n; ++i) x[i] = y[i] = {double(i % 7) - 3, double(i % 5) - 2};
        b.row("FFT_C_64fc out", n, 0,
              {{"zams", [&] { zamsFFTFwd_CToC_64fc(x, y, spec, buf.data()); }}, {"fftw", [&] { fftw_execute(po); }}});
        b.row("FFT_C_64fc in", n, 0,
              {{"zams", [&] { zamsFFTFwd_CToC_64fc_I(y, spec, buf.data()); }}, {"fftw", [&] { fftw_execute(pi); }}});
        fftw_destroy_plan(po);
        fftw_destroy_plan(pi);
        zamsFFTFree_C_64fc(spec);
        release(x);
        release(y);
    }
}

ZAMS_BENCH(fft_r32f) {
    for (int order : fft_orders()) {
        const int n = 1 << order;
        auto* x = alloc<float>(n + 2);
        auto* y = alloc<float>(n + 2);
        ZamsFFTSpec_R_32f* spec = nullptr;
        zamsFFTInitAlloc_R_32f(&spec, order, 8, 0);
        int bs = 0;
        zamsFFTGetBufSize_R_32f(spec, &bs);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        fftwf_plan po = fftwf_plan_dft_r2c_1d(n, x, reinterpret_cast<fftwf_complex*>(y), FFTW_MEASURE);
        fftwf_plan pi = fftwf_plan_dft_r2c_1d(n, y, reinterpret_cast<fftwf_complex*>(y), FFTW_MEASURE);
        for (int i = 0; i < n + 2; ++i) x[i] = y[i] = float(i % 7) - 3;
        b.row("FFT_R_32f out CCS", n, 0,
              {{"zams", [&] { zamsFFTFwd_RToCCS_32f(x, y, spec, buf.data()); }}, {"fftwf", [&] { fftwf_execute(po); }}});
        b.row("FFT_R_32f in CCS", n, 0,
              {{"zams", [&] { zamsFFTFwd_RToCCS_32f_I(y, spec, buf.data()); }}, {"fftwf", [&] { fftwf_execute(pi); }}});
        fftwf_destroy_plan(po);
        fftwf_destroy_plan(pi);
        zamsFFTFree_R_32f(spec);
        release(x);
        release(y);
    }
}
