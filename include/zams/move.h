/* Initialisation and movement: Copy, Move, Set, Zero, Flip, SwapBytes,
 * complex parts. Every function checks its pointers (-8), then its length
 * (-6 below 1). */
#ifndef ZAMS_MOVE_H
#define ZAMS_MOVE_H

/* pDst[i] = pSrc[i]; the vectors must not overlap (use Move). */
ZAMSAPI zamStatus zamsCopy_8u(const Zam8u* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsCopy_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsCopy_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsCopy_32s(const Zam32s* pSrc, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsCopy_32sc(const Zam32sc* pSrc, Zam32sc* pDst, int len);
ZAMSAPI zamStatus zamsCopy_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsCopy_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsCopy_64s(const Zam64s* pSrc, Zam64s* pDst, int len);
ZAMSAPI zamStatus zamsCopy_64sc(const Zam64sc* pSrc, Zam64sc* pDst, int len);
ZAMSAPI zamStatus zamsCopy_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsCopy_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);

/* Copies len bits. Bits are numbered from the most significant bit of each
 * byte: bit offset 0 is the top bit of the first byte. Offsets are 0..7
 * (-5 otherwise); bits of the destination outside the copied range keep
 * their values. */
ZAMSAPI zamStatus zamsCopy_1u(const Zam8u* pSrc, int srcBitOffset, Zam8u* pDst, int dstBitOffset, int len);

/* As Copy, correct for vectors that overlap in either direction. */
ZAMSAPI zamStatus zamsMove_8u(const Zam8u* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsMove_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsMove_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsMove_32s(const Zam32s* pSrc, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsMove_32sc(const Zam32sc* pSrc, Zam32sc* pDst, int len);
ZAMSAPI zamStatus zamsMove_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMove_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsMove_64s(const Zam64s* pSrc, Zam64s* pDst, int len);
ZAMSAPI zamStatus zamsMove_64sc(const Zam64sc* pSrc, Zam64sc* pDst, int len);
ZAMSAPI zamStatus zamsMove_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMove_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);

/* pDst[i] = val. */
ZAMSAPI zamStatus zamsSet_8u(Zam8u val, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsSet_16s(Zam16s val, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsSet_16sc(Zam16sc val, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsSet_32s(Zam32s val, Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsSet_32sc(Zam32sc val, Zam32sc* pDst, int len);
ZAMSAPI zamStatus zamsSet_32f(Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSet_32fc(Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSet_64s(Zam64s val, Zam64s* pDst, int len);
ZAMSAPI zamStatus zamsSet_64sc(Zam64sc val, Zam64sc* pDst, int len);
ZAMSAPI zamStatus zamsSet_64f(Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSet_64fc(Zam64fc val, Zam64fc* pDst, int len);

/* pDst[i] = 0, all bits zero. */
ZAMSAPI zamStatus zamsZero_8u(Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsZero_16s(Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsZero_16sc(Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsZero_32s(Zam32s* pDst, int len);
ZAMSAPI zamStatus zamsZero_32sc(Zam32sc* pDst, int len);
ZAMSAPI zamStatus zamsZero_32f(Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsZero_32fc(Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsZero_64s(Zam64s* pDst, int len);
ZAMSAPI zamStatus zamsZero_64sc(Zam64sc* pDst, int len);
ZAMSAPI zamStatus zamsZero_64f(Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsZero_64fc(Zam64fc* pDst, int len);

/* pDst[i] = pSrc[len - 1 - i]; the _I forms reverse in place. */
ZAMSAPI zamStatus zamsFlip_8u(const Zam8u* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsFlip_8u_I(Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsFlip_16u(const Zam16u* pSrc, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsFlip_16u_I(Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsFlip_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsFlip_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsFlip_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsFlip_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsFlip_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsFlip_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsFlip_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsFlip_64fc_I(Zam64fc* pSrcDst, int len);

/* Reverses the bytes of each element; a 24u element (3 bytes, len counts
 * elements) has its first and third bytes exchanged. */
ZAMSAPI zamStatus zamsSwapBytes_16u(const Zam16u* pSrc, Zam16u* pDst, int len);
ZAMSAPI zamStatus zamsSwapBytes_16u_I(Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSwapBytes_24u(const Zam8u* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsSwapBytes_24u_I(Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSwapBytes_32u(const Zam32u* pSrc, Zam32u* pDst, int len);
ZAMSAPI zamStatus zamsSwapBytes_32u_I(Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSwapBytes_64u(const Zam64u* pSrc, Zam64u* pDst, int len);
ZAMSAPI zamStatus zamsSwapBytes_64u_I(Zam64u* pSrcDst, int len);

/* Parts of complex vectors. */
ZAMSAPI zamStatus zamsReal_16sc(const Zam16sc* pSrc, Zam16s* pDstRe, int len);
ZAMSAPI zamStatus zamsReal_32fc(const Zam32fc* pSrc, Zam32f* pDstRe, int len);
ZAMSAPI zamStatus zamsReal_64fc(const Zam64fc* pSrc, Zam64f* pDstRe, int len);
ZAMSAPI zamStatus zamsImag_16sc(const Zam16sc* pSrc, Zam16s* pDstIm, int len);
ZAMSAPI zamStatus zamsImag_32fc(const Zam32fc* pSrc, Zam32f* pDstIm, int len);
ZAMSAPI zamStatus zamsImag_64fc(const Zam64fc* pSrc, Zam64f* pDstIm, int len);
ZAMSAPI zamStatus zamsCplxToReal_16sc(const Zam16sc* pSrc, Zam16s* pDstRe, Zam16s* pDstIm, int len);
ZAMSAPI zamStatus zamsCplxToReal_32fc(const Zam32fc* pSrc, Zam32f* pDstRe, Zam32f* pDstIm, int len);
ZAMSAPI zamStatus zamsCplxToReal_64fc(const Zam64fc* pSrc, Zam64f* pDstRe, Zam64f* pDstIm, int len);
ZAMSAPI zamStatus zamsRealToCplx_16s(const Zam16s* pSrcRe, const Zam16s* pSrcIm, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsRealToCplx_32f(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsRealToCplx_64f(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64fc* pDst, int len);

/* Conjugates; the 16sc forms saturate, so -32768 becomes 32767. */
ZAMSAPI zamStatus zamsConj_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsConj_16sc_I(Zam16sc* pSrcDst, int len);
ZAMSAPI zamStatus zamsConj_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsConj_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsConj_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsConj_64fc_I(Zam64fc* pSrcDst, int len);
/* pDst[i] = conj(pSrc[len - 1 - i]). */
ZAMSAPI zamStatus zamsConjFlip_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsConjFlip_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsConjFlip_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);

#endif
