// How the rows of the member table are found and run.
#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "core/control.hpp"
#include "core/conversions.hpp"
#include "core/member_table.hpp"
#include "session/session.hpp"

namespace quillspeech {
namespace {

// The row has no such access, or there is no control to reach.
void Expect(bool can_be_done) {
  if (!can_be_done) Fail(Failure::Invalid_Call);
}

bool Is_Reached(const Member& member, const ControlInstance& instance) {
  return !member.needs_control || instance.control;
}

SetResult Refuse_Value(const Member& member, Session& session) {
  Show_Box(session, "Incorrect Settings for " + std::string(member.name_in_refusal) + " ",
           "Quillspeech Settings");
  return SetResult::Refused;
}

}  // namespace

const Member* Find_Member(std::string_view name, Access access) {
  for (const Member& member : Member_Table()) {
    if (member.access == access && member.name == name) return &member;
  }
  return nullptr;
}

MemberValue Get_Member(const Member& member, Session& session, ControlInstance& instance) {
  Expect(member.access == Access::Get && Is_Reached(member, instance));
  return member.get({session, instance, member.name});
}

SetResult Let_Member(const Member& member, Session& session, ControlInstance& instance,
                     const MemberValue& value) {
  Expect(member.access == Access::Let && Is_Reached(member, instance));
  if (!member.let) return SetResult::Is_Result;
  if (!member.name_in_refusal.empty() && !Is_Numeric(value)) return Refuse_Value(member, session);
  return member.let({session, instance, member.name}, value);
}

void Call_Member(const Member& member, Control& control) {
  Expect(member.access == Access::Call);
  const auto self = control.shared_from_this();
  member.call(control);
}

MemberValue Get_Member(const Member& member, Control& control) {
  const auto self = control.shared_from_this();
  return Get_Member(member, control.session, control.instance);
}

SetResult Let_Member(const Member& member, Control& control, const MemberValue& value) {
  const auto self = control.shared_from_this();
  control.In_User_Mode();  // asks the container, for the instance
  return Let_Member(member, control.session, control.instance, value);
}

std::vector<Member> Setting_Members() {
  std::vector<Member> settings;
  std::ranges::copy_if(Member_Table(), std::back_inserter(settings),
                       [](const Member& member) { return member.let && !member.needs_control; });
  return settings;
}

}  // namespace quillspeech
