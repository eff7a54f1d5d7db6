/* The spectrum of a sound file: Hann-windowed frames of 4096 samples, half
 * overlapping, through the real FFT; the power spectra averaged, and the
 * strongest peaks printed (first channel).
 *
 *   spectrum_wav in.wav [peaks]
 */
#include <math.h>
#include <stdlib.h>

#include "audio.h"

enum { kOrder = 12, kN = 1 << kOrder, kBins = kN / 2 + 1 };

int main(int argc, char** argv) {
    if (argc < 2) {
        fprintf(stderr, "usage: %s in.wav [peaks]\n", argv[0]);
        return 2;
    }
    const int peaks = argc > 2 ? atoi(argv[2]) : 3;
    Audio a;
    if (audio_read(argv[1], &a)) return 1;
    if (a.frames < kN) {
        fprintf(stderr, "%s: fewer than %d frames\n", argv[1], kN);
        return 1;
    }
    Zam32f* x = zamsMalloc_32f(a.frames);
    if (!x) return 1;
    audio_take(&a, 0, x);

    /* Forward-scaled (1/N) so that a full-scale sine reads about -6 dB less a window loss. */
    ZamsFFTSpec_R_32f* fft = NULL;
    CHECK(zamsFFTInitAlloc_R_32f(&fft, kOrder, zamFftScaleForward, zamAlgHintNone));
    static Zam32f frame[kN], spec[kN + 2], power[kBins], sum[kBins];
    int frames = 0;
    CHECK(zamsZero_32f(sum, kBins));
    for (int start = 0; start + kN <= a.frames; start += kN / 2, ++frames) {
        CHECK(zamsWinHann_32f(x + start, frame, kN));
        CHECK(zamsFFTFwd_RToCCS_32f(frame, spec, fft, NULL));  /* bins 0..N/2 as complex pairs */
        CHECK(zamsPowerSpectr_32fc((const Zam32fc*)spec, power, kBins));
        CHECK(zamsAdd_32f_I(power, sum, kBins));
    }
    zamsFFTFree_R_32f(fft);

    /* The largest local maxima, one at a time. */
    printf("%s: %d frames of %d at %d Hz, bin width %.2f Hz\n", argv[1], frames, kN, a.rate, (double)a.rate / kN);
    for (int p = 0; p < peaks; ++p) {
        Zam32f top;
        int k;
        CHECK(zamsMaxIndx_32f(sum, kBins, &top, &k));
        if (top <= 0) break;
        printf("peak %d: bin %d, %.1f Hz, %.1f dB\n", p + 1, k, (double)k * a.rate / kN, 10 * log10(top / frames));
        for (int j = k - 3; j <= k + 3; ++j)  /* the window's main lobe */
            if (j >= 0 && j < kBins) sum[j] = 0;
    }
    zamsFree(x);
    zamsFree(a.data);
    return 0;
}
