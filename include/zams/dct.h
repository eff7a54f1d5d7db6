/* Discrete cosine transform: type II forward, type III inverse, orthonormal.
 *
 *   forward  y[0] = (1/sqrt(N)) sum x[n],
 *            y[k] = sqrt(2/N) sum x[n] cos(pi (2n+1) k / (2N)),  k = 1 .. N-1;
 *   inverse  x[n] = (1/sqrt(N)) y[0] + sqrt(2/N) sum_{k>=1} y[k] cos(pi (2n+1) k / (2N)),
 *
 * so the inverse undoes the forward. Each direction has its own DCT spec
 * with the FFT's life cycle: size it (zamsDCTFwdGetSize_*: spec bytes,
 * build-block bytes, work-buffer bytes), build it in caller memory
 * (zamsDCTFwdInit_*) or let the library allocate it (zamsDCTFwdInitAlloc_*),
 * ask for the work buffer (zamsDCTFwdGetBufSize_*), transform, release
 * (zamsDCTFwdFree_*). Transforms only read the DCT spec, so threads may share
 * one, each with its own work buffer (pBuffer: at least the reported
 * size, aligned by the call; or null to let the call allocate one).
 * Source and destination may be the same vector; the _I forms say so by
 * name. hint is stored and does not change the transform.
 *
 * How a length is transformed (32f, 64f; chosen from the length at Init):
 *  - N = 1, 2, 4, 8: a straight-line kernel of the length; the DCT spec is the
 *    bare header (pSpecSize 132 for 32f, 136 for 64f) and there is no
 *    work buffer;
 *  - a power of two from 16: the samples reordered (even ones ascending,
 *    odd ones descending), one real FFT of N and one twiddle pass;
 *  - other lengths up to 35: the sums directly, with a table of the 4N
 *    cosines cos(2 pi m / 4N). Sizes: 32f 16N + 192, 0, 4N + 64;
 *    64f 32N + 192, 0, 8N + 64;
 *  - other lengths from 36: the same reordering and twiddle pass around
 *    the library's real DFT of N (which handles lengths with large prime
 *    factors by a cyclic convolution).
 * Limits: a power of two up to 2^28 - 1, another length up to 2^25 - 1
 * in the size query. Init refuses a power of two above 2^28 - 1 and
 * another length above 2^26 - 1 by its own check (deliberately wider than
 * the size query's); either method's builder may refuse a length below
 * that limit with its own status (the DFT underneath takes lengths up to
 * 2^23; sizes that do not fit an int give zamStatusNoMemory).
 *
 * Argument checks, in order. Size query: len (-6), result pointers (-8),
 * the limits (-6). Float Init: len (-6), ppSpec (-8), pMemSpec (-8), the
 * limits (-6), pSpecBuffer when the build needs one (-8). 16-bit Init:
 * ppSpec (-8) before len (-6), then pMemSpec (-8). Transforms: pSpec,
 * pSrc, pDst (-8), the identifier (-17: a spec of the other direction or
 * another kind, or a released one), the internal work buffer (-9).
 *
 * The first coefficient's factor 1/sqrt(N) of the 32f kinds is computed as
 * the FFT's 1/sqrt(N) of flag 4: a 12-bit estimate refined by one Newton
 * step in single precision (deliberately not the correctly rounded value);
 * the other factor is sqrt(2)/sqrt(N) rounded once from double. The 64f
 * kinds take both in double.
 *
 * 16-bit kinds: a 24-byte header and an inner 32f spec of the same
 * direction and length built behind it (with hint 1); a call converts the
 * source to float, transforms, and converts back times 2^-scaleFactor,
 * rounded to nearest even and saturated. Sizes: N = 1 gives 88, 0, 0;
 * otherwise the 32f sizes with pSpecSize + 88 and pBufferSize + 4N + 64.
 *
 * zamsDCTInvGetSize_* report what zamsDCTFwdGetSize_* report.
 */
#ifndef ZAMS_DCT_H
#define ZAMS_DCT_H

typedef struct ZamsDCTFwdSpec_32f ZamsDCTFwdSpec_32f;
typedef struct ZamsDCTInvSpec_32f ZamsDCTInvSpec_32f;
typedef struct ZamsDCTFwdSpec_64f ZamsDCTFwdSpec_64f;
typedef struct ZamsDCTInvSpec_64f ZamsDCTInvSpec_64f;
typedef struct ZamsDCTFwdSpec_16s ZamsDCTFwdSpec_16s;
typedef struct ZamsDCTInvSpec_16s ZamsDCTInvSpec_16s;

/* 32f */
ZAMSAPI zamStatus zamsDCTFwdGetSize_32f(int len, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTInvGetSize_32f(int len, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTFwdInit_32f(ZamsDCTFwdSpec_32f** ppSpec, int len, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDCTInvInit_32f(ZamsDCTInvSpec_32f** ppSpec, int len, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDCTFwdInitAlloc_32f(ZamsDCTFwdSpec_32f** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsDCTInvInitAlloc_32f(ZamsDCTInvSpec_32f** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsDCTFwdGetBufSize_32f(const ZamsDCTFwdSpec_32f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTInvGetBufSize_32f(const ZamsDCTInvSpec_32f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTFwdFree_32f(ZamsDCTFwdSpec_32f* pSpec);
ZAMSAPI zamStatus zamsDCTInvFree_32f(ZamsDCTInvSpec_32f* pSpec);
ZAMSAPI zamStatus zamsDCTFwd_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDCTFwdSpec_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTInv_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDCTInvSpec_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTFwd_32f_I(Zam32f* pSrcDst, const ZamsDCTFwdSpec_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTInv_32f_I(Zam32f* pSrcDst, const ZamsDCTInvSpec_32f* pSpec, Zam8u* pBuffer);

/* 64f */
ZAMSAPI zamStatus zamsDCTFwdGetSize_64f(int len, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTInvGetSize_64f(int len, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTFwdInit_64f(ZamsDCTFwdSpec_64f** ppSpec, int len, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDCTInvInit_64f(ZamsDCTInvSpec_64f** ppSpec, int len, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDCTFwdInitAlloc_64f(ZamsDCTFwdSpec_64f** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsDCTInvInitAlloc_64f(ZamsDCTInvSpec_64f** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsDCTFwdGetBufSize_64f(const ZamsDCTFwdSpec_64f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTInvGetBufSize_64f(const ZamsDCTInvSpec_64f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTFwdFree_64f(ZamsDCTFwdSpec_64f* pSpec);
ZAMSAPI zamStatus zamsDCTInvFree_64f(ZamsDCTInvSpec_64f* pSpec);
ZAMSAPI zamStatus zamsDCTFwd_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDCTFwdSpec_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTInv_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDCTInvSpec_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTFwd_64f_I(Zam64f* pSrcDst, const ZamsDCTFwdSpec_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTInv_64f_I(Zam64f* pSrcDst, const ZamsDCTInvSpec_64f* pSpec, Zam8u* pBuffer);

/* 16s */
ZAMSAPI zamStatus zamsDCTFwdGetSize_16s(int len, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTInvGetSize_16s(int len, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTFwdInit_16s(ZamsDCTFwdSpec_16s** ppSpec, int len, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDCTInvInit_16s(ZamsDCTInvSpec_16s** ppSpec, int len, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDCTFwdInitAlloc_16s(ZamsDCTFwdSpec_16s** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsDCTInvInitAlloc_16s(ZamsDCTInvSpec_16s** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsDCTFwdGetBufSize_16s(const ZamsDCTFwdSpec_16s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTInvGetBufSize_16s(const ZamsDCTInvSpec_16s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDCTFwdFree_16s(ZamsDCTFwdSpec_16s* pSpec);
ZAMSAPI zamStatus zamsDCTInvFree_16s(ZamsDCTInvSpec_16s* pSpec);
ZAMSAPI zamStatus zamsDCTFwd_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDCTFwdSpec_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTInv_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDCTInvSpec_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTFwd_16s_ISfs(Zam16s* pSrcDst, const ZamsDCTFwdSpec_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDCTInv_16s_ISfs(Zam16s* pSrcDst, const ZamsDCTInvSpec_16s* pSpec, int scaleFactor, Zam8u* pBuffer);

#endif /* ZAMS_DCT_H */
