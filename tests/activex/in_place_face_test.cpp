// What an active control shows, and how it follows the mode of its container.
#include <gtest/gtest.h>

#include "tests/activex/in_place_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using InPlaceFace = InPlaceTest;

TEST_F(InPlaceFace, Its_status_says_sleeping_at_run_time_and_status_update_in_design) {
  Activate();
  EXPECT_TRUE(Child(L"Sleeping"));
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_TRUE(Child(L"Status Update"));
}

TEST_F(InPlaceFace, A_container_without_ambient_properties_is_at_run_time) {
  container.has_ambients = false;
  Activate();
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceFace, A_container_that_answers_with_nothing_is_at_run_time) {
  container.answers_with_nothing = true;
  Activate();
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceFace, A_container_may_let_go_of_it_when_it_asks_for_its_mode_at_a_paint) {
  Activate();
  Dispatch_Messages();
  Let_Go_When_Asked();
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_EQ(terminations, 1);
}

TEST_F(InPlaceFace, An_ambient_property_that_does_not_concern_it_changes_nothing) {
  Activate();
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT), S_OK);
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceFace, Its_status_stays_unless_the_mode_is_another_one) {
  Activate();
  session().flags.Operation_Status = "Speechdetected";
  Tick();
  ASSERT_TRUE(Child(L"Speechdetected"));
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
  Change(DISPID_AMBIENT_UIDEAD, true);
  Change(DISPID_AMBIENT_UIDEAD, false);
  Place();
  EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);  // it shows already
  EXPECT_TRUE(Child(L"Speechdetected"));
  EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceFace, Each_time_its_window_becomes_visible_it_begins_with_the_status_of_its_mode) {
  Activate();
  session().flags.Operation_Status = "Finish";
  Tick();
  ASSERT_TRUE(Child(L"Finish"));
  Deactivate();
  Activate();
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceFace, An_inactive_control_tells_that_its_mode_is_another_one) {
  Activate();
  Deactivate();
  EXPECT_EQ(As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, &container), S_OK);
  container.Expect({"OnViewChange"});
  Change(DISPID_AMBIENT_USERMODE, false);
  container.Done();
  EXPECT_EQ(As<IViewObject>()->SetAdvise(0, 0, nullptr), S_OK);
}

TEST_F(InPlaceFace, What_a_person_types_stays_until_a_result_takes_its_place) {
  Activate();
  const HWND box = Child(L"Spoken Word :");
  SendMessageW(box, EM_SETSEL, 0, -1);
  SendMessageW(box, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"typed"));
  Change(DISPID_AMBIENT_USERMODE, false);  // which changes the status
  EXPECT_TRUE(Child(L"typed"));
  Change(DISPID_AMBIENT_USERMODE, true);
  session().results.Platinum_Best_Table[1] = "hello";
  Tick();
  EXPECT_TRUE(Child(L"hello"));
  session().results.Platinum_Best_Table[1] = "";
}

TEST_F(InPlaceFace, A_refresh_paints_at_once) {
  Activate();
  Dispatch_Messages();
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  EXPECT_EQ(Call("Refresh"), S_OK);
  EXPECT_FALSE(GetUpdateRect(Window(), nullptr, FALSE));
}

TEST_F(InPlaceFace, At_each_paint_its_texts_are_green_at_run_time_and_grey_in_design) {
  Activate();
  const HWND box = Child(L"Spoken Word :");
  ASSERT_TRUE(box);
  const auto colour = [&] {
    Dispatch_Messages();
    const HDC device = GetDC(box);
    SendMessageW(GetParent(box), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(device),
                 reinterpret_cast<LPARAM>(box));
    const COLORREF text = GetTextColor(device);
    ReleaseDC(box, device);
    return text;
  };
  EXPECT_EQ(Call("Refresh"), S_OK);
  EXPECT_EQ(colour(), RGB(0, 255, 0));
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_EQ(colour(), RGB(0xC0, 0xC0, 0xC0));
}

}  // namespace
}  // namespace quillspeech::activex::tests
