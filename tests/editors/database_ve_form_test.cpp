#include "editors/database_ve_form.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/editors/engine_editor_fixture.hpp"
#include "tests/editors/form_layout.hpp"

namespace quillspeech::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(DatabaseVEForm, Has_its_menus_in_order) {
  const auto form = Make_DatabaseVE_Form();
  EXPECT_EQ(Captions_In(*form, ""),
            (Texts{"Open", "File", "Record", "Query", "&About", "&Coming up",
                   "|:::::::::::::::::::::::::::::::::::|", "Engine Open/Save ", "Code for 02",
                   "Code for 24", "Code for 46", "Code for 69", "Code for 915", "Code for 1523",
                   "Code for 2330", "Code for 3040", "Code for 4045", "Code for 45Abv", "&Help"}));
  EXPECT_EQ(Captions_In(*form, "Enmu"), (Texts{"&File", "-", "&Exit"}));
  EXPECT_EQ(Captions_In(*form, "mnuFile"),
            (Texts{"&View Current Data Entry", "-", "&View All Data Entries"}));
  EXPECT_EQ(Captions_In(*form, "mnuRecord"), (Texts{"&Cut", "-", "&Copy", "-", "&Paste (Add)",
                                                    "&Rename", "&Delete", "&Next", "&Previous"}));
  EXPECT_EQ(Captions_In(*form, "mnuQuery"), Texts{"&Find"});
  EXPECT_EQ(Captions_In(*form, "mnuFind"), (Texts{"By &Number", "By &Name"}));
  EXPECT_EQ(Captions_In(*form, "sd"), Texts{"&About"});
  EXPECT_EQ(Captions_In(*form, "mnjj"), Texts{"&Coming up"});
  EXPECT_EQ(Captions_In(*form, "mnuEF"), (Texts{"Open Engine File", "-", "Save Engine File", "-",
                                                "Filter Category Pass Criteria"}));
}

TEST(DatabaseVEForm, Its_menu_entries_bear_the_names_that_commands_have) {
  const auto form = Make_DatabaseVE_Form();
  for (const auto name :
       {"Enmu",     "Opmu",    "Exitmnu",   "mnuFile",     "VC",        "mnuView",  "mnuRecord",
        "mnuCut",   "mnuCopy", "mnuPaste",  "mnuRename",   "mnuDelete", "mnuNext",  "mnuPrevious",
        "mnuQuery", "mnuFind", "mnuNumber", "mnuFindName", "sd",        "Aboutmnu", "mnjj",
        "mnuCu",    "mnuwall", "mnuEF",     "mnuEFoef",    "mnuEFsef",  "mnuEFCT",  "mnuHelp"}) {
    EXPECT_NE(form->Find_Menu(name), nullptr) << name;
  }
}

TEST(DatabaseVEForm, Has_a_menu_of_numbered_entries_for_each_group) {
  const auto form = Make_DatabaseVE_Form();
  const std::pair<const char*, std::size_t> groups[] = {
      {"mnuC02", 3},   {"mnuC24", 2},   {"mnuC46", 2},    {"mnuC69", 3},   {"mnuC915", 6},
      {"mnuC1523", 8}, {"mnuC2330", 7}, {"mnuC3040", 10}, {"mnuC4045", 5}, {"mnuC45Abv", 15}};
  for (const auto& [menu, count] : groups) {
    Texts expected;
    for (std::size_t k = 1; k <= count; ++k) expected.push_back("Chara" + std::to_string(k));
    EXPECT_EQ(Captions_In(*form, menu), expected) << menu;
  }
  for (const std::string& entry : Entries_In_Order()) {
    EXPECT_NE(form->Find_Menu(entry), nullptr) << entry;
  }
  EXPECT_EQ(Entries_In_Order().size(), 61U);
}

TEST(DatabaseVEForm, Its_controls_have_these_kinds_captions_and_tips) {
  const auto form = Make_DatabaseVE_Form();
  const ExpectedControl controls[] = {
      {"Command1", FormControlKind::Button, "SAY Files", "Hit this to get  *.SAY"},
      {"Command2", FormControlKind::Button, "Clear", ""},
      {"Picture1", FormControlKind::Picture, "", ""},
      {"Shape1", FormControlKind::Image, "", ""},
      {"PreHit", FormControlKind::Button, "< Previous", "Displays data for next record"},
      {"NextHit", FormControlKind::Button, "Next >", "Displays data for next record"},
      {"Text1", FormControlKind::TextBox, "", "Displays the file entry"},
      {"Label4", FormControlKind::Label, "Vyanjana :", ""},
      {"Label1", FormControlKind::Label, "Engine Category for this record:", ""},
      {"Label3", FormControlKind::Label, "", ""},
      {"Command3", FormControlKind::Button, "Engine Files", "Hit this to get  *.EGN files"},
      {"Command4", FormControlKind::Button, "Display Default Engine",
       "If you have made menu changes then..."},
      {"Command5", FormControlKind::Button, "Filter's EC pass value",
       "Input the filter pass value"},
  };
  for (const ExpectedControl& control : controls) Expect_Control(*form, control);
  for (const auto label : {"Label2", "Label5"}) EXPECT_NE(form->Find(label), nullptr);
}

TEST(DatabaseVEForm, Each_half_has_its_frame) {
  const auto form = Make_DatabaseVE_Form();
  const auto frame_of = [&](const char* name) { return (*form)[(*form)[name].parent].text; };
  for (const auto name : {"Command1", "Command2", "PreHit", "NextHit", "Text1", "Picture1"}) {
    EXPECT_EQ(frame_of(name), "Vocabulary") << name;
  }
  for (const auto name : {"Command3", "Command4", "Command5"}) {
    EXPECT_EQ(frame_of(name), "Engine") << name;
  }
}

TEST(DatabaseVEForm, The_key_of_the_groups_tells_the_categories_of_each) {
  const auto form = Make_DatabaseVE_Form();
  Texts texts;
  for (const DrawingOperation& drawn : (*form)["Shape1"].drawing.operations) {
    if (drawn.kind == DrawingKind::Text) texts.push_back(drawn.text);
  }
  EXPECT_EQ(texts,
            (Texts{"02",     "0 to 2",   "24",       "3 to 4",   "46",       "5 to 6",  "69",
                   "7 to 9", "915",      "10 to 15", "1523",     "16 to 23", "2330",    "24 to 30",
                   "3040",   "31 to 40", "4045",     "41 to 45", "45Abv",    "46 to 60"}));
}

TEST(DatabaseVEForm, The_moves_wait_for_a_vocabulary_file) {
  const auto form = Make_DatabaseVE_Form();
  for (const FormControl& control : form->Controls()) {
    const bool waits = control.name == "PreHit" || control.name == "NextHit";
    EXPECT_EQ(control.enabled, !waits) << control.name;
  }
}

TEST(DatabaseVEForm, The_list_has_its_caption) {
  const auto form = Make_DataDisplayVE_Form();
  EXPECT_EQ(form->Name(), "DataDisplayVE");
  EXPECT_EQ(form->Caption(), "Quillspeech Vocabulary Engine  Editor :  Database Display");
  EXPECT_EQ((*form)["Combo1"].kind, FormControlKind::ComboBox);
}

TEST(DatabaseVEForm, No_name_is_given_twice) {
  for (const auto& form : {Make_DatabaseVE_Form(), Make_DataDisplayVE_Form()}) {
    Expect_No_Name_Twice(*form);
  }
}

TEST(DatabaseVEForm, Every_control_lies_inside_its_parent_and_apart_from_its_neighbours) {
  for (const auto& form : {Make_DatabaseVE_Form(), Make_DataDisplayVE_Form()}) {
    Expect_Controls_In_Their_Places(*form);
  }
}

TEST(DatabaseVEForm, Fits_a_small_screen) {
  const auto form = Make_DatabaseVE_Form();
  EXPECT_LE(Twips_To_Pixels(form->Size().width, 96), 760);
  EXPECT_LE(Twips_To_Pixels(form->Size().height, 96), 460);  // the menu bar takes three lines
}

}  // namespace
}  // namespace quillspeech::tests
