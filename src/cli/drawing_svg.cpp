#include "cli/drawing_svg.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/text.hpp"

namespace quillspeech::cli {
namespace {

constexpr double Pixels_A_Point = 96.0 / 72;
constexpr double Ascent = 0.9;  // of a font's size, above its base line
constexpr std::size_t Points_A_Line = 12;

std::string Attribute(const char* name, double value) {
  return std::string(" ") + name + "=\"" + Svg_Number(value) + "\"";
}

// The drawing's scale on its place.
class Scale {
 public:
  Scale(const DrawingScale& scale, const SvgPlace& place)
      : scale_(scale),
        place_(place),
        across_(place.width / (scale.right - scale.left)),
        down_(place.height / (scale.bottom - scale.top)) {}

  double X(double x) const { return place_.left + (x - scale_.left) * across_; }
  double Y(double y) const { return place_.top + (y - scale_.top) * down_; }
  double Length(double across) const { return std::abs(across * across_); }

 private:
  DrawingScale scale_;
  SvgPlace place_;
  double across_;
  double down_;
};

std::string Stroke(const DrawingOperation& operation) {
  const double width = operation.line_points > 0 ? operation.line_points * Pixels_A_Point : 1;
  return " fill=\"none\" stroke=\"" + Svg_Colour(operation.colour) + "\"" +
         Attribute("stroke-width", width) + " stroke-linejoin=\"round\"";
}

std::string Paint(const DrawingOperation& operation) {
  return operation.is_filled ? " fill=\"" + Svg_Colour(operation.colour) + "\"" : Stroke(operation);
}

std::string Points(const DrawingOperation& operation, const Scale& scale) {
  std::string text = " points=\"";
  for (std::size_t i = 0; i < operation.points.size(); ++i) {
    if (i > 0) text += i % Points_A_Line == 0 ? '\n' : ' ';
    text += Svg_Number(scale.X(operation.points[i].x)) + "," +
            Svg_Number(scale.Y(operation.points[i].y));
  }
  return text + "\"/>";
}

// The corners may lie in any order.
std::string Box(const DrawingOperation& operation, const Scale& scale) {
  const DrawingPoint& one = operation.points[0];
  const DrawingPoint& other = operation.points[1];
  const auto [left, right] = std::minmax({scale.X(one.x), scale.X(other.x)});
  const auto [top, bottom] = std::minmax({scale.Y(one.y), scale.Y(other.y)});
  const double least = operation.is_filled ? 1 : 0;  // pixels: a face without any would not show
  return "<rect" + Attribute("x", left) + Attribute("y", top) +
         Attribute("width", std::max(right - left, least)) +
         Attribute("height", std::max(bottom - top, least)) + Paint(operation) + "/>";
}

std::string Circle(const DrawingOperation& operation, const Scale& scale) {
  const DrawingPoint& centre = operation.points[0];
  return "<circle" + Attribute("cx", scale.X(centre.x)) + Attribute("cy", scale.Y(centre.y)) +
         Attribute("r", scale.Length(operation.radius)) + Paint(operation) + "/>";
}

std::string Text(const DrawingOperation& operation, const Scale& scale) {
  const double size = operation.font.points * Pixels_A_Point;
  const DrawingPoint& corner = operation.points[0];
  return "<text" + Attribute("x", scale.X(corner.x)) +
         Attribute("y", scale.Y(corner.y) + Ascent * size) + Attribute("font-size", size) +
         " font-family=\"'" + Svg_Text(To_Utf8(operation.font.name)) + "', sans-serif\"" +
         (operation.font.bold ? " font-weight=\"bold\"" : "") + " fill=\"" +
         Svg_Colour(operation.colour) + "\">" + Svg_Text(To_Utf8(operation.text)) + "</text>";
}

std::string Operation(const DrawingOperation& operation, const Scale& scale) {
  switch (operation.kind) {
    case DrawingKind::Lines:
      return "<polyline" + Stroke(operation) + Points(operation, scale);
    case DrawingKind::Polygon:
      return "<polygon" + Paint(operation) + Points(operation, scale);
    case DrawingKind::Box:
      return Box(operation, scale);
    case DrawingKind::Circle:
      return Circle(operation, scale);
    case DrawingKind::Text:
      return Text(operation, scale);
  }
  return "";
}

}  // namespace

std::string Drawing_Svg(const FormDrawing& drawing, const SvgPlace& place) {
  const Scale scale(drawing.scale, place);
  std::string svg;
  for (const DrawingOperation& one : drawing.operations) svg += Operation(one, scale) + "\n";
  return svg;
}

std::string Svg_Number(double value) {
  char digits[32];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2);
  std::string text(digits, end.ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string Svg_Text(std::string_view utf8) {
  std::string escaped;
  for (const char c : utf8) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else if (c == '"') {
      escaped += "&quot;";
    } else if (static_cast<unsigned char>(c) >= 0x20) {
      escaped += c;
    }
  }
  return escaped;
}

std::string Svg_Colour(FormColour colour) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string text = "#";
  for (const unsigned shift : {4U, 0U, 12U, 8U, 20U, 16U}) text += Digits[colour >> shift & 0xFU];
  return text;
}

}  // namespace quillspeech::cli
