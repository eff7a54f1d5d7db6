// The saturating Add, Sub, Mul and constant forms without a scale factor:
// the _Sfs functions at factor 0, and Mul_16u against its own model.
#include "digest.h"
#include "scaled_model.h"

namespace {

template <class T> using Two = zamStatus (*)(const T*, const T*, T*, int);
template <class T> using TwoI = zamStatus (*)(const T*, T*, int);
template <class T> using TwoS = zamStatus (*)(const T*, const T*, T*, int, int);
template <class T> using Con = zamStatus (*)(const T*, T, T*, int);
template <class T> using ConI = zamStatus (*)(T, T*, int);
template <class T> using ConS = zamStatus (*)(const T*, T, T*, int, int);
template <class T> using ConIS = zamStatus (*)(T, T*, int, int);

// f and its in-place form against the scaled function at 0: every length
// and alignment (the scaled call on one element is the model), the
// in-place form on one length, and the same status for each bad argument.
template <class T> void two_like(Two<T> f, TwoI<T> fi, TwoS<T> ref) {
    auto pa = st::pool<T>(300, 11), pb = st::pool<T>(300, 12);
    zt::SweepOptions o;
    o.len_step = 3;
    zt::sweep_binary<T, T, T>(f, [&](T a, T b) { T d; ref(&a, &b, &d, 1, 0); return d; }, pa, pb, o);
    std::vector<T> want(97), io(pb.begin(), pb.begin() + 97);
    ASSERT_EQ(ref(pa.data(), pb.data(), want.data(), 97, 0), zamStatusOk);
    ASSERT_EQ(fi(pa.data(), io.data(), 97), zamStatusOk);
    EXPECT_EQ(io, want);
    T a[2] = {}, d[2] = {};
    for (const T* x : {a, static_cast<T*>(nullptr)})
        for (T* y : {d, static_cast<T*>(nullptr)})
            for (int n : {-1, 0, 2}) {
                EXPECT_EQ(f(x, a, y, n), ref(x, a, y, n, 0)) << n;
                EXPECT_EQ(f(a, x, y, n), ref(a, x, y, n, 0)) << n;
                EXPECT_EQ(fi(x, y, n), ref(x, y, y, n, 0)) << n;
            }
}

template <class T> void con_like(Con<T> f, ConI<T> fi, ConS<T> ref, ConIS<T> refi, std::vector<T> vals) {
    auto px = st::pool<T>(300, 13);
    zt::SweepOptions o;
    o.len_step = 7;
    for (T v : vals) {
        zt::sweep_unary<T, T>([&](const T* x, T* d, int n) { return f(x, v, d, n); },
                              [&](T x) { T d; ref(&x, v, &d, 1, 0); return d; }, px, o);
        std::vector<T> want(px.begin(), px.begin() + 97), io = want;
        ASSERT_EQ(refi(v, want.data(), 97, 0), zamStatusOk);
        ASSERT_EQ(fi(v, io.data(), 97), zamStatusOk);
        EXPECT_EQ(io, want);
        T x[2] = {1, 2}, d[2] = {};
        for (int n : {-1, 0, 2}) {
            EXPECT_EQ(f(nullptr, v, d, n), ref(nullptr, v, d, n, 0));
            EXPECT_EQ(f(x, v, nullptr, n), ref(x, v, nullptr, n, 0));
            EXPECT_EQ(f(x, v, d, n), ref(x, v, d, n, 0));
            EXPECT_EQ(fi(v, nullptr, n), refi(v, nullptr, n, 0));
            EXPECT_EQ(fi(v, d, n), refi(v, d, n, 0));
        }
    }
}

#define TWO(op, t) two_like<Zam##t>(zams##op##_##t, zams##op##_##t##_I, zams##op##_##t##_Sfs)
#define CON(op, t, ...) \
    con_like<Zam##t>(zams##op##_##t, zams##op##_##t##_I, zams##op##_##t##_Sfs, zams##op##_##t##_ISfs, {__VA_ARGS__})

TEST(Unscaled, TwoVectorsAreTheScaledFormsAtZero) {
    TWO(Add, 8u);
    TWO(Add, 16s);
    TWO(Add, 16u);
    TWO(Sub, 8u);
    TWO(Sub, 16s);
    TWO(Sub, 16u);
    TWO(Mul, 8u);
    TWO(Mul, 16s);
}

// 0 takes the copy (or, in place for 16s, returns at once) and the ends of
// the range take the fill and zeroing hand-offs.
TEST(Unscaled, ConstantsAreTheScaledFormsAtZero) {
    CON(AddC, 8u, 0, 255, 9);
    CON(SubC, 8u, 0, 200);
    CON(SubCRev, 8u, 0, 255, 100);
    CON(MulC, 8u, 0, 1, 7);
    CON(AddC, 16s, 0, -32768, 1000);
    CON(SubC, 16s, 0, 32767, -5);
    CON(SubCRev, 16s, 0, -32768, 77);
    CON(MulC, 16s, 0, -1, 300);
    CON(AddC, 16u, 0, 65535, 30000);
    CON(SubC, 16u, 0, 65535, 123);
    CON(SubCRev, 16u, 0, 65535, 40000);
    EXPECT_EQ(zamsAddC_16s_I(0, nullptr, -1), zamStatusOk);
    EXPECT_EQ(zamsAddC_16u_I(0, nullptr, 2), zamStatusNullPointer);
}

// Mul_16u has no scaled form: min(a b, 65535); a zero constant goes
// through the zeroing function.
TEST(Unscaled, Mul16uSaturates) {
    auto pa = st::pool<Zam16u>(300, 21), pb = st::pool<Zam16u>(300, 22);
    auto m = [](Zam16u a, Zam16u b) { return Zam16u(std::min<uint32_t>(uint32_t(a) * b, 65535u)); };
    zt::SweepOptions o{.len_step = 2}, oi{.in_place = false, .len_step = 9};
    zt::sweep_binary<Zam16u, Zam16u, Zam16u>(zamsMul_16u, m, pa, pb, o);
    zt::sweep_binary<Zam16u, Zam16u, Zam16u>(st::in_place(zamsMul_16u_I), m, pa, pb, oi);
    for (Zam16u v : {Zam16u(0), Zam16u(2), Zam16u(255), Zam16u(65535)}) {
        zt::sweep_unary<Zam16u, Zam16u>([&](const Zam16u* x, Zam16u* d, int n) { return zamsMulC_16u(x, v, d, n); },
                                        [&](Zam16u x) { return m(x, v); }, pa, o);
        zt::sweep_unary<Zam16u, Zam16u>(st::in_place(zamsMulC_16u_I, v), [&](Zam16u x) { return m(x, v); }, pa, oi);
    }
    EXPECT_EQ(zamsMulC_16u_I(3, nullptr, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsMulC_16u_I(0, nullptr, -4), zamStatusNullPointer);
    EXPECT_EQ(zamsMulC_16u(pa.data(), 0, pb.data(), -4), zamStatusBadLength);
}

ZAMS_DIGEST(unscaled) {
    const int n = 203;
    st::Io<Zam16u> u(n, 5);
    st::Io<Zam16s> s(n, 3);
    st::Io<Zam8u> b(n, 1);
    d.status(zamsMul_16u(u.a.data(), u.b.data(), u.d.data(), n)), d.add(u.d);
    d.status(zamsMulC_16u(u.a.data(), 300, u.d.data(), n)), d.add(u.d);
    d.status(zamsSub_16u(u.a.data(), u.b.data(), u.d.data(), n)), d.add(u.d);
    d.status(zamsAdd_16s(s.a.data(), s.b.data(), s.d.data(), n)), d.add(s.d);
    d.status(zamsSubCRev_16s(s.a.data(), -9, s.d.data(), n)), d.add(s.d);
    d.status(zamsMul_8u(b.a.data(), b.b.data(), b.d.data(), n)), d.add(b.d);
    d.status(zamsAddC_8u(b.a.data(), 100, b.d.data(), n)), d.add(b.d);
}

}  // namespace
