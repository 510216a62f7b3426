// The one size that the control has, in the units of its callers.
#pragma once

#include "activex/com.hpp"
#include "core/control_face.hpp"
#include "platform/form.hpp"

namespace quillspeech::activex {

// In hundredths of a millimetre.
inline SIZEL Own_Extent() {
  constexpr int Himetric_Per_Inch = 2540;
  const FaceSize size = UserControl_Resize({});
  return {MulDiv(size.width, Himetric_Per_Inch, Twips_Per_Inch),
          MulDiv(size.height, Himetric_Per_Inch, Twips_Per_Inch)};
}

// In pixels.
inline SIZE Own_Size(int dots_per_inch) {
  const FaceSize size = UserControl_Resize({});
  return {Twips_To_Pixels(size.width, dots_per_inch), Twips_To_Pixels(size.height, dots_per_inch)};
}

// Whether the extent is its own, but for what a container loses that counts in pixels.
inline bool Is_Own_Extent(const SIZEL& extent) {
  constexpr LONG Pixel = 27;  // at 96 dpi
  const SIZEL own = Own_Extent();
  const auto near_to = [](LONG one, LONG other) {
    return one > other - Pixel && one < other + Pixel;
  };
  return near_to(extent.cx, own.cx) && near_to(extent.cy, own.cy);
}

}  // namespace quillspeech::activex
