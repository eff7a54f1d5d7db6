/* The public header as a C99 program sees it. */
#include <stdio.h>
#include <string.h>

#include "zams.h"

int main(void) {
    const ZamVersionRecord* v = zamsGetLibVersion();
    Zam16s x[3] = {-32768, -5, 7};
    Zam16s y[3];
    zamStatus st = zamsAbs_16s(x, y, 3);
    if (v == NULL || v->versionMajor != 7 || strcmp(v->versionText, "7.1.1 (r37466)") != 0) return 1;
    if (st != zamStatusOk || y[0] != 32767 || y[1] != 5 || y[2] != 7) return 2;
    puts("ok");
    return 0;
}
