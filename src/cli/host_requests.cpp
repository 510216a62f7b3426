#include "cli/host_requests.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <variant>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "cli/host_card.hpp"
#include "cli/host_failure.hpp"
#include "cli/host_fields.hpp"
#include "cli/host_forms.hpp"
#include "cli/json_bag.hpp"
#include "core/member_table.hpp"
#include "core/persistence.hpp"
#include "core/session_variables.hpp"

namespace quillspeech::cli {

namespace {

using Json = nlohmann::ordered_json;
using namespace host_fields;

// What the reply holds beside its id and ok.
Json Nothing_More() { return Json::object(); }

// As a container does once it has brought the settings.
Json Show_Face(Control& control) {
  control.UserControl_Show();
  control.UserControl_Paint();
  return Nothing_More();
}

Json New(HostRequests& requests, const Json&) {
  const auto control = requests.host.Some_Control();
  UserControl_InitProperties(*control);
  return Show_Face(*control);
}

// Behind the last key, a text, the length of a capture may overflow, which is no key's.
[[noreturn]] void Tell_Failed_Load(const JsonBag& bag, const RunTimeFailure& failure) {
  const std::string& key = bag.Last_Key();
  const auto* const value = bag.Kept(key);
  if (value && value->is_string()) {
    In_Windows_1252(value->get_ref<const std::string&>(), key, failure.Number());
  }
  std::string text = Host_Text(failure.Number());
  const bool is_behind = key == Record_Keys().back().key;
  if (!is_behind || failure.What() != Failure::Overflow) text = Quoted(key) + ": " + text;
  throw RefusedRequest(text, failure.Number());
}

Json Load(HostRequests& requests, const Json& request) {
  JsonBag bag(Object(request, "bag"));
  const auto control = requests.host.Some_Control();
  try {
    UserControl_ReadProperties(*control, bag);
  } catch (const RunTimeFailure& failure) {
    Tell_Failed_Load(bag, failure);
  }
  return Show_Face(*control);
}

Json Save(HostRequests& requests, const Json&) {
  JsonBag bag;
  UserControl_WriteProperties(*requests.host.Living_Control(), bag);
  return {{"bag", bag.Record()}};
}

Json End(HostRequests& requests, const Json&) {
  requests.host.Living_Control();
  requests.host.End();
  return Nothing_More();
}

const Member& Member_Named(const Json& request, Access access) {
  const Member* const member = Find_Member(Text(request, "member"), access);
  if (!member) throw RefusedRequest(Host_Text(No_Such_Member), No_Such_Member);
  return *member;
}

Json Get(HostRequests& requests, const Json& request) {
  const auto control = requests.host.Living_Control();
  return {{"value", Json_Of(Get_Member(Member_Named(request, Access::Get), *control))}};
}

MemberValue Value(const Json& request) {
  const Json& value = Field(request, "value");
  if (!value.is_string()) return Value_Of_Json(value);
  return In_Windows_1252(value.get_ref<const std::string&>(), "value", Host_Type_Mismatch);
}

Json Let(HostRequests& requests, const Json& request) {
  const auto control = requests.host.Living_Control();
  const Member& member = Member_Named(request, Access::Let);
  Let_Member(member, *control, Value(request));
  return Nothing_More();
}

Json Call(HostRequests& requests, const Json& request) {
  const auto control = requests.host.Living_Control();
  Call_Member(Member_Named(request, Access::Call), *control);
  return Nothing_More();
}

Json Press(HostRequests& requests, const Json& request) {
  const auto control = requests.host.Living_Control();
  host_forms::Require_Free_Host(requests.host);
  const std::string& child = Text(request, "on");
  if (!control->Click_On(child)) {
    throw RefusedRequest("there is nothing to press that is called " + child);
  }
  return Nothing_More();
}

Json Mode(HostRequests& requests, const Json& request) {
  requests.host.user_mode = Truth(request, "user");
  return Nothing_More();
}

Json Program(HostRequests& requests, const Json& request) {
  const bool is_unknown = Field(request, "path").is_null();
  auto& path = requests.host.Live().host.path;
  path = is_unknown ? std::nullopt : std::optional(Field_Text(request, "path"));
  return Nothing_More();
}

Json Answer(HostRequests& requests, const Json& request) {
  const Json& with = Field(request, "with");
  if (!with.is_array()) throw RefusedRequest("\"with\" must be a list of answers");
  std::deque<std::optional<std::string>> answers;
  for (const Json& answer : with) {
    if (answer.is_null()) {
      answers.emplace_back(std::nullopt);
    } else if (answer.is_string()) {
      answers.emplace_back(In_Windows_1252(answer.get_ref<const std::string&>(), "with"));
    } else {
      throw RefusedRequest("an answer must be a text or null");
    }
  }
  std::ranges::move(answers, std::back_inserter(requests.host.answers));
  return Nothing_More();
}

Json Value_Json(const VariableValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return To_Utf8(*text);
  if (const auto* fields = std::get_if<VariableFields>(&value)) {
    Json object = Json::object();
    for (const auto& [name, number] : *fields) object[std::string(name)] = number;
    return object;
  }
  return std::visit([](const auto& one) { return Json(one); }, value);
}

Json Peek(HostRequests& requests, const Json& request) {
  const std::string& name = Text(request, "name");
  const SessionVariable* const variable = Find_Variable(name);
  if (!variable) throw RefusedRequest("there is no session variable " + name);
  if (variable->is_table != request.contains("index")) {
    throw RefusedRequest(name + (variable->is_table ? " is a table and needs \"index\""
                                                    : " is no table and takes no \"index\""));
  }
  const auto index = variable->is_table ? Whole_Number(request, "index") : 0;
  return {{"value", Value_Json(variable->read(requests.host.Last_Control(), index))}};
}

Json Run(HostRequests& requests, const Json& request) {
  constexpr std::int64_t A_Day = 86'400'000;
  requests.Begin_Run(std::chrono::milliseconds(Whole_Number(request, "ms", 0, A_Day)));
  return Nothing_More();
}

// A request that needs the control and what surrounds it, but nothing of the other requests.
template <auto request_on_host>
Json On_Host(HostRequests& requests, const Json& request) {
  return request_on_host(requests.host, request);
}

using Handler = Json (*)(HostRequests&, const Json& request);

constexpr auto Handlers = std::to_array<std::pair<std::string_view, Handler>>({
    {"new", New},
    {"load", Load},
    {"save", Save},
    {"get", Get},
    {"let", Let},
    {"call", Call},
    {"press", Press},
    {"click", On_Host<host_forms::Click>},
    {"menu", On_Host<host_forms::Choose_Menu>},
    {"type", On_Host<host_forms::Type>},
    {"select", On_Host<host_forms::Select>},
    {"key", On_Host<host_forms::Press_Key>},
    {"close", On_Host<host_forms::Close>},
    {"read", On_Host<host_forms::Read>},
    {"windows", On_Host<host_forms::Windows>},
    {"run", Run},
    {"mode", Mode},
    {"program", Program},
    {"answer", Answer},
    {"play", On_Host<host_card::Play>},
    {"faults", On_Host<host_card::Set_Faults>},
    {"peek", Peek},
    {"end", End},
});

// Requests that may open a window which keeps them waiting.
constexpr auto May_Wait = std::to_array<Handler>({
    New,
    Call,
    Press,
    On_Host<host_forms::Click>,
    On_Host<host_forms::Choose_Menu>,
    On_Host<host_forms::Press_Key>,
});

Handler Handler_Of(const Json& request) {
  const std::string& name = Text(request, "do");
  const auto row = std::ranges::find(Handlers, name, &std::pair<std::string_view, Handler>::first);
  if (row != Handlers.end()) return row->second;
  std::string names;
  for (const auto& [known, handler] : Handlers) names.append(" ").append(known);
  throw RefusedRequest("there is no request " + name + "; there are" + names);
}

Json Reply(const std::optional<Json>& id, const Json& content) {
  Json reply = Json::object();
  if (id) reply["id"] = *id;
  reply.update(content);
  return reply;
}

Json Success(const std::optional<Json>& id, const Json& more) {
  Json content = {{"ok", true}};
  content.update(more);
  return Reply(id, content);
}

// The stack has an end.
constexpr int Most_Waiting = 50;

class Nesting {
 public:
  explicit Nesting(int& depth) : depth_(depth) { ++depth_; }
  ~Nesting() { --depth_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  int& depth_;
};

}  // namespace

void HostRequests::Serve(const std::string& line) {
  if (line.find_first_not_of(" \t\r") == std::string::npos) return;
  std::optional<Json> id;
  Json reply;
  try {
    const Json request = Parsed(line);
    id = Id(request);
    const Handler handler = Handler_Of(request);
    const Nesting nesting(waiting_);
    if (waiting_ > Most_Waiting && std::ranges::find(May_Wait, handler) != May_Wait.end()) {
      throw RefusedRequest("too many requests wait inside each other");
    }
    const Json more = handler(*this, request);
    if (handler == Run) {
      run_->id = id;
      return;
    }
    reply = Success(id, more);
  } catch (...) {
    reply = Reply(id, {{"error", Current_Failure_Json()}});
  }
  host.Tell(reply);
}

void HostRequests::Refuse_Long_Line() {
  host.Tell({{"error", {{"number", 0}, {"text", "the line is too long"}}}});
}

void HostRequests::Begin_Run(std::chrono::milliseconds time) {
  run_.emplace();
  pass_time_(time);
}

void HostRequests::Time_Has_Passed() {
  if (!run_) return;
  const Json reply = Success(run_->id, Nothing_More());
  run_.reset();
  host.Tell(reply);
}

}  // namespace quillspeech::cli
