/* Speech and communication kernels: companding, pre-emphasis, robust error
 * functions, FM demodulation, nearest-value search, bit packing, running
 * power and mean updates, median filtering.
 *
 * Every function checks its pointers (-8), then its lengths (-6), then its
 * value arguments in the order they stand, and writes nothing on an error. */
#ifndef ZAMS_SPEECH_H
#define ZAMS_SPEECH_H

/* ---- A-law and mu-law companding.
 * Linear samples are on the 16-bit scale: an A-law code decodes to the middle
 * of its interval of 16-bit values (largest magnitude 32256), a mu-law code
 * likewise (largest magnitude 32124); the float forms give the same numbers.
 * Encoding quantises a 16-bit value by the segment rule of each law (A-law:
 * 13 significant bits, mu-law: 14, negative values by their ones' complement).
 * A float is first clamped to [-32768, 32767] and rounded down to an
 * integer; a NaN encodes as 0. Converting between the laws decodes the code
 * and encodes the decoded value in the other law. */
ZAMSAPI zamStatus zamsALawToLin_8u16s(const Zam8u* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsALawToLin_8u32f(const Zam8u* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMuLawToLin_8u16s(const Zam8u* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsMuLawToLin_8u32f(const Zam8u* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsLinToALaw_16s8u(const Zam16s* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsLinToALaw_32f8u(const Zam32f* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsLinToMuLaw_16s8u(const Zam16s* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsLinToMuLaw_32f8u(const Zam32f* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsALawToMuLaw_8u(const Zam8u* pSrc, Zam8u* pDst, int len);
ZAMSAPI zamStatus zamsMuLawToALaw_8u(const Zam8u* pSrc, Zam8u* pDst, int len);

/* ---- Pre-emphasis y[n] = x[n] - val x[n-1] and its inverse (de-emphasis)
 * y[n] = x[n] + val y[n-1]. *pMem carries the previous sample between calls:
 * on entry x[-1] (pre-emphasis) or y[-1] (de-emphasis), on return the last
 * source sample or the last output. Float forms work in single precision, one
 * rounding a product and one a sum. The 16-bit forms take val in Q15 and
 * compute the exact x[n] 2^15 -/+ val s[n-1] times 2^-(15 + scaleFactor)
 * rounded half to even and saturated; de-emphasis feeds the saturated output
 * back. */
ZAMSAPI zamStatus zamsPreemphasize_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f val, Zam32f* pMem);
ZAMSAPI zamStatus zamsPreemphasize_32f_I(Zam32f* pSrcDst, int len, Zam32f val, Zam32f* pMem);
ZAMSAPI zamStatus zamsPreemphasize_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s val, Zam16s* pMem,
                                           int scaleFactor);
ZAMSAPI zamStatus zamsPreemphasize_16s_ISfs(Zam16s* pSrcDst, int len, Zam16s val, Zam16s* pMem, int scaleFactor);
ZAMSAPI zamStatus zamsDeemphasize_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f val, Zam32f* pMem);
ZAMSAPI zamStatus zamsDeemphasize_32f_I(Zam32f* pSrcDst, int len, Zam32f val, Zam32f* pMem);
ZAMSAPI zamStatus zamsDeemphasize_16s_Sfs(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s val, Zam16s* pMem,
                                          int scaleFactor);
ZAMSAPI zamStatus zamsDeemphasize_16s_ISfs(Zam16s* pSrcDst, int len, Zam16s val, Zam16s* pMem, int scaleFactor);

/* ---- Cauchy robust error with constant param = c > 0 (else -11, NaN too):
 * Cauchy    rho(x)  = c^2 / 2 ln(1 + (x / c)^2)
 * CauchyD   rho'(x) = x / (1 + (x / c)^2)
 * CauchyDD2 rho''(x) = (1 - (x / c)^2) / (1 + (x / c)^2)^2
 * computed in double and rounded once to single precision. */
ZAMSAPI zamStatus zamsCauchy_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f param);
ZAMSAPI zamStatus zamsCauchy_32f_I(Zam32f* pSrcDst, int len, Zam32f param);
ZAMSAPI zamStatus zamsCauchyD_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f param);
ZAMSAPI zamStatus zamsCauchyD_32f_I(Zam32f* pSrcDst, int len, Zam32f param);
ZAMSAPI zamStatus zamsCauchyDD2_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f param);
ZAMSAPI zamStatus zamsCauchyDD2_32f_I(Zam32f* pSrcDst, int len, Zam32f param);

/* ---- FM demodulation: y[n] = arg(x[n] conj(x[n-1])), the phase step between
 * consecutive samples in (-pi, pi] (0 where either sample is 0). *pMem holds
 * x[-1] on entry and the last source sample on return. The float form gives
 * radians (the product and the angle in double, one rounding); the 16-bit
 * form gives the step over pi in Q15 (exact product, the angle rounded half to
 * even, +pi saturating to 32767). */
ZAMSAPI zamStatus zamsFMDemod_32fc32f(const Zam32fc* pSrc, Zam32f* pDst, int len, Zam32fc* pMem);
ZAMSAPI zamStatus zamsFMDemod_16sc16s(const Zam16sc* pSrc, Zam16s* pDst, int len, Zam16sc* pMem);

/* ---- Nearest value in a table sorted ascending (tblLen entries): for each
 * source element, the entry nearest to it (pDst) and that entry's index
 * (pIndx). Of two entries at the same distance the lower index wins. Floats:
 * a NaN finds entry 0. The table is not checked for order; an unsorted one
 * gives some entry of it. */
ZAMSAPI zamStatus zamsFindNearest_16u(const Zam16u* pSrc, Zam16u* pDst, int* pIndx, int len, const Zam16u* pTable,
                                      int tblLen);
ZAMSAPI zamStatus zamsFindNearest_32f(const Zam32f* pSrc, Zam32f* pDst, int* pIndx, int len, const Zam32f* pTable,
                                      int tblLen);

/* ---- Bit packing: len symbols of nBits bits each (the low nBits of each
 * element; 1 <= nBits <= the element's width, else -5) as one stream of bits,
 * each symbol most significant bit first. Bits are numbered as in
 * zamsCopy_1u: bit offset 0 is the top bit of the first byte, offsets are
 * 0..7 (-5 otherwise), and destination bits outside the packed range keep
 * their values. Unpacking gives each symbol in the low bits of an element,
 * the others 0. */
ZAMSAPI zamStatus zamsPackBits_8u(const Zam8u* pSrc, Zam8u* pDst, int dstBitOffset, int len, int nBits);
ZAMSAPI zamStatus zamsPackBits_16u(const Zam16u* pSrc, Zam8u* pDst, int dstBitOffset, int len, int nBits);
ZAMSAPI zamStatus zamsPackBits_32u(const Zam32u* pSrc, Zam8u* pDst, int dstBitOffset, int len, int nBits);
ZAMSAPI zamStatus zamsUnpackBits_8u(const Zam8u* pSrc, int srcBitOffset, Zam8u* pDst, int len, int nBits);
ZAMSAPI zamStatus zamsUnpackBits_16u(const Zam8u* pSrc, int srcBitOffset, Zam16u* pDst, int len, int nBits);
ZAMSAPI zamStatus zamsUnpackBits_32u(const Zam8u* pSrc, int srcBitOffset, Zam32u* pDst, int len, int nBits);

/* ---- Exponentially weighted running power and mean of a signal, one value
 * *pSrcDst updated by each source sample in turn: with the Q15 weight w
 * (0 <= w <= 32767, else -5), p = x^2 (power) or x (mean) times
 * 2^-scaleFactor rounded half to even and saturated to 32 bits, then
 * acc = (w acc + (32768 - w) p) / 32768 rounded half to even. */
ZAMSAPI zamStatus zamsUpdatePower_16s32s_ISfs(const Zam16s* pSrc, int len, Zam32s* pSrcDst, Zam16s weight,
                                              int scaleFactor);
ZAMSAPI zamStatus zamsUpdatePower_32s_ISfs(const Zam32s* pSrc, int len, Zam32s* pSrcDst, Zam16s weight,
                                           int scaleFactor);
ZAMSAPI zamStatus zamsUpdateLinear_16s32s_ISfs(const Zam16s* pSrc, int len, Zam32s* pSrcDst, Zam16s weight,
                                               int scaleFactor);
ZAMSAPI zamStatus zamsUpdateLinear_32s_ISfs(const Zam32s* pSrc, int len, Zam32s* pSrcDst, Zam16s weight,
                                            int scaleFactor);

/* ---- Median filter of odd mask size m (even: -5): y[n] is the median of
 * x[n - (m-1)/2] ... x[n + (m-1)/2], where samples before the first are the
 * first sample and samples after the last are the last sample (the edges are
 * repeated). Floats are ordered as -NaN < -inf < ... < -0 < +0 < ... < +inf
 * < +NaN. The window is kept sorted in a work block of the call's own (-9 if
 * it cannot be had). */
ZAMSAPI zamStatus zamsFilterMedian_32f(const Zam32f* pSrc, Zam32f* pDst, int len, int maskSize);
ZAMSAPI zamStatus zamsFilterMedian_32f_I(Zam32f* pSrcDst, int len, int maskSize);
ZAMSAPI zamStatus zamsFilterMedian_16s(const Zam16s* pSrc, Zam16s* pDst, int len, int maskSize);
ZAMSAPI zamStatus zamsFilterMedian_16s_I(Zam16s* pSrcDst, int len, int maskSize);

#endif
