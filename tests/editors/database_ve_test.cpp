// The life of the window that the two editors share.
#include "editors/database_ve.hpp"

#include "core/operations.hpp"
#include "recognition/engine_table.hpp"
#include "tests/editors/engine_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

struct DatabaseVE : testing::Test, TestSession {
  DatabaseVE() {
    session.operations.Show_ComingSplash = [this](Session&) {
      ++notices;
      was_listed_at_notice = editor.DataDisplayVE().Is_Loaded();
    };
  }
  Form& Window() { return editor.DatabaseVE(); }

  int notices = 0;
  bool was_listed_at_notice = false;
  VocabularyAndEngineEditor editor{session};
};

TEST_F(DatabaseVE, Has_no_window_before_its_first_loading) {
  EXPECT_FALSE(editor.Is_Loaded());
  EXPECT_EQ(Failure_Of([&] { editor.DatabaseVE(); }), 5);
  EXPECT_EQ(Failure_Of([&] { editor.DataDisplayVE(); }), 5);
  editor.Unload();
  EXPECT_EQ(notices, 0);
}

TEST_F(DatabaseVE, Opens_with_the_menus_of_a_vocabulary_file_disabled) {
  editor.Load();
  for (const FormMenu& menu : Window().Menus()) {
    const bool waits =
        menu.name == "mnuFile" || menu.name == "mnuQuery" || menu.name == "mnuRecord";
    EXPECT_EQ(menu.enabled, !waits) << menu.name;
  }
}

TEST_F(DatabaseVE, Opens_with_the_filters_pass_value_in_its_menu) {
  session.settings.Filter_Pass_Value = 12;
  editor.Load();
  EXPECT_EQ(Window().Menu("mnuEFCT").caption, "Engine Filter Pass Criteria  : 12");
}

TEST_F(DatabaseVE, Opens_with_the_graphs_scale) {
  editor.Load();
  EXPECT_EQ(Window()["Picture1"].drawing.scale, (DrawingScale{0, 50, 128, 0}));
}

TEST_F(DatabaseVE, Opens_with_the_running_table_in_its_menus) {
  for (int element = 0; element <= 100; ++element) {
    session.filter.Engine_Table[element] = "e" + std::to_string(element) + std::string(10, ' ');
  }
  editor.Load();
  int element = 0;
  for (const std::string& entry : Entries_In_Order()) {
    EXPECT_EQ(Window().Menu(entry).caption, "e" + std::to_string(element++)) << entry;
  }
  EXPECT_EQ(element, 61);
}

TEST_F(DatabaseVE, Opens_with_its_caption) {
  editor.Load();
  EXPECT_EQ(Window().Caption(),
            "Quillspeech\xAE  Component Engine Editor    \xA9"
            "Corvane Studio Works");
}

TEST_F(DatabaseVE, Opens_no_file) {
  editor.Load();
  EXPECT_EQ(data_files.opens, 0);
}

TEST_F(DatabaseVE, Shows_modally_or_not) {
  editor.Show(false);
  EXPECT_TRUE(editor.Is_Loaded());
  EXPECT_EQ(views.shown, (std::vector<headless::FormViews::Shown>{{"DatabaseVE", Modality::None}}));
  views.shown.clear();
  editor.Show(true);
  EXPECT_EQ(views.shown,
            (std::vector<headless::FormViews::Shown>{{"DatabaseVE", Modality::Modal}}));
}

TEST_F(DatabaseVE, A_window_that_is_loaded_stays_as_it_is) {
  editor.Load();
  Form* const window = &Window();
  session.filter.Engine_Table[0] = "new";
  editor.Show(false);
  EXPECT_EQ(&Window(), window);
  EXPECT_EQ(Window().Menu("mnu02(1)").caption, "");
}

TEST_F(DatabaseVE, A_window_that_was_closed_is_made_anew) {
  editor.Load();
  Window().Set_Menu_Enabled("mnuFile", true);
  editor.Vocabulary_Memory.VocabularyName("kept");
  editor.Engine_File_Name = "my.EGN";
  Window().Close();
  session.filter.Engine_Table[0] = "new";
  editor.Load();
  EXPECT_FALSE(Window().Menu("mnuFile").enabled);
  EXPECT_EQ(Window().Menu("mnu02(1)").caption, "new");
  EXPECT_EQ(Trim(editor.Vocabulary_Memory.VocabularyName()), "");
  EXPECT_EQ(editor.Engine_File_Name, "my.EGN");
}

TEST_F(DatabaseVE, Closing_it_shows_the_notice_of_upgrades_behind_its_list) {
  editor.Load();
  editor.DataDisplayVE().Load();
  Window().Close();
  EXPECT_FALSE(editor.Is_Loaded());
  EXPECT_EQ(notices, 1);
  EXPECT_FALSE(was_listed_at_notice);
  editor.Load();
  editor.Unload();
  EXPECT_EQ(notices, 2);
}

TEST_F(DatabaseVE, Closing_it_closes_the_file_that_a_half_has_opened) {
  const std::pair<const char*, const char*> cases[] = {{"Command1", "my.SAY"},
                                                       {"Command3", "my.EGN"}};
  for (const auto& [button, name] : cases) {
    editor.Load();
    dialogs.files = {name};
    Window().Click(button);
    EXPECT_EQ(data_files.open_files, 1) << name;
    editor.Unload();
    EXPECT_EQ(data_files.open_files, 0) << name;
    EXPECT_FALSE(session.data.Main_File_Number.Is_Open());
  }
}

TEST_F(DatabaseVE, Closing_it_leaves_the_file_of_the_Language_Editor_open) {
  session.data.Main_File_Number.Open(data_files, "words.SAY", datafiles::SayRecord::Record_Bytes);
  editor.Load();
  editor.Unload();
  EXPECT_TRUE(session.data.Main_File_Number.Is_Open());
}

TEST_F(DatabaseVE, A_close_whose_notice_fails_leaves_no_window_and_no_file) {
  session.operations.Show_ComingSplash = [](Session&) { Fail(Failure::Overflow); };
  for (const bool modally : {false, true}) {
    const auto close = [&](Form& window) {
      dialogs.files = {"my.EGN"};
      window.Click("Command3");
      EXPECT_EQ(data_files.open_files, 1);
      window.Close();
    };
    if (modally) views.actions = {close};
    EXPECT_EQ(Failure_Of([&] {
                editor.Show(modally);
                close(Window());
              }),
              6);
    EXPECT_FALSE(editor.Is_Loaded()) << modally;
    EXPECT_TRUE(views.On_Show().empty()) << modally;
    EXPECT_EQ(data_files.open_files, 0) << modally;
  }
}

TEST_F(DatabaseVE, A_failure_while_it_shows_closes_it_and_its_file_and_goes_on) {
  views.actions = {[this](Form& window) {
    dialogs.files = {"my.EGN"};
    window.Click("Command3");
    Fail(Failure::Division_By_Zero);
  }};
  EXPECT_EQ(Failure_Of([&] { editor.Show(true); }), 11);
  EXPECT_FALSE(editor.Is_Loaded());
  EXPECT_EQ(data_files.open_files, 0);
  EXPECT_EQ(notices, 1);
}

TEST_F(DatabaseVE, After_a_failure_it_opens_anew) {
  views.actions = {[](Form&) { Fail(Failure::Overflow); }};
  EXPECT_EQ(Failure_Of([&] { editor.Show(true); }), 6);
  session.filter.Engine_Table[0] = "new";
  session.settings.Filter_Pass_Value = 12;
  editor.Show(false);
  EXPECT_EQ(Window().Menu("mnu02(1)").caption, "new");
  EXPECT_EQ(Window().Menu("mnuEFCT").caption, "Engine Filter Pass Criteria  : 12");
}

TEST_F(DatabaseVE, The_failure_that_ends_it_goes_on_when_the_notice_fails_too) {
  session.operations.Show_ComingSplash = [](Session&) { Fail(Failure::Overflow); };
  views.actions = {[](Form&) { Fail(Failure::Division_By_Zero); }};
  EXPECT_EQ(Failure_Of([&] { editor.Show(true); }), 11);
  EXPECT_EQ(session.trace.Last_Failure, 6);
}

TEST_F(DatabaseVE, A_window_on_show_stays_when_a_further_showing_fails) {
  editor.Show(false);
  views.At_Showing = [](const Form&, bool, Modality) { Fail(Failure::Overflow); };
  EXPECT_EQ(Failure_Of([&] { editor.Show(true); }), 6);
  views.At_Showing = nullptr;
  EXPECT_TRUE(editor.Is_Loaded());
  EXPECT_EQ(notices, 0);
}

TEST_F(DatabaseVE, A_file_of_one_half_is_none_for_the_other) {
  editor.Load();
  dialogs.files = {"my.EGN"};
  Window().Click("Command3");
  dialogs.files = {"my.SAY"};
  Window().Click("Command1");
  boxes.answers = {BoxAnswer::Yes};
  Window().Choose_Menu("mnuEFsef");
  EXPECT_EQ(session.trace.Last_Failure, 5);
  EXPECT_TRUE(data_files.files.at("my.SAY").empty());
  EXPECT_TRUE(data_files.files.at("my.EGN").empty());
}

struct FromTheChooser : testing::Test, TestSession {
  FromTheChooser() { Prepare_Session(session); }
  void Choose_In_Splash() {
    views.actions.push_back([](Form& chooser) { chooser.Click("Command3"); });
    session.operations.Show_Splash(session);
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& one : views.shown) names.push_back(one.name);
    return names;
  }
};

TEST_F(FromTheChooser, It_opens_modally_and_its_close_shows_the_notice) {
  std::string seen;
  views.actions.push_back([](Form& chooser) { chooser.Click("Command3"); });
  views.actions.push_back([&](Form& window) {
    seen = window.Menu("mnu02(2)").caption;
    window.Close();
  });
  session.operations.Show_Splash(session);
  EXPECT_EQ(Names(), (std::vector<std::string>{"Splash", "DatabaseVE", "ComingSplash"}));
  EXPECT_EQ(views.shown[1].modality, Modality::Modal);
  EXPECT_EQ(views.shown[2].modality, Modality::Modal);
  EXPECT_EQ(seen, "dbtrvgp");
  EXPECT_TRUE(views.On_Show().empty());
  EXPECT_EQ(session.flags.File_Run_Active, 0);
}

TEST_F(FromTheChooser, In_a_design_environment_it_stays_beside_the_host) {
  host.path = "C:\\VB6.EXE";
  Choose_In_Splash();
  EXPECT_EQ(Names(), (std::vector<std::string>{"Splash", "DatabaseVE"}));
  EXPECT_EQ(views.shown[1].modality, Modality::None);
  ASSERT_EQ(views.On_Show().size(), 1U);
  views.On_Show()[0]->Choose_Menu("Exitmnu");
  EXPECT_TRUE(views.On_Show().empty());
  EXPECT_EQ(Names().back(), "ComingSplash");
}

}  // namespace
}  // namespace quillspeech::tests
