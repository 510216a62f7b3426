// The streams of one run of the program, and what is known of them.
#pragma once

#include <atomic>
#include <istream>
#include <ostream>

namespace quillspeech::cli {

struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool out_is_terminal = false;
  bool err_is_terminal = false;
  bool colour = false;                             // on `out`
  const std::atomic<bool>* interrupted = nullptr;  // true once the user wants an end

  bool Is_Interrupted() const { return interrupted && interrupted->load(); }
};

}  // namespace quillspeech::cli
