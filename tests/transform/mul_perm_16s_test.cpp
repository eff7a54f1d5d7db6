// MulPerm_16s in place: spectra in Perm order (reals first, then pairs)
// multiplied element by element, the products scaled by 2^-scaleFactor with
// ties to even and saturated, against a model of the layout in long double.
#include <cmath>
#include <cstring>
#include <vector>

#include "harness.h"

namespace {

Zam16s scaled(long double v, int sf) {
    long double r = std::rint(std::ldexp(v, -sf));  // the default rounding: ties to even
    return r > 32767 ? 32767 : (r < -32768 ? -32768 : Zam16s(r));
}

std::vector<Zam16s> model_perm(const std::vector<Zam16s>& a, const std::vector<Zam16s>& b, int sf) {
    const int len = int(a.size());
    std::vector<Zam16s> out(len);
    int p0 = len % 2 == 0 && len > 1 ? 2 : 1;  // even lengths carry two reals
    for (int r = 0; r < p0; ++r) out[r] = scaled((long double)a[r] * b[r], sf);
    for (int i = p0; i + 1 < len; i += 2) {
        long double re = (long double)a[i] * b[i] - (long double)a[i + 1] * b[i + 1];
        long double im = (long double)a[i] * b[i + 1] + (long double)a[i + 1] * b[i];
        out[i] = scaled(re, sf);
        out[i + 1] = scaled(im, sf);
    }
    return out;
}

TEST(MulPerm16s, InPlaceMatchesModel) {
    for (int len : {1, 2, 3, 8, 33, 64, 257}) {
        auto a = zt::random_ints<Zam16s>(size_t(len), uint32_t(100 + len));
        auto b = zt::random_ints<Zam16s>(size_t(len), uint32_t(200 + len));
        for (int sf : {-3, 0, 1, 15, 17, 31}) {
            auto want = model_perm(a, b, sf);
            std::vector<Zam16s> out(len), io = b;
            ASSERT_EQ(zamsMulPerm_16s_Sfs(a.data(), b.data(), out.data(), len, sf), zamStatusOk);
            ASSERT_EQ(zamsMulPerm_16s_ISfs(a.data(), io.data(), len, sf), zamStatusOk);
            for (int i = 0; i < len; ++i) {
                ASSERT_EQ(out[i], want[i]) << "len " << len << " sf " << sf << " at " << i;
                ASSERT_EQ(io[i], want[i]) << "in place, len " << len << " sf " << sf << " at " << i;
            }
        }
    }
}

}  // namespace
