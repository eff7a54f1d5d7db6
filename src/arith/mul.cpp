// Scaled integer Mul and MulC on 8u, 16s, 32s, 16sc, 32sc, the mixed-width
// products, and AddProduct. The rule, kernels and limits are in scaled.h.
#include "scaled.h"

namespace zams::scaled {
namespace {

template <class A, class B, class D> zamStatus mul(ScaleLimits l, const A* a, const B* b, D* d, int n, int sf) {
    return two(l, a, b, d, n, sf, [&] { return bin<F::Mul>(In<A>{a}, In<B>{b}); });
}
template <class D> zamStatus mulc(ScaleLimits l, const D* x, D v, D* d, int n, int sf) {
    return con(l, x, d, n, sf, false, [&](const D* p) { return bin<F::Mul>(In<D>{p}, konst(v)); });
}

// Complex products: 16sc sums of two products fit 64 bits; 32sc ones need 65.
template <class C> using cwide = std::conditional_t<std::is_same_v<C, Zam32sc>, I128, int64_t>;
template <class C> zamStatus cmul(ScaleLimits l, const C* a, const C* b, C* d, int n, int sf) {
    return two(l, a, b, d, n, sf, [&] { return CMul<cwide<C>, C, C>{a, b, 1}; });
}
template <class C> zamStatus cmulc(ScaleLimits l, const C* x, C v, C* d, int n, int sf) {
    return con(l, x, d, n, sf, false, [&](const C* p) { return CMul<cwide<C>, C, C>{p, &v, 0}; });
}

// c + a * b into c.
template <class A, class C> zamStatus addprod(ScaleLimits l, const A* a, const A* b, C* c, int n, int sf) {
    return two(l, a, b, c, n, sf, [&] { return MulAcc<In<A>, In<A>, In<C>>{In<A>{a}, In<A>{b}, In<C>{c}}; });
}

}  // namespace
}  // namespace zams::scaled

using namespace zams::scaled;

#define ZAMS_MUL(t, l, f, fc)                                                                                   \
    ZAMS_FN(zamStatus, zamsMul_##t##_Sfs)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n, int sf) {         \
        return f(lim::l, a, b, d, n, sf);                                                                       \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsMul_##t##_ISfs)(const Zam##t* a, Zam##t* d, int n, int sf) {                         \
        return f(lim::l, a, d, d, n, sf);                                                                       \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsMulC_##t##_Sfs)(const Zam##t* x, Zam##t v, Zam##t* d, int n, int sf) {               \
        return fc(lim::l, x, v, d, n, sf);                                                                      \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsMulC_##t##_ISfs)(Zam##t v, Zam##t* d, int n, int sf) { return fc(lim::l, d, v, d, n, sf); }

ZAMS_MUL(8u, mul_8u, mul, mulc)
ZAMS_MUL(16s, mul_16s, mul, mulc)
ZAMS_MUL(32s, mul_32s, mul, mulc)
ZAMS_MUL(16sc, mul_16sc, cmul, cmulc)
ZAMS_MUL(32sc, mul_32sc, cmul, cmulc)

ZAMS_FN(zamStatus, zamsMul_Low_32s_Sfs)(const Zam32s* a, const Zam32s* b, Zam32s* d, int n, int sf) {
    return mul(lim::mul_32s, a, b, d, n, sf);
}
ZAMS_FN(zamStatus, zamsMul_16u16s_Sfs)(const Zam16u* a, const Zam16s* b, Zam16s* d, int n, int sf) {
    return mul(lim::mul_16u16s, a, b, d, n, sf);
}
ZAMS_FN(zamStatus, zamsMul_16s32s_Sfs)(const Zam16s* a, const Zam16s* b, Zam32s* d, int n, int sf) {
    return mul(lim::mul_16s32s, a, b, d, n, sf);
}
ZAMS_FN(zamStatus, zamsMul_32s32sc_Sfs)(const Zam32s* a, const Zam32sc* b, Zam32sc* d, int n, int sf) {
    return two(lim::mul_32sc, a, b, d, n, sf, [&] { return RMul<Zam32s, Zam32sc>{a, b}; });
}

ZAMS_FN(zamStatus, zamsAddProduct_16s_Sfs)(const Zam16s* a, const Zam16s* b, Zam16s* c, int n, int sf) {
    return addprod(lim::addprod_16s, a, b, c, n, sf);
}
ZAMS_FN(zamStatus, zamsAddProduct_16s32s_Sfs)(const Zam16s* a, const Zam16s* b, Zam32s* c, int n, int sf) {
    return addprod(lim::addprod_16s32s, a, b, c, n, sf);
}
ZAMS_FN(zamStatus, zamsAddProduct_32s_Sfs)(const Zam32s* a, const Zam32s* b, Zam32s* c, int n, int sf) {
    return addprod(lim::addprod_32s, a, b, c, n, sf);
}

// Mul and MulC at factor 0, without the argument; 16u has only these.
#define ZAMS_MUL_PLAIN(t, l)                                                                                    \
    ZAMS_FN(zamStatus, zamsMul_##t)(const Zam##t* a, const Zam##t* b, Zam##t* d, int n) {                       \
        return mul(lim::l, a, b, d, n, 0);                                                                      \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsMul_##t##_I)(const Zam##t* a, Zam##t* d, int n) { return mul(lim::l, a, d, d, n, 0); } \
    ZAMS_FN(zamStatus, zamsMulC_##t)(const Zam##t* x, Zam##t v, Zam##t* d, int n) {                             \
        return mulc(lim::l, x, v, d, n, 0);                                                                     \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsMulC_##t##_I)(Zam##t v, Zam##t* d, int n) { return mulc(lim::l, d, v, d, n, 0); }

ZAMS_MUL_PLAIN(8u, mul_8u)
ZAMS_MUL_PLAIN(16s, mul_16s)
ZAMS_MUL_PLAIN(16u, mul_16u)
