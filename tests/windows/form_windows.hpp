// A form as a real window, with one control of each kind below the other.
#pragma once

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {

struct FormWindows : FormScreen {
  FormWindows() {
    int top = 60;
    for (const FormControl& control : form->Controls()) {
      form->Set_Place(control.name, control.parent.empty() ? FormPlace{60, top, 1500, 300}
                                                           : FormPlace{30, 30, 900, 240});
      if (control.parent.empty()) top += 330;
    }
    form->Set_Size({3000, 2100});
  }

  HWND Combo() const { return FindWindowExW(Window(), nullptr, L"COMBOBOX", nullptr); }
  static COMBOBOXINFO Parts_Of(HWND combo) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    EXPECT_TRUE(GetComboBoxInfo(combo, &parts));
    return parts;
  }
};

}  // namespace quillspeech::tests
