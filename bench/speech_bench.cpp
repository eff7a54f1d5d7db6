// Speech kernels: the median filter against std::nth_element on a copy of
// each window, companding against a plain table loop (a 256-entry decode
// table, a 64 Ki-entry encode table indexed by the 16-bit value).
#include <algorithm>
#include <cstdint>
#include <vector>

#include "harness.h"
#include "zams.h"

ZAMS_BENCH(speech_median) {
    const int n = 1 << 20;
    for (int m : {31, 5}) {
        std::vector<Zam32f> x(static_cast<size_t>(n + m)), y(static_cast<size_t>(n)), w(static_cast<size_t>(m));
        for (size_t i = 0; i < x.size(); ++i) x[i] = float((i * 2654435761u) % 10007) * 0.01f;
        const int h = m / 2;
        b.row("FilterMedian_32f mask " + std::to_string(m), n, n * 8.0,
              {{"zams", [&] { zamsFilterMedian_32f(x.data() + h, y.data(), n, m); }},
               {"nth_element", [&] {
                    // the interior only (the peer gets the easier edges)
                    for (int i = 0; i < n; ++i) {
                        std::copy(x.begin() + i, x.begin() + i + m, w.begin());
                        std::nth_element(w.begin(), w.begin() + h, w.end());
                        y[size_t(i)] = w[size_t(h)];
                    }
                }}});
    }
}

namespace {
// Plain tables a user would fill once from the library itself.
struct Tables {
    Zam16s dec[256];
    std::vector<Zam8u> enc = std::vector<Zam8u>(65536);
    Tables() {
        Zam8u c[256];
        for (int i = 0; i < 256; ++i) c[i] = Zam8u(i);
        zamsALawToLin_8u16s(c, dec, 256);
        std::vector<Zam16s> all(65536);
        for (int i = 0; i < 65536; ++i) all[size_t(i)] = Zam16s(i - 32768);
        zamsLinToALaw_16s8u(all.data(), enc.data() + 32768, 32768);
        zamsLinToALaw_16s8u(all.data() + 32768, enc.data(), 32768);
    }
};
}  // namespace

ZAMS_BENCH(speech_companding) {
    static const Tables t;
    const int n = 1 << 20;
    std::vector<Zam8u> c(static_cast<size_t>(n));
    std::vector<Zam16s> s(static_cast<size_t>(n));
    std::vector<Zam32f> f(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) c[size_t(i)] = Zam8u(i * 2654435761u >> 24);
    for (int i = 0; i < n; ++i) s[size_t(i)] = Zam16s(i * 2654435761u >> 16);
    b.row("ALawToLin_8u16s", n, n * 3.0,
          {{"zams", [&] { zamsALawToLin_8u16s(c.data(), s.data(), n); }},
           {"table loop", [&] { for (int i = 0; i < n; ++i) s[size_t(i)] = t.dec[c[size_t(i)]]; }}});
    b.row("ALawToLin_8u32f", n, n * 5.0,
          {{"zams", [&] { zamsALawToLin_8u32f(c.data(), f.data(), n); }},
           {"table loop", [&] { for (int i = 0; i < n; ++i) f[size_t(i)] = float(t.dec[c[size_t(i)]]); }}});
    for (int i = 0; i < n; ++i) s[size_t(i)] = Zam16s(i * 2654435761u >> 16);
    b.row("LinToALaw_16s8u", n, n * 3.0,
          {{"zams", [&] { zamsLinToALaw_16s8u(s.data(), c.data(), n); }},
           {"table loop", [&] { for (int i = 0; i < n; ++i) c[size_t(i)] = t.enc[uint16_t(s[size_t(i)])]; }}});
    b.row("LinToMuLaw_16s8u", n, n * 3.0,
          {{"zams", [&] { zamsLinToMuLaw_16s8u(s.data(), c.data(), n); }},
           {"A table loop", [&] { for (int i = 0; i < n; ++i) c[size_t(i)] = t.enc[uint16_t(s[size_t(i)])]; }}});
}
