// The calls that open, close and redirect a session, as a host makes them.
#include <chrono>
#include <optional>

#include "tests/activex/ole_fixture.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::activex::tests {
namespace {

using namespace std::chrono_literals;
using Heard = std::vector<EventId>;

class SessionCalls : public OleTest {
 protected:
  SessionCalls() {
    sink.Connect(*control);
    Recorder().Set_Interval(1h);  // a machine without a sound card would complain
  }
  ~SessionCalls() override {
    sink.Disconnect();
    Recorder().Set_Interval(100ms);
    session().operations.Wave_File_Was_Read = Operations::Nothing;
  }

  windows::EventLoop& events() { return Module::Of_This_File().Events(); }
  Timer& Recorder() { return events().Form_Timer(FormTimer::Timer5); }
  void Start() {
    session().flags.Settings_Ready_Count = 2;
    EXPECT_EQ(Call("Start_Real_Action"), S_OK);
    EXPECT_EQ(sink.heard, Heard{EventId::StartRecognitionActivity});
    sink.heard.clear();
  }

  EventSink sink;
};

TEST_F(SessionCalls, A_second_start_does_nothing_and_raises_nothing) {
  Start();
  session().flags.Operation_Status = "Speechdetected";
  EXPECT_EQ(Call("Start_Real_Action"), S_OK);
  EXPECT_TRUE(sink.heard.empty());
  EXPECT_EQ(Get("Operation_Status"), "Speechdetected");
  EXPECT_EQ(session().flags.Session_Started, 1);
}

TEST_F(SessionCalls, A_stop_without_a_session_is_told_all_the_same) {
  EXPECT_EQ(Call("Stop_Real_Action"), S_OK);
  EXPECT_EQ(sink.heard, Heard{EventId::StopRecognitionActivity});
  EXPECT_EQ(Get("Stop_everything_now"), "YES");
}

TEST_F(SessionCalls, A_restart_without_a_session_is_nothing_at_all) {
  session().flags.Settings_Ready_Count = 2;
  session().flags.Operation_Status = "Alert";
  EXPECT_EQ(Let("Stop_everything_now", "NO"), S_OK);
  EXPECT_EQ(Call("Restart"), S_OK);
  EXPECT_TRUE(sink.heard.empty());
  EXPECT_EQ(Get("Operation_Status"), "Alert");
  EXPECT_EQ(Get("Stop_everything_now"), "NO");
  EXPECT_EQ(session().flags.Session_Started, 0);
  EXPECT_EQ(session().flags.Stop_Sample_Flag, 0);
  EXPECT_FALSE(Recorder().Is_Enabled());
}

TEST_F(SessionCalls, A_restart_of_a_session_is_told) {
  Start();
  EXPECT_EQ(Call("Restart"), S_OK);
  EXPECT_EQ(sink.heard, Heard{EventId::RestartRecognitionActivity});
  EXPECT_TRUE(Recorder().Is_Enabled());
}

TEST_F(SessionCalls, Wanted_words_alone_do_not_let_a_new_control_start) {
  ASSERT_EQ(session().flags.Settings_Ready_Count, 0);
  EXPECT_EQ(Let("Words_I_Want", "*"), S_OK);
  EXPECT_EQ(session().flags.Settings_Ready_Count, 1);
  BoxCloser closer(L"Quillspeech Start", [] {});
  EXPECT_EQ(Call("Start_Real_Action"), S_OK);
  EXPECT_EQ(closer.closed, 1);
  EXPECT_TRUE(sink.heard.empty());
  EXPECT_EQ(session().flags.Session_Started, 0);
  EXPECT_EQ(session().flags.Settings_Ready_Count, 1);
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
    EXPECT_FALSE(events().Is_Enabled(timer));
  }
}

TEST_F(SessionCalls, A_sampling_time_and_wanted_words_together_do) {
  EXPECT_EQ(Let("Words_I_Want", "*"), S_OK);
  EXPECT_EQ(Let("Speech_sampling_time_in_ms", "5000"), S_OK);
  EXPECT_EQ(Call("Start_Real_Action"), S_OK);
  EXPECT_EQ(sink.heard, Heard{EventId::StartRecognitionActivity});
}

// Where no sound can be played, the file itself is refused in a box before the session is looked
// at.
TEST_F(SessionCalls, A_live_session_shuts_a_file_out_and_lifts_the_stop) {
  using namespace quillspeech::tests;
  const TemporaryFolder folder;
  const std::string file = folder.Put("word.wav", Wave().Data(Silence(Bytes(2000))));
  int files_taken = 0;
  session().operations.Wave_File_Was_Read = [&](quillspeech::Session&) { ++files_taken; };
  Start();
  EXPECT_EQ(Let("Open_this_Wave_File", file), S_OK);
  EXPECT_EQ(Let("Stop_everything_now", "YES"), S_OK);
  std::optional<BoxCloser> refusal;
  if (!session().ports.wave_output.Can_Play(Pcm())) {
    refusal.emplace(L"Quillspeech Wave ERROR", [] {});
  }
  EXPECT_EQ(Call("Open_Specified_Wave_File_And_Process"), S_OK);
  EXPECT_EQ(refusal ? refusal->closed : 1, 1);
  EXPECT_EQ(Get("Stop_everything_now"), "NO");
  EXPECT_EQ(files_taken, 0);
  EXPECT_EQ(session().flags.File_Run_Active, 0);
  EXPECT_EQ(Get("Operation_Status"), "Sleeping");
  EXPECT_EQ(session().flags.Session_Started, 1);
  std::erase(sink.heard, EventId::PropertyStatusBetweenDetectionToCoversion);
  EXPECT_TRUE(sink.heard.empty());
}

}  // namespace
}  // namespace quillspeech::activex::tests
