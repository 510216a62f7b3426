// Members of a control by their names, with texts for values.
#pragma once

#include <string>
#include <string_view>

#include "core/conversions.hpp"
#include "core/member_table.hpp"

namespace quillspeech::tests {

inline std::string Get_Text(Control& control, std::string_view name) {
  return To_Text(Get_Member(*Find_Member(name, Access::Get), control));
}

inline SetResult Let_Text(Control& control, std::string_view name, std::string_view text) {
  return Let_Member(*Find_Member(name, Access::Let), control, std::string(text));
}

}  // namespace quillspeech::tests
