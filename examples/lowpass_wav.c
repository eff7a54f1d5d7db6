/* Low-pass filtering a sound file: the taps designed by the library, one FIR
 * state a channel, the file filtered in blocks as a stream would arrive.
 *
 *   lowpass_wav in.wav out.wav cutoff_hz
 */
#include <stdlib.h>

#include "audio.h"

enum { kTaps = 201, kBlock = 4096 };

int main(int argc, char** argv) {
    if (argc != 4) {
        fprintf(stderr, "usage: %s in.wav out.wav cutoff_hz\n", argv[0]);
        return 2;
    }
    Audio a;
    if (audio_read(argv[1], &a)) return 1;
    const double cutoff = atof(argv[3]) / a.rate;  /* relative to the sampling rate */

    /* A windowed sinc with unity gain at 0 Hz, in double, used in single precision. */
    Zam64f design[kTaps];
    Zam32f taps[kTaps];
    CHECK(zamsFIRGenLowpass_64f(cutoff, design, kTaps, zamWinBlackman, 1));
    CHECK(zamsConvert_64f32f(design, taps, kTaps));

    Zam32f* x = zamsMalloc_32f(a.frames);
    Zam32f* y = zamsMalloc_32f(a.frames);
    if (!x || !y) return 1;
    for (int c = 0; c < a.channels; ++c) {
        ZamsFIRState_32f* fir = NULL;
        CHECK(zamsFIRInitAlloc_32f(&fir, taps, kTaps, NULL));  /* a null delay line: silence before */
        audio_take(&a, c, x);
        for (int i = 0; i < a.frames; i += kBlock)
            CHECK(zamsFIR_32f(x + i, y + i, a.frames - i < kBlock ? a.frames - i : kBlock, fir));
        zamsFIRFree_32f(fir);
        audio_put(&a, c, y);
    }
    const int bad = audio_write(argv[2], a.data, a.frames, a.channels, a.rate);
    printf("%s: %d frames, %d channel(s), low-pass at %s Hz with %d taps\n", argv[2], a.frames, a.channels, argv[3],
           kTaps);
    zamsFree(x);
    zamsFree(y);
    zamsFree(a.data);
    return bad;
}
