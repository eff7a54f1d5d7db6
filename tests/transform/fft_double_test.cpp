// Double complex transforms of orders 11 to 13 (the self-sorting passes;
// orders 9 and 10 are checked against the naive DFT in fft_complex_test):
// whole spectra against a long double radix-2 FFT, both directions, in
// place and not, unaligned, with a work buffer of exactly the reported size.
#include "fft_kinds.h"

namespace {

using namespace ft;

// Recursive radix-2 FFT in long double; sign -1 forward, +1 inverse.
void ref_fft(CL* x, size_t n, int sign, std::vector<CL>& tmp) {
    if (n == 1) return;
    const size_t h = n / 2;
    for (size_t i = 0; i < h; ++i) {
        tmp[i] = x[2 * i];
        tmp[h + i] = x[2 * i + 1];
    }
    std::copy(tmp.begin(), tmp.begin() + long(n), x);
    ref_fft(x, h, sign, tmp);
    ref_fft(x + h, h, sign, tmp);
    const LD pi = 3.141592653589793238462643383279502884L;
    for (size_t k = 0; k < h; ++k) {
        const CL w(std::cos(2 * pi * LD(k) / LD(n)), sign * std::sin(2 * pi * LD(k) / LD(n)));
        const CL a = x[k], b = x[h + k] * w;
        x[k] = a + b;
        x[h + k] = a - b;
    }
}

std::vector<CL> ref_transform(std::vector<CL> x, int sign) {
    std::vector<CL> tmp(x.size());
    ref_fft(x.data(), x.size(), sign, tmp);
    return x;
}

TEST(FftDouble, WholeSpectraOfOrders11To13) {
    for (int order = 11; order <= 13; ++order) {
        const size_t n = size_t(1) << order;
        const auto x = zt::random_reals<double>(2 * n, 40 + order, -1.0, 1.0);
        const auto xl = to_cl(x.data(), n);
        const std::vector<CL> ref[2] = {ref_transform(xl, -1), ref_transform(xl, +1)};
        const int flag = kFlags[order % 4];
        OwnedSpec<C64fc> os;
        ASSERT_EQ(os.build(order, flag), zamStatusOk);
        std::vector<uint8_t> buf(size_t(os.workSize));  // exactly the reported size
        for (int inverse = 0; inverse < 2; ++inverse)
            for (int inplace = 0; inplace < 2; ++inplace) {
                zt::Guarded<double> dst(2 * n, 16 * size_t(inplace + inverse));
                const double* s = x.data();
                if (inplace) {
                    dst.copy_from(x.data());
                    s = dst.data();
                }
                const zamStatus st = inverse ? zamsFFTInv_CToC_64fc((const Zam64fc*)s, (Zam64fc*)dst.data(), os.spec, buf.data())
                                             : zamsFFTFwd_CToC_64fc((const Zam64fc*)s, (Zam64fc*)dst.data(), os.spec, buf.data());
                ASSERT_EQ(st, zamStatusOk);
                std::vector<CL> want = ref[inverse];
                const LD sc = flag_scale(flag, order, inverse);
                for (auto& v : want) v *= sc;
                EXPECT_LE(rel_rms(to_cl(dst.data(), n), want), bound<double>(order))
                    << "order " << order << " inverse " << inverse << " inplace " << inplace;
                // the largest single error too: a wrong bin hides in the mean
                LD worst = 0, top = 0;
                for (size_t k = 0; k < n; ++k) {
                    worst = std::max(worst, std::abs(CL(dst[2 * k], dst[2 * k + 1]) - want[k]));
                    top = std::max(top, std::abs(want[k]));
                }
                EXPECT_LE(double(worst / top), 8 * bound<double>(order)) << "order " << order;
                EXPECT_TRUE(dst.guards_intact());
            }
    }
}

}  // namespace
