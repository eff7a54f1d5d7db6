/* A three-band equaliser as a cascade of second-order IIR sections: a low
 * shelf, a peak and a high shelf (the usual bilinear-transform designs),
 * each given as b0 b1 b2 a0 a1 a2; the library normalises by a0.
 *
 *   biquad_eq in.wav out.wav low_db mid_db high_db
 *   (shelves at 200 Hz and 2.5 kHz, the peak at 1 kHz with Q 1)
 */
#include <math.h>
#include <stdlib.h>

#include "audio.h"

enum { kBlock = 4096 };

/* One section of the shelf (sign -1 low, +1 high) or, with sign 0, the peak. */
static void section(double f0, double rate, double gainDb, double q, int sign, Zam32f* t) {
    const double A = pow(10, gainDb / 40), w = 2 * 3.14159265358979323846 * f0 / rate, c = cos(w), s = sin(w);
    double b0, b1, b2, a0, a1, a2;
    if (sign == 0) {
        const double al = s / (2 * q);
        b0 = 1 + al * A, b1 = -2 * c, b2 = 1 - al * A, a0 = 1 + al / A, a1 = -2 * c, a2 = 1 - al / A;
    } else {
        const double al = s / 2 * sqrt(2), r = 2 * sqrt(A) * al, k = -sign;  /* shelf slope 1; k = 1: low */
        b0 = A * ((A + 1) - k * (A - 1) * c + r);
        b1 = 2 * k * A * ((A - 1) - k * (A + 1) * c);
        b2 = A * ((A + 1) - k * (A - 1) * c - r);
        a0 = (A + 1) + k * (A - 1) * c + r;
        a1 = -2 * k * ((A - 1) + k * (A + 1) * c);
        a2 = (A + 1) + k * (A - 1) * c - r;
    }
    const double v[6] = {b0, b1, b2, a0, a1, a2};
    for (int i = 0; i < 6; ++i) t[i] = (Zam32f)v[i];
}

int main(int argc, char** argv) {
    if (argc != 6) {
        fprintf(stderr, "usage: %s in.wav out.wav low_db mid_db high_db\n", argv[0]);
        return 2;
    }
    Audio a;
    if (audio_read(argv[1], &a)) return 1;
    Zam32f taps[18];
    section(200, a.rate, atof(argv[3]), 0, -1, taps);
    section(1000, a.rate, atof(argv[4]), 1, 0, taps + 6);
    section(2500, a.rate, atof(argv[5]), 0, +1, taps + 12);

    Zam32f* x = zamsMalloc_32f(a.frames);
    if (!x) return 1;
    for (int c = 0; c < a.channels; ++c) {
        ZamsIIRState_32f* eq = NULL;
        CHECK(zamsIIRInitAlloc_BiQuad_32f(&eq, taps, 3, NULL));  /* three sections in cascade */
        audio_take(&a, c, x);
        for (int i = 0; i < a.frames; i += kBlock)
            CHECK(zamsIIR_32f_I(x + i, a.frames - i < kBlock ? a.frames - i : kBlock, eq));
        zamsIIRFree_32f(eq);
        audio_put(&a, c, x);
    }
    const int bad = audio_write(argv[2], a.data, a.frames, a.channels, a.rate);
    printf("%s: low %s dB, mid %s dB, high %s dB\n", argv[2], argv[3], argv[4], argv[5]);
    zamsFree(x);
    zamsFree(a.data);
    return bad;
}
