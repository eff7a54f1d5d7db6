/* FFT specifications, complex and real transforms, packed spectra.
 *
 * A transform of N = 2^order points runs against a spec built once by
 * zamsFFTInit_* (in caller memory of the size zamsFFTGetSize_* reports) or
 * zamsFFTInitAlloc_*, and released by zamsFFTFree_*. Transforms only read the
 * spec, so threads may share one, each with its own work buffer (pBuffer, of
 * the size zamsFFTGetBufSize_* reports, or null to let the call allocate). */
#ifndef ZAMS_FFT_H
#define ZAMS_FFT_H

/* Opaque spec types, one a kind. */
typedef struct ZamsFFTSpec_C_32fc ZamsFFTSpec_C_32fc;
typedef struct ZamsFFTSpec_C_32f ZamsFFTSpec_C_32f;
typedef struct ZamsFFTSpec_C_64fc ZamsFFTSpec_C_64fc;
typedef struct ZamsFFTSpec_C_64f ZamsFFTSpec_C_64f;
typedef struct ZamsFFTSpec_R_32f ZamsFFTSpec_R_32f;
typedef struct ZamsFFTSpec_R_64f ZamsFFTSpec_R_64f;

/* C_32fc */
ZAMSAPI zamStatus zamsFFTGetSize_C_32fc(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_32fc(ZamsFFTSpec_C_32fc** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_32fc(ZamsFFTSpec_C_32fc** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_32fc(const ZamsFFTSpec_C_32fc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_32fc(ZamsFFTSpec_C_32fc* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32fc(const Zam32fc* pSrc, Zam32fc* pDst, const ZamsFFTSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32fc_I(Zam32fc* pSrcDst, const ZamsFFTSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32fc(const Zam32fc* pSrc, Zam32fc* pDst, const ZamsFFTSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32fc_I(Zam32fc* pSrcDst, const ZamsFFTSpec_C_32fc* pSpec, Zam8u* pBuffer);

/* C_32f */
ZAMSAPI zamStatus zamsFFTGetSize_C_32f(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_32f(ZamsFFTSpec_C_32f** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_32f(ZamsFFTSpec_C_32f** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_32f(const ZamsFFTSpec_C_32f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_32f(ZamsFFTSpec_C_32f* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32f(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDstRe, Zam32f* pDstIm, const ZamsFFTSpec_C_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32f_I(Zam32f* pSrcDstRe, Zam32f* pSrcDstIm, const ZamsFFTSpec_C_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32f(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDstRe, Zam32f* pDstIm, const ZamsFFTSpec_C_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32f_I(Zam32f* pSrcDstRe, Zam32f* pSrcDstIm, const ZamsFFTSpec_C_32f* pSpec, Zam8u* pBuffer);

/* C_64fc */
ZAMSAPI zamStatus zamsFFTGetSize_C_64fc(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_64fc(ZamsFFTSpec_C_64fc** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_64fc(ZamsFFTSpec_C_64fc** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_64fc(const ZamsFFTSpec_C_64fc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_64fc(ZamsFFTSpec_C_64fc* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_64fc(const Zam64fc* pSrc, Zam64fc* pDst, const ZamsFFTSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_64fc_I(Zam64fc* pSrcDst, const ZamsFFTSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_64fc(const Zam64fc* pSrc, Zam64fc* pDst, const ZamsFFTSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_64fc_I(Zam64fc* pSrcDst, const ZamsFFTSpec_C_64fc* pSpec, Zam8u* pBuffer);

/* C_64f */
ZAMSAPI zamStatus zamsFFTGetSize_C_64f(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_64f(ZamsFFTSpec_C_64f** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_64f(ZamsFFTSpec_C_64f** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_64f(const ZamsFFTSpec_C_64f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_64f(ZamsFFTSpec_C_64f* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_64f(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDstRe, Zam64f* pDstIm, const ZamsFFTSpec_C_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_64f_I(Zam64f* pSrcDstRe, Zam64f* pSrcDstIm, const ZamsFFTSpec_C_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_64f(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDstRe, Zam64f* pDstIm, const ZamsFFTSpec_C_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_64f_I(Zam64f* pSrcDstRe, Zam64f* pSrcDstIm, const ZamsFFTSpec_C_64f* pSpec, Zam8u* pBuffer);

/* R_32f */
ZAMSAPI zamStatus zamsFFTGetSize_R_32f(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_R_32f(ZamsFFTSpec_R_32f** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_R_32f(ZamsFFTSpec_R_32f** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_R_32f(const ZamsFFTSpec_R_32f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_R_32f(ZamsFFTSpec_R_32f* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_32f_I(Zam32f* pSrcDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_32f_I(Zam32f* pSrcDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_32f_I(Zam32f* pSrcDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_32f_I(Zam32f* pSrcDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_32f_I(Zam32f* pSrcDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_32f_I(Zam32f* pSrcDst, const ZamsFFTSpec_R_32f* pSpec, Zam8u* pBuffer);

/* R_64f */
ZAMSAPI zamStatus zamsFFTGetSize_R_64f(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_R_64f(ZamsFFTSpec_R_64f** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_R_64f(ZamsFFTSpec_R_64f** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_R_64f(const ZamsFFTSpec_R_64f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_R_64f(ZamsFFTSpec_R_64f* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_64f_I(Zam64f* pSrcDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_64f_I(Zam64f* pSrcDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_64f_I(Zam64f* pSrcDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_64f_I(Zam64f* pSrcDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_64f_I(Zam64f* pSrcDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_64f_I(Zam64f* pSrcDst, const ZamsFFTSpec_R_64f* pSpec, Zam8u* pBuffer);

/* Packed spectra: products and expansion to a full conjugate-symmetric spectrum. */
ZAMSAPI zamStatus zamsMulPack_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMulPack_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulPerm_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMulPerm_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulPackConj_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulPack_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMulPack_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulPerm_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMulPerm_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulPackConj_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulPack_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulPack_16s_ISfs(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulPerm_16s_Sfs(const Zam16s* pSrc1, const Zam16s* pSrc2, Zam16s* pDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsMulPerm_16s_ISfs(const Zam16s* pSrc, Zam16s* pSrcDst, int len, int scaleFactor);
ZAMSAPI zamStatus zamsConjPack_32fc(const Zam32f* pSrc, Zam32fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjPack_32fc_I(Zam32fc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjPerm_32fc(const Zam32f* pSrc, Zam32fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjPerm_32fc_I(Zam32fc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjCcs_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjCcs_32fc_I(Zam32fc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjPack_64fc(const Zam64f* pSrc, Zam64fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjPack_64fc_I(Zam64fc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjPerm_64fc(const Zam64f* pSrc, Zam64fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjPerm_64fc_I(Zam64fc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjCcs_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjCcs_64fc_I(Zam64fc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjPack_16sc(const Zam16s* pSrc, Zam16sc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjPack_16sc_I(Zam16sc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjPerm_16sc(const Zam16s* pSrc, Zam16sc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjPerm_16sc_I(Zam16sc* pSrcDst, int dstLen);
ZAMSAPI zamStatus zamsConjCcs_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int dstLen);
ZAMSAPI zamStatus zamsConjCcs_16sc_I(Zam16sc* pSrcDst, int dstLen);

#endif
