// What asks a person for a text or a file, answered as by one.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "platform/windows/dialogs.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/windows/form_screen.hpp"
#include "tests/windows/thread_windows.hpp"

namespace quillspeech::tests {
namespace {

struct FormDialogs : FormScreen, TemporaryFolder {
  // Asks, and does that once the dialog has come up.
  std::string Answer_To(const InputBox& box, const std::function<void(HWND)>& act) {
    bool is_done = false;
    Later([&] {
      if (!std::exchange(is_done, true)) act(views.Modal_Window());
    });
    const std::string answer = dialogs.Ask_Text(box);
    later.clear();
    return answer;
  }
  static HWND Answer_Field(HWND box) { return FindWindowExW(box, nullptr, L"EDIT", nullptr); }

  static int Height_Of(HWND window) {
    const RECT place = Place_On_Screen(window);
    return static_cast<int>(place.bottom - place.top);
  }

  // Asks; when the dialog is up, `act` gets it and the field for the name, until it answers true.
  std::string File_Answer_To(const FileDialog& dialog, const std::function<bool(HWND, HWND)>& act) {
    bool is_done = false;
    const auto timer = loop.Make_Timer(std::chrono::milliseconds(50), [&] {
      const HWND up = Dialog_That_Is_Up();
      if (up && !is_done) is_done = act(up, Name_Field(up));
    });
    timer->Enable(true);
    return dialogs.Ask_File(dialog);
  }
  static HWND Name_Field(HWND dialog) {
    const HWND combo = GetDlgItem(dialog, 0x47c);
    const HWND inner = combo ? FindWindowExW(combo, nullptr, L"ComboBox", nullptr) : nullptr;
    const HWND field = FindWindowExW(inner ? inner : combo, nullptr, L"Edit", nullptr);
    return field ? field : GetDlgItem(dialog, 0x480);
  }

  windows::Dialogs dialogs{views};
};

TEST_F(FormDialogs, A_typed_text_and_Enter_are_the_answer) {
  const InputBox box{"Find:", "Enter Reference Number", ""};
  EXPECT_EQ(Answer_To(box,
                      [](HWND up) {
                        Type(Answer_Field(up), "12");
                        Press(Answer_Field(up), VK_RETURN);
                      }),
            "12");
}

TEST_F(FormDialogs, What_stands_in_it_at_first_is_replaced_by_what_is_typed) {
  const InputBox box{"Rename:", "Enter the New Name:", "XYZ"};
  std::string title;
  EXPECT_EQ(Answer_To(box,
                      [&](HWND up) {
                        title = Text_Of(up);
                        EXPECT_EQ(Text_Of(Answer_Field(up)), "XYZ");
                        EXPECT_NE(Child_With_Text(up, "Enter the New Name:"), nullptr);
                        Type(Answer_Field(up), "new");
                        Press_Mouse(Child_With_Text(up, "OK"));
                      }),
            "new");
  EXPECT_EQ(title, "Rename:");
}

TEST_F(FormDialogs, Cancel_Escape_and_the_cross_answer_nothing) {
  const InputBox box{"Rename:", "Enter the New Name:", "XYZ"};
  EXPECT_EQ(Answer_To(box, [](HWND up) { Press_Mouse(Child_With_Text(up, "Cancel")); }), "");
  later.clear();
  EXPECT_EQ(Answer_To(box, [](HWND up) { Press(Answer_Field(up), VK_ESCAPE); }), "");
  later.clear();
  EXPECT_EQ(Answer_To(box, [](HWND up) { PostMessageW(up, WM_CLOSE, 0, 0); }), "");
}

TEST_F(FormDialogs, An_emptied_text_is_as_good_as_a_cancel) {
  const InputBox box{"Rename:", "Enter the New Name:", "XYZ"};
  EXPECT_EQ(Answer_To(box,
                      [](HWND up) {
                        Press(Answer_Field(up), VK_DELETE);
                        Press(Answer_Field(up), VK_RETURN);
                      }),
            "");
}

TEST_F(FormDialogs, A_modal_form_waits_behind_the_input_box_and_comes_back) {
  Later([this] {
    later.clear();
    EXPECT_EQ(Answer_To({"Find:", "Enter", ""},
                        [this](HWND up) {
                          EXPECT_FALSE(IsWindowEnabled(Window()));
                          Press(Answer_Field(up), VK_ESCAPE);
                        }),
              "");
    EXPECT_TRUE(IsWindowEnabled(Window()));
    EXPECT_EQ(views.Modal_Window(), Window());
    form->Unload();
  });
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(views.Modal_Window(), nullptr);
}

TEST_F(FormDialogs, A_modal_form_that_hides_behind_the_input_box_gives_nothing_back_before_it) {
  const HostWindow host;
  Later([&] {
    later.clear();
    Answer_To({"Find:", "Enter", ""}, [&](HWND up) {
      views.Hide(*form);
      EXPECT_FALSE(IsWindowEnabled(host.Window()));
      EXPECT_EQ(views.Modal_Window(), up);
      Press(Answer_Field(up), VK_ESCAPE);
    });
    EXPECT_TRUE(IsWindowEnabled(host.Window()));
    EXPECT_EQ(views.Modal_Window(), nullptr);
  });
  views.Show(*form, Modality::Modal);
  EXPECT_TRUE(IsWindowEnabled(Window()));
}

TEST_F(FormDialogs, A_prompt_shows_character_for_character) {
  Answer_To({"Find:", "R&D costs & more", ""}, [](HWND up) {
    // Two stand for one in a caption.
    EXPECT_NE(Child_With_Text(up, "R&&D costs && more"), nullptr);
    Press(Answer_Field(up), VK_ESCAPE);
  });
}

TEST_F(FormDialogs, A_prompt_without_blanks_is_broken_and_the_box_grows_with_it) {
  int low = 0;
  int high = 0;
  Answer_To({"Edit:", "Pattern", ""}, [&](HWND up) {
    low = Height_Of(up);
    Press(Answer_Field(up), VK_ESCAPE);
  });
  later.clear();
  const std::string pattern(300, 'w');
  Answer_To({"Edit:", "Pattern " + pattern, ""}, [&](HWND up) {
    high = Height_Of(up);
    const HWND label = FindWindowExW(up, nullptr, L"STATIC", nullptr);
    std::string shown = Text_Of(label);
    EXPECT_GT(std::erase(shown, '\n'), 5);
    EXPECT_EQ(shown, "Pattern " + pattern);
    EXPECT_LE(Place_On_Screen(label).bottom, Place_On_Screen(Answer_Field(up)).top);
    Press(Answer_Field(up), VK_ESCAPE);
  });
  EXPECT_GT(high, low + 40);
}

TEST_F(FormDialogs, An_endless_prompt_leaves_the_box_on_the_screen) {
  Answer_To({"Edit:", std::string(5000, 'w'), ""}, [](HWND up) {
    EXPECT_LT(Height_Of(up), 300);
    Press(Answer_Field(up), VK_ESCAPE);
  });
}

TEST_F(FormDialogs, A_form_that_is_modal_already_is_not_so_twice) {
  Later([this] {
    views.Show(*form, Modality::Modal);
    heard.emplace_back("returned");
    form->Unload();
  });
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(heard, (Heard{"Form_Load", "returned", "Form_Unload"}));
}

TEST_F(FormDialogs, What_begins_with_a_modal_show_is_kept_until_it_ends) {
  int kept = 0;
  views.Modal_Time = [&] {
    ++kept;
    return std::shared_ptr<const void>(&kept, [&](const void*) { --kept; });
  };
  Later([&] {
    EXPECT_EQ(kept, 1);
    form->Unload();
  });
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(kept, 0);
}

TEST_F(FormDialogs, The_screens_fonts_are_listed_once_each_and_in_order) {
  const auto names = views.Font_Names();
  EXPECT_GT(names.size(), 3U);
  EXPECT_TRUE(std::ranges::is_sorted(names));
  EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
  EXPECT_TRUE(std::ranges::none_of(names, [](const auto& name) { return name[0] == '@'; }));
}

TEST_F(FormDialogs, A_file_is_chosen_by_its_name_and_the_folder_of_the_process_stays) {
  const std::string wanted = Put_Text("animals.SAY", "");
  const auto before = std::filesystem::current_path();
  std::string title;
  const std::string answer = File_Answer_To(
      {"Open Quillspeech Language Editor", "*.SAY", "*.SAY"}, [&](HWND up, HWND field) {
        title = Text_Of(up);
        if (!field) return false;
        SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(windows::Wide(wanted).c_str()));
        PostMessageW(up, WM_COMMAND, IDOK, 0);
        return true;
      });
  EXPECT_EQ(title, "Open Quillspeech Language Editor");
  EXPECT_EQ(std::filesystem::path(answer).filename(), "animals.SAY");
  EXPECT_TRUE(std::filesystem::exists(answer)) << answer;
  EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(FormDialogs, A_name_without_an_extension_gets_that_of_the_pattern) {
  const auto typed = [&](const std::string& pattern, const std::string& name) {
    const std::string whole = Path(name);
    return File_Answer_To({"Open", pattern, ""}, [&](HWND up, HWND field) {
      if (!field) return false;
      SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(windows::Wide(whole).c_str()));
      PostMessageW(up, WM_COMMAND, IDOK, 0);
      return true;
    });
  };
  EXPECT_EQ(std::filesystem::path(typed("*.SAY", "new")).filename().string(), "new.SAY");
  EXPECT_EQ(std::filesystem::path(typed("*.SAY", "new.say")).filename().string(), "new.say");
  EXPECT_EQ(std::filesystem::path(typed("*.*", "new")).filename().string(), "new");
}

TEST_F(FormDialogs, No_other_window_takes_input_while_the_file_dialog_is_up) {
  const HostWindow host;
  Show();
  EXPECT_EQ(File_Answer_To({"Open", "*.SAY", ""},
                           [&](HWND up, HWND) {
                             EXPECT_FALSE(IsWindowEnabled(host.Window()));
                             EXPECT_FALSE(IsWindowEnabled(Window()));
                             PostMessageW(up, WM_COMMAND, IDCANCEL, 0);
                             return true;
                           }),
            "");
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
  EXPECT_TRUE(IsWindowEnabled(Window()));
  EXPECT_EQ(GetActiveWindow(), Window());
}

TEST_F(FormDialogs, A_cancelled_file_dialog_answers_nothing) {
  EXPECT_EQ(File_Answer_To({"Open", "*.SAY", ""},
                           [](HWND up, HWND) {
                             PostMessageW(up, WM_COMMAND, IDCANCEL, 0);
                             return true;
                           }),
            "");
}

TEST_F(FormDialogs, A_name_that_no_file_can_have_is_not_shown) {
  bool came_up = false;
  EXPECT_EQ(File_Answer_To({"Open", "*.SAY", "a<b>|.SAY"},
                           [&](HWND up, HWND) {
                             came_up = true;
                             PostMessageW(up, WM_COMMAND, IDCANCEL, 0);
                             return true;
                           }),
            "");
  EXPECT_TRUE(came_up);
}

}  // namespace
}  // namespace quillspeech::tests
