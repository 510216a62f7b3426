// Fields under a person's hands: carets, copying and fonts.
#include <gtest/gtest.h>

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormFields : FormScreen {
  static DWORD Caret_Of(HWND field) {
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(first, last);
    return last;
  }
};

TEST_F(FormFields, Behind_a_text_that_the_form_corrects_the_caret_stands_at_the_end) {
  form->On("Text1", FormEvent::Change, [this] { form->Set_Text("Text1", "corrected"); });
  Show();
  const HWND field = Control((*form)["Text1"].text);
  ASSERT_NE(field, nullptr);
  Type(field, "x");
  Run();
  EXPECT_EQ(Text_Of(field), "corrected");
  EXPECT_EQ(Caret_Of(field), 9U);
}

TEST_F(FormFields, A_text_that_the_form_takes_as_it_is_leaves_the_caret_where_it_is) {
  form->Set_Text("Text1", "abcd");
  Show();
  const HWND field = Control("abcd");
  SendMessageW(field, EM_SETSEL, 1, 1);
  Type(field, "x");
  Run();
  EXPECT_EQ(Text_Of(field), "axbcd");
  EXPECT_EQ(Caret_Of(field), 2U);
}

TEST_F(FormFields, Copying_from_a_field_that_is_only_read_is_no_key_for_the_form) {
  std::string keys;
  form->On_Key_Press(Form::Itself, [&](unsigned char key) { keys += static_cast<char>(key); });
  form->Set_Text("Text1", "to read");
  form->Set_Read_Only("Text1", true);
  Show();
  const HWND field = Control("to read");
  const WPARAM control_c = 3;
  PostMessageW(field, WM_CHAR, control_c, 1);
  Type(field, "q");
  Run();
  EXPECT_EQ(keys, "q");
}

TEST_F(FormFields, A_text_to_read_that_comes_first_is_not_selected) {
  for (const bool is_to_read : {false, true}) {
    Form two("Form2", "Two", {3000, 2000});
    FormControl box;
    box.name = "Text1";
    box.kind = FormControlKind::TextBox;
    box.text = "to look at";
    box.place = {100, 100, 2000, 300};
    box.read_only = is_to_read;
    two.Add(box);
    views.Show(two, Modality::None);
    Run();
    const LRESULT selection = SendMessageW(GetFocus(), EM_GETSEL, 0, 0);
    EXPECT_EQ(Text_Of(GetFocus()), "to look at");
    EXPECT_EQ(HIWORD(selection) - LOWORD(selection), is_to_read ? 0 : 10);
  }
}

TEST_F(FormFields, A_minimised_window_that_is_shown_again_is_restored) {
  Show();
  ShowWindow(Window(), SW_MINIMIZE);
  ASSERT_TRUE(IsIconic(Window()));
  views.Show(*form, Modality::None);
  EXPECT_FALSE(IsIconic(Window()));
}

TEST_F(FormFields, A_blank_font_name_is_that_of_the_default_font) {
  windows::FormFonts fonts(windows::Scale_At(96));
  const HFONT own = fonts.Font_For({});
  for (const char* const blank : {"", "    "}) {
    EXPECT_EQ(fonts.Font_For({.name = blank}), own);
    EXPECT_NE(fonts.Font_For({.name = blank, .points = 20}), own);
  }
}

}  // namespace
}  // namespace quillspeech::tests
