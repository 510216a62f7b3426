// A language file made from nothing in the Language Editor's real windows, by mouse and keyboard.
#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>

#include "core/operations.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/riff_file.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_cues.hpp"
#include "platform/headless/wave_input.hpp"
#include "platform/headless/wave_output.hpp"
#include "platform/windows/data_file.hpp"
#include "platform/windows/dialogs.hpp"
#include "platform/windows/form_view.hpp"
#include "platform/windows/message_boxes.hpp"
#include "session/session.hpp"
#include "tests/support/editor_session.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/windows/person.hpp"

namespace quillspeech::tests {
namespace {

// Real windows, in which the fonts are those of a screen that is none: which there are is the
// machine's affair, and goes into the file.
class ViewsWithFonts final : public quillspeech::FormViews {
 public:
  explicit ViewsWithFonts(windows::FormViews& views) : views_(views) {}

  void Show(Form& form, Modality modality) override { views_.Show(form, modality); }
  void Hide(Form& form) override { views_.Hide(form); }
  void Make_Child(Form& form, std::intptr_t parent, const ChildPlace& place,
                  ChildMode mode) override {
    views_.Make_Child(form, parent, place, mode);
  }
  void Move_Child(Form& form, const ChildPlace& place) override { views_.Move_Child(form, place); }
  void Set_Child_Mode(Form& form, ChildMode mode) override { views_.Set_Child_Mode(form, mode); }
  std::intptr_t Window_Of(const Form& form) const override { return views_.Window_Of(form); }
  bool Is_Shown(const Form& form) const override { return views_.Is_Shown(form); }
  void Repaint(Form& form) override { views_.Repaint(form); }
  int Dots_Per_Inch() const override { return views_.Dots_Per_Inch(); }
  std::vector<std::string> Font_Names() const override { return headless::FormViews().fonts; }

 private:
  windows::FormViews& views_;
};

// A session on real windows and files, and without sound.
struct FormEditorSession : testing::Test, TemporaryFolder {
  FormEditorSession() {
    Prepare_Session(session);
    session.settings.Consider_this_Lang_File_to_Add = Path("first.SAY");
  }

  // The chooser shows until the person is done; what went wrong for her, if anything did.
  std::string Perform(const std::vector<EditorStep>& steps) {
    Person person;
    std::string trouble;
    std::atomic<bool> is_done = false;
    std::thread hands([&] {
      try {
        person.Do(steps);
      } catch (const std::exception& failure) {
        trouble = failure.what();
        person.Leave();
      }
      is_done = true;
      events.Wake();
    });
    session.operations.Show_Splash(session);
    while (!is_done) events.Wait_For_Events();
    hands.join();
    return trouble;
  }

  windows::EventLoop events;
  headless::HostProgram host;
  headless::SoundCues cues;
  headless::Shell shell;
  headless::RiffFiles riff_files;
  headless::NoWaveInput wave_input;
  headless::WaveOutput wave_output;
  windows::DataFileStore data_files{windows::NameEncoding::Windows1252};
  windows::FormViews views{events, 96};
  ViewsWithFonts shown{views};
  windows::Dialogs dialogs{views};
  windows::MessageBoxes boxes{[this] { return views.Modal_Window(); }};
  Session session{Ports{events, boxes, host, cues, shell, riff_files, wave_input, wave_output,
                        data_files, dialogs, shown}};
};

TEST_F(FormEditorSession, Makes_a_language_file_whose_bytes_are_those_of_the_format) {
  EXPECT_EQ(Perform(Editor_Session(Path("first.SAY"), Path("greetings.say"))), "");
  EXPECT_TRUE(Exists("first.SAY"));
  EXPECT_TRUE(Content("first.SAY").empty());
  EXPECT_EQ(Difference_From_Editor_Session(Content("greetings.say")), "");
}

}  // namespace
}  // namespace quillspeech::tests
