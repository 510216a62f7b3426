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
  // waits; and at the end the form is closed as by a person. A failure on the way hides the form.
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
  std::vector<std::string> Font_Names() const override { return fonts; }

  // The forms on show, the foremost last.
  std::vector<Form*> On_Show() const;
  Modality Modality_Of(const Form& form) const;
  ChildPlace Place_Of(const Form& form) const;
  ChildMode Mode_Of(const Form& form) const;
  std::intptr_t Parent_Of(const Form& form) const;  // 0: it is no child
  int Repaints_Of(const Form& form) const;
  // The modal form that keeps a person from acting on that one, or on the windows of the host when
  // none is given; null: there is none.
  const Form* Blocker_Of(const Form* form = nullptr) const;
  // Whether the latest modal show that is under way is about to return.
  bool Is_Modal_Show_Over() const { return !modal_shows_.empty() && !modal_shows_.back()(); }

  std::deque<std::function<void(Form&)>> actions;
  std::vector<std::string> fonts = {"Arial", "Courier New", "MS Sans Serif", "Times New Roman"};
  // Lets something happen while a modal form shows; false when nothing more will.
  std::function<bool()> Wait = [] { return false; };
  // Told, when set, of each form that comes on show or goes.
  std::function<void(const Form&, bool is_shown, Modality)> At_Showing;
  std::vector<Shown> shown;  // every showing so far

 private:
  class View;

  View& View_Of(Form& form);
  View* Find(const Form& form) const;
  void Run_Modally(Form& form);
  void Wait_Modally(Form& form, const std::function<bool()>& is_shown);
  void Come_On_Show(View& view, Modality modality);
  void Go_From_Show(View& view);

  std::map<const Form*, std::unique_ptr<View>> views_;
  std::vector<std::function<bool()>> modal_shows_;  // whether each one's form still shows
  std::intptr_t last_window_ = 0;
  int last_showing_ = 0;
};

}  // namespace quillspeech::headless
