#include "cli/live_options.hpp"

#include <CLI/CLI.hpp>
#include <cmath>
#include <vector>

#include "base/text.hpp"
#include "cli/option_checks.hpp"

namespace quillspeech::cli {
namespace {

constexpr double Most_Seconds = 1'000'000;

std::optional<std::chrono::milliseconds> Seconds_From(const std::string& typed) {
  const auto seconds = Text_To_Number(typed);
  if (typed.empty() || !seconds || *seconds < 0 || *seconds > Most_Seconds) return std::nullopt;
  return std::chrono::milliseconds(std::llround(*seconds * 1'000));
}

void Add_Microphone(CLI::App& command, LiveOptions& options) {
  command
      .add_option_function<std::vector<std::string>>(
          "--microphone",
          [&options](const std::vector<std::string>& typed) {
            for (const std::string& one : typed) options.microphone.push_back(Clip_From(one));
          },
          "Hear this WAV instead of a device, from that second on; may be repeated. Without a "
          "time, half a second after the start, or three seconds after the end of the one before")
      ->type_name("FILE[@SECONDS]")
      ->allow_extra_args(false);
}

void Add_Device(CLI::App& command, LiveOptions& options) {
  command
      .add_option("--device", options.device,
                  "Input to hear, by its name or number in quillspeech devices; the default one "
                  "when not given")
      ->check(File_Name(), "")
      ->type_name("NAME")
      ->excludes("--microphone");
}

}  // namespace

MicrophoneClip Clip_From(const std::string& typed) {
  const auto sign = typed.rfind('@');
  if (sign == 0 || sign == std::string::npos) return {typed, std::nullopt};
  const auto at = Seconds_From(typed.substr(sign + 1));
  return at ? MicrophoneClip{typed.substr(0, sign), at} : MicrophoneClip{typed, std::nullopt};
}

void Add_Live_Options(CLI::App& command, LiveOptions& options, Duration& duration) {
  Add_Microphone(command, options);
  Add_Device(command, options);
  command
      .add_option_function<std::string>(
          "--clock",
          [&options](const std::string& typed) {
            if (typed == "virtual" && !options.device.empty()) {
              throw CLI::ValidationError("--clock", "a device keeps to the real clock");
            }
            options.clock = typed == "virtual" ? ClockKind::Virtual : ClockKind::Real;
          },
          "The real clock, or a virtual one that takes no time and always goes the same way; real "
          "when not given")
      ->check(One_Of({"real", "virtual"}), "")
      ->type_name("real|virtual");
  command
      .add_option_function<std::string>(
          "--for",
          [&duration](const std::string& typed) {
            duration = Seconds_From(typed);
            if (duration && duration->count() > 0) return;
            throw CLI::ValidationError(
                "--for", "'" + typed + "' is no number of seconds from 0.001 to 1000000");
          },
          "End after so many seconds")
      ->type_name("SECONDS");
}

}  // namespace quillspeech::cli
