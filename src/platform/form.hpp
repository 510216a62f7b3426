// A window as a model: controls with names and texts, menus, and handlers called by control and
// event ("Command1_Click"). It knows no toolkit. A view shows it and turns a person's actions into
// the same calls that a test makes.
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

#include "platform/form_control.hpp"

namespace quillspeech {

// What shows a form.
class FormView {
 public:
  virtual ~FormView() = default;

  virtual void Control_Changed(const FormControl& control, FormChange change) = 0;
  // Caption (Text), Enabled or Visible.
  virtual void Menu_Changed(const FormMenu& menu, FormChange change) = 0;
  // Caption (Text), Enabled, Place (its size) or its ground (Drawing).
  virtual void Form_Changed(FormChange change) = 0;
  // The form is unloaded, or the model goes; the view lets go of it and ends.
  virtual void Form_Gone() = 0;
};

// Calls that name a control or a menu entry that the form has not are failure 5. Whatever calls a
// handler is safe when the handler unloads or destroys the form. Failures of handlers go out to the
// caller.
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

  // Making it. Controls are added in tab order, a frame before what it holds; menus as they stand,
  // each before its entries. A menu entry has a handler of Click as a control has.
  void Add(FormControl control);
  void Add_Menu(FormMenu menu);
  void On(std::string_view control, FormEvent event, Handler handler);
  void On_Key_Press(std::string_view control, KeyHandler handler);
  void Set_Default_Button(std::string_view button) { default_button_ = button; }  // Enter
  void Set_Cancel_Button(std::string_view button) { cancel_button_ = button; }    // Escape
  void Set_Back_Colour(FormColour colour) { back_colour_ = colour; }
  // A window that only tells something: when it comes up without a modal wait it leaves the
  // keyboard where it is, and the windows around it in sight.
  void Set_Stands_Aside() { stands_aside_ = true; }

  // Reading it.
  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  FormSize Size() const { return size_; }
  bool Is_Enabled() const { return enabled_; }
  std::optional<FormColour> Back_Colour() const { return back_colour_; }
  bool Stands_Aside() const { return stands_aside_; }
  const FormDrawing& Ground() const { return ground_; }  // what lies below the controls
  std::span<const FormControl> Controls() const { return controls_; }
  const FormControl* Find(std::string_view control) const;  // null: there is none
  const FormControl& operator[](std::string_view control) const;
  std::span<const FormMenu> Menus() const { return menus_; }
  const FormMenu* Find_Menu(std::string_view menu) const;  // null: there is none
  const FormMenu& Menu(std::string_view menu) const;
  const std::string& Default_Button() const { return default_button_; }
  const std::string& Cancel_Button() const { return cancel_button_; }
  const std::string& Focused() const { return focused_; }  // empty: none
  // The number that the program has given to that item; failure 5 when there is no such item.
  std::int32_t Item_Data(std::string_view control, int index) const;
  // Whether a person can act on it: it and what holds it are enabled and visible.
  bool Takes_Action(std::string_view control) const;
  bool Menu_Takes_Action(std::string_view menu) const;
  bool Has_Handler(std::string_view control, FormEvent event) const;

  // Changing it. The view is told of what did change; no handler runs.
  void Set_Caption(std::string_view caption);
  void Set_Size(FormSize size);
  void Set_Enabled(bool enabled);
  void Set_Ground(FormDrawing ground);
  void Change_Ground(const std::function<void(FormDrawing&)>& change);  // in its place
  // A combo box has nothing chosen when the text is not the chosen item's.
  void Set_Text(std::string_view control, std::string_view text);
  void Set_Tip(std::string_view control, std::string_view tip);
  void Set_Font(std::string_view control, const FormFont& font);
  void Set_Text_Colour(std::string_view control, std::optional<FormColour> colour);
  void Set_Back_Colour(std::string_view control, std::optional<FormColour> colour);
  void Set_Enabled(std::string_view control, bool enabled);
  void Set_Visible(std::string_view control, bool visible);
  void Set_Place(std::string_view control, const FormPlace& place);
  void Set_Read_Only(std::string_view control, bool read_only);
  void Add_Item(std::string_view control, std::string_view item, std::int32_t data = 0);
  void Clear_Items(std::string_view control);  // nothing is chosen then; an edit part is emptied
  void Set_Index(std::string_view control, int index);  // a combo box shows the item as its text
  void Set_Focus(std::string_view control);
  void Set_Menu_Caption(std::string_view menu, std::string_view caption);
  void Set_Menu_Enabled(std::string_view menu, bool enabled);
  void Set_Menu_Visible(std::string_view menu, bool visible);

  // Drawing on a picture, an image or a button.
  void Set_Drawing(std::string_view control, FormDrawing drawing);
  void Set_Scale(std::string_view control, const DrawingScale& scale);
  void Draw(std::string_view control, DrawingOperation operation);
  void Clear_Drawing(std::string_view control);  // the scale stays
  // The bytes of a picture file, in place of the drawing; empty: none. A change of the drawing.
  void Set_Picture(std::string_view control, std::string_view bytes);

  // A person's actions, which views and tests make. False: nothing there takes it.
  bool Click(std::string_view control);
  bool Double_Click(std::string_view control);  // its second click: the first was a Click
  bool Click_Form();
  bool Choose_Menu(std::string_view menu);  // an entry, no separator and no menu that holds others
  bool Type(std::string_view control, std::string_view text);  // the text as it is afterwards
  bool Select(std::string_view control, int index);
  // The form's own handler sees every key first. Then Enter clicks the button that has the focus or
  // the default button, and Escape the cancel button. What is left goes to the control.
  bool Press_Key(std::string_view control, unsigned char key);
  bool Press_Key(unsigned char key);  // on the control that has the focus, or on none
  // Alt and a letter or digit: clicks a button; a label or frame hands the focus on to the next.
  // The letters of menus are the view's affair.
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
  FormMenu& Menu_At(std::string_view menu);
  template <class Value>
  void Change(std::string_view control, Value FormControl::*part, const Value& value,
              FormChange change);
  template <class Value>
  void Change_Menu(std::string_view menu, Value FormMenu::*part, const Value& value,
                   FormChange change);
  bool Raise(std::string_view control, FormEvent event);
  bool Raise_Key(std::string_view control, unsigned char key);
  bool Press_Button_For(std::string_view control, unsigned char key);

  std::string name_;
  std::string caption_;
  FormSize size_;
  bool enabled_ = true;
  bool loaded_ = false;
  bool stands_aside_ = false;
  std::optional<FormColour> back_colour_;
  FormDrawing ground_;
  std::string default_button_;
  std::string cancel_button_;
  std::string focused_;
  std::vector<FormControl> controls_;
  std::vector<FormMenu> menus_;
  std::map<HandlerName, Handler> handlers_;
  std::map<std::string, KeyHandler, std::less<>> key_handlers_;
  FormView* view_ = nullptr;
  std::shared_ptr<const void> life_ = std::make_shared<int>(0);
};

}  // namespace quillspeech
