/* Speech and communication kernels: companding, pre-emphasis, robust error
 * functions, FM demodulation, nearest-value search, bit packing, running
 * power and mean updates, median filtering, Viterbi decoding of a
 * four-dimensional trellis code.
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

/* ---- Viterbi decoding of a 16-state four-dimensional trellis code, the kind
 * of code voice-band modems put on pairs of two-dimensional symbols.
 *
 * Signal points. A 2D point has odd integer coordinates (x, y) on a grid whose
 * unit is 128 in the 16-bit values: the point (x, y) is the complex value
 * (128 x, 128 y). The constellation is the square |x|, |y| <= maxCoord
 * (maxCoord odd, 1 ... 255; else -5). With u = (x - 1) / 2 and v = (y - 1) / 2
 * the 2D subset of a point is 0 for (u, v) even/even, 1 for odd/even, 2 for
 * odd/odd, 3 for even/odd: x = 1 (mod 4) in subsets 0 and 3, x = 3 (mod 4) in 1
 * and 2; y = 1 (mod 4) in 0 and 1, y = 3 (mod 4) in 2 and 3. Points of one 2D
 * subset are at least 4 grid units apart; subsets 0 and 2 (1 and 3) are
 * sqrt(8) apart, the others 2.
 *
 * 4D subsets. A 4D symbol is two 2D points sent one after the other. Its 4D
 * subset z = z0 + 2 z1 + 4 z2 (0 ... 7) is the union of two pairs of 2D
 * subsets, (a, b) and (a ^ 2, b ^ 2), with a = z2 and b = (z2 ^ z0) + 2 z1:
 *     z: 0 (0,0)(2,2)  1 (0,1)(2,3)  2 (0,2)(2,0)  3 (0,3)(2,1)
 *        4 (1,1)(3,3)  5 (1,0)(3,2)  6 (1,3)(3,1)  7 (1,2)(3,0)
 * In squared grid units, two 4D points of one subset are at least 16 apart,
 * of subsets that differ with equal z0 at least 8, of different z0 at least 4.
 *
 * The code. The encoder has a 4-bit state r = r1 + 2 r2 + 4 r3 + 8 r4; the
 * input of a symbol is the two bits z1, z2 (sent unchanged: the code is
 * systematic), and z0 = r1. The subset sequence satisfies the parity check
 * with polynomials h0 = 23, h1 = 04, h2 = 16 (octal, bit k the coefficient of
 * D^k): for every symbol n, the sum over k = 0..4 of
 *     h0[k] z0(n-k) ^ h1[k] z1(n-k) ^ h2[k] z2(n-k) is 0.
 * Its realisation: with c_k = h0[k] z0 ^ h1[k] z1 ^ h2[k] z2 of the symbol
 * sent, the next state has r_k = r_(k+1) ^ c_k (k = 1..4, r_5 = 0). Next
 * states by input i = z1 + 2 z2:
 *     r  0: 0 2 7 5    r  1: 9 11 14 12   r  2: 1 3 6 4    r  3: 8 10 15 13
 *     r  4: 2 0 5 7    r  5: 11 9 12 14   r  6: 3 1 4 6    r  7: 10 8 13 15
 *     r  8: 4 6 3 1    r  9: 13 15 10 8   r 10: 5 7 2 0    r 11: 12 14 11 9
 *     r 12: 6 4 1 3    r 13: 15 13 8 10   r 14: 7 5 0 2    r 15: 14 12 9 11
 * Each state has four successors and four predecessors. Subset sequences
 * that part and meet again are at least 20 squared grid units apart (four of
 * them at 20 from any sequence), so the code's distance is the 16 between
 * points of one 4D subset. The bits of a
 * symbol beyond z1, z2 choose the points inside their 2D subsets; the code
 * is not made invariant to rotations of the constellation.
 *
 * Metrics are unsigned 16-bit numbers, one unit 1/16 of a squared grid unit
 * (1024 in the squared 16-bit values); every sum saturates at 65535.
 *
 * zamsGetVarPointDV_16sc: for each of len received points pSrc[k], the
 * nearest constellation point of each 2D subset j in pVarPoint[4k + j] and
 * its squared distance, divided by 1024, rounded half to even and saturated,
 * in pDist[4k + j]. Each coordinate is found on its own: the nearest allowed
 * odd value of the subset's class mod 4 (a tie takes the larger one).
 *
 * zamsBuildSymblTableDV4D_16sc: for each of len 4D symbols k, from the
 * entries 8k ... 8k + 7 of pVarPoint and pDist (those of the symbol's first
 * 2D point, then of its second, as zamsGetVarPointDV_16sc lays out 2 len
 * received points), the metric of each 4D subset z in pMetric[8k + z]: the
 * smaller of dist1[a] + dist2[b] and dist1[a ^ 2] + dist2[b ^ 2] (saturated;
 * the first pair on a tie), and that pair's two points in pSymbl[16k + 2z]
 * and pSymbl[16k + 2z + 1].
 *
 * zamsUpdatePathMetricsDV_16u: len add-compare-select steps over the 16
 * states. For symbol k, each state s gets the smallest of
 * pPathMetric[p] + pMetric[8k + z] (saturated) over its four predecessors p
 * (z the subset of the branch p -> s); of equal sums the lowest p wins, and p
 * is written to pSurvivor[16k + s]. The new metrics less their minimum
 * replace pPathMetric, so the best state has 0 and no metric passes 65535.
 * Start the decoder with all 16 metrics 0 (or 0 for a known state and 65535
 * for the others).
 *
 * zamsCalcStatesDV_16u: the decision on the oldest of len symbols whose
 * survivors are pSurvivor[0 .. 16 len - 1] and whose 4D tables are
 * pSymbl[0 .. 16 len - 1], oldest first: from the state of least path
 * metric (the lowest on a tie) back through the survivors to symbol 0, giving
 * the encoder state from which symbol 0 was sent (*pState), its 4D subset
 * (*pSubset) and its two points (pPoint[0], pPoint[1]). A survivor that is
 * not a predecessor of its state gives -5. A streaming decoder keeps the
 * survivors and tables of the last len symbols; at the end it decides the
 * remaining ones with the same call on the shorter tails
 * (pSurvivor + 16 k, pSymbl + 16 k, len - k). */
ZAMSAPI zamStatus zamsGetVarPointDV_16sc(const Zam16sc* pSrc, Zam16sc* pVarPoint, Zam16u* pDist, int len,
                                         int maxCoord);
ZAMSAPI zamStatus zamsBuildSymblTableDV4D_16sc(const Zam16sc* pVarPoint, const Zam16u* pDist, Zam16sc* pSymbl,
                                               Zam16u* pMetric, int len);
ZAMSAPI zamStatus zamsUpdatePathMetricsDV_16u(const Zam16u* pMetric, Zam16u* pPathMetric, Zam8u* pSurvivor, int len);
ZAMSAPI zamStatus zamsCalcStatesDV_16u(const Zam16u* pPathMetric, const Zam8u* pSurvivor, const Zam16sc* pSymbl,
                                       Zam16sc* pPoint, int* pSubset, int* pState, int len);

#endif
