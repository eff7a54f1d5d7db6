/* Minimal WAV input and output for the demo: reads PCM 16-bit or IEEE float
 * 32-bit files with any number of channels (averaged to one), writes 16-bit
 * mono PCM. The conversions go through the library. */
#ifndef ZAMS_EXAMPLES_WAV_H
#define ZAMS_EXAMPLES_WAV_H

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zams.h"

static inline uint32_t wav_u32(const unsigned char* p) { return p[0] | p[1] << 8 | p[2] << 16 | (uint32_t)p[3] << 24; }
static inline uint16_t wav_u16(const unsigned char* p) { return (uint16_t)(p[0] | p[1] << 8); }

/* The samples of a WAV file as floats in [-1, 1), channels averaged; NULL
 * (with a message) for a file it cannot read. Release with zamsFree. */
static inline Zam32f* wav_read(const char* path, int* rate, int* frames) {
    FILE* f = fopen(path, "rb");
    if (!f) {
        fprintf(stderr, "cannot open %s\n", path);
        return NULL;
    }
    unsigned char head[12], ck[8], fmt[16];
    int format = 0, channels = 0, bits = 0;
    Zam32f* out = NULL;
    if (fread(head, 1, 12, f) != 12 || memcmp(head, "RIFF", 4) || memcmp(head + 8, "WAVE", 4)) goto bad;
    while (fread(ck, 1, 8, f) == 8) {
        const uint32_t size = wav_u32(ck + 4);
        if (!memcmp(ck, "fmt ", 4) && size >= 16) {
            if (fread(fmt, 1, 16, f) != 16) goto bad;
            format = wav_u16(fmt);
            channels = wav_u16(fmt + 2);
            *rate = (int)wav_u32(fmt + 4);
            bits = wav_u16(fmt + 14);
            if (format == 0xFFFE) format = bits == 32 ? 3 : 1; /* extensible: PCM or float by width */
            fseek(f, (long)(size - 16 + (size & 1)), SEEK_CUR);
        } else if (!memcmp(ck, "data", 4)) {
            if (channels < 1 || !((format == 1 && bits == 16) || (format == 3 && bits == 32))) goto bad;
            const int width = bits / 8, n = (int)(size / (uint32_t)(width * channels));
            unsigned char* raw = malloc((size_t)n * width * channels);
            Zam32f* one = zamsMalloc_32f(n > 0 ? n : 1);
            out = zamsMalloc_32f(n > 0 ? n : 1);
            if (!raw || !one || !out || fread(raw, (size_t)width * channels, (size_t)n, f) != (size_t)n) {
                free(raw);
                zamsFree(one);
                goto bad;
            }
            zamsZero_32f(out, n);
            for (int c = 0; c < channels; ++c) {
                for (int i = 0; i < n; ++i) {
                    const unsigned char* p = raw + ((size_t)i * channels + c) * width;
                    if (format == 1) {
                        one[i] = (Zam32f)(int16_t)wav_u16(p) / 32768.0f;
                    } else {
                        uint32_t u = wav_u32(p);
                        memcpy(&one[i], &u, 4);
                    }
                }
                zamsAdd_32f_I(one, out, n);
            }
            zamsMulC_32f_I(1.0f / (Zam32f)channels, out, n);
            free(raw);
            zamsFree(one);
            fclose(f);
            *frames = n;
            return out;
        } else {
            fseek(f, (long)(size + (size & 1)), SEEK_CUR);
        }
    }
bad:
    fprintf(stderr, "%s: not a 16-bit PCM or 32-bit float WAV file\n", path);
    zamsFree(out);
    fclose(f);
    return NULL;
}

static inline void wav_put(unsigned char* p, uint32_t v, int bytes) {
    for (int i = 0; i < bytes; ++i) p[i] = (unsigned char)(v >> (8 * i));
}

/* Writes x (floats in [-1, 1], saturated beyond) as 16-bit mono PCM. */
static inline int wav_write(const char* path, const Zam32f* x, int n, int rate) {
    Zam16s* s = zamsMalloc_16s(n);
    FILE* f = fopen(path, "wb");
    if (!s || !f) {
        fprintf(stderr, "cannot write %s\n", path);
        zamsFree(s);
        if (f) fclose(f);
        return 1;
    }
    /* x * 32768, rounded to nearest and saturated: a scale factor of -15. */
    zamsConvert_32f16s_Sfs(x, s, n, zamRoundNearestEven, -15);
    unsigned char h[44];
    memcpy(h, "RIFF", 4);
    wav_put(h + 4, 36u + 2u * (uint32_t)n, 4);
    memcpy(h + 8, "WAVEfmt ", 8);
    wav_put(h + 16, 16, 4);
    wav_put(h + 20, 1, 2);
    wav_put(h + 22, 1, 2);
    wav_put(h + 24, (uint32_t)rate, 4);
    wav_put(h + 28, 2u * (uint32_t)rate, 4);
    wav_put(h + 32, 2, 2);
    wav_put(h + 34, 16, 2);
    memcpy(h + 36, "data", 4);
    wav_put(h + 40, 2u * (uint32_t)n, 4);
    int bad = fwrite(h, 1, 44, f) != 44;
    for (int i = 0; i < n && !bad; ++i) {
        unsigned char b[2];
        wav_put(b, (uint16_t)s[i], 2);
        bad = fwrite(b, 1, 2, f) != 2;
    }
    bad |= fclose(f) != 0;
    zamsFree(s);
    return bad;
}

#endif
