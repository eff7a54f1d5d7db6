/* DFT of any length, Hilbert transform, Goertzel.
 *
 * DFT. The FFT's life cycle with a length in place of the order: size a
 * spec (zamsDFTGetSize_*: spec bytes, build-block bytes, work-buffer bytes),
 * build it in caller memory (zamsDFTInit_*) or let the library allocate it
 * (zamsDFTInitAlloc_*), run transforms, release it (zamsDFTFree_*).
 * Lengths 1 to 8,388,608 (2^23); any other gives zamStatusBadLength. flag is
 * the FFT's normalisation flag (1 forward by 1/len, 2 inverse by 1/len, 4
 * both by 1/sqrt(len), 8 none; anything else zamStatusBadFftFlag); hint is
 * stored and does not change the transform. Transforms only read the DFT spec,
 * so threads may share one, each with its own work buffer (pBuffer, of the
 * size zamsDFTGetBufSize_* reports, aligned by the call; or null to let the
 * call allocate one). Source and destination may be the same vector (in
 * place); the _I forms say so by name.
 *
 * Argument checks, in order. Size query: len, result pointers (-8), flag.
 * Init: ppSpec, len, pMemSpec, flag (the memory's identifier is left
 * cleared), pSpecBuffer when the build needs one. Transforms: pSpec (-8),
 * its identifier (-17), the vectors (-8), the internal work buffer (-9).
 *
 * How a length is transformed (chosen from the length alone at Init):
 *  - a power of two: the power-of-two FFT, its spec built inside this one;
 *  - prime factors all at most 64: self-sorting mixed-radix passes of radix
 *    4, 2, 3, 5, 7 and any other odd prime up to 64, twiddles precomputed,
 *    AVX on four (float) or two (double) complex values at a time; in
 *    double precision from 3072 points, len = 2^k m with 2^k >= 64 runs
 *    m's passes over the 2^k columns (the twiddles between the two parts in
 *    the last of them), the power-of-two FFT on each of the m rows and one
 *    interleaving pass;
 *  - a prime p with p - 1 a power of two (257, 65537): Rader's cyclic
 *    convolution of length p - 1 over the powers of a generator;
 *  - any other length (a prime factor above 64): Bluestein's chirp product
 *    around a cyclic convolution of length M >= 2 len - 1, M = 2^k o with
 *    o odd and no prime factor above 7, the M of least estimated cost
 *    (4099: 8232 = 2^3 3 7^3 rather than 16384).
 * Rader's convolution and Bluestein's on a power of two run the library's
 * block convolution engine over the power-of-two FFT; Bluestein's on any
 * other M runs the mixed-radix plan of M above, unscaled. The kernel's
 * spectrum is computed at Init.
 * Normalisation is applied in the last pass (scale factors 1/len and
 * 1/sqrt(len) rounded once from double); a power of two takes the FFT's
 * own factors.
 *
 * Real kinds (R_32f, R_64f): spectra in the FFT's packed formats. Even
 * len: Perm (len values: R0, R(len/2), R1, I1, ...), Pack (len values: R0,
 * R1, I1, ..., R(len/2)), CCS (len + 2 values: R0, 0, R1, I1, ...,
 * R(len/2), 0). Odd len: Perm and Pack both R0, R1, I1, ...,
 * R((len-1)/2), I((len-1)/2) (len values), CCS the (len+1)/2 complex
 * values X[0] ... X[(len-1)/2] (len + 1 values). An even length runs a
 * complex DFT of len/2 points on the samples taken in pairs and one
 * recombination pass; an odd one a complex DFT of the real samples.
 * The inverse transforms read X[0] (and X[len/2]) as real.
 *
 * 16-bit kinds (C_16sc, R_16s): through an inner 32-bit float spec of the
 * same length and flag; results are times 2^-scaleFactor, rounded to
 * nearest even and saturated.
 *
 * OutOrd kinds (C_32fc, C_64fc): the forward transform leaves the spectrum
 * in an order of the library's choosing and the OutOrd inverse takes that
 * order back; element-wise products of two spectra made with one spec are
 * spectra of cyclic convolutions. Callers must not rely on the order (in
 * this version it is the natural one).
 */
#ifndef ZAMS_DFT_H
#define ZAMS_DFT_H

typedef struct ZamsDFTSpec_C_32fc ZamsDFTSpec_C_32fc;
typedef struct ZamsDFTSpec_C_64fc ZamsDFTSpec_C_64fc;
typedef struct ZamsDFTSpec_R_32f ZamsDFTSpec_R_32f;
typedef struct ZamsDFTSpec_R_64f ZamsDFTSpec_R_64f;
typedef struct ZamsDFTSpec_C_16sc ZamsDFTSpec_C_16sc;
typedef struct ZamsDFTSpec_R_16s ZamsDFTSpec_R_16s;
typedef struct ZamsDFTOutOrdSpec_C_32fc ZamsDFTOutOrdSpec_C_32fc;
typedef struct ZamsDFTOutOrdSpec_C_64fc ZamsDFTOutOrdSpec_C_64fc;
typedef struct ZamsHilbertSpec_32f32fc ZamsHilbertSpec_32f32fc;
typedef struct ZamsHilbertSpec_16s32fc ZamsHilbertSpec_16s32fc;
typedef struct ZamsHilbertSpec_16s16sc ZamsHilbertSpec_16s16sc;


/* DFT C_32fc */
ZAMSAPI zamStatus zamsDFTGetSize_C_32fc(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTInit_C_32fc(ZamsDFTSpec_C_32fc** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTInitAlloc_C_32fc(ZamsDFTSpec_C_32fc** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTGetBufSize_C_32fc(const ZamsDFTSpec_C_32fc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTFree_C_32fc(ZamsDFTSpec_C_32fc* pSpec);
ZAMSAPI zamStatus zamsDFTFwd_CToC_32fc(const Zam32fc* pSrc, Zam32fc* pDst, const ZamsDFTSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_CToC_32fc_I(Zam32fc* pSrcDst, const ZamsDFTSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CToC_32fc(const Zam32fc* pSrc, Zam32fc* pDst, const ZamsDFTSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CToC_32fc_I(Zam32fc* pSrcDst, const ZamsDFTSpec_C_32fc* pSpec, Zam8u* pBuffer);

/* DFT C_64fc */
ZAMSAPI zamStatus zamsDFTGetSize_C_64fc(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTInit_C_64fc(ZamsDFTSpec_C_64fc** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTInitAlloc_C_64fc(ZamsDFTSpec_C_64fc** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTGetBufSize_C_64fc(const ZamsDFTSpec_C_64fc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTFree_C_64fc(ZamsDFTSpec_C_64fc* pSpec);
ZAMSAPI zamStatus zamsDFTFwd_CToC_64fc(const Zam64fc* pSrc, Zam64fc* pDst, const ZamsDFTSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_CToC_64fc_I(Zam64fc* pSrcDst, const ZamsDFTSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CToC_64fc(const Zam64fc* pSrc, Zam64fc* pDst, const ZamsDFTSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CToC_64fc_I(Zam64fc* pSrcDst, const ZamsDFTSpec_C_64fc* pSpec, Zam8u* pBuffer);

/* DFTOutOrd C_32fc */
ZAMSAPI zamStatus zamsDFTOutOrdGetSize_C_32fc(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTOutOrdInit_C_32fc(ZamsDFTOutOrdSpec_C_32fc** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdInitAlloc_C_32fc(ZamsDFTOutOrdSpec_C_32fc** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTOutOrdGetBufSize_C_32fc(const ZamsDFTOutOrdSpec_C_32fc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTOutOrdFree_C_32fc(ZamsDFTOutOrdSpec_C_32fc* pSpec);
ZAMSAPI zamStatus zamsDFTOutOrdFwd_CToC_32fc(const Zam32fc* pSrc, Zam32fc* pDst, const ZamsDFTOutOrdSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdFwd_CToC_32fc_I(Zam32fc* pSrcDst, const ZamsDFTOutOrdSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdInv_CToC_32fc(const Zam32fc* pSrc, Zam32fc* pDst, const ZamsDFTOutOrdSpec_C_32fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdInv_CToC_32fc_I(Zam32fc* pSrcDst, const ZamsDFTOutOrdSpec_C_32fc* pSpec, Zam8u* pBuffer);

/* DFTOutOrd C_64fc */
ZAMSAPI zamStatus zamsDFTOutOrdGetSize_C_64fc(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTOutOrdInit_C_64fc(ZamsDFTOutOrdSpec_C_64fc** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdInitAlloc_C_64fc(ZamsDFTOutOrdSpec_C_64fc** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTOutOrdGetBufSize_C_64fc(const ZamsDFTOutOrdSpec_C_64fc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTOutOrdFree_C_64fc(ZamsDFTOutOrdSpec_C_64fc* pSpec);
ZAMSAPI zamStatus zamsDFTOutOrdFwd_CToC_64fc(const Zam64fc* pSrc, Zam64fc* pDst, const ZamsDFTOutOrdSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdFwd_CToC_64fc_I(Zam64fc* pSrcDst, const ZamsDFTOutOrdSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdInv_CToC_64fc(const Zam64fc* pSrc, Zam64fc* pDst, const ZamsDFTOutOrdSpec_C_64fc* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTOutOrdInv_CToC_64fc_I(Zam64fc* pSrcDst, const ZamsDFTOutOrdSpec_C_64fc* pSpec, Zam8u* pBuffer);

/* DFT R_32f */
ZAMSAPI zamStatus zamsDFTGetSize_R_32f(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTInit_R_32f(ZamsDFTSpec_R_32f** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTInitAlloc_R_32f(ZamsDFTSpec_R_32f** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTGetBufSize_R_32f(const ZamsDFTSpec_R_32f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTFree_R_32f(ZamsDFTSpec_R_32f* pSpec);
ZAMSAPI zamStatus zamsDFTFwd_RToPerm_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToPerm_32f_I(Zam32f* pSrcDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PermToR_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PermToR_32f_I(Zam32f* pSrcDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToPack_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToPack_32f_I(Zam32f* pSrcDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PackToR_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PackToR_32f_I(Zam32f* pSrcDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToCCS_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToCCS_32f_I(Zam32f* pSrcDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CCSToR_32f(const Zam32f* pSrc, Zam32f* pDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CCSToR_32f_I(Zam32f* pSrcDst, const ZamsDFTSpec_R_32f* pSpec, Zam8u* pBuffer);

/* DFT R_64f */
ZAMSAPI zamStatus zamsDFTGetSize_R_64f(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTInit_R_64f(ZamsDFTSpec_R_64f** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTInitAlloc_R_64f(ZamsDFTSpec_R_64f** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTGetBufSize_R_64f(const ZamsDFTSpec_R_64f* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTFree_R_64f(ZamsDFTSpec_R_64f* pSpec);
ZAMSAPI zamStatus zamsDFTFwd_RToPerm_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToPerm_64f_I(Zam64f* pSrcDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PermToR_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PermToR_64f_I(Zam64f* pSrcDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToPack_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToPack_64f_I(Zam64f* pSrcDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PackToR_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PackToR_64f_I(Zam64f* pSrcDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToCCS_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToCCS_64f_I(Zam64f* pSrcDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CCSToR_64f(const Zam64f* pSrc, Zam64f* pDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CCSToR_64f_I(Zam64f* pSrcDst, const ZamsDFTSpec_R_64f* pSpec, Zam8u* pBuffer);

/* DFT C_16sc */
ZAMSAPI zamStatus zamsDFTGetSize_C_16sc(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTInit_C_16sc(ZamsDFTSpec_C_16sc** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTInitAlloc_C_16sc(ZamsDFTSpec_C_16sc** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTGetBufSize_C_16sc(const ZamsDFTSpec_C_16sc* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTFree_C_16sc(ZamsDFTSpec_C_16sc* pSpec);
ZAMSAPI zamStatus zamsDFTFwd_CToC_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, const ZamsDFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_CToC_16sc_ISfs(Zam16sc* pSrcDst, const ZamsDFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CToC_16sc_Sfs(const Zam16sc* pSrc, Zam16sc* pDst, const ZamsDFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CToC_16sc_ISfs(Zam16sc* pSrcDst, const ZamsDFTSpec_C_16sc* pSpec, int scaleFactor, Zam8u* pBuffer);

/* DFT R_16s */
ZAMSAPI zamStatus zamsDFTGetSize_R_16s(int len, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTInit_R_16s(ZamsDFTSpec_R_16s** ppSpec, int len, int flag, int hint, Zam8u* pMemSpec, Zam8u* pSpecBuffer);
ZAMSAPI zamStatus zamsDFTInitAlloc_R_16s(ZamsDFTSpec_R_16s** ppSpec, int len, int flag, int hint);
ZAMSAPI zamStatus zamsDFTGetBufSize_R_16s(const ZamsDFTSpec_R_16s* pSpec, int* pBufferSize);
ZAMSAPI zamStatus zamsDFTFree_R_16s(ZamsDFTSpec_R_16s* pSpec);
ZAMSAPI zamStatus zamsDFTFwd_RToPerm_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PermToR_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToPack_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_PackToR_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTFwd_RToCCS_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);
ZAMSAPI zamStatus zamsDFTInv_CCSToR_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, const ZamsDFTSpec_R_16s* pSpec, int scaleFactor, Zam8u* pBuffer);

/* Hilbert transform: the analytic signal of a real signal of any length
 * (real part the input, imaginary part its Hilbert transform), through a
 * forward real DFT, the one-sided spectrum (the ceil(len/2) - 1 positive
 * frequencies doubled, the negative ones cleared, X[0] and for even len
 * X[len/2] kept) and an inverse complex DFT normalised by 1/len. Lengths
 * 1 and 2 return the input with zero imaginary parts. The 16-bit source
 * is converted to float first; the 16sc result is times 2^-scaleFactor,
 * rounded to nearest even and saturated. */
ZAMSAPI zamStatus zamsHilbertInitAlloc_32f32fc(ZamsHilbertSpec_32f32fc** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsHilbertInitAlloc_16s32fc(ZamsHilbertSpec_16s32fc** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsHilbertInitAlloc_16s16sc(ZamsHilbertSpec_16s16sc** ppSpec, int len, int hint);
ZAMSAPI zamStatus zamsHilbertFree_32f32fc(ZamsHilbertSpec_32f32fc* pSpec);
ZAMSAPI zamStatus zamsHilbertFree_16s32fc(ZamsHilbertSpec_16s32fc* pSpec);
ZAMSAPI zamStatus zamsHilbertFree_16s16sc(ZamsHilbertSpec_16s16sc* pSpec);
ZAMSAPI zamStatus zamsHilbert_32f32fc(const Zam32f* pSrc, Zam32fc* pDst, const ZamsHilbertSpec_32f32fc* pSpec);
ZAMSAPI zamStatus zamsHilbert_16s32fc(const Zam16s* pSrc, Zam32fc* pDst, const ZamsHilbertSpec_16s32fc* pSpec);
ZAMSAPI zamStatus zamsHilbert_16s16sc_Sfs(const Zam16s* pSrc, Zam16sc* pDst, const ZamsHilbertSpec_16s16sc* pSpec, int scaleFactor);

/* Goertzel: one (Goertz) or two (GoertzTwo) spectral values of a signal
 * at relative frequencies rFreq in [0, 1) by the second-order recursion
 * s(n) = x(n) + 2 cos(w) s(n-1) - s(n-2), w = 2 pi rFreq; the value is
 * e^(iw) s(len-1) - s(len-2) = e^(iw len) sum x(n) e^(-iwn), so rFreq = k/len
 * gives bin k of the forward DFT. Checks: pointers (-8), len < 1 (-6), each
 * frequency outside [0, 1) (-27, the first then the second). The 16-bit
 * forms return the value times 2^-scaleFactor, rounded to nearest even and
 * saturated; the Q15 forms take rFreqQ15 / 32768 (negative: -27).
 * The recursion runs in independent vector lanes (a step of 64 real or 32
 * complex samples in the 32-bit forms, 32 or 16 in the others), each lane
 * over every step-th sample at step * rFreq, and the lanes are combined in
 * double; the 16-bit forms compute in double. The error, largest near rFreq
 * 0 and 1/2, grows with the square of the steps a lane takes, not of len:
 * with m = ceil(len / 32) (m = len below 64) and ||x|| the source's 2-norm,
 * within 6e-8 (m^2 + 64) ||x|| in the 32-bit forms and
 * (1e-16 m^2 + 4e-15 len) ||x|| in the 64-bit ones. */
ZAMSAPI zamStatus zamsGoertz_32f(const Zam32f* pSrc, int len, Zam32fc* pVal, Zam32f rFreq);
ZAMSAPI zamStatus zamsGoertz_32fc(const Zam32fc* pSrc, int len, Zam32fc* pVal, Zam32f rFreq);
ZAMSAPI zamStatus zamsGoertz_64f(const Zam64f* pSrc, int len, Zam64fc* pVal, Zam64f rFreq);
ZAMSAPI zamStatus zamsGoertz_64fc(const Zam64fc* pSrc, int len, Zam64fc* pVal, Zam64f rFreq);
ZAMSAPI zamStatus zamsGoertz_16s_Sfs(const Zam16s* pSrc, int len, Zam16sc* pVal, Zam32f rFreq, int scaleFactor);
ZAMSAPI zamStatus zamsGoertz_16sc_Sfs(const Zam16sc* pSrc, int len, Zam16sc* pVal, Zam32f rFreq, int scaleFactor);
ZAMSAPI zamStatus zamsGoertzTwo_32f(const Zam32f* pSrc, int len, Zam32fc* pVal, const Zam32f* rFreq);
ZAMSAPI zamStatus zamsGoertzTwo_32fc(const Zam32fc* pSrc, int len, Zam32fc* pVal, const Zam32f* rFreq);
ZAMSAPI zamStatus zamsGoertzTwo_64f(const Zam64f* pSrc, int len, Zam64fc* pVal, const Zam64f* rFreq);
ZAMSAPI zamStatus zamsGoertzTwo_64fc(const Zam64fc* pSrc, int len, Zam64fc* pVal, const Zam64f* rFreq);
ZAMSAPI zamStatus zamsGoertzTwo_16sc_Sfs(const Zam16sc* pSrc, int len, Zam16sc* pVal, const Zam32f* rFreq, int scaleFactor);
ZAMSAPI zamStatus zamsGoertzQ15_16sc_Sfs(const Zam16sc* pSrc, int len, Zam16sc* pVal, Zam16s rFreqQ15, int scaleFactor);
ZAMSAPI zamStatus zamsGoertzTwoQ15_16sc_Sfs(const Zam16sc* pSrc, int len, Zam16sc* pVal, const Zam16s* rFreqQ15, int scaleFactor);

#endif /* ZAMS_DFT_H */
