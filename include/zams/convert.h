/* Conversion between sample types.
 *
 * Integer results saturate to the destination's range, silently. Scale
 * factors multiply the result by 2^-scaleFactor; a factor outside a member's
 * clamp acts as the clamp bound, none is ever rejected. Packed 24-bit vectors
 * are byte arrays of 3 bytes a sample, least significant byte first; lengths
 * count samples. Lengths below 1 give zamStatusBadLength, except where a
 * member says that only 0 is rejected: there a negative length is taken as
 * an unsigned count.
 */
#ifndef ZAMS_CONVERT_H
#define ZAMS_CONVERT_H

/* ---- widening and exact conversions ---- */
ZAMSAPI zamStatus zamsConvert_8s16s(const Zam8s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsConvert_8s32f(const Zam8s* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_8u32f(const Zam8u* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_16s32s(const Zam16s* pSrc, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsConvert_16s32f(const Zam16s* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_16u32f(const Zam16u* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_24s32s(const Zam24s* pSrc, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsConvert_24s32f(const Zam24s* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_24u32u(const Zam24u* pSrc, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsConvert_24u32f(const Zam24u* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_32s64f(const Zam32s* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_32f64f(const Zam32f* pSrc, Zam64f* pDst, int len);

/* ---- integer to floating point; _Sfs multiplies by 2^-scaleFactor ---- */
/* Rounded in the processor's current direction (nearest-even by default). */
ZAMSAPI zamStatus zamsConvert_32s32f(const Zam32s* pSrc, Zam32f* pDst, int len);
/* Factor clamped to [-112, 126]. */
ZAMSAPI zamStatus zamsConvert_16s32f_Sfs(const Zam16s* pSrc, Zam32f* pDst, int len, int scaleFactor);
/* Factor clamped to [-1008, 1022]. */
ZAMSAPI zamStatus zamsConvert_16s64f_Sfs(const Zam16s* pSrc, Zam64f* pDst, int len, int scaleFactor);
/* Factor clamped to [-96, 126]. */
ZAMSAPI zamStatus zamsConvert_32s32f_Sfs(const Zam32s* pSrc, Zam32f* pDst, int len, int scaleFactor);
/* Factor clamped to [-992, 1022]. */
ZAMSAPI zamStatus zamsConvert_32s64f_Sfs(const Zam32s* pSrc, Zam64f* pDst, int len, int scaleFactor);
/* Nearest-even. Only len == 0 is rejected. */
ZAMSAPI zamStatus zamsConvert_64s64f(const Zam64s* pSrc, Zam64f* pDst, int len);

/* ---- integer narrowing ---- */
ZAMSAPI zamStatus zamsConvert_32s16s(const Zam32s* pSrc, Zam16s* pDst, int len);
/* Nearest-even; factor clamped to [-15, 31]. */
ZAMSAPI zamStatus zamsConvert_32s16s_Sfs(const Zam32s* pSrc, Zam16s* pDst, int len, int scaleFactor);
/* Nearest-even; factor clamped to [-31, 31]. */
ZAMSAPI zamStatus zamsConvert_32s24s_Sfs(const Zam32s* pSrc, Zam24s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsConvert_32u24u_Sfs(const Zam32u* pSrc, Zam24u* pDst, int len, int scaleFactor);
/* Mode 0 toward zero, 1 nearest-even, any other half away from zero.
 * A factor of 18 or more clears the destination; below -6 only the sign
 * counts. Only len == 0 is rejected. */
ZAMSAPI zamStatus zamsConvert_16s8s_Sfs(const Zam16s* pSrc, Zam8s* pDst, int len, zamRoundMode rndMode,
                                        int scaleFactor);
/* Mode 0 toward zero, 1 nearest-even, any other half away; factor clamped to [-31, 63]. */
ZAMSAPI zamStatus zamsConvert_64s32s_Sfs(const Zam64s* pSrc, Zam32s* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);

/* ---- floating point to integer ----
 * The source is multiplied by 2^-scaleFactor (a single-precision power of
 * two: 0 from a factor of 150 up, infinite from -128 down), clamped to the
 * largest destination value (a NaN takes it), rounded by the mode (0 toward
 * zero, 1 nearest-even, any other half away from zero) and saturated. */
ZAMSAPI zamStatus zamsConvert_32f8s_Sfs(const Zam32f* pSrc, Zam8s* pDst, int len, zamRoundMode rndMode,
                                        int scaleFactor);
ZAMSAPI zamStatus zamsConvert_32f8u_Sfs(const Zam32f* pSrc, Zam8u* pDst, int len, zamRoundMode rndMode,
                                        int scaleFactor);
ZAMSAPI zamStatus zamsConvert_32f16s_Sfs(const Zam32f* pSrc, Zam16s* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);
ZAMSAPI zamStatus zamsConvert_32f16u_Sfs(const Zam32f* pSrc, Zam16u* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);
ZAMSAPI zamStatus zamsConvert_32f32s_Sfs(const Zam32f* pSrc, Zam32s* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);
ZAMSAPI zamStatus zamsConvert_64f16s_Sfs(const Zam64f* pSrc, Zam16s* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);
/* Here a NaN gives -2147483648. */
ZAMSAPI zamStatus zamsConvert_64f32s_Sfs(const Zam64f* pSrc, Zam32s* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);
/* Mode 2 half away, 1 nearest-even, any other toward zero. Only len == 0 is rejected. */
ZAMSAPI zamStatus zamsConvert_64f64s_Sfs(const Zam64f* pSrc, Zam64s* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);
/* No mode: nearest-even. */
ZAMSAPI zamStatus zamsConvert_32f24s_Sfs(const Zam32f* pSrc, Zam24s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsConvert_32f24u_Sfs(const Zam32f* pSrc, Zam24u* pDst, int len, int scaleFactor);

/* ---- floating point narrowing ---- */
/* Values beyond the single range take the largest finite single value. */
ZAMSAPI zamStatus zamsConvert_64f32f(const Zam64f* pSrc, Zam32f* pDst, int len);

/* ---- half precision ----
 * Mode 1 rounds to nearest-even, 2 gives zamStatusBadRoundMode, any other
 * value rounds toward zero. Sub-normal half values are produced. */
ZAMSAPI zamStatus zamsConvert_16f32f(const Zam16f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsConvert_32f16f(const Zam32f* pSrc, Zam16f* pDst, int len, zamRoundMode rndMode);
ZAMSAPI zamStatus zamsConvert_16s16f(const Zam16s* pSrc, Zam16f* pDst, int len, zamRoundMode rndMode);
/* NaN gives 0, infinities saturate; any factor is accepted. */
ZAMSAPI zamStatus zamsConvert_16f16s_Sfs(const Zam16f* pSrc, Zam16s* pDst, int len, zamRoundMode rndMode,
                                         int scaleFactor);

/* ---- multi-channel split and join, normalised to [-1, 1] ----
 * Channel c of frame i is element i * nChannels + c of the interleaved
 * buffer. Split maps x to (2x + 1) / (2^bits - 1); join clamps to [-1, 1] and
 * inverts it with rounding to nearest-even. The interleaved buffer's pointer
 * is checked first, then the counts, then the channel pointers. */
ZAMSAPI zamStatus zamsSplitScaled_16s32f_D2L(const Zam16s* pSrc, Zam32f** ppDst, int nChannels, int chanLen);
ZAMSAPI zamStatus zamsSplitScaled_24s32f_D2L(const Zam24s* pSrc, Zam32f** ppDst, int nChannels, int chanLen);
ZAMSAPI zamStatus zamsJoinScaled_32f16s_D2L(const Zam32f* const* ppSrc, int nChannels, int chanLen, Zam16s* pDst);
ZAMSAPI zamStatus zamsJoinScaled_32f24s_D2L(const Zam32f* const* ppSrc, int nChannels, int chanLen, Zam24s* pDst);

#endif
