#include "platform/form.hpp"

#include <gtest/gtest.h>

#include "tests/platform/form_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

using FormActions = FormTest;

TEST_F(FormActions, A_click_calls_the_handler_of_that_control) {
  EXPECT_TRUE(form->Click("Command1"));
  EXPECT_TRUE(form->Click("Label1"));
  EXPECT_TRUE(form->Click("Frame1"));
  EXPECT_TRUE(form->Click_Form());
  EXPECT_EQ(heard, (Heard{"Command1_Click", "Label1_Click", "Frame1_Click", "Form_Click"}));
}

TEST_F(FormActions, A_control_that_is_disabled_or_hidden_takes_no_action) {
  form->Set_Enabled("Command1", false);
  form->Set_Visible("Text1", false);
  form->Set_Enabled("Combo1", false);
  EXPECT_FALSE(form->Click("Command1"));
  EXPECT_FALSE(form->Type("Text1", "second"));
  EXPECT_FALSE(form->Select("Combo1", 1));
  EXPECT_FALSE(form->Press_Key("Text1", 'x'));
  EXPECT_FALSE(form->Press_Mnemonic('s'));
  EXPECT_EQ((*form)["Text1"].text, "first");
  EXPECT_EQ(heard, Heard{});
}

TEST_F(FormActions, A_frame_that_is_disabled_or_hidden_takes_what_it_holds_with_it) {
  form->Set_Enabled("Frame1", false);
  EXPECT_FALSE(form->Click("Command1"));
  form->Set_Enabled("Frame1", true);
  EXPECT_TRUE(form->Click("Command1"));
  form->Set_Visible("Frame1", false);
  EXPECT_FALSE(form->Click("Command1"));
}

TEST_F(FormActions, A_form_that_is_disabled_takes_no_action) {
  form->Load();
  form->Set_Enabled(false);
  EXPECT_FALSE(form->Click("Command1"));
  EXPECT_FALSE(form->Click_Form());
  EXPECT_FALSE(form->Press_Key('x'));
  EXPECT_FALSE(form->Close());
  EXPECT_TRUE(form->Is_Loaded());
}

TEST_F(FormActions, Typing_changes_the_text_and_then_calls_Change) {
  form->On("Text1", FormEvent::Change, [this] { heard.push_back((*form)["Text1"].text); });
  EXPECT_TRUE(form->Type("Text1", "second"));
  EXPECT_EQ(heard, Heard{"second"});
}

TEST_F(FormActions, Typing_what_stands_there_changes_nothing) {
  EXPECT_TRUE(form->Type("Text1", "first"));
  EXPECT_EQ(heard, Heard{});
}

TEST_F(FormActions, Nobody_types_into_a_read_only_box_or_a_label) {
  form->Set_Read_Only("Text1", true);
  EXPECT_FALSE(form->Type("Text1", "second"));
  EXPECT_FALSE(form->Type("Label1", "second"));
  EXPECT_EQ((*form)["Text1"].text, "first");
}

TEST_F(FormActions, A_handler_of_Change_may_put_another_text_there) {
  form->On("Text1", FormEvent::Change, [this] { form->Set_Text("Text1", "100"); });
  form->Type("Text1", "300");
  EXPECT_EQ((*form)["Text1"].text, "100");
}

TEST_F(FormActions, A_program_that_sets_a_text_calls_no_handler) {
  form->Set_Text("Text1", "second");
  form->Set_Index("Combo1", 2);
  EXPECT_EQ((*form)["Text1"].text, "second");
  EXPECT_EQ((*form)["Combo1"].text, "three");
  EXPECT_EQ(heard, Heard{});
}

TEST_F(FormActions, Choosing_an_item_shows_it_and_calls_Click) {
  EXPECT_TRUE(form->Select("Combo1", 1));
  EXPECT_EQ((*form)["Combo1"].text, "two");
  EXPECT_EQ((*form)["Combo1"].index, 1);
  EXPECT_EQ(heard, Heard{"Combo1_Click"});
}

TEST_F(FormActions, What_is_typed_into_a_combo_box_is_no_chosen_item) {
  form->Select("Combo1", 1);
  form->Type("Combo1", "two and a half");
  EXPECT_EQ((*form)["Combo1"].index, -1);
  EXPECT_EQ((*form)["Combo1"].text, "two and a half");
  EXPECT_EQ(heard, (Heard{"Combo1_Click", "Combo1_Change"}));
}

TEST_F(FormActions, There_is_no_choosing_beyond_the_list) {
  EXPECT_FALSE(form->Select("Combo1", 3));
  EXPECT_FALSE(form->Select("Combo1", -1));
  EXPECT_EQ(Failure_Of([this] { form->Set_Index("Combo1", 3); }), 5);
  EXPECT_EQ((*form)["Combo1"].index, -1);
}

TEST_F(FormActions, Clearing_a_list_empties_its_edit_part) {
  form->Select("Combo1", 0);
  form->Clear_Items("Combo1");
  EXPECT_EQ((*form)["Combo1"].text, "");
  EXPECT_EQ((*form)["Combo1"].index, -1);
  EXPECT_TRUE((*form)["Combo1"].items.empty());
}

TEST_F(FormActions, A_name_that_is_not_there_is_failure_5) {
  EXPECT_EQ(Failure_Of([this] { form->Click("Command9"); }), 5);
  EXPECT_EQ(Failure_Of([this] { form->Set_Text("Text9", ""); }), 5);
  EXPECT_EQ(form->Find("Text9"), nullptr);
}

TEST_F(FormActions, A_failure_of_a_handler_goes_out_to_whoever_acted) {
  form->On("Command1", FormEvent::Click, [] { Fail(Failure::Overflow); });
  EXPECT_EQ(Failure_Of([this] { form->Click("Command1"); }), 6);
}

using FormKeys = FormTest;

TEST_F(FormKeys, Enter_clicks_the_default_button_and_Escape_the_cancel_button) {
  form->Set_Default_Button("Command1");
  form->Set_Cancel_Button("Command2");
  EXPECT_TRUE(form->Press_Key("Text1", Key_Enter));
  EXPECT_TRUE(form->Press_Key("Text1", Key_Escape));
  EXPECT_EQ(heard, (Heard{"Command1_Click", "Command2_Click"}));
}

TEST_F(FormKeys, Enter_clicks_the_button_that_has_the_focus_before_the_default_button) {
  form->Set_Default_Button("Command1");
  EXPECT_TRUE(form->Press_Key("Command2", Key_Enter));
  EXPECT_EQ(heard, Heard{"Command2_Click"});
}

TEST_F(FormKeys, Enter_belongs_to_a_box_of_many_lines) {
  FormControl box = Named("Text2", FormControlKind::TextBox);
  box.multi_line = true;
  form->Add(box);
  form->Set_Default_Button("Command1");
  EXPECT_FALSE(form->Press_Key("Text2", Key_Enter));
  EXPECT_EQ(heard, Heard{});
}

TEST_F(FormKeys, Without_a_default_button_Enter_goes_to_the_control) {
  Note_Keys("Combo1");
  EXPECT_TRUE(form->Press_Key("Combo1", Key_Enter));
  EXPECT_FALSE(form->Press_Key("Text1", Key_Enter));
  EXPECT_EQ(heard, Heard{"Combo1_KeyPress 13"});
}

TEST_F(FormKeys, The_form_sees_each_key_before_its_controls) {
  Note_Keys("Form");
  Note_Keys("Text1");
  EXPECT_TRUE(form->Press_Key("Text1", 'x'));
  EXPECT_TRUE(form->Press_Key("Command1", 'y'));
  EXPECT_EQ(heard, (Heard{"Form_KeyPress 120", "Text1_KeyPress 120", "Form_KeyPress 121"}));
}

TEST_F(FormKeys, A_key_without_a_control_goes_to_the_one_that_has_the_focus) {
  Note_Keys("Text1");
  EXPECT_FALSE(form->Press_Key('x'));
  form->Set_Focus("Text1");
  EXPECT_TRUE(form->Press_Key('x'));
  EXPECT_EQ(heard, Heard{"Text1_KeyPress 120"});
}

TEST_F(FormKeys, A_key_that_unloads_the_form_reaches_nothing_else) {
  form->On_Key_Press("Form", [this](unsigned char) { form->Unload(); });
  Note_Keys("Text1");
  form->Set_Default_Button("Command1");
  form->Load();
  EXPECT_TRUE(form->Press_Key("Text1", Key_Enter));
  EXPECT_EQ(heard, (Heard{"Form_Load", "Form_Unload"}));
}

TEST_F(FormKeys, A_mnemonic_clicks_a_button_in_either_case) {
  EXPECT_TRUE(form->Press_Mnemonic('s'));
  EXPECT_TRUE(form->Press_Mnemonic('S'));
  EXPECT_FALSE(form->Press_Mnemonic('c'));
  EXPECT_EQ(heard, (Heard{"Command1_Click", "Command1_Click"}));
}

TEST_F(FormKeys, A_labels_mnemonic_hands_the_focus_to_the_next_control) {
  EXPECT_TRUE(form->Press_Mnemonic('n'));
  EXPECT_EQ(form->Focused(), "Text1");
  EXPECT_EQ(heard, Heard{});
}

TEST_F(FormKeys, Labels_and_frames_cannot_have_the_focus) {
  EXPECT_FALSE(form->Move_Focus("Label1"));
  EXPECT_FALSE(form->Move_Focus("Frame1"));
  EXPECT_TRUE(form->Move_Focus("Combo1"));
  EXPECT_EQ(form->Focused(), "Combo1");
  EXPECT_EQ(Failure_Of([this] { form->Set_Focus("Label1"); }), 5);
}

TEST(FormMnemonic, Is_the_letter_behind_a_single_mark) {
  EXPECT_EQ(Mnemonic_Of("&Help"), 'h');
  EXPECT_EQ(Mnemonic_Of("By &Pattern"), 'p');
  EXPECT_EQ(Mnemonic_Of("Cut && &Paste"), 'p');
  EXPECT_EQ(Mnemonic_Of("Cut && Paste"), std::nullopt);
  EXPECT_EQ(Mnemonic_Of("Trailing &"), std::nullopt);
  EXPECT_EQ(Mnemonic_Of(""), std::nullopt);
}

TEST(FormPixels, Are_the_nearest_to_the_twips) {
  struct Case {
    int twips, dpi, pixels;
  };
  for (const auto& [twips, dpi, pixels] :
       {Case{3336, 96, 222}, Case{1884, 96, 126}, Case{3336, 144, 334}, Case{1884, 144, 188},
        Case{0, 96, 0}, Case{7, 96, 0}, Case{8, 96, 1}, Case{-8, 96, -1}, Case{1440, 120, 120}}) {
    EXPECT_EQ(Twips_To_Pixels(twips, dpi), pixels) << twips << " at " << dpi;
  }
}

using FormLife = FormTest;

TEST_F(FormLife, Load_and_Unload_are_heard_once_each_time) {
  form->Load();
  form->Load();
  form->Unload();
  form->Unload();
  form->Load();
  EXPECT_EQ(heard, (Heard{"Form_Load", "Form_Unload", "Form_Load"}));
}

TEST_F(FormLife, Its_cross_unloads_a_form_that_is_loaded) {
  EXPECT_FALSE(form->Close());
  form->Load();
  EXPECT_TRUE(form->Close());
  EXPECT_FALSE(form->Is_Loaded());
}

TEST_F(FormLife, A_handler_may_destroy_the_form) {
  form->On("Command1", FormEvent::Click, [this] {
    form.reset();
    heard.emplace_back("gone");
  });
  EXPECT_TRUE(form->Click("Command1"));
  EXPECT_EQ(heard, Heard{"gone"});
}

TEST_F(FormLife, A_key_a_choice_and_the_unloading_may_destroy_the_form_too) {
  const auto with = [this](FormEvent event, std::string_view name) {
    form = std::make_unique<Form>("Form1", "", FormSize{1, 1});
    form->Add(Named("Text1", FormControlKind::TextBox));
    form->Add(Named("Combo1", FormControlKind::ComboBox));
    form->Add_Item("Combo1", "one");
    form->Add(Named("Command1", FormControlKind::Button));
    form->On(name, event, [this] { form.reset(); });
  };
  with(FormEvent::Change, "Text1");
  EXPECT_TRUE(form->Type("Text1", "second"));
  with(FormEvent::Click, "Combo1");
  EXPECT_TRUE(form->Select("Combo1", 0));
  with(FormEvent::Unload, Form::Itself);
  form->Load();
  form->Unload();
  EXPECT_EQ(form, nullptr);
  with(FormEvent::Click, "Command1");
  form->On_Key_Press(Form::Itself, [this](unsigned char) { form.reset(); });
  EXPECT_TRUE(form->Press_Key("Command1", Key_Enter));
  EXPECT_EQ(form, nullptr);
}

TEST_F(FormLife, A_handler_may_take_its_own_place) {
  form->On("Command1", FormEvent::Click, [this] {
    heard.emplace_back("first");
    form->On("Command1", FormEvent::Click, [this] { heard.emplace_back("second"); });
  });
  form->Click("Command1");
  form->Click("Command1");
  EXPECT_EQ(heard, (Heard{"first", "second"}));
}

// What a view hears.
struct NotingView final : FormView {
  void Control_Changed(const FormControl& control, FormChange change) override {
    told.emplace_back(control.name, change);
  }
  void Menu_Changed(const FormMenu& menu, FormChange change) override {
    told.emplace_back(menu.name, change);
  }
  void Form_Changed(FormChange change) override { told.emplace_back("Form", change); }
  void Form_Gone() override { ++gone; }

  std::vector<std::pair<std::string, FormChange>> told;
  int gone = 0;
};

struct FormViewing : FormTest {
  FormViewing() { form->Attach(&view); }
  ~FormViewing() override {
    if (form) form->Attach(nullptr);
  }
  NotingView view;
  using Told = std::vector<std::pair<std::string, FormChange>>;
};

TEST_F(FormViewing, The_view_is_told_of_each_change) {
  form->Set_Text("Text1", "second");
  form->Set_Tip("Text1", "tip");
  form->Set_Font("Text1", {"Arial", 9, true});
  form->Set_Text_Colour("Text1", 0xFF00U);
  form->Set_Back_Colour("Text1", 0U);
  form->Set_Enabled("Text1", false);
  form->Set_Visible("Text1", false);
  form->Set_Place("Text1", {1, 2, 3, 4});
  form->Set_Read_Only("Text1", true);
  form->Add_Item("Combo1", "four");
  form->Set_Index("Combo1", 0);
  form->Set_Focus("Combo1");
  form->Set_Caption("Another");
  form->Set_Size({1, 2});
  form->Set_Enabled(false);
  EXPECT_EQ(view.told, (Told{{"Text1", FormChange::Text},
                             {"Text1", FormChange::Tip},
                             {"Text1", FormChange::Font},
                             {"Text1", FormChange::Colours},
                             {"Text1", FormChange::Colours},
                             {"Text1", FormChange::Enabled},
                             {"Text1", FormChange::Visible},
                             {"Text1", FormChange::Place},
                             {"Text1", FormChange::ReadOnly},
                             {"Combo1", FormChange::Items},
                             {"Combo1", FormChange::Index},
                             {"Combo1", FormChange::Focus},
                             {"Form", FormChange::Text},
                             {"Form", FormChange::Place},
                             {"Form", FormChange::Enabled}}));
}

TEST_F(FormViewing, The_view_is_told_of_menus_and_drawings) {
  form->Add_Menu({"mnuOpen", "&Open", ""});
  form->Set_Menu_Caption("mnuOpen", "Open");
  form->Set_Menu_Enabled("mnuOpen", false);
  form->Set_Menu_Visible("mnuOpen", false);
  form->Draw("Command1", Drawn_Line({0, 0}, {1, 1}, 0U));
  form->Set_Scale("Command1", {0, 0, 2, 2});
  form->Clear_Drawing("Command1");
  form->Set_Ground({{0, 0, 2, 2}, {}});
  form->Change_Ground([](FormDrawing& ground) { ground.scale.right = 3; });
  form->Set_Picture("Command1", "GIF89a");
  EXPECT_EQ(view.told, (Told{{"mnuOpen", FormChange::Text},
                             {"mnuOpen", FormChange::Enabled},
                             {"mnuOpen", FormChange::Visible},
                             {"Command1", FormChange::Drawing},
                             {"Command1", FormChange::Drawing},
                             {"Command1", FormChange::Drawing},
                             {"Form", FormChange::Drawing},
                             {"Form", FormChange::Drawing},
                             {"Command1", FormChange::Drawing}}));
  form->Set_Menu_Visible("mnuOpen", false);
  form->Clear_Drawing("Command1");
  form->Set_Scale("Command1", {0, 0, 2, 2});
  form->Set_Ground({{0, 0, 3, 2}, {}});
  form->Set_Picture("Command1", "GIF89a");
  EXPECT_EQ(view.told.size(), 9U);
}

TEST_F(FormViewing, The_view_hears_nothing_of_a_value_that_stands_already) {
  form->Set_Text("Text1", "first");
  form->Set_Enabled("Text1", true);
  form->Set_Caption("A form");
  form->Set_Enabled(true);
  form->Set_Index("Combo1", -1);
  EXPECT_EQ(view.told, Told{});
}

TEST_F(FormViewing, The_view_ends_with_the_unloading_after_the_handler) {
  form->On(Form::Itself, FormEvent::Unload, [this] { heard.push_back(std::to_string(view.gone)); });
  form->Load();
  form->Unload();
  EXPECT_EQ(heard, (Heard{"Form_Load", "0"}));
  EXPECT_EQ(view.gone, 1);
  EXPECT_EQ(form->View(), nullptr);
}

TEST_F(FormViewing, The_view_ends_with_an_unloading_that_fails) {
  form->On(Form::Itself, FormEvent::Unload, [] { Fail(Failure::Overflow); });
  form->Load();
  EXPECT_EQ(Failure_Of([this] { form->Unload(); }), 6);
  EXPECT_EQ(view.gone, 1);
  EXPECT_EQ(form->View(), nullptr);
}

TEST_F(FormViewing, The_view_stays_with_a_form_that_a_failing_Unload_has_loaded_again) {
  form->On(Form::Itself, FormEvent::Unload, [this] {
    form->Load();
    Fail(Failure::Overflow);
  });
  form->Load();
  EXPECT_EQ(Failure_Of([this] { form->Unload(); }), 6);
  EXPECT_EQ(view.gone, 0);
  EXPECT_EQ(form->View(), &view);
}

TEST_F(FormViewing, A_failing_Unload_may_destroy_the_form) {
  form->On(Form::Itself, FormEvent::Unload, [this] {
    form.reset();
    Fail(Failure::Overflow);
  });
  form->Load();
  EXPECT_EQ(Failure_Of([this] { form->Unload(); }), 6);
  EXPECT_EQ(view.gone, 1);
}

TEST_F(FormViewing, The_view_ends_with_the_form) {
  form.reset();
  EXPECT_EQ(view.gone, 1);
}

}  // namespace
}  // namespace quillspeech::tests
