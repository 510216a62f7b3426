// What lies on a surface beside shapes: texts, one thing above another, and picture files.
#include "platform/windows/form_picture.hpp"

#include <limits>

#include "tests/windows/form_drawings.hpp"

namespace quillspeech::tests {
namespace {

FormFont Font_Of(double points) { return {.name = "MS Sans Serif", .points = points}; }

TEST_F(Drawings, A_text_begins_at_its_left_upper_corner) {
  Paint({Drawn_Text({1, 1}, "H", Red, Font_Of(8))});
  const RECT extent = Extent(Red);
  EXPECT_GE(extent.left, 10);
  EXPECT_LE(extent.left, 12);
  EXPECT_GE(extent.top, 10);
  EXPECT_LE(extent.bottom, 26);
}

TEST_F(Drawings, Letters_grow_with_the_dots_per_inch) {
  Paint({Drawn_Text({1, 0}, "H", Red, Font_Of(8))});
  const RECT small = Extent(Red);
  picture.Clear(White);
  Paint({Drawn_Text({1, 0}, "H", Red, Font_Of(8))}, {0, 0, 8, 4}, 144);
  const RECT large = Extent(Red);
  EXPECT_NEAR(windows::Height_Of(large), 1.5 * windows::Height_Of(small), 1.6);
}

TEST_F(Drawings, Later_operations_lie_above_earlier_ones) {
  Paint({Drawn_Box({0, 0}, {2, 2}, Red), Drawn_Box({1, 1}, {3, 3}, Blue)});
  EXPECT_EQ(At(5, 5), Red);
  EXPECT_EQ(At(15, 15), Blue);
}

TEST_F(Drawings, Nothing_lands_outside_of_the_surface) {
  DrawingOperation line = Drawn_Line({-9, 2}, {99, 2}, Red);
  line.line_points = 100;
  Paint({line, Drawn_Box({-5, -5}, {50, 50}, Red), Drawn_Text({7, 3}, "Hundreds", Red),
         Drawn_Circle({8, 4}, 9, Red), Drawn_Polygon({{-9, -9}, {99, -9}, {99, 99}}, Red)});
  Expect_Rectangle(Extent(Red), {0, 0, 80, 40});
}

TEST_F(Drawings, Places_beyond_all_measure_do_no_harm) {
  const double huge = 1e300;
  const double none = std::numeric_limits<double>::quiet_NaN();
  Paint({Drawn_Box({-huge, -huge}, {huge, huge}, Red), Drawn_Line({none, none}, {2, 2}, Blue),
         Drawn_Circle({none, 1}, huge, Blue), Drawn_Box({1, 1}, {2, 2}, Green)});
  EXPECT_EQ(At(15, 15), Green);
  Paint({Drawn_Box({0, 0}, {1, 1}, Blue)}, {1, 1, 1, 1});
}

TEST_F(Drawings, Operations_without_their_points_draw_nothing) {
  std::vector<DrawingOperation> operations(5);
  for (int kind = 0; kind < 5; ++kind) {
    operations[static_cast<std::size_t>(kind)].kind = static_cast<DrawingKind>(kind);
  }
  operations.push_back(Drawn_Polygon({{0, 0}, {8, 4}}, Red));
  operations.push_back(Drawn_Lines({{1, 1}}, Red));
  Paint(operations);
  EXPECT_EQ(picture.Count(White), 100 * 60);
}

TEST_F(Drawings, Leave_the_device_as_it_was) {
  const HDC device = picture.Device();
  const auto held = [&] {
    return std::vector{GetCurrentObject(device, OBJ_PEN), GetCurrentObject(device, OBJ_BRUSH),
                       GetCurrentObject(device, OBJ_FONT)};
  };
  const auto before = held();
  DrawingOperation ring = Drawn_Circle({4, 2}, 1, Red);
  ring.is_filled = false;
  Paint({ring, Drawn_Text({0, 0}, "H", Red), Drawn_Polygon({{0, 0}, {1, 0}, {1, 1}}, Blue)});
  EXPECT_EQ(held(), before);
  EXPECT_EQ(GetBkMode(device), OPAQUE);
  SetPixel(device, 0, 0, Green);
  EXPECT_EQ(picture.At(0, 0), Green);  // the clipping is off
}

TEST_F(Drawings, A_picture_file_is_as_large_as_its_surface) {
  const windows::PictureFile file(Two_Dots());
  ASSERT_TRUE(file.Is_There());
  file.Paint(picture.Device(), {10, 10, 90, 50});
  Expect_Rectangle(Extent(Red), {0, 0, 40, Extent(Blue).bottom});
  Expect_Rectangle(Extent(Blue), {40, 0, 80, Extent(Blue).bottom});
  EXPECT_NEAR(Extent(Blue).bottom, 40, 1);  // files tell their size in rounded hundredths of a mm
}

TEST_F(Drawings, A_picture_file_keeps_its_shape_in_the_middle_of_its_surface) {
  windows::PictureFile(Two_Dots()).Paint(picture.Device(), {10, 10, 50, 50});
  Expect_Rectangle(Extent(Red), {0, 10, 20, 30});
  Expect_Rectangle(Extent(Blue), {20, 10, 40, 30});
}

TEST_F(Drawings, Bytes_that_are_no_picture_paint_nothing) {
  for (const std::string& bytes : {std::string(), std::string("BM"), std::string(500, 'x')}) {
    const windows::PictureFile file(bytes);
    EXPECT_FALSE(file.Is_There());
    file.Paint(picture.Device(), {10, 10, 90, 50});
  }
  EXPECT_EQ(picture.Count(White), 100 * 60);
}

TEST_F(Drawings, Keep_their_shape_in_the_middle_of_a_room) {
  Expect_Rectangle(windows::Place_In_Shape({{0, 0, 10, 10}, {}}, {0, 0, 80, 40}), {20, 0, 60, 40});
  Expect_Rectangle(windows::Place_In_Shape({{2, 9, -2, 1}, {}}, {10, 10, 30, 90}),
                   {10, 30, 30, 70});
}

TEST_F(Drawings, Show_only_when_their_buffer_ends) {
  {
    const windows::PaintBuffer buffer(picture.Device(), {20, 20, 30, 30});
    const RECT box{0, 0, 100, 60};
    FillRect(buffer.Device(), &box, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(picture.Count(RGB(0, 0, 0)), 0);
  }
  EXPECT_EQ(picture.Count(RGB(0, 0, 0)), 100);
  EXPECT_EQ(picture.At(20, 20), RGB(0, 0, 0));
  EXPECT_EQ(picture.At(30, 30), White);
}

}  // namespace
}  // namespace quillspeech::tests
