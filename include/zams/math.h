/* Division, elementary functions and complex measures. */
#ifndef ZAMS_MATH_H
#define ZAMS_MATH_H

/* |x| saturated: -32768 gives 32767 (-2^31 gives 2^31 - 1); floating forms
   clear the sign bit. */
ZAMSAPI zamStatus zamsAbs_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsAbs_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsAbs_32s(const Zam32s* pSrc, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsAbs_32s_I(Zam32s* pSrcDst, int len);
ZAMSAPI zamStatus zamsAbs_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAbs_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAbs_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAbs_64f_I(Zam64f* pSrcDst, int len);

/* Division. Div and Div_Round compute pSrc2[i] / pSrc1[i]: the first source
   is the divisor. A zero divisor element gives the bound by the sign of the
   dividend (0 for a zero dividend) and the warning 6. Integer quotients are
   scaled by 2^-scaleFactor, rounded to nearest (ties to even) and saturated. */
ZAMSAPI zamStatus zamsDiv_8u_Sfs(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_8u_ISfs(const Zam8u* pSrc, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_16s_ISfs(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_16sc_Sfs(const Zam16sc* pSrc1, const Zam16sc* pSrc2, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_16sc_ISfs(const Zam16sc* pSrc, Zam16sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_32s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_32s_ISfs(const Zam32s* pSrc, Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_32s16s_Sfs(const Zam32s* pSrc1, const Zam32s* pSrc2, Zam16s* pDst, int len, int scaleFactor);

/* Division with a rounding mode: 0 toward zero, 1 nearest even, 2 half away
   from zero; any other mode gives -213. */
ZAMSAPI zamStatus zamsDiv_Round_8u_Sfs(const Zam8u* pSrc1, const Zam8u* pSrc2, Zam8u* pDst, int len, int rndMode, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_Round_8u_ISfs(const Zam8u* pSrc, Zam8u* pSrcDst, int len, int rndMode, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_Round_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int rndMode, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_Round_16s_ISfs(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int rndMode, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_Round_16u_Sfs(const Zam16u* pSrc1, const Zam16u* pSrc2, Zam16u* pDst, int len, int rndMode, int scaleFactor);
ZAMSAPI zamStatus zamsDiv_Round_16u_ISfs(const Zam16u* pSrc, Zam16u* pSrcDst, int len, int rndMode, int scaleFactor);

/* Floating division: IEEE quotients, no warning for a zero divisor. */
ZAMSAPI zamStatus zamsDiv_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsDiv_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsDiv_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsDiv_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsDiv_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsDiv_32fc_I(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsDiv_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsDiv_64fc_I(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len);

/* pSrc[i] / val. A zero constant gives -10 (after the pointer and length
   checks); above the scale factors that can give a nonzero quotient the
   destination is zeroed. */
ZAMSAPI zamStatus zamsDivC_8u_Sfs(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDivC_8u_ISfs(Zam8u val, Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDivC_16s_Sfs(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDivC_16s_ISfs(Zam16s val, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDivC_16sc_Sfs(const Zam16sc* pSrc, Zam16sc val, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDivC_16sc_ISfs(Zam16sc val, Zam16sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsDivC_64s_ISfs(Zam64s val, Zam64s* pSrcDst, int len, int scaleFactor);
/* Floating division by a constant: a zero constant gives -10 (after the
 * pointer and length checks); otherwise the vector is multiplied by the
 * reciprocal of the constant, computed once in the type's precision, so a
 * result may differ from the true quotient in the last bit. */
ZAMSAPI zamStatus zamsDivC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsDivC_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsDivC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsDivC_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsDivC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsDivC_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsDivC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsDivC_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);

/* val / pSrc[i]. A zero element gives 65535 (0 for a zero val) and the
   warning 6. */
ZAMSAPI zamStatus zamsDivCRev_16u(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsDivCRev_16u_I(Zam16u val, Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsDivCRev_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsDivCRev_32f_I(Zam32f val, Zam32f* pSrcDst, int len);

/* Square root. Floating forms follow IEEE (a negative element gives NaN);
   complex forms give the principal root. Integer forms give sqrt(x) scaled
   by 2^-scaleFactor, rounded to nearest (ties to even) and saturated; a
   negative element of a signed real type gives 0 and the warning 3. */
ZAMSAPI zamStatus zamsSqrt_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSqrt_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqrt_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSqrt_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqrt_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSqrt_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqrt_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSqrt_64fc_I(Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqrt_8u_Sfs(const Zam8u* pSrc, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_8u_ISfs(Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_16s_ISfs(Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_16u_Sfs(const Zam16u* pSrc, Zam16u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_16u_ISfs(Zam16u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_16sc_ISfs(Zam16sc* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_32s16s_Sfs(const Zam32s* pSrc, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_64s16s_Sfs(const Zam64s* pSrc, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_64s_Sfs(const Zam64s* pSrc, Zam64s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqrt_64s_ISfs(Zam64s* pSrcDst, int len, int scaleFactor);

/* Square. Integer forms: x^2 (complex: (a^2 - b^2, 2ab)) exactly, then
   scaled by 2^-scaleFactor, rounded to nearest (ties to even), saturated. */
ZAMSAPI zamStatus zamsSqr_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSqr_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqr_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSqr_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqr_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSqr_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqr_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSqr_64fc_I(Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSqr_8u_Sfs(const Zam8u* pSrc, Zam8u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqr_8u_ISfs(Zam8u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqr_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqr_16s_ISfs(Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqr_16u_Sfs(const Zam16u* pSrc, Zam16u* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqr_16u_ISfs(Zam16u* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqr_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsSqr_16sc_ISfs(Zam16sc* pSrcDst, int len, int scaleFactor);

/* Cube root, within one ulp; cbrt(-x) = -cbrt(x), zeros and infinities
   keep their sign. */
ZAMSAPI zamStatus zamsCubrt_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsCubrt_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsCubrt_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsCubrt_64f_I(Zam64f* pSrcDst, int len);

/* Exp, Ln, Arctan of floating vectors, within one ulp; special values as
   IEEE and C99 Annex F say, no warnings. */
ZAMSAPI zamStatus zamsExp_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsExp_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsExp_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsExp_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsLn_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsLn_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsLn_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsLn_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsArctan_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsArctan_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsArctan_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsArctan_64f_I(Zam64f* pSrcDst, int len);

/* Integer logarithms: round(ln(x) 2^-scaleFactor) and
   round(10 log10(x) 2^-scaleFactor), ties to even, saturated. A
   non-positive element gives the type's minimum; the first such element
   decides the warning: 7 for zero, 8 for a negative number. */
ZAMSAPI zamStatus zamsLn_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsLn_16s_ISfs(Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zams10Log10_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zams10Log10_32s_ISfs(Zam32s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsLn_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsLn_32s_ISfs(Zam32s* pSrcDst, int len, int scaleFactor);

/* Integer exponentials: round(e^x 2^-scaleFactor), ties to even, saturated
   to the type's maximum, for every element and every scale factor (a
   negative element gives small values that only a negative scale factor
   keeps); no warnings. */
ZAMSAPI zamStatus zamsExp_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsExp_16s_ISfs(Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsExp_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsExp_32s_ISfs(Zam32s* pSrcDst, int len, int scaleFactor);

/* Magnitude |re + i im|: floating forms within an ulp, an infinite part
   giving +inf; integer forms round(|z| 2^-scaleFactor), ties to even,
   saturated. PowerSpectr: re^2 + im^2 (single precision formed in double). */
ZAMSAPI zamStatus zamsMagnitude_32fc(const Zam32fc* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMagnitude_64fc(const Zam64fc* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMagnitude_32f(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMagnitude_64f(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMagnitude_16sc_Sfs(const Zam16sc* pSrc, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMagnitude_16s_Sfs(const Zam16s* pSrcRe, const Zam16s* pSrcIm, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsPowerSpectr_32fc(const Zam32fc* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsPowerSpectr_64fc(const Zam64fc* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsPowerSpectr_32f(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsPowerSpectr_64f(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDst, int len);

/* Phase atan2(im, re) in [-pi, pi] (single precision within an ulp, double
   within two), and CartToPolar: magnitude and phase together. */
ZAMSAPI zamStatus zamsPhase_32fc(const Zam32fc* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsPhase_64fc(const Zam64fc* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsPhase_32f(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsPhase_64f(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsCartToPolar_32fc(const Zam32fc* pSrc, Zam32f* pDstMagn, Zam32f* pDstPhase, int len);
ZAMSAPI zamStatus zamsCartToPolar_64fc(const Zam64fc* pSrc, Zam64f* pDstMagn, Zam64f* pDstPhase, int len);
ZAMSAPI zamStatus zamsCartToPolar_32f(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDstMagn, Zam32f* pDstPhase, int len);
ZAMSAPI zamStatus zamsCartToPolar_64f(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDstMagn, Zam64f* pDstPhase, int len);

/* PolarToCart, the inverse: re = magn cos(phase), im = magn sin(phase),
   each within an ulp for any finite phase in radians, however large; an
   infinite or NaN phase gives NaN parts. */
ZAMSAPI zamStatus zamsPolarToCart_32fc(const Zam32f* pSrcMagn, const Zam32f* pSrcPhase, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsPolarToCart_64fc(const Zam64f* pSrcMagn, const Zam64f* pSrcPhase, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsPolarToCart_32f(const Zam32f* pSrcMagn, const Zam32f* pSrcPhase, Zam32f* pDstRe, Zam32f* pDstIm, int len);
ZAMSAPI zamStatus zamsPolarToCart_64f(const Zam64f* pSrcMagn, const Zam64f* pSrcPhase, Zam64f* pDstRe, Zam64f* pDstIm, int len);

/* Elementary functions of floating vectors, second set. Single-precision
   results are the double-precision value rounded once, within 1 ulp;
   double-precision bounds are stated per group. Special values follow
   IEEE and C99 Annex F: a domain error gives NaN, a pole an infinity, and
   the status stays 0 (no warnings), as for Exp and Ln above. */

/* Sine, cosine, tangent of any finite argument in radians (the reduction is
   exact, however large the argument), within 1 ulp in both precisions; an
   infinite or NaN argument gives NaN. SinCos writes both. */
ZAMSAPI zamStatus zamsSin_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSin_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSin_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSin_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsCos_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsCos_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsCos_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsCos_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsTan_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsTan_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsTan_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsTan_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSinCos_32f(const Zam32f* pSrc, Zam32f* pDstSin, Zam32f* pDstCos, int len);
ZAMSAPI zamStatus zamsSinCos_64f(const Zam64f* pSrc, Zam64f* pDstSin, Zam64f* pDstCos, int len);

/* Pow: pSrc1[i] ^ pSrc2[i]; Powx: pSrc[i] ^ val. Within 1 ulp. x^0 = 1 and
   1^y = 1 for any x, y (NaN too); a negative finite base with a finite
   non-integer exponent gives NaN; zero and infinite bases and exponents as
   C99 Annex F (0^-1 = +inf, (-0)^-3 = -inf, (-1)^+-inf = 1, ...). */
ZAMSAPI zamStatus zamsPow_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsPow_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsPowx_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsPowx_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsPowx_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsPowx_64f_I(Zam64f val, Zam64f* pSrcDst, int len);

/* atan2(pSrc1[i], pSrc2[i]): the angle of the point (pSrc2[i], pSrc1[i]) in
   [-pi, pi], signed zeros and infinities as C99 Annex F. 32f within 1 ulp,
   64f within 2. */
ZAMSAPI zamStatus zamsAtan2_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAtan2_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);

/* Hyperbolic functions, within 1 ulp; overflow gives +-inf. */
ZAMSAPI zamStatus zamsTanh_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsTanh_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsTanh_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsTanh_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSinh_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSinh_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSinh_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSinh_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsCosh_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsCosh_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsCosh_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsCosh_64f_I(Zam64f* pSrcDst, int len);

/* Logarithms to base 10 and 2, 10 log10(x), and 2^x, 10^x: within 1 ulp,
   exact where the result is (Log2(2^k) = k, Exp10(22) = 1e22). A negative
   argument of a logarithm gives NaN, zero gives -inf. */
ZAMSAPI zamStatus zamsLog10_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsLog10_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsLog10_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsLog10_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsLog2_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsLog2_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsLog2_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsLog2_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zams10Log10_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zams10Log10_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zams10Log10_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zams10Log10_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsExp2_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsExp2_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsExp2_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsExp2_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsExp10_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsExp10_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsExp10_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsExp10_64f_I(Zam64f* pSrcDst, int len);

/* Complex exponential and logarithm: Exp = e^re (cos im + i sin im), Ln =
   ln|z| + i atan2(im, re). Each part within 1 ulp (32fc) or 2 ulps
   (64fc). A NaN part, or an infinite imaginary part of
   Exp, gives NaN parts; Ln of 0 is -inf + i atan2(im, re); an infinite part
   gives a real part of +inf. */
ZAMSAPI zamStatus zamsExp_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsExp_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsExp_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsExp_64fc_I(Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsLn_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsLn_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsLn_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsLn_64fc_I(Zam64fc* pSrcDst, int len);

/* Inverse sine and cosine: |x| > 1 gives NaN. 32f within 1 ulp, 64f within
   2 ulps. */
ZAMSAPI zamStatus zamsAsin_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAsin_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAsin_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAsin_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAcos_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAcos_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAcos_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAcos_64f_I(Zam64f* pSrcDst, int len);

/* sqrt(pSrc1[i]^2 + pSrc2[i]^2) within 1 ulp, without overflow or underflow
   on the way; an infinite argument gives +inf even beside a NaN. */
ZAMSAPI zamStatus zamsHypot_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsHypot_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);

/* 1/x (the IEEE quotient) and 1/sqrt(x) within 1 ulp: 1/+-0 = +-inf,
   1/sqrt(+-0) = +inf, a negative x gives NaN for InvSqrt. */
ZAMSAPI zamStatus zamsInv_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsInv_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsInv_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsInv_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsInvSqrt_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsInvSqrt_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsInvSqrt_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsInvSqrt_64f_I(Zam64f* pSrcDst, int len);

/* Rounding to integral values, exact: Floor toward -inf, Ceil toward +inf,
   Trunc toward zero, Round to nearest with halves away from zero; Frac is
   x - Trunc(x) with the sign of x (+-0 for infinities). NaN stays NaN. */
ZAMSAPI zamStatus zamsFloor_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsFloor_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsFloor_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsFloor_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsCeil_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsCeil_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsCeil_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsCeil_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsTrunc_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsTrunc_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsTrunc_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsTrunc_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsRound_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsRound_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsRound_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsRound_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsFrac_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsFrac_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsFrac_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsFrac_64f_I(Zam64f* pSrcDst, int len);

/* e^x - 1 and ln(1 + x), accurate for small x: within 1 ulp. */
ZAMSAPI zamStatus zamsExpm1_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsExpm1_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsExpm1_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsExpm1_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsLog1p_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsLog1p_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsLog1p_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsLog1p_64f_I(Zam64f* pSrcDst, int len);

/* Inverse hyperbolic functions: Acosh below 1 and Atanh beyond +-1 give
   NaN, Atanh(+-1) = +-inf. Within 1 ulp (64f within 2). */
ZAMSAPI zamStatus zamsAsinh_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAsinh_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAsinh_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAsinh_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAcosh_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAcosh_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAcosh_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAcosh_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAtanh_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAtanh_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAtanh_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAtanh_64f_I(Zam64f* pSrcDst, int len);

/* Complex sine and cosine: sin z = sin re cosh im + i cos re sinh im,
   cos z = cos re cosh im - i sin re sinh im. Each part within 1 ulp (32fc)
   or 2 ulps (64fc), overflowing where cosh im does; an infinite or NaN real
   part, or a NaN imaginary part, gives NaN parts. */
ZAMSAPI zamStatus zamsSin_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSin_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSin_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSin_64fc_I(Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsCos_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsCos_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsCos_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsCos_64fc_I(Zam64fc* pSrcDst, int len);

/* The error function and its complement: erf within 1 ulp (64f within 2),
   erfc within 1 ulp (64f within 2) including its small values far out
   (down to the subnormals near x = 27); erf(+-inf) = +-1, erfc(-inf) = 2. */
ZAMSAPI zamStatus zamsErf_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsErf_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsErf_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsErf_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsErfc_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsErfc_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsErfc_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsErfc_64f_I(Zam64f* pSrcDst, int len);

/* 1/cbrt(x) within 1 ulp, the sign of x kept: +-0 gives +-inf, +-inf
   gives +-0. */
ZAMSAPI zamStatus zamsInvCbrt_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsInvCbrt_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsInvCbrt_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsInvCbrt_64f_I(Zam64f* pSrcDst, int len);

/* Complex tangent and hyperbolic tangent: tanh z = (sinh x cosh x +
   i sin y cos y) / (sinh^2 x + cos^2 y) for z = x + iy, tan z = -i tanh(iz).
   Each part within 1 ulp (32fc) or 2 ulps (64fc) of the larger part. Tanh
   tends to +-1 + i0 for large |x|, the zero signed as sin 2y (also at
   x = +-inf, and +-1 + i0 signed as y for an infinite or NaN y); a NaN x
   gives NaN + i0 for y = 0 (the zero kept) and NaN parts otherwise; a
   zero x with an infinite or NaN y gives that zero + iNaN, any other
   finite x NaN parts. Zero parts of z keep their sign. Tan carries the same
   rules through z -> iz: tan(x + i0) = tan x + i0. */
ZAMSAPI zamStatus zamsTan_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsTan_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsTan_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsTan_64fc_I(Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsTanh_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsTanh_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsTanh_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsTanh_64fc_I(Zam64fc* pSrcDst, int len);

/* Complex powers: Pow gives pSrc1[i] ^ pSrc2[i], Powx pSrc[i] ^ val for a
   real val, both exp(w ln z) with the principal logarithm (the angle in
   (-pi, pi]). For an exponent of modulus up to 64 each part is within
   2 ulps (32fc) or 4 ulps (64fc) of the larger part; beyond, the result
   is e^(w ln z) with w ln z exact to double-double precision, and it
   overflows to infinite parts or underflows to signed zeros by the angle.
   Special values: w = 0 gives 1 + i0 for any z, NaN too. Otherwise a NaN
   part of z or w, or an infinite part of w, gives NaN + iNaN; z = 0 gives
   0 + i0 when re w > 0, +inf + i0 for a real w < 0 and NaN + iNaN for
   the rest (no limit); an infinite part of z with a real w gives
   e^(+-inf + i w arg z): inf (cos, sin) for w > 0 (+inf + i0 at angle 0),
   signed zeros for w < 0, and NaN + iNaN for a w with an imaginary part.
   A negative real z has the angle pi, so (-8)^(1/3) is 1 + i 1.732. */
ZAMSAPI zamStatus zamsPow_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsPow_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsPowx_32fc(const Zam32fc* pSrc, Zam32f val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsPowx_32fc_I(Zam32f val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsPowx_64fc(const Zam64fc* pSrc, Zam64f val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsPowx_64fc_I(Zam64f val, Zam64fc* pSrcDst, int len);

#endif
