#include "cli/drawing_svg.hpp"

#include <gtest/gtest.h>

namespace quillspeech::cli {
namespace {

constexpr SvgPlace Place{10, 20, 200, 100};

// One operation on a scale of 100 by 50, twice as large on the picture.
std::string Svg_Of(const DrawingOperation& operation) {
  return Drawing_Svg({{0, 0, 100, 50}, {operation}}, Place);
}

DrawingOperation Outlined(DrawingOperation operation, double points = 0) {
  operation.is_filled = false;
  operation.line_points = points;
  return operation;
}

TEST(DrawingSvg, Lines_are_strokes_of_a_pixel_or_as_thick_as_they_are_told) {
  DrawingOperation lines = Drawn_Lines({{0, 0}, {50, 25}, {100, 0}}, 0x00FF8000);
  EXPECT_EQ(Svg_Of(lines),
            "<polyline fill=\"none\" stroke=\"#0080ff\" stroke-width=\"1\" "
            "stroke-linejoin=\"round\" points=\"10,20 110,70 210,20\"/>\n");
  lines.line_points = 3;
  EXPECT_NE(Svg_Of(lines).find("stroke-width=\"4\""), std::string::npos);
}

TEST(DrawingSvg, Polygons_are_filled_or_outlined) {
  const DrawingOperation polygon = Drawn_Polygon({{0, 0}, {1, 0}, {0, 1}}, 0x000000FF);
  EXPECT_EQ(Svg_Of(polygon), "<polygon fill=\"#ff0000\" points=\"10,20 12,20 10,22\"/>\n");
  EXPECT_TRUE(Svg_Of(Outlined(polygon)).starts_with("<polygon fill=\"none\" stroke=\"#ff0000\""));
}

TEST(DrawingSvg, A_filled_box_shows_however_narrow_it_is) {
  EXPECT_EQ(Svg_Of(Drawn_Box({10, 10}, {10, 20}, 0)),
            "<rect x=\"30\" y=\"40\" width=\"1\" height=\"20\" fill=\"#000000\"/>\n");
}

TEST(DrawingSvg, Boxes_may_be_told_by_any_two_opposite_corners) {
  const std::string box = "<rect x=\"30\" y=\"40\" width=\"40\" height=\"20\" fill=\"#000000\"/>\n";
  EXPECT_EQ(Svg_Of(Drawn_Box({10, 10}, {30, 20}, 0)), box);
  EXPECT_EQ(Svg_Of(Drawn_Box({30, 10}, {10, 20}, 0)), box);
  EXPECT_EQ(Svg_Of(Drawn_Box({30, 20}, {10, 10}, 0)), box);
}

TEST(DrawingSvg, Circles_are_round_with_a_radius_in_units_across) {
  EXPECT_EQ(Svg_Of(Drawn_Circle({50, 25}, 10, 0x0000FF00)),
            "<circle cx=\"110\" cy=\"70\" r=\"20\" fill=\"#00ff00\"/>\n");
  EXPECT_EQ(Drawing_Svg({{100, 0, 0, 1000}, {Drawn_Circle({50, 500}, 10, 0)}}, Place),
            "<circle cx=\"110\" cy=\"70\" r=\"20\" fill=\"#000000\"/>\n");
}

TEST(DrawingSvg, Texts_hang_from_their_left_upper_corner) {
  const FormFont font{.name = "Small Fonts", .points = 7.5, .bold = true};
  EXPECT_EQ(Svg_Of(Drawn_Text({50, 0}, "a<\xE4>", 0, font)),
            "<text x=\"110\" y=\"29\" font-size=\"10\" font-family=\"'Small Fonts', sans-serif\" "
            "font-weight=\"bold\" fill=\"#000000\">a&lt;\xC3\xA4&gt;</text>\n");
}

TEST(DrawingSvg, An_axis_may_run_upwards_or_to_the_left) {
  const FormDrawing drawing{{100, 128, 0, -128}, {Drawn_Lines({{100, 128}, {0, -128}}, 0)}};
  EXPECT_NE(Drawing_Svg(drawing, Place).find("\"10,20 210,120\""), std::string::npos);
}

TEST(DrawingSvg, Later_operations_stand_behind_earlier_ones) {
  const std::string svg = Drawing_Svg(
      {{0, 0, 1, 1}, {Drawn_Circle({0, 0}, 1, 0), Drawn_Box({0, 0}, {1, 1}, 0)}}, Place);
  EXPECT_LT(svg.find("<circle"), svg.find("<rect"));
}

TEST(DrawingSvg, Numbers_have_two_digits_behind_the_point_or_less) {
  const std::pair<double, const char*> cases[] = {{0, "0"},        {-0.001, "0"}, {1.5, "1.5"},
                                                  {2.346, "2.35"}, {-3, "-3"},    {100, "100"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(Svg_Number(value), text);
}

}  // namespace
}  // namespace quillspeech::cli
