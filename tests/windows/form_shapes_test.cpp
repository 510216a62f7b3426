// Shapes on a surface: boxes, polygons, lines and circles.
#include "tests/windows/form_drawings.hpp"

namespace quillspeech::tests {
namespace {

TEST_F(Drawings, A_box_lies_between_its_corners) {
  Paint({Drawn_Box({3, 2}, {1, 1}, Red)});
  Expect_Rectangle(Extent(Red), {10, 10, 30, 20});
  EXPECT_EQ(picture.Count(Red), 20 * 10);
}

TEST_F(Drawings, A_filled_box_shows_however_narrow_it_is) {
  Paint({Drawn_Box({3, 1}, {3, 2}, Red)});
  Expect_Rectangle(Extent(Red), {30, 10, 31, 20});
}

TEST_F(Drawings, Boxes_that_share_an_edge_meet_and_do_not_overlap) {
  Paint({Drawn_Box({0, 0}, {1.03, 4}, Red), Drawn_Box({1.03, 0}, {8, 4}, Blue)});
  EXPECT_EQ(picture.Count(Red), 10 * 40);
  EXPECT_EQ(picture.Count(Blue), 70 * 40);
}

TEST_F(Drawings, The_outline_of_a_box_leaves_its_inside_alone) {
  DrawingOperation box = Drawn_Box({1, 1}, {3, 2}, Red);
  box.is_filled = false;
  Paint({box});
  Expect_Rectangle(Extent(Red), {10, 10, 30, 20});
  EXPECT_EQ(picture.Count(Red), 2 * 20 + 2 * 8);
  EXPECT_EQ(At(20, 15), White);
}

TEST_F(Drawings, A_polygon_of_the_corners_of_a_box_is_that_box) {
  Paint({Drawn_Polygon({{1, 1}, {3, 1}, {3, 2}, {1, 2}}, Red)});
  Expect_Rectangle(Extent(Red), {10, 10, 30, 20});
  EXPECT_EQ(picture.Count(Red), 20 * 10);
}

TEST_F(Drawings, The_outline_of_a_polygon_is_closed) {
  DrawingOperation triangle = Drawn_Polygon({{1, 1}, {3, 1}, {3, 3}}, Red);
  triangle.is_filled = false;
  Paint({triangle});
  EXPECT_EQ(At(20, 10), Red);
  EXPECT_EQ(At(30, 20), Red);
  EXPECT_EQ(At(20, 20), Red);  // the long side, which no two neighbouring points name
  EXPECT_EQ(At(25, 15), White);
}

TEST_F(Drawings, Lines_go_through_their_points_to_the_last) {
  Paint({Drawn_Lines({{1, 1}, {3, 1}, {3, 3}}, Red)});
  Expect_Rectangle(Extent(Red), {10, 10, 31, 31});
  EXPECT_EQ(picture.Count(Red), 21 + 20);
  EXPECT_EQ(At(30, 30), Red);
}

TEST_F(Drawings, A_line_whose_ends_are_one_point_is_a_dot) {
  Paint({Drawn_Line({2, 2}, {2, 2}, Red)});
  Expect_Rectangle(Extent(Red), {20, 20, 21, 21});
}

TEST_F(Drawings, The_thickness_of_a_line_grows_with_the_dots_per_inch) {
  for (const auto& [dots_per_inch, thickness] : {std::pair{96, 4}, {144, 6}}) {
    picture.Clear(White);
    DrawingOperation line = Drawn_Line({1, 2}, {7, 2}, Red);
    line.line_points = 3;
    Paint({line}, {0, 0, 8, 4}, dots_per_inch);
    int count = 0;
    for (int y = 0; y < 40; ++y) count += At(40, y) == Red ? 1 : 0;
    EXPECT_EQ(count, thickness) << dots_per_inch;
  }
}

TEST_F(Drawings, A_circle_is_round_whatever_the_scale) {
  Paint({Drawn_Circle({4, 50}, 1, Red)}, {0, 0, 8, 100});
  Expect_Rectangle(Extent(Red), {30, 10, 50, 30});
  EXPECT_NEAR(picture.Count(Red), 314, 20);
  EXPECT_EQ(At(31, 11), White);
}

TEST_F(Drawings, The_outline_of_a_circle_leaves_its_inside_alone) {
  DrawingOperation ring = Drawn_Circle({4, 2}, 1, Red);
  ring.is_filled = false;
  Paint({ring});
  Expect_Rectangle(Extent(Red), {30, 10, 50, 30});
  EXPECT_EQ(At(40, 20), White);
}

TEST_F(Drawings, A_thick_ring_lies_on_both_sides_of_its_circle) {
  DrawingOperation ring = Drawn_Circle({4, 2}, 1, Red);
  ring.is_filled = false;
  ring.line_points = 3;  // four dots
  Paint({ring});
  EXPECT_EQ(At(28, 20), Red);
  EXPECT_EQ(At(31, 20), Red);
  EXPECT_EQ(At(26, 20), White);
  EXPECT_EQ(At(34, 20), White);
  EXPECT_NEAR(picture.Count(Red), 240, 30);
}

TEST_F(Drawings, A_circle_too_small_to_see_is_a_dot) {
  Paint({Drawn_Circle({4, 2}, 0.001, Red)});
  Expect_Rectangle(Extent(Red), {40, 20, 41, 21});
}

TEST_F(Drawings, An_axis_may_run_the_other_way) {
  Paint({Drawn_Box({0, 0}, {1, 1}, Red), Drawn_Circle({7, 3}, 1, Blue)}, {8, 4, 0, 0});
  Expect_Rectangle(Extent(Red), {70, 30, 80, 40});
  Expect_Rectangle(Extent(Blue), {0, 0, 20, 20});
}

}  // namespace
}  // namespace quillspeech::tests
