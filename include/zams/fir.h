/* Single-rate FIR filters: y[n] = sum over k < tapsLen of taps[k] x[n-k].
 *
 * State forms keep the taps and the delay line in an opaque state: size it with
 * zamsFIRGetStateSize*, lay it into caller memory with zamsFIRInit* (rounded up to 16
 * bytes) or allocate it with zamsFIRInitAlloc*, release it with zamsFIRFree* (a no-op
 * for a state in caller memory). The 32f size depends on the thread count at the time of
 * the query (zamSetNumThreads): build a state with the count it was sized with.
 *
 * Suffixes name taps then data: 64f_16s has 64-bit float taps over 16-bit data. Integer
 * taps with a tapsFactor stand for taps x 2^-tapsFactor. Integer data is filtered in the
 * taps' precision and written as round-to-nearest-even(y x 2^-scaleFactor), saturated;
 * the 32s_16s states keep their taps in 16 bits (shifted right while the largest exceeds
 * 32766) and apply the total scale to the exact sum of products.
 *
 * Delay lines given to or read from a state hold tapsLen samples, newest first (a null
 * one is all zeros); GetTaps returns the taps in the order given. After a block call the
 * delay line holds the last tapsLen inputs.
 *
 * Direct forms take the caller's delay line: 2 x tapsLen samples and an index in
 * [0, tapsLen) (the 32f forms take it as given; the others return -24 outside it), every
 * sample kept at i and i + tapsLen so that the span
 * [index, index + tapsLen) holds the last tapsLen samples oldest first. Each input is
 * written at index and index + tapsLen, the index advances, and the output is the span
 * against the reversed taps. zamsFIR_Direct_32f forms single-precision products and sums
 * them in double (eight partial sums from the first 32-byte-aligned span element when
 * tapsLen >= 16, one for the rest), rounding once per output.
 *
 * zamsFIR_32f runs an FFT overlap-save with the state's real FFT for blocks of 512 or more
 * when tapsLen >= 64 (split over threads from 1601 samples), direct sums otherwise.
 * Filtering never allocates. The sparse filter takes nonzero taps at strictly increasing
 * positions (-194 otherwise); its delay line has the last position's count of samples.
 *
 * Checks: pointers (-8), lengths (-6; tapsLen -26), the state's identifier (-17). */
#ifndef ZAMS_FIR_H
#define ZAMS_FIR_H

typedef struct ZamsFIRState_32f ZamsFIRState_32f;
typedef struct ZamsFIRState_32fc ZamsFIRState_32fc;
typedef struct ZamsFIRState_64f ZamsFIRState_64f;
typedef struct ZamsFIRState_64fc ZamsFIRState_64fc;
typedef struct ZamsFIRState64f_32s ZamsFIRState64f_32s;
typedef struct ZamsFIRState32f_16s ZamsFIRState32f_16s;
typedef struct ZamsFIRState32fc_16sc ZamsFIRState32fc_16sc;
typedef struct ZamsFIRState32s_16s ZamsFIRState32s_16s;
typedef struct ZamsFIRState32sc_16sc ZamsFIRState32sc_16sc;
typedef struct ZamsFIRState64f_16s ZamsFIRState64f_16s;
typedef struct ZamsFIRState64f_32f ZamsFIRState64f_32f;
typedef struct ZamsFIRState64fc_16sc ZamsFIRState64fc_16sc;
typedef struct ZamsFIRState64fc_32sc ZamsFIRState64fc_32sc;
typedef struct ZamsFIRState64fc_32fc ZamsFIRState64fc_32fc;
typedef struct ZamsFIRState_16s ZamsFIRState_16s;
typedef struct ZamsFIRSparseState_32f ZamsFIRSparseState_32f;

/* ---- state life cycle, one block a taps/data pair ---- */
/* 32f */
ZAMSAPI zamStatus zamsFIRGetStateSize_32f(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree_32f(ZamsFIRState_32f* pState);
ZAMSAPI zamStatus zamsFIRSetTaps_32f(const Zam32f* pTaps, ZamsFIRState_32f* pState);
ZAMSAPI zamStatus zamsFIRGetTaps_32f(const ZamsFIRState_32f* pState, Zam32f* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine_32f(ZamsFIRState_32f* pState, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine_32f(const ZamsFIRState_32f* pState, Zam32f* pDlyLine);
/* 32fc */
ZAMSAPI zamStatus zamsFIRGetStateSize_32fc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit_32fc(ZamsFIRState_32fc** ppState, const Zam32fc* pTaps, int tapsLen, const Zam32fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc_32fc(ZamsFIRState_32fc** ppState, const Zam32fc* pTaps, int tapsLen, const Zam32fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree_32fc(ZamsFIRState_32fc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps_32fc(const Zam32fc* pTaps, ZamsFIRState_32fc* pState);
ZAMSAPI zamStatus zamsFIRGetTaps_32fc(const ZamsFIRState_32fc* pState, Zam32fc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine_32fc(ZamsFIRState_32fc* pState, const Zam32fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine_32fc(const ZamsFIRState_32fc* pState, Zam32fc* pDlyLine);
/* 64f */
ZAMSAPI zamStatus zamsFIRGetStateSize_64f(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit_64f(ZamsFIRState_64f** ppState, const Zam64f* pTaps, int tapsLen, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc_64f(ZamsFIRState_64f** ppState, const Zam64f* pTaps, int tapsLen, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree_64f(ZamsFIRState_64f* pState);
ZAMSAPI zamStatus zamsFIRSetTaps_64f(const Zam64f* pTaps, ZamsFIRState_64f* pState);
ZAMSAPI zamStatus zamsFIRGetTaps_64f(const ZamsFIRState_64f* pState, Zam64f* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine_64f(ZamsFIRState_64f* pState, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine_64f(const ZamsFIRState_64f* pState, Zam64f* pDlyLine);
/* 64fc */
ZAMSAPI zamStatus zamsFIRGetStateSize_64fc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit_64fc(ZamsFIRState_64fc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc_64fc(ZamsFIRState_64fc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree_64fc(ZamsFIRState_64fc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps_64fc(const Zam64fc* pTaps, ZamsFIRState_64fc* pState);
ZAMSAPI zamStatus zamsFIRGetTaps_64fc(const ZamsFIRState_64fc* pState, Zam64fc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine_64fc(ZamsFIRState_64fc* pState, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine_64fc(const ZamsFIRState_64fc* pState, Zam64fc* pDlyLine);
/* 32s */
ZAMSAPI zamStatus zamsFIRGetStateSize_32s(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit_32s(ZamsFIRState64f_32s** ppState, const Zam32s* pTaps, int tapsLen, int tapsFactor, const Zam32s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc_32s(ZamsFIRState64f_32s** ppState, const Zam32s* pTaps, int tapsLen, int tapsFactor, const Zam32s* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree_32s(ZamsFIRState64f_32s* pState);
ZAMSAPI zamStatus zamsFIRSetTaps_32s(const Zam32s* pTaps, ZamsFIRState64f_32s* pState, int tapsFactor);
ZAMSAPI zamStatus zamsFIRGetTaps_32s(const ZamsFIRState64f_32s* pState, Zam32s* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine_32s(ZamsFIRState64f_32s* pState, const Zam32s* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine_32s(const ZamsFIRState64f_32s* pState, Zam32s* pDlyLine);
/* 32f_16s */
ZAMSAPI zamStatus zamsFIRGetStateSize32f_16s(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit32f_16s(ZamsFIRState32f_16s** ppState, const Zam32f* pTaps, int tapsLen, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc32f_16s(ZamsFIRState32f_16s** ppState, const Zam32f* pTaps, int tapsLen, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree32f_16s(ZamsFIRState32f_16s* pState);
ZAMSAPI zamStatus zamsFIRSetTaps32f_16s(const Zam32f* pTaps, ZamsFIRState32f_16s* pState);
ZAMSAPI zamStatus zamsFIRGetTaps32f_16s(const ZamsFIRState32f_16s* pState, Zam32f* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine32f_16s(ZamsFIRState32f_16s* pState, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine32f_16s(const ZamsFIRState32f_16s* pState, Zam16s* pDlyLine);
/* 32fc_16sc */
ZAMSAPI zamStatus zamsFIRGetStateSize32fc_16sc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit32fc_16sc(ZamsFIRState32fc_16sc** ppState, const Zam32fc* pTaps, int tapsLen, const Zam16sc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc32fc_16sc(ZamsFIRState32fc_16sc** ppState, const Zam32fc* pTaps, int tapsLen, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree32fc_16sc(ZamsFIRState32fc_16sc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps32fc_16sc(const Zam32fc* pTaps, ZamsFIRState32fc_16sc* pState);
ZAMSAPI zamStatus zamsFIRGetTaps32fc_16sc(const ZamsFIRState32fc_16sc* pState, Zam32fc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine32fc_16sc(ZamsFIRState32fc_16sc* pState, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine32fc_16sc(const ZamsFIRState32fc_16sc* pState, Zam16sc* pDlyLine);
/* 32s_16s */
ZAMSAPI zamStatus zamsFIRGetStateSize32s_16s(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit32s_16s(ZamsFIRState32s_16s** ppState, const Zam32s* pTaps, int tapsLen, int tapsFactor, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc32s_16s(ZamsFIRState32s_16s** ppState, const Zam32s* pTaps, int tapsLen, int tapsFactor, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree32s_16s(ZamsFIRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRSetTaps32s_16s(const Zam32s* pTaps, ZamsFIRState32s_16s* pState, int tapsFactor);
ZAMSAPI zamStatus zamsFIRGetTaps32s_16s(const ZamsFIRState32s_16s* pState, Zam32s* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine32s_16s(ZamsFIRState32s_16s* pState, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine32s_16s(const ZamsFIRState32s_16s* pState, Zam16s* pDlyLine);
/* 32s_16s32f */
ZAMSAPI zamStatus zamsFIRGetStateSize32s_16s32f(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit32s_16s32f(ZamsFIRState32s_16s** ppState, const Zam32f* pTaps, int tapsLen, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc32s_16s32f(ZamsFIRState32s_16s** ppState, const Zam32f* pTaps, int tapsLen, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree32s_16s32f(ZamsFIRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRSetTaps32s_16s32f(const Zam32f* pTaps, ZamsFIRState32s_16s* pState);
ZAMSAPI zamStatus zamsFIRGetTaps32s_16s32f(const ZamsFIRState32s_16s* pState, Zam32f* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine32s_16s32f(ZamsFIRState32s_16s* pState, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine32s_16s32f(const ZamsFIRState32s_16s* pState, Zam16s* pDlyLine);
/* 32sc_16sc */
ZAMSAPI zamStatus zamsFIRGetStateSize32sc_16sc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit32sc_16sc(ZamsFIRState32sc_16sc** ppState, const Zam32sc* pTaps, int tapsLen, int tapsFactor, const Zam16sc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc32sc_16sc(ZamsFIRState32sc_16sc** ppState, const Zam32sc* pTaps, int tapsLen, int tapsFactor, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree32sc_16sc(ZamsFIRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps32sc_16sc(const Zam32sc* pTaps, ZamsFIRState32sc_16sc* pState, int tapsFactor);
ZAMSAPI zamStatus zamsFIRGetTaps32sc_16sc(const ZamsFIRState32sc_16sc* pState, Zam32sc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine32sc_16sc(ZamsFIRState32sc_16sc* pState, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine32sc_16sc(const ZamsFIRState32sc_16sc* pState, Zam16sc* pDlyLine);
/* 32sc_16sc32fc */
ZAMSAPI zamStatus zamsFIRGetStateSize32sc_16sc32fc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit32sc_16sc32fc(ZamsFIRState32sc_16sc** ppState, const Zam32fc* pTaps, int tapsLen, const Zam16sc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc32sc_16sc32fc(ZamsFIRState32sc_16sc** ppState, const Zam32fc* pTaps, int tapsLen, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree32sc_16sc32fc(ZamsFIRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps32sc_16sc32fc(const Zam32fc* pTaps, ZamsFIRState32sc_16sc* pState);
ZAMSAPI zamStatus zamsFIRGetTaps32sc_16sc32fc(const ZamsFIRState32sc_16sc* pState, Zam32fc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine32sc_16sc32fc(ZamsFIRState32sc_16sc* pState, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine32sc_16sc32fc(const ZamsFIRState32sc_16sc* pState, Zam16sc* pDlyLine);
/* 64f_16s */
ZAMSAPI zamStatus zamsFIRGetStateSize64f_16s(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit64f_16s(ZamsFIRState64f_16s** ppState, const Zam64f* pTaps, int tapsLen, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc64f_16s(ZamsFIRState64f_16s** ppState, const Zam64f* pTaps, int tapsLen, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree64f_16s(ZamsFIRState64f_16s* pState);
ZAMSAPI zamStatus zamsFIRSetTaps64f_16s(const Zam64f* pTaps, ZamsFIRState64f_16s* pState);
ZAMSAPI zamStatus zamsFIRGetTaps64f_16s(const ZamsFIRState64f_16s* pState, Zam64f* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine64f_16s(ZamsFIRState64f_16s* pState, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine64f_16s(const ZamsFIRState64f_16s* pState, Zam16s* pDlyLine);
/* 64f_32s */
ZAMSAPI zamStatus zamsFIRGetStateSize64f_32s(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit64f_32s(ZamsFIRState64f_32s** ppState, const Zam64f* pTaps, int tapsLen, const Zam32s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc64f_32s(ZamsFIRState64f_32s** ppState, const Zam64f* pTaps, int tapsLen, const Zam32s* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree64f_32s(ZamsFIRState64f_32s* pState);
ZAMSAPI zamStatus zamsFIRSetTaps64f_32s(const Zam64f* pTaps, ZamsFIRState64f_32s* pState);
ZAMSAPI zamStatus zamsFIRGetTaps64f_32s(const ZamsFIRState64f_32s* pState, Zam64f* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine64f_32s(ZamsFIRState64f_32s* pState, const Zam32s* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine64f_32s(const ZamsFIRState64f_32s* pState, Zam32s* pDlyLine);
/* 64f_32f */
ZAMSAPI zamStatus zamsFIRGetStateSize64f_32f(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit64f_32f(ZamsFIRState64f_32f** ppState, const Zam64f* pTaps, int tapsLen, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc64f_32f(ZamsFIRState64f_32f** ppState, const Zam64f* pTaps, int tapsLen, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree64f_32f(ZamsFIRState64f_32f* pState);
ZAMSAPI zamStatus zamsFIRSetTaps64f_32f(const Zam64f* pTaps, ZamsFIRState64f_32f* pState);
ZAMSAPI zamStatus zamsFIRGetTaps64f_32f(const ZamsFIRState64f_32f* pState, Zam64f* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine64f_32f(ZamsFIRState64f_32f* pState, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine64f_32f(const ZamsFIRState64f_32f* pState, Zam32f* pDlyLine);
/* 64fc_16sc */
ZAMSAPI zamStatus zamsFIRGetStateSize64fc_16sc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit64fc_16sc(ZamsFIRState64fc_16sc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam16sc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc64fc_16sc(ZamsFIRState64fc_16sc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree64fc_16sc(ZamsFIRState64fc_16sc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps64fc_16sc(const Zam64fc* pTaps, ZamsFIRState64fc_16sc* pState);
ZAMSAPI zamStatus zamsFIRGetTaps64fc_16sc(const ZamsFIRState64fc_16sc* pState, Zam64fc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine64fc_16sc(ZamsFIRState64fc_16sc* pState, const Zam16sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine64fc_16sc(const ZamsFIRState64fc_16sc* pState, Zam16sc* pDlyLine);
/* 64fc_32sc */
ZAMSAPI zamStatus zamsFIRGetStateSize64fc_32sc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit64fc_32sc(ZamsFIRState64fc_32sc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam32sc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc64fc_32sc(ZamsFIRState64fc_32sc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam32sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree64fc_32sc(ZamsFIRState64fc_32sc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps64fc_32sc(const Zam64fc* pTaps, ZamsFIRState64fc_32sc* pState);
ZAMSAPI zamStatus zamsFIRGetTaps64fc_32sc(const ZamsFIRState64fc_32sc* pState, Zam64fc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine64fc_32sc(ZamsFIRState64fc_32sc* pState, const Zam32sc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine64fc_32sc(const ZamsFIRState64fc_32sc* pState, Zam32sc* pDlyLine);
/* 64fc_32fc */
ZAMSAPI zamStatus zamsFIRGetStateSize64fc_32fc(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit64fc_32fc(ZamsFIRState64fc_32fc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam32fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc64fc_32fc(ZamsFIRState64fc_32fc** ppState, const Zam64fc* pTaps, int tapsLen, const Zam32fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree64fc_32fc(ZamsFIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsFIRSetTaps64fc_32fc(const Zam64fc* pTaps, ZamsFIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsFIRGetTaps64fc_32fc(const ZamsFIRState64fc_32fc* pState, Zam64fc* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine64fc_32fc(ZamsFIRState64fc_32fc* pState, const Zam32fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine64fc_32fc(const ZamsFIRState64fc_32fc* pState, Zam32fc* pDlyLine);
/* 16s */
ZAMSAPI zamStatus zamsFIRGetStateSize_16s(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRInit_16s(ZamsFIRState_16s** ppState, const Zam16s* pTaps, int tapsLen, int tapsFactor, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRInitAlloc_16s(ZamsFIRState_16s** ppState, const Zam16s* pTaps, int tapsLen, int tapsFactor, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRFree_16s(ZamsFIRState_16s* pState);
ZAMSAPI zamStatus zamsFIRSetTaps_16s(const Zam16s* pTaps, ZamsFIRState_16s* pState, int tapsFactor);
ZAMSAPI zamStatus zamsFIRGetTaps_16s(const ZamsFIRState_16s* pState, Zam16s* pTaps);
ZAMSAPI zamStatus zamsFIRSetDlyLine_16s(ZamsFIRState_16s* pState, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRGetDlyLine_16s(const ZamsFIRState_16s* pState, Zam16s* pDlyLine);

/* The stream state (a 32f state of its own kind, filtered by zamsFIR_32f, freed by
 * zamsFIRFree_32f). */
ZAMSAPI zamStatus zamsFIRStreamGetStateSize_32f(int tapsLen, int* pSize);
ZAMSAPI zamStatus zamsFIRStreamInit_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRStreamInitAlloc_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, const Zam32f* pDlyLine);

/* Sparse filter. */
ZAMSAPI zamStatus zamsFIRSparseGetStateSize_32f(int nzTapsLen, int order, int* pSize);
ZAMSAPI zamStatus zamsFIRSparseInit_32f(ZamsFIRSparseState_32f** ppState, const Zam32f* pNZTaps, const Zam32s* pNZTapPos, int nzTapsLen, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRSparse_32f(const Zam32f* pSrc, Zam32f* pDst, int len, ZamsFIRSparseState_32f* pState);

/* ---- filtering with a state ---- */
ZAMSAPI zamStatus zamsFIR_32f(const Zam32f* pSrc, Zam32f* pDst, int numIters, ZamsFIRState_32f* pState);
ZAMSAPI zamStatus zamsFIR_32f_I(Zam32f* pSrcDst, int numIters, ZamsFIRState_32f* pState);
ZAMSAPI zamStatus zamsFIR_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int numIters, ZamsFIRState_32fc* pState);
ZAMSAPI zamStatus zamsFIR_32fc_I(Zam32fc* pSrcDst, int numIters, ZamsFIRState_32fc* pState);
ZAMSAPI zamStatus zamsFIR_64f(const Zam64f* pSrc, Zam64f* pDst, int numIters, ZamsFIRState_64f* pState);
ZAMSAPI zamStatus zamsFIR_64f_I(Zam64f* pSrcDst, int numIters, ZamsFIRState_64f* pState);
ZAMSAPI zamStatus zamsFIR_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int numIters, ZamsFIRState_64fc* pState);
ZAMSAPI zamStatus zamsFIR_64fc_I(Zam64fc* pSrcDst, int numIters, ZamsFIRState_64fc* pState);
ZAMSAPI zamStatus zamsFIR_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, int numIters, ZamsFIRState64f_32s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR_32s_ISfs(Zam32s* pSrcDst, int numIters, ZamsFIRState64f_32s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, ZamsFIRState_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR_16s_ISfs(Zam16s* pSrcDst, int numIters, ZamsFIRState_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32f_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, ZamsFIRState32f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32f_16s_ISfs(Zam16s* pSrcDst, int numIters, ZamsFIRState32f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32fc_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int numIters, ZamsFIRState32fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32fc_16sc_ISfs(Zam16sc* pSrcDst, int numIters, ZamsFIRState32fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32s_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, ZamsFIRState32s_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32s_16s_ISfs(Zam16s* pSrcDst, int numIters, ZamsFIRState32s_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32sc_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int numIters, ZamsFIRState32sc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32sc_16sc_ISfs(Zam16sc* pSrcDst, int numIters, ZamsFIRState32sc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, ZamsFIRState64f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_16s_ISfs(Zam16s* pSrcDst, int numIters, ZamsFIRState64f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_32f(const Zam32f* pSrc, Zam32f* pDst, int numIters, ZamsFIRState64f_32f* pState);
ZAMSAPI zamStatus zamsFIR64f_32f_I(Zam32f* pSrcDst, int numIters, ZamsFIRState64f_32f* pState);
ZAMSAPI zamStatus zamsFIR64f_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, int numIters, ZamsFIRState64f_32s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_32s_ISfs(Zam32s* pSrcDst, int numIters, ZamsFIRState64f_32s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int numIters, ZamsFIRState64fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_16sc_ISfs(Zam16sc* pSrcDst, int numIters, ZamsFIRState64fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int numIters, ZamsFIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsFIR64fc_32fc_I(Zam32fc* pSrcDst, int numIters, ZamsFIRState64fc_32fc* pState);
ZAMSAPI zamStatus zamsFIR64fc_32sc_Sfs(const Zam32sc* pSrc, Zam32sc* pDst, int numIters, ZamsFIRState64fc_32sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_32sc_ISfs(Zam32sc* pSrcDst, int numIters, ZamsFIRState64fc_32sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne_32f(Zam32f src, Zam32f* pDstVal, ZamsFIRState_32f* pState);
ZAMSAPI zamStatus zamsFIROne_64f(Zam64f src, Zam64f* pDstVal, ZamsFIRState_64f* pState);
ZAMSAPI zamStatus zamsFIROne32f_16s_Sfs(Zam16s src, Zam16s* pDstVal, ZamsFIRState32f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32fc_16sc_Sfs(Zam16sc src, Zam16sc* pDstVal, ZamsFIRState32fc_16sc* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32s_16s_Sfs(Zam16s src, Zam16s* pDstVal, ZamsFIRState32s_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64f_16s_Sfs(Zam16s src, Zam16s* pDstVal, ZamsFIRState64f_16s* pState, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64fc_16sc_Sfs(Zam16sc src, Zam16sc* pDstVal, ZamsFIRState64fc_16sc* pState, int scaleFactor);

/* ---- filtering with the caller's delay line ---- */
ZAMSAPI zamStatus zamsFIR_Direct_32f(const Zam32f* pSrc, Zam32f* pDst, int numIters, const Zam32f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_32f_I(Zam32f* pSrcDst, int numIters, const Zam32f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_32f(Zam32f src, Zam32f* pDstVal, const Zam32f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_32f_I(Zam32f* pSrcDstVal, const Zam32f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int numIters, const Zam32fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_32fc_I(Zam32fc* pSrcDst, int numIters, const Zam32fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_32fc(Zam32fc src, Zam32fc* pDstVal, const Zam32fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_32fc_I(Zam32fc* pSrcDstVal, const Zam32fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_64f(const Zam64f* pSrc, Zam64f* pDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam64f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_64f_I(Zam64f* pSrcDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam64f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_64f(Zam64f src, Zam64f* pDstVal, const Zam64f* pTaps, int tapsLen, Zam64f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_64f_I(Zam64f* pSrcDstVal, const Zam64f* pTaps, int tapsLen, Zam64f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam64fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_64fc_I(Zam64fc* pSrcDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam64fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_64fc(Zam64fc src, Zam64fc* pDstVal, const Zam64fc* pTaps, int tapsLen, Zam64fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne_Direct_64fc_I(Zam64fc* pSrcDstVal, const Zam64fc* pTaps, int tapsLen, Zam64fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR_Direct_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, const Zam16s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR_Direct_16s_ISfs(Zam16s* pSrcDst, int numIters, const Zam16s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne_Direct_16s_Sfs(Zam16s src, Zam16s* pDstVal, const Zam16s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne_Direct_16s_ISfs(Zam16s* pSrcDstVal, const Zam16s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32f_Direct_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, const Zam32f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32f_Direct_16s_ISfs(Zam16s* pSrcDst, int numIters, const Zam32f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32f_Direct_16s_Sfs(Zam16s src, Zam16s* pDstVal, const Zam32f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32f_Direct_16s_ISfs(Zam16s* pSrcDstVal, const Zam32f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32fc_Direct_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int numIters, const Zam32fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32fc_Direct_16sc_ISfs(Zam16sc* pSrcDst, int numIters, const Zam32fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32fc_Direct_16sc_Sfs(Zam16sc src, Zam16sc* pDstVal, const Zam32fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32fc_Direct_16sc_ISfs(Zam16sc* pSrcDstVal, const Zam32fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32s_Direct_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, const Zam32s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32s_Direct_16s_ISfs(Zam16s* pSrcDst, int numIters, const Zam32s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32s_Direct_16s_Sfs(Zam16s src, Zam16s* pDstVal, const Zam32s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32s_Direct_16s_ISfs(Zam16s* pSrcDstVal, const Zam32s* pTaps, int tapsLen, int tapsFactor, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32sc_Direct_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int numIters, const Zam32sc* pTaps, int tapsLen, int tapsFactor, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR32sc_Direct_16sc_ISfs(Zam16sc* pSrcDst, int numIters, const Zam32sc* pTaps, int tapsLen, int tapsFactor, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32sc_Direct_16sc_Sfs(Zam16sc src, Zam16sc* pDstVal, const Zam32sc* pTaps, int tapsLen, int tapsFactor, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne32sc_Direct_16sc_ISfs(Zam16sc* pSrcDstVal, const Zam32sc* pTaps, int tapsLen, int tapsFactor, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_Direct_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_Direct_16s_ISfs(Zam16s* pSrcDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64f_Direct_16s_Sfs(Zam16s src, Zam16s* pDstVal, const Zam64f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64f_Direct_16s_ISfs(Zam16s* pSrcDstVal, const Zam64f* pTaps, int tapsLen, Zam16s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_Direct_32f(const Zam32f* pSrc, Zam32f* pDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR64f_Direct_32f_I(Zam32f* pSrcDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne64f_Direct_32f(Zam32f src, Zam32f* pDstVal, const Zam64f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne64f_Direct_32f_I(Zam32f* pSrcDstVal, const Zam64f* pTaps, int tapsLen, Zam32f* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR64f_Direct_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64f_Direct_32s_ISfs(Zam32s* pSrcDst, int numIters, const Zam64f* pTaps, int tapsLen, Zam32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64f_Direct_32s_Sfs(Zam32s src, Zam32s* pDstVal, const Zam64f* pTaps, int tapsLen, Zam32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64f_Direct_32s_ISfs(Zam32s* pSrcDstVal, const Zam64f* pTaps, int tapsLen, Zam32s* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_Direct_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_Direct_16sc_ISfs(Zam16sc* pSrcDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64fc_Direct_16sc_Sfs(Zam16sc src, Zam16sc* pDstVal, const Zam64fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64fc_Direct_16sc_ISfs(Zam16sc* pSrcDstVal, const Zam64fc* pTaps, int tapsLen, Zam16sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_Direct_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR64fc_Direct_32fc_I(Zam32fc* pSrcDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne64fc_Direct_32fc(Zam32fc src, Zam32fc* pDstVal, const Zam64fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIROne64fc_Direct_32fc_I(Zam32fc* pSrcDstVal, const Zam64fc* pTaps, int tapsLen, Zam32fc* pDlyLine, int* pDlyLineIndex);
ZAMSAPI zamStatus zamsFIR64fc_Direct_32sc_Sfs(const Zam32sc* pSrc, Zam32sc* pDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIR64fc_Direct_32sc_ISfs(Zam32sc* pSrcDst, int numIters, const Zam64fc* pTaps, int tapsLen, Zam32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64fc_Direct_32sc_Sfs(Zam32sc src, Zam32sc* pDstVal, const Zam64fc* pTaps, int tapsLen, Zam32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);
ZAMSAPI zamStatus zamsFIROne64fc_Direct_32sc_ISfs(Zam32sc* pSrcDstVal, const Zam64fc* pTaps, int tapsLen, Zam32sc* pDlyLine, int* pDlyLineIndex, int scaleFactor);

/* ---- multirate filters ----
 * A multirate filter up-samples by upFactor (each input x[i] placed at i x upFactor + upPhase,
 * zeros between), filters with the taps, and keeps every downFactor-th sample starting at
 * downPhase. Factors below 1 give -29, phases outside [0, factor) give -28.
 * numIters counts whole blocks: each block reads downFactor inputs and writes upFactor
 * outputs, so pSrc holds numIters x downFactor samples and pDst numIters x upFactor.
 * An in-place call (_I) needs a vector of the larger of the two lengths.
 *
 * The delay line holds ceil(tapsLen / upFactor) input samples, newest first (null: zeros);
 * GetDlyLine and SetDlyLine move that many. The states are of the single-rate types and
 * are used through their entry points: zamsFIR_32f, zamsFIR_32f_I, zamsFIRSetTaps_32f,
 * zamsFIRGetTaps_32f, zamsFIRSetDlyLine_32f, zamsFIRGetDlyLine_32f and zamsFIRFree_32f
 * take a 32f multirate state (the stream state: zamsFIR_32f and zamsFIRFree_32f only); the
 * 32fc, 64f, 64fc, 32f_16s and 32s_16s entry points take a multirate state of their type.
 * The one-sample forms refuse them (-17). 32s_16s keeps its taps in 16 bits by the
 * single-rate rule (shifted right while the largest exceeds 32766; given as floats: scaled
 * by the power of two that brings the largest finite one to at most 32766, rounded to
 * nearest even; an infinite tap is held to +-32766 and a NaN tap is 0) and sums exactly.
 *
 * Sizes: GetStateSize takes the taps length and both factors; Init lays the state into a
 * buffer of that size (rounded up to 32 bytes). Checks: pointers (-8), tapsLen (-26),
 * then the factors and phases in the order they stand; a state too large for a 32-bit
 * size gives -9. Filtering never allocates. */
ZAMSAPI zamStatus zamsFIRMRGetStateSize_32f(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRInit_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRInitAlloc_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsFIRMRStreamGetStateSize_32f(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRStreamInit_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam32f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRStreamInitAlloc_32f(ZamsFIRState_32f** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam32f* pDlyLine);
ZAMSAPI zamStatus zamsFIRMRGetStateSize_32fc(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRInit_32fc(ZamsFIRState_32fc** ppState, const Zam32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam32fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRInitAlloc_32fc(ZamsFIRState_32fc** ppState, const Zam32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam32fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRMRGetStateSize_64f(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRInit_64f(ZamsFIRState_64f** ppState, const Zam64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam64f* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRInitAlloc_64f(ZamsFIRState_64f** ppState, const Zam64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam64f* pDlyLine);
ZAMSAPI zamStatus zamsFIRMRGetStateSize_64fc(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRInit_64fc(ZamsFIRState_64fc** ppState, const Zam64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam64fc* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRInitAlloc_64fc(ZamsFIRState_64fc** ppState, const Zam64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam64fc* pDlyLine);
ZAMSAPI zamStatus zamsFIRMRGetStateSize32f_16s(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRInit32f_16s(ZamsFIRState32f_16s** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRInitAlloc32f_16s(ZamsFIRState32f_16s** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRMRGetStateSize32s_16s(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRInit32s_16s(ZamsFIRState32s_16s** ppState, const Zam32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRInitAlloc32s_16s(ZamsFIRState32s_16s** ppState, const Zam32s* pTaps, int tapsLen, int tapsFactor, int upFactor, int upPhase, int downFactor, int downPhase, const Zam16s* pDlyLine);
ZAMSAPI zamStatus zamsFIRMRGetStateSize32s_16s32f(int tapsLen, int upFactor, int downFactor, int* pSize);
ZAMSAPI zamStatus zamsFIRMRInit32s_16s32f(ZamsFIRState32s_16s** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam16s* pDlyLine, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFIRMRInitAlloc32s_16s32f(ZamsFIRState32s_16s** ppState, const Zam32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, const Zam16s* pDlyLine);

#endif
