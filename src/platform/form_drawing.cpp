#include "platform/form_drawing.hpp"

#include <utility>

namespace quillspeech {
namespace {

DrawingOperation Drawn(DrawingKind kind, std::vector<DrawingPoint> points, FormColour colour) {
  DrawingOperation operation;
  operation.kind = kind;
  operation.points = std::move(points);
  operation.colour = colour;
  return operation;
}

}  // namespace

DrawingOperation Drawn_Line(DrawingPoint from, DrawingPoint to, FormColour colour) {
  return Drawn(DrawingKind::Lines, {from, to}, colour);
}

DrawingOperation Drawn_Lines(std::vector<DrawingPoint> through, FormColour colour) {
  return Drawn(DrawingKind::Lines, std::move(through), colour);
}

DrawingOperation Drawn_Polygon(std::vector<DrawingPoint> corners, FormColour colour) {
  return Drawn(DrawingKind::Polygon, std::move(corners), colour);
}

DrawingOperation Drawn_Box(DrawingPoint corner, DrawingPoint other, FormColour colour) {
  return Drawn(DrawingKind::Box, {corner, other}, colour);
}

DrawingOperation Drawn_Circle(DrawingPoint centre, double radius, FormColour colour) {
  DrawingOperation circle = Drawn(DrawingKind::Circle, {centre}, colour);
  circle.radius = radius;
  return circle;
}

DrawingOperation Drawn_Text(DrawingPoint corner, std::string text, FormColour colour,
                            FormFont font) {
  DrawingOperation drawn = Drawn(DrawingKind::Text, {corner}, colour);
  drawn.text = std::move(text);
  drawn.font = std::move(font);
  return drawn;
}

}  // namespace quillspeech
