// Before which window a form shows, and where.
#include <gtest/gtest.h>

#include "platform/windows/form_layout.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

// A window of the program around.
class ProgramWindow {
 public:
  ProgramWindow(HWND owner, DWORD visible)
      : window_(CreateWindowExW(0, L"STATIC", L"Program", WS_POPUP | visible, 150, 250, 500, 400,
                                owner, nullptr, nullptr, nullptr)) {}
  ~ProgramWindow() { DestroyWindow(window_); }
  ProgramWindow(const ProgramWindow&) = delete;
  ProgramWindow& operator=(const ProgramWindow&) = delete;

  HWND Window() const { return window_; }

 private:
  HWND window_;
};

struct FormOwner : FormScreen {
  HWND Owner_Of(const Form& shown) const {
    return GetWindow(reinterpret_cast<HWND>(views.Window_Of(shown)), GW_OWNER);
  }
  void Expect_In_The_Middle_Of(const RECT& around) const {
    const RECT place = Place_On_Screen(Window());
    EXPECT_NEAR(place.left + place.right, around.left + around.right, 1);
    EXPECT_NEAR(place.top + place.bottom, around.top + around.bottom, 1);
  }
};

TEST_F(FormOwner, Is_the_window_that_shows_where_the_program_keeps_a_hidden_one_behind_it) {
  const ProgramWindow hidden(nullptr, 0);
  const ProgramWindow shown(hidden.Window(), WS_VISIBLE);
  SetActiveWindow(shown.Window());
  Show();
  EXPECT_EQ(Owner_Of(*form), shown.Window());
  Expect_In_The_Middle_Of(Place_On_Screen(shown.Window()));
}

TEST_F(FormOwner, Is_the_programs_main_window_and_not_a_dialog_before_it) {
  const ProgramWindow hidden(nullptr, 0);
  const ProgramWindow main(hidden.Window(), WS_VISIBLE);
  const ProgramWindow dialog(main.Window(), WS_VISIBLE);
  SetActiveWindow(dialog.Window());
  Show();
  EXPECT_EQ(Owner_Of(*form), main.Window());
}

TEST_F(FormOwner, Is_no_window_without_a_size_though_it_counts_as_visible) {
  const ProgramWindow hidden(nullptr, WS_VISIBLE);
  MoveWindow(hidden.Window(), 0, 0, 0, 0, FALSE);
  const ProgramWindow shown(hidden.Window(), WS_VISIBLE);
  SetActiveWindow(shown.Window());
  Show();
  EXPECT_EQ(Owner_Of(*form), shown.Window());
}

TEST_F(FormOwner, Is_that_of_the_form_from_which_it_is_shown) {
  const ProgramWindow hidden(nullptr, 0);
  const ProgramWindow main(hidden.Window(), WS_VISIBLE);
  SetActiveWindow(main.Window());
  Show();
  ASSERT_EQ(GetActiveWindow(), Window());
  Form other("Form2", "Beside", {1500, 1500});
  views.Show(other, Modality::None);
  EXPECT_EQ(Owner_Of(other), main.Window());
}

TEST_F(FormOwner, Is_never_a_window_that_another_form_owns) {
  Show();
  const ProgramWindow dialog(Window(), WS_VISIBLE);
  SetActiveWindow(dialog.Window());
  Form other("Form2", "Beside", {1500, 1500});
  views.Show(other, Modality::None);
  EXPECT_EQ(Owner_Of(other), nullptr);
}

TEST_F(FormOwner, May_be_hidden_and_leaves_the_form_in_the_middle_of_the_screen) {
  const ProgramWindow hidden(nullptr, 0);
  views.Owner = [&] { return hidden.Window(); };
  SetActiveWindow(nullptr);
  Show();
  EXPECT_EQ(Owner_Of(*form), hidden.Window());
  RECT desktop{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &desktop, 0);
  Expect_In_The_Middle_Of(desktop);
}

}  // namespace
}  // namespace quillspeech::tests
