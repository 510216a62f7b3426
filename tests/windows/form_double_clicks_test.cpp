// Clicks and double clicks on surfaces, labels and lists.
#include <tuple>

#include "tests/windows/form_drawn.hpp"

namespace quillspeech::tests {
namespace {

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
