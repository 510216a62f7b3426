#include "cli/host_control.hpp"

#include <chrono>
#include <utility>
#include <variant>

#include "base/text.hpp"
#include "cli/box_json.hpp"
#include "cli/host_failure.hpp"
#include "core/operations.hpp"
#include "core/persistence.hpp"

namespace quillspeech::cli {

namespace {

nlohmann::ordered_json Face_Json(const Face& face) {
  return {{"Label1", To_Utf8(face.Label1)},
          {"Text1", To_Utf8(face.Text1)},
          {"Text2", To_Utf8(face.Text2)}};
}

nlohmann::ordered_json Answer_Json(const std::optional<std::string>& answer) {
  return answer ? nlohmann::ordered_json(To_Utf8(*answer)) : nlohmann::ordered_json(nullptr);
}

}  // namespace

HostControl::HostControl(const LiveOptions& options, std::ostream& out)
    : out_(out),
      live_(std::make_unique<LiveSession>(options, static_cast<MessageBoxes&>(*this),
                                          static_cast<Dialogs&>(*this))),
      face_(Face_Json(Face())) {
  Session& session = *live_->session;
  Prepare_Session(session);
  Forget_Settings(session);
  live_->At_Cue = [this](const std::string& name, int flags) {
    Tell({{"sound", {{"name", To_Utf8(name)}, {"flags", flags}}}});
  };
  live_->At_Write = [this](std::int64_t bytes) {
    if (echo_) Tell_Echo(*echo_, bytes);
  };
  Watch_Echo();
  live_->views.At_Showing = [this](const Form& form, bool is_shown, Modality modality) {
    const bool is_modal = modality == Modality::Modal;
    Tell({{"window", {{"name", form.Name()}, {"shown", is_shown}, {"modal", is_modal}}}});
  };
  live_->views.Wait = [this] { return Wait_In_Window(); };
  control_ = Control::Make(session, *this);
}

// What goes with the session is nobody's news.
HostControl::~HostControl() { live_->views.At_Showing = nullptr; }

void HostControl::Tell(const Json& line) {
  out_ << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
}

std::shared_ptr<Control> HostControl::Living_Control() const {
  if (control_->Is_Terminated()) {
    throw RefusedRequest("the control has ended; new or load makes another");
  }
  return control_;
}

std::shared_ptr<Control> HostControl::Some_Control() {
  if (control_->Is_Terminated()) control_ = Control::Make(*live_->session, *this);
  return control_;
}

void HostControl::End() {
  const auto control = control_;
  control->UserControl_Terminate();
}

void HostControl::Wait_For_Events() {
  try {
    live_->Events().Wait_For_Events();
  } catch (...) {
    Tell({{"failure", Current_Failure_Json()}});
  }
}

void HostControl::Raise(const ControlEvent& event) {
  const EventRow& row = Row_Of(event.id);
  Json line = {{"event", row.name}};
  if (const auto* text = std::get_if<std::string>(&event.argument)) {
    line[std::string(row.argument)] = To_Utf8(*text);
  } else if (const auto* number = std::get_if<std::int16_t>(&event.argument)) {
    line[std::string(row.argument)] = *number;
  }
  line["at_ms"] = Milliseconds();
  Tell(line);
}

void HostControl::Property_Changed(std::string_view name) { Tell({{"changed", name}}); }

// A colour that changes is not told.
void HostControl::Face_Changed(const Face& face) {
  Json now = Face_Json(face);
  if (now == face_) return;
  face_ = std::move(now);
  Tell({{"face", face_}});
}

void HostControl::Pump_Failed(int number) {
  Tell({{"failure", {{"number", number}, {"text", Host_Text(number)}}}});
}

BoxAnswer HostControl::Show(const MessageBox& box) {
  BoxAnswer answer = BoxAnswer::OK;
  if (box.buttons == BoxButtons::YesNo) {
    answer = Next_Answer() == "Yes" ? BoxAnswer::Yes : BoxAnswer::No;
  }
  Tell({{"box", Box_Json(box, answer)}});
  return answer;
}

std::string HostControl::Ask_Text(const InputBox& box) {
  const auto answer = Next_Answer();
  Tell({{"input",
         {{"title", To_Utf8(box.title)},
          {"prompt", To_Utf8(box.prompt)},
          {"text", To_Utf8(box.text)},
          {"answer", Answer_Json(answer)}}}});
  return answer.value_or("");
}

std::string HostControl::Ask_File(const FileDialog& dialog) {
  const auto answer = Next_Answer();
  Tell({{"file_dialog",
         {{"title", To_Utf8(dialog.title)},
          {"pattern", To_Utf8(dialog.pattern)},
          {"name", To_Utf8(dialog.name)},
          {"answer", Answer_Json(answer)}}}});
  return answer.value_or("");
}

std::optional<std::string> HostControl::Next_Answer() {
  if (answers.empty()) return std::nullopt;
  auto answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

// It is told when it begins to sound, or, when it never does, at its end.
void HostControl::Watch_Echo() {
  auto& operation = live_->session->operations.Play_Echo;
  operation = [this, play = operation](Session& session, std::int64_t first, std::int64_t last) {
    struct Scope {
      Echo*& current;
      Echo* const before;
      ~Scope() { current = before; }
    };
    Echo echo{first, last};
    {
      const Scope scope{echo_, std::exchange(echo_, &echo)};
      play(session, first, last);
    }
    if (!echo.told) Tell_Echo(echo, 0);
  };
}

void HostControl::Tell_Echo(Echo& echo, std::int64_t bytes) {
  echo.told = true;
  Tell({{"echo", {{"first", echo.first}, {"last", echo.last}, {"bytes", bytes}}}});
}

std::int64_t HostControl::Milliseconds() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(live_->Events().Now()).count();
}

}  // namespace quillspeech::cli
