// Drawings on real windows, dot by dot, and the double clicks of a person.
#include "platform/windows/form_picture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/windows/form_drawing.hpp"
#include "tests/windows/form_pictures.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

constexpr FormColour Red = 0x0000FF;
constexpr FormColour Green = 0x00FF00;
constexpr FormColour Blue = 0xFF0000;
constexpr FormColour White = 0xFFFFFF;
constexpr FormColour Grey = 0xA0A0A0;

FormFont Font_Of(double points) { return {.name = "MS Sans Serif", .points = points}; }

// A surface of 80 by 40 dots in memory, on a scale of 0 to 8 and of 0 to 4: ten dots to the unit.
struct Drawings : testing::Test {
  Drawings() { picture.Clear(White); }

  void Paint(std::vector<DrawingOperation> operations, DrawingScale scale = {0, 0, 8, 4},
             int dots_per_inch = 96) {
    windows::FormFonts fonts(windows::Scale_At(dots_per_inch));
    windows::Paint_Drawing({scale, std::move(operations)}, picture.Device(), {10, 10, 90, 50},
                           fonts);
  }
  // What a dot of the surface is.
  COLORREF At(int x, int y) const { return picture.At(10 + x, 10 + y); }
  // The smallest rectangle of the surface around all dots of that colour.
  RECT Extent(COLORREF colour) const {
    RECT extent{1000, 1000, -1000, -1000};
    for (int y = -10; y < 50; ++y) {
      for (int x = -10; x < 90; ++x) {
        if (At(x, y) != colour) continue;
        extent = {std::min<LONG>(extent.left, x), std::min<LONG>(extent.top, y),
                  std::max<LONG>(extent.right, x + 1), std::max<LONG>(extent.bottom, y + 1)};
      }
    }
    return extent;
  }
  Picture picture{100, 60};
};

void Expect_Rectangle(const RECT& found, const RECT& wanted) {
  EXPECT_EQ(found.left, wanted.left);
  EXPECT_EQ(found.top, wanted.top);
  EXPECT_EQ(found.right, wanted.right);
  EXPECT_EQ(found.bottom, wanted.bottom);
}

TEST_F(Drawings, A_box_lies_between_its_corners) {
  Paint({Drawn_Box({3, 2}, {1, 1}, Red)});
  Expect_Rectangle(Extent(Red), {10, 10, 30, 20});
  EXPECT_EQ(picture.Count(Red), 20 * 10);
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

// A picture file of two dots, red and blue.
std::string Two_Dots() {
  const std::uint8_t dots[] = {0x00, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00};
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof file + sizeof(BITMAPINFOHEADER);
  file.bfSize = file.bfOffBits + sizeof dots;
  BITMAPINFOHEADER format{};
  format.biSize = sizeof format;
  format.biWidth = 2;
  format.biHeight = 1;
  format.biPlanes = 1;
  format.biBitCount = 24;
  std::string bytes(file.bfSize, '\0');
  std::memcpy(bytes.data(), &file, sizeof file);
  std::memcpy(bytes.data() + sizeof file, &format, sizeof format);
  std::memcpy(bytes.data() + file.bfOffBits, dots, sizeof dots);
  return bytes;
}

TEST_F(Drawings, A_picture_file_is_stretched_over_its_surface) {
  const windows::PictureFile file(Two_Dots());
  ASSERT_TRUE(file.Is_There());
  file.Paint(picture.Device(), {10, 10, 90, 50});
  Expect_Rectangle(Extent(Red), {0, 0, 40, 40});
  Expect_Rectangle(Extent(Blue), {40, 0, 80, 40});
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

// A form of 200 by 140 dots with surfaces, as it stands on the screen.
struct DrawnForm : FormScreen {
  DrawnForm() {
    form = std::make_unique<Form>("Form1", "Drawn", FormSize{3000, 2100});
    form->Set_Back_Colour(Grey);
    Add("Picture1", FormControlKind::Picture, {150, 150, 900, 600});  // from 10, 10: 60 by 40 dots
    Add("Image1", FormControlKind::Image, {1500, 150, 900, 600});     // from 100, 10
    Add("Command1", FormControlKind::Button, {150, 900, 1200, 900}, "Now");  // from 10, 60
    Add("Label1", FormControlKind::Label, {1500, 900, 1200, 300}, "Said");   // from 100, 60
    Add("List1", FormControlKind::ListBox, {1500, 1275, 1200, 750});         // from 100, 85
    for (const char* const item : {"one", "two"}) form->Add_Item("List1", item);
    for (const FormControl& control : form->Controls()) {
      Note(control.name, FormEvent::Click, "Click");
    }
  }
  void Add(const char* name, FormControlKind kind, const FormPlace& place,
           const std::string& text = {}) {
    FormControl control = Named(name, kind, text);
    control.place = place;
    form->Add(control);
  }
  void Show_At(int dots_per_inch) {
    own = std::make_unique<windows::FormViews>(loop, dots_per_inch);
    dots = dots_per_inch;
    own->Show(*form, Modality::None);
    Run();
    shown = reinterpret_cast<HWND>(own->Window_Of(*form));
  }
  // What stands on the screen at that dot of the form, counted at 96 dots per inch.
  COLORREF At(int x, int y) {
    Run();
    const HDC device = GetDC(shown);
    const COLORREF colour = GetPixel(device, MulDiv(x, dots, 96), MulDiv(y, dots, 96));
    ReleaseDC(shown, device);
    return colour;
  }
  // The control at that dot of the form, at 96 dots per inch.
  HWND Below(int x, int y) const { return ChildWindowFromPoint(shown, {x, y}); }

  static void Press_Twice(HWND window) {
    Press_Mouse(window);
    PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  }

  std::unique_ptr<windows::FormViews> own;
  HWND shown = nullptr;
  int dots = 96;
};

struct DrawnForms : DrawnForm, testing::WithParamInterface<int> {};

TEST_P(DrawnForms, Show_a_picture_within_its_border) {
  form->Set_Drawing("Picture1", {{0, 0, 2, 1}, {Drawn_Box({0, 0}, {1, 1}, Red)}});
  form->Set_Back_Colour("Picture1", White);
  Show_At(GetParam());
  EXPECT_NE(At(10, 30), Red);  // the border
  EXPECT_EQ(At(13, 30), Red);
  EXPECT_EQ(At(38, 30), Red);
  EXPECT_EQ(At(42, 30), White);
  EXPECT_EQ(At(66, 30), White);
  EXPECT_EQ(At(72, 30), Grey);
}

TEST_P(DrawnForms, Show_an_image_from_edge_to_edge_and_the_form_through_it) {
  form->Set_Drawing("Image1", {{0, 0, 2, 1}, {Drawn_Box({0, 0}, {1, 1}, Red)}});
  Show_At(GetParam());
  EXPECT_EQ(At(100, 10), Red);
  EXPECT_EQ(At(129, 49), Red);
  EXPECT_EQ(At(131, 30), Grey);
  EXPECT_EQ(At(159, 30), Grey);
}

TEST_P(DrawnForms, Stretch_their_ground_below_the_controls) {
  form->Set_Ground(
      {{0, 0, 2, 2}, {Drawn_Box({0, 0}, {1, 2}, Red), Drawn_Box({1, 0}, {2, 2}, Blue)}});
  Show_At(GetParam());
  EXPECT_EQ(At(5, 5), Red);
  EXPECT_EQ(At(5, 135), Red);
  EXPECT_EQ(At(98, 70), Red);
  EXPECT_EQ(At(195, 135), Blue);
  EXPECT_EQ(At(130, 30), Blue);  // through the image
  EXPECT_EQ(At(175, 63), Blue);  // and the label
  EXPECT_EQ(At(40, 30), Grey);   // but not through the picture
}

TEST_P(DrawnForms, Draw_above_the_caption_of_a_button) {
  form->Set_Drawing("Command1", {{0, 0, 1, 1}, {Drawn_Box({0, 0}, {1, 1}, Red)}});
  Show_At(GetParam());
  EXPECT_EQ(At(50, 75), Red);
  EXPECT_NE(At(20, 75), Red);  // it keeps its shape
  EXPECT_NE(At(50, 116), Red);
}

INSTANTIATE_TEST_SUITE_P(At, DrawnForms, testing::Values(96, 144));

struct ShownForm : DrawnForm {
  void SetUp() override { Show_At(96); }
};

TEST_F(ShownForm, A_drawing_that_grows_shrinks_or_changes_its_scale_is_repainted) {
  EXPECT_EQ(At(110, 20), Grey);
  form->Draw("Image1", Drawn_Box({0, 0}, {0.5, 1}, Red));
  EXPECT_EQ(At(110, 20), Red);
  EXPECT_EQ(At(150, 20), Grey);
  form->Set_Scale("Image1", {0, 0, 0.5, 1});
  EXPECT_EQ(At(150, 20), Red);
  form->Clear_Drawing("Image1");
  EXPECT_EQ(At(110, 20), Grey);
  form->Set_Drawing("Command1", {{}, {Drawn_Box({0, 0}, {1, 1}, Blue)}});
  EXPECT_EQ(At(50, 75), Blue);
}

TEST_F(ShownForm, A_ground_that_changes_shows_through_everything_clear) {
  form->Set_Ground({{}, {Drawn_Box({0, 0}, {1, 1}, Red)}});
  for (const auto& [x, y] : {std::pair{5, 5}, {130, 30}, {175, 63}}) EXPECT_EQ(At(x, y), Red) << x;
  form->Set_Ground({});
  for (const auto& [x, y] : {std::pair{5, 5}, {130, 30}, {175, 63}}) EXPECT_EQ(At(x, y), Grey) << x;
}

TEST_F(ShownForm, A_new_size_stretches_the_ground_and_a_new_place_the_drawing) {
  form->Set_Ground({{0, 0, 2, 1}, {Drawn_Box({0, 0}, {1, 1}, Red)}});
  form->Draw("Image1", Drawn_Box({0, 0}, {0.5, 1}, Blue));
  EXPECT_EQ(At(140, 30), Grey);
  form->Set_Size({6000, 2100});
  EXPECT_EQ(At(140, 30), Red);
  EXPECT_EQ(At(190, 30), Red);
  form->Set_Place("Image1", {1800, 150, 2400, 600});  // from 120, 10: 160 by 40
  EXPECT_EQ(At(110, 30), Red);
  EXPECT_EQ(At(190, 30), Blue);
  EXPECT_EQ(At(205, 30), Grey);
}

TEST_F(ShownForm, A_picture_file_shows_in_place_of_the_drawing) {
  form->Draw("Image1", Drawn_Box({0, 0}, {1, 1}, Green));
  form->Set_Picture("Image1", Two_Dots());
  EXPECT_EQ(At(110, 20), Red);
  EXPECT_EQ(At(150, 20), Blue);
  form->Set_Picture("Image1", "");
  EXPECT_EQ(At(110, 20), Green);
  form->Set_Picture("Picture1", Two_Dots());
  EXPECT_EQ(At(20, 20), Red);
  EXPECT_EQ(At(60, 20), Blue);
  form->Set_Picture("Picture1", "");
  EXPECT_EQ(At(20, 20), Grey);
}

TEST_F(ShownForm, A_file_that_cannot_be_read_leaves_what_is_on_view) {
  form->Draw("Image1", Drawn_Box({0, 0}, {1, 1}, Green));
  form->Set_Picture("Image1", "none");
  EXPECT_EQ(At(110, 20), Green);
  form->Set_Picture("Image1", Two_Dots());
  form->Set_Picture("Image1", Two_Dots().substr(0, 20));
  EXPECT_EQ(At(110, 20), Red);
}

TEST_F(ShownForm, Look_the_same_drawn_without_windows) {
  form->Set_Ground({{}, {Drawn_Box({0, 0}, {0.5, 1}, Red), Drawn_Circle({0.7, 0.5}, 0.2, Blue)}});
  form->Draw("Picture1", Drawn_Line({0, 0}, {1, 1}, Blue));
  form->Draw("Image1", Drawn_Circle({0.5, 0.5}, 0.3, Green));
  form->Set_Picture("Picture1", Two_Dots());
  Run();
  Picture live(200, 140);
  Take_Picture(shown, live);
  Picture drawn(200, 140);
  windows::Draw_Form(*form, drawn.Device(), {0, 0, 200, 140});
  for (int y = 0; y < 140; ++y) {
    for (int x = 0; x < 200; ++x) {
      const bool has_focus = x < 90 && y >= 60 && y < 120;  // the button
      const bool is_list = x >= 100 && y >= 85 && y < 135;  // whose items are not drawn
      if (has_focus || is_list) continue;
      ASSERT_EQ(live.At(x, y), drawn.At(x, y)) << x << ", " << y;
    }
  }
}

TEST_F(ShownForm, Hundreds_of_paintings_leave_no_drawing_object_behind) {
  form->Set_Picture("Picture1", Two_Dots());
  form->Set_Ground({{}, {Drawn_Box({0, 0}, {1, 1}, Red), Drawn_Text({0, 0}, "Ground", Blue)}});
  form->Draw("Image1", Drawn_Lines({{0, 0}, {1, 0}, {1, 1}}, Green));
  form->Draw("Command1", Drawn_Polygon({{0, 0}, {1, 0}, {1, 1}}, Green));
  const auto next_object = [] {
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const int index = LOWORD(reinterpret_cast<std::uintptr_t>(brush));
    DeleteObject(brush);
    return index;
  };
  for (int i = 0; i < 20; ++i) own->Repaint(*form);
  const int objects = next_object();
  for (int i = 0; i < 300; ++i) own->Repaint(*form);
  EXPECT_LE(next_object(), objects + 60);
}

TEST_F(ShownForm, A_click_on_a_picture_an_image_or_a_label_is_heard) {
  Press_Mouse(Below(30, 30));
  Press_Mouse(Below(130, 30));
  Press_Mouse(Below(110, 65));
  Run();
  EXPECT_EQ(heard, (Heard{"Picture1_Click", "Image1_Click", "Label1_Click"}));
}

TEST_F(ShownForm, The_second_of_two_quick_clicks_is_a_double_click_where_somebody_waits_for_it) {
  for (const auto& [name, x, y] : {std::tuple{"Picture1", 30, 30},
                                   {"Image1", 130, 30},
                                   {"Label1", 110, 65},
                                   {"List1", 110, 90}}) {
    const std::string control = name;
    heard.clear();
    Press_Twice(Below(x, y));
    Run();
    EXPECT_EQ(heard, (Heard{control + "_Click", control + "_Click"}));
    Note(control, FormEvent::DoubleClick, "DblClick");
    heard.clear();
    Press_Twice(Below(x, y));
    Run();
    EXPECT_EQ(heard, (Heard{control + "_Click", control + "_DblClick"}));
  }
  EXPECT_EQ((*form)["List1"].index, 0);
}

TEST_F(ShownForm, Two_quick_clicks_on_a_button_stay_two) {
  Note("Command1", FormEvent::DoubleClick, "DblClick");
  Press_Twice(Below(50, 90));
  Run();
  EXPECT_EQ(heard, (Heard{"Command1_Click", "Command1_Click"}));
}

TEST_F(ShownForm, A_double_click_may_destroy_its_form) {
  form->On("List1", FormEvent::DoubleClick, [this] { form.reset(); });
  Press_Twice(Below(110, 90));
  Run();
  EXPECT_EQ(form, nullptr);
  EXPECT_FALSE(IsWindow(shown));
}

TEST_F(ShownForm, A_picture_that_is_disabled_hears_nothing) {
  form->Set_Enabled("Picture1", false);
  Press_Twice(Below(30, 30));
  Run();
  EXPECT_EQ(heard, Heard{});
}

}  // namespace
}  // namespace quillspeech::tests
