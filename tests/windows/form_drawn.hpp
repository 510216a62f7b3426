// Forms with surfaces, as they stand on the screen.
#pragma once

#include <memory>
#include <string>

#include "tests/windows/form_drawings.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {

// A form of 200 by 140 dots with surfaces, as it stands on the screen.
struct DrawnForm : FormScreen {
  DrawnForm() {
    form = std::make_unique<Form>("Form1", "Drawn", FormSize{3000, 2100});
    form->Set_Back_Colour(Grey);
    Add("Picture1", FormControlKind::Picture, {150, 150, 900, 600});  // from 10, 10: 60 by 40 dots
    Add("Image1", FormControlKind::Image, {1500, 150, 900, 600});     // from 100, 10
    Add("Command1", FormControlKind::Button, {150, 900, 1200, 900}, "Now");  // from 10, 60
    Add("Label1", FormControlKind::Label, {1500, 900, 1200, 300}, "Said");   // from 100, 60
    Add("List1", FormControlKind::ListBox, {1500, 1275, 1200, 750});         // from 100, 85
    for (const char* const item : {"one", "two"}) form->Add_Item("List1", item);
    for (const FormControl& control : form->Controls()) {
      Note(control.name, FormEvent::Click, "Click");
    }
  }
  void Add(const char* name, FormControlKind kind, const FormPlace& place,
           const std::string& text = {}) {
    FormControl control = Named(name, kind, text);
    control.place = place;
    form->Add(control);
  }
  void Show_At(int dots_per_inch) {
    own = std::make_unique<windows::FormViews>(loop, dots_per_inch);
    dots = dots_per_inch;
    own->Show(*form, Modality::None);
    Run();
    shown = reinterpret_cast<HWND>(own->Window_Of(*form));
  }
  // What stands on the screen at that dot of the form, counted at 96 dots per inch.
  COLORREF At(int x, int y) {
    Run();
    const HDC device = GetDC(shown);
    const COLORREF colour = GetPixel(device, MulDiv(x, dots, 96), MulDiv(y, dots, 96));
    ReleaseDC(shown, device);
    return colour;
  }
  // The control at that dot of the form, at 96 dots per inch.
  HWND Below(int x, int y) const { return ChildWindowFromPoint(shown, {x, y}); }

  static void Press_Twice(HWND window) {
    Press_Mouse(window);
    PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  }

  std::unique_ptr<windows::FormViews> own;
  HWND shown = nullptr;
  int dots = 96;
};

struct ShownForm : DrawnForm {
  void SetUp() override { Show_At(96); }
};

}  // namespace quillspeech::tests
