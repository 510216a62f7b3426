#include "editors/language_editor_form.hpp"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/editors/form_layout.hpp"

namespace quillspeech::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(DatabaseForm, Has_its_menus_in_order) {
  const auto form = Make_Database_Form();
  EXPECT_EQ(Captions_In(*form, ""), (Texts{"Open", "File", "Record", "Query", "Engine Memory",
                                           "Current Memory", "Record Summary", "Help"}));
  EXPECT_EQ(Captions_In(*form, "Enmu"), (Texts{"&File", "-", "&Quit Editor"}));
  EXPECT_EQ(Captions_In(*form, "mnuFile"),
            (Texts{"Legal Copyright", "-", "Short File Description", "-",
                   "View Current Data Entry in File", "-", "View Title of All  Entries in File",
                   "-", "Reload this File"}));
  EXPECT_EQ(Captions_In(*form, "mnuRecord"),
            (Texts{"Cut", "Copy", "Paste", "&Delete Record", "-", "Next", "-", "Previous"}));
  EXPECT_EQ(Captions_In(*form, "mnuQuery"), Texts{"Find in this File"});
  EXPECT_EQ(Captions_In(*form, "mnuFind"),
            (Texts{"By &Record Number", "By &Word Title", "By &Pattern"}));
  EXPECT_EQ(Captions_In(*form, "mnuEM"), Texts{"Display &Engine Memory"});
  EXPECT_EQ(
      Captions_In(*form, "mnuCM"),
      (Texts{"Display current &Memory", "Time length divison no. 1 in &Memory ",
             "Time length divison no. 2 in &Memory ", "Time length divison no. 3 in &Memory ",
             "Time length divison no. 4 in &Memory ", "Time length divison no. 5 in &Memory "}));
  EXPECT_EQ(Captions_In(*form, "mnuWF"), Texts{"This Record"});
  EXPECT_EQ(Captions_In(*form, "mnuHel"), Texts{"Help"});
}

TEST(DatabaseForm, Its_menu_entries_bear_the_names_that_commands_have) {
  const auto form = Make_Database_Form();
  for (const auto name :
       {"Enmu",      "Opmu",        "Exitmnu",        "mnuFile",     "mnuLCrht", "mnuSFD",
        "VC",        "mnuView",     "mnuReload",      "mnuRecord",   "mnuSCut",  "mnuSCopy",
        "mnuSpaste", "mnuDelete",   "mnuNext",        "mnuPrevious", "mnuQuery", "mnuFind",
        "mnuNumber", "mnuFindName", "mnuPatternFind", "mnuEM",       "mnuDEM",   "mnuCM",
        "mnuDCM",    "mnuD1M",      "mnuD2M",         "mnuD3M",      "mnuD4M",   "mnuD5M",
        "mnuWF",     "mnuTWord",    "mnuHel",         "mnuHelp"}) {
    EXPECT_NE(form->Find_Menu(name), nullptr) << name;
  }
}

TEST(DatabaseForm, Its_controls_have_these_kinds_captions_and_tips) {
  const auto form = Make_Database_Form();
  const ExpectedControl controls[] = {
      {"TFNam", FormControlKind::TextBox, "", ""},
      {"Text1", FormControlKind::TextBox, "", ""},
      {"TextDiv", FormControlKind::TextBox, "",
       "No of divisons that Quillspeech splits your current uttered word"},
      {"Text2", FormControlKind::TextBox, "",
       "Byteslength of the above divison of your uttered word"},
      {"Label5", FormControlKind::Label, " 1", ""},
      {"Label7", FormControlKind::Label, "", ""},
      {"Label11", FormControlKind::Label, "", ""},
      {"Label12", FormControlKind::Label, "", ""},
      {"Command9", FormControlKind::Button, " Prepare New", "Prepare to input a new record"},
      {"Command8", FormControlKind::Button, "Restart",
       "Press to exit Quillspeech Language Editor  and to restart action"},
      {"Command1", FormControlKind::Button, "Find Files", "Open a *.lang file"},
      {"Command7", FormControlKind::Button, "< Previous", "Press  to scan decremental records"},
      {"NextHit", FormControlKind::Button, "Next >", "Press  to scan incremental records"},
      {"Command3", FormControlKind::Button, "Memory", ""},
      {"Command10", FormControlKind::Button, "Memory", ""},
      {"Combo1", FormControlKind::ComboBox, "", "Click to see fonts you have on your machine"},
      {"Combo5", FormControlKind::ComboBox, "", ""},
      {"Combo10", FormControlKind::ComboBox, "", ""},
      {"Combo2", FormControlKind::ComboBox, "", ""},
      {"Combo3", FormControlKind::ComboBox, "", ""},
      {"Combo7", FormControlKind::ComboBox, "", ""},
      {"Combo6", FormControlKind::ComboBox, "", ""},
      {"Combo9", FormControlKind::ComboBox, "", ""},
      {"Combo8", FormControlKind::ComboBox, "", "Click the entry you feel important"},
  };
  for (const ExpectedControl& control : controls) Expect_Control(*form, control);
}

TEST(DatabaseForm, Holds_each_list_in_a_frame_with_its_buttons) {
  const auto form = Make_Database_Form();
  const std::map<std::string, Texts> groups = {
      {"Word('s) in your Specific Language Font :",
       {"Combo5", "Combo10", "Combo1", "Command14", "Command13", "Command12", "Label11"}},
      {"Pattern Matching String with Engine Produced String :",
       {"Combo2", "Combo3", "Command16", "Command5", "Command6", "Command2", "Label7"}},
      {"Special Criterias  / Hookers / Key factors / Differentiators :",
       {"Combo7", "Combo6", "Combo9", "Combo8", "Command15", "Command4", "Command11", "Command17",
        "Label12"}}};
  for (const auto& [caption, names] : groups) {
    for (const std::string& name : names) {
      const FormControl* const frame = form->Find((*form)[name].parent);
      ASSERT_NE(frame, nullptr) << name;
      EXPECT_EQ(frame->text, caption) << name;
    }
  }
}

TEST(DatabaseForm, Says_beside_its_fields_what_they_are) {
  const auto form = Make_Database_Form();
  std::multiset<std::string> captions;
  for (const FormControl& control : form->Controls()) {
    if (control.kind == FormControlKind::Label) captions.insert(control.text);
  }
  for (const auto caption :
       {"Direct Add Record no.", "No.of divisons", "Word Divison Avg. Byteslength",
        "Language Fonts", "Slot No.", "Engine Code", "Filtered Weight"}) {
    EXPECT_EQ(captions.count(caption), 1U) << caption;
  }
  EXPECT_EQ(captions.count("I will rate this entry to  match :"), 2U);
  EXPECT_EQ(captions.count("out of 100%"), 2U);
}

TEST(DatabaseForm, Each_button_says_what_it_does_to_its_list) {
  const auto form = Make_Database_Form();
  const std::map<std::string, Texts> captions = {
      {"Save", {"Command14", "Command16", "Command15"}},
      {"Add", {"Command5", "Command4"}},
      {"Edit", {"Command13", "Command6", "Command11"}},
      {"Delete", {"Command12", "Command2", "Command17"}}};
  for (const auto& [caption, names] : captions) {
    for (const std::string& name : names) EXPECT_EQ((*form)[name].text, caption) << name;
  }
}

TEST(DatabaseForm, The_browser_and_the_summary_have_their_captions) {
  EXPECT_EQ(Make_DataDisplay_Form()->Caption(), "Quillspeech Language  Editor :  Database Display");
  EXPECT_EQ(Make_FeaturesDisplay_Form()->Caption(), "Summary of the Current Record");
  EXPECT_TRUE((*Make_FeaturesDisplay_Form())["Text1"].multi_line);
}

TEST(DatabaseForm, No_name_is_given_twice) {
  for (const auto& form :
       {Make_Database_Form(), Make_DataDisplay_Form(), Make_FeaturesDisplay_Form()}) {
    Expect_No_Name_Twice(*form);
  }
}

TEST(DatabaseForm, Every_control_lies_inside_its_parent_and_apart_from_its_neighbours) {
  for (const auto& form :
       {Make_Database_Form(), Make_DataDisplay_Form(), Make_FeaturesDisplay_Form()}) {
    Expect_Controls_In_Their_Places(*form);
  }
}

TEST(DatabaseForm, Fits_a_small_screen) {
  const auto form = Make_Database_Form();
  EXPECT_LE(Twips_To_Pixels(form->Size().width, 96), 760);
  EXPECT_LE(Twips_To_Pixels(form->Size().height, 96), 500);
}

}  // namespace
}  // namespace quillspeech::tests
