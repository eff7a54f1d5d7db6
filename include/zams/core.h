/* Library frame: version record and aligned memory. */
#ifndef ZAMS_CORE_H
#define ZAMS_CORE_H

/* The library's constant version record; never null, never to be freed. */
ZAMSAPI const ZamVersionRecord* zamsGetLibVersion(void);

/* Uninitialised memory for len elements, aligned for the library's kernels
 * (64 bytes), or null when len < 1 or the memory cannot be had. The byte
 * count is len times the element size in 32-bit unsigned arithmetic. */
ZAMSAPI Zam8u*   zamsMalloc_8u(int len);
ZAMSAPI Zam8s*   zamsMalloc_8s(int len);
ZAMSAPI Zam16u*  zamsMalloc_16u(int len);
ZAMSAPI Zam16s*  zamsMalloc_16s(int len);
ZAMSAPI Zam8sc*  zamsMalloc_8sc(int len);
ZAMSAPI Zam32u*  zamsMalloc_32u(int len);
ZAMSAPI Zam32s*  zamsMalloc_32s(int len);
ZAMSAPI Zam32f*  zamsMalloc_32f(int len);
ZAMSAPI Zam16sc* zamsMalloc_16sc(int len);
ZAMSAPI Zam64s*  zamsMalloc_64s(int len);
ZAMSAPI Zam64f*  zamsMalloc_64f(int len);
ZAMSAPI Zam32sc* zamsMalloc_32sc(int len);
ZAMSAPI Zam32fc* zamsMalloc_32fc(int len);
ZAMSAPI Zam64sc* zamsMalloc_64sc(int len);
ZAMSAPI Zam64fc* zamsMalloc_64fc(int len);

/* Releases memory from any zamsMalloc_<T>. */
ZAMSAPI void zamsFree(void* ptr);

#endif
