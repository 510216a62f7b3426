// Forms without a screen: kept in a list, and closed by a script.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/form_view.hpp"

namespace quillspeech::headless {

class FormViews final : public quillspeech::FormViews {
 public:
  struct Shown {
    std::string name;
    Modality modality = Modality::None;
    bool operator==(const Shown&) const = default;
  };

  FormViews();
  ~FormViews() override;

  // A modal show takes the next of `actions`, as long as the form shows and one is left. Then it
  // waits; and at the end the form is closed as by a person.
  void Show(Form& form, Modality modality) override;
  void Hide(Form& form) override;
  void Make_Child(Form& form, std::intptr_t parent, const ChildPlace& place,
                  ChildMode mode) override;
  void Move_Child(Form& form, const ChildPlace& place) override;
  void Set_Child_Mode(Form& form, ChildMode mode) override;
  // A number of its own for each form that has a view.
  std::intptr_t Window_Of(const Form& form) const override;
  bool Is_Shown(const Form& form) const override;
  void Repaint(Form& form) override;
  int Dots_Per_Inch() const override { return 96; }

  // The forms on show, the foremost last.
  std::vector<Form*> On_Show() const;
  Modality Modality_Of(const Form& form) const;
  ChildPlace Place_Of(const Form& form) const;
  ChildMode Mode_Of(const Form& form) const;
  std::intptr_t Parent_Of(const Form& form) const;  // 0: it is no child
  int Repaints_Of(const Form& form) const;

  std::deque<std::function<void(Form&)>> actions;
  // Lets something happen while a modal form shows; false when nothing more will.
  std::function<bool()> Wait = [] { return false; };
  std::vector<Shown> shown;  // every showing so far

 private:
  class View;

  View& View_Of(Form& form);
  View* Find(const Form& form) const;
  void Run_Modally(Form& form);

  std::map<const Form*, std::unique_ptr<View>> views_;
  std::intptr_t last_window_ = 0;
  int last_showing_ = 0;
};

}  // namespace quillspeech::headless
