// What the commands that hear have in common on the command line.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "cli/live_session.hpp"

namespace CLI {
class App;
}

namespace quillspeech::cli {

// How long a command hears; nothing: until it is interrupted, or the clips have been heard.
using Duration = std::optional<std::chrono::milliseconds>;

// Declares --microphone, --device, --clock and --for. Both targets outlive the parsing.
void Add_Live_Options(CLI::App& command, LiveOptions& options, Duration& duration);

// "sound.wav@1.5" is that file at 1.5 s. What stands behind the last @ and is no number of seconds
// belongs to the name.
MicrophoneClip Clip_From(const std::string& typed);

}  // namespace quillspeech::cli
