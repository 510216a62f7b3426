// The tips of one form's controls: what shows when the mouse rests on them.
#pragma once

#include <string_view>

#include "platform/windows/form_layout.hpp"

namespace quillspeech::windows {

class FormTips {
 public:
  // At the screen's scale unless the form has another.
  explicit FormTips(HWND form, const FormScale& scale = Scale_At(Screen_Dots_Per_Inch()))
      : form_(form), scale_(scale) {}
  ~FormTips();
  FormTips(const FormTips&) = delete;
  FormTips& operator=(const FormTips&) = delete;

  // An empty tip takes the old one away.
  void Set(HWND control, std::string_view tip);
  void Activate(bool on);

 private:
  bool Make();

  HWND form_;
  FormScale scale_;
  HWND tips_ = nullptr;
  bool is_active_ = true;
};

}  // namespace quillspeech::windows
