#include "cli/members.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>

#include "base/text.hpp"
#include "core/member_table.hpp"

namespace quillspeech::cli {
namespace {

const char* Access_Name(Access access) {
  switch (access) {
    case Access::Get:
      return "get";
    case Access::Let:
      return "let";
    case Access::Call:
      return "call";
  }
  return "";
}

const char* Type_Name(MemberType type) {
  switch (type) {
    case MemberType::None:
      return "";
    case MemberType::Text:
      return "string";
    case MemberType::Number16:
      return "16-bit";
    case MemberType::Number32:
      return "32-bit";
    case MemberType::Boolean:
      return "Boolean";
  }
  return "";
}

std::string Hex(std::int32_t id) {
  std::ostringstream hex;
  hex << "0x" << std::hex << std::uppercase << std::setw(8) << std::setfill('0')
      << static_cast<std::uint32_t>(id);
  return hex.str();
}

std::size_t Longest_Name() {
  std::size_t longest = 0;
  for (const Member& member : Member_Table()) longest = std::max(longest, member.name.size());
  return longest;
}

std::string Padded(std::string_view text, std::size_t width) { return Fixed(text, width) + "  "; }

}  // namespace

void Print_Members(std::ostream& out) {
  const std::size_t name_width = Longest_Name();
  int order = 0;
  for (const Member& member : Member_Table()) {
    std::string line = Padded(std::to_string(++order), 3) + Padded(member.name, name_width) +
                       Padded(Access_Name(member.access), 4) + Padded(Hex(member.id), 10) +
                       Padded(Type_Name(member.type), 7);
    if (member.help.empty()) line.erase(line.find_last_not_of(' ') + 1);
    out << line << member.help << '\n';
  }
}

void Print_Members_As_Json(std::ostream& out) {
  int order = 0;
  for (const Member& member : Member_Table()) {
    nlohmann::ordered_json json = {
        {"order", ++order},     {"name", member.name}, {"access", Access_Name(member.access)},
        {"id", Hex(member.id)}, {"type", nullptr},     {"help", member.help}};
    if (member.type != MemberType::None) json["type"] = Type_Name(member.type);
    out << json.dump() << '\n';
  }
}

void Add_Members_Command(CLI::App& app, Console& console) {
  const auto as_json = std::make_shared<bool>(false);  // lives as long as the callback
  auto& command = *app.add_subcommand("members", "Print the control's programming interface");
  command.add_flag("--json", *as_json, "Print one JSON object a member, each on a line");
  command.callback([as_json, &console] {
    (*as_json ? Print_Members_As_Json : Print_Members)(console.out);
    console.out << std::flush;
  });
}

}  // namespace quillspeech::cli
