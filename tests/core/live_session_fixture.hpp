// A whole session: a control that listens to a simulated sound card on a virtual clock.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/operations.hpp"
#include "tests/support/live_session.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {

using Lines = std::vector<std::string>;

// It is over before the capture that follows its own begins.
inline Sound Spoken_Word() { return Tone(700_Hz, Amplitude(100), Bytes(5000)); }

// A control whose language knows one word, which every pattern fits.
struct LiveRun : LiveGround {
  LiveRun() {
    Prepare_Session(session);
    session.settings.Enable_Artificial_Intelligence = "YES";
    session.settings.Speech_sampling_time_in_ms = 3000;
    session.flags.Settings_Ready_Count = 2;
    session.settings.Notify_if_no_language_match = "YES";
    Know(Record().Word("hello").Pattern("*"));
    control = Control::Make(session, host_program);
  }

  void Know(const Record& record) { Put_Language_File(data_files, "UserTemp.SAY", {record}); }
  void Say_At(std::chrono::milliseconds moment) {
    card.Play_Into_Microphone(Spoken_Word(), 22'050, moment);
  }
  // A session that hears the word after a second, `time` later or when the recording under way then
  // is full.
  LiveRun& Listen(std::chrono::milliseconds time = 4s) {
    Say_At(1s);
    Start_Real_Action(*control);
    events.Run_For(time);
    return *this;
  }
  std::string Timers_On() {
    std::string on;
    if (events.Is_Enabled(FormTimer::Timer1)) on += '1';
    if (events.Is_Enabled(FormTimer::Timer3)) on += '3';
    if (events.Is_Enabled(FormTimer::Timer5)) on += '5';
    if (control->Timer1().Is_Enabled()) on += 'p';
    return on;
  }
  std::int64_t Captures() const { return Times("wave_in_start"); }
  void Expect_Rest(const std::string& timers_on = "") {
    EXPECT_EQ(Timers_On(), timers_on);
    EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
    EXPECT_EQ(session.settings.Stop_everything_now, "YES");
    EXPECT_EQ(session.recorder.Recording_Active, 0);
    EXPECT_EQ(session.flags.Capture_Busy, 0);
    EXPECT_EQ(session.flags.Analysis_Running, 0);
    EXPECT_EQ(data_files.open_files, 0);
    EXPECT_EQ(events.Depth(), 0);
  }

  NotingContainer host_program;
  std::shared_ptr<Control> control;
};

}  // namespace quillspeech::tests
