// The port that shows forms.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/form.hpp"

namespace quillspeech {

enum class Modality { None, Modal };

// A form that lies in somebody else's window: live, or a mere picture that lets every click through
// to what is below it, as in a design environment.
enum class ChildMode { Live, Inert };

// In pixels of the parent's client area.
struct ChildPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const ChildPlace&) const = default;
};

// A form outlives neither its own destruction nor its unloading in a view: both end the window.
class FormViews {
 public:
  virtual ~FormViews() = default;

  // Loads the form and shows it; one that shows already comes to the front, unless it stands aside.
  // A modal show returns when the form is hidden, unloaded or destroyed, and runs the event loop
  // meanwhile; for a form that is modal already it returns at once. A child becomes visible where
  // it lies.
  virtual void Show(Form& form, Modality modality) = 0;
  virtual void Hide(Form& form) = 0;  // it stays loaded
  static void Unload(Form& form) { form.Unload(); }

  // Loads the form and makes its window a child of that native window, not yet visible.
  virtual void Make_Child(Form& form, std::intptr_t parent, const ChildPlace& place,
                          ChildMode mode) = 0;
  virtual void Move_Child(Form& form, const ChildPlace& place) = 0;
  virtual void Set_Child_Mode(Form& form, ChildMode mode) = 0;

  // The form's native window; 0: it has none.
  virtual std::intptr_t Window_Of(const Form& form) const = 0;
  virtual bool Is_Shown(const Form& form) const = 0;
  virtual void Repaint(Form& form) = 0;
  virtual int Dots_Per_Inch() const = 0;                    // of the screen that it shows forms on
  virtual std::vector<std::string> Font_Names() const = 0;  // of that screen, in order
};

}  // namespace quillspeech
