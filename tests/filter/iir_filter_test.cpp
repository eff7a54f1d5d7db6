// IIR filtering: against a long double model of the same realisation,
// block splits, the one-sample, in-place and multi-channel forms, and the
// statuses of the filters.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "digest.h"
#include "iir_api.h"

using namespace iirt;

namespace {

template <class F> void each_filter_kind(F&& f) { f(k32f), f(k64f), f(k64fc), f(k64f32f), f(k64fc32fc); }

template <class Api> std::vector<Form> filter_forms(const Api&) {
    if (std::is_same_v<typename Api::State, ZamsIIRState_32f>) return {Ar, Bq, Df1};
    return {Ar, Bq};
}

template <class Api> typename Api::State* make(const Api& api, Form f, int n, const std::vector<typename Api::Taps>& taps,
                                               const typename Api::Taps* dly) {
    typename Api::State* st = nullptr;
    zamStatus s;
    if (f == Ar) s = api.alloc(&st, taps.data(), n, dly);
    else if (f == Bq) s = api.allocBq(&st, taps.data(), n, dly);
    else s = zamsIIRInitAlloc_BiQuad_DF1_32f(reinterpret_cast<ZamsIIRState_32f**>(&st),
                                             reinterpret_cast<const Zam32f*>(taps.data()), n,
                                             reinterpret_cast<const Zam32f*>(dly));
    EXPECT_EQ(s, zamStatusOk);
    return st;
}

template <class T> int line_len(Form f, int n) { return f == Ar ? n : (f == Bq ? 2 * n : 4 * n); }

// Relative accuracy a kind is held to against the model: its data or taps
// precision, with room for the growth of rounding errors in a recursion.
template <class Api> double tolerance() {
    return std::is_same_v<typename Api::Taps, Zam32f> || std::is_same_v<typename Api::Data, Zam32f> ||
                   std::is_same_v<typename Api::Data, Zam32fc>
               ? 2e-4
               : 1e-11;
}

template <class T> double max_err(const std::vector<T>& got, const std::vector<LC>& want) {
    long double peak = 0, err = 0;
    for (size_t i = 0; i < want.size(); ++i) {
        peak = std::max(peak, std::abs(want[i]));
        err = std::max(err, std::abs(lc(got[i]) - want[i]));
    }
    return double(err / std::max(peak, 1.0L));
}

}  // namespace

// Every form of every filter kind against the model, from a random delay
// line; then the delay line read back continues the model's.
TEST(IirFilter, MatchesTheLongDoubleModel) {
    each_filter_kind([](const auto& api) {
        using Api = std::decay_t<decltype(api)>;
        using T = typename Api::Taps;
        using D = typename Api::Data;
        SCOPED_TRACE(api.name);
        for (Form f : filter_forms(api))
            for (int n : {1, 2, 3, 4, 5, 8, 13}) {
                SCOPED_TRACE(testing::Message() << "form " << f << " n " << n);
                const auto taps = random_taps<T>(f, n, 100 * n + f);
                auto dly = random_signal<T>(line_len<T>(f, n), n);
                for (auto& v : dly) v = from_lc<T>(lc(v) * LC(0.25L));
                const auto x = random_signal<D>(700, 3 * n);
                Model m(f, n, taps, dly);
                std::vector<LC> want;
                for (const D& v : x) want.push_back(m.step(lc(v)));
                auto* st = make(api, f, n, taps, dly.data());
                std::vector<D> y(x.size());
                ASSERT_EQ(api.filt(x.data(), y.data(), int(x.size()), st), zamStatusOk);
                EXPECT_LE(max_err(y, want), tolerance<Api>());
                std::vector<T> line(dly.size());
                ASSERT_EQ(api.getDly(line.data(), st), zamStatusOk);
                std::vector<LC> wantLine(m.dly.begin(), m.dly.begin() + line.size());
                EXPECT_LE(max_err(line, wantLine), tolerance<Api>());
                api.free(st);
            }
    });
}

// A signal filtered in blocks of random sizes, sample by sample with the
// one-sample filter, in place, and in one call agree to the bit, the 32f
// block filters too (their grid is fixed by the position, not the calls),
// and wherever the buffers lie.
TEST(IirFilter, BlocksOneSampleAndInPlaceAgree) {
    each_filter_kind([](const auto& api) {
        using Api = std::decay_t<decltype(api)>;
        using T = typename Api::Taps;
        using D = typename Api::Data;
        auto agree = [&](const std::vector<D>& a, const std::vector<D>& b) { return same_bits(a, b); };
        SCOPED_TRACE(api.name);
        std::mt19937 g(5);
        for (Form f : filter_forms(api))
            for (int n : {1, 2, 6, 9, 17}) {
                SCOPED_TRACE(testing::Message() << "form " << f << " n " << n);
                const auto taps = random_taps<T>(f, n, 10 * n + f);
                const auto x = random_signal<D>(1500, n);
                auto* whole = make(api, f, n, taps, nullptr);
                auto* parts = make(api, f, n, taps, nullptr);
                auto* inplace = make(api, f, n, taps, nullptr);
                std::vector<D> a(x.size()), b(x.size()), c(x);
                ASSERT_EQ(api.filt(x.data(), a.data(), int(x.size()), whole), zamStatusOk);
                for (size_t i = 0; i < x.size();) {
                    const size_t len = std::min<size_t>(x.size() - i, 1 + g() % 40);
                    ASSERT_EQ(api.filt(x.data() + i, b.data() + i, int(len), parts), zamStatusOk);
                    i += len;
                }
                EXPECT_TRUE(agree(a, b));
                ASSERT_EQ(api.filtI(c.data(), int(c.size()), inplace), zamStatusOk);
                EXPECT_TRUE(same_bits(a, c));
                {  // buffers at other addresses
                    std::vector<D> xs(x.size() + 1), ys(x.size() + 3);
                    std::copy(x.begin(), x.end(), xs.begin() + 1);
                    auto* moved = make(api, f, n, taps, nullptr);
                    ASSERT_EQ(api.filt(xs.data() + 1, ys.data() + 3, int(x.size()), moved), zamStatusOk);
                    EXPECT_TRUE(same_bits(a, std::vector<D>(ys.begin() + 3, ys.end())));
                    api.free(moved);
                }
                if (f != Df1) {
                    auto* one = make(api, f, n, taps, nullptr);
                    for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(api.one(x[i], &c[i], one), zamStatusOk);
                    EXPECT_TRUE(agree(a, c));
                    api.free(one);
                }
                api.free(whole), api.free(parts), api.free(inplace);
            }
    });
}

template <class Api> bool tables_of(Form f) { return std::is_same_v<typename Api::State, ZamsIIRState_32f> && f != Df1; }

// Filtering half a signal, reading the delay line and building a new state
// from it continues exactly (the 32f block filters: within single
// precision): the line means the same to Init, the filters
// and GetDlyLine. SetTaps keeps the line and the new taps take over.
TEST(IirFilter, DelayLineCarriesTheFilter) {
    each_filter_kind([](const auto& api) {
        using Api = std::decay_t<decltype(api)>;
        using T = typename Api::Taps;
        using D = typename Api::Data;
        SCOPED_TRACE(api.name);
        for (Form f : filter_forms(api)) {
            const int n = 5;
            const auto taps = random_taps<T>(f, n, 77 + f), taps2 = random_taps<T>(f, n, 78 + f);
            const auto x = random_signal<D>(400, 9);
            auto* st = make(api, f, n, taps, nullptr);
            std::vector<D> a(x.size()), b(x.size());
            ASSERT_EQ(api.filt(x.data(), a.data(), 200, st), zamStatusOk);
            std::vector<T> line(line_len<T>(f, n));
            ASSERT_EQ(api.getDly(line.data(), st), zamStatusOk);
            auto* st2 = make(api, f, n, taps, line.data());
            ASSERT_EQ(api.filt(x.data() + 200, a.data() + 200, 200, st), zamStatusOk);
            ASSERT_EQ(api.filt(x.data() + 200, b.data() + 200, 200, st2), zamStatusOk);
            if (tables_of<Api>(f)) {  // the rebuilt state runs its own block grid: rounded otherwise
                std::vector<LC> ref;
                for (int i = 200; i < 400; ++i) ref.push_back(lc(a[i]));
                EXPECT_LE(max_err(std::vector<D>(b.begin() + 200, b.end()), ref), 1e-5);
            } else {
                EXPECT_EQ(std::memcmp(a.data() + 200, b.data() + 200, 200 * sizeof(D)), 0);
            }

            ASSERT_EQ(api.getDly(line.data(), st), zamStatusOk);
            ASSERT_EQ(api.setTaps(taps2.data(), st), zamStatusOk);
            Model m(f, n, taps2, line);
            ASSERT_EQ(api.filt(x.data(), a.data(), 200, st), zamStatusOk);
            std::vector<LC> want;
            for (int i = 0; i < 200; ++i) want.push_back(m.step(lc(x[i])));
            EXPECT_LE(max_err(std::vector<D>(a.begin(), a.begin() + 200), want), tolerance<Api>());
            api.free(st), api.free(st2);
        }
    });
}

// Taps are normalised by one reciprocal of a0 and products; order 1 with
// {1, 0, 1, 0} passes the signal through.
TEST(IirFilter, NormalisationAndPassThrough) {
    const float b0 = 0.3f, a0 = 3.0f;
    ASSERT_NE((1.0f / a0) * b0, b0 / a0);  // the two roundings differ here
    const float ar[] = {b0, 0, a0, 0};
    const float bq[] = {b0, 0, 0, a0, 0, 0};
    ZamsIIRState_32f *s1 = nullptr, *s2 = nullptr, *s3 = nullptr;
    ASSERT_EQ(zamsIIRInitAlloc_32f(&s1, ar, 1, nullptr), zamStatusOk);
    ASSERT_EQ(zamsIIRInitAlloc_BiQuad_32f(&s2, bq, 1, nullptr), zamStatusOk);
    float y = 0;
    EXPECT_EQ(zamsIIROne_32f(1.0f, &y, s1), zamStatusOk);
    EXPECT_EQ(y, (1.0f / a0) * b0);
    EXPECT_EQ(zamsIIROne_32f(1.0f, &y, s2), zamStatusOk);
    EXPECT_EQ(y, (1.0f / a0) * b0);

    const float pass[] = {1, 0, 1, 0};
    ASSERT_EQ(zamsIIRInitAlloc_32f(&s3, pass, 1, nullptr), zamStatusOk);
    const auto x = random_signal<float>(1000, 1);
    std::vector<float> out(x.size());
    ASSERT_EQ(zamsIIR_32f(x.data(), out.data(), int(x.size()), s3), zamStatusOk);
    EXPECT_TRUE(same_bits(x, out));
    zamsIIRFree_32f(s1), zamsIIRFree_32f(s2), zamsIIRFree_32f(s3);
}

// A cascade's SetTaps refused at a section keeps the sections before it.
TEST(IirFilter, RefusedSectionKeepsTheSectionsBefore) {
    const auto old = random_taps<double>(Bq, 2, 1);
    auto fresh = random_taps<double>(Bq, 2, 2);
    fresh[6] = 0;  // b0 of the second section: a pure delay is refused
    ZamsIIRState_64f* st = nullptr;
    ASSERT_EQ(zamsIIRInitAlloc_BiQuad_64f(&st, old.data(), 2, nullptr), zamStatusOk);
    EXPECT_EQ(zamsIIRSetTaps_64f(fresh.data(), st), zamStatusDivideByZero);
    auto mixed = old;
    std::copy(fresh.begin(), fresh.begin() + 6, mixed.begin());
    Model m(Bq, 2, mixed, std::vector<double>{});
    const auto x = random_signal<double>(100, 4);
    std::vector<double> y(x.size());
    ASSERT_EQ(zamsIIR_64f(x.data(), y.data(), int(x.size()), st), zamStatusOk);
    std::vector<LC> want;
    for (double v : x) want.push_back(m.step(lc(v)));
    EXPECT_LE(max_err(y, want), 1e-12);
    zamsIIRFree_64f(st);
}

// A null pointer is reported before the length; the direct-form-I cascade
// takes the block filter and refuses the one-sample filter, writing nothing.
// (Null pointers, bad lengths and foreign states alone are the hostile sweep's.)
TEST(IirFilter, StatusesOfTheFilters) {
    const float taps[] = {1, 0.5f, 0.25f, 1, -0.5f, 0.2f};
    ZamsIIRState_32f *ar = nullptr, *df1 = nullptr;
    ASSERT_EQ(zamsIIRInitAlloc_32f(&ar, taps, 2, nullptr), zamStatusOk);
    ASSERT_EQ(zamsIIRInitAlloc_BiQuad_DF1_32f(&df1, taps, 1, nullptr), zamStatusOk);
    float x[4] = {1, 2, 3, 4}, y[4] = {9, 9, 9, 9}, v = 9;
    EXPECT_EQ(zamsIIR_32f(nullptr, y, 0, ar), zamStatusNullPointer);
    EXPECT_EQ(zamsIIROne_32f(1, &v, df1), zamStatusContextMismatch);
    EXPECT_EQ(v, 9);
    EXPECT_EQ(zamsIIR_32f(x, y, 4, df1), zamStatusOk);
    zamsIIRFree_32f(ar), zamsIIRFree_32f(df1);
}

// The multi-channel filter equals each channel's own filter; every
// pointer and state is checked before any channel is filtered.
TEST(IirFilter, ChannelsAreIndependentFilters) {
    const int nCh = 3, len = 257;
    std::vector<ZamsIIRState_32f*> st(nCh), ref(nCh);
    std::vector<std::vector<float>> x(nCh), y(nCh, std::vector<float>(len)), want(nCh, std::vector<float>(len));
    std::vector<const float*> src(nCh);
    std::vector<float*> dst(nCh);
    for (int c = 0; c < nCh; ++c) {
        const auto taps = random_taps<float>(c == 1 ? Ar : Bq, 3, c);
        auto init = c == 1 ? zamsIIRInitAlloc_32f : zamsIIRInitAlloc_BiQuad_32f;
        ASSERT_EQ(init(&st[c], taps.data(), 3, nullptr), zamStatusOk);
        ASSERT_EQ(init(&ref[c], taps.data(), 3, nullptr), zamStatusOk);
        x[c] = random_signal<float>(len, 20 + c);
        src[c] = x[c].data(), dst[c] = y[c].data();
        ASSERT_EQ(zamsIIR_32f(x[c].data(), want[c].data(), len, ref[c]), zamStatusOk);
    }
    EXPECT_EQ(zamsIIR_32f_P(src.data(), dst.data(), len, 0, st.data()), zamStatusBadChannelCount);
    EXPECT_EQ(zamsIIR_32f_P(src.data(), dst.data(), 0, nCh, st.data()), zamStatusBadLength);
    EXPECT_EQ(zamsIIR_32f_P(nullptr, dst.data(), len, nCh, st.data()), zamStatusNullPointer);
    auto bad = dst;
    bad[2] = nullptr;
    EXPECT_EQ(zamsIIR_32f_P(src.data(), bad.data(), len, nCh, st.data()), zamStatusNullPointer);
    auto foreign = st;
    std::vector<Zam8u> zero(4096, 0);
    foreign[2] = reinterpret_cast<ZamsIIRState_32f*>(zero.data());
    EXPECT_EQ(zamsIIR_32f_P(src.data(), dst.data(), len, nCh, foreign.data()), zamStatusContextMismatch);
    for (int c = 0; c < nCh; ++c) EXPECT_EQ(y[c][0], 0.0f);  // nothing filtered, states untouched
    ASSERT_EQ(zamsIIR_32f_P(src.data(), dst.data(), len, nCh, st.data()), zamStatusOk);
    for (int c = 0; c < nCh; ++c) {
        EXPECT_TRUE(same_bits(y[c], want[c]));
        zamsIIRFree_32f(st[c]), zamsIIRFree_32f(ref[c]);
    }
}

namespace {
template <class Api> void digest_kind(zt::Digest& d, const Api& api) {
    using T = typename Api::Taps;
    using D = typename Api::Data;
    for (Form f : filter_forms(api))
        for (int n : {1, 4, 8, 32}) {
            const auto taps = random_taps<T>(f, n, 1000 + n);
            const auto x = random_signal<D>(3000, 17);
            auto* st = make(api, f, n, taps, nullptr);
            std::vector<D> y(x.size());
            d.status(api.filt(x.data(), y.data(), int(x.size()), st));
            d.add(y);
            std::vector<T> line(line_len<T>(f, n));
            d.status(api.getDly(line.data(), st));
            d.add(line);
            api.free(st);
        }
}
}  // namespace

ZAMS_DIGEST(iir_filters) {
    digest_kind(d, k32f), digest_kind(d, k64f), digest_kind(d, k64fc), digest_kind(d, k64f32f),
        digest_kind(d, k64fc32fc);
}
