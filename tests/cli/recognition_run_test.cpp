#include "cli/recognition_run.hpp"

#include "base/angle_table.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class RecognitionRun : public CommandTest {};

TEST_F(RecognitionRun, A_box_that_tells_of_a_failure_is_a_complaint) {
  struct Case {
    std::string title;
    BoxIcon icon;
    bool fails;
  };
  const std::vector<Case> Cases = {
      {"Quillspeech Wave ERROR", BoxIcon::Stop, true},
      {"Quillspeech FATAL ERROR", BoxIcon::Stop, true},
      {"Quillspeech ERROR", BoxIcon::Stop, true},
      {"Quillspeech USER ERROR", BoxIcon::Stop, true},
      {"Quillspeech CRITICAL USER ERROR", BoxIcon::None, true},  // it has no icon
      {"Quillspeech ERROR", BoxIcon::Information, false},
      {"Quillspeech ERROR", BoxIcon::None, false},
      {"Quillspeech Settings", BoxIcon::None, false},
      {"Quillspeech Info.", BoxIcon::Information, false},
      {"Quillspeech User Error", BoxIcon::Stop, false}};  // of a setting, told before the run
  for (const Case& one : Cases) {
    const cli::RunOptions options;
    const cli::RecognitionRun run(options, std::make_shared<AngleTables>());
    Show_Box(run.Asked_Session(), "Something happened.", one.title, one.icon);
    const auto expected =
        one.fails ? std::vector<std::string>{"Something happened."} : std::vector<std::string>{};
    EXPECT_EQ(run.Complaints(), expected) << one.title;
  }
}

}  // namespace
}  // namespace quillspeech::tests
