#include "core/settings_table.hpp"

namespace quillspeech {

const Member* Find_Member(std::string_view name) {
  for (const auto rows : {Setting_Members(), Result_Members()}) {
    for (const Member& member : rows) {
      if (member.name == name) return &member;
    }
  }
  return nullptr;
}

SetResult Set_Setting(Session& session, ControlInstance& instance, std::string_view name,
                      std::string_view text) {
  const Member* member = Find_Member(name);
  if (!member) return SetResult::No_Such_Setting;
  if (!member->set) return SetResult::Is_Result;
  return member->set({session, instance, member->name, text});
}

SetResult Set_Setting(Session& session, std::string_view name, std::string_view text) {
  ControlInstance instance;
  return Set_Setting(session, instance, name, text);
}

std::optional<std::string> Get_Setting(Session& session, ControlInstance& instance,
                                       std::string_view name) {
  const Member* member = Find_Member(name);
  if (!member) return std::nullopt;
  return member->get(session, instance);
}

std::optional<std::string> Get_Setting(Session& session, std::string_view name) {
  ControlInstance instance;
  return Get_Setting(session, instance, name);
}

}  // namespace quillspeech
