/* Correlation and convolution of whole signals.
 *
 *   AutoCorr    r[k] = sum over n of conj(x[n]) x[n+k], lags k = 0 .. dstLen-1; lags at or
 *               beyond srcLen are 0. NormA divides every lag by srcLen, NormB lag k by the
 *               number of its terms, srcLen - k.
 *   CrossCorr   pDst[n] = sum over k of conj(pSrc1[k]) pSrc2[k + lowLag + n], n = 0 .. dstLen-1,
 *               terms outside either source left out: lags outside [1 - src1Len, src2Len - 1]
 *               give 0.
 *   Conv        pDst[n] = sum over k of pSrc1[k] pSrc2[n-k], n = 0 .. src1Len + src2Len - 2.
 *   ConvBiased  the outputs bias .. bias + dstLen - 1 of Conv (0 where Conv has none).
 *   ConvCyclic  the cyclic convolution of two 4- or 8-point vectors,
 *               pDst[n] = sum over k of pSrc1[k] pSrc2[(n - k) mod size].
 *
 * The conjugate of the first source applies to the complex members only. Floating members
 * sum directly for short work and through FFT sections for long work, so results agree with
 * an exact sum to the rounding of either path: auto-correlations from 856 computed lags on,
 * cross-correlations when min(src1Len, src2Len) x (lags to compute) / max(src1Len, src2Len)
 * exceeds 383, convolutions from 512 outputs when the shorter source has 64 values or more.
 * Those paths allocate for the call and release before returning (-9 when memory cannot be
 * had).
 *
 * 16-bit members are exact: the integer sum of products, scaled by 2^-scaleFactor (NormA,
 * NormB: divided by their count and scaled in one step), rounded to nearest with ties to
 * even, saturated to 16 bits. CrossCorr_16s64s keeps the exact sums.
 *
 * Checks: pointers (-8), then lengths (-6). The cyclic convolutions check nothing and
 * return 0 for any arguments; with a null pointer they do nothing. */
#ifndef ZAMS_CONV_H
#define ZAMS_CONV_H

ZAMSAPI zamStatus zamsAutoCorr_32f(const Zam32f* pSrc, int srcLen, Zam32f* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormA_32f(const Zam32f* pSrc, int srcLen, Zam32f* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormB_32f(const Zam32f* pSrc, int srcLen, Zam32f* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_64f(const Zam64f* pSrc, int srcLen, Zam64f* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormA_64f(const Zam64f* pSrc, int srcLen, Zam64f* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormB_64f(const Zam64f* pSrc, int srcLen, Zam64f* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_32fc(const Zam32fc* pSrc, int srcLen, Zam32fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormA_32fc(const Zam32fc* pSrc, int srcLen, Zam32fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormB_32fc(const Zam32fc* pSrc, int srcLen, Zam32fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_64fc(const Zam64fc* pSrc, int srcLen, Zam64fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormA_64fc(const Zam64fc* pSrc, int srcLen, Zam64fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_NormB_64fc(const Zam64fc* pSrc, int srcLen, Zam64fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsAutoCorr_16s_Sfs(const Zam16s* pSrc, int srcLen, Zam16s* pDst, int dstLen, int scaleFactor);
ZAMSAPI zamStatus zamsAutoCorr_NormA_16s_Sfs(const Zam16s* pSrc, int srcLen, Zam16s* pDst, int dstLen, int scaleFactor);
ZAMSAPI zamStatus zamsAutoCorr_NormB_16s_Sfs(const Zam16s* pSrc, int srcLen, Zam16s* pDst, int dstLen, int scaleFactor);

ZAMSAPI zamStatus zamsCrossCorr_32f(const Zam32f* pSrc1, int src1Len, const Zam32f* pSrc2, int src2Len, Zam32f* pDst,
                                    int dstLen, int lowLag);
ZAMSAPI zamStatus zamsCrossCorr_64f(const Zam64f* pSrc1, int src1Len, const Zam64f* pSrc2, int src2Len, Zam64f* pDst,
                                    int dstLen, int lowLag);
ZAMSAPI zamStatus zamsCrossCorr_32fc(const Zam32fc* pSrc1, int src1Len, const Zam32fc* pSrc2, int src2Len,
                                     Zam32fc* pDst, int dstLen, int lowLag);
ZAMSAPI zamStatus zamsCrossCorr_64fc(const Zam64fc* pSrc1, int src1Len, const Zam64fc* pSrc2, int src2Len,
                                     Zam64fc* pDst, int dstLen, int lowLag);
ZAMSAPI zamStatus zamsCrossCorr_16s_Sfs(const Zam16s* pSrc1, int src1Len, const Zam16s* pSrc2, int src2Len,
                                        Zam16s* pDst, int dstLen, int lowLag, int scaleFactor);
ZAMSAPI zamStatus zamsCrossCorr_16s64s(const Zam16s* pSrc1, int src1Len, const Zam16s* pSrc2, int src2Len,
                                       Zam64s* pDst, int dstLen, int lowLag);

ZAMSAPI zamStatus zamsConv_32f(const Zam32f* pSrc1, int src1Len, const Zam32f* pSrc2, int src2Len, Zam32f* pDst);
ZAMSAPI zamStatus zamsConv_64f(const Zam64f* pSrc1, int src1Len, const Zam64f* pSrc2, int src2Len, Zam64f* pDst);
ZAMSAPI zamStatus zamsConv_16s_Sfs(const Zam16s* pSrc1, int src1Len, const Zam16s* pSrc2, int src2Len, Zam16s* pDst,
                                   int scaleFactor);
ZAMSAPI zamStatus zamsConvBiased_32f(const Zam32f* pSrc1, int src1Len, const Zam32f* pSrc2, int src2Len, Zam32f* pDst,
                                     int dstLen, int bias);

ZAMSAPI zamStatus zamsConvCyclic4x4_32f32fc(const Zam32f* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst);
ZAMSAPI zamStatus zamsConvCyclic8x8_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst);
ZAMSAPI zamStatus zamsConvCyclic8x8_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int scaleFactor);

#endif
