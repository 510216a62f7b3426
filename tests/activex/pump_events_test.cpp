// What a host hears from the event pump, in which order.
#include <algorithm>
#include <chrono>

#include "tests/activex/ole_fixture.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::activex::tests {
namespace {

using namespace std::chrono_literals;
using quillspeech::tests::Run_Host_While;
using Heard = std::vector<EventId>;

constexpr EventId Tick = EventId::PropertyStatusBetweenDetectionToCoversion;

class PumpEvents : public OleTest {
 protected:
  PumpEvents() { sink.Connect(*control); }
  ~PumpEvents() override {
    sink.Disconnect();
    Clear_Results();
  }

  windows::EventLoop& events() { return Module::Of_This_File().Events(); }
  void Clear_Results() {
    session().flags.Operation_Status = "Sleeping";
    session().results.No_Language_Match = 0;
    session().filter.Voice_Word_Table[1] = "";
    session().results.Platinum_Best_Table[1] = "";
    session().results.Platinum_Words_Available = 0;
  }
  // A session whose pump runs, and nothing else.
  void Start() {
    session().flags.Settings_Ready_Count = 2;
    Call("Start_Real_Action");
    events().Enable(FormTimer::Timer5, false);
    sink.heard.clear();
  }
  void Detect() {
    session().flags.Operation_Status = "Speechdetected";
    Run_Until(EventId::SpokenWordDetected);
  }
  // The host's own loop runs until the sink has heard it.
  void Run_Until(EventId event) {
    EXPECT_TRUE(Run_Host_While([&] { return std::ranges::count(sink.heard, event) == 0; }));
  }
  // The host's own loop runs for as long as the pump needs for so many ticks.
  void Run_For_Ticks(int count) {
    int ticks = 0;
    const auto clock = events().Make_Timer(50ms, [&] { ++ticks; });
    clock->Enable(true);
    EXPECT_TRUE(Run_Host_While([&] { return ticks <= count; }));
  }
  // What was heard beside the ticks.
  Heard Heard_Beside_Ticks() const {
    Heard heard = sink.heard;
    std::erase(heard, Tick);
    return heard;
  }

  EventSink sink;
};

TEST_F(PumpEvents, Before_the_first_start_nothing_is_heard) {
  Place();
  Activate();
  session().flags.Operation_Status = "Speechdetected";
  session().results.No_Language_Match = -1;
  Run_For_Ticks(3);
  EXPECT_TRUE(sink.heard.empty());
  Deactivate();
}

TEST_F(PumpEvents, A_word_is_heard_as_detected_and_then_as_text) {
  Start();
  Detect();
  session().flags.Operation_Status = "Finish";
  session().results.Platinum_Best_Table[1] = "six";
  session().results.Platinum_Words_Available = 1;
  Run_Until(EventId::SpokenWordConvertedToText);
  Run_For_Ticks(3);
  EXPECT_EQ(Heard_Beside_Ticks(),
            (Heard{EventId::SpokenWordDetected, EventId::SpokenWordConvertedToText}));
}

TEST_F(PumpEvents,
       A_pattern_that_matches_nothing_is_heard_after_its_detection_and_told_as_no_match) {
  Start();
  Detect();
  session().flags.Operation_Status = "Finish";
  session().filter.Voice_Word_Table[1] = "fth*s";
  session().results.No_Language_Match = -1;
  Run_Until(EventId::NoMatchFoundinFile);
  Run_For_Ticks(3);
  EXPECT_EQ(Heard_Beside_Ticks(),
            (Heard{EventId::SpokenWordDetected, EventId::SpokenWordConvertedToPatternOnly,
                   EventId::NoMatchFoundinFile}));
  const auto pattern = std::ranges::find(sink.heard, EventId::SpokenWordConvertedToPatternOnly);
  EXPECT_EQ(*(pattern + 1), EventId::NoMatchFoundinFile);  // in the same tick
}

}  // namespace
}  // namespace quillspeech::activex::tests
