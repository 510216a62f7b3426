#include "presentation/status_pictures.hpp"

#include <cmath>
#include <utility>
#include <vector>

namespace quillspeech {
namespace {

constexpr FormColour Ink = 0x00502814;
constexpr FormColour Night = 0x00703C20;
constexpr FormColour Sky = 0x00E8B070;
constexpr FormColour Mist = 0x00F8E8D8;
constexpr FormColour Gold = 0x0030B0F0;

constexpr double Pi = 3.14159265358979;
constexpr double Right = 0;  // angles run from there, and down first
constexpr double Left = Pi;

DrawingPoint On_Circle(DrawingPoint centre, double radius, double angle) {
  return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

std::vector<DrawingPoint> Arc(DrawingPoint centre, double radius, double from, double to) {
  constexpr int Steps = 24;
  std::vector<DrawingPoint> points;
  for (int step = 0; step <= Steps; ++step) {
    points.push_back(On_Circle(centre, radius, from + (to - from) * step / Steps));
  }
  return points;
}

DrawingOperation Stroke(std::vector<DrawingPoint> through, FormColour colour, double points) {
  DrawingOperation stroke = Drawn_Lines(std::move(through), colour);
  stroke.line_points = points;
  return stroke;
}

// A round badge, on which both pictures lie.
FormDrawing Badge() {
  return {{0, 0, 100, 100},
          {Drawn_Circle({50, 50}, 49, Sky), Drawn_Circle({50, 50}, 46, Ink),
           Drawn_Circle({50, 50}, 43, Night)}};
}

// A bar that is round at its upper and lower end.
DrawingOperation Capsule(double middle, double top, double bottom, double radius,
                         FormColour colour) {
  std::vector<DrawingPoint> corners = Arc({middle, top + radius}, radius, Left, Left + Pi);
  const auto lower = Arc({middle, bottom - radius}, radius, Right, Right + Pi);
  corners.insert(corners.end(), lower.begin(), lower.end());
  return Drawn_Polygon(std::move(corners), colour);
}

void Add_Microphone(FormDrawing& picture) {
  auto& drawn = picture.operations;
  drawn.push_back(Capsule(50, 20, 60, 11, Mist));
  for (const double slot : {30.0, 36.0, 42.0}) {
    drawn.push_back(Stroke({{44, slot}, {56, slot}}, Night, 1.5));
  }
  drawn.push_back(Stroke(Arc({50, 48}, 18, Right, Right + Pi), Mist, 3));
  drawn.push_back(Stroke({{50, 66}, {50, 78}}, Mist, 3));
  drawn.push_back(Stroke({{38, 79}, {62, 79}}, Mist, 4));
}

// A toothed wheel with a hole; it is turned by `angle`.
void Add_Wheel(FormDrawing& picture, DrawingPoint centre, double radius, int teeth, double angle,
               FormColour colour) {
  constexpr double Outline[][2] = {{-0.26, 0.80}, {-0.15, 1.0}, {0.15, 1.0}, {0.26, 0.80}};
  std::vector<DrawingPoint> corners;
  for (int tooth = 0; tooth < teeth; ++tooth) {
    for (const auto& [turn, reach] : Outline) {
      corners.push_back(On_Circle(centre, radius * reach, angle + 2 * Pi * (tooth + turn) / teeth));
    }
  }
  picture.operations.push_back(Drawn_Polygon(std::move(corners), colour));
  picture.operations.push_back(Drawn_Circle(centre, radius * 0.36, Night));
}

}  // namespace

FormDrawing Listening_Picture() {
  FormDrawing picture = Badge();
  Add_Microphone(picture);
  constexpr double Half_Width = 0.52;
  for (const double side : {Right, Left}) {
    for (const double radius : {25.0, 33.0}) {
      picture.operations.push_back(
          Stroke(Arc({50, 36}, radius, side - Half_Width, side + Half_Width), Gold, 2.5));
    }
  }
  return picture;
}

FormDrawing Busy_Picture() {
  FormDrawing picture = Badge();
  Add_Wheel(picture, {39, 41}, 25, 10, Pi / 20, Gold);
  Add_Wheel(picture, {66.6, 68.6}, 16, 8, Pi / 8, Mist);
  return picture;
}

}  // namespace quillspeech
