#include "cli/devices.hpp"

#include <CLI/CLI.hpp>
#include <vector>

#include "cli/device_list.hpp"
#include "cli/exit_status.hpp"
#include "cli/input_tap.hpp"
#include "cli/level_report.hpp"
#include "cli/live_boxes.hpp"
#include "cli/live_devices.hpp"
#include "cli/live_session.hpp"

namespace quillspeech::cli {

CLI::App& Add_Devices_Command(CLI::App& app, DevicesOptions& options) {
  CLI::App& command =
      *app.add_subcommand("devices", "List the sound devices, or watch one's level");
  command.add_flag("--level", options.level,
                   "Show how loud an input is and what the recogniser finds in it");
  Add_Live_Options(command, options.live, options.duration);
  command.add_flag("--json", options.json, "Print JSON: the list, or one object a second");
  command.footer(
      "pump: loud points in the last 7 s, as the recogniser counts them to notice speech; 50 are\n"
      "speech. sensitivity:hits/words: the same, and the words, for values of Noise_Sensitivity.\n"
      "Choose the least that finds 0 words in your room's noise and 1 after you said one.\n");
  return command;
}

namespace {

constexpr std::uint32_t Rate = 22'050;
constexpr std::int64_t Block_ms = 100;

// Follows an input until it is enough.
class Watch {
 public:
  Watch(const DevicesOptions& options, const LiveSession& live, Console& console)
      : options_(options), live_(live), console_(console), meter_(*live.session) {
    if (options.duration) {
      end_ms_ = options.duration->count();
    } else if (live.Virtual_Clock()) {
      const auto clips = std::chrono::ceil<std::chrono::seconds>(live.Clips_End());
      end_ms_ = std::chrono::milliseconds(clips).count();
    }
  }

  int Run() {
    InputTap tap(live_.Input(), Rate, Rate * Block_ms / 1'000);
    if (tap.Open() != Wave_Ok) {
      const std::string& device = options_.live.device;
      console_.err << "quillspeech: " << (device.empty() ? "the default input" : device)
                   << ": there is no such input, or no sound can be recorded from it\n";
      return Exit_File_Failed;
    }
    opened_ = live_.Events().Now();
    while (!Is_Enough()) {
      live_.Events().Wait_For_Events();
      tap.Take([this](std::span<const std::uint8_t> block) { Hear(block); });
    }
    if (!stretch_.empty()) Tell();
    if (Is_Bar()) console_.out << "\n" << std::flush;
    return Exit_Done;
  }

 private:
  // A device that gives nothing does not keep the user waiting for ever.
  bool Is_Enough() const {
    constexpr EventLoop::Time Patience = std::chrono::seconds(3);
    if (console_.Is_Interrupted() || !console_.out) return true;
    if (!end_ms_) return false;
    const EventLoop::Time latest = opened_ + std::chrono::milliseconds(*end_ms_) + Patience;
    return heard_ms_ >= *end_ms_ || live_.Events().Now() > latest;
  }
  bool Is_Bar() const { return console_.out_is_terminal && !options_.json; }

  void Hear(std::span<const std::uint8_t> block) {
    constexpr std::int64_t Line_ms = 1'000;
    if (Is_Enough()) return;
    meter_.Hear(block);
    heard_ms_ += Block_ms;
    stretch_.insert(stretch_.end(), block.begin(), block.end());
    if (Is_Bar() || heard_ms_ % Line_ms == 0) Tell();
  }

  void Tell() {
    const LevelReading reading = Read_Level(meter_, heard_ms_, Level_Of(stretch_));
    stretch_.clear();
    if (Is_Bar()) {
      console_.out << "\r" << Level_Bar(reading, console_.colour) << "\x1b[K" << std::flush;
    } else {
      console_.out << (options_.json ? Level_Json(reading) : Level_Line(reading)) << std::endl;
    }
  }

  const DevicesOptions& options_;
  const LiveSession& live_;
  Console& console_;
  LevelMeter meter_;
  std::optional<std::int64_t> end_ms_;
  std::int64_t heard_ms_ = 0;
  EventLoop::Time opened_{0};
  std::vector<std::uint8_t> stretch_;  // heard since the last reading
};

int List_Devices(const DevicesOptions& options, Console& console) {
  const auto devices = Sound_Devices();
  console.out << (options.json ? Devices_Json(devices) + "\n"
                               : Device_Lines(devices, console.colour))
              << std::flush;
  return Exit_Done;
}

}  // namespace

int Tell_Of_Devices(const DevicesOptions& options, Console& console) {
  if (!options.level) {
    const LiveOptions& live = options.live;
    if (live.device.empty() && live.microphone.empty() && !options.duration &&
        live.clock == ClockKind::Real) {
      return List_Devices(options, console);
    }
    console.err << "quillspeech: --device, --microphone, --clock and --for need --level\n";
    return Exit_Wrong_Usage;
  }
  console.interrupt_is_an_end = true;
  console.take_interrupts();
  LiveBoxes boxes(console, false);
  const LiveSession live(options.live, boxes);
  return Watch(options, live, console).Run();
}

}  // namespace quillspeech::cli
