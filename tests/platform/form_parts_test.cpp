// Menus, drawing surfaces, double clicks and the numbers of items.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/platform/form_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

struct FormMenus : FormTest {
  FormMenus() {
    form->Add_Menu({"mnuFile", "&File", ""});
    form->Add_Menu({"mnuOpen", "&Open", "mnuFile"});
    form->Add_Menu({"mnuLine", "-", "mnuFile"});
    form->Add_Menu({"mnuFind", "Find", "mnuFile"});
    form->Add_Menu({"mnuWord", "By &Word", "mnuFind"});
    for (const char* const name : {"mnuFile", "mnuOpen", "mnuLine", "mnuFind", "mnuWord"}) {
      Note(name, FormEvent::Click, "Click");
    }
  }
};

TEST_F(FormMenus, An_entry_that_is_chosen_calls_its_handler) {
  EXPECT_TRUE(form->Choose_Menu("mnuOpen"));
  EXPECT_TRUE(form->Choose_Menu("mnuWord"));
  EXPECT_EQ(heard, (Heard{"mnuOpen_Click", "mnuWord_Click"}));
}

TEST_F(FormMenus, Neither_a_line_nor_a_menu_that_holds_others_can_be_chosen) {
  EXPECT_FALSE(form->Choose_Menu("mnuLine"));
  EXPECT_FALSE(form->Choose_Menu("mnuFile"));
  EXPECT_FALSE(form->Choose_Menu("mnuFind"));
  EXPECT_EQ(heard, Heard{});
}

TEST_F(FormMenus, What_is_disabled_or_hidden_takes_what_it_holds_with_it) {
  form->Set_Menu_Enabled("mnuFind", false);
  EXPECT_FALSE(form->Choose_Menu("mnuWord"));
  EXPECT_TRUE(form->Choose_Menu("mnuOpen"));
  form->Set_Menu_Visible("mnuFile", false);
  EXPECT_FALSE(form->Choose_Menu("mnuOpen"));
  form->Set_Menu_Visible("mnuFile", true);
  form->Set_Enabled(false);
  EXPECT_FALSE(form->Choose_Menu("mnuOpen"));
  EXPECT_EQ(heard, Heard{"mnuOpen_Click"});
}

TEST_F(FormMenus, They_keep_their_order_and_change_their_captions) {
  form->Set_Menu_Caption("mnuOpen", "Open another");
  std::vector<std::string> captions;
  for (const FormMenu& menu : form->Menus()) captions.push_back(menu.caption);
  EXPECT_EQ(captions, (Heard{"&File", "Open another", "-", "Find", "By &Word"}));
  EXPECT_TRUE(form->Menu("mnuLine").is_line);
}

TEST_F(FormMenus, A_menu_that_is_not_there_is_failure_5) {
  EXPECT_EQ(Failure_Of([this] { form->Choose_Menu("mnuNone"); }), 5);
  EXPECT_EQ(Failure_Of([this] { form->Set_Menu_Caption("Command1", "x"); }), 5);
  EXPECT_EQ(form->Find_Menu("Command1"), nullptr);
}

using FormDoubleClicks = FormTest;

TEST_F(FormDoubleClicks, The_second_click_has_a_handler_of_its_own) {
  Note("Combo1", FormEvent::DoubleClick, "DblClick");
  form->Select("Combo1", 1);
  EXPECT_TRUE(form->Double_Click("Combo1"));
  form->Set_Enabled("Combo1", false);
  EXPECT_FALSE(form->Double_Click("Combo1"));
  EXPECT_EQ(heard, (Heard{"Combo1_Click", "Combo1_DblClick"}));
}

using FormItems = FormTest;

TEST_F(FormItems, Each_item_has_a_number_of_the_program) {
  form->Clear_Items("Combo1");
  form->Add_Item("Combo1", "seven", 7);
  form->Add_Item("Combo1", "none");
  EXPECT_EQ(form->Item_Data("Combo1", 0), 7);
  EXPECT_EQ(form->Item_Data("Combo1", 1), 0);
  EXPECT_EQ(Failure_Of([this] { form->Item_Data("Combo1", 2); }), 5);
  EXPECT_EQ(Failure_Of([this] { form->Item_Data("Combo1", -1); }), 5);
  form->Clear_Items("Combo1");
  EXPECT_EQ(Failure_Of([this] { form->Item_Data("Combo1", 0); }), 5);
}

struct FormDrawings : FormTest {
  FormDrawings() { form->Add(Named("Picture1", FormControlKind::Picture)); }
  const FormDrawing& Drawn() const { return (*form)["Picture1"].drawing; }
};

TEST_F(FormDrawings, What_is_drawn_stands_there_in_order_until_it_is_cleared) {
  const DrawingScale scale{0, 128, 40, -128};
  form->Set_Scale("Picture1", scale);
  form->Draw("Picture1", Drawn_Box({0, 128}, {10, -128}, 0xFFU));
  form->Draw("Picture1", Drawn_Circle({5, 0}, 2, 0xFF00U));
  form->Draw("Picture1", Drawn_Lines({{0, 0}, {1, 5}, {2, -5}}, 0U));
  form->Draw("Picture1", Drawn_Text({20, 128}, "hello", 0U));
  ASSERT_EQ(Drawn().operations.size(), 4U);
  EXPECT_EQ(Drawn().operations[0].kind, DrawingKind::Box);
  EXPECT_EQ(Drawn().operations[1].radius, 2);
  EXPECT_EQ(Drawn().operations[2].points[1], (DrawingPoint{1, 5}));
  EXPECT_EQ(Drawn().operations[3].text, "hello");
  form->Clear_Drawing("Picture1");
  EXPECT_TRUE(Drawn().operations.empty());
  EXPECT_EQ(Drawn().scale, scale);
}

TEST_F(FormDrawings, A_whole_drawing_can_be_laid_on_a_picture_or_on_the_ground_of_the_form) {
  const FormDrawing drawing{{0, 0, 1, 1}, {Drawn_Line({0, 0}, {1, 1}, 1U)}};
  form->Set_Drawing("Picture1", drawing);
  form->Set_Ground(drawing);
  EXPECT_EQ(Drawn(), drawing);
  EXPECT_EQ(form->Ground(), drawing);
}

TEST_F(FormDrawings, The_ground_can_be_changed_in_its_place) {
  form->Set_Ground({{0, 0, 1, 1}, {Drawn_Line({0, 0}, {1, 1}, 1U)}});
  form->Change_Ground([](FormDrawing& ground) {
    ground.operations.push_back(Drawn_Box({0, 0}, {1, 1}, 2U));
  });
  ASSERT_EQ(form->Ground().operations.size(), 2U);
  EXPECT_EQ(form->Ground().operations[1].kind, DrawingKind::Box);
}

TEST_F(FormDrawings, A_picture_file_stands_beside_the_drawing_until_it_is_taken_away) {
  const FormDrawing drawing{{0, 0, 1, 1}, {Drawn_Line({0, 0}, {1, 1}, 1U)}};
  form->Set_Drawing("Picture1", drawing);
  form->Set_Picture("Picture1", std::string("BM\0\1", 4));
  EXPECT_EQ((*form)["Picture1"].picture, std::string("BM\0\1", 4));
  EXPECT_EQ(Drawn(), drawing);
  form->Set_Picture("Picture1", "");
  EXPECT_EQ((*form)["Picture1"].picture, "");
}

}  // namespace
}  // namespace quillspeech::tests
