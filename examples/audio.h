/* Reading and writing sound files for the examples, through libsndfile:
 * whole files in memory, interleaved channels as floats in [-1, 1]. */
#ifndef ZAMS_EXAMPLES_AUDIO_H
#define ZAMS_EXAMPLES_AUDIO_H

#include <sndfile.h>
#include <stdio.h>

#include "zams.h"

typedef struct {
    Zam32f* data;  /* frames x channels, interleaved; release with zamsFree */
    int frames, channels, rate;
} Audio;

static inline int audio_read(const char* path, Audio* a) {
    SF_INFO info = {0};
    SNDFILE* f = sf_open(path, SFM_READ, &info);
    if (!f) {
        fprintf(stderr, "%s: %s\n", path, sf_strerror(NULL));
        return 1;
    }
    a->frames = (int)info.frames;
    a->channels = info.channels;
    a->rate = info.samplerate;
    a->data = zamsMalloc_32f(a->frames * a->channels);
    const int ok = a->data && sf_readf_float(f, a->data, info.frames) == info.frames;
    sf_close(f);
    if (!ok) fprintf(stderr, "%s: cannot read the samples\n", path);
    return !ok;
}

/* 16-bit PCM WAV. */
static inline int audio_write(const char* path, const Zam32f* data, int frames, int channels, int rate) {
    SF_INFO info = {.samplerate = rate, .channels = channels, .format = SF_FORMAT_WAV | SF_FORMAT_PCM_16};
    SNDFILE* f = sf_open(path, SFM_WRITE, &info);
    if (!f) {
        fprintf(stderr, "%s: %s\n", path, sf_strerror(NULL));
        return 1;
    }
    const int ok = sf_writef_float(f, data, frames) == frames;
    sf_close(f);
    return !ok;
}

/* One channel of interleaved data into its own vector, and back. */
static inline void audio_take(const Audio* a, int c, Zam32f* dst) {
    for (int i = 0; i < a->frames; ++i) dst[i] = a->data[(size_t)i * a->channels + c];
}
static inline void audio_put(Audio* a, int c, const Zam32f* src) {
    for (int i = 0; i < a->frames; ++i) a->data[(size_t)i * a->channels + c] = src[i];
}

#define CHECK(call)                                                         \
    do {                                                                    \
        zamStatus st_ = (call);                                             \
        if (st_ < 0) {                                                      \
            fprintf(stderr, "%s failed with status %d\n", #call, (int)st_); \
            return 1;                                                       \
        }                                                                   \
    } while (0)

#endif
