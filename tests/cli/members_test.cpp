#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/member_table.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class Members : public CommandTest {};

TEST_F(Members, Each_is_one_line_in_the_order_of_the_interface) {
  EXPECT_EQ(Run({"members"}), 0);
  EXPECT_EQ(err, "");
  std::istringstream lines(out);
  std::string line;
  for (const Member& member : Member_Table()) {
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_NE(line.find(" " + std::string(member.name) + " "), std::string::npos) << line;
  }
  EXPECT_FALSE(std::getline(lines, line));
}

TEST_F(Members, A_line_holds_order_name_access_id_type_and_help) {
  Run({"members"});
  EXPECT_TRUE(
      out.starts_with("1    Enabled                                 get   0xFFFFFDFE  "
                      "Boolean  Enables/Disables  Quillspeech\n"))
      << out.substr(0, 200);
  EXPECT_NE(out.find("\n3    Refresh                                 call  0x6003004E\n"),
            std::string::npos);
}

TEST_F(Members, Programs_get_one_object_a_line) {
  EXPECT_EQ(Run({"members", "--json"}), 0);
  const auto lines = Json_Lines();
  ASSERT_EQ(lines.size(), 168U);
  EXPECT_EQ(lines[0].dump(),
            R"({"order":1,"name":"Enabled","access":"get","id":"0xFFFFFDFE","type":"Boolean",)"
            R"("help":"Enables/Disables  Quillspeech"})");
  EXPECT_EQ(
      lines[2].dump(),
      R"({"order":3,"name":"Refresh","access":"call","id":"0x6003004E","type":null,"help":""})");
  EXPECT_EQ(lines[167].dump(),
            R"({"order":168,"name":"Speech_echo_feature","access":"let","id":"0x68030000",)"
            R"("type":"string","help":""})");
}

TEST_F(Members, Every_type_has_its_word) {
  Run({"members", "--json"});
  const auto lines = Json_Lines();
  const std::vector<std::pair<std::string, std::string>> Types = {{"Noise_Sensitivity", "16-bit"},
                                                                  {"Send_of_no", "32-bit"},
                                                                  {"Voice_Word", "string"},
                                                                  {"Enabled", "Boolean"}};
  for (const auto& [name, type] : Types) {
    int rows = 0;
    for (const auto& line : lines) {
      if (line["name"] != name) continue;
      EXPECT_EQ(line["type"], type) << name;
      ++rows;
    }
    EXPECT_EQ(rows, 2) << name;  // a get and a let
  }
}

TEST_F(Members, The_blanks_of_a_help_text_are_kept) {
  Run({"members"});
  EXPECT_NE(out.find("string   Reserved \n"), std::string::npos);
  EXPECT_NE(out.find("  This instuction plays the specified intializtion  file in loop \n"),
            std::string::npos);
}

TEST_F(Members, The_command_takes_no_names) {
  EXPECT_EQ(Run({"members", "Noise_Sensitivity"}), 2);
  EXPECT_EQ(out, "");
}

}  // namespace
}  // namespace quillspeech::tests
