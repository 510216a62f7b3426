// The roads on which recognition hands over to the Language Editor, and the way back.
#include <gtest/gtest.h>

#include <utility>

#include "base/text.hpp"
#include "recognition/language_matching.hpp"
#include "tests/core/live_session_fixture.hpp"

namespace quillspeech::tests {
namespace {

using ShownForm = headless::FormViews::Shown;
using Showings = std::vector<ShownForm>;

struct UnknownWord : LiveRun {
  UnknownWord() {
    Know(Record().Word("hello").Pattern("never"));
    boxes.answers = {BoxAnswer::Yes};
  }
  // What a person does in the next modal window.
  void In_The_Window(std::function<void(Form&)> action) {
    views.actions.push_back(std::move(action));
  }
  // Takes the pattern over from the memory of the last word and saves it.
  void Save_Pattern(Form& form) {
    form.Click("Command3");
    boxes.answers.push_back(BoxAnswer::Yes);
    form.Click("Command16");
  }
  datafiles::SayRecord On_Disk() { return Language_Record(data_files, "UserTemp.SAY", 1); }
};

TEST(LanguageEditorRoads, A_word_without_a_match_opens_the_editor_when_the_user_says_yes) {
  UnknownWord test;
  bool is_listening = true;
  test.In_The_Window([&](Form& form) {
    EXPECT_EQ(form.Name(), "Database");
    is_listening = test.Is_On(FormTimer::Timer5);
  });
  test.Listen();
  EXPECT_EQ(test.views.shown, (Showings{{"Database", Modality::Modal}}));
  EXPECT_FALSE(is_listening);
  EXPECT_EQ(test.boxes.shown.at(0).box.title, "Quillspeech Language Development");
}

TEST(LanguageEditorRoads, A_no_opens_nothing) {
  UnknownWord test;
  test.boxes.answers = {BoxAnswer::No};
  test.Listen();
  EXPECT_TRUE(test.views.shown.empty());
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, False);
}

TEST(LanguageEditorRoads, A_pattern_that_is_saved_there_is_recognised_from_the_next_word_on) {
  UnknownWord test;
  test.In_The_Window([&](Form& form) {
    test.Save_Pattern(form);
    form.Click("Command8");
  });
  test.Say_At(8s);
  test.Listen(12s);
  EXPECT_EQ(test.On_Disk().LikeCount(), 2);
  EXPECT_EQ(test.host_program.Times("SpokenWordDetected 0"), 2);
  EXPECT_EQ(test.host_program.Times("SpokenWordConvertedToText hello"), 1);
  EXPECT_EQ(test.host_program.events.back(), "SpokenWordConvertedToText hello");
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(LanguageEditorRoads, However_the_editor_is_closed_captures_go_on) {
  for (const auto leave :
       {+[](Form& form) { form.Close(); }, +[](Form& form) { form.Choose_Menu("Exitmnu"); },
        +[](Form& form) { form.Click("Command8"); }}) {
    UnknownWord test;
    std::int64_t captures = 0;
    test.In_The_Window([&](Form& form) {
      captures = test.Captures();
      leave(form);
    });
    test.Listen(20s);
    EXPECT_EQ(test.session.flags.Language_Editor_Loaded, False);
    EXPECT_GT(test.Captures(), captures);
  }
}

TEST(LanguageEditorRoads, A_design_environment_shows_the_editor_beside_the_session) {
  UnknownWord test;
  test.host.path = "C:\\VB6.EXE";
  test.Listen();
  EXPECT_EQ(test.views.shown, (Showings{{"Database", Modality::None}}));
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, True);
}

TEST(LanguageEditorRoads, A_match_that_comes_while_the_editor_is_open_unloads_it_first) {
  UnknownWord test;
  test.host.path = "C:\\VB6.EXE";
  test.Listen();
  test.session.filter.Current_Voice_Word = "never";
  Match_Language(test.session);
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, False);
  EXPECT_TRUE(test.views.On_Show().empty());
  EXPECT_EQ(test.session.results.Platinum_Best_Table[1], "hello");
}

TEST(LanguageEditorRoads, An_editor_whose_file_cannot_be_opened_is_told_of_once) {
  UnknownWord test;
  test.session.settings.Consider_this_Lang_File_to_Add = "bad.SAY";
  test.data_files.refused["bad.SAY"] = Failure::Path_Not_Found;
  test.Listen();
  ASSERT_EQ(test.boxes.shown.size(), 2U);
  EXPECT_EQ(test.boxes.shown[1].box.title, "Quillspeech Info");
  EXPECT_TRUE(test.views.shown.empty());
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, False);
}

struct AddingSession : LiveRun {
  AddingSession() {
    session.settings.Add_To_Language = "YES";
    session.flags.Show_Activities = 1;
  }
};

TEST(LanguageEditorRoads, A_session_that_adds_to_its_language_loads_the_editor_unseen) {
  AddingSession test;
  test.Listen();
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, True);
  EXPECT_TRUE(test.views.shown.empty());
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
}

TEST(LanguageEditorRoads, In_a_design_environment_it_shows_it_and_closing_it_arms_the_capture) {
  AddingSession test;
  test.host.path = "C:\\VB6.EXE";
  test.Listen();
  EXPECT_EQ(test.views.shown, (Showings{{"Database", Modality::None}}));
  ASSERT_EQ(test.views.On_Show().size(), 1U);
  const std::int64_t captures = test.Captures();
  test.events.Run_For(10s);
  EXPECT_EQ(test.Captures(), captures);
  test.views.On_Show()[0]->Close();
  test.events.Run_For(1s);
  EXPECT_GT(test.Captures(), captures);
}

TEST(LanguageEditorRoads, The_end_of_the_control_takes_the_editor_with_it) {
  UnknownWord test;
  test.host.path = "C:\\VB6.EXE";
  test.Listen();
  test.control->UserControl_Terminate();
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, False);
  EXPECT_EQ(test.data_files.open_files, 0);
}

TEST(LanguageEditorRoads, A_session_that_ends_or_comes_to_rest_under_the_editor_captures_no_more) {
  for (const auto end :
       {+[](UnknownWord& test) { Terminate_Session(test.session); },
        +[](UnknownWord& test) { test.session.operations.Stop_And_Recover(test.session); }}) {
    UnknownWord test;
    test.host.path = "C:\\VB6.EXE";
    test.session.settings.Always_Restart_on_Error = "NO";
    test.Listen();
    ASSERT_EQ(test.session.flags.Language_Editor_Loaded, True);
    end(test);
    EXPECT_EQ(test.session.flags.Language_Editor_Loaded, False);
    EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
    const std::int64_t captures = test.Captures();
    test.events.Run_For(10s);
    EXPECT_EQ(test.Captures(), captures);
  }
}

TEST(LanguageEditorRoads, The_end_of_a_control_that_never_showed_it_opens_no_file) {
  LiveRun test;
  test.control->UserControl_Terminate();
  EXPECT_EQ(test.data_files.opens, 0);
  EXPECT_EQ(test.Timers_On(), "");
}

TEST(LanguageEditorRoads, The_chooser_opens_the_editor_as_work_without_a_live_session) {
  LiveRun test;
  test.session.settings.Consider_this_Lang_File_to_Add = "new.SAY";
  test.views.actions.push_back([](Form& chooser) { chooser.Click("Command2"); });
  std::string name;
  test.views.actions.push_back([&](Form& form) {
    name = form.Name();
    EXPECT_FALSE(form["Command3"].visible);
    form.Close();
  });
  test.control->SHOW_LANGUAGE_EDITOR();
  EXPECT_EQ(name, "Database");
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_TRUE(test.data_files.files.contains("new.SAY"));
}

}  // namespace
}  // namespace quillspeech::tests
