#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "cli/command_line.hpp"
#include "cli/interrupt_watch.hpp"
#include "cli/standard_descriptors.hpp"

namespace {

bool Is_Colour_Wanted() {
  const char* const no_colour = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  return isatty(STDOUT_FILENO) && !(no_colour && *no_colour) &&
         !(terminal && std::string(terminal) == "dumb");
}

}  // namespace

int main(int count, char** arguments) {
  using namespace quillspeech::cli;
  Fill_Standard_Descriptors();
  const InterruptWatch interrupts;
  InterruptibleInput bytes(STDIN_FILENO, interrupts);
  std::istream input(&bytes);
  std::ios::sync_with_stdio(false);
  Console console{input, std::cout, std::cerr};
  console.out_is_terminal = isatty(STDOUT_FILENO) == 1;
  console.err_is_terminal = isatty(STDERR_FILENO) == 1;
  console.colour = Is_Colour_Wanted();
  console.interrupted = &interrupts.Flag();
  return Run_Command_Line({arguments + 1, arguments + count}, console);
}
