// The command `listen`: a live session, event by event.
#pragma once

#include "cli/console.hpp"
#include "cli/live_options.hpp"
#include "cli/run_options.hpp"

namespace quillspeech::cli {

struct ListenOptions {
  RunOptions run;
  LiveOptions live;
  Duration duration;
  bool json = false;
  bool yes = false;   // to every question
  bool save = false;  // into the file of the settings
};

// Declares the command; parsing it fills `options`.
CLI::App& Add_Listen_Command(CLI::App& app, ListenOptions& options);

// Gives an ExitStatus once the session has ended.
int Listen(const ListenOptions& options, Console& console);

}  // namespace quillspeech::cli
