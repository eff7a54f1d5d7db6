/* Division, elementary functions and complex measures. */
#ifndef ZAMS_MATH_H
#define ZAMS_MATH_H

/* |x| saturated: -32768 gives 32767. */
ZAMSAPI zamStatus zamsAbs_16s(const Zam16s* pSrc, Zam16s* pDst, int len);

#endif
