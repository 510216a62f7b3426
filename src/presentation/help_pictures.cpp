#include "presentation/help_pictures.hpp"

#include <cmath>
#include <utility>
#include <vector>

namespace quillspeech {
namespace {

constexpr FormColour White = 0x00FFFFFF;
constexpr FormColour Ink = 0x00502814;
constexpr FormColour Sky = 0x00E8B070;
constexpr FormColour Mist = 0x00F8E8D8;
constexpr FormColour Gold = 0x0030B0F0;
constexpr FormColour Leaf = 0x0060A050;

constexpr double Pi = 3.14159265358979;

FormDrawing Square(double edge) { return {{0, 0, edge, edge}, {}}; }

void Thicken(DrawingOperation& line, double points) { line.line_points = points; }

// A wave that swells and fades between two ends.
DrawingOperation Wave(double left, double right, double middle, double height, int periods,
                      FormColour colour) {
  constexpr int Steps_A_Period = 24;
  const int steps = Steps_A_Period * periods;
  std::vector<DrawingPoint> points;
  for (int step = 0; step <= steps; ++step) {
    const double part = static_cast<double>(step) / steps;
    const double swell = std::sin(Pi * part);
    points.push_back({left + (right - left) * part,
                      middle - height * swell * std::sin(2 * Pi * periods * part)});
  }
  return Drawn_Lines(std::move(points), colour);
}

DrawingOperation Ring(DrawingPoint centre, double radius, FormColour colour) {
  DrawingOperation ring = Drawn_Circle(centre, radius, colour);
  ring.is_filled = false;
  Thicken(ring, 1.5);
  return ring;
}

}  // namespace

FormDrawing Quill_Picture() {
  FormDrawing picture = Square(100);
  auto& drawn = picture.operations;
  DrawingOperation wave = Wave(6, 94, 74, 15, 5, Sky);
  Thicken(wave, 1.5);
  drawn.push_back(std::move(wave));
  drawn.push_back(
      Drawn_Polygon({{88, 8}, {80, 36}, {66, 54}, {46, 62}, {42, 58}, {48, 40}, {62, 20}}, Mist));
  DrawingOperation shaft = Drawn_Line({84, 13}, {34, 76}, Gold);
  Thicken(shaft, 2);
  drawn.push_back(std::move(shaft));
  drawn.push_back(Drawn_Polygon({{40, 64}, {44, 67}, {32, 79}}, Gold));
  return picture;
}

FormDrawing Quill_At_Night() {
  FormDrawing picture = Quill_Picture();
  picture.operations.insert(picture.operations.begin(), Drawn_Box({0, 0}, {100, 100}, Ink));
  return picture;
}

FormDrawing Words_Picture() {
  FormDrawing picture = Square(100);
  auto& drawn = picture.operations;
  drawn.push_back(Drawn_Box({18, 6}, {82, 94}, White));
  DrawingOperation edge = Drawn_Box({18, 6}, {82, 94}, Ink);
  edge.is_filled = false;
  Thicken(edge, 1);
  drawn.push_back(std::move(edge));
  for (int line = 0; line < 5; ++line) {
    const double top = 18 + 15.0 * line;
    drawn.push_back(Drawn_Box({26, top}, {line % 2 == 0 ? 46.0 : 40.0, top + 6}, Gold));
    drawn.push_back(Drawn_Box({52, top}, {line % 2 == 0 ? 68.0 : 74.0, top + 6}, Sky));
  }
  return picture;
}

FormDrawing Curves_Picture() {
  FormDrawing picture = Square(100);
  auto& drawn = picture.operations;
  constexpr double Heights[] = {22, 48, 74, 58, 34, 16};
  for (int bar = 0; bar < 6; ++bar) {
    const double left = 8 + 14.5 * bar;
    drawn.push_back(Drawn_Box({left, 92 - Heights[bar]}, {left + 9, 92}, Sky));
  }
  DrawingOperation curve = Drawn_Lines(
      {{4, 78}, {12, 64}, {27, 36}, {41, 8}, {56, 24}, {70, 50}, {85, 70}, {96, 76}}, Ink);
  Thicken(curve, 1.5);
  drawn.push_back(std::move(curve));
  return picture;
}

FormDrawing Steps_Picture() {
  FormDrawing picture = Square(100);
  auto& drawn = picture.operations;
  for (int step = 0; step < 4; ++step) {
    const double left = 8 + 21.0 * step;
    drawn.push_back(Drawn_Box({left, 74 - 17.0 * step}, {left + 18, 94}, step == 3 ? Gold : Sky));
  }
  drawn.push_back(Drawn_Polygon({{80, 2}, {91, 16}, {69, 16}}, White));
  return picture;
}

FormDrawing Globe_Picture() {
  FormDrawing picture = Square(100);
  auto& drawn = picture.operations;
  drawn.push_back(Drawn_Circle({50, 50}, 42, Leaf));
  drawn.push_back(Ring({50, 50}, 42, White));
  DrawingOperation waist = Drawn_Line({8, 50}, {92, 50}, White);
  Thicken(waist, 1.5);
  drawn.push_back(std::move(waist));
  for (const double bulge : {-22.0, 0.0, 22.0}) {
    std::vector<DrawingPoint> points;
    for (int step = 0; step <= 24; ++step) {
      const double angle = Pi * step / 24;
      points.push_back({50 + bulge * std::sin(angle), 50 - 42 * std::cos(angle)});
    }
    DrawingOperation meridian = Drawn_Lines(std::move(points), White);
    Thicken(meridian, 1.5);
    drawn.push_back(std::move(meridian));
  }
  return picture;
}

// Bands that grow lighter downwards, and two waves across.
FormDrawing Night_With_Waves() {
  constexpr int Bands = 12;
  FormDrawing ground{{0, 0, 100, Bands}, {}};
  auto& drawn = ground.operations;
  for (int band = 0; band < Bands; ++band) {
    const auto lighter = static_cast<FormColour>(band * 4);
    drawn.push_back(Drawn_Box({0, static_cast<double>(band)}, {100, band + 1.0},
                              Ink + (lighter << 16) + (lighter << 8) + lighter / 2));
  }
  drawn.push_back(Wave(0, 100, 6, 3.5, 9, 0x00805030));
  drawn.push_back(Wave(0, 100, 7, 2.5, 6, 0x00906038));
  return ground;
}

}  // namespace quillspeech
