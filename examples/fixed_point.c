/* The low-pass filter of lowpass_wav on 16-bit samples in fixed point: the
 * designed taps quantised to Q15 (16-bit integers standing for taps x 2^-15),
 * the products summed exactly and the sum scaled back by 2^-15 with rounding
 * to nearest and saturation, all inside zamsFIR_16s_Sfs.
 *
 *   fixed_point in.wav out.wav cutoff_hz
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

    /* Taps in Q15: x 2^15, rounded to nearest, saturated (a negative scale factor multiplies). */
    Zam64f design[kTaps];
    Zam32s q31[kTaps];
    Zam16s taps[kTaps];
    CHECK(zamsFIRGenLowpass_64f(atof(argv[3]) / a.rate, design, kTaps, zamWinBlackman, 1));
    CHECK(zamsConvert_64f32s_Sfs(design, q31, kTaps, zamRoundNearestEven, -15));
    for (int k = 0; k < kTaps; ++k) taps[k] = (Zam16s)q31[k];  /* |tap| < 1: fits 16 bits */

    /* The samples in 16 bits, as a fixed-point system would hold them. */
    Zam32f* x = zamsMalloc_32f(a.frames);
    Zam16s* s = zamsMalloc_16s(a.frames);
    Zam16s* y = zamsMalloc_16s(a.frames);
    if (!x || !s || !y) return 1;
    for (int c = 0; c < a.channels; ++c) {
        audio_take(&a, c, x);
        CHECK(zamsConvert_32f16s_Sfs(x, s, a.frames, zamRoundNearestEven, -15));
        ZamsFIRState_16s* fir = NULL;
        CHECK(zamsFIRInitAlloc_16s(&fir, taps, kTaps, 15, NULL));  /* tapsFactor 15: the taps are Q15 */
        for (int i = 0; i < a.frames; i += kBlock)
            CHECK(zamsFIR_16s_Sfs(s + i, y + i, a.frames - i < kBlock ? a.frames - i : kBlock, fir, 0));
        zamsFIRFree_16s(fir);
        CHECK(zamsConvert_16s32f_Sfs(y, x, a.frames, 15));  /* back to [-1, 1) for the file */
        audio_put(&a, c, x);
    }
    const int bad = audio_write(argv[2], a.data, a.frames, a.channels, a.rate);
    printf("%s: %d frames, %d channel(s), 16-bit fixed-point low-pass at %s Hz, %d Q15 taps\n", argv[2], a.frames,
           a.channels, argv[3], kTaps);
    zamsFree(x);
    zamsFree(s);
    zamsFree(y);
    zamsFree(a.data);
    return bad;
}
