/* IIR filters.
 *
 * Recursive filters in two realisations: an AR filter of order N given by
 * 2(N + 1) taps, the numerator b[0..N] then the denominator a[0..N], and a
 * cascade of numBq second-order sections of 6 taps each, b0 b1 b2 a0 a1 a2,
 * in cascade order. The filter is
 *     y[n] = sum_k b'[k] x[n-k] - sum_{k>=1} a'[k] y[n-k],  b' = b/a0, a' = a/a0
 * (per section for a cascade). Taps are normalised with one reciprocal of a0
 * and products (so b'[k] may differ in the last bit from b[k] / a0); a zero
 * a0 gives zamStatusDivideByZero (-10), as does a section with b0 = 0; the
 * sections before a refused one are already stored.
 *
 * Realisation: transposed direct form II. The delay line holds N values for
 * an AR filter and 2 a section for a cascade (d1, d2 of each section in
 * cascade order), in the order the caller gives them: with input x and
 * output y of a section, y = b0' x + d1, d1 <- b1' x - a1' y + d2,
 * d2 <- b2' x - a2' y; an AR filter of order N likewise with
 * d[k] <- b'[k+1] x - a'[k+1] y + d[k+1], d[N] = 0. Init with a null delay
 * line, and SetDlyLine with a null pointer, clear it. SetTaps keeps the
 * delay line.
 *
 * The direct-form-I cascade (zamsIIRInit_BiQuad_DF1_32f) computes each
 * section as y = b0' x + b1' x1 + b2' x2 - a1' y1 - a2' y2 and keeps 4
 * values a section, x1 x2 y1 y2 (the section's last two inputs and
 * outputs), which its delay line holds in that order. zamsIIR_32f accepts
 * it; zamsIIROne_32f does not (-17).
 *
 * States: GetStateSize reports the bytes for a state; Init lays it into the
 * caller's buffer rounded up to a multiple of 32 bytes (the reported size
 * covers that rounding), InitAlloc allocates it, Free releases what
 * InitAlloc allocated (a state in caller memory is left alone). A state is
 * changed by every filtering call: one state, one call at a time.
 *
 * Taps and delay line are of the taps type (the first type of the name)
 * in every form. The integer-data states (32f_16s, 32fc_16sc, 64f_32s,
 * 64fc_32sc, 64f_16s, 64fc_16sc) hold a filter in the taps' precision
 * for integer samples: taps and delay line are built, set and read as for
 * the floating kinds. Their filters (zamsIIR<kind>_Sfs, _ISfs and
 * zamsIIROne<kind>_Sfs) convert each sample exactly to the taps type and
 * filter it in that precision by the step above; each output is scaled by
 * 2^-scaleFactor (any int), rounded to nearest (ties to even) and
 * saturated to the data type (each part of a complex sample alone), as the
 * integer-data FIR filters do. The delay line keeps the unrounded values,
 * so blocks of any sizes and the one-sample filter give the same samples.
 *
 * Accuracy: the 64f and complex kinds run the one-sample step above for
 * every sample. The 32f block filter of an AR filter up to order 64 and of
 * a cascade works eight samples at a time from tables made with the taps,
 * on a grid of blocks fixed by the sample's position since Init, SetTaps
 * or SetDlyLine (the first N samples, 2 for a cascade, by the one-sample
 * step): the same filter, rounded differently, within single precision of
 * the one-sample step. Every kind gives the same bits for a signal
 * whatever the sizes of the calls it is split into, zamsIIROne included
 * (for the 32f block filters: finite samples). GetDlyLine reports the
 * delay line described above at the current sample; a state built from it
 * continues the filter to single precision (to the bit for the kinds that
 * run the one-sample step). */
#ifndef ZAMS_FILTER_H
#define ZAMS_FILTER_H

/* ---- IIR ---- */

/* Opaque IIR state types, one a taps/data kind. */
typedef struct ZamsIIRState_32f ZamsIIRState_32f;
typedef struct ZamsIIRState32f_16s ZamsIIRState32f_16s;
typedef struct ZamsIIRState32fc_16sc ZamsIIRState32fc_16sc;
typedef struct ZamsIIRState_64f ZamsIIRState_64f;
typedef struct ZamsIIRState_64fc ZamsIIRState_64fc;
typedef struct ZamsIIRState64f_32f ZamsIIRState64f_32f;
typedef struct ZamsIIRState64fc_32fc ZamsIIRState64fc_32fc;
typedef struct ZamsIIRState64f_32s ZamsIIRState64f_32s;
typedef struct ZamsIIRState64fc_32sc ZamsIIRState64fc_32sc;
typedef struct ZamsIIRState64f_16s ZamsIIRState64f_16s;
typedef struct ZamsIIRState64fc_16sc ZamsIIRState64fc_16sc;

/* taps Zam32f, data Zam32f */
ZAMSAPI zamStatus zamsIIRGetStateSize_32f(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize_BiQuad_32f(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit_32f(ZamsIIRState_32f** ppState, const Zam32f* pTaps, int order, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit_BiQuad_32f(ZamsIIRState_32f** ppState, const Zam32f* pTaps, int numBq, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc_32f(ZamsIIRState_32f** ppState, const Zam32f* pTaps, int order, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc_BiQuad_32f(ZamsIIRState_32f** ppState, const Zam32f* pTaps, int numBq, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsIIRGetStateSize_BiQuad_DF1_32f(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit_BiQuad_DF1_32f(ZamsIIRState_32f** ppState, const Zam32f* pTaps, int numBq, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc_BiQuad_DF1_32f(ZamsIIRState_32f** ppState, const Zam32f* pTaps, int numBq, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree_32f(ZamsIIRState_32f* pState);
ZAMSAPI zamStatus zamsIIRSetTaps_32f(const Zam32f* pTaps, ZamsIIRState_32f* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine_32f(Zam32f* pDlyLine, const ZamsIIRState_32f* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine_32f(const Zam32f* pDlyLine, ZamsIIRState_32f* pState);
ZAMSAPI zamStatus zamsIIR_32f(const Zam32f* pSrc, Zam32f* pDst, int len, ZamsIIRState_32f* pState);
ZAMSAPI zamStatus zamsIIR_32f_I(Zam32f* pSrcDst, int len, ZamsIIRState_32f* pState);
ZAMSAPI zamStatus zamsIIROne_32f(Zam32f src, Zam32f* pDstVal, ZamsIIRState_32f* pState);
/* nChannels independent channels, each with its own state, source and
 * destination; every pointer and state is checked before any is filtered. */
ZAMSAPI zamStatus zamsIIR_32f_P(const Zam32f* const* ppSrc, Zam32f* const* ppDst, int len, int nChannels, ZamsIIRState_32f* const* ppState);

/* taps Zam32f, data Zam16s */
ZAMSAPI zamStatus zamsIIRGetStateSize32f_16s(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize32f_BiQuad_16s(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit32f_16s(ZamsIIRState32f_16s** ppState, const Zam32f* pTaps, int order, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit32f_BiQuad_16s(ZamsIIRState32f_16s** ppState, const Zam32f* pTaps, int numBq, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc32f_16s(ZamsIIRState32f_16s** ppState, const Zam32f* pTaps, int order, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc32f_BiQuad_16s(ZamsIIRState32f_16s** ppState, const Zam32f* pTaps, int numBq, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree32f_16s(ZamsIIRState32f_16s* pState);
ZAMSAPI zamStatus zamsIIRSetTaps32f_16s(const Zam32f* pTaps, ZamsIIRState32f_16s* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine32f_16s(Zam32f* pDlyLine, const ZamsIIRState32f_16s* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine32f_16s(const Zam32f* pDlyLine, ZamsIIRState32f_16s* pState);
ZAMSAPI zamStatus zamsIIR32f_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, ZamsIIRState32f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIR32f_16s_ISfs(Zam16s* pSrcDst, int len, ZamsIIRState32f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIROne32f_16s_Sfs(Zam16s src, Zam16s* pDstVal, ZamsIIRState32f_16s* pState, int scaleFactor);

/* taps Zam32fc, data Zam16sc */
ZAMSAPI zamStatus zamsIIRGetStateSize32fc_16sc(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize32fc_BiQuad_16sc(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit32fc_16sc(ZamsIIRState32fc_16sc** ppState, const Zam32fc* pTaps, int order, const Zam32fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit32fc_BiQuad_16sc(ZamsIIRState32fc_16sc** ppState, const Zam32fc* pTaps, int numBq, const Zam32fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc32fc_16sc(ZamsIIRState32fc_16sc** ppState, const Zam32fc* pTaps, int order, const Zam32fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc32fc_BiQuad_16sc(ZamsIIRState32fc_16sc** ppState, const Zam32fc* pTaps, int numBq, const Zam32fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree32fc_16sc(ZamsIIRState32fc_16sc* pState);
ZAMSAPI zamStatus zamsIIRSetTaps32fc_16sc(const Zam32fc* pTaps, ZamsIIRState32fc_16sc* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine32fc_16sc(Zam32fc* pDlyLine, const ZamsIIRState32fc_16sc* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine32fc_16sc(const Zam32fc* pDlyLine, ZamsIIRState32fc_16sc* pState);
ZAMSAPI zamStatus zamsIIR32fc_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int len, ZamsIIRState32fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIR32fc_16sc_ISfs(Zam16sc* pSrcDst, int len, ZamsIIRState32fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIROne32fc_16sc_Sfs(Zam16sc src, Zam16sc* pDstVal, ZamsIIRState32fc_16sc* pState, int scaleFactor);

/* taps Zam64f, data Zam64f */
ZAMSAPI zamStatus zamsIIRGetStateSize_64f(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize_BiQuad_64f(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit_64f(ZamsIIRState_64f** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit_BiQuad_64f(ZamsIIRState_64f** ppState, const Zam64f* pTaps, int numBq, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc_64f(ZamsIIRState_64f** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc_BiQuad_64f(ZamsIIRState_64f** ppState, const Zam64f* pTaps, int numBq, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree_64f(ZamsIIRState_64f* pState);
ZAMSAPI zamStatus zamsIIRSetTaps_64f(const Zam64f* pTaps, ZamsIIRState_64f* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine_64f(Zam64f* pDlyLine, const ZamsIIRState_64f* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine_64f(const Zam64f* pDlyLine, ZamsIIRState_64f* pState);
ZAMSAPI zamStatus zamsIIR_64f(const Zam64f* pSrc, Zam64f* pDst, int len, ZamsIIRState_64f* pState);
ZAMSAPI zamStatus zamsIIR_64f_I(Zam64f* pSrcDst, int len, ZamsIIRState_64f* pState);
ZAMSAPI zamStatus zamsIIROne_64f(Zam64f src, Zam64f* pDstVal, ZamsIIRState_64f* pState);

/* taps Zam64fc, data Zam64fc */
ZAMSAPI zamStatus zamsIIRGetStateSize_64fc(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize_BiQuad_64fc(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit_64fc(ZamsIIRState_64fc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit_BiQuad_64fc(ZamsIIRState_64fc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc_64fc(ZamsIIRState_64fc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc_BiQuad_64fc(ZamsIIRState_64fc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree_64fc(ZamsIIRState_64fc* pState);
ZAMSAPI zamStatus zamsIIRSetTaps_64fc(const Zam64fc* pTaps, ZamsIIRState_64fc* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine_64fc(Zam64fc* pDlyLine, const ZamsIIRState_64fc* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine_64fc(const Zam64fc* pDlyLine, ZamsIIRState_64fc* pState);
ZAMSAPI zamStatus zamsIIR_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, ZamsIIRState_64fc* pState);
ZAMSAPI zamStatus zamsIIR_64fc_I(Zam64fc* pSrcDst, int len, ZamsIIRState_64fc* pState);
ZAMSAPI zamStatus zamsIIROne_64fc(Zam64fc src, Zam64fc* pDstVal, ZamsIIRState_64fc* pState);

/* taps Zam64f, data Zam32f */
ZAMSAPI zamStatus zamsIIRGetStateSize64f_32f(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize64f_BiQuad_32f(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit64f_32f(ZamsIIRState64f_32f** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit64f_BiQuad_32f(ZamsIIRState64f_32f** ppState, const Zam64f* pTaps, int numBq, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc64f_32f(ZamsIIRState64f_32f** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc64f_BiQuad_32f(ZamsIIRState64f_32f** ppState, const Zam64f* pTaps, int numBq, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree64f_32f(ZamsIIRState64f_32f* pState);
ZAMSAPI zamStatus zamsIIRSetTaps64f_32f(const Zam64f* pTaps, ZamsIIRState64f_32f* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine64f_32f(Zam64f* pDlyLine, const ZamsIIRState64f_32f* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine64f_32f(const Zam64f* pDlyLine, ZamsIIRState64f_32f* pState);
ZAMSAPI zamStatus zamsIIR64f_32f(const Zam32f* pSrc, Zam32f* pDst, int len, ZamsIIRState64f_32f* pState);
ZAMSAPI zamStatus zamsIIR64f_32f_I(Zam32f* pSrcDst, int len, ZamsIIRState64f_32f* pState);
ZAMSAPI zamStatus zamsIIROne64f_32f(Zam32f src, Zam32f* pDstVal, ZamsIIRState64f_32f* pState);

/* taps Zam64fc, data Zam32fc */
ZAMSAPI zamStatus zamsIIRGetStateSize64fc_32fc(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize64fc_BiQuad_32fc(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit64fc_32fc(ZamsIIRState64fc_32fc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit64fc_BiQuad_32fc(ZamsIIRState64fc_32fc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc64fc_32fc(ZamsIIRState64fc_32fc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc64fc_BiQuad_32fc(ZamsIIRState64fc_32fc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree64fc_32fc(ZamsIIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsIIRSetTaps64fc_32fc(const Zam64fc* pTaps, ZamsIIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine64fc_32fc(Zam64fc* pDlyLine, const ZamsIIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine64fc_32fc(const Zam64fc* pDlyLine, ZamsIIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsIIR64fc_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, ZamsIIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsIIR64fc_32fc_I(Zam32fc* pSrcDst, int len, ZamsIIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsIIROne64fc_32fc(Zam32fc src, Zam32fc* pDstVal, ZamsIIRState64fc_32fc* pState);

/* taps Zam64f, data Zam32s */
ZAMSAPI zamStatus zamsIIRGetStateSize64f_32s(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRInit64f_32s(ZamsIIRState64f_32s** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc64f_32s(ZamsIIRState64f_32s** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree64f_32s(ZamsIIRState64f_32s* pState);
ZAMSAPI zamStatus zamsIIRSetTaps64f_32s(const Zam64f* pTaps, ZamsIIRState64f_32s* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine64f_32s(Zam64f* pDlyLine, const ZamsIIRState64f_32s* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine64f_32s(const Zam64f* pDlyLine, ZamsIIRState64f_32s* pState);
ZAMSAPI zamStatus zamsIIR64f_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, int len, ZamsIIRState64f_32s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIR64f_32s_ISfs(Zam32s* pSrcDst, int len, ZamsIIRState64f_32s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIROne64f_32s_Sfs(Zam32s src, Zam32s* pDstVal, ZamsIIRState64f_32s* pState, int scaleFactor);

/* taps Zam64fc, data Zam32sc */
ZAMSAPI zamStatus zamsIIRGetStateSize64fc_32sc(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize64fc_BiQuad_32sc(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit64fc_32sc(ZamsIIRState64fc_32sc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit64fc_BiQuad_32sc(ZamsIIRState64fc_32sc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc64fc_32sc(ZamsIIRState64fc_32sc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc64fc_BiQuad_32sc(ZamsIIRState64fc_32sc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree64fc_32sc(ZamsIIRState64fc_32sc* pState);
ZAMSAPI zamStatus zamsIIRSetTaps64fc_32sc(const Zam64fc* pTaps, ZamsIIRState64fc_32sc* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine64fc_32sc(Zam64fc* pDlyLine, const ZamsIIRState64fc_32sc* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine64fc_32sc(const Zam64fc* pDlyLine, ZamsIIRState64fc_32sc* pState);
ZAMSAPI zamStatus zamsIIR64fc_32sc_Sfs(const Zam32sc* pSrc, Zam32sc* pDst, int len, ZamsIIRState64fc_32sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIR64fc_32sc_ISfs(Zam32sc* pSrcDst, int len, ZamsIIRState64fc_32sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIROne64fc_32sc_Sfs(Zam32sc src, Zam32sc* pDstVal, ZamsIIRState64fc_32sc* pState, int scaleFactor);

/* taps Zam64f, data Zam16s */
ZAMSAPI zamStatus zamsIIRGetStateSize64f_16s(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize64f_BiQuad_16s(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit64f_16s(ZamsIIRState64f_16s** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit64f_BiQuad_16s(ZamsIIRState64f_16s** ppState, const Zam64f* pTaps, int numBq, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc64f_16s(ZamsIIRState64f_16s** ppState, const Zam64f* pTaps, int order, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc64f_BiQuad_16s(ZamsIIRState64f_16s** ppState, const Zam64f* pTaps, int numBq, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree64f_16s(ZamsIIRState64f_16s* pState);
ZAMSAPI zamStatus zamsIIRSetTaps64f_16s(const Zam64f* pTaps, ZamsIIRState64f_16s* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine64f_16s(Zam64f* pDlyLine, const ZamsIIRState64f_16s* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine64f_16s(const Zam64f* pDlyLine, ZamsIIRState64f_16s* pState);
ZAMSAPI zamStatus zamsIIR64f_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, ZamsIIRState64f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIR64f_16s_ISfs(Zam16s* pSrcDst, int len, ZamsIIRState64f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIROne64f_16s_Sfs(Zam16s src, Zam16s* pDstVal, ZamsIIRState64f_16s* pState, int scaleFactor);

/* taps Zam64fc, data Zam16sc */
ZAMSAPI zamStatus zamsIIRGetStateSize64fc_16sc(int order, int* pSize);
ZAMSAPI zamStatus zamsIIRGetStateSize64fc_BiQuad_16sc(int numBq, int* pSize);
ZAMSAPI zamStatus zamsIIRInit64fc_16sc(ZamsIIRState64fc_16sc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInit64fc_BiQuad_16sc(ZamsIIRState64fc_16sc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsIIRInitAlloc64fc_16sc(ZamsIIRState64fc_16sc** ppState, const Zam64fc* pTaps, int order, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRInitAlloc64fc_BiQuad_16sc(ZamsIIRState64fc_16sc** ppState, const Zam64fc* pTaps, int numBq, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsIIRFree64fc_16sc(ZamsIIRState64fc_16sc* pState);
ZAMSAPI zamStatus zamsIIRSetTaps64fc_16sc(const Zam64fc* pTaps, ZamsIIRState64fc_16sc* pState);
ZAMSAPI zamStatus zamsIIRGetDlyLine64fc_16sc(Zam64fc* pDlyLine, const ZamsIIRState64fc_16sc* pState);
ZAMSAPI zamStatus zamsIIRSetDlyLine64fc_16sc(const Zam64fc* pDlyLine, ZamsIIRState64fc_16sc* pState);
ZAMSAPI zamStatus zamsIIR64fc_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int len, ZamsIIRState64fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIR64fc_16sc_ISfs(Zam16sc* pSrcDst, int len, ZamsIIRState64fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsIIROne64fc_16sc_Sfs(Zam16sc src, Zam16sc* pDstVal, ZamsIIRState64fc_16sc* pState, int scaleFactor);

#endif /* ZAMS_FILTER_H */
