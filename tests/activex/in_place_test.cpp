// Placing, activating and leaving a control, with a container that knows the order of the calls.
#include <gtest/gtest.h>

#include "tests/activex/in_place_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

TEST_F(InPlaceTest, It_has_no_window_before_it_is_active) {
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(Get("hWnd"), "0");
  const RECT place = {};
  EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &place), E_UNEXPECTED);
  EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(nullptr, nullptr), E_INVALIDARG);
}

TEST_F(InPlaceTest, It_becomes_active_in_place_by_the_verb) {
  Activate();
  ASSERT_TRUE(Window());
  EXPECT_EQ(GetParent(Window()), container.window);
  EXPECT_TRUE(IsWindowVisible(Window()));
  EXPECT_EQ(Get("hWnd"), std::to_string(reinterpret_cast<std::intptr_t>(Window())));
}

TEST_F(InPlaceTest, Every_verb_that_shows_it_activates_it_once) {
  for (const LONG verb : {OLEIVERB_SHOW, OLEIVERB_OPEN, OLEIVERB_INPLACEACTIVATE}) {
    container.Expect_Activation();
    EXPECT_EQ(Do(verb), S_OK);
    EXPECT_EQ(Do(verb), S_OK);  // and nothing more is told
    Deactivate();
  }
}

TEST_F(InPlaceTest, A_container_that_refuses_is_not_entered) {
  container.Refuse("CanInPlaceActivate", S_FALSE);
  container.Expect({"CanInPlaceActivate"});
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_FAIL);
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(InPlaceTest, A_container_that_fails_on_the_way_is_left_as_it_was_entered) {
  container.Refuse("GetWindowContext", E_OUTOFMEMORY);
  container.Expect({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                    "OnInPlaceDeactivate"});
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_OUTOFMEMORY);
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(InPlaceTest, A_container_without_a_window_is_left_as_it_was_entered) {
  const HWND ended = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, container.window,
                                     nullptr, nullptr, nullptr);
  DestroyWindow(ended);
  for (const HWND none : {static_cast<HWND>(nullptr), ended}) {
    container.parent = none;
    container.Expect({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                      "OnInPlaceDeactivate"});
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_FAIL);
    container.Done();
    EXPECT_EQ(Window(), nullptr);
  }
  container.parent = container.window;
  Activate();
}

TEST_F(InPlaceTest, A_control_that_lost_its_window_with_the_parent_is_shown_anew) {
  container.parent = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 300, 300,
                                     container.window, nullptr, nullptr, nullptr);
  Activate();
  DestroyWindow(container.parent);
  container.parent = container.window;
  container.Expect({"OnInPlaceDeactivate"});
  container.Expect_Activation();
  EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
  container.Done();
  EXPECT_TRUE(IsWindowVisible(Window()));
}

TEST_F(InPlaceTest, An_activation_in_the_midst_of_another_stands) {
  container.At("GetWindowContext", [this] {
    container.Expect({"OnInPlaceDeactivate"});
    container.Expect_Activation();
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  });
  container.Expect({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext"});
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
  container.Done();
  EXPECT_TRUE(IsWindowVisible(Window()));
}

TEST_F(InPlaceTest, A_site_that_is_no_place_cannot_hold_it) {
  container.is_in_place_site = false;
  EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), E_FAIL);
}

TEST_F(InPlaceTest, Deactivation_takes_the_window_away_and_tells_the_container_once) {
  Activate();
  const HWND window = Window();
  Deactivate();
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
}

TEST_F(InPlaceTest, It_can_be_activated_again) {
  Activate();
  Deactivate();
  Activate();
  EXPECT_TRUE(IsWindowVisible(Window()));
}

TEST_F(InPlaceTest, A_close_deactivates_it_first) {
  Activate();
  container.Expect({"OnInPlaceDeactivate"});
  EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(InPlaceTest, Taking_its_site_away_deactivates_it_first) {
  Activate();
  container.Expect({"OnInPlaceDeactivate"});
  Withdraw();
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(InPlaceTest, It_has_its_own_size_at_the_place_it_is_given) {
  Activate();
  const RECT place = Place_In_Container();
  EXPECT_EQ(place.left, 10);
  EXPECT_EQ(place.top, 20);
  EXPECT_EQ(place.right - place.left, 222);
  EXPECT_EQ(place.bottom - place.top, 126);
}

TEST_F(InPlaceTest, A_container_that_gives_it_another_size_is_asked_once_for_its_own) {
  Activate();
  const RECT larger = {30, 40, 530, 440};
  container.Expect({"OnPosRectChange"});
  container.At("OnPosRectChange", [&] {  // and insists
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&larger, &container.clip), S_OK);
  });
  EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&larger, &container.clip), S_OK);
  container.Done();
  EXPECT_EQ(container.asked_position.right - container.asked_position.left, 222);
  EXPECT_EQ(container.asked_position.bottom - container.asked_position.top, 126);
  const RECT place = Place_In_Container();
  EXPECT_EQ(place.left, 30);
  EXPECT_EQ(place.right - place.left, 222);
}

TEST_F(InPlaceTest, It_is_moved_and_cut_off_where_the_container_ends) {
  Activate();
  const RECT moved = {100, 60, 322, 186};
  const RECT clip = {0, 0, 200, 480};
  EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&moved, &clip), S_OK);
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  EXPECT_EQ(GetWindowRgn(Window(), region), SIMPLEREGION);
  RECT seen = {};
  GetRgnBox(region, &seen);
  EXPECT_EQ(seen.right, 100);
  EXPECT_EQ(seen.bottom, 126);
  EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&moved, &container.clip), S_OK);
  EXPECT_EQ(GetWindowRgn(Window(), region), ERROR);  // all of it shows again
  DeleteObject(region);
}

TEST_F(InPlaceTest, A_container_may_close_it_in_the_midst_of_its_activation) {
  for (const char* call : {"OnInPlaceActivate", "GetWindowContext", "ShowObject"}) {
    container.At(call, [this] {
      if (Window()) container.Expect({"OnInPlaceDeactivate"});
      As<IOleObject>()->Close(OLECLOSE_NOSAVE);
    });
    if (std::string(call) == "GetWindowContext") {
      container.Expect({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                        "OnInPlaceDeactivate"});
      EXPECT_NE(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
      EXPECT_EQ(Window(), nullptr);
    } else if (std::string(call) == "ShowObject") {
      container.Expect_Activation();
      Do(OLEIVERB_INPLACEACTIVATE);
      EXPECT_EQ(Window(), nullptr);
    } else {
      container.Expect_Activation();  // it was not active yet
      Do(OLEIVERB_INPLACEACTIVATE);
      Deactivate();
    }
    container.Done();
  }
}

TEST_F(InPlaceTest, A_container_may_let_go_of_it_in_the_midst_of_its_activation) {
  IOleObject* const raw = As<IOleObject>().Get();  // as a caller who counts nothing
  container.At("OnUIActivate", [this] {
    container.Expect({"OnInPlaceDeactivate"});
    Withdraw();
    control = nullptr;
    EXPECT_GT(container.References(), 0u);  // the call that stands keeps the site
  });
  container.Expect_Activation();
  container.Expect({"OnUIActivate"});
  raw->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &container, 0, container.window, &container.position);
  EXPECT_EQ(terminations, 1);
}

TEST_F(InPlaceTest, A_container_that_lets_go_of_an_active_control_sees_it_leave) {
  Activate();
  container.Expect({"OnInPlaceDeactivate"});
  control = nullptr;
  container.Done();
  EXPECT_EQ(terminations, 1);
  EXPECT_EQ(container.References(), 0u);
}

TEST_F(InPlaceTest, A_window_that_went_with_its_parent_can_be_deactivated_all_the_same) {
  Activate();
  DestroyWindow(container.window);
  EXPECT_EQ(Window(), nullptr);
  container.Expect({"OnInPlaceDeactivate"});
  EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
}

}  // namespace
}  // namespace quillspeech::activex::tests
