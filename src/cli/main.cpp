#include <cstdlib>
#include <iostream>

#include "cli/command_line.hpp"
#include "cli/interrupt_watch.hpp"
#include "cli/process.hpp"

int main(int count, char** arguments) {
  using namespace quillspeech::cli;
  constexpr int Standard_Input = 0;
  const PreparedProcess process;
  InterruptWatch interrupts;
  InterruptibleInput bytes(Standard_Input, interrupts);
  std::istream input(&bytes);
  std::ios::sync_with_stdio(false);
  Console console{input, std::cout, std::cerr};
  console.in_is_terminal = Is_Terminal(StandardStream::In);
  console.out_is_terminal = Is_Terminal(StandardStream::Out);
  console.err_is_terminal = Is_Terminal(StandardStream::Err);
  console.colour =
      Is_Colour_Wanted(console.out_is_terminal, std::getenv("NO_COLOR"), std::getenv("TERM"));
  console.interrupted = &interrupts.Flag();
  console.take_interrupts = [&] { interrupts.Take(); };
  return Run_Command_Line(Program_Arguments(count, arguments), console);
}
