/* A small tour of zams: the version record, then a few functions on an
 * embedded signal. */
#include <stdio.h>

#include "zams.h"

static const Zam16s kSignal[16] = {
    0, 12539, 23170, 30273, 32767, 30273, 23170, 12539,
    0, -12539, -23170, -30273, -32768, -30273, -23170, -12539,
};

int main(void) {
    const ZamVersionRecord* v = zamsGetLibVersion();
    printf("%s %s, built %s (%d.%d.%d, build %d)\n", v->libraryName, v->versionText, v->buildDateText,
           v->versionMajor, v->versionMinor, v->versionPatch, v->buildNumber);

    Zam16s* rect = zamsMalloc_16s(16);
    if (!rect) return 1;
    zamStatus st = zamsAbs_16s(kSignal, rect, 16);
    printf("zamsAbs_16s: status %d\n  in :", st);
    for (int i = 0; i < 16; ++i) printf(" %d", kSignal[i]);
    printf("\n  out:");
    for (int i = 0; i < 16; ++i) printf(" %d", rect[i]);
    printf("\n");
    printf("zamsAbs_16s with a null source: status %d (null pointer)\n", zamsAbs_16s(NULL, rect, 16));
    zamsFree(rect);
    return st == zamStatusOk ? 0 : 1;
}
