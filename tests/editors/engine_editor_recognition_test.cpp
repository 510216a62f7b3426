// What an edited engine table does to recognition, from sound to word.
#include <gtest/gtest.h>

#include "base/text.hpp"
#include "core/operations.hpp"
#include "tests/core/live_session_fixture.hpp"

namespace quillspeech::tests {
namespace {

constexpr auto Engine = "my.EGN";
constexpr auto Entry_Of_Category_9 = "mnu69(3)";

// One word for the letters that every category has at first, one for others in the middle.
std::vector<Record> Two_Words() {
  return {Record().Word("before").Pattern("x"), Record().Word("after").Pattern("new")};
}

// What a person does in the window.
struct Editing {
  Form& window;
  headless::Dialogs& dialogs;
  headless::MessageBoxes& boxes;

  Editing& Open() {
    dialogs.texts = {Engine};
    EXPECT_TRUE(window.Choose_Menu("mnuEFoef"));
    return *this;
  }
  Editing& Edit(const std::string& entry, const std::string& letters) {
    dialogs.texts = {letters};
    EXPECT_TRUE(window.Choose_Menu(entry));
    return *this;
  }
  Editing& Save() {
    boxes.answers = {BoxAnswer::Yes};
    EXPECT_TRUE(window.Choose_Menu("mnuEFsef"));
    return *this;
  }
};

// A session that has yet to read its file: a second one would go on counting the first one's slices
// and never reach a word's end.
struct WavToWord : TestSession {
  WavToWord() {
    Prepare_Session(session);
    session.trace.Keep_Slices = true;
    host.path = "C:\\VB6.EXE";  // the window does not wait
    riff_files.files["word.wav"] = Wave().Data(
        Silence(Bytes(2000)) + Tone(700_Hz, Amplitude(100), Bytes(5000)) + Silence(Bytes(2000)));
    session.settings.Open_this_Wave_File = "word.wav";
    Put_Language_File(data_files, "UserTemp.SAY", Two_Words());
    Put_Engine_File(data_files, Engine, All_Groups("x"));
    session.settings.Consider_this_Engine_for_Recognition = Engine;
  }
  Editing Window() {
    session.operations.Show_DatabaseVE(session, false);
    return {*views.On_Show().back(), dialogs, boxes};
  }
  std::string Best_Word() {
    Open_Specified_Wave_File_And_Process(session);
    for (const SliceTrace& slice : session.trace.slices) EXPECT_EQ(slice.category, 9);
    return session.results.Platinum_Best_Table[1];
  }
};

TEST(EngineEditorToWord, An_entry_that_is_saved_changes_the_word_of_the_next_sample) {
  WavToWord as_it_was;
  EXPECT_EQ(as_it_was.Best_Word(), "before");
  WavToWord edited;
  edited.Window().Open().Edit(Entry_Of_Category_9, "new").Save();
  EXPECT_EQ(edited.Best_Word(), "after");
}

TEST(EngineEditorToWord, Another_entry_changes_nothing) {
  WavToWord edited;
  edited.Window().Open().Edit("mnu69(2)", "new").Save();
  EXPECT_EQ(edited.Best_Word(), "before");
}

// The running table has the answer at once, at the entry's own number, until it is loaded anew.
TEST(EngineEditorToWord, An_entry_that_is_not_saved_is_loaded_over) {
  WavToWord edited;
  edited.Window().Edit("mnu3040(9)", "new");
  EXPECT_EQ(edited.session.filter.Engine_Table[9], "new");
  EXPECT_EQ(edited.Best_Word(), "before");
  EXPECT_EQ(Trim(edited.session.filter.Engine_Table[9]), "x");
}

TEST(EngineEditorToWord, A_sample_closes_the_file_of_the_editor) {
  WavToWord test;
  const auto before = test.data_files.files.at(Engine);
  Editing window = test.Window().Open().Edit(Entry_Of_Category_9, "new");
  EXPECT_EQ(test.Best_Word(), "before");
  window.Save();
  EXPECT_EQ(test.boxes.shown.back().box.title, "Quillspeech Engine Editor.");
  EXPECT_EQ(test.data_files.files.at(Engine), before);
}

// The session goes on listening beside the window.
TEST(EngineEditorToWord, An_entry_that_is_saved_changes_the_word_of_the_next_capture) {
  LiveRun test;
  test.host.path = "C:\\VB6.EXE";
  Put_Language_File(test.data_files, "UserTemp.SAY", Two_Words());
  Put_Engine_File(test.data_files, Engine, All_Groups("x"));
  test.session.settings.Consider_this_Engine_for_Recognition = Engine;
  test.Listen(6s);
  EXPECT_EQ(test.host_program.events.back(), "SpokenWordConvertedToText before");
  test.session.operations.Show_DatabaseVE(test.session, false);
  Editing{*test.views.On_Show().back(), test.dialogs, test.boxes}
      .Open()
      .Edit(Entry_Of_Category_9, "new")
      .Save();
  test.Say_At(8s);
  test.events.Run_For(6s);
  EXPECT_EQ(test.host_program.events.back(), "SpokenWordConvertedToText after");
}

}  // namespace
}  // namespace quillspeech::tests
