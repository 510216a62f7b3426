// One control of a form as a child window: of the system's own kinds or, for frames, pictures and
// images, of the form's.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/form.hpp"
#include "platform/windows/form_picture.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

class FormWindow;

class FormControlWindow {
 public:
  // Messages to windows of `our_class` go to the form, to the others through here.
  FormControlWindow(FormWindow& form, const FormControl& control, HWND parent, const RECT& place,
                    const wchar_t* our_class);
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
  void Show_Drawing(const FormControl& control);

  void Put_Caret_At_End();

  // What a person has made of it.
  std::string Text() const;
  int Index() const;
  HWND Edit_Part() const;        // of a combo box; null: it has none
  bool Is_Dropped_Down() const;  // a combo box's list is open

  const PictureFile& Picture() const { return picture_; }

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
  PictureFile picture_;
  mutable int telling_ = 0;
  std::vector<std::unique_ptr<Tap>> taps_;
};

}  // namespace quillspeech::windows
