// The port that shows forms, on real windows.
#pragma once

#include <functional>
#include <map>
#include <memory>

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

  // For a container that asks whether the form wants the key.
  bool Translate(const Form& form, MSG& message);
  void Set_Signals(const Form& form, FormSignals signals);  // of a form that has a window

  // Called in the handler of what a form's handler threw: rethrow it there to look at it.
  std::function<void()> At_Failure;

 private:
  FormWindow* Find(const Form& form) const;
  std::shared_ptr<FormWindow> Made(Form& form);
  void Run_Modally(const std::shared_ptr<FormWindow>& window);
  bool Filter(MSG& message);

  EventLoop& loop_;
  int dots_per_inch_;
  FormDesk desk_;
  std::map<const Form*, std::shared_ptr<FormWindow>> windows_;
  int filter_ = 0;
};

}  // namespace quillspeech::windows
