// Every identifier word of the library, in one list.
//
// The first 32-bit word of every specification and state structure names
// its kind; each call that takes a structure compares it (check_id in
// check.h) and refuses another kind's with zamStatusContextMismatch. A new
// family adds its words here, never as a literal in its own file, so that
// two kinds can never share a word by accident (the list is checked for
// duplicates at compile time below).
#pragma once

#include <cstdint>

namespace zams::id {

// Four characters read most significant byte first ("FI01" is 0x46493031).
constexpr int32_t msb4(const char (&s)[5]) {
    return int32_t(uint32_t(uint8_t(s[0])) << 24 | uint32_t(uint8_t(s[1])) << 16 | uint32_t(uint8_t(s[2])) << 8 |
                   uint32_t(uint8_t(s[3])));
}
// Four characters in memory order on a little-endian machine.
constexpr int32_t mem4(const char (&s)[5]) {
    return int32_t(uint32_t(uint8_t(s[3])) << 24 | uint32_t(uint8_t(s[2])) << 16 | uint32_t(uint8_t(s[1])) << 8 |
                   uint32_t(uint8_t(s[0])));
}

// ---- FFT specifications
inline constexpr int32_t FftC16sc = 1, FftC16s = 2, FftR16s = 3;
inline constexpr int32_t FftC32fc = 4, FftC32f = 5, FftR32f = 6;
inline constexpr int32_t FftC64fc = 7, FftC64f = 8, FftR64f = 9;
inline constexpr int32_t FftC32s = 0x434D414D, FftC32sc = 0x434D414C, FftR32s = 0x434D414E, FftR16s32s = 0x434D414F;

// ---- DCT specifications (forward, inverse)
inline constexpr int32_t DctFwd16s = 19, DctInv16s = 20, DctFwd32f = 21, DctInv32f = 22, DctFwd64f = 23,
                         DctInv64f = 24;

// ---- DFT specifications of any length
inline constexpr int32_t DftC32fc = msb4("DF01"), DftC64fc = msb4("DF02"), DftR32f = msb4("DF03"),
                         DftR64f = msb4("DF04"), DftC16sc = msb4("DF05"), DftR16s = msb4("DF06"),
                         DftOutOrdC32fc = msb4("DF07"), DftOutOrdC64fc = msb4("DF08");

// ---- Hilbert specifications
inline constexpr int32_t Hilbert32f32fc = 0x434D4145, Hilbert16s32fc = 0x434D4146, Hilbert16s16sc = 0x434D4147;

// ---- random generators: uniform, Gaussian
inline constexpr int32_t RandUni8u = 35, RandUni16s = 36, RandUni32f = 37;
inline constexpr int32_t RandGauss8u = 38, RandGauss16s = 39, RandGauss32f = 40;

// ---- triangle generator
inline constexpr int32_t TriangleQ15 = mem4("IAMC");

// ---- tone generator
inline constexpr int32_t ToneQ15 = mem4("TONE");

// ---- FIR states
inline constexpr int32_t Fir32f = msb4("FI01"), Fir32fc = msb4("FI02"), FirMR32f = msb4("FI03"),
                         Fir32f16s = msb4("FI05"), Fir32fc16sc = msb4("FI06"), FirMR32f16s = msb4("FI07"),
                         Fir32s16s = msb4("FI09"), Fir32sc16sc = msb4("FI10"), FirMR32s16s = msb4("FI11"),
                         Fir64f = msb4("FI13"), Fir64fc = msb4("FI14"), Fir64f32f = msb4("FI17"),
                         Fir64fc32fc = msb4("FI18"), Fir64f32s = msb4("FI21"), Fir64fc32sc = msb4("FI22"),
                         Fir64f16s = msb4("FI25"), Fir64fc16sc = msb4("FI26"), Fir16s = msb4("FI29"),
                         FirStream32f = msb4("FI33"), FirMRStream32f = msb4("FI34"),
                         FirSparse32f = msb4("FS01");  // named only by its functions
// Multirate states of the types that have no word of their own above.
inline constexpr int32_t FirMR32fc = msb4("FI04"), FirMR64f = msb4("FI15"), FirMR64fc = msb4("FI16");

// ---- IIR states
inline constexpr int32_t Iir32f = msb4("II01"), IirBq32f = msb4("II02"), Iir32f16s = msb4("II05"),
                         IirBq32f16s = msb4("II06"), Iir32fc16sc = msb4("II07"), IirBq32fc16sc = msb4("II08"),
                         Iir64f = msb4("II13"), IirBq64f = msb4("II14"), Iir64fc = msb4("II15"),
                         IirBq64fc = msb4("II16"), Iir64f32f = msb4("II17"), IirBq64f32f = msb4("II18"),
                         Iir64fc32fc = msb4("II19"), IirBq64fc32fc = msb4("II20"), Iir64f32s = msb4("II21"),
                         Iir64fc32sc = msb4("II23"), IirBq64fc32sc = msb4("II24"), Iir64f16s = msb4("II25"),
                         IirBq64f16s = msb4("II26"), Iir64fc16sc = msb4("II27"), IirBq64fc16sc = msb4("II28"),
                         IirBqDF1_32f = msb4("II29");

// ---- adaptive LMS states
inline constexpr int32_t Lms32f = msb4("LMS1");
inline constexpr int32_t Lms32f16s = msb4("LMS2"), LmsMR32s16s = msb4("LMR1"), LmsMR32sc16sc = msb4("LMR2");

// ---- wavelet filter-bank states (forward, inverse; 32f data, 16s data)
inline constexpr int32_t WtFwd32f = msb4("WT01"), WtInv32f = msb4("WT02"), WtFwd32f16s = msb4("WT03"),
                         WtInv32f16s = msb4("WT04");

// ---- polyphase resampling specifications (arbitrary and fixed ratio)
inline constexpr int32_t ResamplePoly32f = msb4("RS01"), ResamplePoly16s = msb4("RS02"),
                         ResampleFixed32f = msb4("RS03"), ResampleFixed16s = msb4("RS04");

// Every word above, for the compile-time check that none repeats.
inline constexpr int32_t kAll[] = {
    FftC16sc, FftC16s, FftR16s, FftC32fc, FftC32f, FftR32f, FftC64fc, FftC64f, FftR64f, FftC32s, FftC32sc,
    FftR32s, FftR16s32s, DctFwd16s, DctInv16s, DctFwd32f, DctInv32f, DctFwd64f, DctInv64f, DftC32fc, DftC64fc, DftR32f,
    DftR64f, DftC16sc, DftR16s, DftOutOrdC32fc, DftOutOrdC64fc, Hilbert32f32fc,
    Hilbert16s32fc, Hilbert16s16sc, RandUni8u, RandUni16s, RandUni32f, RandGauss16s, RandGauss32f, TriangleQ15,
    RandGauss8u, ToneQ15,
    Fir32f, Fir32fc, FirMR32f, Fir32f16s, Fir32fc16sc, FirMR32f16s, Fir32s16s, Fir32sc16sc, FirMR32s16s, Fir64f,
    Fir64fc, Fir64f32f, Fir64fc32fc, Fir64f32s, Fir64fc32sc, Fir64f16s, Fir64fc16sc, Fir16s, FirStream32f,
    FirMRStream32f, FirSparse32f, Iir32f, IirBq32f, Iir32f16s, IirBq32f16s, Iir32fc16sc, IirBq32fc16sc, Iir64f, IirBq64f,
    Iir64fc, IirBq64fc, Iir64f32f, IirBq64f32f, Iir64fc32fc, IirBq64fc32fc, Iir64f32s, Iir64fc32sc, IirBq64fc32sc,
    Iir64f16s, IirBq64f16s, Iir64fc16sc, IirBq64fc16sc, IirBqDF1_32f, Lms32f,
    FirMR32fc, FirMR64f, FirMR64fc, Lms32f16s, LmsMR32s16s, LmsMR32sc16sc, WtFwd32f, WtInv32f, WtFwd32f16s,
    WtInv32f16s, ResamplePoly32f, ResamplePoly16s, ResampleFixed32f, ResampleFixed16s};

constexpr bool all_distinct() {
    for (int32_t a : kAll) {
        if (a == 0) return false;  // 0 marks a freed or unbuilt structure
        int n = 0;
        for (int32_t b : kAll) n += a == b;
        if (n != 1) return false;
    }
    return true;
}
static_assert(all_distinct(), "two structure kinds share an identifier word");

}  // namespace zams::id
