// The WAV files of a run, one name after another.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cli/console.hpp"

namespace quillspeech::cli {

// The names as typed. A "-" stands for the names on standard input, one a line, which are read as
// they are asked for. Ends early when the user interrupts.
class FileNames {
 public:
  FileNames(std::vector<std::string> typed, Console& console)
      : typed_(std::move(typed)), console_(console) {}

  std::optional<std::string> Next();

  // How many there are, unless some come from standard input.
  std::optional<std::size_t> Count() const;

 private:
  std::optional<std::string> Next_Line();

  std::vector<std::string> typed_;
  std::size_t next_ = 0;
  Console& console_;
};

}  // namespace quillspeech::cli
