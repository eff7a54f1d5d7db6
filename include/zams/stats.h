/* Reductions: sums, means, deviations, extremes, norms, dot products.
 * Results go to the caller's cells only; pointers are checked first (-8), then the length (-6). */
#ifndef ZAMS_STATS_H
#define ZAMS_STATS_H

/* Sums. Integer sums are exact, then scaled by 2^-scaleFactor (nearest, ties to even) and saturated.
 * Floating sums: hint zamAlgHintFast (1) adds in single precision, any other hint in double
 * precision; 64-bit sums are accumulated with a running error term. */
ZAMSAPI zamStatus zamsSum_16s_Sfs(const Zam16s* pSrc, int len, Zam16s* pSum, int scaleFactor);
ZAMSAPI zamStatus zamsSum_16s32s_Sfs(const Zam16s* pSrc, int len, Zam32s* pSum, int scaleFactor);
ZAMSAPI zamStatus zamsSum_16sc_Sfs(const Zam16sc* pSrc, int len, Zam16sc* pSum, int scaleFactor);
ZAMSAPI zamStatus zamsSum_16sc32sc_Sfs(const Zam16sc* pSrc, int len, Zam32sc* pSum, int scaleFactor);
ZAMSAPI zamStatus zamsSum_32s_Sfs(const Zam32s* pSrc, int len, Zam32s* pSum, int scaleFactor);
ZAMSAPI zamStatus zamsSum_32f(const Zam32f* pSrc, int len, Zam32f* pSum, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsSum_32fc(const Zam32fc* pSrc, int len, Zam32fc* pSum, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsSum_64f(const Zam64f* pSrc, int len, Zam64f* pSum);
ZAMSAPI zamStatus zamsSum_64fc(const Zam64fc* pSrc, int len, Zam64fc* pSum);

/* Means: the sum divided by len, rounded once (integers: scaled, nearest, ties to even, saturated). */
ZAMSAPI zamStatus zamsMean_16s_Sfs(const Zam16s* pSrc, int len, Zam16s* pMean, int scaleFactor);
ZAMSAPI zamStatus zamsMean_16sc_Sfs(const Zam16sc* pSrc, int len, Zam16sc* pMean, int scaleFactor);
ZAMSAPI zamStatus zamsMean_32s_Sfs(const Zam32s* pSrc, int len, Zam32s* pMean, int scaleFactor);
ZAMSAPI zamStatus zamsMean_32f(const Zam32f* pSrc, int len, Zam32f* pMean, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsMean_32fc(const Zam32fc* pSrc, int len, Zam32fc* pMean, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsMean_64f(const Zam64f* pSrc, int len, Zam64f* pMean);
ZAMSAPI zamStatus zamsMean_64fc(const Zam64fc* pSrc, int len, Zam64fc* pMean);

/* Sample standard deviation sqrt((len S2 - S1^2) / ((len - 1) len)); len < 2 gives -6.
 * StdDev_16s_Sfs limits the scaled result to 32767. */
ZAMSAPI zamStatus zamsStdDev_16s_Sfs(const Zam16s* pSrc, int len, Zam16s* pStdDev, int scaleFactor);
ZAMSAPI zamStatus zamsStdDev_16s32s_Sfs(const Zam16s* pSrc, int len, Zam32s* pStdDev, int scaleFactor);
ZAMSAPI zamStatus zamsStdDev_32f(const Zam32f* pSrc, int len, Zam32f* pStdDev, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsStdDev_64f(const Zam64f* pSrc, int len, Zam64f* pStdDev);
ZAMSAPI zamStatus zamsMeanStdDev_16s_Sfs(const Zam16s* pSrc, int len, Zam16s* pMean, Zam16s* pStdDev, int scaleFactor);
ZAMSAPI zamStatus zamsMeanStdDev_16s32s_Sfs(const Zam16s* pSrc, int len, Zam32s* pMean, Zam32s* pStdDev, int scaleFactor);
ZAMSAPI zamStatus zamsMeanStdDev_32f(const Zam32f* pSrc, int len, Zam32f* pMean, Zam32f* pStdDev, zamHintAlgorithm hint);
ZAMSAPI zamStatus zamsMeanStdDev_64f(const Zam64f* pSrc, int len, Zam64f* pMean, Zam64f* pStdDev);

/* Extremes. Scanning from the first element, a later element replaces the candidate only when it is
 * strictly greater (smaller): indices are those of the first occurrence, and a NaN is never taken
 * unless it is the first element. MaxAbs/MinAbs saturate |-32768| to 32767 (|INT32_MIN| likewise).
 * The index pointer of MaxIndx/MinIndx may be null. */
ZAMSAPI zamStatus zamsMax_16s(const Zam16s* pSrc, int len, Zam16s* pMax);
ZAMSAPI zamStatus zamsMax_32s(const Zam32s* pSrc, int len, Zam32s* pMax);
ZAMSAPI zamStatus zamsMax_32f(const Zam32f* pSrc, int len, Zam32f* pMax);
ZAMSAPI zamStatus zamsMax_64f(const Zam64f* pSrc, int len, Zam64f* pMax);
ZAMSAPI zamStatus zamsMaxAbs_16s(const Zam16s* pSrc, int len, Zam16s* pMaxAbs);
ZAMSAPI zamStatus zamsMaxAbs_32s(const Zam32s* pSrc, int len, Zam32s* pMaxAbs);
ZAMSAPI zamStatus zamsMaxIndx_16s(const Zam16s* pSrc, int len, Zam16s* pMax, int* pIndx);
ZAMSAPI zamStatus zamsMaxIndx_32s(const Zam32s* pSrc, int len, Zam32s* pMax, int* pIndx);
ZAMSAPI zamStatus zamsMaxIndx_32f(const Zam32f* pSrc, int len, Zam32f* pMax, int* pIndx);
ZAMSAPI zamStatus zamsMaxIndx_64f(const Zam64f* pSrc, int len, Zam64f* pMax, int* pIndx);
ZAMSAPI zamStatus zamsMaxAbsIndx_16s(const Zam16s* pSrc, int len, Zam16s* pMaxAbs, int* pIndx);
ZAMSAPI zamStatus zamsMaxAbsIndx_32s(const Zam32s* pSrc, int len, Zam32s* pMaxAbs, int* pIndx);
ZAMSAPI zamStatus zamsMin_16s(const Zam16s* pSrc, int len, Zam16s* pMin);
ZAMSAPI zamStatus zamsMin_32s(const Zam32s* pSrc, int len, Zam32s* pMin);
ZAMSAPI zamStatus zamsMin_32f(const Zam32f* pSrc, int len, Zam32f* pMin);
ZAMSAPI zamStatus zamsMin_64f(const Zam64f* pSrc, int len, Zam64f* pMin);
ZAMSAPI zamStatus zamsMinAbs_16s(const Zam16s* pSrc, int len, Zam16s* pMinAbs);
ZAMSAPI zamStatus zamsMinAbs_32s(const Zam32s* pSrc, int len, Zam32s* pMinAbs);
ZAMSAPI zamStatus zamsMinIndx_16s(const Zam16s* pSrc, int len, Zam16s* pMin, int* pIndx);
ZAMSAPI zamStatus zamsMinIndx_32s(const Zam32s* pSrc, int len, Zam32s* pMin, int* pIndx);
ZAMSAPI zamStatus zamsMinIndx_32f(const Zam32f* pSrc, int len, Zam32f* pMin, int* pIndx);
ZAMSAPI zamStatus zamsMinIndx_64f(const Zam64f* pSrc, int len, Zam64f* pMin, int* pIndx);
ZAMSAPI zamStatus zamsMinAbsIndx_16s(const Zam16s* pSrc, int len, Zam16s* pMinAbs, int* pIndx);
ZAMSAPI zamStatus zamsMinAbsIndx_32s(const Zam32s* pSrc, int len, Zam32s* pMinAbs, int* pIndx);
/* Floating MaxAbs/MinAbs: |x| with the sign bit cleared, by the same scan (a NaN only as the first element). */
ZAMSAPI zamStatus zamsMaxAbs_32f(const Zam32f* pSrc, int len, Zam32f* pMaxAbs);
ZAMSAPI zamStatus zamsMinAbs_32f(const Zam32f* pSrc, int len, Zam32f* pMinAbs);
ZAMSAPI zamStatus zamsMaxAbsIndx_32f(const Zam32f* pSrc, int len, Zam32f* pMaxAbs, int* pIndx);
ZAMSAPI zamStatus zamsMinAbsIndx_32f(const Zam32f* pSrc, int len, Zam32f* pMinAbs, int* pIndx);
ZAMSAPI zamStatus zamsMaxAbs_64f(const Zam64f* pSrc, int len, Zam64f* pMaxAbs);
ZAMSAPI zamStatus zamsMinAbs_64f(const Zam64f* pSrc, int len, Zam64f* pMinAbs);
ZAMSAPI zamStatus zamsMaxAbsIndx_64f(const Zam64f* pSrc, int len, Zam64f* pMaxAbs, int* pIndx);
ZAMSAPI zamStatus zamsMinAbsIndx_64f(const Zam64f* pSrc, int len, Zam64f* pMinAbs, int* pIndx);
ZAMSAPI zamStatus zamsMinMax_8u(const Zam8u* pSrc, int len, Zam8u* pMin, Zam8u* pMax);
ZAMSAPI zamStatus zamsMinMax_16s(const Zam16s* pSrc, int len, Zam16s* pMin, Zam16s* pMax);
ZAMSAPI zamStatus zamsMinMax_16u(const Zam16u* pSrc, int len, Zam16u* pMin, Zam16u* pMax);
ZAMSAPI zamStatus zamsMinMax_32s(const Zam32s* pSrc, int len, Zam32s* pMin, Zam32s* pMax);
ZAMSAPI zamStatus zamsMinMax_32u(const Zam32u* pSrc, int len, Zam32u* pMin, Zam32u* pMax);
ZAMSAPI zamStatus zamsMinMax_32f(const Zam32f* pSrc, int len, Zam32f* pMin, Zam32f* pMax);
ZAMSAPI zamStatus zamsMinMax_64f(const Zam64f* pSrc, int len, Zam64f* pMin, Zam64f* pMax);
ZAMSAPI zamStatus zamsMinMaxIndx_8u(const Zam8u* pSrc, int len, Zam8u* pMin, int* pMinIndx, Zam8u* pMax, int* pMaxIndx);
ZAMSAPI zamStatus zamsMinMaxIndx_16s(const Zam16s* pSrc, int len, Zam16s* pMin, int* pMinIndx, Zam16s* pMax, int* pMaxIndx);
ZAMSAPI zamStatus zamsMinMaxIndx_16u(const Zam16u* pSrc, int len, Zam16u* pMin, int* pMinIndx, Zam16u* pMax, int* pMaxIndx);
ZAMSAPI zamStatus zamsMinMaxIndx_32s(const Zam32s* pSrc, int len, Zam32s* pMin, int* pMinIndx, Zam32s* pMax, int* pMaxIndx);
ZAMSAPI zamStatus zamsMinMaxIndx_32u(const Zam32u* pSrc, int len, Zam32u* pMin, int* pMinIndx, Zam32u* pMax, int* pMaxIndx);
ZAMSAPI zamStatus zamsMinMaxIndx_32f(const Zam32f* pSrc, int len, Zam32f* pMin, int* pMinIndx, Zam32f* pMax, int* pMaxIndx);
ZAMSAPI zamStatus zamsMinMaxIndx_64f(const Zam64f* pSrc, int len, Zam64f* pMin, int* pMinIndx, Zam64f* pMax, int* pMaxIndx);

/* Element-wise extremes of two vectors: a > b ? a : b (MinEvery: a < b ? a : b) with a from pSrc1
 * (pSrc for _I) and b from pSrc2 (pSrcDst for _I). */
ZAMSAPI zamStatus zamsMaxEvery_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_16s_I(const Zam16s* pSrc, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_32s_I(const Zam32s* pSrc, Zam32s* pSrcDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMaxEvery_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMinEvery_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsMinEvery_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsMinEvery_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMinEvery_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMinEvery_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMinEvery_16s_I(const Zam16s* pSrc, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsMinEvery_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMinEvery_32s_I(const Zam32s* pSrc, Zam32s* pSrcDst, int len);
ZAMSAPI zamStatus zamsMinEvery_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMinEvery_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);

/* Order of the largest magnitude: the number of bits of max |x| for integers (0 when all are zero),
 * the binary exponent e with max |x| in [2^(e-1), 2^e) for floats (0 when all are zero; non-finite
 * elements are skipped and give the warning 9). The length is tested before the pointers. */
ZAMSAPI zamStatus zamsMaxOrder_16s(const Zam16s* pSrc, int len, int* pOrder);
ZAMSAPI zamStatus zamsMaxOrder_32s(const Zam32s* pSrc, int len, int* pOrder);
ZAMSAPI zamStatus zamsMaxOrder_32f(const Zam32f* pSrc, int len, int* pOrder);
ZAMSAPI zamStatus zamsMaxOrder_64f(const Zam64f* pSrc, int len, int* pOrder);

/* Counts the elements with lowerBound < x < upperBound (both bounds exclusive). */
ZAMSAPI zamStatus zamsCountInRange_32s(const Zam32s* pSrc, int len, int* pCounts, Zam32s lowerBound, Zam32s upperBound);

/* Zero crossings between consecutive elements. zcType 0: sign changes, zero counted as positive;
 * 1: sum of |sgn x[n] - sgn x[n-1]| / 2 with sgn 0 = 0 (touching zero counts half); 2: the count of
 * kind 0 divided by len. Other kinds give -7. */
ZAMSAPI zamStatus zamsZeroCrossing_16s32f(const Zam16s* pSrc, int len, Zam32f* pValZC, int zcType);
ZAMSAPI zamStatus zamsZeroCrossing_32f(const Zam32f* pSrc, int len, Zam32f* pValZC, int zcType);

/* Sliding sums: pDst[n] = pSrc[n] + ... + pSrc[n + maskSize - 1] for n < len, exact and rounded once;
 * pSrc holds len + maskSize - 1 elements. maskSize < 1 gives -33. */
ZAMSAPI zamStatus zamsSumWindow_8u32f(const Zam8u* pSrc, Zam32f* pDst, int len, int maskSize);
ZAMSAPI zamStatus zamsSumWindow_16s32f(const Zam16s* pSrc, Zam32f* pDst, int len, int maskSize);

/* Norms of a vector and of the difference pSrc1 - pSrc2: Inf max |x|, L1 sum |x|, L2 sqrt(sum |x|^2),
 * L2Sqr sum |x|^2; complex elements by their magnitude. Floating norms accumulate in double precision.
 * L2_16s32s_Sfs takes the root in double precision, divides (multiplies) by 2^(sf mod 32) for a
 * positive (negative) factor, saturates and truncates toward zero; the other _Sfs members scale the
 * exact result with rounding to nearest, ties to even. */
ZAMSAPI zamStatus zamsNorm_Inf_32f(const Zam32f* pSrc, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNorm_Inf_64f(const Zam64f* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_Inf_16s32f(const Zam16s* pSrc, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNorm_Inf_16s32s_Sfs(const Zam16s* pSrc, int len, Zam32s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNorm_Inf_32fc32f(const Zam32fc* pSrc, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNorm_Inf_64fc64f(const Zam64fc* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_L1_32f(const Zam32f* pSrc, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNorm_L1_64f(const Zam64f* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_L1_16s32f(const Zam16s* pSrc, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNorm_L1_16s32s_Sfs(const Zam16s* pSrc, int len, Zam32s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNorm_L1_32fc64f(const Zam32fc* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_L1_64fc64f(const Zam64fc* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_L1_16s64s_Sfs(const Zam16s* pSrc, int len, Zam64s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNorm_L2_32f(const Zam32f* pSrc, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNorm_L2_64f(const Zam64f* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_L2_16s32f(const Zam16s* pSrc, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNorm_L2_16s32s_Sfs(const Zam16s* pSrc, int len, Zam32s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNorm_L2_32fc64f(const Zam32fc* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_L2_64fc64f(const Zam64fc* pSrc, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNorm_L2Sqr_16s64s_Sfs(const Zam16s* pSrc, int len, Zam64s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNormDiff_Inf_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_Inf_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_Inf_16s32f(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_Inf_16s32s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNormDiff_Inf_32fc32f(const Zam32fc* pSrc1, const Zam32fc* pSrc2, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_Inf_64fc64f(const Zam64fc* pSrc1, const Zam64fc* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L1_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L1_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L1_16s32f(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L1_16s32s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNormDiff_L1_32fc64f(const Zam32fc* pSrc1, const Zam32fc* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L1_64fc64f(const Zam64fc* pSrc1, const Zam64fc* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L1_16s64s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam64s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNormDiff_L2_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L2_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L2_16s32f(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L2_16s32s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32s* pNorm, int scaleFactor);
ZAMSAPI zamStatus zamsNormDiff_L2_32fc64f(const Zam32fc* pSrc1, const Zam32fc* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L2_64fc64f(const Zam64fc* pSrc1, const Zam64fc* pSrc2, int len, Zam64f* pNorm);
ZAMSAPI zamStatus zamsNormDiff_L2Sqr_16s64s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam64s* pNorm, int scaleFactor);

/* Dot products sum(pSrc1[n] pSrc2[n]) (no conjugation). Floating products accumulate in double
 * precision, integer ones exactly. The 16-bit-result _Sfs members saturate at factor 0, round to
 * nearest even for a positive factor (limited to 31) and shift left with saturation for a negative
 * one (limited to -15); the others scale the exact sum by the common rule. */
ZAMSAPI zamStatus zamsDotProd_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, int len, Zam32f* pDp);
ZAMSAPI zamStatus zamsDotProd_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, int len, Zam32fc* pDp);
ZAMSAPI zamStatus zamsDotProd_32f32fc(const Zam32f* pSrc1, const Zam32fc* pSrc2, int len, Zam32fc* pDp);
ZAMSAPI zamStatus zamsDotProd_32f64f(const Zam32f* pSrc1, const Zam32f* pSrc2, int len, Zam64f* pDp);
ZAMSAPI zamStatus zamsDotProd_32fc64fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, int len, Zam64fc* pDp);
ZAMSAPI zamStatus zamsDotProd_32f32fc64fc(const Zam32f* pSrc1, const Zam32fc* pSrc2, int len, Zam64fc* pDp);
ZAMSAPI zamStatus zamsDotProd_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, int len, Zam64f* pDp);
ZAMSAPI zamStatus zamsDotProd_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, int len, Zam64fc* pDp);
ZAMSAPI zamStatus zamsDotProd_64f64fc(const Zam64f* pSrc1, const Zam64fc* pSrc2, int len, Zam64fc* pDp);
ZAMSAPI zamStatus zamsDotProd_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam16s* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_16sc_Sfs(const Zam16sc* pSrc1, const Zam16sc* pSrc2, int len, Zam16sc* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_16s16sc_Sfs(const Zam16s* pSrc1, const Zam16sc* pSrc2, int len, Zam16sc* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_16s32f(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32f* pDp);
ZAMSAPI zamStatus zamsDotProd_16sc32fc(const Zam16sc* pSrc1, const Zam16sc* pSrc2, int len, Zam32fc* pDp);
ZAMSAPI zamStatus zamsDotProd_16s16sc32fc(const Zam16s* pSrc1, const Zam16sc* pSrc2, int len, Zam32fc* pDp);
ZAMSAPI zamStatus zamsDotProd_16s64s(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam64s* pDp);
ZAMSAPI zamStatus zamsDotProd_16sc64sc(const Zam16sc* pSrc1, const Zam16sc* pSrc2, int len, Zam64sc* pDp);
ZAMSAPI zamStatus zamsDotProd_16s16sc64sc(const Zam16s* pSrc1, const Zam16sc* pSrc2, int len, Zam64sc* pDp);
ZAMSAPI zamStatus zamsDotProd_16s32s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, int len, Zam32s* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_16s32s32s_Sfs(const Zam16s* pSrc1, const Zam32s* pSrc2, int len, Zam32s* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_16s16sc32sc_Sfs(const Zam16s* pSrc1, const Zam16sc* pSrc2, int len, Zam32sc* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_16sc32sc_Sfs(const Zam16sc* pSrc1, const Zam16sc* pSrc2, int len, Zam32sc* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_32s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, int len, Zam32s* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_32sc_Sfs(const Zam32sc* pSrc1, const Zam32sc* pSrc2, int len, Zam32sc* pDp, int scaleFactor);
ZAMSAPI zamStatus zamsDotProd_32s32sc_Sfs(const Zam32s* pSrc1, const Zam32sc* pSrc2, int len, Zam32sc* pDp, int scaleFactor);

/* Sum of the natural logarithms of the elements, each logarithm taken in double precision. A zero
 * or negative element stops the sum: the first one met decides the result and the warning, minus
 * infinity with 7 for a zero, NaN with 8 for a negative value. */
ZAMSAPI zamStatus zamsSumLn_32f(const Zam32f* pSrc, int len, Zam32f* pSum);
ZAMSAPI zamStatus zamsSumLn_64f(const Zam64f* pSrc, int len, Zam64f* pSum);
ZAMSAPI zamStatus zamsSumLn_32f64f(const Zam32f* pSrc, int len, Zam64f* pSum);
ZAMSAPI zamStatus zamsSumLn_16s32f(const Zam16s* pSrc, int len, Zam32f* pSum);

/* pDst[n] = (pSrc[n] - vSub) / vDiv. A zero divisor gives -10 after the pointer and length checks,
 * with nothing written. Floating members round the difference and then the quotient (complex ones
 * divide in double precision); the _Sfs members take the exact (x - vSub) 2^-scaleFactor / vDiv,
 * rounded to nearest even and saturated, on each part of a complex element. */
ZAMSAPI zamStatus zamsNormalize_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f vSub, Zam32f vDiv);
ZAMSAPI zamStatus zamsNormalize_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f vSub, Zam64f vDiv);
ZAMSAPI zamStatus zamsNormalize_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32fc vSub, Zam32fc vDiv);
ZAMSAPI zamStatus zamsNormalize_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64fc vSub, Zam64fc vDiv);
ZAMSAPI zamStatus zamsNormalize_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s vSub, int vDiv, int scaleFactor);
ZAMSAPI zamStatus zamsNormalize_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16sc vSub, int vDiv, int scaleFactor);
ZAMSAPI zamStatus zamsNormalize_32f_I(Zam32f* pSrcDst, int len, Zam32f vSub, Zam32f vDiv);
ZAMSAPI zamStatus zamsNormalize_64f_I(Zam64f* pSrcDst, int len, Zam64f vSub, Zam64f vDiv);
ZAMSAPI zamStatus zamsNormalize_32fc_I(Zam32fc* pSrcDst, int len, Zam32fc vSub, Zam32fc vDiv);
ZAMSAPI zamStatus zamsNormalize_64fc_I(Zam64fc* pSrcDst, int len, Zam64fc vSub, Zam64fc vDiv);
ZAMSAPI zamStatus zamsNormalize_16s_ISfs(Zam16s* pSrcDst, int len, Zam16s vSub, int vDiv, int scaleFactor);
ZAMSAPI zamStatus zamsNormalize_16sc_ISfs(Zam16sc* pSrcDst, int len, Zam16sc vSub, int vDiv, int scaleFactor);

#endif
