/* Filter design: FIR taps by the window method and IIR Butterworth and
 * Chebyshev type I filters, in double precision.
 *
 * Frequencies are relative to the sampling rate and lie strictly between
 * 0 and 0.5 (a band's lower edge below its upper one); anything else,
 * NaN included, gives zamStatusBadRelativeFreq (-27). Checks run in the
 * order pointer (-8), length or order, frequencies, then the kind
 * arguments; nothing is written on an error.
 *
 * FIR (zamsFIRGen*_64f): tapsLen taps h[0..L-1], symmetric, L >= 3
 * (zamStatusBadTapsLength, -26, otherwise). With m = n - (L-1)/2 and the
 * band edges taken as fractions of the Nyquist rate (e = 2 rFreq),
 *     lowpass   h[n] = e sinc(e m)
 *     highpass  h[n] = sinc(m) - e sinc(e m)
 *     bandpass  h[n] = e2 sinc(e2 m) - e1 sinc(e1 m)
 *     bandstop  h[n] = e1 sinc(e1 m) + sinc(m) - e2 sinc(e2 m)
 * with sinc(x) = sin(pi x) / (pi x), each times the window w[n] of length
 * L (the library's symmetric windows of window.h: zamWinBartlett,
 * zamWinBlackman (the standard one, alpha = -0.16 as a single-precision
 * value), zamWinHamming, zamWinHann; zamWinRect is no window). Another
 * winType gives zamStatusBadArgument (-5). A high-pass or band-stop
 * filter passes the Nyquist rate, which a symmetric filter of even length
 * cannot: an even tapsLen gives -26 for them.
 * doNormal nonzero scales the taps so that the gain is exactly 1 at the
 * middle of the first pass band: at 0 (lowpass, bandstop), at the Nyquist
 * rate (highpass), at the centre (rLowFreq + rHighFreq) / 2 (bandpass);
 * that is, h is divided by sum h[n] cos(2 pi f0 m). doNormal zero leaves
 * the windowed sinc as it is.
 *
 * Kaiser window (zamsFIRGen*Kaiser_64f): the same designs, arguments,
 * checks and statuses with the window
 *     w[n] = I0(beta sqrt(1 - (2n/(L-1) - 1)^2)) / I0(beta)
 * of shape beta, 0 <= beta <= 700 (zamStatusBadArgument, -5, otherwise,
 * NaN included), in double precision throughout. It is zamsWinKaiser's
 * window with alpha = 2 beta / (L - 1) (that function takes alpha in
 * single precision). zamsFIRKaiserOrder_64f gives the usual empirical
 * estimates for a stop-band attenuation A dB (8 <= A <= 1000, -5
 * otherwise) and a transition width w relative to the sampling rate
 * (0 < w < 0.5, -27 otherwise; pointers first, -8):
 *     tapsLen = ceil((A - 7.95) / (2.285 * 2 pi w) + 1)
 *     beta    = 0.1102 (A - 8.7)                           A > 50
 *               0.5842 (A - 21)^0.4 + 0.07886 (A - 21)     21 < A <= 50
 *               0                                          A <= 21
 * (a length past the int range gives -5). The length may be even: a
 * high-pass or band-stop design needs it made odd.
 *
 * IIR (zamsIIRGen*_64f): a Butterworth (zamButterworth) or Chebyshev
 * type I (zamChebyshev1, pass-band ripple `ripple` dB, 0 < ripple <= 60)
 * filter of order 1..64 (zamStatusBadFilterOrder, -25, otherwise) with
 * cutoff rFreq: the analog prototype's poles, a low-pass or high-pass
 * transformation to the prewarped edge 2 tan(pi rFreq) (in units of the
 * sampling rate), and the bilinear transform. A Butterworth filter has
 * gain 1/sqrt(2) at rFreq. A Chebyshev filter has gain 10^(-ripple/20)
 * at rFreq, the edge of its pass band, where the gain swings between that
 * and 1; at 0 (lowpass) or the Nyquist rate (highpass) it is 1 for an odd
 * order and 10^(-ripple/20) for an even one. The ripple is read only
 * for a Chebyshev filter; an unknown filterType or a ripple out of range
 * gives zamStatusBadArgument (-5).
 *   AR form: 2 (order + 1) taps, b[0..order] then a[0..order], a[0] = 1,
 *   the layout zamsIIRInit_* takes.
 *   BiQuad form: (order + 1) / 2 sections of 6 taps, b0 b1 b2 a0 a1 a2,
 *   the layout zamsIIRInit_BiQuad_* takes; a0 = 1 in every section and
 *   b0 = 1 in every section but the first, whose b carries the whole gain.
 *   The sections are filled from the last: each takes the remaining pole
 *   nearest the unit circle with its conjugate, and the two remaining
 *   zeros nearest to that pole. An odd order first adds a pole and a zero
 *   at z = 0, so its real pole shares a section with a pole at 0 (a2 = 0)
 *   and one section has a zero at 0 (b2 = 0). */
#ifndef ZAMS_DESIGN_H
#define ZAMS_DESIGN_H

/* Windows of the FIR design functions. */
typedef enum {
    zamWinBartlett = 0,
    zamWinBlackman = 1,
    zamWinHamming = 2,
    zamWinHann = 3,
    zamWinRect = 4
} zamWinType;

/* Families of the IIR design functions. */
typedef enum {
    zamButterworth = 0,
    zamChebyshev1 = 1
} zamIIRFilterType;

ZAMSAPI zamStatus zamsFIRGenLowpass_64f(Zam64f rFreq, Zam64f* pTaps, int tapsLen, zamWinType winType, int doNormal);
ZAMSAPI zamStatus zamsFIRGenHighpass_64f(Zam64f rFreq, Zam64f* pTaps, int tapsLen, zamWinType winType, int doNormal);
ZAMSAPI zamStatus zamsFIRGenBandpass_64f(Zam64f rLowFreq, Zam64f rHighFreq, Zam64f* pTaps, int tapsLen,
                                         zamWinType winType, int doNormal);
ZAMSAPI zamStatus zamsFIRGenBandstop_64f(Zam64f rLowFreq, Zam64f rHighFreq, Zam64f* pTaps, int tapsLen,
                                         zamWinType winType, int doNormal);

ZAMSAPI zamStatus zamsFIRGenLowpassKaiser_64f(Zam64f rFreq, Zam64f* pTaps, int tapsLen, Zam64f beta, int doNormal);
ZAMSAPI zamStatus zamsFIRGenHighpassKaiser_64f(Zam64f rFreq, Zam64f* pTaps, int tapsLen, Zam64f beta, int doNormal);
ZAMSAPI zamStatus zamsFIRGenBandpassKaiser_64f(Zam64f rLowFreq, Zam64f rHighFreq, Zam64f* pTaps, int tapsLen,
                                               Zam64f beta, int doNormal);
ZAMSAPI zamStatus zamsFIRGenBandstopKaiser_64f(Zam64f rLowFreq, Zam64f rHighFreq, Zam64f* pTaps, int tapsLen,
                                               Zam64f beta, int doNormal);
ZAMSAPI zamStatus zamsFIRKaiserOrder_64f(Zam64f attenuationDB, Zam64f rTransWidth, int* pTapsLen, Zam64f* pBeta);

ZAMSAPI zamStatus zamsIIRGenLowpass_64f(Zam64f rFreq, Zam64f ripple, int order, Zam64f* pTaps,
                                        zamIIRFilterType filterType);
ZAMSAPI zamStatus zamsIIRGenHighpass_64f(Zam64f rFreq, Zam64f ripple, int order, Zam64f* pTaps,
                                         zamIIRFilterType filterType);
ZAMSAPI zamStatus zamsIIRGenLowpass_BiQuad_64f(Zam64f rFreq, Zam64f ripple, int order, Zam64f* pTaps,
                                               zamIIRFilterType filterType);
ZAMSAPI zamStatus zamsIIRGenHighpass_BiQuad_64f(Zam64f rFreq, Zam64f ripple, int order, Zam64f* pTaps,
                                                zamIIRFilterType filterType);

#endif
