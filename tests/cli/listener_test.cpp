#include "cli/listener.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "base/run_time_failure.hpp"
#include "cli/live_boxes.hpp"
#include "cli/live_session.hpp"
#include "core/operations.hpp"
#include "core/session_operations.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;

class Listener : public testing::Test, public cli::ListenReport {
 protected:
  Listener() { Prepare_Session(*live.session); }

  void Event(const ControlEvent& event, EventLoop::Time) override {
    if (event.id == EventId::PropertyStatusBetweenDetectionToCoversion && At_Status) At_Status();
  }
  void Box(const MessageBox&, BoxAnswer, EventLoop::Time) override {}

  static cli::LiveOptions On_Virtual_Clock() {
    cli::LiveOptions options;
    options.clock = cli::ClockKind::Virtual;
    return options;
  }
  bool Run(EventLoop::Time time) {
    cli::Listener listener(*live.session, live.Events(), console);
    return listener.Run(*this, time);
  }

  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  cli::Console console{in, out, err};
  cli::LiveBoxes boxes{console, false};
  cli::LiveSession live{On_Virtual_Clock(), boxes};
  std::function<void()> At_Status;
};

TEST_F(Listener, Failures_of_the_event_pump_are_told_once_and_the_session_goes_on) {
  int events = 0;
  At_Status = [&] {
    ++events;
    Fail(Failure::Subscript_Out_Of_Range);
  };
  EXPECT_TRUE(Run(5s));
  EXPECT_GE(events, 90);
  EXPECT_EQ(err.str(),
            "quillspeech: events were lost: run-time failure 9, an index lies outside its table\n");
}

TEST_F(Listener, A_standstill_names_the_latest_failure_however_many_were_before) {
  Trace& trace = live.session->trace;
  for (std::size_t i = 0; i < Trace::Most_Failures; ++i) trace.Note_Failure(5);
  At_Status = [&, is_first = true]() mutable {
    if (!std::exchange(is_first, false)) return;
    trace.Note_Failure(6);
    live.session->settings.Stop_everything_now = "YES";
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
      live.Events().Enable(timer, false);
    }
  };
  EXPECT_TRUE(Run(30s));
  EXPECT_NE(err.str().find("run-time failure 6, a number is too large for its field"),
            std::string::npos)
      << err.str();
}

}  // namespace
}  // namespace quillspeech::tests
