// Generators: random fills against liquid-dsp's randf and randnf (one value
// a call), the tone against a loop of sinf.
#include <liquid/liquid.h>

#include <cmath>
#include <vector>

#include "harness.h"
#include "zams.h"

ZAMS_BENCH(gen) {
    for (int n : {4096, 65536}) {
        std::vector<Zam32f> y(static_cast<size_t>(n));
        ZamsRandUniState_32f* u = nullptr;
        ZamsRandGaussState_32f* g = nullptr;
        zamsRandUniformInitAlloc_32f(&u, -1.0f, 1.0f, 1);
        zamsRandGaussInitAlloc_32f(&g, 0.0f, 1.0f, 1);
        b.row("RandUniform_32f", n, n * 4.0,
              {{"zams", [&] { zamsRandUniform_32f(y.data(), n, u); }},
               {"liquid randf", [&] { for (int i = 0; i < n; ++i) y[i] = 2 * randf() - 1; }}});
        b.row("RandGauss_32f", n, n * 4.0,
              {{"zams", [&] { zamsRandGauss_32f(y.data(), n, g); }},
               {"liquid randnf", [&] { for (int i = 0; i < n; ++i) y[i] = randnf(); }}});
        zamsRandUniformFree_32f(u);
        zamsRandGaussFree_32f(g);
        const float f = 0.0123f;
        b.row("Tone_32f", n, n * 4.0,
              {{"zams", [&] {
                    Zam32f ph = 0.5f;
                    zamsTone_Direct_32f(y.data(), n, 1.0f, f, &ph);
                }},
               {"sinf loop", [&] {
                    for (int i = 0; i < n; ++i) y[i] = std::sin(0.5f + 6.2831853f * f * float(i));
                }}});
    }
}
