// How the focus and keys come to an active control and leave it.
#include <gtest/gtest.h>

#include "tests/activex/in_place_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using InPlaceKeyboard = InPlaceTest;

TEST_F(InPlaceKeyboard, The_focus_leaves_it_when_it_is_to_take_no_keys) {
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

TEST_F(InPlaceKeyboard, A_disabled_control_lets_go_of_the_focus) {
  Activate_UI();
  container.Expect({"OnFocus lost"});
  EXPECT_EQ(Let("Enabled", "False"), S_OK);
  EXPECT_EQ(GetFocus(), container.window);
}

TEST_F(InPlaceKeyboard, A_click_anywhere_on_it_asks_for_the_keyboard) {
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

TEST_F(InPlaceKeyboard, The_verb_for_the_keyboard_makes_it_the_active_object_of_the_frame) {
  Activate_UI();
  EXPECT_TRUE(IsChild(Window(), GetFocus()));
  EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);  // and nothing more is told
}

TEST_F(InPlaceKeyboard, A_container_that_refuses_the_keyboard_keeps_it_in_place) {
  Activate();
  container.Refuse("OnUIActivate", E_FAIL);
  container.Expect({"OnUIActivate"});
  EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), E_FAIL);
  EXPECT_TRUE(Window());
}

TEST_F(InPlaceKeyboard, Losing_the_keyboard_leaves_it_in_place) {
  Activate_UI();
  Deactivate_UI();
  EXPECT_TRUE(IsWindowVisible(Window()));
  EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);  // once only
}

TEST_F(InPlaceKeyboard, Deactivation_takes_the_keyboard_first) {
  Activate_UI();
  container.Expect_UI_Deactivation();
  container.Expect({"OnFocus lost", "OnInPlaceDeactivate"});
  EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  ui_ = false;
  EXPECT_EQ(GetFocus(), container.window);
}

TEST_F(InPlaceKeyboard, Focus_that_comes_by_itself_asks_the_container_for_the_keyboard) {
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

TEST_F(InPlaceKeyboard, Hiding_it_takes_the_keyboard_and_keeps_its_window) {
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

TEST_F(InPlaceKeyboard, The_tab_key_goes_round_inside_and_out_to_the_container_at_the_end) {
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

TEST_F(InPlaceKeyboard, A_key_that_means_nothing_to_it_is_the_containers) {
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

TEST_F(InPlaceKeyboard, The_tab_key_leaves_it_also_while_the_session_waits) {
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

}  // namespace
}  // namespace quillspeech::activex::tests
