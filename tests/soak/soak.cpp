// Many simulated hours of sessions on the virtual clock: soak [HOURS [SEED]]
//
// Words are spoken, the host starts, stops, restarts, reads and writes from everywhere, also from
// inside events, and the calls of the sound card fail now and then. At the end the memory must be
// what it was at half time, a stop must leave every flag at rest, and a new session must
// hear a word. The same seed goes the same way.
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/control.hpp"
#include "core/operations.hpp"
#include "core/session_operations.hpp"
#include "tests/support/live_session.hpp"
#include "tests/support/member_texts.hpp"
#include "tests/support/record_builder.hpp"

namespace quillspeech::tests {
namespace {

std::int64_t Resident_Bytes() {
  std::int64_t total = 0;
  std::int64_t resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

class Soak final : public LiveSession, public Container {
 public:
  explicit Soak(std::uint32_t seed) : random_(seed) {
    Prepare_Session(session);
    session.settings.Enable_Artificial_Intelligence = "YES";
    session.settings.Notify_if_no_language_match = "YES";
    Put_Language_File(data_files, "UserTemp.SAY", {Record().Word("hello").Pattern("*")});
    card.keep_calls = card.keep_played = false;
    control_ = Control::Make(session, *this);
  }

  void Begin() { Schedule(); }
  // Each recording raises the gate of the start by one, and the last that 16 bits can count ends
  // all recording: the host of a real day begins anew before that.
  void Run_Hour() {
    session.flags.Settings_Ready_Count = 2;
    events.Run_For(1h);
  }

  // Whether a stop brings everything to rest, and a session without faults then hears a word.
  bool Ends_Well() {
    is_over_ = true;
    Mend_Card();
    Stop_Real_Action(*control_);
    events.Run_For(1min);
    return Is_At_Rest() && Hears_A_Word();
  }

  // Container.
  bool User_Mode() const override { return true; }
  void Raise(const ControlEvent& event) override {
    ++counts.events;
    if (event.id == EventId::SpokenWordConvertedToText) ++counts.words;
    counts.deepest = std::max(counts.deepest, events.Depth());
    const bool rare = event.id == EventId::PropertyStatusBetweenDetectionToCoversion;
    if (!is_over_ && Draw(rare ? 2'000 : 5) == 0) Call_From_Host();
  }
  void Property_Changed(std::string_view) override {}
  void Face_Changed(const Face&) override {
    if (!is_over_ && Draw(200) == 0) Call_From_Host();
  }

  struct Counts {
    std::int64_t events = 0;
    std::int64_t words = 0;
    std::int64_t calls = 0;
    std::int64_t faults = 0;
    int deepest = 0;
  } counts;

 private:
  // From 0 to `below` - 1. Not by a distribution of the library, which may differ elsewhere.
  std::uint32_t Draw(std::uint32_t below) { return static_cast<std::uint32_t>(random_()) % below; }
  std::string Yes_Or_No() { return Draw(2) == 0 ? "YES" : "NO"; }

  void Schedule() {
    const auto pause = std::chrono::milliseconds(100 + Draw(4'000));
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(events.Now());
    events.At(now + pause, [this] {
      if (is_over_) return;
      Schedule();
      Forget_Logs();
      Act();
    });
  }

  void Act() {
    const std::uint32_t choice = Draw(100);
    if (choice < 40) return Say();
    if (choice < 60) return Start();
    if (choice < 80) return Call_From_Host();
    if (choice < 86) return Break_Card();
    Mend_Card();
  }

  void Say() {
    const int amplitude = static_cast<int>(4 + Draw(120));
    const int bytes = static_cast<int>(500 + Draw(20'000));
    card.Play_Into_Microphone(Tone(700_Hz, Amplitude(amplitude), Bytes(bytes)), 22'050,
                              events.Now() + std::chrono::milliseconds(Draw(500)));
  }

  void Call_From_Host() {
    ++counts.calls;
    switch (Draw(9)) {
      case 0:
      case 1:
      case 2:
        return Start();
      case 3:
        return Stop_Real_Action(*control_);
      case 4:
        return Restart(*control_);
      case 5:
        return control_->Command2_Click();
      case 6:
        return control_->Command3_Click();
      case 7:
        Get_Text(*control_, "Platinum_Word_Best");
        Get_Text(*control_, "Operation_Status");
        return;
      default:
        Let_Text(*control_, "Noise_Sensitivity", std::to_string(1 + Draw(20)));
    }
  }

  void Start() {
    Choose_Settings();
    control_->Command1_Click();
  }

  // Now and then a capture that is too long to be counted, which fails in the recording.
  void Choose_Settings() {
    constexpr std::int64_t Too_Long = 2'000'000'000;
    Settings& settings = session.settings;
    settings.Speech_sampling_time_in_ms = Draw(30) == 0 ? Too_Long : 3'000 + Draw(6'000);
    settings.Voice_Capture_Delay = 20 + Draw(100);
    settings.Voice_Processing_Delay = 1 + Draw(200);
    settings.Noise_Sensitivity = 1 + Draw(6);
    settings.Speech_echo_feature = Yes_Or_No();
    settings.Always_Restart_on_Error = Yes_Or_No();
  }

  void Break_Card() {
    constexpr std::array Calls_To_Fail = {
        "wave_in_get_dev_caps",
        "wave_in_open",
        "wave_in_prepare_header",
        "wave_in_add_buffer",
        "wave_in_start",
        "wave_in_stop",
        "wave_in_reset",
        "wave_in_close",
        "wave_in_unprepare_header",
        "wave_out_open",
        "wave_out_write",
        "wave_out_prepare_header",
        "wave_out_unprepare_header",
        "wave_out_close",
    };
    constexpr std::array<WaveResult, 5> Answers = {0, 2, 4, 5, 33};
    ++counts.faults;
    card.faults[Calls_To_Fail[Draw(Calls_To_Fail.size())]] = Answers[Draw(Answers.size())];
    card.present = Draw(10) != 0;
  }
  void Mend_Card() {
    card.faults.clear();
    card.present = true;
  }

  void Forget_Logs() {
    boxes.shown.clear();
    cues.calls.clear();
    calls.clear();
  }

  bool Check(bool is_right, const char* what) {
    if (!is_right) std::printf("after the last stop %s\n", what);
    return is_right;
  }

  bool Is_At_Rest() {
    bool timers_off = true;
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
      timers_off = timers_off && !events.Is_Enabled(timer);
    }
    const Flags& flags = session.flags;
    const bool checks[] = {
        Check(timers_off, "a timer of the hidden window is on"),
        Check(!control_->Timer1().Is_Enabled(), "the pump is on"),
        Check(flags.Session_Started == 0, "the session counts as started"),
        Check(flags.Session_Alive == False, "the session counts as alive"),
        Check(flags.Capture_Busy == 0, "the capture counts as busy"),
        Check(flags.Analysis_Running == 0, "an analysis counts as running"),
        Check(flags.Operation_Status == "Sleeping", "the status is not Sleeping"),
        Check(session.recorder.Recording_Active == 0, "a recording counts as active"),
        Check(session.recorder.Waiting_Depth == 0, "a wait for the buffer is under way"),
        Check(data_files.open_files == 0, "a data file is open"),
        Check(events.Depth() == 0, "a yield is under way"),
    };
    bool at_rest = true;
    for (const bool check : checks) at_rest = at_rest && check;
    return at_rest;
  }

  bool Hears_A_Word() {
    Settings& settings = session.settings;
    settings.Speech_sampling_time_in_ms = 3'000;
    settings.Voice_Capture_Delay = 5;
    settings.Voice_Processing_Delay =
        1'500;  // short beside the capture, whose clock no start resets
    settings.Noise_Sensitivity = 3;
    settings.Speech_echo_feature = "NO";
    card.Play_Into_Microphone(Tone(700_Hz, Amplitude(100), Bytes(5'000)), 22'050,
                              events.Now() + 1s);
    const std::int64_t before = counts.words;
    Start_Real_Action(*control_);
    events.Run_For(4s);
    const bool heard = Check(counts.words == before + 1, "a new session hears no word");
    Stop_Real_Action(*control_);
    events.Run_For(10s);
    return Is_At_Rest() && heard;
  }

  std::mt19937 random_;
  bool is_over_ = false;
  std::shared_ptr<Control> control_;
};

int Run_Soak(int hours, std::uint32_t seed) {
  constexpr std::int64_t Leeway_Bytes = 1 << 20;
  const auto soak = std::make_unique<Soak>(seed);
  soak->Begin();
  // By half time every table has had its longest capture, echo and file.
  const int half = hours / 2;
  for (int hour = 0; hour < half; ++hour) soak->Run_Hour();
  const std::int64_t first = Resident_Bytes();
  for (int hour = half; hour < hours; ++hour) soak->Run_Hour();
  const std::int64_t last = Resident_Bytes();
  const bool ends_well = soak->Ends_Well();
  const Soak::Counts& counts = soak->counts;
  std::printf(
      "%d hours: %lld events, %lld words, %lld calls of the host, %lld faults, %zu trapped "
      "failures were kept, yields %d deep at most\n",
      hours, static_cast<long long>(counts.events), static_cast<long long>(counts.words),
      static_cast<long long>(counts.calls), static_cast<long long>(counts.faults),
      soak->session.trace.failures.size(), counts.deepest);
  std::printf("memory: %lld KiB at half time, %lld KiB at the end\n",
              static_cast<long long>(first / 1024), static_cast<long long>(last / 1024));
#ifdef __SANITIZE_ADDRESS__
  constexpr bool Tells_Memory = false;  // the sanitizer keeps what was freed
#else
  constexpr bool Tells_Memory = true;
#endif
  const bool is_flat = !Tells_Memory || last <= first + Leeway_Bytes;
  if (!is_flat) std::printf("the memory grew\n");
  if (counts.words == 0) std::printf("no word was ever heard\n");
  return ends_well && is_flat && counts.words > 0 ? 0 : 1;
}

}  // namespace
}  // namespace quillspeech::tests

int main(int count, char** arguments) {
  const int hours = count > 1 ? std::atoi(arguments[1]) : 24;
  const auto seed = static_cast<std::uint32_t>(count > 2 ? std::atoi(arguments[2]) : 1);
  return quillspeech::tests::Run_Soak(hours, seed);
}
