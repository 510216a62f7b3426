#include "activex/modality.hpp"

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using ModalityTest = OleTest;

HWND Owner_Of_Box() { return GetWindow(FindWindowW(nullptr, L"Quillspeech Start"), GW_OWNER); }

TEST_F(ModalityTest, A_box_lies_before_the_window_around_an_active_control_whose_frame_is_told) {
  Place();
  Activate();
  SetActiveWindow(nullptr);
  session().flags.Settings_Ready_Count = 0;
  HWND owner = nullptr;
  container.Expect({"Frame.EnableModeless none"});
  BoxCloser closer(L"Quillspeech Start", [&] {
    container.Done();
    owner = Owner_Of_Box();
    container.Expect({"Frame.EnableModeless"});
  });
  Call("Start_Real_Action");
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(owner, container.window);
  container.Done();
  Deactivate();
}

TEST_F(ModalityTest, The_frame_of_a_control_that_goes_behind_the_box_is_told_of_the_end_too) {
  Place();
  Activate();
  session().flags.Settings_Ready_Count = 0;
  container.Expect({"Frame.EnableModeless none"});
  BoxCloser closer(L"Quillspeech Start", [&] {
    container.Expect({"OnInPlaceDeactivate"});
    Withdraw();
    container.Expect({"Frame.EnableModeless"});
  });
  Call("Start_Real_Action");
  EXPECT_EQ(closer.closed, 1);
}

// As the Language Editor of a live session, which asks from inside its handlers.
TEST_F(ModalityTest, A_box_lies_before_the_form_that_is_active_and_gives_it_the_keyboard_back) {
  Place();
  Activate();
  Form form("Form1", "Modeless", {3000, 3000});
  auto& views = static_cast<windows::FormViews&>(session().ports.views);
  views.Show(form, Modality::None);
  const HWND window = reinterpret_cast<HWND>(views.Window_Of(form));
  SetActiveWindow(window);
  session().flags.Settings_Ready_Count = 0;
  HWND owner = nullptr;
  container.Expect({"Frame.EnableModeless none", "Frame.EnableModeless"});
  BoxCloser closer(L"Quillspeech Start", [&] { owner = Owner_Of_Box(); });
  Call("Start_Real_Action");
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(owner, window);
  EXPECT_EQ(GetActiveWindow(), window);
  form.Unload();
  Deactivate();
}

// As the audio graph, which would take the box with it when it goes.
TEST_F(ModalityTest, A_box_does_not_lie_before_a_form_that_stands_aside) {
  Place();
  Activate();
  Form form("Form1", "Aside", {3000, 3000});
  form.Set_Stands_Aside();
  auto& views = static_cast<windows::FormViews&>(session().ports.views);
  views.Show(form, Modality::None);
  SetActiveWindow(reinterpret_cast<HWND>(views.Window_Of(form)));
  session().flags.Settings_Ready_Count = 0;
  HWND owner = nullptr;
  container.Expect({"Frame.EnableModeless none", "Frame.EnableModeless"});
  BoxCloser closer(L"Quillspeech Start", [&] { owner = Owner_Of_Box(); });
  Call("Start_Real_Action");
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(owner, container.window);
  form.Unload();
  Deactivate();
}

TEST_F(ModalityTest, Without_an_active_control_no_frame_is_told) {
  Place();
  session().flags.Settings_Ready_Count = 0;
  BoxCloser closer(L"Quillspeech Start", [] {});
  Call("Start_Real_Action");
  EXPECT_EQ(closer.closed, 1);
}

}  // namespace
}  // namespace quillspeech::activex::tests
