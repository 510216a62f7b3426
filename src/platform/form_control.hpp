// What a form is made of: its controls, its menus, and the names of what happens to them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/form_drawing.hpp"

namespace quillspeech {

// All places and sizes are in twips: 1,440 to the inch, 15 to a pixel at 96 dpi.
inline constexpr int Twips_Per_Inch = 1440;

// Rounded to the nearest pixel. Edges are to be converted, not widths, so that neighbours meet.
constexpr int Twips_To_Pixels(int twips, int dpi) {
  const int product = twips * dpi * 2 + (twips < 0 ? -Twips_Per_Inch : Twips_Per_Inch);
  return product / (2 * Twips_Per_Inch);
}

struct FormSize {
  int width = 0;
  int height = 0;
  bool operator==(const FormSize&) const = default;
};

struct FormPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const FormPlace&) const = default;
};

enum class FormControlKind {
  Frame,
  Label,
  TextBox,
  Button,
  ComboBox,
  ListBox,
  Picture,  // a surface to draw on, with a border
  Image,    // a drawing without a border
};
enum class FormAlignment { Left, Centre, Right };

// One control. A form's controls are read here and changed through the form. Texts are in
// Windows-1252. In the captions of frames, labels and buttons & marks the letter to press with Alt.
struct FormControl {
  std::string name;
  FormControlKind kind = FormControlKind::Label;
  FormPlace place;     // relative to the parent
  std::string parent;  // the frame that holds it, made before it; empty: the form
  std::string text;    // caption, or what an edit field holds
  std::string tip;
  FormFont font;
  std::optional<FormColour> text_colour;  // nothing: the system's
  std::optional<FormColour> back_colour;
  bool enabled = true;
  bool visible = true;
  FormAlignment alignment = FormAlignment::Left;  // of labels and text boxes
  bool read_only = false;                         // text boxes
  bool multi_line = false;                        // text boxes; labels that wrap
  bool scroll = false;                            // text boxes of many lines: a bar to scroll by
  std::vector<std::string> items;                 // combo and list boxes
  std::vector<std::int32_t> item_data;            // a number of the program's for each of them
  int index = -1;                                 // the chosen item, from 0; -1: none
  FormDrawing drawing;                            // pictures, images; buttons: above the caption
  // The bytes of a picture file, as large as its shape lets it be in the place of a picture or an
  // image; empty: none. It stands instead of the drawing, which shows when a view can make nothing
  // of the bytes.
  std::string picture;
};

// One entry of the menu bar or of a menu. & marks its letter as above.
struct FormMenu {
  std::string name;
  std::string caption;  // "-" when it is added: a line between entries for good
  std::string parent;   // the menu that holds it, made before it; empty: the bar
  bool enabled = true;
  bool visible = true;
  bool is_line = false;  // of its adding
};

enum class FormEvent {
  Load,         // the form, before it shows for the first time
  Unload,       // the form, while it still stands
  Click,        // also an item or a menu entry that is chosen
  DoubleClick,  // the click behind a Click at the same place
  Change,       // a person has changed the text
  KeyPress,     // a key that makes a character; 13 is Enter, 27 Escape
};

// What of a control, of a menu entry or of the form itself has changed.
enum class FormChange {
  Text,
  Tip,
  Font,
  Colours,
  Enabled,
  Visible,
  Place,
  ReadOnly,
  Items,
  Index,
  Focus,  // that control is to have it
  Drawing,
};

inline constexpr unsigned char Key_Enter = 13;
inline constexpr unsigned char Key_Escape = 27;

// The letter behind the single & of a caption, in lower case; nothing when there is none.
std::optional<char> Mnemonic_Of(std::string_view caption);
// A kind that can have the focus.
bool Takes_Focus(FormControlKind kind);

}  // namespace quillspeech
