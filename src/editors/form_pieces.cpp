#include "editors/form_pieces.hpp"

namespace quillspeech {

FormControl As_Control(const ControlPiece& piece) {
  FormControl control;
  control.name = piece.name;
  control.kind = piece.kind;
  control.place = piece.place;
  control.parent = piece.parent;
  control.text = piece.text;
  control.tip = piece.tip;
  return control;
}

FormMenu As_Menu(const MenuPiece& piece) {
  FormMenu menu;
  menu.name = piece.name;
  menu.caption = piece.caption;
  menu.parent = piece.parent;
  return menu;
}

void Add_Controls(Form& form, std::span<const ControlPiece> pieces) {
  for (const ControlPiece& piece : pieces) form.Add(As_Control(piece));
}

void Add_Menus(Form& form, std::span<const MenuPiece> pieces) {
  for (const MenuPiece& piece : pieces) form.Add_Menu(As_Menu(piece));
}

}  // namespace quillspeech
