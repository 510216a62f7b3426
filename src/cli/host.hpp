// The command `host`: a control driven by lines of JSON (docs/host_protocol.md).
#pragma once

#include <string>

#include "cli/console.hpp"
#include "cli/live_session.hpp"

namespace CLI {
class App;
}

namespace quillspeech::cli {

// Declares the command. Parsing it hosts a control until the input ends or the output fails;
// `exit_status` is then an ExitStatus.
CLI::App& Add_Host_Command(CLI::App& app, Console& console, int& exit_status);

// The same with the options given. On the virtual clock requests come from the console's input; on
// the real one from the descriptor, which need not be standard input. Gives an ExitStatus.
int Host_Control(const LiveOptions& options, Console& console);
int Host_Control(const LiveOptions& options, Console& console, int input);

}  // namespace quillspeech::cli
