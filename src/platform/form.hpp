// A window as a model: controls with names and texts, and handlers called by control and event
// ("Command1_Click"). It knows no toolkit. A view shows it and turns a person's actions into the
// same calls that a test makes.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

struct FormFont {
  std::string name = "MS Sans Serif";
  double points = 8;
  bool bold = false;
  bool operator==(const FormFont&) const = default;
};

using FormColour = std::uint32_t;  // 0x00BBGGRR

enum class FormControlKind { Frame, Label, TextBox, Button, ComboBox, ListBox, Picture, Image };
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
  int index = -1;                                 // the chosen item, from 0; -1: none
};

enum class FormEvent {
  Load,      // the form, before it shows for the first time
  Unload,    // the form, while it still stands
  Click,     // also an item that is chosen
  Change,    // a person has changed the text
  KeyPress,  // a key that makes a character; 13 is Enter, 27 Escape
};

// What of a control or of the form itself has changed.
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
};

// What shows a form.
class FormView {
 public:
  virtual ~FormView() = default;

  virtual void Control_Changed(const FormControl& control, FormChange change) = 0;
  virtual void Form_Changed(FormChange change) = 0;  // caption (Text), Enabled, Place (its size)
  // The form is unloaded, or the model goes; the view lets go of it and ends.
  virtual void Form_Gone() = 0;
};

inline constexpr unsigned char Key_Enter = 13;
inline constexpr unsigned char Key_Escape = 27;

// Calls that name a control that the form has not are failure 5. Whatever calls a handler is safe
// when the handler unloads or destroys the form. Failures of handlers go out to the caller.
class Form {
 public:
  using Handler = std::function<void()>;
  using KeyHandler = std::function<void(unsigned char key)>;

  // The name under which the form itself has handlers.
  static constexpr std::string_view Itself = "Form";

  Form(std::string name, std::string caption, FormSize size);
  ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // Making it. Controls are added in tab order, a frame before what it holds.
  void Add(FormControl control);
  void On(std::string_view control, FormEvent event, Handler handler);
  void On_Key_Press(std::string_view control, KeyHandler handler);
  void Set_Default_Button(std::string_view button) { default_button_ = button; }  // Enter
  void Set_Cancel_Button(std::string_view button) { cancel_button_ = button; }    // Escape
  void Set_Back_Colour(FormColour colour) { back_colour_ = colour; }

  // Reading it.
  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  FormSize Size() const { return size_; }
  bool Is_Enabled() const { return enabled_; }
  std::optional<FormColour> Back_Colour() const { return back_colour_; }
  std::span<const FormControl> Controls() const { return controls_; }
  const FormControl* Find(std::string_view control) const;  // null: there is none
  const FormControl& operator[](std::string_view control) const;
  const std::string& Default_Button() const { return default_button_; }
  const std::string& Cancel_Button() const { return cancel_button_; }
  const std::string& Focused() const { return focused_; }  // empty: none
  // Whether a person can act on it: it and what holds it are enabled and visible.
  bool Takes_Action(std::string_view control) const;
  bool Has_Handler(std::string_view control, FormEvent event) const;

  // Changing it. The view is told of what did change; no handler runs.
  void Set_Caption(std::string_view caption);
  void Set_Size(FormSize size);
  void Set_Enabled(bool enabled);
  void Set_Text(std::string_view control, std::string_view text);
  void Set_Tip(std::string_view control, std::string_view tip);
  void Set_Font(std::string_view control, const FormFont& font);
  void Set_Text_Colour(std::string_view control, std::optional<FormColour> colour);
  void Set_Back_Colour(std::string_view control, std::optional<FormColour> colour);
  void Set_Enabled(std::string_view control, bool enabled);
  void Set_Visible(std::string_view control, bool visible);
  void Set_Place(std::string_view control, const FormPlace& place);
  void Set_Read_Only(std::string_view control, bool read_only);
  void Add_Item(std::string_view control, std::string_view item);
  void Clear_Items(std::string_view control);  // nothing is chosen then; an edit part is emptied
  void Set_Index(std::string_view control, int index);  // a combo box shows the item as its text
  void Set_Focus(std::string_view control);

  // A person's actions, which views and tests make. False: nothing there takes it.
  bool Click(std::string_view control);
  bool Click_Form();
  bool Type(std::string_view control, std::string_view text);  // the text as it is afterwards
  bool Select(std::string_view control, int index);
  // The form's own handler sees every key first. Then Enter clicks the button that has the focus or
  // the default button, and Escape the cancel button. What is left goes to the control.
  bool Press_Key(std::string_view control, unsigned char key);
  bool Press_Key(unsigned char key);  // on the control that has the focus, or on none
  // Alt and a letter or digit: clicks a button; a label or frame hands the focus on to the next.
  bool Press_Mnemonic(char letter);
  bool Move_Focus(std::string_view control);  // by mouse or Tab
  bool Close();                               // by the window's cross

  // Life. A form is loaded at its first showing and unloaded by its close or by itself.
  void Load();
  void Unload();
  bool Is_Loaded() const { return loaded_; }

  // One view at a time; null takes it away.
  void Attach(FormView* view) { view_ = view; }
  FormView* View() const { return view_; }
  // Expires with the form.
  std::weak_ptr<const void> Life() const { return life_; }

 private:
  using HandlerName = std::pair<std::string, FormEvent>;

  FormControl& At(std::string_view control);
  template <class Value>
  void Change(std::string_view control, Value FormControl::*part, const Value& value,
              FormChange change);
  bool Raise(std::string_view control, FormEvent event);
  bool Raise_Key(std::string_view control, unsigned char key);
  bool Press_Button_For(std::string_view control, unsigned char key);

  std::string name_;
  std::string caption_;
  FormSize size_;
  bool enabled_ = true;
  bool loaded_ = false;
  std::optional<FormColour> back_colour_;
  std::string default_button_;
  std::string cancel_button_;
  std::string focused_;
  std::vector<FormControl> controls_;
  std::map<HandlerName, Handler> handlers_;
  std::map<std::string, KeyHandler, std::less<>> key_handlers_;
  FormView* view_ = nullptr;
  std::shared_ptr<const void> life_ = std::make_shared<int>(0);
};

// The letter behind the single & of a caption, in lower case; nothing when there is none.
std::optional<char> Mnemonic_Of(std::string_view caption);
// A kind that can have the focus.
bool Takes_Focus(FormControlKind kind);

}  // namespace quillspeech
