// How long a host waits for what the session already knows.
#include <gtest/gtest.h>

#include <optional>

#include "core/operations.hpp"
#include "tests/support/live_session.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

TEST(EventLatency, From_Finish_to_the_hosts_handler_at_most_50_ms_pass_wherever_the_word_stands) {
  for (auto said = 1000ms; said < 1050ms; said += 7ms) {
    LiveSession test;
    Prepare_Session(test.session);
    test.session.settings.Enable_Artificial_Intelligence = "YES";
    Put_Language_File(test.data_files, "UserTemp.SAY", {Record().Word("hello").Pattern("*")});
    NotingContainer host;
    const auto control = Control::Make(test.session, host);
    std::optional<EventLoop::Time> finished;
    std::optional<EventLoop::Time> heard;
    test.events.At_Yield = [&] {
      if (!finished && test.session.flags.Operation_Status == "Finish") {
        finished = test.events.Now();
      }
    };
    // Whatever the loop does, the status is looked at in steps of a millisecond.
    for (auto moment = 1ms; moment < 3s; moment += 1ms)
      test.events.At(moment, test.events.At_Yield);
    host.At_Event = [&](const ControlEvent& event) {
      if (event.id == EventId::SpokenWordConvertedToText && !heard) heard = test.events.Now();
    };
    test.card.Play_Into_Microphone(Tone(700_Hz, Amplitude(100), Bytes(5000)), 22'050, said);
    Start_Real_Action(*control);
    test.events.Run_For(3s);
    Stop_Real_Action(*control);
    test.events.Run_For(10s);
    ASSERT_TRUE(finished && heard) << said.count();
    EXPECT_GE(*heard, *finished - 1ms);
    EXPECT_LE(*heard - *finished, 50ms) << said.count();
  }
}

}  // namespace
}  // namespace quillspeech
