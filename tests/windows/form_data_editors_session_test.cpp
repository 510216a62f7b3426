// An engine file and a vocabulary file edited at the real windows of the Vocabulary and Engine
// Editor, by mouse and keyboard.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <thread>

#include "core/operations.hpp"
#include "platform/windows/data_file.hpp"
#include "platform/windows/text.hpp"
#include "tests/support/data_file_bytes.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/windows/person.hpp"
#include "tests/windows/screen_session.hpp"
#include "tests/windows/thread_windows.hpp"

namespace quillspeech::tests {
namespace {

// The person's hands at the editor's window, on her own thread.
class Hands {
 public:
  // An entry by the captions that lead to it, "#3" the third from above.
  void Choose(const std::vector<std::string>& road) const {
    const HWND window = Window();
    const UINT command = Await<UINT>([&] { return Command(GetMenu(window), road); });
    PostMessageW(window, WM_COMMAND, command, 0);
  }
  // The first entry of the first menu whose letter that is.
  void Choose_By_Letter(char letter) const {
    const HWND window = Window();
    PostMessageW(window, WM_SYSKEYDOWN, VK_F10, 1);
    PostMessageW(window, WM_SYSKEYUP, VK_F10, static_cast<LPARAM>(0xC0000001));
    PostMessageW(window, WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(window, WM_CHAR, static_cast<unsigned char>(letter), 1);
  }
  void Click(const std::string& caption) const {
    const HWND window = Window();
    const HWND button = Await<HWND>([&] {
      const HWND found = Part(window, caption);
      return found && IsWindowEnabled(found) ? found : nullptr;
    });
    PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  }
  // Until a field or a label shows it.
  void See(const std::string& text) const {
    const HWND window = Window();
    Await<HWND>([&] { return Part(window, text); });
  }

 private:
  template <class Found, class Look>
  static Found Await(const Look& look) {
    const DWORD begun = GetTickCount();
    while (GetTickCount() - begun < 10'000) {
      if (const Found found = look()) return found;
      Sleep(2);
    }
    throw std::runtime_error("what is looked for does not come");
  }

  // Of the windows that take input, the one with menus.
  HWND Window() const {
    return Await<HWND>([this] {
      const std::vector<HWND> all = Windows_Of(thread_);
      const auto found = std::ranges::find_if(all, [](HWND window) {
        return IsWindowVisible(window) && IsWindowEnabled(window) && GetMenu(window);
      });
      return found == all.end() ? nullptr : *found;
    });
  }

  static HWND Part(HWND window, const std::string& text) {
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      wchar_t shown[256] = {};
      DWORD_PTR length = 0;
      SendMessageTimeoutW(child, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(shown), SMTO_NORMAL,
                          1000, &length);
      if (windows::Narrow(shown) == text) return child;
      if (const HWND inner = Part(child, text)) return inner;
    }
    return nullptr;
  }

  // 0: it is not there, or gray.
  static UINT Command(HMENU menu, const std::vector<std::string>& road) {
    UINT command = 0;
    for (const std::string& step : road) {
      const int place = Place_In(menu, step);
      MENUITEMINFOW item{};
      item.cbSize = sizeof item;
      item.fMask = MIIM_ID | MIIM_SUBMENU | MIIM_STATE;
      const auto by_place = static_cast<UINT>(place);
      if (place < 0 || !GetMenuItemInfoW(menu, by_place, TRUE, &item)) return 0;
      if ((item.fState & MFS_GRAYED) != 0) return 0;
      command = item.wID;
      menu = item.hSubMenu;
    }
    return command;
  }
  static int Place_In(HMENU menu, const std::string& step) {
    if (step[0] == '#') return std::stoi(step.substr(1)) - 1;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      wchar_t caption[256] = {};
      GetMenuStringW(menu, static_cast<UINT>(i), caption, 256, MF_BYPOSITION);
      if (windows::Narrow(caption) == step) return i;
    }
    return -1;
  }

  DWORD thread_ = GetCurrentThreadId();
};

struct FormDataEditors : testing::Test, TemporaryFolder {
  FormDataEditors() { Prepare_Session(session); }

  // The window shows until she is done; what went wrong for her, if anything did.
  template <class Acts>
  std::string Perform(const Acts& acts) {
    Person person;
    const Hands hands;
    std::string trouble;
    std::thread thread([&] {
      try {
        acts(hands, person);
      } catch (const std::exception& failure) {
        trouble = failure.what();
      }
      person.Leave();
      is_done = true;
      screen.events.Wake();
    });
    session.operations.Show_DatabaseVE(session, true);
    while (!is_done) screen.events.Wait_For_Events();
    thread.join();
    return trouble;
  }

  static SessionBox Asked(const std::string& title, const std::string& prompt,
                          const std::string& answer, const std::string& proposed = {}) {
    return {SessionBox::Kind::Input, title, prompt, proposed, answer};
  }
  static SessionBox Question(const std::string& title, const std::string& text) {
    return {SessionBox::Kind::Question, title, text, {}, "Yes"};
  }

  ScreenSession screen;
  windows::DataFileStore files{windows::NameEncoding::Windows1252};
  Session session{Ports{screen.events, screen.boxes, screen.host, screen.cues, screen.shell,
                        screen.riff_files, screen.wave_input, screen.wave_output, files,
                        screen.dialogs, screen.views}};
  std::atomic<bool> is_done = false;
};

TEST_F(FormDataEditors, An_engine_file_is_edited_in_two_groups_and_saved) {
  const std::string name = Put("my.EGN", Engine_Record_Bytes(1, {{0, "_"}, {61, "kept"}}));
  EXPECT_EQ(
      Perform([&](const Hands& hands, Person& person) {
        hands.Choose({"Engine Open/Save ", "Open Engine File"});
        person.Answer(Asked("Open:", "Open this existing or new *.egn File :", name));
        hands.Choose({"Code for 02", "#2"});
        person.Answer(Asked("Enter vyanjana:", "Please enter your data here for 02 ...2", "a&b"));
        hands.Choose({"Code for 1523", "#1"});
        person.Answer(
            Asked("Enter vyanjana:", "Please enter your data here for 1523 ...16", " kgh "));
        hands.Choose({"Engine Open/Save ", "Save Engine File"});
        person.Answer(Question("Quillspeech Engine Editor",
                               "Are you ready to save this engine record in file  " + name));
      }),
      "");
  EXPECT_EQ(Content("my.EGN"),
            Engine_Record_Bytes(1, {{0, "_"}, {1, "a&b"}, {16, "kgh"}, {61, "kept"}}));
}

TEST_F(FormDataEditors, Curves_are_renamed_cut_pasted_found_by_name_and_deleted) {
  const std::string name =
      Put("my.SAY", Joined({Vocabulary_Record_Bytes(1, "rise", {7, 1, 2.5, 128}, 3),
                            Vocabulary_Record_Bytes(2, "fall", {0, 30, 20}, 2),
                            Vocabulary_Record_Bytes(3, "third", {0, 5}, 1)}));
  EXPECT_EQ(Perform([&](const Hands& hands, Person& person) {
              hands.Choose_By_Letter('f');
              person.Answer(Asked("Open:", "Open this existing or new *.say File :", name));
              hands.See("rise");
              hands.Choose({"Record", "&Rename"});
              person.Answer(Asked("Rename:", "Enter the New Name:", "dawn", "XYZ"));
              hands.Click("Next >");
              hands.See("fall");
              hands.Choose({"Record", "&Cut"});
              person.Answer(Question("Quillspeech Language Editor",
                                     "Are you sure you want to delete this record ?"));
              hands.Choose({"Record", "&Paste (Add)"});
              person.Answer(
                  Question("Quillspeech Vocabulary Development", "Add data in Memory to file ?"));
              hands.See("fall");
              hands.Choose({"Query", "&Find", "By &Name"});
              person.Answer(Asked("Find :", "Enter Target Name", "third"));
              hands.See("third");
              hands.Choose({"Record", "&Delete"});
            }),
            "");
  EXPECT_EQ(Content("my.SAY"),
            Joined({Vocabulary_Record_Bytes(1, "dawn", {7, 1, 2.5, 128}, 3),
                    Vocabulary_Record_Bytes(2, "", {}, 0), Vocabulary_Record_Bytes(3, "", {}, 0),
                    Vocabulary_Record_Bytes(4, "fall", {0, 30, 20}, 2)}));
}

}  // namespace
}  // namespace quillspeech::tests
