/* The zams demo: a signal (a chirp and two tones in noise, made by the
 * library's generators, or a WAV file given on the command line) goes through
 * a low-pass FIR filter designed by the library; the program writes the
 * filtered audio as a WAV file and draws the spectrogram before and after and
 * the average spectrum of both with gnuplot into a PNG.
 *
 *   zams_demo [input.wav] [-o outdir] [-c cutoff_hz]
 */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "wav.h"
#include "zams.h"

enum { kOrder = 9, kFrame = 1 << kOrder, kHop = kFrame / 4, kBins = kFrame / 2 + 1, kTaps = 255 };

#define CHECK(call)                                                         \
    do {                                                                    \
        zamStatus st_ = (call);                                             \
        if (st_ < 0) {                                                      \
            fprintf(stderr, "%s failed with status %d\n", #call, (int)st_); \
            exit(1);                                                        \
        }                                                                   \
    } while (0)

/* The default signal: a linear chirp from 50 Hz to 7.5 kHz built from short
 * tone blocks whose phase carries over, tones at 440 Hz and 5 kHz, and white
 * Gaussian noise. */
static Zam32f* make_signal(int rate, int n) {
    Zam32f* x = zamsMalloc_32f(n);
    Zam32f* part = zamsMalloc_32f(n);
    if (!x || !part) exit(1);
    const int block = 32;
    Zam32f phase = 0;
    for (int i = 0; i < n; i += block) {
        const int len = n - i < block ? n - i : block;
        const double f = 50.0 + (7500.0 - 50.0) * (double)i / n;
        CHECK(zamsTone_Direct_32f(x + i, len, 0.4f, (Zam32f)(f / rate), &phase));
    }
    Zam32f p1 = 0, p2 = 0;
    CHECK(zamsTone_Direct_32f(part, n, 0.25f, 440.0f / rate, &p1));
    CHECK(zamsAdd_32f_I(part, x, n));
    CHECK(zamsTone_Direct_32f(part, n, 0.25f, 5000.0f / rate, &p2));
    CHECK(zamsAdd_32f_I(part, x, n));
    unsigned int seed = 2026;
    CHECK(zamsRandGauss_Direct_32f(part, n, 0.0f, 0.02f, &seed));
    CHECK(zamsAdd_32f_I(part, x, n));
    zamsFree(part);
    return x;
}

/* Power spectra in dB of Hann-windowed frames (kFrame long, kHop apart):
 * one row of kBins a frame into rows, their mean into mean. */
static int spectrogram(const Zam32f* x, int n, Zam32f* rows, double* mean) {
    ZamsFFTSpec_R_32f* fft = NULL;
    CHECK(zamsFFTInitAlloc_R_32f(&fft, kOrder, zamFftScaleForward, zamAlgHintNone));
    Zam32f frame[kFrame], spec[kFrame + 2], power[kBins];
    int frames = 0;
    memset(mean, 0, sizeof(double) * kBins);
    for (int start = 0; start + kFrame <= n; start += kHop, ++frames) {
        CHECK(zamsWinHann_32f(x + start, frame, kFrame));
        CHECK(zamsFFTFwd_RToCCS_32f(frame, spec, fft, NULL));
        CHECK(zamsPowerSpectr_32fc((const Zam32fc*)spec, power, kBins));
        for (int k = 0; k < kBins; ++k) {
            mean[k] += power[k];
            if (rows) rows[(size_t)frames * kBins + k] = (Zam32f)(10.0 * log10(power[k] + 1e-12));
        }
    }
    for (int k = 0; k < kBins; ++k) mean[k] = 10.0 * log10(mean[k] / (frames ? frames : 1) + 1e-12);
    zamsFFTFree_R_32f(fft);
    return frames;
}

static void write_matrix(const char* path, const Zam32f* rows, int frames, int rate) {
    FILE* f = fopen(path, "w");
    if (!f) exit(1);
    for (int t = 0; t < frames; ++t) {
        for (int k = 0; k < kBins; ++k)
            fprintf(f, "%.4f %.1f %.2f\n", (double)(t * kHop + kFrame / 2) / rate, (double)k * rate / kFrame,
                    rows[(size_t)t * kBins + k]);
        fprintf(f, "\n");
    }
    fclose(f);
}

int main(int argc, char** argv) {
    const char* in = NULL;
    const char* outdir = "demo-out";
    double cutoff = 2000.0;
    for (int i = 1; i < argc; ++i) {
        if (!strcmp(argv[i], "-o") && i + 1 < argc) outdir = argv[++i];
        else if (!strcmp(argv[i], "-c") && i + 1 < argc) cutoff = atof(argv[++i]);
        else in = argv[i];
    }
    const ZamVersionRecord* v = zamsGetLibVersion();
    printf("%s %s\n", v->libraryName, v->versionText);

    int rate = 16000, n = 4 * 16000;
    Zam32f* x;
    if (in) {
        x = wav_read(in, &rate, &n);
        if (!x) return 1;
        printf("input: %s, %d samples at %d Hz (channels averaged)\n", in, n, rate);
    } else {
        x = make_signal(rate, n);
        printf("input: 4 s at 16 kHz made by the generators: a chirp 50 Hz - 7.5 kHz, tones at 440 Hz and 5 kHz,\n"
               "       Gaussian noise (sigma 0.02)\n");
    }
    if (n < kFrame) {
        fprintf(stderr, "the input is shorter than %d samples\n", kFrame);
        return 1;
    }
    if (cutoff <= 0 || cutoff >= rate / 2.0) cutoff = rate / 8.0;

    /* Design: a windowed-sinc low-pass, unity gain at 0 Hz. */
    Zam64f taps64[kTaps];
    Zam32f taps[kTaps];
    CHECK(zamsFIRGenLowpass_64f(cutoff / rate, taps64, kTaps, zamWinBlackman, 1));
    CHECK(zamsConvert_64f32f(taps64, taps, kTaps));
    printf("filter: zamsFIRGenLowpass_64f, %d taps, Blackman window, cut-off %.0f Hz\n", kTaps, cutoff);

    /* Filter in blocks of 4096 through one state, as a stream would arrive. */
    Zam32f* y = zamsMalloc_32f(n);
    ZamsFIRState_32f* fir = NULL;
    if (!y) return 1;
    CHECK(zamsFIRInitAlloc_32f(&fir, taps, kTaps, NULL));
    for (int i = 0; i < n; i += 4096) CHECK(zamsFIR_32f(x + i, y + i, n - i < 4096 ? n - i : 4096, fir));
    zamsFIRFree_32f(fir);

    /* Spectra before and after. */
    const int frames = (n - kFrame) / kHop + 1;
    Zam32f* before = malloc(sizeof(Zam32f) * (size_t)frames * kBins);
    Zam32f* after = malloc(sizeof(Zam32f) * (size_t)frames * kBins);
    double meanBefore[kBins], meanAfter[kBins];
    if (!before || !after) return 1;
    spectrogram(x, n, before, meanBefore);
    spectrogram(y, n, after, meanAfter);
    /* Power kept in the pass band and in the stop band, after over before. */
    double pass[2] = {0, 0}, stop[2] = {0, 0};
    for (int k = 1; k < kBins; ++k) {
        const double f = (double)k * rate / kFrame;
        double* band = f < 0.8 * cutoff ? pass : f > 1.5 * cutoff ? stop : NULL;
        if (band) band[0] += pow(10.0, meanBefore[k] / 10), band[1] += pow(10.0, meanAfter[k] / 10);
    }
    printf("measured: power below %.0f Hz changed by %+.2f dB, power above %.0f Hz by %+.1f dB\n", 0.8 * cutoff,
           10 * log10(pass[1] / pass[0]), 1.5 * cutoff, 10 * log10(stop[1] / stop[0]));

    /* Files. */
    char path[1024], png[1024], wav[1024];
    snprintf(path, sizeof path, "mkdir -p '%s'", outdir);
    if (system(path) != 0) return 1;
    snprintf(wav, sizeof wav, "%s/filtered.wav", outdir);
    if (wav_write(wav, y, n, rate) != 0) return 1;
    snprintf(path, sizeof path, "%s/before.dat", outdir);
    write_matrix(path, before, frames, rate);
    snprintf(path, sizeof path, "%s/after.dat", outdir);
    write_matrix(path, after, frames, rate);
    snprintf(path, sizeof path, "%s/spectrum.dat", outdir);
    FILE* f = fopen(path, "w");
    if (!f) return 1;
    for (int k = 0; k < kBins; ++k)
        fprintf(f, "%.1f %.2f %.2f\n", (double)k * rate / kFrame, meanBefore[k], meanAfter[k]);
    fclose(f);

    snprintf(png, sizeof png, "%s/spectra.png", outdir);
    snprintf(path, sizeof path, "%s/plot.gp", outdir);
    f = fopen(path, "w");
    if (!f) return 1;
    fprintf(f,
            "set terminal pngcairo size 1200,1000 font ',10'\n"
            "set output '%s'\n"
            "set multiplot layout 3,1 title 'zams demo: low-pass FIR (%d taps, cut-off %.0f Hz)'\n"
            "set palette rgb 21,22,23\nset cbrange [-100:0]\nset cblabel 'dB'\n"
            "set ylabel 'Hz'\nset xlabel 's'\nset xrange [0:%g]\nset yrange [0:%d]\n"
            "set title 'spectrogram before'\nplot '%s/before.dat' using 1:2:3 with image notitle\n"
            "set title 'spectrogram after'\nplot '%s/after.dat' using 1:2:3 with image notitle\n"
            "set xlabel 'Hz'\nset ylabel 'dB'\nset xrange [0:%d]\nset yrange [-130:10]\nset key top right\n"
            "set title 'average power spectrum'\n"
            "plot '%s/spectrum.dat' using 1:2 with lines lw 1.5 title 'before', "
            "'' using 1:3 with lines lw 1.5 title 'after'\n"
            "unset multiplot\n",
            png, kTaps, cutoff, (double)n / rate, rate / 2, outdir, outdir, rate / 2, outdir);
    fclose(f);
    snprintf(path, sizeof path, "gnuplot '%s/plot.gp'", outdir);
    if (system(path) != 0) {
        fprintf(stderr, "gnuplot failed (is gnuplot installed?); the data is in %s/\n", outdir);
        return 1;
    }
    printf("wrote %s (filtered audio) and %s (spectrograms and spectra before and after)\n", wav, png);
    free(before);
    free(after);
    zamsFree(x);
    zamsFree(y);
    return 0;
}
