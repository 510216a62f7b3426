#include "cli/host_forms.hpp"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/text.hpp"
#include "cli/host_failure.hpp"
#include "cli/host_fields.hpp"
#include "cli/host_form_json.hpp"

namespace quillspeech::cli::host_forms {
namespace {

using namespace host_fields;

constexpr unsigned char Key_Backspace = 8;
constexpr unsigned char Key_Space = 32;

Json Nothing_More() { return Json::object(); }

// A window on show and, by its name, a part of it; an empty name is the window itself.
struct Target {
  Form& form;
  std::string part;

  std::string Text() const { return form.Name() + (part.empty() ? "" : "." + part); }
  const FormControl* Control() const { return form.Find(part); }
};

Form& Form_On_Show(HostControl& host, const std::string& name) {
  const std::vector<Form*> on_show = host.Live().views.On_Show();
  const auto found = std::find_if(on_show.rbegin(), on_show.rend(),
                                  [&](const Form* form) { return form->Name() == name; });
  if (found != on_show.rend()) return **found;
  throw RefusedRequest("no window " + Quoted(name) + " is on show");
}

Target Target_Of(HostControl& host, const Json& request) {
  const std::string& on = Text(request, "on");
  const auto dot = on.find('.');
  Form& form = Form_On_Show(host, on.substr(0, dot));
  Target target{form, dot == std::string::npos ? "" : on.substr(dot + 1)};
  const bool is_there =
      target.part.empty() || form.Find(target.part) || form.Find_Menu(target.part);
  if (!is_there) throw RefusedRequest(form.Name() + " has no part " + Quoted(target.part));
  return target;
}

[[noreturn]] void Refuse_Behind(const std::string& name, const Form& blocker) {
  throw RefusedRequest(name + " waits until " + blocker.Name() + " is closed");
}

// What a person is to act on.
Target Acted_On(HostControl& host, const Json& request) {
  Target target = Target_Of(host, request);
  const Form* const blocker = host.Live().views.Blocker_Of(&target.form);
  if (blocker) Refuse_Behind(target.form.Name(), *blocker);
  return target;
}

Target Acted_On_Control(HostControl& host, const Json& request) {
  Target target = Acted_On(host, request);
  if (!target.Control()) throw RefusedRequest(target.Text() + " is no control of a window");
  return target;
}

void Require(bool is_done, const Target& target, const std::string& action) {
  if (!is_done) throw RefusedRequest(target.Text() + " does not take " + action + " now");
}

bool Is_List(const FormControl& control) {
  return control.kind == FormControlKind::ComboBox || control.kind == FormControlKind::ListBox;
}

// Whoever clicks or types gives the focus to that control, where it takes it.
void Give_Focus(const Target& target) {
  if (target.Control()) target.form.Move_Focus(target.part);
}

unsigned char Key_Of(const Json& request) {
  const std::string key = Field_Text(request, "key");
  for (const auto& [name, code] : {std::pair{"Enter", Key_Enter},
                                   {"Escape", Key_Escape},
                                   {"Backspace", Key_Backspace},
                                   {"Space", Key_Space}}) {
    if (key == name) return code;
  }
  if (key.size() != 1) {
    throw RefusedRequest("\"key\" must be one character or Enter, Escape, Backspace or Space");
  }
  return static_cast<unsigned char>(key.front());
}

// What the key does where it is pressed, once the handlers have seen it.
void Do_Key(const Target& target, unsigned char key) {
  const FormControl* const control = target.Control();
  if (!control || !target.form.Takes_Action(target.part)) return;
  if (control->kind == FormControlKind::Button && key == Key_Space) {
    target.form.Click(target.part);
    return;
  }
  const bool has_text =
      control->kind == FormControlKind::TextBox || control->kind == FormControlKind::ComboBox;
  if (!has_text || key == Key_Escape) return;
  std::string text = control->text;
  if (key == Key_Backspace && !text.empty()) text.pop_back();
  if (key == Key_Enter && control->multi_line) text += "\r\n";
  if (key >= Key_Space) text += static_cast<char>(key);
  target.form.Type(target.part, text);
}

}  // namespace

void Require_Free_Host(HostControl& host) {
  if (const Form* const blocker = host.Live().views.Blocker_Of()) {
    Refuse_Behind("the face", *blocker);
  }
}

Json Click(HostControl& host, const Json& request) {
  const Target target = Acted_On(host, request);
  if (target.part.empty()) {
    Require(target.form.Click_Form(), target, "a click");
    return Nothing_More();
  }
  const FormControl* const control = target.Control();
  if (!control) throw RefusedRequest(target.Text() + " is a menu: use \"menu\"");
  if (Is_List(*control)) throw RefusedRequest(target.Text() + " is a list: use \"select\"");
  Give_Focus(target);
  Require(target.form.Click(target.part), target, "a click");
  return Nothing_More();
}

Json Choose_Menu(HostControl& host, const Json& request) {
  const Target target = Acted_On(host, request);
  if (!target.form.Find_Menu(target.part)) throw RefusedRequest(target.Text() + " is no menu");
  Require(target.form.Choose_Menu(target.part), target, "a choice");
  return Nothing_More();
}

Json Type(HostControl& host, const Json& request) {
  const Target target = Acted_On_Control(host, request);
  const std::string text = Field_Text(request, "text");
  Give_Focus(target);
  Require(target.form.Type(target.part, text), target, "a text");
  return Nothing_More();
}

Json Select(HostControl& host, const Json& request) {
  const Target target = Acted_On_Control(host, request);
  const auto index = Whole_Number(request, "index", 0, std::numeric_limits<std::int32_t>::max());
  if (!Is_List(*target.Control())) throw RefusedRequest(target.Text() + " is no list");
  Give_Focus(target);
  Require(target.form.Select(target.part, static_cast<int>(index)), target,
          "item " + std::to_string(index));
  return Nothing_More();
}

Json Press_Key(HostControl& host, const Json& request) {
  Target target = Acted_On(host, request);
  const unsigned char key = Key_Of(request);
  if (target.part.empty()) target.part = target.form.Focused();
  if (!target.part.empty() && !target.Control()) {
    throw RefusedRequest(target.Text() + " is a menu: use \"menu\"");
  }
  Give_Focus(target);
  if (!target.part.empty()) Require(target.form.Takes_Action(target.part), target, "a key");
  const std::weak_ptr<const void> life = target.form.Life();
  const bool is_done = target.form.Press_Key(target.part, key);
  if (life.expired() || !target.form.Is_Loaded()) return Nothing_More();
  if (!is_done || key != Key_Enter) Do_Key(target, key);
  return Nothing_More();
}

Json Close(HostControl& host, const Json& request) {
  const Target target = Acted_On(host, request);
  if (!target.part.empty()) throw RefusedRequest(target.Text() + " is no window");
  Require(target.form.Close(), target, "a close");
  return Nothing_More();
}

Json Read(HostControl& host, const Json& request) {
  const Target target = Target_Of(host, request);
  if (target.part.empty()) return {{"value", Form_Json(target.form)}};
  if (const FormControl* const control = target.Control()) {
    return {{"value", Control_Json(*control)}};
  }
  return {{"value", Menu_Json(target.form.Menu(target.part))}};
}

Json Windows(HostControl& host, const Json&) {
  const headless::FormViews& views = host.Live().views;
  Json windows = Json::array();
  for (const Form* const form : views.On_Show()) {
    windows.push_back({{"name", form->Name()},
                       {"caption", To_Utf8(form->Caption())},
                       {"modal", views.Modality_Of(*form) == Modality::Modal}});
  }
  return {{"value", std::move(windows)}};
}

}  // namespace quillspeech::cli::host_forms
