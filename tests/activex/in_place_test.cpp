// Placing, activating and showing a control, with a container that knows the order of the calls.
#include <gtest/gtest.h>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

class InPlaceTest : public OleTest {
 protected:
  InPlaceTest() { Place(); }
  ~InPlaceTest() override {
    container.Done();
    if (!control) return;
    if (Is_UI_Active()) container.Expect_UI_Deactivation();
    if (Has_Focus()) container.Expect({"OnFocus lost"});
    if (Window()) container.Expect({"OnInPlaceDeactivate"});
    Withdraw();
  }

  void Activate_UI() {
    container.Expect_Activation();
    container.Expect_UI_Activation();
    container.Expect({"OnFocus got"});
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    container.Done();
    ui_ = true;
  }
  void Deactivate_UI() {
    container.Expect_UI_Deactivation();
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    container.Done();
    ui_ = false;
  }
  bool Is_UI_Active() const { return ui_; }
  bool Has_Focus() const { return Window() && IsChild(Window(), GetFocus()); }
  void Change(DISPID ambient, bool to) {
    container.ambients[ambient] = to;
    EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(ambient), S_OK);
  }
  void Expect_Box() { container.Expect({"Frame.EnableModeless none", "Frame.EnableModeless"}); }
  // Presses the start, which is told that settings are missing, without a hand on the button.
  void Start() {
    BoxCloser closer(L"Quillspeech Start", [] {});
    Expect_Box();
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                 reinterpret_cast<LPARAM>(Child(L"Start Recognition Activity")));
    EXPECT_EQ(closer.closed, 1);
  }
  // One tick of the event pump, which the start leaves running.
  void Tick() {
    const std::string status = session().flags.Operation_Status;
    Start();
    session().flags.Operation_Status = status;
    EventSink sink;
    sink.Connect(*control);
    while (sink.heard.empty()) Module::Of_This_File().Events().Wait_For_Events();
    sink.Disconnect();
  }
  HRESULT Translate(MSG message) {
    return As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message);
  }

  RECT Place_In_Container() const {
    RECT place = {};
    GetWindowRect(Window(), &place);
    MapWindowPoints(nullptr, container.window, reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  struct Search {
    std::wstring text;
    HWND found = nullptr;
  };
  static BOOL CALLBACK Compare(HWND window, LPARAM search) {
    auto& wanted = *reinterpret_cast<Search*>(search);
    wchar_t text[200] = {};
    SendMessageW(window, WM_GETTEXT, 200, reinterpret_cast<LPARAM>(text));
    if (text == wanted.text) wanted.found = window;
    return wanted.found == nullptr;
  }
  // The control on the face with that text; null when there is none.
  HWND Child(const wchar_t* text) const {
    Search search{text};
    EnumChildWindows(Window(), Compare, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  static void Dispatch_Messages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  static MSG Key(HWND window, WPARAM key) { return {window, WM_KEYDOWN, key, 0, 0, {}}; }

  bool ui_ = false;
};

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

TEST_F(InPlaceTest, Its_status_says_sleeping_at_run_time_and_status_update_in_design) {
  Activate();
  EXPECT_TRUE(Child(L"Sleeping"));
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_TRUE(Child(L"Status Update"));
}

TEST_F(InPlaceTest, A_container_without_ambient_properties_is_at_run_time) {
  container.has_ambients = false;
  Activate();
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceTest, An_ambient_property_that_does_not_concern_it_changes_nothing) {
  Activate();
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT), S_OK);
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceTest, Its_status_stays_unless_the_mode_is_another_one) {
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

TEST_F(InPlaceTest, Each_time_its_window_becomes_visible_it_begins_with_the_status_of_its_mode) {
  Activate();
  session().flags.Operation_Status = "Finish";
  Tick();
  ASSERT_TRUE(Child(L"Finish"));
  Deactivate();
  Activate();
  EXPECT_TRUE(Child(L"Sleeping"));
}

TEST_F(InPlaceTest, An_inactive_control_tells_that_its_mode_is_another_one) {
  Activate();
  Deactivate();
  EXPECT_EQ(As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, &container), S_OK);
  container.Expect({"OnViewChange"});
  Change(DISPID_AMBIENT_USERMODE, false);
  container.Done();
  EXPECT_EQ(As<IViewObject>()->SetAdvise(0, 0, nullptr), S_OK);
}

TEST_F(InPlaceTest, The_focus_leaves_it_when_it_is_to_take_no_keys) {
  for (const DISPID ambient : {DISPID_AMBIENT_USERMODE, DISPID_AMBIENT_UIDEAD}) {
    if (Window()) {
      container.Expect_UI_Activation();
      container.Expect({"OnFocus got"});
      EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    } else {
      Activate_UI();
    }
    container.Expect_UI_Deactivation();
    container.Expect({"OnFocus lost"});
    Change(ambient, ambient == DISPID_AMBIENT_UIDEAD);
    container.Done();
    EXPECT_EQ(GetFocus(), container.window);
    EXPECT_FALSE(IsWindowEnabled(Window()));
    EXPECT_EQ(SendMessageW(Window(), WM_NCHITTEST, 0, 0), HTTRANSPARENT);
    const HWND box = Child(L"Spoken Word :");
    SendMessageW(box, WM_CHAR, 'x', 1);
    EXPECT_TRUE(Child(L"Spoken Word :"));
    Change(ambient, ambient != DISPID_AMBIENT_UIDEAD);
    EXPECT_TRUE(IsWindowEnabled(Window()));
  }
  ui_ = false;
}

TEST_F(InPlaceTest, A_disabled_control_lets_go_of_the_focus) {
  Activate_UI();
  container.Expect({"OnFocus lost"});
  EXPECT_EQ(Let("Enabled", "False"), S_OK);
  EXPECT_EQ(GetFocus(), container.window);
}

TEST_F(InPlaceTest, A_click_anywhere_on_it_asks_for_the_keyboard) {
  Activate();
  for (const HWND part : {Window(), GetParent(Child(L"Sleeping")), Child(L"Sleeping")}) {
    for (const UINT button : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
      container.Expect_UI_Activation();
      container.Expect({"OnFocus got"});
      SendMessageW(part, button, MK_LBUTTON, MAKELPARAM(2, 2));
      container.Done();
      EXPECT_TRUE(Has_Focus());
      ReleaseCapture();
      container.Expect({"OnFocus lost"});
      SetFocus(container.window);
      Deactivate_UI();
    }
  }
}

TEST_F(InPlaceTest, What_a_person_types_stays_until_a_result_takes_its_place) {
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

TEST_F(InPlaceTest, A_start_with_incomplete_settings_tells_so_and_then_of_its_status_all_the_same) {
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

TEST_F(InPlaceTest, A_failure_that_nobody_traps_is_told_in_a_box) {
  EventSink sink;
  sink.Connect(*control);
  Activate();
  sink.At_Event = [] { Fail(Failure::Division_By_Zero); };
  std::wstring words;
  BoxCloser closer(L"Quillspeech", [&] {
    const HWND box = FindWindowW(nullptr, L"Quillspeech");
    wchar_t text[100] = {};
    GetDlgItemTextW(box, 0xFFFF, text, 100);
    words = text;
  });
  Expect_Box();
  SendMessageW(GetParent(Child(L"Sleeping")), WM_COMMAND, MAKEWPARAM(0, STN_CLICKED),
               reinterpret_cast<LPARAM>(Child(L"Sleeping")));
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(words, L"Division by zero");
  EXPECT_TRUE(IsWindowVisible(Window()));
  sink.Disconnect();
}

TEST_F(InPlaceTest, In_design_mode_every_click_falls_through_to_the_container) {
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  Activate();
  const HWND button = Child(L"Stop Recognition Activity");
  ASSERT_TRUE(button);
  EXPECT_EQ(SendMessageW(Window(), WM_NCHITTEST, 0, 0), HTTRANSPARENT);
  EXPECT_EQ(SendMessageW(button, WM_NCHITTEST, 0, 0), HTTRANSPARENT);
}

TEST_F(InPlaceTest, A_button_pressed_at_run_time_acts_on_the_session) {
  EventSink sink;
  sink.Connect(*control);
  Activate_UI();
  session().flags.Session_Alive = -1;
  SendMessageW(Child(L"Stop Recognition Activity"), BM_CLICK, 0, 0);
  EXPECT_EQ(sink.heard, std::vector{EventId::StopRecognitionActivity});
  sink.Disconnect();
}

TEST_F(InPlaceTest, A_click_on_a_frame_or_on_the_status_is_a_click_on_the_control) {
  EventSink sink;
  sink.Connect(*control);
  Activate_UI();
  const HWND status = Child(L"Sleeping");
  SendMessageW(status, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
  SendMessageW(status, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
  EXPECT_EQ(sink.heard, std::vector{EventId::Click});
  sink.Disconnect();
}

TEST_F(InPlaceTest, The_control_may_go_while_one_of_its_buttons_is_pressed) {
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

TEST_F(InPlaceTest, A_disabled_control_takes_no_clicks) {
  Activate();
  EXPECT_EQ(Let("Enabled", "False"), S_OK);
  EXPECT_FALSE(IsWindowEnabled(Window()));
  EXPECT_EQ(Let("Enabled", "True"), S_OK);
  EXPECT_TRUE(IsWindowEnabled(Window()));
}

TEST_F(InPlaceTest, The_verb_for_the_keyboard_makes_it_the_active_object_of_the_frame) {
  Activate_UI();
  EXPECT_TRUE(IsChild(Window(), GetFocus()));
  EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);  // and nothing more is told
}

TEST_F(InPlaceTest, A_container_that_refuses_the_keyboard_keeps_it_in_place) {
  Activate();
  container.Refuse("OnUIActivate", E_FAIL);
  container.Expect({"OnUIActivate"});
  EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), E_FAIL);
  EXPECT_TRUE(Window());
}

TEST_F(InPlaceTest, Losing_the_keyboard_leaves_it_in_place) {
  Activate_UI();
  Deactivate_UI();
  EXPECT_TRUE(IsWindowVisible(Window()));
  EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);  // once only
}

TEST_F(InPlaceTest, Deactivation_takes_the_keyboard_first) {
  Activate_UI();
  container.Expect_UI_Deactivation();
  container.Expect({"OnFocus lost", "OnInPlaceDeactivate"});
  EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  ui_ = false;
  EXPECT_EQ(GetFocus(), container.window);
}

TEST_F(InPlaceTest, Focus_that_comes_by_itself_asks_the_container_for_the_keyboard) {
  Activate();
  SetFocus(container.window);
  container.Expect_UI_Activation();
  container.Expect({"OnFocus got"});
  SetFocus(Child(L"Start Recognition Activity"));
  container.Done();
  SetFocus(Child(L"Stop Recognition Activity"));  // inside it is nobody's business
  container.Expect({"OnFocus lost"});
  SetFocus(container.window);
  ui_ = true;
}

TEST_F(InPlaceTest, Hiding_it_takes_the_keyboard_and_keeps_its_window) {
  Activate_UI();
  container.Expect_UI_Deactivation();
  container.Expect({"OnFocus lost"});
  EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
  ui_ = false;
  container.Done();
  EXPECT_FALSE(IsWindowVisible(Window()));
  EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
  EXPECT_TRUE(IsWindowVisible(Window()));
}

TEST_F(InPlaceTest, The_tab_key_goes_round_inside_and_out_to_the_container_at_the_end) {
  Activate_UI();
  const auto active = As<IOleInPlaceActiveObject>();
  const HWND first = GetNextDlgTabItem(Window(), nullptr, FALSE);
  const HWND last = GetNextDlgTabItem(Window(), first, TRUE);
  SetFocus(first);
  MSG tab = Key(first, VK_TAB);
  EXPECT_EQ(active->TranslateAccelerator(&tab), S_OK);
  EXPECT_NE(GetFocus(), first);
  EXPECT_TRUE(IsChild(Window(), GetFocus()));
  SetFocus(last);
  tab = Key(last, VK_TAB);
  container.Expect({"TranslateAccelerator"});
  EXPECT_EQ(active->TranslateAccelerator(&tab), S_OK);
  EXPECT_EQ(container.key.wParam, static_cast<WPARAM>(VK_TAB));
  EXPECT_EQ(GetFocus(), last);
}

TEST_F(InPlaceTest, A_key_that_means_nothing_to_it_is_the_containers) {
  Activate_UI();
  container.Refuse("TranslateAccelerator", S_FALSE);
  const HWND focus = GetFocus();
  const std::vector<MSG> keys = {
      Key(container.window, VK_F5),
      Key(focus, VK_F5),
      Key(focus, 'S'),
      Key(focus, VK_ESCAPE),
      {focus, WM_SYSKEYDOWN, 'F', 0, 0, {}},
      {focus, WM_SYSCHAR, 'f', 0, 0, {}},
  };
  for (const MSG& key : keys) {
    container.Expect({"TranslateAccelerator"});
    EXPECT_EQ(Translate(key), S_FALSE) << key.wParam;
    container.Done();
  }
  EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr), E_POINTER);
}

TEST_F(InPlaceTest, The_tab_key_leaves_it_also_while_the_session_waits) {
  Activate_UI();
  const HWND first = GetNextDlgTabItem(Window(), nullptr, FALSE);
  const HWND last = GetNextDlgTabItem(Window(), first, TRUE);
  SetFocus(last);
  container.Expect({"TranslateAccelerator"});
  container.At("TranslateAccelerator", [this] {
    container.Expect({"OnFocus lost"});
    SetFocus(container.window);
  });
  PostMessageW(last, WM_KEYDOWN, VK_TAB, 1);
  Module::Of_This_File().Events().Run_Pending_Events();
  container.Done();
  EXPECT_EQ(GetFocus(), container.window);
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

TEST_F(InPlaceTest, A_refresh_paints_at_once) {
  Activate();
  Dispatch_Messages();
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  EXPECT_EQ(Call("Refresh"), S_OK);
  EXPECT_FALSE(GetUpdateRect(Window(), nullptr, FALSE));
}

TEST_F(InPlaceTest, At_each_paint_its_texts_are_green_at_run_time_and_grey_in_design) {
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
