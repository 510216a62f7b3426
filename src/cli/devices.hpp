// The command `devices`: what there is to hear with, and how loud one of it is.
#pragma once

#include "cli/console.hpp"
#include "cli/live_options.hpp"

namespace quillspeech::cli {

struct DevicesOptions {
  LiveOptions live;
  Duration duration;
  bool level = false;
  bool json = false;
};

// Declares the command; parsing it fills `options`.
CLI::App& Add_Devices_Command(CLI::App& app, DevicesOptions& options);

// Gives an ExitStatus.
int Tell_Of_Devices(const DevicesOptions& options, Console& console);

}  // namespace quillspeech::cli
