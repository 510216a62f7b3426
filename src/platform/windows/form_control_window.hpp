// One control of a form as a child window of the system's own kinds.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/form.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

class FormWindow;

class FormControlWindow {
 public:
  // The windows of frames are told apart from the system's kinds by their class.
  FormControlWindow(FormWindow& form, const FormControl& control, HWND parent, const RECT& place,
                    const wchar_t* frame_class);
  ~FormControlWindow();
  FormControlWindow(const FormControlWindow&) = delete;
  FormControlWindow& operator=(const FormControlWindow&) = delete;

  const std::string& Name() const { return name_; }
  HWND Window() const { return window_; }

  void Set_Font(HFONT font, int margin);  // of a text box, in pixels
  void Set_Place(const RECT& place);
  void Show_Text(const FormControl& control);
  void Show_Items(const FormControl& control);
  void Show_Index(const FormControl& control);
  void Show_Read_Only(const FormControl& control);

  // What a person has made of it.
  std::string Text() const;
  int Index() const;
  bool Is_Dropped_Down() const;  // a combo box's list is open

  // While the window is told what to show, what it notifies is no person's doing.
  bool Is_Being_Told() const { return telling_ > 0; }

 private:
  // A window of a system class whose messages we see first: the control's, or a combo box's inner
  // ones.
  struct Tap {
    FormWindow* form;
    FormControlWindow* control;
    WNDPROC original;
  };
  class Telling;

  static LRESULT CALLBACK Tap_Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void Tap_Into(FormWindow& form, HWND window);
  std::wstring Shown_Text() const;
  LRESULT Tell(UINT message, WPARAM wide = 0, LPARAM longer = 0) const;

  std::string name_;
  FormControlKind kind_;
  HWND window_ = nullptr;
  mutable int telling_ = 0;
  std::vector<std::unique_ptr<Tap>> taps_;
};

}  // namespace quillspeech::windows
