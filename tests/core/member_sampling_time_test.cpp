// A sampling time of design mode, in a session at run time.
#include <gtest/gtest.h>

#include <cstdint>

#include "tests/core/live_session_fixture.hpp"
#include "tests/support/member_texts.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(MemberSamplingTime, One_of_3000_ms_set_in_design_mode_is_captured_as_it_stands_at_run_time) {
  constexpr std::int64_t Bytes_Of_3000_ms = 66'150;
  LiveRun test;
  test.session.settings.Speech_sampling_time_in_ms = 7000;
  test.host_program.user_mode = false;
  Let_Text(*test.control, "Speech_sampling_time_in_ms", "3000");
  test.host_program.user_mode = true;
  Start_Real_Action(*test.control);
  test.events.Run_For(500ms);  // into the first capture
  EXPECT_EQ(test.Captures(), 1);
  EXPECT_EQ(test.session.sample.Samples_Per_Capture, Bytes_Of_3000_ms);
  EXPECT_EQ(test.session.sample.Wave_Header.buffer_length,
            Bytes_Of_3000_ms + test.session.settings.Digital_Signal_Processing_Level);
  EXPECT_EQ(Get_Text(*test.control, "Speech_sampling_time_in_ms"), "3000");
  EXPECT_TRUE(test.boxes.shown.empty());
}

}  // namespace
}  // namespace quillspeech
