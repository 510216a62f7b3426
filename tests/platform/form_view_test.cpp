#include "platform/headless/form_view.hpp"

#include <gtest/gtest.h>

#include "tests/platform/form_fixture.hpp"
#include "tests/support/failures.hpp"

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

TEST_F(HeadlessForms, A_form_that_is_modal_already_comes_to_the_front_and_is_not_waited_for_twice) {
  views.actions = {[this](Form& shown) {
                     views.Show(other, Modality::None);
                     views.Show(shown, Modality::Modal);
                     EXPECT_EQ(views.On_Show(), (std::vector<Form*>{&other, form.get()}));
                     heard.emplace_back("still open");
                   },
                   [](Form& shown) { shown.Close(); }};
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(heard, (Heard{"Form_Load", "still open", "Form_Unload"}));
}

TEST_F(HeadlessForms, A_failure_while_a_modal_form_shows_hides_it_and_goes_out) {
  views.actions = {[](Form&) { Fail(Failure::Overflow); }};
  EXPECT_EQ(Failure_Of([this] { views.Show(*form, Modality::Modal); }), 6);
  EXPECT_FALSE(views.Is_Shown(*form));
  EXPECT_TRUE(form->Is_Loaded());
}

TEST_F(HeadlessForms, A_form_whose_Unload_fails_leaves_the_screen_all_the_same) {
  form->On(Form::Itself, FormEvent::Unload, [] { Fail(Failure::Overflow); });
  views.Show(*form, Modality::None);
  EXPECT_EQ(Failure_Of([this] { form->Close(); }), 6);
  EXPECT_FALSE(form->Is_Loaded());
  EXPECT_FALSE(views.Is_Shown(*form));
  EXPECT_EQ(views.Window_Of(*form), 0);
}

TEST_F(HeadlessForms, A_modal_show_ends_with_the_failure_of_its_forms_Unload) {
  form->On(Form::Itself, FormEvent::Unload, [] { Fail(Failure::Overflow); });
  views.actions = {[](Form& shown) { shown.Close(); }};
  EXPECT_EQ(Failure_Of([this] { views.Show(*form, Modality::Modal); }), 6);
  EXPECT_TRUE(views.On_Show().empty());
  EXPECT_EQ(views.Window_Of(*form), 0);
}

TEST_F(HeadlessForms, A_modal_form_keeps_people_from_what_lies_behind_it) {
  views.Show(other, Modality::None);
  EXPECT_EQ(views.Blocker_Of(), nullptr);
  views.actions = {[this](Form& shown) {
    EXPECT_EQ(views.Blocker_Of(&other), &shown);
    EXPECT_EQ(views.Blocker_Of(), &shown);
    EXPECT_EQ(views.Blocker_Of(&shown), nullptr);
    Form third("Form3", "", {1, 1});
    views.Show(third, Modality::None);
    EXPECT_EQ(views.Blocker_Of(&third), nullptr);
  }};
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(views.Blocker_Of(&other), nullptr);
}

TEST_F(HeadlessForms, A_modal_show_is_over_once_its_form_has_gone) {
  EXPECT_FALSE(views.Is_Modal_Show_Over());
  views.actions = {[this](Form& shown) {
    EXPECT_FALSE(views.Is_Modal_Show_Over());
    views.Hide(shown);
    EXPECT_TRUE(views.Is_Modal_Show_Over());
  }};
  views.Show(*form, Modality::Modal);
  EXPECT_FALSE(views.Is_Modal_Show_Over());
}

TEST_F(HeadlessForms, What_comes_on_show_and_goes_is_told) {
  Heard told;
  views.At_Showing = [&](const Form& one, bool is_shown, Modality modality) {
    told.push_back(one.Name() + (is_shown ? " shown" : " gone") +
                   (modality == Modality::Modal ? " modal" : ""));
  };
  views.Show(other, Modality::None);
  views.Show(other, Modality::None);
  views.Show(*form, Modality::Modal);
  views.Hide(other);
  views.Hide(other);
  EXPECT_EQ(told, (Heard{"Form2 shown", "Form1 shown modal", "Form1 gone modal", "Form2 gone"}));
  views.Show(*form, Modality::None);
  form.reset();
  EXPECT_EQ(told.back(), "Form1 gone");
}

TEST_F(HeadlessForms, There_is_a_list_of_fonts) {
  views.fonts = {"One", "Two"};
  EXPECT_EQ(views.Font_Names(), Heard({"One", "Two"}));
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
