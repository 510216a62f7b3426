#include "activex/member_ids.hpp"

#include <algorithm>

namespace quillspeech::activex {
namespace {

bool Is_Same_Name(std::string_view one, std::string_view other) {
  const auto lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return std::ranges::equal(one, other, {}, lower, lower);
}

}  // namespace

DISPID Id_Of_Member(std::string_view name) {
  for (const Member& member : Member_Table()) {
    if (Is_Same_Name(member.name, name)) return member.id;
  }
  return DISPID_UNKNOWN;
}

const Member* Member_With_Id(DISPID id, Access access) {
  for (const Member& member : Member_Table()) {
    if (member.id == id && member.access == access) return &member;
  }
  return nullptr;
}

}  // namespace quillspeech::activex
