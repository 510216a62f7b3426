#include <gtest/gtest.h>

#include <tuple>

#include "tests/audio/live_capture_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(StopRecording, It_ends_the_wait_of_the_start_at_any_moment) {
  LiveCapture test;
  test.Without_Timers();
  test.Stop_At(100ms);
  Start_Recording(test.session);
  EXPECT_EQ(test.events.Now(), 100ms);
  EXPECT_EQ(test.card.calls, Set_Up + Taken_Down + Calls{"wave_in_unprepare_header"});
}

TEST(StopRecording, What_was_recorded_stays_and_its_last_index_is_known) {
  LiveCapture test;
  test.Without_Timers();
  test.Stop_At(100ms);
  Start_Recording(test.session);
  EXPECT_EQ(test.session.recorder.Last_Recorded_Index, 2'204);
  EXPECT_EQ(test.Byte(2'204), 140);
  EXPECT_EQ(test.Byte(2'205), 0);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
  EXPECT_EQ(test.session.recorder.Recording_Stopped, 1);
}

TEST(StopRecording, It_is_harmless_when_nothing_records) {
  LiveCapture test;
  Stop_Recording(test.session);
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_EQ(test.session.recorder.Recording_Stopped, 0);
  EXPECT_EQ(test.session.recorder.Last_Recorded_Index, 0);
}

TEST(StopRecording, A_recovery_while_nothing_records_shows_the_status_image_and_touches_no_device) {
  LiveCapture test;
  std::vector<int> images;
  test.session.operations.Show_Status_Image = [&](Session&, int image) { images.push_back(image); };
  test.session.settings.I_want_Status_Animation = "YES";
  test.session.operations.Stop_And_Recover(test.session);
  EXPECT_EQ(images, std::vector{2});
  EXPECT_TRUE(test.card.calls.empty());
}

TEST(StopRecording, A_second_stop_shows_the_status_and_changes_nothing) {
  LiveCapture test;
  test.Without_Timers();
  test.Stop_At(100ms);
  Start_Recording(test.session);
  test.session.settings.I_want_Status_Animation = "YES";
  test.card.calls.clear();
  test.session.sample.Wave_Header.bytes_recorded = 7;
  Stop_Recording(test.session);
  EXPECT_EQ(test.calls, Calls{"Show_Status_Image 2"});
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_EQ(test.session.recorder.Last_Recorded_Index, 2'204);
}

TEST(StopRecording, Both_flags_must_stand_for_a_recording_that_runs) {
  for (const auto& [active, stopped, calls] :
       {std::tuple{0, 0, 0U}, {0, 1, 0U}, {1, 1, 0U}, {1, 0, 4U}}) {
    LiveCapture test;
    test.session.recorder.Recording_Active = active;
    test.session.recorder.Recording_Stopped = stopped;
    Stop_Recording(test.session);
    EXPECT_EQ(test.card.calls.size(), calls) << active << stopped;
  }
}

TEST(StopRecording, A_device_that_fails_to_stop_does_not_keep_the_wait) {
  for (const std::string& failing : Taken_Down) {
    LiveCapture test;
    test.Without_Timers();
    test.card.faults[failing] = Wave_Bad_Handle;
    test.Stop_At(100ms);
    Start_Recording(test.session);
    EXPECT_EQ(test.events.Now(), 100ms) << failing;
    EXPECT_EQ(test.session.recorder.Recording_Stopped, 1) << failing;
  }
}

TEST(StopRecording, A_run_time_failure_shows_a_box_recovers_and_leaves_the_flags) {
  LiveCapture test;
  test.session.recorder.Recording_Active = 1;
  test.session.sample.Wave_Header.bytes_recorded = 0xFFFFFFFF;  // no index has so many bits
  test.session.operations.Stop_And_Recover = [&](Session&) {
    test.calls.push_back("recovered behind " + std::to_string(test.boxes.shown.size()) + " box");
  };
  Stop_Recording(test.session);
  EXPECT_TRUE(test.Showed(
      "Problem Stoping Recording, Check Your Settings and Sound Card, Close Application",
      "Quillspeech Info", BoxIcon::Stop));
  EXPECT_EQ(test.calls, Calls{"recovered behind 1 box"});
  EXPECT_EQ(test.session.recorder.Recording_Active, 1);
  EXPECT_EQ(test.session.recorder.Recording_Stopped, 0);
  EXPECT_EQ(test.session.recorder.Last_Recorded_Index, 0);
}

TEST(StopRecording, A_stop_that_fails_in_its_own_recovery_too_is_not_recovered_from_again) {
  LiveCapture test;
  test.session.recorder.Recording_Active = 1;
  test.session.sample.Wave_Header.bytes_recorded = 0xFFFFFFFF;
  Stop_Recording(test.session);
  EXPECT_EQ(test.calls, Calls{"Stop_And_Recover"});
  EXPECT_EQ(test.boxes.shown.size(), 2U);
  Stop_Recording(test.session);  // a later one is
  EXPECT_EQ(test.calls, (Calls{"Stop_And_Recover", "Stop_And_Recover"}));
}

TEST(CloseRecorder, It_does_nothing) {
  for (const int started : {0, 1}) {
    LiveCapture test;
    test.session.flags.Session_Started = started;
    test.session.recorder.Recording_Active = 1;
    test.session.settings.I_want_Status_Animation = "YES";
    Close_Recorder(test.session);
    EXPECT_TRUE(test.card.calls.empty());
    EXPECT_TRUE(test.calls.empty());
    EXPECT_EQ(test.session.recorder.Recording_Active, 1);
    EXPECT_EQ(test.session.flags.Session_Started, started);
  }
}

TEST(CloseRecorder, A_run_time_failure_shows_the_box_of_the_stop_and_recovers_nothing) {
  LiveCapture test;
  test.session.recorder.Second_Recorder_Open = 1;
  test.session.sample.Wave_Header.bytes_recorded = 0xFFFFFFFF;
  Close_Recorder(test.session);
  EXPECT_TRUE(test.Showed(
      "Problem Stoping Recording, Check Your Settings and Sound Card, Close Application",
      "Quillspeech Info", BoxIcon::Stop));
  EXPECT_TRUE(test.calls.empty());
  EXPECT_EQ(test.session.recorder.Second_Recorder_Open, 1);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
}

}  // namespace
}  // namespace quillspeech
