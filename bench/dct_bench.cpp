// DCT-II 32f (forward, orthonormal) against FFTW 3's REDFT10 (FFTW_MEASURE,
// one thread, out of place) and against the library's own real FFT of the
// same length (RToPerm, powers of two), at 1 Ki to 64 Ki and at 1000 and
// 44100.
#include <fftw3.h>

#include <vector>

#include "harness.h"
#include "zams.h"

ZAMS_BENCH(dct_32f) {
    for (int n : {1024, 2048, 4096, 8192, 16384, 32768, 65536, 1000, 44100}) {
        auto* x = static_cast<float*>(fftwf_malloc(sizeof(float) * size_t(n)));
        auto* y = static_cast<float*>(fftwf_malloc(sizeof(float) * size_t(n)));
        ZamsDCTFwdSpec_32f* spec = nullptr;
        zamsDCTFwdInitAlloc_32f(&spec, n, 0);
        int bs = 0;
        zamsDCTFwdGetBufSize_32f(spec, &bs);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        fftwf_plan p = fftwf_plan_r2r_1d(n, x, y, FFTW_REDFT10, FFTW_MEASURE);
        for (int i = 0; i < n; ++i) x[i] = float(i % 7) - 3;
        std::vector<zb::Contender> c = {{"zams", [&] { zamsDCTFwd_32f(x, y, spec, buf.data()); }},
                                        {"fftwf REDFT10", [&] { fftwf_execute(p); }}};
        ZamsFFTSpec_R_32f* fs = nullptr;
        std::vector<Zam8u> fbuf;
        int order = 0;
        while ((1 << order) < n) ++order;
        if ((1 << order) == n) {
            zamsFFTInitAlloc_R_32f(&fs, order, zamFftScaleNone, 0);
            zamsFFTGetBufSize_R_32f(fs, &bs);
            fbuf.resize(size_t(bs) + 1);
            c.push_back({"zams real FFT", [&] { zamsFFTFwd_RToPerm_32f(x, y, fs, fbuf.data()); }});
        }
        b.row("DCTFwd_32f", n, 0, c);
        if (fs) zamsFFTFree_R_32f(fs);
        fftwf_destroy_plan(p);
        zamsDCTFwdFree_32f(spec);
        fftwf_free(x);
        fftwf_free(y);
    }
}
