/* Element-wise arithmetic (integer with scale factor, floating, complex), logic and shifts. */
#ifndef ZAMS_ARITH_H
#define ZAMS_ARITH_H

/* ---- scaled integer arithmetic ----
 * The exact integer result r of each element (computed without loss) is
 * multiplied by 2^-scaleFactor: a positive factor divides, rounding to
 * nearest with ties to even; a negative one multiplies; the result then
 * saturates to the destination type (complex: each part on its own).
 * Sub is the second source minus the first; SubC is x - val; SubCRev is
 * val - x. The _ISfs forms read pSrcDst as the second source (or as x).
 * Statuses: 0, -8 (a null pointer), -6 (len < 1), in that order; a factor that
 * shifts every result out, or a constant that makes the result trivial, hands
 * the call to zamsZero_*, zamsSet_* or zamsCopy_* and returns their status. */
ZAMSAPI zamStatus zamsAdd_8u_Sfs(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_8u_ISfs(const Zam8u* pSrc, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_16s_ISfs(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_16u_Sfs(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_16u_ISfs(const Zam16u* pSrc, Zam16u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_32s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_32s_ISfs(const Zam32s* pSrc, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_16sc_Sfs(const Zam16sc* pSrc1, const Zam16sc* pSrc2, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_16sc_ISfs(const Zam16sc* pSrc, Zam16sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_32sc_Sfs(const Zam32sc* pSrc1, const Zam32sc* pSrc2, Zam32sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_32sc_ISfs(const Zam32sc* pSrc, Zam32sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_8u_Sfs(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_8u_ISfs(const Zam8u* pSrc, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_16s_ISfs(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_16u_Sfs(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_16u_ISfs(const Zam16u* pSrc, Zam16u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_32s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_32s_ISfs(const Zam32s* pSrc, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_16sc_Sfs(const Zam16sc* pSrc1, const Zam16sc* pSrc2, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_16sc_ISfs(const Zam16sc* pSrc, Zam16sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_32sc_Sfs(const Zam32sc* pSrc1, const Zam32sc* pSrc2, Zam32sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSub_32sc_ISfs(const Zam32sc* pSrc, Zam32sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_8u_Sfs(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_8u_ISfs(const Zam8u* pSrc, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_16s_ISfs(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_32s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_32s_ISfs(const Zam32s* pSrc, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_16sc_Sfs(const Zam16sc* pSrc1, const Zam16sc* pSrc2, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_16sc_ISfs(const Zam16sc* pSrc, Zam16sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_32sc_Sfs(const Zam32sc* pSrc1, const Zam32sc* pSrc2, Zam32sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_32sc_ISfs(const Zam32sc* pSrc, Zam32sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAdd_64s_Sfs(const Zam64s* pSrc1, const Zam64s* pSrc2, Zam64s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_8u_Sfs(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_8u_ISfs(Zam8u val, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_16s_Sfs(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_16s_ISfs(Zam16s val, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_16u_Sfs(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_16u_ISfs(Zam16u val, Zam16u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_32s_Sfs(const Zam32s* pSrc, Zam32s val, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_32s_ISfs(Zam32s val, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_32sc_Sfs(const Zam32sc* pSrc, Zam32sc val, Zam32sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddC_32sc_ISfs(Zam32sc val, Zam32sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_8u_Sfs(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_8u_ISfs(Zam8u val, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_16s_Sfs(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_16s_ISfs(Zam16s val, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_16u_Sfs(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_16u_ISfs(Zam16u val, Zam16u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_32s_Sfs(const Zam32s* pSrc, Zam32s val, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_32s_ISfs(Zam32s val, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_32sc_Sfs(const Zam32sc* pSrc, Zam32sc val, Zam32sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubC_32sc_ISfs(Zam32sc val, Zam32sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_8u_Sfs(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_8u_ISfs(Zam8u val, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_16s_Sfs(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_16s_ISfs(Zam16s val, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_16u_Sfs(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_16u_ISfs(Zam16u val, Zam16u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_32s_Sfs(const Zam32s* pSrc, Zam32s val, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_32s_ISfs(Zam32s val, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_32sc_Sfs(const Zam32sc* pSrc, Zam32sc val, Zam32sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSubCRev_32sc_ISfs(Zam32sc val, Zam32sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_8u_Sfs(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_8u_ISfs(Zam8u val, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_16s_Sfs(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_16s_ISfs(Zam16s val, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_32s_Sfs(const Zam32s* pSrc, Zam32s val, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_32s_ISfs(Zam32s val, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_16sc_Sfs(const Zam16sc* pSrc, Zam16sc val, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_16sc_ISfs(Zam16sc val, Zam16sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_32sc_Sfs(const Zam32sc* pSrc, Zam32sc val, Zam32sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulC_32sc_ISfs(Zam32sc val, Zam32sc* pSrcDst, int len, int scaleFactor);
/* Mixed widths: the first source's type, then the destination's. */
ZAMSAPI zamStatus zamsMul_16u16s_Sfs(const Zam16u* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_16s32s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMul_32s32sc_Sfs(const Zam32s* pSrc1, const Zam32sc* pSrc2, Zam32sc* pDst, int len, int scaleFactor);
/* The same results as zamsMul_32s_Sfs. */
ZAMSAPI zamStatus zamsMul_Low_32s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam32s* pDst, int len, int scaleFactor);
/* pSrcDst[i] = scaled, saturated (pSrcDst[i] + pSrc1[i] * pSrc2[i]). */
ZAMSAPI zamStatus zamsAddProduct_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddProduct_16s32s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsAddProduct_32s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam32s* pSrcDst, int len, int scaleFactor);

/* ---- saturating integer arithmetic without a scale factor ----
 * The _Sfs functions above at scaleFactor 0: the exact result saturated to
 * the type, with their statuses and hand-offs (so AddC_16s_I and SubC_16s_I
 * with val 0 return 0 at once). Mul_16u and MulC_16u have no scaled form. */
ZAMSAPI zamStatus zamsAdd_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsAdd_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAdd_16s(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsAdd_16s_I(const Zam16s* pSrc, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsAdd_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsAdd_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsSub_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_16s(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsSub_16s_I(const Zam16s* pSrc, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsSub_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsMul_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_16s(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsMul_16s_I(const Zam16s* pSrc, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsMul_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_8u(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsAddC_8u_I(Zam8u val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_16s(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsAddC_16s_I(Zam16s val, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsAddC_16u_I(Zam16u val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_8u(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsSubC_8u_I(Zam8u val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_16s(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsSubC_16s_I(Zam16s val, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsSubC_16u_I(Zam16u val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_8u(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_8u_I(Zam8u val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_16s(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_16s_I(Zam16s val, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_16u_I(Zam16u val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_8u(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsMulC_8u_I(Zam8u val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_16s(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsMulC_16s_I(Zam16s val, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsMulC_16u_I(Zam16u val, Zam16u* pSrcDst, int len);

/* ---- logic and shifts ----
 * Bitwise operations and shifts by a constant count (val, a signed count).
 * Trivial constants hand the call to the movement functions: AndC with 0
 * zeroes (only pSrc is checked first; the in-place form zeroes at once), OrC
 * and XorC with 0 copy (in place: checks, then 0 without touching the data).
 * Shifts: a count of 0 copies (in place: 0 after the checks); a count of the
 * element width or more gives zeros, except the arithmetic right shift of
 * 16s and 32s, which gives each element's sign fill (0 or -1); a negative
 * count gives -32 after the pointer and length checks. */
ZAMSAPI zamStatus zamsAnd_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsAnd_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAndC_8u(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsAndC_8u_I(Zam8u val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAnd_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsAnd_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAndC_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsAndC_16u_I(Zam16u val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAnd_32u(const Zam32u* pSrc1, const Zam32u* pSrc2, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsAnd_32u_I(const Zam32u* pSrc, Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsAndC_32u(const Zam32u* pSrc, Zam32u val, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsAndC_32u_I(Zam32u val, Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsOr_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsOr_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsOrC_8u(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsOrC_8u_I(Zam8u val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsOr_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsOr_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsOrC_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsOrC_16u_I(Zam16u val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsOr_32u(const Zam32u* pSrc1, const Zam32u* pSrc2, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsOr_32u_I(const Zam32u* pSrc, Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsOrC_32u(const Zam32u* pSrc, Zam32u val, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsOrC_32u_I(Zam32u val, Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsXor_8u(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsXor_8u_I(const Zam8u* pSrc, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsXorC_8u(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsXorC_8u_I(Zam8u val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsXor_16u(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsXor_16u_I(const Zam16u* pSrc, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsXorC_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsXorC_16u_I(Zam16u val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsXor_32u(const Zam32u* pSrc1, const Zam32u* pSrc2, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsXor_32u_I(const Zam32u* pSrc, Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsXorC_32u(const Zam32u* pSrc, Zam32u val, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsXorC_32u_I(Zam32u val, Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsNot_8u(const Zam8u* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsNot_8u_I(Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsNot_16u(const Zam16u* pSrc, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsNot_16u_I(Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsNot_32u(const Zam32u* pSrc, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsNot_32u_I(Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsLShiftC_8u(const Zam8u* pSrc, int val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsLShiftC_8u_I(int val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsLShiftC_16s(const Zam16s* pSrc, int val, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsLShiftC_16s_I(int val, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsLShiftC_16u(const Zam16u* pSrc, int val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsLShiftC_16u_I(int val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsLShiftC_32s(const Zam32s* pSrc, int val, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsLShiftC_32s_I(int val, Zam32s* pSrcDst, int len);
ZAMSAPI zamStatus zamsRShiftC_8u(const Zam8u* pSrc, int val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsRShiftC_8u_I(int val, Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsRShiftC_16s(const Zam16s* pSrc, int val, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsRShiftC_16s_I(int val, Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsRShiftC_16u(const Zam16u* pSrc, int val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsRShiftC_16u_I(int val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsRShiftC_32s(const Zam32s* pSrc, int val, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsRShiftC_32s_I(int val, Zam32s* pSrcDst, int len);

/* ---- floating-point and complex arithmetic ----
 * Plain IEEE arithmetic, element by element, no fused operations: a complex
 * product (a+bi)(c+di) is (ac - bd) + (ad + bc)i. Sub is the second source
 * minus the first; SubC is x - val, SubCRev is val - x; the _I forms write
 * into pSrcDst, which also serves as the second source. */
/* 32f */
ZAMSAPI zamStatus zamsAdd_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAdd_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSub_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMul_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAddC_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSubC_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMulC_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pSrcDst, int len);
/* 64f */
ZAMSAPI zamStatus zamsAdd_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAdd_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSub_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMul_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAddC_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSubC_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMulC_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pSrcDst, int len);
/* 32fc */
ZAMSAPI zamStatus zamsAdd_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsAdd_32fc_I(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSub_32fc_I(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_32fc_I(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsAddC_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSubC_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsMulC_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pSrcDst, int len);
/* 64fc */
ZAMSAPI zamStatus zamsAdd_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsAdd_64fc_I(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSub_64fc_I(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_64fc_I(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsAddC_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSubC_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsMulC_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pSrcDst, int len);
/* A real vector times a complex one: (r c) + (r d)i. */
ZAMSAPI zamStatus zamsMul_32f32fc(const Zam32f* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_32f32fc_I(const Zam32f* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_64f64fc(const Zam64f* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_64f64fc_I(const Zam64f* pSrc, Zam64fc* pSrcDst, int len);

#endif
