// Shows the windows of the session one after the other and writes pictures of the screen where they
// stand, frames and menu bars with them: show_windows FOLDER [DOTS PER INCH]
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

#include "core/operations.hpp"
#include "editors/database_ve.hpp"
#include "editors/language_editor.hpp"
#include "platform/headless/dialogs.hpp"
#include "tests/presentation/window_fixture.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/vocabulary_builder.hpp"
#include "tests/windows/form_pictures.hpp"
#include "tests/windows/screen_session.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;

class Gallery : public ScreenSession {
 public:
  Gallery(std::string folder, int dots) : ScreenSession(dots), folder_(std::move(folder)) {
    Prepare_Session(session);
    Prepare_Session(answered);
  }

  // A session whose input boxes and file dialogs are answered unseen.
  headless::Dialogs answers;
  Session answered{Ports{events, boxes, host, cues, shell, riff_files, wave_input, wave_output,
                         data_files, answers, views}};

  // A picture of the window that is in front a while after the show has begun. It closes then, and
  // so does whatever it asks.
  void Show(const std::string& name, const std::function<void()>& show) {
    bool is_taken = false;
    const auto timer = events.Make_Timer(400ms, [&] {
      const HWND window = Front_Window();
      if (!window) return;
      if (!std::exchange(is_taken, true)) Save(window, name);
      PostMessageW(window, WM_CLOSE, 0, 0);
    });
    timer->Enable(true);
    show();
    Wait(500ms);
  }
  void Wait(std::chrono::milliseconds time) {
    bool is_over = false;
    const auto timer = events.Make_Timer(time, [&] { is_over = true; });
    timer->Enable(true);
    while (!is_over) events.Wait_For_Events();
  }

 private:
  // The active one or, where what shows leaves the keyboard alone, the first that is visible.
  static HWND Front_Window() {
    HWND front = GetForegroundWindow();
    const auto look = [](HWND window, LPARAM found) WINAPI -> BOOL {
      if (!IsWindowVisible(window)) return TRUE;
      *reinterpret_cast<HWND*>(found) = window;
      return FALSE;
    };
    if (!front) {
      EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&front));
    }
    return front;
  }
  void Save(HWND window, const std::string& name) {
    RECT place{};
    GetWindowRect(window, &place);
    Picture picture(place.right - place.left, place.bottom - place.top);
    const HDC screen = GetDC(nullptr);
    BitBlt(picture.Device(), 0, 0, picture.Width(), picture.Height(), screen, place.left, place.top,
           SRCCOPY);
    ReleaseDC(nullptr, screen);
    picture.Save(folder_ + "/" + name + ".bmp");
    std::cout << name << ": " << picture.Width() << " x " << picture.Height() << '\n';
  }

  std::string folder_;
};

std::vector<Record> A_Full_File() {
  Record computer;
  computer.Word("computer", 90).Word("ordinateur, in another language of yours", 75);
  for (const char* const pattern : {"k[a-e]*", "*f?mpj[t-u]*", "kefmpjutfr", "?e*mp*"}) {
    computer.Pattern(pattern, 80);
  }
  return {computer, Record().Word("hello", 60).Pattern("h*o", 70)};
}

// Two humps of a rising tone, and the bounds of their words.
void Put_Sample(Session& session) {
  std::vector<std::int16_t> grid;
  for (int i = 0; i < 600; ++i) {
    const double hump = std::max(0.0, std::sin(i / 95.0)) + std::max(0.0, -std::sin(i / 95.0)) / 2;
    grid.push_back(static_cast<std::int16_t>(100 * hump * std::sin(i * (0.5 + i / 900.0))));
  }
  Put_Grid(session, grid);
  Put_Words(session, {{300, 6600}, {7400, 14'000}});
}

void Show_Vocabulary_And_Engine(Gallery& gallery) {
  Session& session = gallery.answered;
  gallery.Show("vocabulary_and_engine_empty",
               [&] { session.operations.Show_DatabaseVE(session, true); });
  Put_Engine_File(gallery.data_files, "my.EGN",
                  {{0, "_"}, {1, "dbtrvgp"}, {4, "oa"}, {16, "AkgHfthjjs"}, {60, "s"}});
  datafiles::VocRecord curve = Curve("namaste", {});
  for (int i = 1; i <= 50; ++i) curve.VocabularySamples(i, 64 + 40 * std::sin(i / 6.0));
  curve.VocabularySampleCount(50);
  gallery.data_files.files["my.SAY"] = Vocabulary_File({curve, Curve("fall", {30, 20})});
  const auto show = [&](const std::string& name, const char* menu, const std::string& file) {
    VocabularyAndEngineEditor editor(session);
    gallery.Show(name, [&] {
      editor.Load();
      editor.Show(false);
      gallery.answers.texts = {file};
      editor.DatabaseVE().Choose_Menu(menu);
      gallery.Wait(900ms);
      editor.Unload();
    });
  };
  show("engine", "mnuEFoef", "my.EGN");
  show("vocabulary", "Opmu", "my.SAY");
  gallery.host.path = "C:\\vb6.exe";  // where the lists and the status show
  session.flags.Design_Environment_Tested = False;
  show("vocabulary_list", "Opmu", "my.SAY");
}

void Show_Status_And_Graph(Gallery& gallery) {
  Session& session = gallery.answered;
  session.settings.I_want_Status_Animation = "YES";
  for (const int mode : {1, 2}) {
    gallery.Show(mode == 1 ? "status_listening" : "status_busy",
                 [&] { session.operations.Show_Status_Image(session, mode); });
  }
  Put_Sample(session);
  gallery.Show("graph", [&] { session.operations.Draw_Audio_Graph(session); });
}

void Show_Language_Lists(Gallery& gallery) {
  Session& session = gallery.answered;
  session.settings.Consider_this_Lang_File_to_Add = "full.SAY";
  for (const auto& [name, menu] :
       {std::pair{"language_list", "mnuView"}, {"summary", "mnuTWord"}}) {
    LanguageEditor editor(session);
    gallery.Show(name, [&] {
      editor.Load();
      editor.Show(false);
      editor.Database().Choose_Menu(menu);
      gallery.Wait(900ms);
      editor.Unload();
    });
  }
}

void Show_All(Gallery& gallery) {
  Session& session = gallery.session;
  const Operations& operations = session.operations;
  gallery.Show("help", [&] { operations.Show_Help(session); });
  gallery.Show("chooser", [&] { operations.Show_Splash(session); });
  gallery.Show("coming", [&] { operations.Show_ComingSplash(session); });
  gallery.Show("input_box", [&] {
    Ask_Text(session, "Open this existing or new *.say File :", "Open:", "animals.SAY");
  });
  gallery.Show("input_box_long", [&] {
    Ask_Text(session, "Edit R&D's pattern : " + std::string(100, 'w'), "Pattern:", "k[a-e]*");
  });
  gallery.Show("file_dialog",
               [&] { Ask_File(session, "Open Quillspeech Language Editor", "*.SAY", "*.SAY"); });
  gallery.Show("question", [&] {
    Show_Box(session, "Are you sure you want to delete this record ?",
             "Quillspeech Language Editor", BoxIcon::None, BoxButtons::YesNo);
  });
  session.settings.Consider_this_Lang_File_to_Add = "empty.SAY";
  gallery.Show("language_editor_empty", [&] { operations.Show_Database(session, true); });
  Put_Language_File(gallery.data_files, "full.SAY", A_Full_File());
  session.settings.Consider_this_Lang_File_to_Add = "full.SAY";
  gallery.Show("language_editor", [&] { operations.Show_Database(session, true); });
  Show_Vocabulary_And_Engine(gallery);
  Show_Status_And_Graph(gallery);
  Show_Language_Lists(gallery);
}

}  // namespace
}  // namespace quillspeech::tests

int main(int count, char** arguments) {
  if (count < 2) return 2;
  quillspeech::tests::Gallery gallery(arguments[1], count > 2 ? std::atoi(arguments[2]) : 96);
  quillspeech::tests::Show_All(gallery);
}
