// Forms as pictures: what is drawn without windows looks as the windows do.
#include "platform/windows/form_drawing.hpp"

#include <gtest/gtest.h>

#include "core/face_form.hpp"
#include "core/property_pages.hpp"
#include "platform/windows/form_fonts.hpp"
#include "platform/windows/form_text.hpp"
#include "tests/support/test_control.hpp"
#include "tests/windows/form_pictures.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

constexpr COLORREF Odd_Colour = RGB(1, 2, 3);

struct FaceDrawing : testing::Test, ControlTest {
  FaceDrawing() {
    control->UserControl_Show();
    control->UserControl_Paint();
    Show_Face(*form, control->face);
  }
  std::unique_ptr<Form> form = Make_Face_Form(*control);
};

TEST_F(FaceDrawing, Fills_its_rectangle_and_nothing_outside_of_it) {
  Picture picture(300, 200);
  picture.Clear(Odd_Colour);
  windows::Draw_Form(*form, picture.Device(), {40, 30, 262, 156});
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 300; ++x) {
      const bool is_inside = x >= 40 && x < 262 && y >= 30 && y < 156;
      ASSERT_EQ(picture.At(x, y) != Odd_Colour, is_inside) << x << ", " << y;
    }
  }
}

TEST_F(FaceDrawing, Has_the_colours_of_the_boxes) {
  Picture picture(222, 126);
  windows::Draw_Form(*form, picture.Device(), {0, 0, 222, 126});
  EXPECT_GT(picture.Count(RGB(0, 255, 0)), 50);   // the text, which the paint has made green
  EXPECT_GT(picture.Count(RGB(0, 0, 0)), 2'000);  // the ground of the two boxes
}

TEST_F(FaceDrawing, Looks_as_the_windows_do) {
  windows::EventLoop loop;
  windows::FormViews shown(loop, 96);
  HostWindow window;
  shown.Make_Child(*form, window.Handle(), {0, 0, 222, 126}, ChildMode::Live);
  shown.Show(*form, Modality::None);
  shown.Repaint(*form);
  for (int i = 0; i < 20; ++i) loop.Run_Pending_Events();
  Picture live(222, 126);
  Take_Picture(reinterpret_cast<HWND>(shown.Window_Of(*form)), live);
  Picture drawn(222, 126);
  windows::Draw_Form(*form, drawn.Device(), {0, 0, 222, 126});
  int different = 0;
  for (int y = 0; y < 126; ++y) {
    for (int x = 0; x < 222; ++x) different += live.At(x, y) != drawn.At(x, y) ? 1 : 0;
  }
  // Letters of edit fields may stand a point aside.
  EXPECT_LT(different, 222 * 126 / 50);
}

TEST_F(FaceDrawing, A_metafile_holds_it_at_any_size) {
  const HDC recorder = CreateMetaFileW(nullptr);
  ASSERT_NE(recorder, nullptr);
  SetMapMode(recorder, MM_ANISOTROPIC);
  SetWindowOrgEx(recorder, 0, 0, nullptr);
  SetWindowExtEx(recorder, 222, 126, nullptr);
  windows::Draw_Form(*form, recorder, {0, 0, 222, 126});
  const HMETAFILE metafile = CloseMetaFile(recorder);
  ASSERT_NE(metafile, nullptr);
  Picture picture(444, 252);
  picture.Clear(Odd_Colour);
  SetMapMode(picture.Device(), MM_ANISOTROPIC);
  SetViewportExtEx(picture.Device(), 444, 252, nullptr);
  PlayMetaFile(picture.Device(), metafile);
  DeleteMetaFile(metafile);
  EXPECT_EQ(picture.Count(Odd_Colour), 0);
  EXPECT_GT(picture.Count(RGB(0, 255, 0)), 100);
  EXPECT_GT(picture.Count(RGB(0, 0, 0)), 8'000);
}

TEST_F(FaceDrawing, An_enhanced_metafile_holds_it_too) {
  const HDC recorder = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(recorder, nullptr);
  windows::Draw_Form(*form, recorder, {0, 0, 222, 126});
  const HENHMETAFILE metafile = CloseEnhMetaFile(recorder);
  EXPECT_GT(GetEnhMetaFileBits(metafile, 0, nullptr), 1000U);
  DeleteEnhMetaFile(metafile);
}

TEST_F(FaceDrawing, Leaves_the_device_as_it_was) {
  Picture picture(222, 126);
  const HGDIOBJ font = GetCurrentObject(picture.Device(), OBJ_FONT);
  const HGDIOBJ brush = GetCurrentObject(picture.Device(), OBJ_BRUSH);
  SetTextColor(picture.Device(), Odd_Colour);
  windows::Draw_Form(*form, picture.Device(), {0, 0, 222, 126});
  EXPECT_EQ(GetCurrentObject(picture.Device(), OBJ_FONT), font);
  EXPECT_EQ(GetCurrentObject(picture.Device(), OBJ_BRUSH), brush);
  EXPECT_EQ(GetTextColor(picture.Device()), Odd_Colour);
}

TEST_F(FaceDrawing, Draws_nothing_into_nothing) {
  Picture picture(10, 10);
  picture.Clear(Odd_Colour);
  windows::Draw_Form(*form, picture.Device(), {5, 5, 5, 5});
  EXPECT_EQ(picture.Count(Odd_Colour), 100);
}

// Every caption has the room that it needs, at both scales.
struct Captions : testing::TestWithParam<int>, ControlTest {
  void Check(const Form& form) {
    const windows::FormScale scale = windows::Scale_At(GetParam());
    windows::FormFonts fonts(scale);
    for (const FormControl& each : form.Controls()) {
      if (each.kind != FormControlKind::Label && each.kind != FormControlKind::Button) continue;
      const windows::TextMeasure measure(fonts.Font_For(each.font));
      const RECT place = windows::Pixels_On_Form(form, each, scale);
      const int edges = each.kind == FormControlKind::Button ? 6 : 0;
      const int width = windows::Width_Of(place) - edges;
      const std::wstring text = windows::Without_Mnemonic(each.text);
      std::vector<std::wstring> lines{text};
      if (each.kind == FormControlKind::Button) lines = measure.Lines(text, width);
      for (const std::wstring& line : lines) {
        EXPECT_LE(measure.Width(line), width) << form.Name() << '.' << each.name;
      }
      EXPECT_LE(measure.Line_Height() * static_cast<int>(lines.size()),
                windows::Height_Of(place) - edges)
          << form.Name() << '.' << each.name;
    }
  }
};

TEST_P(Captions, Of_the_face_are_not_cut) {
  const auto form = Make_Face_Form(*control);
  Check(*form);
  form->Set_Text("Label1", "Unspecified Languge File to Add|Match");
  Check(*form);
}

TEST_P(Captions, Of_the_property_pages_are_not_cut) {
  for (const PropertyPage& page : Property_Pages()) {
    PageForm form(page, session, [] { return std::intptr_t{0}; });
    Check(form.View());
  }
}

INSTANTIATE_TEST_SUITE_P(At, Captions, testing::Values(96, 120, 144, 192));

struct DrawnText : testing::Test {
  windows::FormFonts fonts{windows::Scale_At(96)};
  windows::TextMeasure measure{fonts.Font_For({})};
};

TEST_F(DrawnText, Breaks_at_blanks_where_it_is_too_long) {
  const int width = measure.Width(L"Start Recognition") + 1;
  EXPECT_EQ(measure.Lines(L"Start Recognition Activity", width),
            (std::vector<std::wstring>{L"Start Recognition", L"Activity"}));
  EXPECT_EQ(measure.Lines(L"Start Recognition Activity", 1000).size(), 1U);
  EXPECT_EQ(measure.Lines(L"Start Recognition Activity", 1).size(), 3U);
  EXPECT_EQ(measure.Lines(L"", 10), std::vector<std::wstring>{L""});
}

TEST_F(DrawnText, Ends_with_dots_where_it_is_cut) {
  const std::wstring text = L"Unspecified";
  const int width = measure.Width(L"Unspe...");
  EXPECT_EQ(measure.With_Dots(text, width), L"Unspe...");
  EXPECT_EQ(measure.With_Dots(text, 1000), text);
  EXPECT_EQ(measure.With_Dots(text, 0), L"...");
}

TEST(DrawnMnemonic, Is_left_out_and_told) {
  EXPECT_EQ(windows::Without_Mnemonic("&Help"), L"Help");
  EXPECT_EQ(windows::Without_Mnemonic("Cut && &Paste"), L"Cut & Paste");
  EXPECT_EQ(windows::Place_Of_Mnemonic("&Help"), 0U);
  EXPECT_EQ(windows::Place_Of_Mnemonic("Cut && &Paste"), 6U);
  EXPECT_EQ(windows::Place_Of_Mnemonic("Help"), windows::No_Letter);
}

}  // namespace
}  // namespace quillspeech::tests
