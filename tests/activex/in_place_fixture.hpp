// A control that a container has taken in, and the hands of a person on its face.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {

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
  // Presses the start, which is told that settings are missing.
  void Start() {
    BoxCloser closer(L"Quillspeech Start", [] {});
    Expect_Box();
    Press(L"Start Recognition Activity");
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
  static void Press_Mouse(HWND window) {
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
  }
  // Presses a button without a hand on it, which would bring the focus.
  void Press(const wchar_t* button) {
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                 reinterpret_cast<LPARAM>(Child(button)));
  }
  // At the next ambient property that it asks for, the container lets go of it.
  void Let_Go_When_Asked() {
    container.At_Ambient = [this] {
      container.Expect({"OnInPlaceDeactivate"});
      Withdraw();
      control = nullptr;
      EXPECT_EQ(terminations, 0);  // the call that stands keeps it
    };
  }
  static MSG Key(HWND window, WPARAM key) { return {window, WM_KEYDOWN, key, 0, 0, {}}; }

  bool ui_ = false;
};

}  // namespace quillspeech::activex::tests
