/* Wavelet transforms: the Haar transform and a two-channel filter bank.
 *
 * ---- Haar ----
 *
 * One level of the Haar transform of len samples x[0..len-1] into
 * (len + 1) / 2 low-band and len / 2 high-band samples:
 *     low[n]  = (x[2n] + x[2n+1]) / 2
 *     high[n] = (x[2n] - x[2n+1]) / 2
 * and its inverse, len samples from the two bands:
 *     x[2n] = low[n] + high[n],  x[2n+1] = low[n] - high[n].
 * An odd len pairs the last sample with itself: low[(len-1)/2] = x[len-1]
 * and no high-band sample is written for it; the inverse returns
 * x[len-1] = low[(len-1)/2]. The forward transform followed by the inverse
 * gives the input back (32f and 64f within the rounding of one sum and one
 * halving, exactly while no sum is rounded).
 *
 * Integer forms compute the exact sums and differences. The 16s forms write
 * them times 2^-scaleFactor (forward: the halved value times 2^-scaleFactor),
 * rounded to nearest with ties to even and saturated; the 8s forms are the
 * same rule with a factor of 0 (so the forward halves with ties to even).
 *
 * ---- Two-channel filter bank ----
 *
 * The forward state splits a stream x into a low and a high band at half
 * the rate; the inverse state merges two bands into one stream. Each band b
 * has its own taps t_b[0..len_b-1] (any length from 1) and offset o_b (-1
 * or more; below -1 is zamStatusBadWaveletOffset, -35). The stream is
 * continued across calls: samples of earlier calls (or of the delay line,
 * for negative indices) enter the sums as if one long call had been made.
 *
 * Forward (analysis): from 2 dstLen input samples, dstLen outputs a band,
 *     low[n]  = sum over k < lenLow  of tLow[k]  x[2n - offsLow - k]
 *     high[n] = sum over k < lenHigh of tHigh[k] x[2n - offsHigh - k].
 * Offset -1 makes output n use inputs up to x[2n+1], the last of its pair;
 * every step up delays the band by one input sample.
 *
 * Inverse (synthesis): from srcLen samples a band, 2 srcLen outputs. Each
 * band is placed on odd positions of a stream at the full rate,
 * u_b[2n+1] = band[n], u_b[2n] = 0, filtered and the two added:
 *     y[m] = sum over k < lenLow  of tLow[k]  uLow[m - offsLow - k]
 *          + sum over k < lenHigh of tHigh[k] uHigh[m - offsHigh - k].
 * Offset -1 makes outputs 2n and 2n+1 use band samples up to n.
 *
 * Perfect reconstruction: for an orthogonal pair of even length L (analysis
 * low taps h, analysis high taps h1[k] = (-1)^k h[L-1-k], synthesis taps the
 * analysis taps of the same band reversed) with one forward offset oF and
 * one inverse offset oI for both bands, the inverse returns the forward's
 * input delayed by L + oF + oI samples: y[m] = x[m - (L + oF + oI)]
 * (Haar, L = 2, offsets -1 and -1: no delay). In general the delay is that
 * of the pair's own product filters plus oF + oI + 1.
 *
 * Arithmetic: 32f in single precision, every product rounded and the sum
 * formed in the order of k from 0, the high band added to the low one in
 * the inverse; the results do not depend on how a stream is split into
 * calls nor on the addresses of the buffers. The 16-bit forms (taps 32f,
 * data 16s, suffix 32f_16s) convert their samples to 32f exactly, run the
 * same arithmetic and write each output times 2^-scaleFactor, rounded to
 * nearest with ties to even and saturated, as zamsConvert_32f16s_Sfs does.
 *
 * Delay lines: each band of a state keeps the past samples its sums reach
 * back to, newest first in the caller's lines (element 0 the last sample
 * before the next call's first):
 *     forward band:  max(0, len_b + o_b - 1) input samples,
 *     inverse band:  (len_b + o_b) / 2 samples of that band.
 * Init clears them; SetDlyLine writes both bands' lines, GetDlyLine reads
 * them (both pointers are required, also for a line of no samples). The
 * 16-bit forms keep their lines as 16-bit samples.
 *
 * States: GetSize reports the bytes a state needs (with room to round the
 * caller's pointer up to 32 bytes); Init lays it into that memory, InitAlloc
 * allocates it, Free releases what InitAlloc allocated (a state in caller
 * memory is left alone). A state stores a copy of the taps; it changes on
 * every call: one state, one call at a time. Sources and destinations must
 * not overlap.
 *
 * Checks: pointers (-8), lengths (-6: len, dstLen, srcLen and taps lengths
 * below 1), the state's identifier (-17), offsets (-35); a state whose size
 * does not fit in an int gives zamStatusNoMemory (-9). */
#ifndef ZAMS_WAVELET_H
#define ZAMS_WAVELET_H

/* ---- Haar ---- */
ZAMSAPI zamStatus zamsWTHaarFwd_8s(const Zam8s* pSrc, int len, Zam8s* pDstLow, Zam8s* pDstHigh);
ZAMSAPI zamStatus zamsWTHaarFwd_16s_Sfs(const Zam16s* pSrc, int len, Zam16s* pDstLow, Zam16s* pDstHigh, int scaleFactor);
ZAMSAPI zamStatus zamsWTHaarFwd_32f(const Zam32f* pSrc, int len, Zam32f* pDstLow, Zam32f* pDstHigh);
ZAMSAPI zamStatus zamsWTHaarFwd_64f(const Zam64f* pSrc, int len, Zam64f* pDstLow, Zam64f* pDstHigh);
ZAMSAPI zamStatus zamsWTHaarInv_8s(const Zam8s* pSrcLow, const Zam8s* pSrcHigh, Zam8s* pDst, int len);
ZAMSAPI zamStatus zamsWTHaarInv_16s_Sfs(const Zam16s* pSrcLow, const Zam16s* pSrcHigh, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsWTHaarInv_32f(const Zam32f* pSrcLow, const Zam32f* pSrcHigh, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsWTHaarInv_64f(const Zam64f* pSrcLow, const Zam64f* pSrcHigh, Zam64f* pDst, int len);

/* ---- filter bank states ---- */
typedef struct ZamsWTFwdState_32f ZamsWTFwdState_32f;
typedef struct ZamsWTInvState_32f ZamsWTInvState_32f;
typedef struct ZamsWTFwdState32f_16s ZamsWTFwdState32f_16s;
typedef struct ZamsWTInvState32f_16s ZamsWTInvState32f_16s;

/* forward, 32f */
ZAMSAPI zamStatus zamsWTFwdGetSize_32f(int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize);
ZAMSAPI zamStatus zamsWTFwdInit_32f(ZamsWTFwdState_32f** ppState, const Zam32f* pTapsLow, int lenLow, int offsLow,
                                    const Zam32f* pTapsHigh, int lenHigh, int offsHigh, Zam8u* pMem);
ZAMSAPI zamStatus zamsWTFwdInitAlloc_32f(ZamsWTFwdState_32f** ppState, const Zam32f* pTapsLow, int lenLow, int offsLow,
                                         const Zam32f* pTapsHigh, int lenHigh, int offsHigh);
ZAMSAPI zamStatus zamsWTFwdFree_32f(ZamsWTFwdState_32f* pState);
ZAMSAPI zamStatus zamsWTFwdSetDlyLine_32f(ZamsWTFwdState_32f* pState, const Zam32f* pDlyLow, const Zam32f* pDlyHigh);
ZAMSAPI zamStatus zamsWTFwdGetDlyLine_32f(const ZamsWTFwdState_32f* pState, Zam32f* pDlyLow, Zam32f* pDlyHigh);
ZAMSAPI zamStatus zamsWTFwd_32f(const Zam32f* pSrc, Zam32f* pDstLow, Zam32f* pDstHigh, int dstLen,
                                ZamsWTFwdState_32f* pState);

/* inverse, 32f */
ZAMSAPI zamStatus zamsWTInvGetSize_32f(int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize);
ZAMSAPI zamStatus zamsWTInvInit_32f(ZamsWTInvState_32f** ppState, const Zam32f* pTapsLow, int lenLow, int offsLow,
                                    const Zam32f* pTapsHigh, int lenHigh, int offsHigh, Zam8u* pMem);
ZAMSAPI zamStatus zamsWTInvInitAlloc_32f(ZamsWTInvState_32f** ppState, const Zam32f* pTapsLow, int lenLow, int offsLow,
                                         const Zam32f* pTapsHigh, int lenHigh, int offsHigh);
ZAMSAPI zamStatus zamsWTInvFree_32f(ZamsWTInvState_32f* pState);
ZAMSAPI zamStatus zamsWTInvSetDlyLine_32f(ZamsWTInvState_32f* pState, const Zam32f* pDlyLow, const Zam32f* pDlyHigh);
ZAMSAPI zamStatus zamsWTInvGetDlyLine_32f(const ZamsWTInvState_32f* pState, Zam32f* pDlyLow, Zam32f* pDlyHigh);
ZAMSAPI zamStatus zamsWTInv_32f(const Zam32f* pSrcLow, const Zam32f* pSrcHigh, int srcLen, Zam32f* pDst,
                                ZamsWTInvState_32f* pState);

/* forward, taps 32f, data 16s */
ZAMSAPI zamStatus zamsWTFwdGetSize32f_16s(int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize);
ZAMSAPI zamStatus zamsWTFwdInit32f_16s(ZamsWTFwdState32f_16s** ppState, const Zam32f* pTapsLow, int lenLow, int offsLow,
                                       const Zam32f* pTapsHigh, int lenHigh, int offsHigh, Zam8u* pMem);
ZAMSAPI zamStatus zamsWTFwdInitAlloc32f_16s(ZamsWTFwdState32f_16s** ppState, const Zam32f* pTapsLow, int lenLow,
                                            int offsLow, const Zam32f* pTapsHigh, int lenHigh, int offsHigh);
ZAMSAPI zamStatus zamsWTFwdFree32f_16s(ZamsWTFwdState32f_16s* pState);
ZAMSAPI zamStatus zamsWTFwdSetDlyLine32f_16s(ZamsWTFwdState32f_16s* pState, const Zam16s* pDlyLow, const Zam16s* pDlyHigh);
ZAMSAPI zamStatus zamsWTFwdGetDlyLine32f_16s(const ZamsWTFwdState32f_16s* pState, Zam16s* pDlyLow, Zam16s* pDlyHigh);
ZAMSAPI zamStatus zamsWTFwd32f_16s_Sfs(const Zam16s* pSrc, Zam16s* pDstLow, Zam16s* pDstHigh, int dstLen,
                                       int scaleFactor, ZamsWTFwdState32f_16s* pState);

/* inverse, taps 32f, data 16s */
ZAMSAPI zamStatus zamsWTInvGetSize32f_16s(int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize);
ZAMSAPI zamStatus zamsWTInvInit32f_16s(ZamsWTInvState32f_16s** ppState, const Zam32f* pTapsLow, int lenLow, int offsLow,
                                       const Zam32f* pTapsHigh, int lenHigh, int offsHigh, Zam8u* pMem);
ZAMSAPI zamStatus zamsWTInvInitAlloc32f_16s(ZamsWTInvState32f_16s** ppState, const Zam32f* pTapsLow, int lenLow,
                                            int offsLow, const Zam32f* pTapsHigh, int lenHigh, int offsHigh);
ZAMSAPI zamStatus zamsWTInvFree32f_16s(ZamsWTInvState32f_16s* pState);
ZAMSAPI zamStatus zamsWTInvSetDlyLine32f_16s(ZamsWTInvState32f_16s* pState, const Zam16s* pDlyLow, const Zam16s* pDlyHigh);
ZAMSAPI zamStatus zamsWTInvGetDlyLine32f_16s(const ZamsWTInvState32f_16s* pState, Zam16s* pDlyLow, Zam16s* pDlyHigh);
ZAMSAPI zamStatus zamsWTInv32f_16s_Sfs(const Zam16s* pSrcLow, const Zam16s* pSrcHigh, int srcLen, Zam16s* pDst,
                                       int scaleFactor, ZamsWTInvState32f_16s* pState);

#endif
