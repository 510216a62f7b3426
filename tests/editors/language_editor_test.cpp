#include "editors/language_editor.hpp"

#include "tests/editors/language_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

struct OpeningLanguageEditor : LanguageEditorTest {};

TEST_F(OpeningLanguageEditor, Says_that_it_is_loaded_until_it_is_unloaded) {
  Open({Record().Word("one")});
  EXPECT_EQ(session.flags.Language_Editor_Loaded, True);
  EXPECT_FALSE(editor.Is_Closed);
  editor.Unload();
  EXPECT_EQ(session.flags.Language_Editor_Loaded, False);
  EXPECT_TRUE(editor.Is_Closed);
}

TEST_F(OpeningLanguageEditor, Stops_the_start_of_captures_and_no_other_timer) {
  events.Enable(FormTimer::Timer5, true);
  events.Enable(FormTimer::Timer1, true);
  Open({Record()});
  EXPECT_FALSE(events.Is_Enabled(FormTimer::Timer5));
  EXPECT_TRUE(events.Is_Enabled(FormTimer::Timer1));
}

TEST_F(OpeningLanguageEditor, Closes_the_file_that_was_open) {
  data_files.files["other.SAY"] = {};
  session.data.Main_File_Number.Open(data_files, "other.SAY", 8476);
  Open_Nothing();
  EXPECT_EQ(data_files.open_files, 0);
}

TEST_F(OpeningLanguageEditor, Without_a_file_it_tells_so_and_has_a_caption_of_its_own) {
  session.settings.Consider_this_Lang_File_to_Add = "   ";
  editor.Load();
  EXPECT_EQ(Told(), (Texts{"Quillspeech User Error|You have not entered the location of the "
                           "Language File to Add"}));
  EXPECT_EQ(Window().Caption(),
            "Quillspeech\xAE  Component Language Editor    \xA9"
            "Corvane Studio Works");
  EXPECT_EQ(data_files.opens, 0);
}

TEST_F(OpeningLanguageEditor, Without_a_file_only_what_needs_none_is_enabled) {
  Open_Nothing();
  for (const auto menu : {"mnuFile", "mnuQuery", "mnuRecord", "mnuEM", "mnuWF"}) {
    EXPECT_FALSE(Window().Menu(menu).enabled) << menu;
  }
  for (const auto menu : {"Enmu", "mnuCM", "mnuHel"}) EXPECT_TRUE(Window().Menu(menu).enabled);
  for (const auto button : {"Command7", "NextHit"}) EXPECT_FALSE(Window()[button].enabled);
  for (const auto button : {"Command1", "Command8", "Command9", "Command14", "Command16"}) {
    EXPECT_TRUE(Window()[button].enabled) << button;
  }
}

TEST_F(OpeningLanguageEditor, With_a_file_everything_is_enabled) {
  Open({Record()});
  for (const FormMenu& menu : Window().Menus()) EXPECT_TRUE(menu.enabled) << menu.name;
  for (const FormControl& control : Window().Controls()) EXPECT_TRUE(control.enabled);
}

TEST_F(OpeningLanguageEditor, Shows_the_name_of_the_file_without_the_blanks_around_it) {
  Put_Language_File(data_files, File, Three_Records());
  session.settings.Consider_this_Lang_File_to_Add = "  my.SAY ";
  editor.Load();
  EXPECT_EQ(Text("TFNam"), "my.SAY");
  EXPECT_EQ(editor.File_Name, "my.SAY");
}

TEST_F(OpeningLanguageEditor, Chooses_the_record_matched_last_but_not_the_last_of_the_file) {
  const struct {
    int matched;
    int shown;
  } cases[] = {{0, 1}, {1, 1}, {2, 2}, {3, 1}, {4, 1}, {-1, 1}};
  for (const auto& [matched, shown] : cases) {
    Open(Three_Records(), matched);
    EXPECT_EQ(Current(), shown) << matched;
    editor.Unload();
  }
}

TEST_F(OpeningLanguageEditor, A_new_empty_file_shows_record_1_out_of_0) {
  session.settings.Consider_this_Lang_File_to_Add = "new.SAY";
  editor.Load();
  EXPECT_EQ(data_files.files.at("new.SAY").size(), 0U);
  EXPECT_EQ(Window().Caption(),
            "Quillspeech\xAE  Record No.1 out of 0  for Words Like... \xA9"
            "Corvane Studio Works");
  EXPECT_EQ(Current(), 1);
}

TEST_F(OpeningLanguageEditor, Shows_the_fonts_of_the_screen_and_the_record_to_add_to) {
  session.settings.Direct_Add = 7;
  views.fonts = {"Arial", "Zapf"};
  Open({Record()});
  EXPECT_EQ(Lines("Combo1"), (Texts{"Arial", "Zapf"}));
  EXPECT_EQ(Text("Text1"), "7");
}

TEST_F(OpeningLanguageEditor, Tells_in_its_menu_how_many_engine_strings_there_are) {
  session.filter.Voice_Words_Explode_Count = 3;
  Open({Record()});
  EXPECT_EQ(Window().Menu("mnuDEM").caption, "Display Engine Data for available count :3");
}

TEST_F(OpeningLanguageEditor, Hides_the_memory_when_no_live_session_stands_behind_it) {
  const auto is_visible = [this](const std::string& name) {
    return Window().Find(name) ? Window()[name].visible : Window().Menu(name).visible;
  };
  for (const bool live : {true, false}) {
    session.flags.File_Run_Active = live ? 0 : 1;
    Open({Record()});
    for (const auto name : {"mnuCM", "mnuEM", "Command3", "Command10"}) {
      EXPECT_EQ(is_visible(name), live) << name;
    }
    EXPECT_TRUE(is_visible("mnuWF"));
    editor.Unload();
  }
}

TEST_F(OpeningLanguageEditor, A_file_that_cannot_be_opened_is_told_and_the_session_recovers) {
  int recoveries = 0;
  session.operations.Stop_And_Recover = [&](Session&) { ++recoveries; };
  data_files.refused["bad.SAY"] = Failure::Path_Not_Found;
  session.settings.Consider_this_Lang_File_to_Add = "bad.SAY";
  editor.Load();
  EXPECT_EQ(Told(), (Texts{"Quillspeech Info|Problem in File I/O,Code Ailoa, Check the Name or "
                           "Location of your disk files of language database and their states"}));
  EXPECT_EQ(recoveries, 1);
  EXPECT_TRUE(editor.Is_Loaded());
}

TEST_F(OpeningLanguageEditor, A_recovery_that_unloads_the_window_ends_the_loading_as_failed) {
  session.operations.Stop_And_Recover = [this](Session&) { editor.Unload(); };
  data_files.refused["bad.SAY"] = Failure::Path_Not_Found;
  session.settings.Consider_this_Lang_File_to_Add = "bad.SAY";
  EXPECT_EQ(Failure_Of([this] { editor.Show(true); }), 5);
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_TRUE(views.shown.empty());
  EXPECT_EQ(session.flags.Language_Editor_Loaded, False);
}

TEST_F(OpeningLanguageEditor, A_damaged_record_whose_count_passes_its_array_is_told) {
  Record damaged;
  damaged.Fields().WordCount(101);
  Open({damaged, Record()});
  ASSERT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(boxes.shown[0].box.title, "Quillspeech Info");
}

TEST_F(OpeningLanguageEditor, Loading_it_again_changes_nothing) {
  Open(Three_Records(), 2);
  Choose("mnuNext");
  editor.Load();
  EXPECT_EQ(Current(), 3);
}

TEST_F(OpeningLanguageEditor, Shows_modally_or_not_as_it_is_asked_to) {
  Open({Record()});
  editor.Show(false);
  editor.Show(true);
  using Shown = headless::FormViews::Shown;
  EXPECT_EQ(views.shown,
            (std::vector<Shown>{{"Database", Modality::None}, {"Database", Modality::Modal}}));
}

struct LeavingLanguageEditor : LanguageEditorTest {
  // Every way out.
  void Leave(int way) {
    if (way == 0) Choose("Exitmnu");
    if (way == 1) Click("Command8");
    if (way == 2) Window().Close();
    if (way == 3) editor.Unload();
  }
};

TEST_F(LeavingLanguageEditor, Every_way_closes_the_file_and_lets_captures_start_again) {
  for (int way = 0; way < 4; ++way) {
    Open(Three_Records());
    session.flags.Analysis_Running = 1;
    Leave(way);
    EXPECT_FALSE(editor.Is_Loaded()) << way;
    EXPECT_EQ(data_files.open_files, 0) << way;
    EXPECT_EQ(session.flags.Analysis_Running, 0) << way;
    EXPECT_TRUE(events.Is_Enabled(FormTimer::Timer5)) << way;
  }
}

TEST_F(LeavingLanguageEditor, Without_a_live_session_the_file_stays_open_and_no_timer_starts) {
  for (int way = 0; way < 4; ++way) {
    session.flags.File_Run_Active = 1;
    session.flags.Analysis_Running = 1;
    Open(Three_Records());
    Leave(way);
    EXPECT_FALSE(editor.Is_Loaded()) << way;
    EXPECT_EQ(data_files.open_files, 1) << way;
    EXPECT_EQ(session.flags.Analysis_Running, 1) << way;
    EXPECT_FALSE(events.Is_Enabled(FormTimer::Timer5)) << way;
    EXPECT_EQ(session.flags.Language_Editor_Loaded, False) << way;
  }
}

TEST_F(LeavingLanguageEditor, Takes_the_browser_with_it) {
  In_A_Design_Environment();
  Open(Three_Records());
  Choose("mnuView");
  EXPECT_TRUE(editor.DataDisplay().Is_Loaded());
  Click("Command8");
  EXPECT_FALSE(editor.DataDisplay().Is_Loaded());
}

TEST_F(LeavingLanguageEditor, Writes_nothing_by_itself) {
  Open(Three_Records());
  Click("Command8");
  EXPECT_EQ(data_files.writes, 0);
}

TEST_F(LeavingLanguageEditor, A_window_that_was_never_loaded_is_left_alone) {
  editor.Unload();
  EXPECT_FALSE(events.Is_Enabled(FormTimer::Timer5));
  EXPECT_EQ(data_files.opens, 0);
}

TEST_F(LeavingLanguageEditor, Its_next_loading_begins_anew) {
  Open_Nothing();
  editor.Unload();
  Open(Three_Records());
  EXPECT_TRUE(Window().Menu("mnuEM").enabled);
  EXPECT_EQ(Lines("Combo5"), Texts{"one"});
}

TEST(ConnectLanguageEditor, Fills_in_what_loads_shows_and_unloads_it) {
  TestSession test;
  Connect_Language_Editor(test.session);
  test.session.operations.Load_Database(test.session);
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, True);
  EXPECT_TRUE(test.views.shown.empty());
  test.session.operations.Show_Database(test.session, false);
  EXPECT_EQ(test.views.shown.size(), 1U);
  test.session.operations.Unload_Database(test.session);
  EXPECT_EQ(test.session.flags.Language_Editor_Loaded, False);
  EXPECT_TRUE(test.views.On_Show().empty());
}

}  // namespace
}  // namespace quillspeech::tests
