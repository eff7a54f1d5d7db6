// DFT of any length against FFTW 3 (FFTW_MEASURE plans, one thread, out of
// place): complex 32fc and 64fc, real 32f (CCS against r2c), at smooth
// lengths and at the primes 4099 and 65537; Goertzel 32f at 8 frequencies
// over 4096 samples against the library's own real FFT of 4096.
#include <fftw3.h>

#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

const int kLens[] = {100, 1000, 1536, 3000, 12288, 10000, 44100, 48000, 4099, 65537};

}  // namespace

ZAMS_BENCH(dft_c32fc) {
    for (int n : kLens) {
        auto* x = static_cast<Zam32fc*>(fftwf_malloc(sizeof(Zam32fc) * size_t(n)));
        auto* y = static_cast<Zam32fc*>(fftwf_malloc(sizeof(Zam32fc) * size_t(n)));
        ZamsDFTSpec_C_32fc* spec = nullptr;
        zamsDFTInitAlloc_C_32fc(&spec, n, zamFftScaleNone, 0);
        int bs = 0;
        zamsDFTGetBufSize_C_32fc(spec, &bs);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        fftwf_plan p = fftwf_plan_dft_1d(n, reinterpret_cast<fftwf_complex*>(x), reinterpret_cast<fftwf_complex*>(y),
                                         FFTW_FORWARD, FFTW_MEASURE);
        for (int i = 0; i < n; ++i) x[i] = {float(i % 7) - 3, float(i % 5) - 2};
        b.row("DFT_C_32fc", n, 0,
              {{"zams", [&] { zamsDFTFwd_CToC_32fc(x, y, spec, buf.data()); }}, {"fftwf", [&] { fftwf_execute(p); }}});
        fftwf_destroy_plan(p);
        zamsDFTFree_C_32fc(spec);
        fftwf_free(x);
        fftwf_free(y);
    }
}

ZAMS_BENCH(dft_c64fc) {
    for (int n : kLens) {
        auto* x = static_cast<Zam64fc*>(fftw_malloc(sizeof(Zam64fc) * size_t(n)));
        auto* y = static_cast<Zam64fc*>(fftw_malloc(sizeof(Zam64fc) * size_t(n)));
        ZamsDFTSpec_C_64fc* spec = nullptr;
        zamsDFTInitAlloc_C_64fc(&spec, n, zamFftScaleNone, 0);
        int bs = 0;
        zamsDFTGetBufSize_C_64fc(spec, &bs);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        fftw_plan p = fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(x), reinterpret_cast<fftw_complex*>(y),
                                       FFTW_FORWARD, FFTW_MEASURE);
        for (int i = 0; i < n; ++i) x[i] = {double(i % 7) - 3, double(i % 5) - 2};
        b.row("DFT_C_64fc", n, 0,
              {{"zams", [&] { zamsDFTFwd_CToC_64fc(x, y, spec, buf.data()); }}, {"fftw", [&] { fftw_execute(p); }}});
        fftw_destroy_plan(p);
        zamsDFTFree_C_64fc(spec);
        fftw_free(x);
        fftw_free(y);
    }
}

ZAMS_BENCH(dft_r32f) {
    for (int n : kLens) {
        auto* x = static_cast<float*>(fftwf_malloc(sizeof(float) * size_t(n)));
        auto* y = static_cast<float*>(fftwf_malloc(sizeof(float) * size_t(n + 2)));
        ZamsDFTSpec_R_32f* spec = nullptr;
        zamsDFTInitAlloc_R_32f(&spec, n, zamFftScaleNone, 0);
        int bs = 0;
        zamsDFTGetBufSize_R_32f(spec, &bs);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        fftwf_plan p = fftwf_plan_dft_r2c_1d(n, x, reinterpret_cast<fftwf_complex*>(y), FFTW_MEASURE);
        for (int i = 0; i < n; ++i) x[i] = float(i % 7) - 3;
        b.row("DFT_R_32f CCS", n, 0,
              {{"zams", [&] { zamsDFTFwd_RToCCS_32f(x, y, spec, buf.data()); }}, {"fftwf", [&] { fftwf_execute(p); }}});
        fftwf_destroy_plan(p);
        zamsDFTFree_R_32f(spec);
        fftwf_free(x);
        fftwf_free(y);
    }
}

ZAMS_BENCH(goertz_32f) {
    const int n = 4096;
    std::vector<float> x(n), y(n + 2);
    for (int i = 0; i < n; ++i) x[size_t(i)] = float(i % 11) - 5;
    ZamsFFTSpec_R_32f* spec = nullptr;
    zamsFFTInitAlloc_R_32f(&spec, 12, zamFftScaleNone, 0);
    int bs = 0;
    zamsFFTGetBufSize_R_32f(spec, &bs);
    std::vector<Zam8u> buf(size_t(bs) + 1);
    Zam32fc v[8];
    b.row("Goertz_32f x8 vs FFT_R_32f", n, 0,
          {{"zams", [&] {
                for (int k = 0; k < 8; ++k) zamsGoertz_32f(x.data(), n, &v[k], float(k * 37 + 5) / n);
                zb::keep(v);
            }},
           {"fft_r", [&] { zamsFFTFwd_RToCCS_32f(x.data(), y.data(), spec, buf.data()); }}});
    zamsFFTFree_R_32f(spec);
}
