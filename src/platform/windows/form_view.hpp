// The port that shows forms, on real windows.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/form_view.hpp"
#include "platform/windows/event_loop.hpp"
#include "platform/windows/form_window.hpp"

namespace quillspeech::windows {

// Works on the loop's thread. What shows a form throws std::system_error when there can be no
// window; the form is loaded then, without a view. When it goes, its windows go with it.
class FormViews final : public quillspeech::FormViews {
 public:
  // 0 dots per inch: those of the screen.
  explicit FormViews(EventLoop& loop, int dots_per_inch = 0);
  ~FormViews() override;
  FormViews(const FormViews&) = delete;
  FormViews& operator=(const FormViews&) = delete;

  void Show(Form& form, Modality modality) override;
  void Hide(Form& form) override;
  void Make_Child(Form& form, std::intptr_t parent, const ChildPlace& place,
                  ChildMode mode) override;
  void Move_Child(Form& form, const ChildPlace& place) override;
  void Set_Child_Mode(Form& form, ChildMode mode) override;
  std::intptr_t Window_Of(const Form& form) const override;
  bool Is_Shown(const Form& form) const override;
  void Repaint(Form& form) override;
  int Dots_Per_Inch() const override { return dots_per_inch_; }
  std::vector<std::string> Font_Names() const override;

  // What a new window or a dialog lies before; it may be null.
  HWND Owner_For_New_Window() const;
  // The window of the form that was shown modally last and still shows so; null: there is none.
  HWND Modal_Window() const;
  // The active window of the thread, when it is that of a form that a person works in; null: it is
  // not, or is one that stands aside and may go at any time.
  HWND Active_Window() const;

  // Lets go of every window; the models stay, without a view.
  void Drop_Windows();

  // For a container that asks whether the form wants the key.
  bool Translate(const Form& form, MSG& message);
  void Set_Signals(const Form& form, FormSignals signals);  // of a form that has a window

  // Called in the handler of what a form's handler threw: rethrow it there to look at it.
  std::function<void()> At_Failure;
  // What a new window lies before when none of the thread's is active; it may be null.
  std::function<HWND()> Owner;
  // What it gives is kept as long as a form has a window of its own.
  std::function<std::shared_ptr<const void>()> Window_Life;
  // What it gives is kept as long as a form shows modally.
  std::function<std::shared_ptr<const void>()> Modal_Time;

 private:
  FormWindow* Find(const Form& form) const;
  std::shared_ptr<FormWindow> Made(Form& form);
  HWND Owner_Of_Modeless() const;
  void Make_Window(FormWindow& window, Modality modality);
  void Run_Modally(const std::shared_ptr<FormWindow>& window);
  void Wait_While_Shown(FormWindow& window);
  bool Filter(MSG& message);

  EventLoop& loop_;
  int dots_per_inch_;
  FormDesk desk_;
  std::map<const Form*, std::shared_ptr<FormWindow>> windows_;
  std::vector<const FormWindow*> modal_;  // the latest last
  int filter_ = 0;
};

}  // namespace quillspeech::windows
