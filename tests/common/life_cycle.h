// The life cycle every structure family shares, checked once for all: a
// build in caller memory of exactly the reported sizes, at odd addresses,
// writes nothing outside them and behaves bit for bit as the allocating
// build; Free retires it, so freeing it again is refused.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "harness.h"

namespace zt {

// The bytes of vectors laid end to end: what a use of a structure produced,
// compared between two builds.
template <class... V> std::vector<uint8_t> bytes_of(const V&... v) {
    std::vector<uint8_t> b;
    auto put = [&](const auto& x) {
        const auto* p = reinterpret_cast<const uint8_t*>(x.data());
        b.insert(b.end(), p, p + x.size() * sizeof(x[0]));
    };
    (put(v), ...);
    return b;
}

// init(&s, mem, tmp) builds into caller memory of the reported sizes,
// alloc(&s) is the allocating build, use(s) returns the bytes the structure
// produces (checking what it must along the way). `retires`: Free of a
// structure in caller memory clears its identifier (families whose states
// in caller memory stay usable after Free pass false).
template <class S, class Init, class Alloc, class Use>
void caller_memory_equals_alloc(int specSize, int buildSize, Init init, Alloc alloc, zamStatus (*release)(S*),
                                Use use, bool retires = true) {
    Guarded<Zam8u> mem(static_cast<size_t>(specSize), 1), tmp(static_cast<size_t>(buildSize), 3);
    S* spec = nullptr;
    ASSERT_EQ(init(&spec, mem.data(), buildSize ? tmp.data() : nullptr), zamStatusOk);
    EXPECT_TRUE(mem.guards_intact());
    EXPECT_TRUE(tmp.guards_intact());
    S* twin = nullptr;
    ASSERT_EQ(alloc(&twin), zamStatusOk);
    EXPECT_TRUE(use(spec) == use(twin));
    EXPECT_EQ(release(twin), zamStatusOk);
    ASSERT_EQ(release(spec), zamStatusOk);
    EXPECT_EQ(release(spec), retires ? zamStatusContextMismatch : zamStatusOk);
}

}  // namespace zt
