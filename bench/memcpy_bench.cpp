// The memory limit every streaming kernel is measured against.
#include <cstring>
#include <vector>

#include "harness.h"

ZAMS_BENCH(memory) {
    for (int n : b.sizes()) {
        std::vector<float> x(n, 1.0f), y(n);
        b.row("memcpy_32f", n, n * 8.0,
              {{"memcpy", [&] { std::memcpy(y.data(), x.data(), n * sizeof(float)); }},
               {"memset", [&] { std::memset(y.data(), 0, n * sizeof(float)); }}});
    }
}
