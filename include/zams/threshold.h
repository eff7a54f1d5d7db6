/* Thresholding: each element is compared with a level and replaced when it
 * lies beyond it. Equality never replaces. Complex elements are compared by
 * magnitude (re^2 + im^2 against level^2) and a clamped element keeps its
 * phase. Every kind has an in-place form (_I). */
#ifndef ZAMS_THRESHOLD_H
#define ZAMS_THRESHOLD_H

/* Comparison of the generic zamsThreshold_* form; other values give -5. */
typedef enum {
    zamCmpLess = 0,
    zamCmpGreater = 4
} zamCmpOp;

/* x beyond level in the direction of relOp (0 less, 4 greater) becomes level. */
ZAMSAPI zamStatus zamsThreshold_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_16s_I(Zam16s* pSrcDst, int len, Zam16s level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_16sc_I(Zam16sc* pSrcDst, int len, Zam16s level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_32f_I(Zam32f* pSrcDst, int len, Zam32f level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_32fc_I(Zam32fc* pSrcDst, int len, Zam32f level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_64f_I(Zam64f* pSrcDst, int len, Zam64f level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level, zamCmpOp relOp);
ZAMSAPI zamStatus zamsThreshold_64fc_I(Zam64fc* pSrcDst, int len, Zam64f level, zamCmpOp relOp);

/* x < level becomes level (complex: |x| < level scales x to magnitude level). */
ZAMSAPI zamStatus zamsThreshold_LT_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_LT_16s_I(Zam16s* pSrcDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_LT_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_LT_16sc_I(Zam16sc* pSrcDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_LT_32s(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_LT_32s_I(Zam32s* pSrcDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_LT_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LT_32f_I(Zam32f* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LT_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LT_32fc_I(Zam32fc* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LT_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_LT_64f_I(Zam64f* pSrcDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_LT_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_LT_64fc_I(Zam64fc* pSrcDst, int len, Zam64f level);

/* x > level becomes level (complex: on the magnitude, phase kept). */
ZAMSAPI zamStatus zamsThreshold_GT_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_GT_16s_I(Zam16s* pSrcDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_GT_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_GT_16sc_I(Zam16sc* pSrcDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_GT_32s(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_GT_32s_I(Zam32s* pSrcDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_GT_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_GT_32f_I(Zam32f* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_GT_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_GT_32fc_I(Zam32fc* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_GT_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_GT_64f_I(Zam64f* pSrcDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_GT_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_GT_64fc_I(Zam64fc* pSrcDst, int len, Zam64f level);

/* |x| < level becomes level with the sign of x; level < 0 gives -19. */
ZAMSAPI zamStatus zamsThreshold_LTAbs_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_LTAbs_16s_I(Zam16s* pSrcDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_LTAbs_32s(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_LTAbs_32s_I(Zam32s* pSrcDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_LTAbs_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LTAbs_32f_I(Zam32f* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LTAbs_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_LTAbs_64f_I(Zam64f* pSrcDst, int len, Zam64f level);

/* |x| > level becomes level with the sign of x; level < 0 gives -19. */
ZAMSAPI zamStatus zamsThreshold_GTAbs_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_GTAbs_16s_I(Zam16s* pSrcDst, int len, Zam16s level);
ZAMSAPI zamStatus zamsThreshold_GTAbs_32s(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_GTAbs_32s_I(Zam32s* pSrcDst, int len, Zam32s level);
ZAMSAPI zamStatus zamsThreshold_GTAbs_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_GTAbs_32f_I(Zam32f* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_GTAbs_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_GTAbs_64f_I(Zam64f* pSrcDst, int len, Zam64f level);

/* x < level becomes value (complex: |x| < level, level < 0 gives -19). */
ZAMSAPI zamStatus zamsThreshold_LTVal_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level, Zam16s value);
ZAMSAPI zamStatus zamsThreshold_LTVal_16s_I(Zam16s* pSrcDst, int len, Zam16s level, Zam16s value);
ZAMSAPI zamStatus zamsThreshold_LTVal_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level, Zam16sc value);
ZAMSAPI zamStatus zamsThreshold_LTVal_16sc_I(Zam16sc* pSrcDst, int len, Zam16s level, Zam16sc value);
ZAMSAPI zamStatus zamsThreshold_LTVal_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level, Zam32f value);
ZAMSAPI zamStatus zamsThreshold_LTVal_32f_I(Zam32f* pSrcDst, int len, Zam32f level, Zam32f value);
ZAMSAPI zamStatus zamsThreshold_LTVal_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level, Zam32fc value);
ZAMSAPI zamStatus zamsThreshold_LTVal_32fc_I(Zam32fc* pSrcDst, int len, Zam32f level, Zam32fc value);
ZAMSAPI zamStatus zamsThreshold_LTVal_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level, Zam64f value);
ZAMSAPI zamStatus zamsThreshold_LTVal_64f_I(Zam64f* pSrcDst, int len, Zam64f level, Zam64f value);
ZAMSAPI zamStatus zamsThreshold_LTVal_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level, Zam64fc value);
ZAMSAPI zamStatus zamsThreshold_LTVal_64fc_I(Zam64fc* pSrcDst, int len, Zam64f level, Zam64fc value);

/* x > level becomes value (complex: |x| > level, level < 0 gives -19). */
ZAMSAPI zamStatus zamsThreshold_GTVal_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level, Zam16s value);
ZAMSAPI zamStatus zamsThreshold_GTVal_16s_I(Zam16s* pSrcDst, int len, Zam16s level, Zam16s value);
ZAMSAPI zamStatus zamsThreshold_GTVal_16sc(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level, Zam16sc value);
ZAMSAPI zamStatus zamsThreshold_GTVal_16sc_I(Zam16sc* pSrcDst, int len, Zam16s level, Zam16sc value);
ZAMSAPI zamStatus zamsThreshold_GTVal_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level, Zam32f value);
ZAMSAPI zamStatus zamsThreshold_GTVal_32f_I(Zam32f* pSrcDst, int len, Zam32f level, Zam32f value);
ZAMSAPI zamStatus zamsThreshold_GTVal_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level, Zam32fc value);
ZAMSAPI zamStatus zamsThreshold_GTVal_32fc_I(Zam32fc* pSrcDst, int len, Zam32f level, Zam32fc value);
ZAMSAPI zamStatus zamsThreshold_GTVal_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level, Zam64f value);
ZAMSAPI zamStatus zamsThreshold_GTVal_64f_I(Zam64f* pSrcDst, int len, Zam64f level, Zam64f value);
ZAMSAPI zamStatus zamsThreshold_GTVal_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level, Zam64fc value);
ZAMSAPI zamStatus zamsThreshold_GTVal_64fc_I(Zam64fc* pSrcDst, int len, Zam64f level, Zam64fc value);

/* x < levelLT becomes valueLT, x > levelGT becomes valueGT; levelLT > levelGT gives -18. */
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_16s(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s levelLT, Zam16s valueLT, Zam16s levelGT, Zam16s valueGT);
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_16s_I(Zam16s* pSrcDst, int len, Zam16s levelLT, Zam16s valueLT, Zam16s levelGT, Zam16s valueGT);
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_32s(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s levelLT, Zam32s valueLT, Zam32s levelGT, Zam32s valueGT);
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_32s_I(Zam32s* pSrcDst, int len, Zam32s levelLT, Zam32s valueLT, Zam32s levelGT, Zam32s valueGT);
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f levelLT, Zam32f valueLT, Zam32f levelGT, Zam32f valueGT);
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_32f_I(Zam32f* pSrcDst, int len, Zam32f levelLT, Zam32f valueLT, Zam32f levelGT, Zam32f valueGT);
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f levelLT, Zam64f valueLT, Zam64f levelGT, Zam64f valueGT);
ZAMSAPI zamStatus zamsThreshold_LTValGTVal_64f_I(Zam64f* pSrcDst, int len, Zam64f levelLT, Zam64f valueLT, Zam64f levelGT, Zam64f valueGT);

/* 1/x, with |x| floored at level first; level < 0 gives -19; a zero element with level 0 warns (4, or 6 from 8192 elements for 32f). */
ZAMSAPI zamStatus zamsThreshold_LTInv_32f(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LTInv_32f_I(Zam32f* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LTInv_32fc(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LTInv_32fc_I(Zam32fc* pSrcDst, int len, Zam32f level);
ZAMSAPI zamStatus zamsThreshold_LTInv_64f(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_LTInv_64f_I(Zam64f* pSrcDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_LTInv_64fc(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level);
ZAMSAPI zamStatus zamsThreshold_LTInv_64fc_I(Zam64fc* pSrcDst, int len, Zam64f level);

#endif
