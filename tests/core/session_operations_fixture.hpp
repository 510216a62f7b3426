// A control whose session is started, stopped, restarted and ended step by step.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/operations.hpp"
#include "core/session_operations.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {

using Lines = std::vector<std::string>;

inline constexpr const char* Incomplete =
    "Incomplete Settings. ACCESS DENIED  ( Please check Speech Sampling time and Words I Want )";

struct SessionOperations : ::testing::Test, ControlTest {
  void Start() { Start_Real_Action(*control); }
  void Stop() { Stop_Real_Action(*control); }
  void Restart_It() { Restart(*control); }

  // A session in the middle of a sample.
  void Run_Live() {
    Start();
    session.flags.Show_Activities = 1;
    session.flags.Capture_Busy = 1;
    session.flags.Operation_Status = "Processing ...";
    session.results.Platinum_Best_Table[1] = "hello";
    session.results.Platinum_Words_Available = 1;
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
      events.Enable(timer, true);
    }
    session.data.Main_File_Number.Open(data_files, "user.say", 100);
    host_program.events.clear();
    cues.calls.clear();
    calls.clear();
  }
  // Which of the form's timers 1, 3 and 5 are on.
  std::string Timers_On() {
    std::string on;
    if (Is_On(FormTimer::Timer1)) on += '1';
    if (Is_On(FormTimer::Timer3)) on += '3';
    if (Is_On(FormTimer::Timer5)) on += '5';
    return on;
  }
  // What the stop of the recorder sees.
  void Note_At_Stop_Recording() {
    session.operations.Stop_Recording = [this](Session&) {
      calls.push_back(session.flags.Operation_Status + "," + session.settings.Stop_everything_now +
                      "," + std::to_string(session.flags.Session_Started.Raw()) + "," +
                      std::to_string(session.flags.Session_Alive.Raw()) + "," + Timers_On());
    };
  }
  void Fail_At_Stop_Recording() {
    session.operations.Stop_Recording = [](Session&) { Fail(Failure::Overflow); };
  }
  void Expect_Problem_Box(const std::string& text) const {
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(Box().text, text);
    EXPECT_EQ(Box().title, "Quillspeech");
    EXPECT_EQ(Box().icon, BoxIcon::Information);
    EXPECT_EQ(Box().buttons, BoxButtons::OK);
  }
  void Expect_Incomplete_Box() const {
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(Box().text, Incomplete);
    EXPECT_EQ(Box().title, "Quillspeech Start");
    EXPECT_EQ(Box().icon, BoxIcon::None);
    EXPECT_EQ(Box().buttons, BoxButtons::OK);
  }
};

// A file that is there, empty, and calls back when it is closed.
class TellingFile final : public DataFileStore {
 public:
  explicit TellingFile(std::function<void()> at_close) : at_close_(std::move(at_close)) {}
  std::unique_ptr<DataFile> Open(const std::string&) override {
    return std::make_unique<File>(at_close_);
  }

 private:
  class File final : public DataFile {
   public:
    explicit File(const std::function<void()>& at_close) : at_close_(at_close) {}
    ~File() override { at_close_(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    std::int64_t Length() const override { return 0; }
    std::int64_t Read(std::int64_t, std::span<std::uint8_t>) override { return 0; }
    void Write(std::int64_t, std::span<const std::uint8_t>) override {}

   private:
    const std::function<void()>& at_close_;
  };

  std::function<void()> at_close_;
};

// A loop that never moves and notes which of the form's timers are used, by their digits.
struct NotingLoop final : TimedLoop {
  Time Now() const override { return Time(0); }
  Timer& Form_Timer(FormTimer timer) override {
    used += std::to_string(static_cast<int>(timer) + 1);
    return TimedLoop::Form_Timer(timer);
  }
  void Sleep_Until(std::optional<Time>) override {}

  std::string used;
};

// A control whose session stands on such a loop.
struct TimerOrder {
  TestSession ground;
  NotingLoop loop;
  Session session{Ports{loop, ground.boxes, ground.host, ground.cues, ground.shell,
                        ground.riff_files, ground.wave_input, ground.wave_output, ground.data_files,
                        ground.dialogs, ground.views}};
  NotingContainer host_program;
  std::shared_ptr<Control> control = Control::Make(session, host_program);
};

}  // namespace quillspeech::tests
