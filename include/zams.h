/*
 * zams: signal-processing primitives over one-dimensional sample vectors.
 *
 * This is the only header an application needs. It defines the sample types,
 * the status codes, the enumerations shared by many families, and then pulls
 * in the declarations of every family from include/zams/.
 *
 * Every exported function is declared with the marker ZAMSAPI. The build reads
 * these declarations to produce the entry table, so a new function needs
 * nothing but its declaration here and its implementation in src/.
 *
 * The header compiles as C99 and as C++.
 */
#ifndef ZAMS_H
#define ZAMS_H

#include <stdint.h>

#ifdef __cplusplus
#define ZAMSAPI extern "C"
#else
#define ZAMSAPI extern
#endif

/* ---------------------------------------------------------------- types -- */

typedef uint8_t  Zam8u;
typedef int8_t   Zam8s;
typedef uint16_t Zam16u;
typedef int16_t  Zam16s;
typedef uint32_t Zam32u;
typedef int32_t  Zam32s;
typedef uint64_t Zam64u;
typedef int64_t  Zam64s;
typedef float    Zam32f;
typedef double   Zam64f;

/* IEEE 754 binary16, kept as its 16-bit pattern. */
typedef struct { Zam16u bits; } Zam16f;

/* Packed 24-bit samples are handled as bytes: 3 bytes a sample, least
 * significant byte first. Lengths count samples, not bytes. */
typedef Zam8u Zam24u;
typedef Zam8u Zam24s;

/* Complex samples: real part first. */
typedef struct { Zam8s  re, im; } Zam8sc;
typedef struct { Zam16s re, im; } Zam16sc;
typedef struct { Zam32s re, im; } Zam32sc;
typedef struct { Zam64s re, im; } Zam64sc;
typedef struct { Zam32f re, im; } Zam32fc;
typedef struct { Zam64f re, im; } Zam64fc;

/* --------------------------------------------------------------- status -- */

/* Zero is success, negative an error (nothing was done), positive a warning
 * (everything was done; the value says what was met on the way). */
typedef int32_t zamStatus;

enum {
    zamStatusBadRoundMode        = -213,
    zamStatusBadSparsePosition   = -194,
    zamStatusBadChannelCount     = -53,
    zamStatusBadToneMagnitude    = -46,
    zamStatusBadToneFrequency    = -45,
    zamStatusBadTonePhase        = -44,
    zamStatusBadMagnitude        = -43,
    zamStatusBadFrequency        = -42,
    zamStatusBadPhase            = -41,
    zamStatusBadAsymmetry        = -40,
    zamStatusWindowOverflow      = -39,
    zamStatusBadWaveletOffset    = -35,
    zamStatusBadWindowLength     = -33,
    zamStatusBadShift            = -32,
    zamStatusBadSampleFactor     = -31,
    zamStatusBadSamplePhase      = -30,
    zamStatusBadMultirateFactor  = -29,
    zamStatusBadMultiratePhase   = -28,
    zamStatusBadRelativeFreq     = -27,
    zamStatusBadTapsLength       = -26,
    zamStatusBadFilterOrder      = -25,
    zamStatusBadDelayIndex       = -24,
    zamStatusBadThresholdLevel   = -19,
    zamStatusBadThresholdRange   = -18,
    zamStatusContextMismatch     = -17,
    zamStatusBadFftFlag          = -16,
    zamStatusBadFftOrder         = -15,
    zamStatusBadTapScale         = -13,
    zamStatusNotPositiveParam    = -11,
    zamStatusDivideByZero        = -10,
    zamStatusNoMemory            = -9,
    zamStatusNullPointer         = -8,
    zamStatusBadCrossingType     = -7,
    zamStatusBadLength           = -6,
    zamStatusBadArgument         = -5,
    zamStatusOk                  = 0,
    zamStatusWarnSqrtNegative    = 3,
    zamStatusWarnInvThreshZero   = 4,
    zamStatusWarnDivByZero       = 6,
    zamStatusWarnLnZero          = 7,
    zamStatusWarnLnNegative      = 8,
    zamStatusWarnMaxOrderNotFinite = 9
};

/* ---------------------------------------------------------- enumerations -- */

/* Rounding of a floating or scaled value to an integer. Which other values a
 * function accepts is told with the function. */
typedef enum {
    zamRoundTowardZero = 0,
    zamRoundNearestEven = 1,
    zamRoundHalfAway = 2
} zamRoundMode;

/* Algorithm hint: 1 asks for the fast path of floating sums, means and
 * deviations; every other value selects the accurate path. */
typedef enum {
    zamAlgHintNone = 0,
    zamAlgHintFast = 1,
    zamAlgHintAccurate = 2
} zamHintAlgorithm;

/* Normalisation of a forward/inverse FFT pair. */
enum {
    zamFftScaleForward  = 1,  /* forward divides by N */
    zamFftScaleInverse  = 2,  /* inverse divides by N */
    zamFftScaleSqrtBoth = 4,  /* both divide by sqrt(N) */
    zamFftScaleNone     = 8   /* neither divides */
};

/* ------------------------------------------------------------- version -- */

typedef struct {
    int32_t     versionMajor;
    int32_t     versionMinor;
    int32_t     versionPatch;
    int32_t     buildNumber;
    char        cpuCode[4];     /* "g9" and two zero bytes */
    const char* libraryName;
    const char* versionText;
    const char* buildDateText;
} ZamVersionRecord;

/* ------------------------------------------------------------ families -- */

#include "zams/core.h"       /* version record, aligned memory */
#include "zams/move.h"       /* copy, move, set, zero, flip, swap, complex parts */
#include "zams/arith.h"      /* element-wise arithmetic, logic and shifts */
#include "zams/math.h"       /* division, elementary functions, complex measures */
#include "zams/convert.h"    /* conversion between sample types */
#include "zams/threshold.h"  /* thresholding */
#include "zams/stats.h"      /* reductions */
#include "zams/fft.h"        /* FFT specifications, complex and real FFT */
#include "zams/dft.h"        /* DFT of any length, Hilbert, Goertzel */
#include "zams/dct.h"        /* discrete cosine transform */
#include "zams/window.h"     /* window functions */
#include "zams/conv.h"       /* correlation and convolution */
#include "zams/gen.h"        /* random, triangle and tone generators, test vectors */
#include "zams/filter.h"     /* IIR filters */
#include "zams/fir.h"        /* FIR filters */
#include "zams/design.h"     /* FIR and IIR filter design */
#include "zams/sort.h"       /* sorting */
#include "zams/lms.h"        /* adaptive LMS filters */
#include "zams/wavelet.h"    /* Haar transform, two-channel filter bank */
#include "zams/speech.h"     /* speech and communication kernels */
#include "zams/resample.h"   /* polyphase resampling */

#endif /* ZAMS_H */
