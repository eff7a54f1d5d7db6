/* Polyphase resampling by a Kaiser-windowed sinc, on 32f and 16s samples.
 *
 * Two forms. Both keep the filter in a table of phases built at Init and
 * filter in single precision (AVX dot products whose order of summation
 * depends only on positions in the data, never on buffer addresses). The
 * 16s forms take and give 16-bit samples (the table stays in floating
 * point): each output is rounded to nearest, ties to even, and saturated.
 * Every structure is built where pSpec points (any alignment; the table is
 * placed on a 64-byte boundary inside the block) or allocated by InitAlloc,
 * and released by Free; a structure is read-only during filtering, so
 * threads may share one. There is no in-place form: pDst must not overlap
 * pSrc (up-sampled outputs run ahead of the samples they read).
 *
 * Checks run in the order pointers (-8), lengths (-6), structure
 * identifier (-17), then the value arguments (zamStatusBadArgument, -5:
 * a parameter out of its range below, NaN included, a time before the
 * history the call needs or past 2^31); a structure of 2^31 bytes or more
 * gives zamStatusNoMemory (-9). Nothing is written on an error.
 *
 * ---- Arbitrary ratio
 * The prototype, in units of input samples u, |u| < window:
 *     h(u) = rollf sinc(rollf u) I0(alpha sqrt(1 - (u/window)^2)) / I0(alpha)
 * with sinc(x) = sin(pi x) / (pi x); h is 0 for |u| >= window. rollf is the
 * cutoff (the gain is about 1/2 there) as a fraction of the input Nyquist
 * rate, 0 < rollf <= 1; alpha >= 0 the Kaiser parameter (about 10 gives
 * 100 dB of stop-band rejection, the pass band ending about 3.6 / window
 * of the Nyquist rate below the cutoff); 0 < window <= 4096; 1 <= nStep <=
 * 65536 table steps per input sample. With K = ceil(window) the table has
 * nStep rows of 2K taps, each with its differences to the next row (about
 * 16 K nStep bytes); a time between steps interpolates linearly between
 * the two rows around it. For factor >= 1 the weight is the time's place
 * between the two rows rounded to a multiple of 1/4096 (halves up; a time
 * shifts by at most 2^-13 of a step).
 *
 * zamsResamplePolyphase_*(pSrc, len, pDst, factor, norm, pTime, pOutlen,
 * pSpec) writes the outputs at the times t = *pTime, *pTime + 1/factor,
 * ... (in input samples from pSrc[0]; factor = output rate / input rate,
 * 1/64 <= factor <= 64):
 *     y(t) = norm s sum over m of pSrc[m] h(s (t - m)),   s = min(1, factor)
 * (down-sampling stretches the filter to the output's Nyquist rate). With
 * H = ceil(window / s), output t reads pSrc[floor(t) - H + 1 .. floor(t) + H]:
 * the call requires H - 1 <= *pTime (the caller keeps that history before
 * the sample at *pTime) and produces every t with floor(t) + H <= len - 1,
 * that is ceil((len - H - *pTime) factor) outputs at most (pDst must have
 * room for them; a call stops at INT_MAX outputs, as the fixed form does).
 * It writes that count to *pOutlen and the first time not produced to
 * *pTime. Streaming: keep the last 2H samples of the buffer in front of
 * the next block and subtract len - 2H from *pTime (or, without copying
 * the blocks, run the last 2H samples of one block and the first 2H of the
 * next through a small buffer and the rest of each block where it lies:
 * the same outputs). The time and the step 1/factor are rounded to
 * multiples of 2^-32 of a sample, so the times are exact sums and pieces
 * give exactly the bits of one call while the times stay below 2^21 (where
 * the returned double holds them). Start a stream with H zeros and
 * *pTime = H: output i then sits at input time H + i/factor. factor < 1
 * runs scalar code (a coefficient interpolated per tap, the weight not
 * rounded). A window that is not a whole number puts the window's edge,
 * where h steps from h(window) to 0, between two table rows: the
 * interpolation spreads that step over one table step.
 *
 * ---- Fixed ratio
 * inRate and outRate (each 1 to 65536) reduce by their greatest common
 * divisor to up = outRate/g, down = inRate/g. The filter has len taps at
 * the up-sampled rate, h[m], m = 0..len-1, c = (len - 1)/2, fc =
 * rollf / max(up, down):
 *     h[m] = up fc sinc(fc (m - c)) I0(alpha sqrt(1 - ((m - c)/(len/2))^2)) / I0(alpha)
 * kept as up rows (*pHeight) of *pLen = ceil(len / up) taps: row p, tap j
 * is h[p + up j] (0 past len). The output at up-sampled index i = n up + p
 * is the naive model's: zero-stuff the input by up, filter by h, keep every
 * down-th sample:
 *     y = norm sum over j of row_p[j] pSrc[n - j]
 * *pTime is in input samples and read as the nearest multiple of 1/up
 * (i = round(*pTime up)); the call requires *pLen - 1 <= n and produces
 * every i, stepping by down, with n <= len - 1; it writes the count to
 * *pOutlen and i/up of the first index not produced to *pTime. Streaming:
 * keep the last *pLen - 1 samples in front of the next block and subtract
 * len - (*pLen - 1) from *pTime; pieces give exactly the bits of one call. The output lags the input by c / up
 * input samples. GetFixedFilter copies the rows into pDst (row r at
 * pDst + r step, *pLen taps); SetFixedFilter replaces them from pSrc the
 * same way; step >= *pLen and height == *pHeight, or -5.
 */
#ifndef ZAMS_RESAMPLE_H
#define ZAMS_RESAMPLE_H

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ZamsResamplingPolyphaseSpec_32f ZamsResamplingPolyphaseSpec_32f;
typedef struct ZamsResamplingPolyphaseSpec_16s ZamsResamplingPolyphaseSpec_16s;
typedef struct ZamsResamplingPolyphaseFixedSpec_32f ZamsResamplingPolyphaseFixedSpec_32f;
typedef struct ZamsResamplingPolyphaseFixedSpec_16s ZamsResamplingPolyphaseFixedSpec_16s;

/* Arbitrary ratio: the structure's size for window and nStep. */
ZAMSAPI zamStatus zamsResamplePolyphaseGetSize_32f(Zam32f window, int nStep, int* pSize, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseGetSize_16s(Zam32f window, int nStep, int* pSize, zamHintAlgorithm hint);
/* Arbitrary ratio: builds the table at pSpec (the size GetSize reports). */
ZAMSAPI zamStatus zamsResamplePolyphaseInit_32f(Zam32f window, int nStep, Zam32f rollf, Zam32f alpha,
                                                ZamsResamplingPolyphaseSpec_32f* pSpec, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseInit_16s(Zam32f window, int nStep, Zam32f rollf, Zam32f alpha,
                                                ZamsResamplingPolyphaseSpec_16s* pSpec, zamHintAlgorithm hint);
/* Arbitrary ratio: allocates and builds; release with Free. */
ZAMSAPI zamStatus zamsResamplePolyphaseInitAlloc_32f(ZamsResamplingPolyphaseSpec_32f** ppSpec, Zam32f window, int nStep,
                                                     Zam32f rollf, Zam32f alpha, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseInitAlloc_16s(ZamsResamplingPolyphaseSpec_16s** ppSpec, Zam32f window, int nStep,
                                                     Zam32f rollf, Zam32f alpha, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseFree_32f(ZamsResamplingPolyphaseSpec_32f* pSpec);
ZAMSAPI zamStatus zamsResamplePolyphaseFree_16s(ZamsResamplingPolyphaseSpec_16s* pSpec);
/* Arbitrary ratio: resamples pSrc by factor from *pTime (see above). */
ZAMSAPI zamStatus zamsResamplePolyphase_32f(const Zam32f* pSrc, int len, Zam32f* pDst, Zam64f factor, Zam32f norm,
                                            Zam64f* pTime, int* pOutlen, const ZamsResamplingPolyphaseSpec_32f* pSpec);
ZAMSAPI zamStatus zamsResamplePolyphase_16s(const Zam16s* pSrc, int len, Zam16s* pDst, Zam64f factor, Zam32f norm,
                                            Zam64f* pTime, int* pOutlen, const ZamsResamplingPolyphaseSpec_16s* pSpec);

/* Fixed ratio: the structure's size, the taps per row and the rows. */
ZAMSAPI zamStatus zamsResamplePolyphaseFixedGetSize_32f(int inRate, int outRate, int len, int* pSize, int* pLen,
                                                        int* pHeight, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseFixedGetSize_16s(int inRate, int outRate, int len, int* pSize, int* pLen,
                                                        int* pHeight, zamHintAlgorithm hint);
/* Fixed ratio: builds the filter at pSpec (the size GetSize reports). */
ZAMSAPI zamStatus zamsResamplePolyphaseFixedInit_32f(int inRate, int outRate, int len, Zam32f rollf, Zam32f alpha,
                                                     ZamsResamplingPolyphaseFixedSpec_32f* pSpec, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseFixedInit_16s(int inRate, int outRate, int len, Zam32f rollf, Zam32f alpha,
                                                     ZamsResamplingPolyphaseFixedSpec_16s* pSpec, zamHintAlgorithm hint);
/* Fixed ratio: allocates and builds; release with FixedFree. */
ZAMSAPI zamStatus zamsResamplePolyphaseFixedInitAlloc_32f(ZamsResamplingPolyphaseFixedSpec_32f** ppSpec, int inRate,
                                                          int outRate, int len, Zam32f rollf, Zam32f alpha,
                                                          zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseFixedInitAlloc_16s(ZamsResamplingPolyphaseFixedSpec_16s** ppSpec, int inRate,
                                                          int outRate, int len, Zam32f rollf, Zam32f alpha,
                                                          zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsResamplePolyphaseFixedFree_32f(ZamsResamplingPolyphaseFixedSpec_32f* pSpec);
ZAMSAPI zamStatus zamsResamplePolyphaseFixedFree_16s(ZamsResamplingPolyphaseFixedSpec_16s* pSpec);
/* Fixed ratio: the filter rows, read and replaced. */
ZAMSAPI zamStatus zamsResamplePolyphaseGetFixedFilter_32f(Zam32f* pDst, int step, int height,
                                                          const ZamsResamplingPolyphaseFixedSpec_32f* pSpec);
ZAMSAPI zamStatus zamsResamplePolyphaseGetFixedFilter_16s(Zam32f* pDst, int step, int height,
                                                          const ZamsResamplingPolyphaseFixedSpec_16s* pSpec);
ZAMSAPI zamStatus zamsResamplePolyphaseSetFixedFilter_32f(const Zam32f* pSrc, int step, int height,
                                                          ZamsResamplingPolyphaseFixedSpec_32f* pSpec);
ZAMSAPI zamStatus zamsResamplePolyphaseSetFixedFilter_16s(const Zam32f* pSrc, int step, int height,
                                                          ZamsResamplingPolyphaseFixedSpec_16s* pSpec);
/* Fixed ratio: resamples pSrc from *pTime (see above). */
ZAMSAPI zamStatus zamsResamplePolyphaseFixed_32f(const Zam32f* pSrc, int len, Zam32f* pDst, Zam32f norm, Zam64f* pTime,
                                                 int* pOutlen, const ZamsResamplingPolyphaseFixedSpec_32f* pSpec);
ZAMSAPI zamStatus zamsResamplePolyphaseFixed_16s(const Zam16s* pSrc, int len, Zam16s* pDst, Zam32f norm, Zam64f* pTime,
                                                 int* pOutlen, const ZamsResamplingPolyphaseFixedSpec_16s* pSpec);

#ifdef __cplusplus
}
#endif

#endif /* ZAMS_RESAMPLE_H */
