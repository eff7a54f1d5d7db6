// The library's version record.
#include "zams_impl.h"

namespace {
constexpr ZamVersionRecord kVersion = {
    7, 1, 1, 37466, {'g', '9', 0, 0}, "zamSP AVX (g9)", "7.1.1 (r37466)", "Sep 24 2012",
};
}  // namespace

ZAMS_FN(const ZamVersionRecord*, zamsGetLibVersion)(void) { return &kVersion; }
