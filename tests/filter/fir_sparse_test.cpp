// The sparse filter: the position checks, and outputs against a
// long double sum over blocks shorter and longer than its order.
#include <algorithm>
#include <cmath>
#include <vector>

#include "digest.h"
#include "fir_model.h"

namespace {

struct Sparse {
    std::vector<uint8_t> mem;
    ZamsFIRSparseState_32f* p = nullptr;
    zamStatus init(const std::vector<float>& t, const std::vector<Zam32s>& pos, const float* dly) {
        int size = 0;
        const int order = pos.back();
        EXPECT_EQ(zamsFIRSparseGetStateSize_32f(int(t.size()), std::max(order, 1), &size), 0);
        mem.assign(size_t(size) + 16, 0xA5);
        return zamsFIRSparseInit_32f(&p, t.data(), pos.data(), int(t.size()), dly, mem.data());
    }
};

TEST(FirSparse, PositionsMustStrictlyIncreaseFromZero) {
    const float t[3] = {1, 2, 3};
    std::vector<uint8_t> mem(4096, 0);
    ZamsFIRSparseState_32f* p = nullptr;
    const Zam32s same[2] = {0, 0}, neg[2] = {-1, 3}, down[3] = {0, 4, 2}, ok[2] = {0, 5};
    EXPECT_EQ(zamsFIRSparseInit_32f(&p, t, same, 2, nullptr, mem.data()), zamStatusBadSparsePosition);
    EXPECT_EQ(zamsFIRSparseInit_32f(&p, t, neg, 2, nullptr, mem.data()), zamStatusBadSparsePosition);
    EXPECT_EQ(zamsFIRSparseInit_32f(&p, t, down, 3, nullptr, mem.data()), zamStatusBadSparsePosition);
    EXPECT_EQ(p, nullptr);
    EXPECT_EQ(std::count(mem.begin(), mem.end(), 0), long(mem.size()));  // nothing written
    EXPECT_EQ(zamsFIRSparseInit_32f(&p, t, ok, 2, nullptr, mem.data()), 0);
}

TEST(FirSparse, MatchesTheSumOverAnyBlocks) {
    std::mt19937 g(3);
    for (auto pos : {std::vector<Zam32s>{0}, std::vector<Zam32s>{0, 5}, std::vector<Zam32s>{2, 3, 40, 41, 200},
                     std::vector<Zam32s>{1, 63}}) {
        const int order = pos.back();
        auto taps = fm::rand_f(int(pos.size()), 7);
        auto dly = fm::rand_f(order, 8);
        auto x = fm::rand_f(3000, 9);
        // the dense equivalent
        std::vector<float> dense(size_t(order) + 1, 0.0f);
        for (size_t j = 0; j < pos.size(); ++j) dense[size_t(pos[j])] = taps[j];
        std::vector<float> dd(dense.size(), 0.0f);
        std::copy(dly.begin(), dly.end(), dd.begin());
        std::vector<fm::LD> mag;
        auto ref = fm::fir(dense, dd, x, &mag);
        Sparse s;
        ASSERT_EQ(s.init(taps, pos, order ? dly.data() : nullptr), 0);
        std::vector<float> y(x.size());
        size_t done = 0;
        while (done < x.size()) {
            const size_t n = std::min<size_t>(x.size() - done, 1 + g() % (g() % 2 ? 30 : 700));
            ASSERT_EQ(zamsFIRSparse_32f(x.data() + done, y.data() + done, int(n), s.p), 0);
            done += n;
        }
        for (size_t n = 0; n < x.size(); ++n)
            ASSERT_LE(std::fabs(fm::LD(y[n]) - ref[n].real()), 2.4e-7L * pos.size() * (mag[n] + 1e-30L)) << n;
    }
}

ZAMS_DIGEST(fir_sparse) {
    const std::vector<Zam32s> pos{0, 3, 17, 90};
    auto taps = fm::rand_f(4, 1), x = fm::rand_f(500, 2);
    Sparse s;
    d.status(s.init(taps, pos, nullptr));
    std::vector<float> y(x.size());
    d.status(zamsFIRSparse_32f(x.data(), y.data(), 60, s.p));
    d.status(zamsFIRSparse_32f(x.data() + 60, y.data() + 60, 440, s.p));
    d.add(y);
}

}  // namespace
