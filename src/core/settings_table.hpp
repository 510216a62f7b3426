// The members that hold a value, by name and with texts for values, for sessions without a control:
// those that need one are nobody's names here.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/member_table.hpp"

namespace quillspeech {

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
