#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "cli/command_line.hpp"
#include "cli/interrupt_watch.hpp"
#include "cli/standard_descriptors.hpp"

namespace {

// Each file's session takes and gives back the same few large tables. Kept by the process, they are
// not mapped anew for every file, where jobs would wait for each other.
void Keep_Memory_Between_Files() {
  constexpr int Large_Bytes = 32 << 20;
  mallopt(M_MMAP_THRESHOLD, Large_Bytes);
  mallopt(M_TRIM_THRESHOLD, 2 * Large_Bytes);
}

}  // namespace

int main(int count, char** arguments) {
  using namespace quillspeech::cli;
  Fill_Standard_Descriptors();
  Keep_Memory_Between_Files();
  InterruptWatch interrupts;
  InterruptibleInput bytes(STDIN_FILENO, interrupts);
  std::istream input(&bytes);
  std::ios::sync_with_stdio(false);
  Console console{input, std::cout, std::cerr};
  console.in_is_terminal = isatty(STDIN_FILENO) == 1;
  console.out_is_terminal = isatty(STDOUT_FILENO) == 1;
  console.err_is_terminal = isatty(STDERR_FILENO) == 1;
  console.colour =
      Is_Colour_Wanted(console.out_is_terminal, std::getenv("NO_COLOR"), std::getenv("TERM"));
  console.interrupted = &interrupts.Flag();
  console.take_interrupts = [&] { interrupts.Take(); };
  return Run_Command_Line({arguments + 1, arguments + count}, console);
}
