#include "platform/headless/form_view.hpp"

#include <gtest/gtest.h>

#include "tests/platform/form_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct HeadlessForms : FormTest {
  headless::FormViews views;
  Form other{"Form2", "Another", {1000, 1000}};
};

TEST_F(HeadlessForms, A_form_is_loaded_by_its_first_showing) {
  views.Show(*form, Modality::None);
  views.Hide(*form);
  views.Show(*form, Modality::None);
  EXPECT_EQ(heard, Heard{"Form_Load"});
  EXPECT_EQ(views.shown.size(), 2U);
}

TEST_F(HeadlessForms, What_is_shown_last_lies_in_front) {
  views.Show(*form, Modality::None);
  views.Show(other, Modality::None);
  EXPECT_EQ(views.On_Show(), (std::vector<Form*>{form.get(), &other}));
  views.Show(*form, Modality::None);
  EXPECT_EQ(views.On_Show(), (std::vector<Form*>{&other, form.get()}));
  views.Hide(*form);
  EXPECT_EQ(views.On_Show(), std::vector<Form*>{&other});
  EXPECT_TRUE(form->Is_Loaded());
}

TEST_F(HeadlessForms, A_modal_show_returns_when_an_action_closes_the_form) {
  views.actions = {[](Form& shown) { shown.Click("Command1"); }, [](Form& shown) { shown.Close(); },
                   [this](Form&) { heard.emplace_back("too late"); }};
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(heard, (Heard{"Form_Load", "Command1_Click", "Form_Unload"}));
  EXPECT_EQ(views.shown.at(0), (headless::FormViews::Shown{"Form1", Modality::Modal}));
  EXPECT_TRUE(views.On_Show().empty());
  EXPECT_EQ(views.actions.size(), 1U);
}

TEST_F(HeadlessForms, A_modal_form_that_nobody_closes_ends_with_the_script) {
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(heard, (Heard{"Form_Load", "Form_Unload"}));
}

TEST_F(HeadlessForms, A_modal_show_lets_things_happen_until_the_form_is_hidden) {
  int waits = 0;
  views.Wait = [&] {
    EXPECT_EQ(views.Modality_Of(*form), Modality::Modal);
    if (++waits == 3) views.Hide(*form);
    return true;
  };
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(waits, 3);
  EXPECT_TRUE(form->Is_Loaded());
}

TEST_F(HeadlessForms, A_modal_form_may_be_destroyed) {
  views.actions = {[this](Form&) { form.reset(); }};
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(heard, Heard{"Form_Load"});
  EXPECT_TRUE(views.On_Show().empty());
}

TEST_F(HeadlessForms, A_form_that_its_Load_unloads_is_not_shown) {
  form->On(Form::Itself, FormEvent::Load, [this] { form->Unload(); });
  views.Show(*form, Modality::Modal);
  EXPECT_TRUE(views.shown.empty());
  EXPECT_EQ(views.Window_Of(*form), 0);
}

TEST_F(HeadlessForms, A_child_lies_in_its_parent_and_shows_when_told) {
  views.Make_Child(*form, 77, {1, 2, 30, 40}, ChildMode::Inert);
  EXPECT_EQ(views.Parent_Of(*form), 77);
  EXPECT_EQ(views.Place_Of(*form), (ChildPlace{1, 2, 30, 40}));
  EXPECT_EQ(views.Mode_Of(*form), ChildMode::Inert);
  EXPECT_FALSE(views.Is_Shown(*form));
  EXPECT_NE(views.Window_Of(*form), 0);
  views.Show(*form, Modality::None);
  views.Move_Child(*form, {5, 6, 30, 40});
  views.Set_Child_Mode(*form, ChildMode::Live);
  views.Repaint(*form);
  EXPECT_TRUE(views.Is_Shown(*form));
  EXPECT_EQ(views.Place_Of(*form).left, 5);
  EXPECT_EQ(views.Mode_Of(*form), ChildMode::Live);
  EXPECT_EQ(views.Repaints_Of(*form), 1);
  headless::FormViews::Unload(*form);
  EXPECT_EQ(views.Window_Of(*form), 0);
}

TEST(HeadlessFormViews, May_go_before_their_forms) {
  Form form("Form1", "", {1, 1});
  {
    headless::FormViews views;
    views.Show(form, Modality::None);
  }
  EXPECT_EQ(form.View(), nullptr);
  form.Unload();
  EXPECT_FALSE(form.Is_Loaded());
}

}  // namespace
}  // namespace quillspeech::tests
