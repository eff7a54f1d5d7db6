/* Adaptive FIR filters by the least-mean-squares rule.
 *
 * One step, for an input sample src and a reference sample refVal:
 *   1. src enters the delay line;
 *   2. the span w is the tapsLen most recent samples, oldest first;
 *   3. y = sum over j of taps[j] x w[j] is the output;
 *   4. every tap moves: taps[j] += w[j] x (refVal - y) x 2 mu (twice mu, deliberately).
 *
 * Taps order. The kernels pair tap j with span element j (the last tap multiplies the
 * newest sample). The Direct forms take the caller's taps in that order as they are. The
 * states take and return taps in the order of the fixed FIR filters (tap k multiplies the
 * sample k steps back) and keep them reversed, so a state made from taps h runs exactly as
 * a Direct form given h reversed.
 *
 * Float arithmetic (32f and 32f_16s). Products and sums in single precision, each product
 * rounded before it is added, and the update is w[j] x g then the sum. Below 8 taps y sums
 * j = 0 .. tapsLen-1 in order; from 8 taps, eight partial sums s[l] take the products with
 * j = l mod 8 over the first (tapsLen rounded down to 8) taps, in order of j; they are
 * joined as ((s0+s4) + (s2+s6)) + ((s1+s5) + (s3+s7)) and the remaining taps are added
 * one by one in order. Results depend only on the data, never on buffer addresses.
 *
 * Delay lines of the Direct forms: 2 x tapsLen samples in the caller's memory and an
 * index in [0, tapsLen) (-24 outside it); every sample is kept at i and i + tapsLen, so
 * the span starts at the index. The states keep the same line four times (replicas at a
 * stride of 4 mod 32 bytes, one of them 16-byte aligned at any index).
 * InitAlloc takes pDlyLine as tapsLen samples stored at positions k and k + tapsLen, with
 * dlyLineIndex as the line's index; an index outside [0, tapsLen) is taken modulo tapsLen
 * (it is not an error). A null pTaps or pDlyLine is all zeros. GetDlyLine writes the span
 * (tapsLen samples, oldest first) and SetDlyLine takes one in that order (the index
 * becomes 0), so that InitAlloc(..., pDlyLine, 0) rebuilds the line GetDlyLine read.
 *
 * 16-bit data with float taps (32f_16s): samples enter as floats, the float y moves the
 * taps, and the output is y rounded to nearest, ties to even, saturated to 16 bits.
 *
 * Q15 integer forms (DirectQ15_16s and the multirate family): samples, taps and mu are
 * Q15 numbers (q stands for q / 32768); taps are 32-bit words, so they reach +-65536.
 *   y   = sum of taps[j] x w[j], exact, / 2^15 rounded to nearest, ties to even;
 *   taps[j] += (mu x e x w[j] / 2^29 rounded to nearest, ties to even), saturated to 32
 *         bits, where e is the error: refVal - (the 16-bit output) for the Direct form,
 *         the caller's errVal for UpdateTaps. mu / 2^29 is 2 mu in Q15 terms, the same step
 *         as the float forms. mu lies in [0, 32767] (-5 otherwise).
 * The complex forms (32sc_16sc) compute y = sum taps[j] x w[j] (complex products) and
 * taps[j] += mu x e x conj(w[j]) / 2^29 by parts, with the same rounding.
 * The Direct Q15 output is y saturated to 16 bits; the multirate output is y saturated to
 * 32 bits. A tap step below half a Q15 unit rounds to nothing, so small errors stop moving
 * the taps: choose mu for the precision wanted.
 *
 * Multirate family (32s_16s, 32sc_16sc): a state for adaptive filters whose output rate
 * is below the input rate (a fractionally spaced equaliser): PutVal puts one input sample
 * in the delay line without output; One writes the output for the current span; OneVal
 * puts a sample and writes the output; UpdateTaps moves the taps along the current span
 * with the caller's error (call it after the output it corrects, before the next PutVal).
 * SetMu changes mu; GetTaps, SetTaps take taps in the order of the fixed FIR filters;
 * GetTapsPointer gives the state's own taps (kept reversed, span order: the last element
 * multiplies the newest sample); GetDlyVal gives the sample `index` steps back (0: the
 * newest), -5 for an index outside [0, tapsLen).
 *
 * Free releases a state made by InitAlloc; a null pointer is fine (0), another kind of
 * structure gives -17 and is left alone. A bad taps length is -6 (not the -26 of the
 * fixed FIR filters).
 *
 * Checks: pointers (-8), lengths (-6), the state's identifier (-17), the delay index of
 * the Direct forms (-24), mu of the Q15 forms (-5). The taps and the line change only
 * by a call that passed every check. */
#ifndef ZAMS_LMS_H
#define ZAMS_LMS_H

typedef struct ZamsFIRLMSState_32f ZamsFIRLMSState_32f;
typedef struct ZamsFIRLMSState32f_16s ZamsFIRLMSState32f_16s;
typedef struct ZamsFIRLMSMRState32s_16s ZamsFIRLMSMRState32s_16s;
typedef struct ZamsFIRLMSMRState32sc_16sc ZamsFIRLMSMRState32sc_16sc;

/* ---- Direct forms: the caller keeps taps and delay line ---- */
ZAMSAPI zamStatus zamsFIRLMSOne_Direct_32f(Zam32f src, Zam32f refVal, Zam32f* pDstVal, Zam32f* pTaps, int tapsLen, float mu, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIRLMSOne_Direct32f_16s(Zam16s src, Zam16s refVal, Zam16s* pDstVal, Zam32f* pTaps, int tapsLen, float mu, Zam16s* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIRLMSOne_DirectQ15_16s(Zam16s src, Zam16s refVal, Zam16s* pDstVal, Zam32s* pTapsQ15, int tapsLen, int muQ15, Zam16s* pDlyLine, int* pDlyLineIndex);

/* ---- 32f state ---- */
ZAMSAPI zamStatus zamsFIRLMSInitAlloc_32f(ZamsFIRLMSState_32f** ppState, const Zam32f* pTaps, int tapsLen, const Zam32f* pDlyLine, int dlyLineIndex);
ZAMSAPI zamStatus zamsFIRLMS_32f(const Zam32f* pSrc, const Zam32f* pRef, Zam32f* pDst, int len, float mu, ZamsFIRLMSState_32f* pState);
ZAMSAPI zamStatus zamsFIRLMSGetTaps_32f(const ZamsFIRLMSState_32f* pState, Zam32f* pOutTaps);
ZAMSAPI zamStatus zamsFIRLMSGetDlyLine_32f(const ZamsFIRLMSState_32f* pState, Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsFIRLMSFree_32f(ZamsFIRLMSState_32f* pState);

/* ---- 16-bit data, float taps ---- */
ZAMSAPI zamStatus zamsFIRLMSInitAlloc32f_16s(ZamsFIRLMSState32f_16s** ppState, const Zam32f* pTaps, int tapsLen, const Zam16s* pDlyLine, int dlyLineIndex);
ZAMSAPI zamStatus zamsFIRLMS32f_16s(const Zam16s* pSrc, const Zam16s* pRef, Zam16s* pDst, int len, float mu, ZamsFIRLMSState32f_16s* pState);
ZAMSAPI zamStatus zamsFIRLMSGetTaps32f_16s(const ZamsFIRLMSState32f_16s* pState, Zam32f* pOutTaps);
ZAMSAPI zamStatus zamsFIRLMSGetDlyLine32f_16s(const ZamsFIRLMSState32f_16s* pState, Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRLMSSetDlyLine32f_16s(ZamsFIRLMSState32f_16s* pState, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRLMSFree32f_16s(ZamsFIRLMSState32f_16s* pState);

/* ---- multirate Q15 family ---- */
ZAMSAPI zamStatus zamsFIRLMSMRInitAlloc32s_16s(ZamsFIRLMSMRState32s_16s** ppState, const Zam32s* pTaps, int tapsLen, const Zam16s* pDlyLine, int dlyLineIndex, int mu);
ZAMSAPI zamStatus zamsFIRLMSMRFree32s_16s(ZamsFIRLMSMRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRLMSMRPutVal32s_16s(Zam16s inpVal, ZamsFIRLMSMRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRLMSMROne32s_16s(Zam32s* pOutVal, ZamsFIRLMSMRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRLMSMROneVal32s_16s(Zam16s inpVal, Zam32s* pOutVal, ZamsFIRLMSMRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRLMSMRUpdateTaps32s_16s(Zam32s errVal, ZamsFIRLMSMRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRLMSMRSetMu32s_16s(ZamsFIRLMSMRState32s_16s* pState, int mu);
ZAMSAPI zamStatus zamsFIRLMSMRGetTaps32s_16s(const ZamsFIRLMSMRState32s_16s* pState, Zam32s* pOutTaps);
ZAMSAPI zamStatus zamsFIRLMSMRSetTaps32s_16s(ZamsFIRLMSMRState32s_16s* pState, const Zam32s* pInTaps);
ZAMSAPI zamStatus zamsFIRLMSMRGetTapsPointer32s_16s(ZamsFIRLMSMRState32s_16s* pState, Zam32s** ppTaps);
ZAMSAPI zamStatus zamsFIRLMSMRGetDlyLine32s_16s(const ZamsFIRLMSMRState32s_16s* pState, Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRLMSMRSetDlyLine32s_16s(ZamsFIRLMSMRState32s_16s* pState, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRLMSMRGetDlyVal32s_16s(const ZamsFIRLMSMRState32s_16s* pState, Zam16s* pOutVal, int index);

ZAMSAPI zamStatus zamsFIRLMSMRInitAlloc32sc_16sc(ZamsFIRLMSMRState32sc_16sc** ppState, const Zam32sc* pTaps, int tapsLen, const Zam16sc* pDlyLine, int dlyLineIndex, int mu);
ZAMSAPI zamStatus zamsFIRLMSMRFree32sc_16sc(ZamsFIRLMSMRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRLMSMRPutVal32sc_16sc(Zam16sc inpVal, ZamsFIRLMSMRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRLMSMROne32sc_16sc(Zam32sc* pOutVal, ZamsFIRLMSMRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRLMSMROneVal32sc_16sc(Zam16sc inpVal, Zam32sc* pOutVal, ZamsFIRLMSMRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRLMSMRUpdateTaps32sc_16sc(Zam32sc errVal, ZamsFIRLMSMRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRLMSMRSetMu32sc_16sc(ZamsFIRLMSMRState32sc_16sc* pState, int mu);
ZAMSAPI zamStatus zamsFIRLMSMRGetTaps32sc_16sc(const ZamsFIRLMSMRState32sc_16sc* pState, Zam32sc* pOutTaps);
ZAMSAPI zamStatus zamsFIRLMSMRSetTaps32sc_16sc(ZamsFIRLMSMRState32sc_16sc* pState, const Zam32sc* pInTaps);
ZAMSAPI zamStatus zamsFIRLMSMRGetTapsPointer32sc_16sc(ZamsFIRLMSMRState32sc_16sc* pState, Zam32sc** ppTaps);
ZAMSAPI zamStatus zamsFIRLMSMRGetDlyLine32sc_16sc(const ZamsFIRLMSMRState32sc_16sc* pState, Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRLMSMRSetDlyLine32sc_16sc(ZamsFIRLMSMRState32sc_16sc* pState, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRLMSMRGetDlyVal32sc_16sc(const ZamsFIRLMSMRState32sc_16sc* pState, Zam16sc* pOutVal, int index);

#endif
