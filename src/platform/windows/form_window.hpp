// The native window of one form, with its controls.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/form_view.hpp"
#include "platform/windows/form_classes.hpp"
#include "platform/windows/form_colours.hpp"
#include "platform/windows/form_control_window.hpp"
#include "platform/windows/form_fonts.hpp"
#include "platform/windows/form_menus.hpp"
#include "platform/windows/form_tips.hpp"
#include "platform/windows/waiting_windows.hpp"

namespace quillspeech::windows {

class FormWindow;

// What the windows of one module's forms share. It outlives them.
struct FormDesk {
  FormDesk(int dots_per_inch);

  FormScale scale;
  FormFonts fonts{scale};
  FormBrushes brushes;
  WindowClass form_class;
  WindowClass frame_class;
  std::function<void()> At_Failure;         // in the handler of what a form's handler threw
  std::function<void(FormWindow&)> At_End;  // a window has let go of its form
};

// What whoever embeds a form wants to hear.
struct FormSignals {
  std::function<void(bool got)> At_Focus;  // it has come into the form, or left it
  std::function<void()> At_Paint;          // before the form is painted
  // A key from the queue of our own loop, where it is not the form's alone to deal with. True: it
  // has been dealt with.
  std::function<bool(MSG&)> At_Key = {};
};

class FormWindow final : public FormView, public std::enable_shared_from_this<FormWindow> {
 public:
  FormWindow(Form& form, FormDesk& desk);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  // False when the system makes no window.
  bool Make_Top(HWND owner, bool is_modal);
  bool Make_Child(HWND parent, const ChildPlace& place, ChildMode mode);

  void Show();
  void Show_Aside();  // without the keyboard
  void Hide();
  // Keeps the thread's other windows from taking input until the form hides.
  void Disable_Others() { others_.Hold_All_But(window_); }
  void Move(const ChildPlace& place);
  void Set_Mode(ChildMode mode);
  void Repaint();
  // A key that the form deals with as a dialog does: Tab, an arrow, Alt and a letter of its own,
  // Enter and Escape that press a button. A child leaves the Tab that goes out of it.
  bool Translate(MSG& message);
  // The same, for a key of our own loop: whoever embeds the form comes first.
  bool Take_From_Loop(MSG& message);

  HWND Window() const { return window_; }
  Form* Model() const { return form_; }  // null: the form is gone
  bool Is_Shown() const { return is_shown_; }

  // FormView
  void Control_Changed(const FormControl& control, FormChange change) override;
  void Menu_Changed(const FormMenu& menu, FormChange change) override;
  void Form_Changed(FormChange change) override;
  void Form_Gone() override;

  // Keeps the window's object, and its native windows, until the message under way is dealt with.
  class Stay {
   public:
    explicit Stay(FormWindow& form);
    ~Stay();
    Stay(const Stay&) = delete;
    Stay& operator=(const Stay&) = delete;

   private:
    std::shared_ptr<FormWindow> form_;
  };

  // A message to a control, before the system's own procedure gets it: the answer, or nothing when
  // that is to have it. `part` is the control's window or, of a combo box, one inside it.
  std::optional<LRESULT> Handle_Control(FormControlWindow& control, HWND part, UINT message,
                                        WPARAM wide, LPARAM longer) noexcept;

  static LRESULT CALLBACK Window_Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);

  FormSignals signals;
  std::shared_ptr<const void> life;  // let go with the window

 private:
  bool Make(DWORD style, DWORD extended, const RECT& place, HWND parent);
  void Make_Controls();
  void Place_Controls();
  void Show_Tip(const FormControlWindow& control, std::string_view tip);
  SIZE Outer_Size() const;
  FormControlWindow* Control_Named(std::string_view name) const;
  FormControlWindow* Control_At(HWND window) const;
  HWND Window_For(const std::string& parent) const;

  std::optional<LRESULT> Handle(HWND window, UINT message, WPARAM wide, LPARAM longer);
  std::optional<LRESULT> Handle_Drawing(HWND window, UINT message, WPARAM wide, LPARAM longer);
  std::optional<LRESULT> Handle_Mouse(HWND window, UINT message, LPARAM longer);
  void On_Command(HWND control, UINT code);
  void On_Menu_Or_Key(WORD command);
  void On_Typed(FormControlWindow& control);
  void On_List_Closed(FormControlWindow& control);
  LRESULT Colour(HDC device, HWND control);
  void Draw_Item(const DRAWITEMSTRUCT& item);
  void Erase(HWND window, HDC device);
  void Paint(HWND window);
  void Paint_Surface(const FormControlWindow& surface, HDC device);
  bool Shows_Ground(const FormControl& control) const;
  void Draw_Below(HWND window, HDC device);
  void On_Second_Click(const std::string& control);
  void Enable(bool on);
  bool Holds(HWND window) const;
  void Give_Focus();
  void Take_Focus_By_Click();
  void Leave_Focus();
  void Hand_Focus_On();
  // The next by Tab on which a person can act; from null: the first or, back, the last. Null: there
  // is none. Next_By_Tab begins anew at the end.
  const FormControlWindow* Next_Before_End(const FormControlWindow* from, bool is_back) const;
  const FormControlWindow* Next_By_Tab(const FormControlWindow* from, bool is_back) const;
  void Note_Focus(HWND now);
  void On_Window_Destroyed();
  std::optional<LRESULT> Handle_Key(FormControlWindow& control, UINT message, WPARAM key);
  std::optional<LRESULT> Handle_Form_Key(UINT message, WPARAM key);
  bool Translate_Key_Down(MSG& message);
  bool Go_By_Tab();
  bool Press(unsigned char key);
  void Let_Go();
  void End();

  Form* form_;
  FormDesk& desk_;
  HWND window_ = nullptr;
  bool is_child_ = false;
  bool is_inert_ = false;
  bool is_shown_ = false;
  bool is_pressed_ = false;       // the mouse went down on the form itself or a window of its class
  bool is_second_press_ = false;  // as the second of a double click
  WPARAM closes_list_ = 0;        // the key that does, whose character is dealt with then
  bool has_focus_ = false;
  bool is_ending_ = false;  // the native windows go as soon as nothing runs in them
  int busy_ = 0;
  std::vector<std::unique_ptr<FormControlWindow>> controls_;
  std::unique_ptr<FormTips> tips_;
  std::unique_ptr<FormMenus> menus_;
  WaitingWindows others_;
};

}  // namespace quillspeech::windows
