// What each of the 9 calls does.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/member_table.hpp"
#include "core/operations.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech {
namespace {

using Names = std::vector<std::string>;

class MemberCalls : public testing::Test, protected tests::ControlTest {
 protected:
  void Call(std::string_view name) { Call_Member(*Find_Member(name, Access::Call), *control); }
};

TEST_F(MemberCalls, Refresh_repaints_the_control) {
  Call("Refresh");
  EXPECT_EQ(host_program.repaints, 1);
}

TEST_F(MemberCalls, AboutBox_shows_the_help) {
  Call("AboutBox");
  EXPECT_EQ(calls, Names{"Show_Help"});
}

TEST_F(MemberCalls, Both_editor_calls_show_the_chooser) {
  Call("SHOW_LANGUAGE_EDITOR");
  Call("SHOW_ENGINE_EDITOR");
  EXPECT_EQ(calls, Names(2, "Show_Splash"));
}

TEST_F(MemberCalls, InitializeSound_loops_its_cue) {
  Call("InitializeSound");
  EXPECT_EQ(cues.calls, Names{"loop backon.wav"});
}

TEST_F(MemberCalls, A_session_is_started_restarted_and_stopped) {
  Call("Start_Real_Action");
  EXPECT_EQ(session.flags.Session_Started, 1);
  Call("Restart");
  Call("Stop_Real_Action");
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(host_program.events, (Names{"StartRecognitionActivity", "RestartRecognitionActivity",
                                        "StopRecognitionActivity"}));
}

TEST_F(MemberCalls, A_wave_file_is_opened_and_processed) {
  session.settings.Stop_everything_now = "YES";
  session.settings.Open_this_Wave_File = "none.wav";
  Call("Open_Specified_Wave_File_And_Process");
  EXPECT_EQ(session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(MemberCalls, What_is_no_call_is_an_invalid_call) {
  const Member& get = *Find_Member("Enabled", Access::Get);
  EXPECT_EQ(tests::Failure_Of([&] { Call_Member(get, *control); }), 5);
}

}  // namespace
}  // namespace quillspeech
