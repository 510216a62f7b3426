// The menu bar of a form's window.
#pragma once

#include <optional>
#include <string>

#include "platform/form.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// Above the numbers that dialogs use.
inline constexpr UINT First_Menu_Command = 0x100;

class FormMenus {
 public:
  // Puts the menus of the form, if it has any, onto the window, which owns the bar from then on.
  FormMenus(const Form& form, HWND window);

  // Shows the captions, and what is grey or away, as they are now.
  void Changed(const FormMenu& menu, FormChange change);

  // The name of the entry behind the number of a WM_COMMAND; nothing when it is none of ours.
  std::optional<std::string> Entry_Of(UINT command) const;

 private:
  void Make_Bar();
  void Append_Entries_Of(const std::string& parent, HMENU menu) const;
  void Show_State(const FormMenu& menu) const;

  const Form& form_;
  HWND window_;
};

}  // namespace quillspeech::windows
