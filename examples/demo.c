/* A small tour of zams: the version record, then a few functions on an
 * embedded signal. */
#include <stdio.h>

#include "zams.h"

static const Zam16s kSignal[16] = {
    0, 12539, 23170, 30273, 32767, 30273, 23170, 12539,
    0, -12539, -23170, -30273, -32768, -30273, -23170, -12539,
};

int main(void) {
    const ZamVersionRecord* v = zamsGetLibVersion();
    printf("%s %s, built %s (%d.%d.%d, build %d)\n", v->libraryName, v->versionText, v->buildDateText,
           v->versionMajor, v->versionMinor, v->versionPatch, v->buildNumber);

    Zam16s* rect = zamsMalloc_16s(16);
    if (!rect) return 1;
    zamStatus st = zamsAbs_16s(kSignal, rect, 16);
    printf("zamsAbs_16s: status %d\n  in :", st);
    for (int i = 0; i < 16; ++i) printf(" %d", kSignal[i]);
    printf("\n  out:");
    for (int i = 0; i < 16; ++i) printf(" %d", rect[i]);
    printf("\n");
    printf("zamsAbs_16s with a null source: status %d (null pointer)\n", zamsAbs_16s(NULL, rect, 16));
    zamsFree(rect);

    /* To float, a Hann window, then the magnitude spectrum of a 16-point real FFT. */
    Zam32f x[16], w[16], spec[18], mag[9], sum = 0;
    ZamsFFTSpec_R_32f* fft = NULL;
    st |= zamsConvert_16s32f(kSignal, x, 16);
    st |= zamsWinHann_32f(x, w, 16);
    st |= zamsSum_32f(x, 16, &sum, zamAlgHintAccurate);
    st |= zamsFFTInitAlloc_R_32f(&fft, 4, zamFftScaleForward, zamAlgHintNone);
    if (st != zamStatusOk) return 1;
    st |= zamsFFTFwd_RToCCS_32f(x, spec, fft, NULL);
    st |= zamsMagnitude_32fc((const Zam32fc*)spec, mag, 9);
    zamsFFTFree_R_32f(fft);
    printf("sum of the signal: %g\n  Hann-windowed:", sum);
    for (int i = 0; i < 16; ++i) printf(" %.0f", w[i]);
    printf("\n  |FFT| (bins 0..8, forward scaled by 1/16):");
    for (int i = 0; i < 9; ++i) printf(" %.1f", mag[i]);
    printf("\n");
    return st == zamStatusOk ? 0 : 1;
}
