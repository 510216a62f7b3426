// The tips of one form's controls: what shows when the mouse rests on them.
#pragma once

#include "platform/windows/windows_api.hpp"
//
#include <string_view>

namespace quillspeech::windows {

class FormTips {
 public:
  explicit FormTips(HWND form) : form_(form) {}
  ~FormTips();
  FormTips(const FormTips&) = delete;
  FormTips& operator=(const FormTips&) = delete;

  // An empty tip takes the old one away.
  void Set(HWND control, std::string_view tip);
  void Activate(bool on);

 private:
  bool Make();

  HWND form_;
  HWND tips_ = nullptr;
  bool is_active_ = true;
};

}  // namespace quillspeech::windows
