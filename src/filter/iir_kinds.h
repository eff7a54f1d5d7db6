// The IIR kinds: taps type, data type and identifier words of each.
#pragma once

#include "iir_core.h"

namespace zams::iir {

using K32f = Kind<Zam32f, Zam32f, id::Iir32f, id::IirBq32f, id::IirBqDF1_32f>;
using K32f16s = Kind<Zam32f, Zam16s, id::Iir32f16s, id::IirBq32f16s>;
using K32fc16sc = Kind<Zam32fc, Zam16sc, id::Iir32fc16sc, id::IirBq32fc16sc>;
using K64f = Kind<Zam64f, Zam64f, id::Iir64f, id::IirBq64f>;
using K64fc = Kind<Zam64fc, Zam64fc, id::Iir64fc, id::IirBq64fc>;
using K64f32f = Kind<Zam64f, Zam32f, id::Iir64f32f, id::IirBq64f32f>;
using K64fc32fc = Kind<Zam64fc, Zam32fc, id::Iir64fc32fc, id::IirBq64fc32fc>;
using K64f32s = Kind<Zam64f, Zam32s, id::Iir64f32s, id::Iir64f32s>;  // no cascade form
using K64fc32sc = Kind<Zam64fc, Zam32sc, id::Iir64fc32sc, id::IirBq64fc32sc>;
using K64f16s = Kind<Zam64f, Zam16s, id::Iir64f16s, id::IirBq64f16s>;
using K64fc16sc = Kind<Zam64fc, Zam16sc, id::Iir64fc16sc, id::IirBq64fc16sc>;

}  // namespace zams::iir
