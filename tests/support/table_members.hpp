// A control's members as a property page reaches them: by name, through the member table.
#pragma once

#include <string>
#include <string_view>

#include "base/run_time_failure.hpp"
#include "core/conversions.hpp"
#include "core/member_table.hpp"
#include "core/property_pages.hpp"

namespace quillspeech::tests {

class TableMembers final : public MemberSource {
 public:
  explicit TableMembers(Control& control) : control_(control) {}

  std::string Get(std::string_view member) override {
    return To_Text(Get_Member(Found(member, Access::Get), control_));
  }
  void Let(std::string_view member, std::string_view text) override {
    Let_Member(Found(member, Access::Let), control_, std::string(text));
  }

 private:
  static const Member& Found(std::string_view member, Access access) {
    const Member* const found = Find_Member(member, access);
    if (!found) Fail(Failure::Invalid_Call);
    return *found;
  }

  Control& control_;
};

}  // namespace quillspeech::tests
