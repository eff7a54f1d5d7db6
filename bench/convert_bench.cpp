// Conversions against VOLK where it has the operation, a plain C loop, and
// memcpy of the destination's bytes (the memory limit).
#include <volk/volk.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace {

std::vector<int> conv_sizes() { return {4096, 4 << 20}; }

template <class T> std::vector<T> ramp(int n, double scale) {
    std::vector<T> v(n);
    for (int i = 0; i < n; ++i) v[i] = T(std::fmod(i * 7.3, 2 * scale) - scale);
    return v;
}

zb::Contender copy_of(void* dst, const void* src, size_t bytes) {
    return {"memcpy", [=] { std::memcpy(dst, src, bytes); }};
}

}  // namespace

ZAMS_BENCH(convert_16s32f) {
    for (int n : conv_sizes()) {
        auto x = ramp<int16_t>(n, 30000);
        std::vector<float> y(n), c(n);
        b.row("Convert_16s32f", n, n * 6.0,
              {{"zams", [&] { zamsConvert_16s32f(x.data(), y.data(), n); }},
               {"volk", [&] { volk_16i_s32f_convert_32f(y.data(), x.data(), 1.0f, unsigned(n)); }},
               {"loop", [&] { for (int i = 0; i < n; ++i) y[i] = float(x[i]); zb::keep(y); }},
               copy_of(c.data(), y.data(), n * sizeof(float))});
    }
}

ZAMS_BENCH(convert_32f16s) {
    for (int n : conv_sizes()) {
        auto x = ramp<float>(n, 40000);
        std::vector<int16_t> y(n), c(n);
        for (int mode : {1, 2}) {
            b.row(std::string("Convert_32f16s_Sfs mode ") + std::to_string(mode), n, n * 6.0,
                  {{"zams", [&] { zamsConvert_32f16s_Sfs(x.data(), y.data(), n, zamRoundMode(mode), 0); }},
                   {"volk", [&] { volk_32f_s32f_convert_16i(y.data(), x.data(), 1.0f, unsigned(n)); }},
                   {"loop", [&] {
                        for (int i = 0; i < n; ++i) {
                            float v = std::fmin(std::fmax(x[i], -32768.0f), 32767.0f);
                            y[i] = int16_t(mode == 1 ? std::nearbyint(v) : std::round(v));
                        }
                        zb::keep(y);
                    }},
                   copy_of(c.data(), y.data(), n * sizeof(int16_t))});
        }
    }
}

ZAMS_BENCH(convert_half) {
    for (int n : conv_sizes()) {
        auto x = ramp<float>(n, 60000);
        std::vector<Zam16f> h(n), c(n);
        std::vector<float> y(n);
        b.row("Convert_32f16f", n, n * 6.0,
              {{"zams", [&] { zamsConvert_32f16f(x.data(), h.data(), n, zamRoundNearestEven); }},
               {"loop", [&] {
                    for (int i = 0; i < n; ++i) {
                        _Float16 v = _Float16(x[i]);
                        std::memcpy(&h[i], &v, 2);
                    }
                    zb::keep(h);
                }},
               copy_of(c.data(), h.data(), n * sizeof(Zam16f))});
        b.row("Convert_16f32f", n, n * 6.0,
              {{"zams", [&] { zamsConvert_16f32f(h.data(), y.data(), n); }},
               {"loop", [&] {
                    for (int i = 0; i < n; ++i) {
                        _Float16 v;
                        std::memcpy(&v, &h[i], 2);
                        y[i] = float(v);
                    }
                    zb::keep(y);
                }},
               copy_of(x.data(), y.data(), n * sizeof(float))});
    }
}

ZAMS_BENCH(convert_32f64f) {
    for (int n : conv_sizes()) {
        auto x = ramp<float>(n, 1e6);
        std::vector<double> y(n), c(n);
        b.row("Convert_32f64f", n, n * 12.0,
              {{"zams", [&] { zamsConvert_32f64f(x.data(), y.data(), n); }},
               {"volk", [&] { volk_32f_convert_64f(y.data(), x.data(), unsigned(n)); }},
               {"loop", [&] { for (int i = 0; i < n; ++i) y[i] = double(x[i]); zb::keep(y); }},
               copy_of(c.data(), y.data(), n * sizeof(double))});
    }
}

ZAMS_BENCH(convert_24s32f) {
    for (int n : conv_sizes()) {
        std::vector<uint8_t> x(3 * size_t(n));
        for (size_t i = 0; i < x.size(); ++i) x[i] = uint8_t(i * 37);
        std::vector<float> y(n), c(n);
        b.row("Convert_24s32f", n, n * 7.0,
              {{"zams", [&] { zamsConvert_24s32f(x.data(), y.data(), n); }},
               {"loop", [&] {
                    for (int i = 0; i < n; ++i) {
                        const uint8_t* p = &x[3 * size_t(i)];
                        y[i] = float(int32_t(uint32_t(p[0]) << 8 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 24) >> 8);
                    }
                    zb::keep(y);
                }},
               copy_of(c.data(), y.data(), n * sizeof(float))});
    }
}
