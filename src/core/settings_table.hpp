// The members of the property surface that hold a value, one row each: what a get answers and what
// a set does. Every binding (command line, dispatch, property pages) goes through these rows.
//
// All values travel as text: numbers in decimal, rounded half to even when they have a fraction.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "session/session.hpp"

namespace quillspeech {

// What one instance of the control adds to the session that it works on.
struct ControlInstance {
  bool User_Mode = true;  // false in design mode
  std::string Play_File;
  std::function<void(std::string_view)> Property_Changed = [](std::string_view) {};
};

enum class SetResult {
  Done,             // as the member's rule has it
  Replaced,         // a box told that another value was stored
  Refused,          // a box told why, and the value stays
  Is_Result,        // the member is a result: the value is dropped
  No_Such_Setting,  // nobody has that name
};

// One set under way.
struct SetCall {
  Session& session;
  ControlInstance& instance;
  std::string_view name;
  std::string_view text;

  void Announce() const { instance.Property_Changed(name); }
};

struct Member {
  std::string_view name;
  std::string (*get)(Session&, ControlInstance&);
  SetResult (*set)(const SetCall&);  // null for a result
};

std::span<const Member> Setting_Members();
std::span<const Member> Result_Members();

// Names are compared exactly; null when there is none.
const Member* Find_Member(std::string_view name);

// Failure 6 when a number does not fit its member, 13 when a member without a numeric test gets a
// text that is no number, 9 when a table is indexed out of its bounds.
SetResult Set_Setting(Session& session, ControlInstance& instance, std::string_view name,
                      std::string_view text);
// The same at run time, with nobody to tell of changes.
SetResult Set_Setting(Session& session, std::string_view name, std::string_view text);

// The answer of the member's getter, or nothing when nobody has that name. Failure 9 as above.
std::optional<std::string> Get_Setting(Session& session, ControlInstance& instance,
                                       std::string_view name);
std::optional<std::string> Get_Setting(Session& session, std::string_view name);

}  // namespace quillspeech
