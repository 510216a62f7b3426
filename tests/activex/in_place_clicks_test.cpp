// Clicks on the face of an active control.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/activex/in_place_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using InPlaceClicks = InPlaceTest;

TEST_F(InPlaceClicks,
       A_start_with_incomplete_settings_tells_so_and_then_of_its_status_all_the_same) {
  EventSink sink;
  sink.Connect(*control);
  Activate();
  Start();
  EXPECT_EQ(session().flags.Session_Alive, 0);
  sink.heard.clear();
  while (sink.heard.empty()) Module::Of_This_File().Events().Wait_For_Events();
  EXPECT_EQ(sink.heard.front(), EventId::PropertyStatusBetweenDetectionToCoversion);
  sink.Disconnect();
}

TEST_F(InPlaceClicks, A_failure_that_nobody_traps_is_told_in_a_box) {
  EventSink sink;
  sink.Connect(*control);
  Activate_UI();
  sink.At_Event = [] { Fail(Failure::Division_By_Zero); };
  std::wstring words;
  BoxCloser closer(L"Quillspeech", [&] {
    const HWND box = FindWindowW(nullptr, L"Quillspeech");
    wchar_t text[100] = {};
    GetDlgItemTextW(box, 0xFFFF, text, 100);
    words = text;
    container.Expect({"Frame.EnableModeless"});
  });
  container.Expect({"Frame.EnableModeless none", "OnFocus lost"});
  Press_Mouse(Child(L"Sleeping"));
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(words, L"Division by zero");
  EXPECT_TRUE(IsWindowVisible(Window()));
  sink.Disconnect();
}

TEST_F(InPlaceClicks, In_design_mode_every_click_falls_through_to_the_container) {
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  Activate();
  const HWND button = Child(L"Stop Recognition Activity");
  ASSERT_TRUE(button);
  EXPECT_EQ(SendMessageW(Window(), WM_NCHITTEST, 0, 0), HTTRANSPARENT);
  EXPECT_EQ(SendMessageW(button, WM_NCHITTEST, 0, 0), HTTRANSPARENT);
}

TEST_F(InPlaceClicks, A_button_pressed_at_run_time_acts_on_the_session) {
  EventSink sink;
  sink.Connect(*control);
  Activate_UI();
  session().flags.Session_Alive = -1;
  SendMessageW(Child(L"Stop Recognition Activity"), BM_CLICK, 0, 0);
  EXPECT_EQ(sink.heard, std::vector{EventId::StopRecognitionActivity});
  sink.Disconnect();
}

TEST_F(InPlaceClicks, A_click_on_a_frame_or_on_the_status_is_a_click_on_the_control) {
  EventSink sink;
  sink.Connect(*control);
  Activate_UI();
  const HWND status = Child(L"Sleeping");
  for (const HWND part : {GetParent(Child(L"Pattern :")), GetParent(status), status}) {
    Press_Mouse(part);
    EXPECT_EQ(sink.heard, std::vector{EventId::Click});
    sink.heard.clear();
  }
  sink.Disconnect();
}

TEST_F(InPlaceClicks, A_click_beside_its_parts_on_a_box_or_on_a_button_is_none) {
  EventSink sink;
  sink.Connect(*control);
  Activate_UI();
  Press_Mouse(Window());
  for (const wchar_t* const part :
       {L"Pattern :", L"Spoken Word :", L"Restart Recogniton Activity", L"Quillspeech Editor",
        L"Stop Recognition Activity", L"Start Recognition Activity"}) {
    ASSERT_TRUE(Child(part)) << part;
  }
  for (const wchar_t* const part : {L"Pattern :", L"Spoken Word :", L"Restart Recogniton Activity",
                                    L"Stop Recognition Activity"}) {
    Press_Mouse(Child(part));
  }
  container.Expect({"Frame.EnableModeless none", "OnFocus lost"});
  BoxCloser closer(L"Quillspeech Start", [this] { container.Expect({"Frame.EnableModeless"}); });
  Press_Mouse(Child(L"Start Recognition Activity"));
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(std::ranges::count(sink.heard, EventId::Click), 0);
  sink.Disconnect();
}

TEST_F(InPlaceClicks, A_container_may_let_go_of_it_when_a_button_asks_for_its_mode) {
  Activate();
  Let_Go_When_Asked();
  Press(L"Stop Recognition Activity");
  EXPECT_EQ(terminations, 1);
}

TEST_F(InPlaceClicks, The_file_stays_loaded_behind_a_box_whose_control_has_gone) {
  Activate();
  bool can_unload = true;
  container.Expect({"Frame.EnableModeless none"});
  BoxCloser closer(L"Quillspeech Start", [&] {
    container.Expect({"OnInPlaceDeactivate"});
    Withdraw();
    control = nullptr;
    can_unload = Module::Of_This_File().Can_Unload();
    container.Expect({"Frame.EnableModeless"});
  });
  Press(L"Start Recognition Activity");
  EXPECT_EQ(closer.closed, 1);
  EXPECT_FALSE(can_unload);
  EXPECT_TRUE(Module::Of_This_File().Can_Unload());
}

TEST_F(InPlaceClicks, The_control_may_go_while_one_of_its_buttons_is_pressed) {
  EventSink sink;
  sink.Connect(*control);
  Activate_UI();
  session().flags.Session_Alive = -1;
  sink.At_Event = [this] {
    container.Expect_UI_Deactivation();
    container.Expect({"OnFocus lost", "OnInPlaceDeactivate"});
    Withdraw();
    control = nullptr;
  };
  const HWND button = Child(L"Stop Recognition Activity");
  SendMessageW(button, BM_CLICK, 0, 0);
  EXPECT_EQ(sink.heard.size(), 1u);
  EXPECT_EQ(terminations, 1);
  EXPECT_FALSE(IsWindow(button));
}

TEST_F(InPlaceClicks, A_disabled_control_takes_no_clicks) {
  Activate();
  EXPECT_EQ(Let("Enabled", "False"), S_OK);
  EXPECT_FALSE(IsWindowEnabled(Window()));
  EXPECT_EQ(Let("Enabled", "True"), S_OK);
  EXPECT_TRUE(IsWindowEnabled(Window()));
}

}  // namespace
}  // namespace quillspeech::activex::tests
