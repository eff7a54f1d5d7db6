/* Sorting in place: ascending and descending sorts, index sorts that also
 * return the permutation, and radix sorts in a caller's work buffer.
 *
 * Order. Integers by value. Floats in IEEE total order: -NaN first (larger
 * payloads before smaller), then -Inf, the negative numbers, -0, +0, the
 * positive numbers, +Inf, and +NaN last (smaller payloads before larger).
 * -0 sorts before +0 and NaNs are sorted, never lost: the result is always a
 * permutation of the input bit patterns. A descending sort gives exactly the
 * reverse order.
 *
 * Stability. Every sort is stable: elements with the same bits keep their
 * input order, in both directions. Only the index sorts can show it:
 * pDstIdx[i] is the position before the sort of the element that ends at
 * position i, and among equal elements these positions increase.
 *
 * Memory. Vectors of up to 48 elements are sorted in place. Longer ones go
 * through a work area as large as the vector (and, for an index sort, as
 * large as the index vector): the radix sorts take it from pBuffer, of the
 * size zamsSortRadixGetBufferSize_* reports for the length (aligned by the
 * call; a null pBuffer makes the call allocate its own); the other sorts
 * allocate it and return -9, with the vector untouched, when that fails.
 *
 * Threads. The radix sorts split vectors of 8192 elements and more (4096
 * for 64f) over two threads; the result is the same as on one thread. The
 * other sorts run on the calling thread.
 *
 * Checks: pointers (-8), then the length (-6). */
#ifndef ZAMS_SORT_H
#define ZAMS_SORT_H

/* Ascending and descending sorts. */
ZAMSAPI zamStatus zamsSortAscend_8u_I(Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortDescend_8u_I(Zam8u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortAscend_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortDescend_16s_I(Zam16s* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortAscend_16u_I(Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortDescend_16u_I(Zam16u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortAscend_32s_I(Zam32s* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortDescend_32s_I(Zam32s* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortAscend_32u_I(Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortDescend_32u_I(Zam32u* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortAscend_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortDescend_32f_I(Zam32f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortAscend_64f_I(Zam64f* pSrcDst, int len);
ZAMSAPI zamStatus zamsSortDescend_64f_I(Zam64f* pSrcDst, int len);

/* Index sorts: pSrcDst sorted as above, pDstIdx the permutation (len elements). */
ZAMSAPI zamStatus zamsSortIndexAscend_8u_I(Zam8u* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexDescend_8u_I(Zam8u* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexAscend_16s_I(Zam16s* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexDescend_16s_I(Zam16s* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexAscend_16u_I(Zam16u* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexDescend_16u_I(Zam16u* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexAscend_32s_I(Zam32s* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexDescend_32s_I(Zam32s* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexAscend_32u_I(Zam32u* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexDescend_32u_I(Zam32u* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexAscend_32f_I(Zam32f* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexDescend_32f_I(Zam32f* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexAscend_64f_I(Zam64f* pSrcDst, int* pDstIdx, int len);
ZAMSAPI zamStatus zamsSortIndexDescend_64f_I(Zam64f* pSrcDst, int* pDstIdx, int len);

/* Radix sorts and the size in bytes of their work buffer for len elements. */
ZAMSAPI zamStatus zamsSortRadixGetBufferSize_32f(int len, int* pBufferSize);
ZAMSAPI zamStatus zamsSortRadixAscend_32f_I(Zam32f* pSrcDst, Zam8u* pBuffer, int len);
ZAMSAPI zamStatus zamsSortRadixDescend_32f_I(Zam32f* pSrcDst, Zam8u* pBuffer, int len);
ZAMSAPI zamStatus zamsSortRadixGetBufferSize_32s(int len, int* pBufferSize);
ZAMSAPI zamStatus zamsSortRadixAscend_32s_I(Zam32s* pSrcDst, Zam8u* pBuffer, int len);
ZAMSAPI zamStatus zamsSortRadixDescend_32s_I(Zam32s* pSrcDst, Zam8u* pBuffer, int len);
ZAMSAPI zamStatus zamsSortRadixGetBufferSize_32u(int len, int* pBufferSize);
ZAMSAPI zamStatus zamsSortRadixAscend_32u_I(Zam32u* pSrcDst, Zam8u* pBuffer, int len);
ZAMSAPI zamStatus zamsSortRadixDescend_32u_I(Zam32u* pSrcDst, Zam8u* pBuffer, int len);
ZAMSAPI zamStatus zamsSortRadixGetBufferSize_64f(int len, int* pBufferSize);
ZAMSAPI zamStatus zamsSortRadixAscend_64f_I(Zam64f* pSrcDst, Zam8u* pBuffer, int len);
ZAMSAPI zamStatus zamsSortRadixDescend_64f_I(Zam64f* pSrcDst, Zam8u* pBuffer, int len);

#endif
