// The streams of one run of the program, and what is known of them.
#pragma once

#include <atomic>
#include <functional>
#include <istream>
#include <ostream>

namespace quillspeech::cli {

struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool out_is_terminal = false;
  bool err_is_terminal = false;
  bool in_is_terminal = false;
  bool colour = false;                             // on `out`
  const std::atomic<bool>* interrupted = nullptr;  // true once the user wants an end
  // Until it is called an interrupt ends the program where it stands. A command that looks at
  // Is_Interrupted, so as to leave nothing half done, calls it before it starts a thread.
  std::function<void()> take_interrupts = [] {};
  bool interrupt_is_an_end = false;  // set by a command that an interrupt ends as it should end

  bool Is_Interrupted() const { return interrupted && interrupted->load(); }
};

// Whether `out` gets colour: a terminal that can show it, and a user who has not set NO_COLOR to
// anything. The two texts are the environment's NO_COLOR and TERM, null where they are not set.
bool Is_Colour_Wanted(bool is_terminal, const char* no_colour, const char* terminal);

}  // namespace quillspeech::cli
