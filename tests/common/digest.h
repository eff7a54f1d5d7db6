// Cross-target digests: a case runs functions over fixed inputs and feeds
// their outputs and statuses into a Digest; the test compares each case's
// digest with the committed file tests/digest/<source file>.digest, which
// the i386 and x86-64 runs must both match.
//
//     ZAMS_DIGEST(abs_16s) {
//         auto x = zt::random_ints<Zam16s>(1000, 1);
//         std::vector<Zam16s> y(x.size());
//         d.status(zamsAbs_16s(x.data(), y.data(), 1000));
//         d.add(y);
//     }
//
// Run a test binary with ZAMS_DIGEST_WRITE=1 to (re)write the files from
// the current build, then review the change like any other.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace zt {

class Digest {
public:
    void bytes(const void* p, size_t n) {
        const auto* b = static_cast<const uint8_t*>(p);
        for (size_t i = 0; i < n; ++i) h_ = (h_ ^ b[i]) * 0x100000001b3ull;
    }
    template <class T> void add(const T* p, size_t n) { bytes(p, n * sizeof(T)); }
    template <class T> void add(const std::vector<T>& v) { add(v.data(), v.size()); }
    void status(int32_t s) { bytes(&s, sizeof s); }
    uint64_t value() const { return h_; }

private:
    uint64_t h_ = 0xcbf29ce484222325ull;
};

using DigestFn = void (*)(Digest&);
int register_digest(const char* file, const char* name, DigestFn fn);

}  // namespace zt

#define ZAMS_DIGEST(name)                                                                        \
    static void zams_digest_##name(zt::Digest& d);                                              \
    [[maybe_unused]] static const int zams_digest_reg_##name =                                  \
        zt::register_digest(__FILE__, #name, zams_digest_##name);                              \
    static void zams_digest_##name([[maybe_unused]] zt::Digest& d)
