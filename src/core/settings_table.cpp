#include "core/settings_table.hpp"

#include <optional>
#include <string>
#include <string_view>

#include "core/conversions.hpp"

namespace quillspeech {
namespace {

const Member* Find_Value(std::string_view name, Access access) {
  const Member* member = Find_Member(name, access);
  return member && !member->needs_control ? member : nullptr;
}

}  // namespace

SetResult Set_Setting(Session& session, ControlInstance& instance, std::string_view name,
                      std::string_view text) {
  const Member* member = Find_Value(name, Access::Let);
  if (!member) return SetResult::No_Such_Setting;
  return Let_Member(*member, session, instance, std::string(text));
}

SetResult Set_Setting(Session& session, std::string_view name, std::string_view text) {
  ControlInstance instance;
  return Set_Setting(session, instance, name, text);
}

std::optional<std::string> Get_Setting(Session& session, ControlInstance& instance,
                                       std::string_view name) {
  const Member* member = Find_Value(name, Access::Get);
  if (!member) return std::nullopt;
  return To_Text(Get_Member(*member, session, instance));
}

std::optional<std::string> Get_Setting(Session& session, std::string_view name) {
  ControlInstance instance;
  return Get_Setting(session, instance, name);
}

}  // namespace quillspeech
