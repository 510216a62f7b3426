// What is drawn on a picture, an image, a button or a form's ground: a list of operations on a
// scale of its own, which every view stretches over the place that it has.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillspeech {

using FormColour = std::uint32_t;  // 0x00BBGGRR

struct FormFont {
  std::string name = "MS Sans Serif";
  double points = 8;
  bool bold = false;
  bool operator==(const FormFont&) const = default;
};

// The numbers at the edges of the surface. An axis may run either way; its two edges differ.
struct DrawingScale {
  double left = 0;
  double top = 0;
  double right = 1;
  double bottom = 1;
  bool operator==(const DrawingScale&) const = default;
};

struct DrawingPoint {
  double x = 0;
  double y = 0;
  bool operator==(const DrawingPoint&) const = default;
};

enum class DrawingKind {
  Lines,    // through two points and more, open
  Polygon,  // three corners and more
  Box,      // two opposite corners
  Circle,   // its centre
  Text,     // its left upper corner
};

struct DrawingOperation {
  DrawingKind kind = DrawingKind::Lines;
  std::vector<DrawingPoint> points;
  FormColour colour = 0;
  bool is_filled = true;   // polygons, boxes and circles; else an outline
  double line_points = 0;  // how thick lines and outlines are; 0: a pixel
  double radius = 0;       // of a circle, in units of x: it is round on every scale
  std::string text;        // Windows-1252, one line
  FormFont font;           // of the text
  bool operator==(const DrawingOperation&) const = default;
};

struct FormDrawing {
  DrawingScale scale;
  std::vector<DrawingOperation> operations;  // in this order, later ones above
  bool operator==(const FormDrawing&) const = default;
};

// Operations in a line each.
DrawingOperation Drawn_Line(DrawingPoint from, DrawingPoint to, FormColour colour);
DrawingOperation Drawn_Lines(std::vector<DrawingPoint> through, FormColour colour);
DrawingOperation Drawn_Polygon(std::vector<DrawingPoint> corners, FormColour colour);
DrawingOperation Drawn_Box(DrawingPoint corner, DrawingPoint other, FormColour colour);
DrawingOperation Drawn_Circle(DrawingPoint centre, double radius, FormColour colour);
DrawingOperation Drawn_Text(DrawingPoint corner, std::string text, FormColour colour,
                            FormFont font = {});

}  // namespace quillspeech
