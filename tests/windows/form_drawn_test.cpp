// Drawings on real windows, dot by dot.
#include "tests/windows/form_drawn.hpp"
#include "tests/windows/drawing_objects.hpp"

namespace quillspeech::tests {
namespace {

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
  form->Set_Picture("Image1", "no picture, but as long as the head of one would be, and longer");
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
  for (int i = 0; i < 20; ++i) own->Repaint(*form);
  const int objects = Drawing_Objects();
  for (int i = 0; i < 300; ++i) own->Repaint(*form);
  EXPECT_LE(Drawing_Objects(), objects + 10);
}

}  // namespace
}  // namespace quillspeech::tests
