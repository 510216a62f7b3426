// The whole program behind its arguments.
#pragma once

#include <string>
#include <vector>

#include "cli/console.hpp"

namespace quillspeech::cli {

// The arguments without the program's name. Gives what the program ends with: an ExitStatus, or
// 130 when the user interrupted it.
int Run_Command_Line(const std::vector<std::string>& arguments, Console& console);

}  // namespace quillspeech::cli
