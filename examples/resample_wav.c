/* resample_wav in.wav out.wav out_rate
 *
 * Resamples a sound file to another rate with zams' polyphase resampler,
 * streaming it in blocks, and writes 16-bit PCM. Every channel gets its
 * own history buffer; the one filter specification is shared by them.
 * Build: cc resample_wav.c -lzams -lsndfile */
#include <sndfile.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zams.h"

enum { BLOCK = 4096, MAXCH = 16 };
#define WINDOW 32 /* filter half-length in input samples: 2 x 32 taps */

int main(int argc, char** argv) {
    if (argc != 4) return fprintf(stderr, "usage: %s in.wav out.wav out_rate\n", argv[0]), 2;
    SF_INFO in = {0}, out = {0};
    SNDFILE* fin = sf_open(argv[1], SFM_READ, &in);
    if (!fin) return fprintf(stderr, "%s: %s\n", argv[1], sf_strerror(NULL)), 1;
    const int ch = in.channels, rate = atoi(argv[3]);
    if (ch > MAXCH || rate < 1) return fprintf(stderr, "unsupported channels or rate\n"), 1;
    out.samplerate = rate, out.channels = ch, out.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* fout = sf_open(argv[2], SFM_WRITE, &out);
    if (!fout) return fprintf(stderr, "%s: %s\n", argv[2], sf_strerror(NULL)), 1;
    sf_command(fout, SFC_SET_CLIPPING, NULL, SF_TRUE); /* saturate, do not wrap */

    /* The filter: cutoff at 0.985 of the lower Nyquist rate (the resampler
     * stretches it when down-sampling), Kaiser parameter 10: about 100 dB. */
    const double factor = (double)rate / in.samplerate;
    const int H = (int)(factor < 1 ? WINDOW / factor + 0.999999 : WINDOW); /* history */
    ZamsResamplingPolyphaseSpec_32f* spec;
    if (zamsResamplePolyphaseInitAlloc_32f(&spec, WINDOW, 512, 0.985f, 10.0f, zamAlgHintNone)) return 1;

    /* Per channel: [2H kept samples | new block], time starting after H zeros. */
    const int cap = 2 * H + BLOCK, outCap = (int)(BLOCK * factor) + 2;
    float* frames = malloc(sizeof(float) * BLOCK * ch);
    float* outFrames = malloc(sizeof(float) * outCap * ch);
    float* buf[MAXCH];
    float* y = malloc(sizeof(float) * outCap);
    double t[MAXCH];
    int have = H, zeros = H, eof = 0; /* samples in each buffer; zeros still to flush */
    for (int c = 0; c < ch; ++c) buf[c] = calloc(cap, sizeof(float)), t[c] = H;

    while (!eof || zeros > 0) {
        sf_count_t n = eof ? 0 : sf_readf_float(fin, frames, BLOCK);
        if (n < BLOCK) { /* end of input: H zeros flush the filter's tail */
            const int pad = BLOCK - n < zeros ? BLOCK - (int)n : zeros;
            memset(frames + n * ch, 0, sizeof(float) * pad * ch);
            n += pad, zeros -= pad, eof = 1;
        }
        const int len = have + (int)n, keep = len < 2 * H ? len : 2 * H;
        int got = 0;
        for (int c = 0; c < ch; ++c) {
            for (sf_count_t i = 0; i < n; ++i) buf[c][have + i] = frames[i * ch + c]; /* deinterleave */
            zamsResamplePolyphase_32f(buf[c], len, y, factor, 1.0f, &t[c], &got, spec);
            for (int i = 0; i < got; ++i) outFrames[i * ch + c] = y[i];
            /* keep the last 2H samples and move the time with them */
            memmove(buf[c], buf[c] + len - keep, sizeof(float) * keep);
            t[c] -= len - keep;
        }
        have = keep;
        sf_writef_float(fout, outFrames, got);
    }
    for (int c = 0; c < ch; ++c) free(buf[c]);
    free(frames), free(outFrames), free(y);
    zamsResamplePolyphaseFree_32f(spec);
    sf_close(fin), sf_close(fout);
    return 0;
}
