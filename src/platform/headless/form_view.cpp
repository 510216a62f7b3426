#include "platform/headless/form_view.hpp"

#include <algorithm>
#include <utility>

namespace quillspeech::headless {

class FormViews::View final : public FormView {
 public:
  View(Form& shown_form, FormViews& all, std::intptr_t handle)
      : form(shown_form), window(handle), views_(all) {}

  void Control_Changed(const FormControl&, FormChange) override {}
  void Menu_Changed(const FormMenu&, FormChange) override {}
  void Form_Changed(FormChange) override {}
  void Form_Gone() override {
    views_.Go_From_Show(*this);
    views_.views_.erase(&form);  // and this with it
  }

  Form& form;
  std::intptr_t window;
  int showing = 0;  // higher in front; 0: not on show
  Modality modality = Modality::None;
  std::intptr_t parent = 0;
  ChildPlace place;
  ChildMode mode = ChildMode::Live;
  int repaints = 0;

 private:
  FormViews& views_;
};

FormViews::FormViews() = default;

FormViews::~FormViews() {
  for (const auto& [form, view] : views_) view->form.Attach(nullptr);
}

FormViews::View* FormViews::Find(const Form& form) const {
  const auto found = views_.find(&form);
  return found == views_.end() ? nullptr : found->second.get();
}

FormViews::View& FormViews::View_Of(Form& form) {
  auto& view = views_[&form];
  if (!view) {
    view = std::make_unique<View>(form, *this, ++last_window_);
    form.Attach(view.get());
  }
  return *view;
}

void FormViews::Show(Form& form, Modality modality) {
  const std::weak_ptr<const void> life = form.Life();
  form.Load();
  if (life.expired() || !form.Is_Loaded()) return;
  View& view = View_Of(form);
  const bool is_modal_already = view.showing > 0 && view.modality == Modality::Modal;
  shown.push_back({form.Name(), modality});
  Come_On_Show(view, is_modal_already ? Modality::Modal : modality);
  if (modality == Modality::Modal && !is_modal_already) Run_Modally(form);
}

void FormViews::Come_On_Show(View& view, Modality modality) {
  const bool is_new = view.showing == 0 || view.modality != modality;
  view.showing = ++last_showing_;
  view.modality = modality;
  if (is_new && At_Showing) At_Showing(view.form, true, modality);
}

void FormViews::Go_From_Show(View& view) {
  if (std::exchange(view.showing, 0) > 0 && At_Showing) At_Showing(view.form, false, view.modality);
}

// The form is only looked at while it has a view.
void FormViews::Run_Modally(Form& form) {
  const auto is_shown = [this, &form, life = form.Life()] {
    return !life.expired() && Is_Shown(form);
  };
  modal_shows_.emplace_back(is_shown);
  try {
    Wait_Modally(form, is_shown);
  } catch (...) {
    modal_shows_.pop_back();
    if (is_shown()) Hide(form);
    throw;
  }
  modal_shows_.pop_back();
}

void FormViews::Wait_Modally(Form& form, const std::function<bool()>& is_shown) {
  while (is_shown() && !actions.empty()) {
    const auto action = std::move(actions.front());
    actions.pop_front();
    action(form);
  }
  while (is_shown() && Wait()) {
  }
  if (is_shown()) form.Unload();
}

void FormViews::Hide(Form& form) {
  if (View* const view = Find(form)) Go_From_Show(*view);
}

void FormViews::Make_Child(Form& form, std::intptr_t parent, const ChildPlace& place,
                           ChildMode mode) {
  const std::weak_ptr<const void> life = form.Life();
  form.Load();
  if (life.expired() || !form.Is_Loaded()) return;
  View& view = View_Of(form);
  view.showing = 0;
  view.parent = parent;
  view.place = place;
  view.mode = mode;
}

void FormViews::Move_Child(Form& form, const ChildPlace& place) {
  if (View* const view = Find(form)) view->place = place;
}

void FormViews::Set_Child_Mode(Form& form, ChildMode mode) {
  if (View* const view = Find(form)) view->mode = mode;
}

std::intptr_t FormViews::Window_Of(const Form& form) const {
  const View* const view = Find(form);
  return view ? view->window : 0;
}

bool FormViews::Is_Shown(const Form& form) const {
  const View* const view = Find(form);
  return view && view->showing > 0;
}

void FormViews::Repaint(Form& form) {
  if (View* const view = Find(form)) ++view->repaints;
}

std::vector<Form*> FormViews::On_Show() const {
  std::vector<const View*> found;
  for (const auto& [form, view] : views_) {
    if (view->showing > 0) found.push_back(view.get());
  }
  std::sort(found.begin(), found.end(),
            [](const View* one, const View* other) { return one->showing < other->showing; });
  std::vector<Form*> forms;
  forms.reserve(found.size());
  for (const View* const view : found) forms.push_back(&view->form);
  return forms;
}

const Form* FormViews::Blocker_Of(const Form* form) const {
  const View* const asked = form ? Find(*form) : nullptr;
  const View* blocker = nullptr;
  for (const auto& [other, view] : views_) {
    const bool is_modal = view->showing > 0 && view->modality == Modality::Modal;
    if (!is_modal || (asked && view->showing <= asked->showing)) continue;
    if (!blocker || view->showing > blocker->showing) blocker = view.get();
  }
  return blocker ? &blocker->form : nullptr;
}

Modality FormViews::Modality_Of(const Form& form) const {
  const View* const view = Find(form);
  return view ? view->modality : Modality::None;
}

ChildPlace FormViews::Place_Of(const Form& form) const {
  const View* const view = Find(form);
  return view ? view->place : ChildPlace{};
}

ChildMode FormViews::Mode_Of(const Form& form) const {
  const View* const view = Find(form);
  return view ? view->mode : ChildMode::Live;
}

std::intptr_t FormViews::Parent_Of(const Form& form) const {
  const View* const view = Find(form);
  return view ? view->parent : 0;
}

int FormViews::Repaints_Of(const Form& form) const {
  const View* const view = Find(form);
  return view ? view->repaints : 0;
}

}  // namespace quillspeech::headless
