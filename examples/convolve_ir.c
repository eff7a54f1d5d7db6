/* Convolution with a long impulse response (a room's reverberation, say):
 * zamsConv_32f takes the FFT path on its own when both vectors are long.
 * With no impulse-response file, a synthetic one is used: 0.5 s of Gaussian
 * noise under an exponential decay (60 dB over its length), from the
 * library's generators.
 *
 *   convolve_ir in.wav out.wav [ir.wav]
 */
#include <math.h>
#include <stdlib.h>

#include "audio.h"

int main(int argc, char** argv) {
    if (argc != 3 && argc != 4) {
        fprintf(stderr, "usage: %s in.wav out.wav [ir.wav]\n", argv[0]);
        return 2;
    }
    Audio a, ir = {0};
    if (audio_read(argv[1], &a)) return 1;
    if (argc == 4) {
        if (audio_read(argv[3], &ir)) return 1;
    } else {
        ir.frames = a.rate / 2, ir.channels = 1, ir.rate = a.rate;
        ir.data = zamsMalloc_32f(ir.frames);
        unsigned int seed = 7;
        if (!ir.data) return 1;
        CHECK(zamsRandGauss_Direct_32f(ir.data, ir.frames, 0.0f, 1.0f, &seed));
        for (int i = 0; i < ir.frames; ++i) ir.data[i] *= (Zam32f)pow(10, -3.0 * i / ir.frames);
    }
    /* Unit energy, so the output stays about as loud as the input. */
    Zam32f* h = zamsMalloc_32f(ir.frames);
    Zam32f norm;
    if (!h) return 1;
    audio_take(&ir, 0, h);
    CHECK(zamsNorm_L2_32f(h, ir.frames, &norm));
    if (norm > 0) CHECK(zamsMulC_32f_I(1.0f / norm, h, ir.frames));

    const int outLen = a.frames + ir.frames - 1;
    Zam32f* x = zamsMalloc_32f(a.frames);
    Zam32f* y = zamsMalloc_32f(outLen);
    Zam32f* out = zamsMalloc_32f(outLen * a.channels);
    if (!x || !y || !out) return 1;
    for (int c = 0; c < a.channels; ++c) {
        audio_take(&a, c, x);
        CHECK(zamsConv_32f(x, a.frames, h, ir.frames, y));  /* the full convolution, outLen values */
        for (int i = 0; i < outLen; ++i) out[(size_t)i * a.channels + c] = y[i];
    }
    const int bad = audio_write(argv[2], out, outLen, a.channels, a.rate);
    printf("%s: %d frames (%d + %d - 1), impulse response of %.2f s\n", argv[2], outLen, a.frames, ir.frames,
           (double)ir.frames / a.rate);
    zamsFree(h);
    zamsFree(x);
    zamsFree(y);
    zamsFree(out);
    zamsFree(ir.data);
    zamsFree(a.data);
    return bad;
}
