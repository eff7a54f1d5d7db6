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

/* Integer kinds: 16-bit over 32-bit float specs (orders 1 to 3 of hint 0 or 1
 * transform directly), 32-bit over 64-bit float specs. Results are scaled by
 * 2^-scaleFactor, rounded to nearest even and saturated. */
typedef struct ZamsFFTSpec_C_16sc ZamsFFTSpec_C_16sc;
typedef struct ZamsFFTSpec_C_16s ZamsFFTSpec_C_16s;
typedef struct ZamsFFTSpec_R_16s ZamsFFTSpec_R_16s;
typedef struct ZamsFFTSpec_C_32s ZamsFFTSpec_C_32s;
typedef struct ZamsFFTSpec_C_32sc ZamsFFTSpec_C_32sc;
typedef struct ZamsFFTSpec_R_32s ZamsFFTSpec_R_32s;
typedef struct ZamsFFTSpec_R_16s32s ZamsFFTSpec_R_16s32s;

ZAMSAPI zamStatus zamsFFTGetSize_C_16sc(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_16sc(ZamsFFTSpec_C_16sc** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_16sc(ZamsFFTSpec_C_16sc** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_16sc(const ZamsFFTSpec_C_16sc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_16sc(ZamsFFTSpec_C_16sc* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, const ZamsFFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_16sc_ISfs(Zam16sc* pSrcDst, const ZamsFFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, const ZamsFFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_16sc_ISfs(Zam16sc* pSrcDst, const ZamsFFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);

ZAMSAPI zamStatus zamsFFTGetSize_C_16s(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_16s(ZamsFFTSpec_C_16s** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_16s(ZamsFFTSpec_C_16s** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_16s(const ZamsFFTSpec_C_16s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_16s(ZamsFFTSpec_C_16s* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_16s_Sfs(const Zam16s* pSrcRe, const Zam16s* pSrcIm, Zam16s* pDstRe, Zam16s* pDstIm, const ZamsFFTSpec_C_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_16s_ISfs(Zam16s* pSrcDstRe, Zam16s* pSrcDstIm, const ZamsFFTSpec_C_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_16s_Sfs(const Zam16s* pSrcRe, const Zam16s* pSrcIm, Zam16s* pDstRe, Zam16s* pDstIm, const ZamsFFTSpec_C_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_16s_ISfs(Zam16s* pSrcDstRe, Zam16s* pSrcDstIm, const ZamsFFTSpec_C_16s* pSpec, int scaleFactor, Zam8u* pBuffer);

ZAMSAPI zamStatus zamsFFTGetSize_R_16s(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_R_16s(ZamsFFTSpec_R_16s** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_R_16s(ZamsFFTSpec_R_16s** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_R_16s(const ZamsFFTSpec_R_16s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_R_16s(ZamsFFTSpec_R_16s* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_16s_ISfs(Zam16s* pSrcDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_16s_ISfs(Zam16s* pSrcDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_16s_ISfs(Zam16s* pSrcDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_16s_ISfs(Zam16s* pSrcDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_16s_ISfs(Zam16s* pSrcDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_16s_ISfs(Zam16s* pSrcDst, const ZamsFFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);

ZAMSAPI zamStatus zamsFFTGetSize_C_32s(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_32s(ZamsFFTSpec_C_32s** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_32s(ZamsFFTSpec_C_32s** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_32s(const ZamsFFTSpec_C_32s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_32s(ZamsFFTSpec_C_32s* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32s_Sfs(const Zam32s* pSrcRe, const Zam32s* pSrcIm, Zam32s* pDstRe, Zam32s* pDstIm, const ZamsFFTSpec_C_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32s_ISfs(Zam32s* pSrcDstRe, Zam32s* pSrcDstIm, const ZamsFFTSpec_C_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32s_Sfs(const Zam32s* pSrcRe, const Zam32s* pSrcIm, Zam32s* pDstRe, Zam32s* pDstIm, const ZamsFFTSpec_C_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32s_ISfs(Zam32s* pSrcDstRe, Zam32s* pSrcDstIm, const ZamsFFTSpec_C_32s* pSpec, int scaleFactor, Zam8u* pBuffer);

ZAMSAPI zamStatus zamsFFTGetSize_C_32sc(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_C_32sc(ZamsFFTSpec_C_32sc** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_C_32sc(ZamsFFTSpec_C_32sc** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_C_32sc(const ZamsFFTSpec_C_32sc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_C_32sc(ZamsFFTSpec_C_32sc* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32sc_Sfs(const Zam32sc* pSrc, Zam32sc* pDst, const ZamsFFTSpec_C_32sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_CToC_32sc_ISfs(Zam32sc* pSrcDst, const ZamsFFTSpec_C_32sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32sc_Sfs(const Zam32sc* pSrc, Zam32sc* pDst, const ZamsFFTSpec_C_32sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CToC_32sc_ISfs(Zam32sc* pSrcDst, const ZamsFFTSpec_C_32sc* pSpec, int scaleFactor, Zam8u* pBuffer);

ZAMSAPI zamStatus zamsFFTGetSize_R_32s(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_R_32s(ZamsFFTSpec_R_32s** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_R_32s(ZamsFFTSpec_R_32s** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_R_32s(const ZamsFFTSpec_R_32s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_R_32s(ZamsFFTSpec_R_32s* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPerm_32s_ISfs(Zam32s* pSrcDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PermToR_32s_ISfs(Zam32s* pSrcDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToPack_32s_ISfs(Zam32s* pSrcDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_PackToR_32s_ISfs(Zam32s* pSrcDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_32s_ISfs(Zam32s* pSrcDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_32s_Sfs(const Zam32s* pSrc, Zam32s* pDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_32s_ISfs(Zam32s* pSrcDst, const ZamsFFTSpec_R_32s* pSpec, int scaleFactor, Zam8u* pBuffer);

ZAMSAPI zamStatus zamsFFTGetSize_R_16s32s(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTInit_R_16s32s(ZamsFFTSpec_R_16s32s** ppSpec, int order, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsFFTInitAlloc_R_16s32s(ZamsFFTSpec_R_16s32s** ppSpec, int order, int flag, int hint);
ZAMSAPI zamStatus zamsFFTGetBufSize_R_16s32s(const ZamsFFTSpec_R_16s32s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsFFTFree_R_16s32s(ZamsFFTSpec_R_16s32s* pSpec);
ZAMSAPI zamStatus zamsFFTFwd_RToCCS_16s32s_Sfs(const Zam16s* pSrc, Zam32s* pDst, const ZamsFFTSpec_R_16s32s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsFFTInv_CCSToR_32s16s_Sfs(const Zam32s* pSrc, Zam16s* pDst, const ZamsFFTSpec_R_16s32s* pSpec, int scaleFactor, Zam8u* pBuffer);

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
