/* Generators: random numbers, triangle and tone waves, test vectors.
 *
 * ---- Random numbers ----------------------------------------------------
 * One integer generator serves every distribution: the sum of a linear
 * congruential word x and a lag-3 subtract-with-borrow generator (words
 * s0, s1, s2 and a borrow b of 0 or -1). One step:
 *
 *     t = s1 - s2 + b;  if t's top bit is set: b = -1, t -= 18; else b = 0
 *     s2 = s1; s1 = s0; s0 = t;  x = x * 69069 + 1013904243
 *     output t + x, read as a signed 32-bit integer r
 *
 * (all modulo 2^32). A seed sets x = 1131199209, s0 = seed,
 * s1 = seed * 69069 + 1013904243, s2 = s1 * 69069 + 1013904243, b = -1.
 * The same seed gives the same sequence, bit for bit, on every target.
 *
 * Uniform: each element is mid + scale * r with mid = (low + high) / 2 and
 * scale = (high - low) * 2^-32, in double precision; 32f and 64f round
 * that to the element type, 8u and 16s truncate it toward zero. The values
 * lie in [low, high) (a 32f value next to high may round to it); low = high
 * gives that value everywhere; low > high is not refused.
 *
 * Gaussian (polar method): two outputs give u = r1 * 2^-31, v = r2 * 2^-31;
 * pairs with s = u^2 + v^2 at or above 1, or 0, are discarded; otherwise
 * f = sqrt(-2 ln s / s) and the next two elements are (stdDev * f) * v +
 * mean, then (stdDev * f) * u + mean. When a fill ends after the first of
 * the two, the second is kept in the state and opens the next fill. 8u and
 * 16s round the double value to nearest, ties to even, and saturate to the
 * element's range.
 *
 * States: consecutive fills with one state continue one sequence, so
 * filling 10 elements equals filling 3 and then 7. zamsRandUniformInit_16s
 * and zamsRandGaussInit_16s build in caller memory of the size their
 * GetSize reports (48 bytes for the uniform state), starting at pState
 * itself: give memory aligned to 8 bytes (any zamsMalloc block is). The
 * InitAlloc members allocate; Free releases what InitAlloc allocated and
 * invalidates a state built in caller memory. A state of another kind
 * gives zamStatusContextMismatch.
 *
 * Direct members: *pSeed seeds the generator as Init does; after the fill
 * *pSeed receives the generator's next output (the step after the last one
 * used), so a following call with the same cell draws a fresh sequence. A
 * pending Gaussian spare is not carried across Direct calls.
 *
 * Checks: pointers (-8), len < 1 (-6), the state's kind (-17).
 */
#ifndef ZAMS_GEN_H
#define ZAMS_GEN_H

typedef struct ZamsRandUniState_8u ZamsRandUniState_8u;
typedef struct ZamsRandUniState_16s ZamsRandUniState_16s;
typedef struct ZamsRandUniState_32f ZamsRandUniState_32f;
typedef struct ZamsRandGaussState_8u ZamsRandGaussState_8u;
typedef struct ZamsRandGaussState_16s ZamsRandGaussState_16s;
typedef struct ZamsRandGaussState_32f ZamsRandGaussState_32f;

ZAMSAPI zamStatus zamsRandUniformGetSize_16s(int* pSize);
ZAMSAPI zamStatus zamsRandUniformInit_16s(ZamsRandUniState_16s* pState, Zam16s low, Zam16s high, unsigned int seed);
ZAMSAPI zamStatus zamsRandUniformInitAlloc_8u(ZamsRandUniState_8u** ppState, Zam8u low, Zam8u high, unsigned int seed);
ZAMSAPI zamStatus zamsRandUniformInitAlloc_16s(ZamsRandUniState_16s** ppState, Zam16s low, Zam16s high, unsigned int seed);
ZAMSAPI zamStatus zamsRandUniformInitAlloc_32f(ZamsRandUniState_32f** ppState, Zam32f low, Zam32f high, unsigned int seed);
ZAMSAPI zamStatus zamsRandUniform_8u(Zam8u* pDst, int len, ZamsRandUniState_8u* pState);
ZAMSAPI zamStatus zamsRandUniform_16s(Zam16s* pDst, int len, ZamsRandUniState_16s* pState);
ZAMSAPI zamStatus zamsRandUniform_32f(Zam32f* pDst, int len, ZamsRandUniState_32f* pState);
ZAMSAPI zamStatus zamsRandUniformFree_8u(ZamsRandUniState_8u* pState);
ZAMSAPI zamStatus zamsRandUniformFree_16s(ZamsRandUniState_16s* pState);
ZAMSAPI zamStatus zamsRandUniformFree_32f(ZamsRandUniState_32f* pState);
ZAMSAPI zamStatus zamsRandUniform_Direct_16s(Zam16s* pDst, int len, Zam16s low, Zam16s high, unsigned int* pSeed);
ZAMSAPI zamStatus zamsRandUniform_Direct_32f(Zam32f* pDst, int len, Zam32f low, Zam32f high, unsigned int* pSeed);
ZAMSAPI zamStatus zamsRandUniform_Direct_64f(Zam64f* pDst, int len, Zam64f low, Zam64f high, unsigned int* pSeed);

ZAMSAPI zamStatus zamsRandGaussGetSize_16s(int* pSize);
ZAMSAPI zamStatus zamsRandGaussInit_16s(ZamsRandGaussState_16s* pState, Zam16s mean, Zam16s stdDev, unsigned int seed);
ZAMSAPI zamStatus zamsRandGaussInitAlloc_8u(ZamsRandGaussState_8u** ppState, Zam8u mean, Zam8u stdDev, unsigned int seed);
ZAMSAPI zamStatus zamsRandGaussInitAlloc_16s(ZamsRandGaussState_16s** ppState, Zam16s mean, Zam16s stdDev, unsigned int seed);
ZAMSAPI zamStatus zamsRandGaussInitAlloc_32f(ZamsRandGaussState_32f** ppState, Zam32f mean, Zam32f stdDev, unsigned int seed);
ZAMSAPI zamStatus zamsRandGauss_8u(Zam8u* pDst, int len, ZamsRandGaussState_8u* pState);
ZAMSAPI zamStatus zamsRandGauss_16s(Zam16s* pDst, int len, ZamsRandGaussState_16s* pState);
ZAMSAPI zamStatus zamsRandGauss_32f(Zam32f* pDst, int len, ZamsRandGaussState_32f* pState);
ZAMSAPI zamStatus zamsRandGaussFree_8u(ZamsRandGaussState_8u* pState);
ZAMSAPI zamStatus zamsRandGaussFree_16s(ZamsRandGaussState_16s* pState);
ZAMSAPI zamStatus zamsRandGaussFree_32f(ZamsRandGaussState_32f* pState);
ZAMSAPI zamStatus zamsRandGauss_Direct_16s(Zam16s* pDst, int len, Zam16s mean, Zam16s stdDev, unsigned int* pSeed);
ZAMSAPI zamStatus zamsRandGauss_Direct_32f(Zam32f* pDst, int len, Zam32f mean, Zam32f stdDev, unsigned int* pSeed);
ZAMSAPI zamStatus zamsRandGauss_Direct_64f(Zam64f* pDst, int len, Zam64f mean, Zam64f stdDev, unsigned int* pSeed);

/* ---- Triangle wave -----------------------------------------------------
 * A triangle of peak magn (the wave runs between -magn and +magn), relative
 * frequency rFreq in [0, 0.5) (cycles per sample), phase in [0, 2 pi) (at 0
 * the wave is at +magn) and asymmetry asym in [-pi, pi): the falling part
 * of a period spans h = pi + asym of phase, the rising part g = pi - asym.
 *
 * The first sample is magn (1 - 2 phase / h) while phase < h, else
 * magn (2 (phase - h) / g - 1); every further sample adds the slope
 * -4 pi magn rFreq / h (falling) or 4 pi magn rFreq / g (rising) to a
 * running double value, reflected at +-magn so that the time spent beyond a
 * peak is kept. *pPhase receives the phase of the sample after the last,
 * phase + 2 pi len rFreq reduced to [0, 2 pi) (0 if it rounds to 2 pi), so
 * consecutive calls draw one wave. Complex members: the imaginary part is
 * the same triangle a quarter period later in phase (phase - pi/2), i.e.
 * in quadrature. 16s and 16sc round to nearest, ties to even.
 *
 * Checks of the Direct members, in this order: pPhase null (-8), magn <= 0
 * (-43), rFreq outside [0, 0.5) (-42), asym outside [-pi, pi) (-40), *pPhase
 * outside [0, 2 pi) (-41); only then pDst null (-8) and len < 1 (-6).
 *
 * Q15 members take rFreq, phase and asym as q / 32768: rFreqQ15 in
 * [0, 16383], phaseQ15 in [0, 205886] (compared as unsigned), asymQ15 in
 * [-102943, 102943]; magn >= 1. zamsTriangleQ15_Direct_16s checks pDst
 * (-8), len (-6), then magn, rFreq, phase, asym (-43, -42, -41, -40) and
 * returns no phase. The Q15 state (zamsTriangleGetStateSizeQ15_16s reports
 * 128 bytes; built at pState itself, 8-byte aligned memory) keeps the
 * parameters in double precision and the running value of the wave, so
 * consecutive zamsTriangleQ15_16s calls continue it exactly: 10 samples
 * equal 3 and then 7. zamsTriangleFree releases what InitAlloc allocated
 * and invalidates a state in caller memory.
 */
typedef struct ZamsTriangleState_16s ZamsTriangleState_16s;

ZAMSAPI zamStatus zamsTriangle_Direct_32f(Zam32f* pDst, int len, Zam32f magn, Zam32f rFreq, Zam32f asym, Zam32f* pPhase);
ZAMSAPI zamStatus zamsTriangle_Direct_64f(Zam64f* pDst, int len, Zam64f magn, Zam64f rFreq, Zam64f asym, Zam64f* pPhase);
ZAMSAPI zamStatus zamsTriangle_Direct_16s(Zam16s* pDst, int len, Zam16s magn, Zam32f rFreq, Zam32f asym, Zam32f* pPhase);
ZAMSAPI zamStatus zamsTriangle_Direct_32fc(Zam32fc* pDst, int len, Zam32f magn, Zam32f rFreq, Zam32f asym, Zam32f* pPhase);
ZAMSAPI zamStatus zamsTriangle_Direct_64fc(Zam64fc* pDst, int len, Zam64f magn, Zam64f rFreq, Zam64f asym, Zam64f* pPhase);
ZAMSAPI zamStatus zamsTriangle_Direct_16sc(Zam16sc* pDst, int len, Zam16s magn, Zam32f rFreq, Zam32f asym, Zam32f* pPhase);
ZAMSAPI zamStatus zamsTriangleQ15_Direct_16s(Zam16s* pDst, int len, Zam16s magn, Zam16s rFreqQ15, Zam32s phaseQ15, Zam32s asymQ15);
ZAMSAPI zamStatus zamsTriangleGetStateSizeQ15_16s(int* pSize);
ZAMSAPI zamStatus zamsTriangleInitQ15_16s(ZamsTriangleState_16s* pState, Zam16s magn, Zam16s rFreqQ15, Zam32s phaseQ15, Zam32s asymQ15);
ZAMSAPI zamStatus zamsTriangleInitAllocQ15_16s(ZamsTriangleState_16s** ppState, Zam16s magn, Zam16s rFreqQ15, Zam32s phaseQ15, Zam32s asymQ15);
ZAMSAPI zamStatus zamsTriangleQ15_16s(Zam16s* pDst, int len, ZamsTriangleState_16s* pState);
ZAMSAPI zamStatus zamsTriangleFree(ZamsTriangleState_16s* pState);

/* ---- Tone --------------------------------------------------------------
 * Real members: pDst[n] = magn cos(2 pi rFreq n + phase); complex members:
 * magn (cos + i sin) of the same angle. rFreq in [0, 0.5), phase in
 * [0, 2 pi), magn > 0. The angle is reduced exactly (rFreq n in cycles,
 * without rounding, every 32 or 256 samples) and a rotation carries it
 * between those points, so long tones do not drift: the error does not
 * grow with n (within 1e-13 relative for the double members). *pPhase
 * receives the phase of the sample after the last (0 if it rounds to
 * 2 pi), so consecutive calls draw one tone. 16s and 16sc round to
 * nearest, ties to even.
 *
 * Checks, as the triangle's: pPhase null (-8), magn <= 0 (-46), rFreq
 * outside [0, 0.5) (-45), *pPhase outside [0, 2 pi) (-44); then pDst null
 * (-8) and len < 1 (-6). Q15 members as the triangle's Q15 members (magn >=
 * 1, rFreqQ15 in [0, 16383], phaseQ15 in [0, 205886]); the Q15 state
 * (zamsToneGetStateSizeQ15_16s reports 64 bytes; built at pState itself,
 * 8-byte aligned memory) counts the samples it has produced, so
 * consecutive zamsToneQ15_16s calls give exactly the samples of one call.
 */
typedef struct ZamsToneState_16s ZamsToneState_16s;

ZAMSAPI zamStatus zamsTone_Direct_32f(Zam32f* pDst, int len, Zam32f magn, Zam32f rFreq, Zam32f* pPhase);
ZAMSAPI zamStatus zamsTone_Direct_64f(Zam64f* pDst, int len, Zam64f magn, Zam64f rFreq, Zam64f* pPhase);
ZAMSAPI zamStatus zamsTone_Direct_16s(Zam16s* pDst, int len, Zam16s magn, Zam32f rFreq, Zam32f* pPhase);
ZAMSAPI zamStatus zamsTone_Direct_32fc(Zam32fc* pDst, int len, Zam32f magn, Zam32f rFreq, Zam32f* pPhase);
ZAMSAPI zamStatus zamsTone_Direct_64fc(Zam64fc* pDst, int len, Zam64f magn, Zam64f rFreq, Zam64f* pPhase);
ZAMSAPI zamStatus zamsTone_Direct_16sc(Zam16sc* pDst, int len, Zam16s magn, Zam32f rFreq, Zam32f* pPhase);
ZAMSAPI zamStatus zamsToneQ15_Direct_16s(Zam16s* pDst, int len, Zam16s magn, Zam16s rFreqQ15, Zam32s phaseQ15);
ZAMSAPI zamStatus zamsToneGetStateSizeQ15_16s(int* pSize);
ZAMSAPI zamStatus zamsToneInitQ15_16s(ZamsToneState_16s* pState, Zam16s magn, Zam16s rFreqQ15, Zam32s phaseQ15);
ZAMSAPI zamStatus zamsToneInitAllocQ15_16s(ZamsToneState_16s** ppState, Zam16s magn, Zam16s rFreqQ15, Zam32s phaseQ15);
ZAMSAPI zamStatus zamsToneQ15_16s(Zam16s* pDst, int len, ZamsToneState_16s* pState);
ZAMSAPI zamStatus zamsToneFree(ZamsToneState_16s* pState);

/* ---- Test vectors ------------------------------------------------------
 * Jaehne:  pDst[n] = magn sin(pi n^2 / (2 len)), a chirp from 0 to half the
 *          sampling rate; magn < 0 gives zamStatusBadArgument (-5).
 * Ramp:    pDst[n] = offset + slope n, offset and slope in single precision.
 * Slope:   pDst[n] = offset + slope n, offset and slope in double precision.
 * Computed in double precision; integer members round to nearest, ties to
 * even, and saturate (the Jaehne vector of an unsigned type keeps its
 * positive half-waves), 32f rounds to nearest. Checks: pDst (-8), len (-6),
 * then magn.
 */
ZAMSAPI zamStatus zamsVectorJaehne_8u(Zam8u* pDst, int len, Zam8u magn);
ZAMSAPI zamStatus zamsVectorJaehne_8s(Zam8s* pDst, int len, Zam8s magn);
ZAMSAPI zamStatus zamsVectorJaehne_16u(Zam16u* pDst, int len, Zam16u magn);
ZAMSAPI zamStatus zamsVectorJaehne_16s(Zam16s* pDst, int len, Zam16s magn);
ZAMSAPI zamStatus zamsVectorJaehne_32u(Zam32u* pDst, int len, Zam32u magn);
ZAMSAPI zamStatus zamsVectorJaehne_32s(Zam32s* pDst, int len, Zam32s magn);
ZAMSAPI zamStatus zamsVectorJaehne_32f(Zam32f* pDst, int len, Zam32f magn);
ZAMSAPI zamStatus zamsVectorJaehne_64f(Zam64f* pDst, int len, Zam64f magn);
ZAMSAPI zamStatus zamsVectorRamp_8u(Zam8u* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorRamp_8s(Zam8s* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorRamp_16u(Zam16u* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorRamp_16s(Zam16s* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorRamp_32u(Zam32u* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorRamp_32s(Zam32s* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorRamp_32f(Zam32f* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorRamp_64f(Zam64f* pDst, int len, Zam32f offset, Zam32f slope);
ZAMSAPI zamStatus zamsVectorSlope_8u(Zam8u* pDst, int len, Zam64f offset, Zam64f slope);
ZAMSAPI zamStatus zamsVectorSlope_8s(Zam8s* pDst, int len, Zam64f offset, Zam64f slope);
ZAMSAPI zamStatus zamsVectorSlope_16u(Zam16u* pDst, int len, Zam64f offset, Zam64f slope);
ZAMSAPI zamStatus zamsVectorSlope_16s(Zam16s* pDst, int len, Zam64f offset, Zam64f slope);
ZAMSAPI zamStatus zamsVectorSlope_32u(Zam32u* pDst, int len, Zam64f offset, Zam64f slope);
ZAMSAPI zamStatus zamsVectorSlope_32s(Zam32s* pDst, int len, Zam64f offset, Zam64f slope);
ZAMSAPI zamStatus zamsVectorSlope_32f(Zam32f* pDst, int len, Zam64f offset, Zam64f slope);
ZAMSAPI zamStatus zamsVectorSlope_64f(Zam64f* pDst, int len, Zam64f offset, Zam64f slope);

#endif
