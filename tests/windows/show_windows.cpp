// Shows the windows of the session one after the other and writes pictures of the screen where they
// stand, frames and menu bars with them: show_windows FOLDER [DOTS PER INCH]
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

#include "core/operations.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/windows/form_pictures.hpp"
#include "tests/windows/screen_session.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;

class Gallery : public ScreenSession {
 public:
  Gallery(std::string folder, int dots) : ScreenSession(dots), folder_(std::move(folder)) {
    Prepare_Session(session);
  }

  // A picture of the window that is active a while after the show has begun. It closes then, and so
  // does whatever it asks.
  void Show(const std::string& name, const std::function<void()>& show) {
    bool is_taken = false;
    const auto timer = events.Make_Timer(400ms, [&] {
      const HWND window = GetForegroundWindow();
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

void Show_All(Gallery& gallery) {
  Session& session = gallery.session;
  const Operations& operations = session.operations;
  gallery.Show("help", [&] { operations.Show_Help(session); });
  gallery.Show("chooser", [&] { operations.Show_Splash(session); });
  gallery.Show("coming", [&] { operations.Show_ComingSplash(session); });
  gallery.Show("input_box", [&] {
    Ask_Text(session, "Open this existing or new *.say File :", "Open:", "animals.SAY");
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
}

}  // namespace
}  // namespace quillspeech::tests

int main(int count, char** arguments) {
  if (count < 2) return 2;
  quillspeech::tests::Gallery gallery(arguments[1], count > 2 ? std::atoi(arguments[2]) : 96);
  quillspeech::tests::Show_All(gallery);
}
