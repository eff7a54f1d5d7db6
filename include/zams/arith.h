/* Element-wise arithmetic (integer with scale factor, floating, complex), logic and shifts. */
#ifndef ZAMS_ARITH_H
#define ZAMS_ARITH_H

/* ---- floating-point and complex arithmetic ----
 * Plain IEEE arithmetic, element by element, no fused operations: a complex
 * product (a+bi)(c+di) is (ac - bd) + (ad + bc)i. Sub is the second source
 * minus the first; SubC is x - val, SubCRev is val - x; the _I forms write
 * into pSrcDst, which also serves as the second source. */
/* 32f */
ZAMSAPI zamStatus zamsAdd_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAdd_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSub_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMul_32f_I(const Zam32f* pSrc, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsAddC_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSubC_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len);
ZAMSAPI zamStatus zamsMulC_32f_I(Zam32f val, Zam32f* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_32f(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_32f(const Zam32f* pSrc, Zam32f val, Zam32f* pSrcDst, int len);
/* 64f */
ZAMSAPI zamStatus zamsAdd_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAdd_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSub_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMul_64f_I(const Zam64f* pSrc, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsAddC_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSubC_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pDst, int len);
ZAMSAPI zamStatus zamsMulC_64f_I(Zam64f val, Zam64f* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_64f(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_64f(const Zam64f* pSrc, Zam64f val, Zam64f* pSrcDst, int len);
/* 32fc */
ZAMSAPI zamStatus zamsAdd_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsAdd_32fc_I(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSub_32fc_I(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_32fc_I(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsAddC_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSubC_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsMulC_32fc_I(Zam32fc val, Zam32fc* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_32fc(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_32fc(const Zam32fc* pSrc, Zam32fc val, Zam32fc* pSrcDst, int len);
/* 64fc */
ZAMSAPI zamStatus zamsAdd_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsAdd_64fc_I(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSub_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSub_64fc_I(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_64fc_I(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsAddC_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSubC_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsSubCRev_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMulC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsMulC_64fc_I(Zam64fc val, Zam64fc* pSrcDst, int len);
/* pSrcDst[i] += pSrc1[i] * pSrc2[i]; the C form multiplies by val. */
ZAMSAPI zamStatus zamsAddProduct_64fc(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsAddProductC_64fc(const Zam64fc* pSrc, Zam64fc val, Zam64fc* pSrcDst, int len);
/* A real vector times a complex one: (r c) + (r d)i. */
ZAMSAPI zamStatus zamsMul_32f32fc(const Zam32f* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_32f32fc_I(const Zam32f* pSrc, Zam32fc* pSrcDst, int len);
ZAMSAPI zamStatus zamsMul_64f64fc(const Zam64f* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len);
ZAMSAPI zamStatus zamsMul_64f64fc_I(const Zam64f* pSrc, Zam64fc* pSrcDst, int len);

#endif
