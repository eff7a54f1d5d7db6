/* Window functions: the signal is multiplied element by element by a
 * symmetric tapering window of length N = len (M = N - 1). To obtain the
 * window itself, apply it to a vector of ones. Complex elements have both
 * parts multiplied by the same real coefficient; 16-bit results are rounded
 * to nearest, ties to even. An out-of-place call with pSrc == pDst behaves as
 * the in-place (_I) member.
 *
 *   Bartlett  2n/M up to the middle              len >= 3
 *   Hann      0.5 - 0.5 cos(2 pi n/M)            len >= 3
 *   Hamming   0.54 - 0.46 cos(2 pi n/M)          len >= 3
 *   Blackman  (a+1)/2 - cos(2 pi n/M)/2 - (a/2) cos(4 pi n/M)   len >= 3
 *             Std: a = -0.16; Opt: a = -0.5/(1 + cos(2 pi/M)), len >= 4,
 *             the length tested before the pointers
 *   Kaiser    I0(a sqrt(n (M-n))) / I0(a M/2)     len >= 1; |a| M / 2 above
 *             38 (32f, 32fc) or 308 (other types, Q15) gives -39
 *
 * Q15 members take alpha as alphaQ15 / 32768; the _ISfs member scales the
 * products by 2^-scaleFactor and saturates. */
#ifndef ZAMS_WINDOW_H
#define ZAMS_WINDOW_H

ZAMSAPI zamStatus zamsWinBartlett_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_16sc_I(Zam16sc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsWinBartlett_64fc_I(Zam64fc* pSrcDst, int len);

ZAMSAPI zamStatus zamsWinHann_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsWinHann_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHann_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsWinHann_16sc_I(Zam16sc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHann_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsWinHann_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHann_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsWinHann_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHann_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsWinHann_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHann_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsWinHann_64fc_I(Zam64fc* pSrcDst, int len);

ZAMSAPI zamStatus zamsWinHamming_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsWinHamming_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHamming_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsWinHamming_16sc_I(Zam16sc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHamming_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsWinHamming_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHamming_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsWinHamming_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHamming_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsWinHamming_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinHamming_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsWinHamming_64fc_I(Zam64fc* pSrcDst, int len);

ZAMSAPI zamStatus zamsWinBlackman_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_16s_I(Zam16s* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_16sc_I(Zam16sc* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_32f_I(Zam32f* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_32fc_I(Zam32fc* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_64f_I(Zam64f* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinBlackman_64fc_I(Zam64fc* pSrcDst, int len, Zam32f alpha);

ZAMSAPI zamStatus zamsWinBlackmanStd_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_16sc_I(Zam16sc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanStd_64fc_I(Zam64fc* pSrcDst, int len);

ZAMSAPI zamStatus zamsWinBlackmanOpt_16s(const Zam16s* pSrc, Zam16s* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_16sc_I(Zam16sc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_32f(const Zam32f* pSrc, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_32fc_I(Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_64f(const Zam64f* pSrc, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsWinBlackmanOpt_64fc_I(Zam64fc* pSrcDst, int len);

ZAMSAPI zamStatus zamsWinKaiser_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_16s_I(Zam16s* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_16sc_I(Zam16sc* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_32f_I(Zam32f* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_32fc_I(Zam32fc* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_64f_I(Zam64f* pSrcDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam32f alpha);
ZAMSAPI zamStatus zamsWinKaiser_64fc_I(Zam64fc* pSrcDst, int len, Zam32f alpha);

ZAMSAPI zamStatus zamsWinBlackmanQ15_16s(const Zam16s* pSrc, Zam16s* pDst, int len, int alphaQ15);
ZAMSAPI zamStatus zamsWinBlackmanQ15_16s_I(Zam16s* pSrcDst, int len, int alphaQ15);
ZAMSAPI zamStatus zamsWinBlackmanQ15_16s_ISfs(Zam16s* pSrcDst, int len, int alphaQ15, int scaleFactor);
ZAMSAPI zamStatus zamsWinBlackmanQ15_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, int alphaQ15);
ZAMSAPI zamStatus zamsWinBlackmanQ15_16sc_I(Zam16sc* pSrcDst, int len, int alphaQ15);

ZAMSAPI zamStatus zamsWinKaiserQ15_16s(const Zam16s* pSrc, Zam16s* pDst, int len, int alphaQ15);
ZAMSAPI zamStatus zamsWinKaiserQ15_16s_I(Zam16s* pSrcDst, int len, int alphaQ15);
ZAMSAPI zamStatus zamsWinKaiserQ15_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, int alphaQ15);
ZAMSAPI zamStatus zamsWinKaiserQ15_16sc_I(Zam16sc* pSrcDst, int len, int alphaQ15);

#endif
