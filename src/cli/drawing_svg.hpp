// A drawing as elements of an SVG document.
#pragma once

#include <string>
#include <string_view>

#include "platform/form_drawing.hpp"

namespace quillspeech::cli {

// In units of the document, which are pixels.
struct SvgPlace {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

// The operations in order, a line each at least, stretched over the place.
std::string Drawing_Svg(const FormDrawing& drawing, const SvgPlace& place);

// As colours are written on the web: "#rrggbb".
std::string Svg_Colour(FormColour colour);

// With two digits behind the point, or less.
std::string Svg_Number(double value);

// Signs of the markup are spelled; characters that XML 1.0 has no place for are left out.
std::string Svg_Text(std::string_view utf8);

}  // namespace quillspeech::cli
