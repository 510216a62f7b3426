#include "presentation/help_windows.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/test_session.hpp"

namespace quillspeech::tests {
namespace {

// The windows as the session shows them; the editors only note how they were shown.
struct HelpWindowsTest : testing::Test, TestSession {
  HelpWindowsTest() {
    Connect_Help_Windows(session);
    session.operations.Show_Database = [this](Session& shown, bool modal) {
      editors.push_back({"Database", modal});
      file_run_at_showing = shown.flags.File_Run_Active.Raw();
      splash_at_showing = Splash_Shows();
    };
    session.operations.Show_DatabaseVE = [this](Session&, bool modal) {
      editors.push_back({"DatabaseVE", modal});
      splash_at_showing = Splash_Shows();
    };
  }

  bool Splash_Shows() const {
    for (const Form* const form : views.On_Show()) {
      if (form->Name() == "Splash") return true;
    }
    return false;
  }

  // Shows the window and lets a person act; tells whether it showed on afterwards.
  bool Stays_After(const Operations::Procedure& show, const std::function<void(Form&)>& act) {
    bool stays = true;
    views.actions.push_back([&](Form& form) {
      act(form);
      stays = form.Is_Loaded();
    });
    show(session);
    return stays;
  }

  std::string Name_Of(const Operations::Procedure& show, const std::string& control) {
    std::string text;
    Stays_After(show, [&](Form& form) { text = form[control].text; });
    return text;
  }

  Operations& operations = session.operations;
  std::vector<std::pair<std::string, bool>> editors;
  std::int16_t file_run_at_showing = 0;
  bool splash_at_showing = false;
};

using Help = HelpWindowsTest;
using Splash = HelpWindowsTest;
using ComingSplash = HelpWindowsTest;
using Editors = std::vector<std::pair<std::string, bool>>;

void Click(Form& form, const std::string& control) {
  if (control == Form::Itself) {
    form.Click_Form();
  } else {
    form.Click(control);
  }
}

TEST_F(Help, Is_shown_modally) {
  operations.Show_Help(session);
  EXPECT_EQ(views.shown, (std::vector<headless::FormViews::Shown>{{"Help", Modality::Modal}}));
}

TEST_F(Help, Has_its_captions_and_a_hint_to_the_electronic_help) {
  EXPECT_EQ(Name_Of(operations.Show_Help, "Command3"), "Launch Quillspeech Help");
  EXPECT_EQ(Name_Of(operations.Show_Help, "Command5"), "Click to close");
  EXPECT_EQ(Name_Of(operations.Show_Help, "Label5"),
            "See Electronic Help shipped with the package");
}

TEST_F(Help, Asks_its_questions_line_by_line_and_says_whom_to_answer) {
  const std::string text = Name_Of(operations.Show_Help, "Text1");
  const std::string questions =
      "Please send us the answers \r\nby mail \r\nQ1. Did you recognize  any\r\n of your words "
      "?\r\n"
      "Q2. What do you think must \r\nbe enhanced? Which more \r\nexamples will you like?\r\n"
      "Q3 Do you facinate this \r\nconcept ?\r\nQ4. What was more \r\ninteresting of all?  \r\n";
  ASSERT_EQ(text.substr(0, questions.size()), questions);
  EXPECT_NE(text.substr(questions.size()).find("Corvane Studio Works"), std::string::npos);
}

TEST_F(Help, Lets_nobody_write_over_the_questions) {
  Stays_After(operations.Show_Help, [](Form& form) { EXPECT_FALSE(form.Type("Text1", "x")); });
}

TEST_F(Help, Opens_the_help_page_in_its_own_name_and_stays) {
  shell.windows_directory = "C:\\WINDOWS";
  std::intptr_t window = 0;
  EXPECT_TRUE(Stays_After(operations.Show_Help, [&](Form& form) {
    window = views.Window_Of(form);
    form.Click("Command3");
  }));
  ASSERT_EQ(shell.opened.size(), 1u);
  EXPECT_EQ(shell.opened[0].document, "C:\\WINDOWS\\Quillspeech\\help.htm");
  EXPECT_NE(window, 0);
  EXPECT_EQ(shell.opened[0].parent, window);
}

TEST_F(Help, Goes_with_a_click_on_its_button_picture_or_hint) {
  for (const std::string control : {"Command5", "Image1", "Label5"}) {
    EXPECT_FALSE(Stays_After(operations.Show_Help, [&](Form& form) { form.Click(control); }))
        << control;
  }
}

TEST_F(Help, Stays_after_a_click_anywhere_else) {
  for (const std::string control : {"Text1", "Form"}) {
    EXPECT_TRUE(Stays_After(operations.Show_Help, [&](Form& form) { Click(form, control); }))
        << control;
  }
}

TEST_F(Help, Goes_with_any_key) {
  for (const unsigned char key :
       {Key_Enter, Key_Escape, static_cast<unsigned char>(' '), static_cast<unsigned char>('x')}) {
    EXPECT_FALSE(Stays_After(operations.Show_Help, [&](Form& form) { form.Press_Key(key); }))
        << int{key};
  }
  EXPECT_TRUE(shell.opened.empty());
}

TEST_F(Help, Opens_the_page_and_goes_when_its_focused_button_is_pressed_by_key) {
  EXPECT_FALSE(Stays_After(operations.Show_Help, [](Form& form) {
    form.Move_Focus("Command3");
    form.Press_Key(Key_Enter);
  }));
  EXPECT_EQ(shell.opened.size(), 1u);
}

TEST_F(Help, Can_be_unloaded_by_the_session_while_it_shows) {
  EXPECT_FALSE(Stays_After(operations.Show_Help, [&](Form&) { operations.Unload_Help(session); }));
}

TEST_F(Help, May_be_unloaded_when_it_does_not_show) {
  operations.Unload_Help(session);
  EXPECT_TRUE(views.shown.empty());
}

TEST_F(Help, Can_be_shown_again) {
  operations.Show_Help(session);
  operations.Show_Help(session);
  EXPECT_EQ(views.shown.size(), 2u);
}

TEST_F(Splash, Is_shown_modally_with_its_version) {
  EXPECT_EQ(Name_Of(operations.Show_Splash, "Label4"), "Version 1.3.000");
  EXPECT_EQ(views.shown, (std::vector<headless::FormViews::Shown>{{"Splash", Modality::Modal}}));
}

TEST_F(Splash, Leads_to_the_language_editor_and_marks_that_no_session_stands_behind_it) {
  for (const std::string control : {"Command2", "Form"}) {
    session.flags.File_Run_Active = 0;
    editors.clear();
    EXPECT_FALSE(Stays_After(operations.Show_Splash, [&](Form& form) { Click(form, control); }));
    EXPECT_EQ(editors, (Editors{{"Database", true}})) << control;
    EXPECT_EQ(file_run_at_showing, 1) << control;
    EXPECT_FALSE(splash_at_showing) << control;
  }
}

TEST_F(Splash, Leads_to_the_vocabulary_and_engine_editor_and_marks_nothing) {
  EXPECT_FALSE(Stays_After(operations.Show_Splash, [](Form& form) { form.Click("Command3"); }));
  EXPECT_EQ(editors, (Editors{{"DatabaseVE", true}}));
  EXPECT_EQ(session.flags.File_Run_Active.Raw(), 0);
  EXPECT_FALSE(splash_at_showing);
}

TEST_F(Splash, Leads_to_windows_that_do_not_block_a_design_environment) {
  host.path = "C:\\VB\\VB6.EXE";
  for (const std::string control : {"Command2", "Command3"}) {
    Stays_After(operations.Show_Splash, [&](Form& form) { form.Click(control); });
  }
  EXPECT_EQ(editors, (Editors{{"Database", false}, {"DatabaseVE", false}}));
}

TEST_F(Splash, Goes_with_any_key_and_leads_nowhere) {
  for (const unsigned char key : {Key_Enter, Key_Escape, static_cast<unsigned char>('x')}) {
    EXPECT_FALSE(Stays_After(operations.Show_Splash, [&](Form& form) { form.Press_Key(key); }))
        << int{key};
  }
  EXPECT_TRUE(editors.empty());
}

TEST_F(Splash, Leads_on_by_key_from_the_button_that_has_the_focus) {
  for (const unsigned char key : {Key_Enter, static_cast<unsigned char>(' ')}) {
    editors.clear();
    EXPECT_FALSE(Stays_After(operations.Show_Splash, [&](Form& form) {
      form.Move_Focus("Command3");
      form.Press_Key(key);
    }));
    EXPECT_EQ(editors, (Editors{{"DatabaseVE", true}})) << int{key};
  }
}

TEST_F(Splash, Stays_after_a_click_on_its_picture_or_its_version) {
  for (const std::string control : {"Image1", "Label4"}) {
    EXPECT_TRUE(Stays_After(operations.Show_Splash, [&](Form& form) { form.Click(control); }))
        << control;
  }
  EXPECT_TRUE(editors.empty());
}

TEST_F(Splash, Ignores_the_failure_of_a_window_that_it_leads_to) {
  const auto fails = [](Session&, bool) { Fail(Failure::Invalid_Call); };
  operations.Show_Database = fails;
  operations.Show_DatabaseVE = fails;
  for (const std::string control : {"Command2", "Command3"}) {
    EXPECT_NO_THROW(Stays_After(operations.Show_Splash, [&](Form& form) { form.Click(control); }));
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ComingSplash, Is_shown_modally_with_its_heading_and_four_lines) {
  const std::vector<std::string> texts{
      "Coming Upgradations ...", "Enhanced 'Speech Engine'",
      "Windows O/S and Windows CE   ASR Web Programs Telephony   programs support upgradation",
      "English, Indian and Foreign     Language Word-Processor's.",
      "More feature-rich and flexible Artificial Intelligence Add-on."};
  std::vector<std::string> shown;
  Stays_After(operations.Show_ComingSplash, [&](Form& form) {
    for (const FormControl& control : form.Controls()) {
      if (control.kind == FormControlKind::Label) shown.push_back(control.text);
    }
  });
  EXPECT_EQ(shown, texts);
  EXPECT_EQ(views.shown,
            (std::vector<headless::FormViews::Shown>{{"ComingSplash", Modality::Modal}}));
}

TEST_F(ComingSplash, Goes_with_a_click_on_the_window_or_a_label) {
  for (const std::string control : {"Form", "Label1", "Label2", "Label3", "Label4", "Label5"}) {
    EXPECT_FALSE(Stays_After(operations.Show_ComingSplash, [&](Form& form) {
      Click(form, control);
    })) << control;
  }
}

TEST_F(ComingSplash, Goes_with_any_key) {
  EXPECT_FALSE(Stays_After(operations.Show_ComingSplash, [](Form& form) { form.Press_Key('x'); }));
}

TEST_F(ComingSplash, Stays_after_a_click_on_a_picture) {
  for (const std::string control : {"Image2", "Image3"}) {
    EXPECT_TRUE(
        Stays_After(operations.Show_ComingSplash, [&](Form& form) { form.Click(control); }));
  }
}

// No control reaches beyond its window, and none lies on another.
TEST_F(HelpWindowsTest, Lay_their_controls_side_by_side) {
  HelpWindows windows(session);
  for (const Form* const form : {&windows.Help(), &windows.Splash(), &windows.ComingSplash()}) {
    const auto controls = form->Controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const FormPlace& one = controls[i].place;
      EXPECT_GE(one.left, 0);
      EXPECT_GE(one.top, 0);
      EXPECT_LE(one.left + one.width, form->Size().width) << controls[i].name;
      EXPECT_LE(one.top + one.height, form->Size().height) << controls[i].name;
      for (std::size_t j = 0; j < i; ++j) {
        const FormPlace& other = controls[j].place;
        const bool apart = one.left >= other.left + other.width ||
                           other.left >= one.left + one.width ||
                           one.top >= other.top + other.height || other.top >= one.top + one.height;
        EXPECT_TRUE(apart) << form->Name() << ": " << controls[i].name << ", " << controls[j].name;
      }
    }
  }
}

}  // namespace
}  // namespace quillspeech::tests
