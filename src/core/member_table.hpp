// The control's programming interface: its 168 members, each of which is one row of one table.
// Every binding (command line, scripted host, dispatch, property pages) goes through these rows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/member_value.hpp"
#include "session/session.hpp"

namespace quillspeech {

class Control;

// What one instance of the control adds to the session that it works on. One without a control
// (a batch run) has everything but the members that need it.
struct ControlInstance {
  bool User_Mode = true;  // false in design mode
  std::string Play_File;
  std::function<void(std::string_view)> Property_Changed = [](std::string_view) {};
  Control* control = nullptr;
};

enum class SetResult {
  Done,             // as the member's rule has it
  Replaced,         // a box told that another value was stored
  Refused,          // a box told why, and the value stays
  Is_Result,        // the member is a result: the value is dropped
  No_Such_Setting,  // nobody has that name
};

// One get or let under way.
struct MemberUse {
  Session& session;
  ControlInstance& instance;
  std::string_view name;

  void Announce() const { instance.Property_Changed(name); }
};

enum class Access { Get, Let, Call };

struct Member {
  std::string_view name;
  Access access;
  std::int32_t id;
  MemberType type = MemberType::None;  // of the value; None for a call
  std::string_view help = {};
  // The name in the box that refuses a value which is no number; empty: there is no such box.
  std::string_view name_in_refusal = {};
  bool needs_control = false;
  bool answers_what_was_set = true;  // false: a get of a setting that answers something else

  // The one that the access names is set; but a let without one is that of a result.
  MemberValue (*get)(const MemberUse&) = nullptr;
  SetResult (*let)(const MemberUse&, const MemberValue&) = nullptr;  // converts the value first
  void (*call)(Control&) = nullptr;
};

constexpr std::size_t Member_Count = 168;

// In the order of the interface.
std::span<const Member, Member_Count> Member_Table();

// Names are compared exactly; null when there is none.
const Member* Find_Member(std::string_view name, Access access);

// The answer, of the member's type. Failure 6 when the value does not fit it, 9 when a table is
// indexed out of its bounds. The get of a member that has none, or that needs a control where
// there is none, is failure 5; so for the others.
MemberValue Get_Member(const Member& member, Session& session, ControlInstance& instance);

// Converts the value to the member's type (core/conversions.hpp) and does what its rule says; what
// fits a result is dropped, whatever it is. Failure 6 when a number does not fit its member, 13
// when a member without a numeric test gets a text that is no number.
SetResult Let_Member(const Member& member, Session& session, ControlInstance& instance,
                     const MemberValue& value);

void Call_Member(const Member& member, Control& control);

// The same as a host in the control's container sees it: a let goes by the container's mode, and
// the container may end the control meanwhile.
MemberValue Get_Member(const Member& member, Control& control);
SetResult Let_Member(const Member& member, Control& control, const MemberValue& value);

// The rows of the lets that store something in a session without a control.
std::vector<Member> Setting_Members();

}  // namespace quillspeech
