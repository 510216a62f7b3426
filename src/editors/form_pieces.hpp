// What a window of an editor holds, as rows of a table.
#pragma once

#include <span>
#include <string_view>

#include "platform/form.hpp"

namespace quillspeech {

struct ControlPiece {
  std::string_view name;
  FormControlKind kind;
  std::string_view parent;  // the frame that holds it; empty: the form
  std::string_view text;
  std::string_view tip;
  FormPlace place;
};

struct MenuPiece {
  std::string_view name;
  std::string_view parent;  // the menu that holds it; empty: the bar
  std::string_view caption;
};

FormControl As_Control(const ControlPiece& piece);
FormMenu As_Menu(const MenuPiece& piece);

void Add_Controls(Form& form, std::span<const ControlPiece> pieces);
void Add_Menus(Form& form, std::span<const MenuPiece> pieces);

}  // namespace quillspeech
