// What the program asks of its system before it begins.
#pragma once

#include <string>
#include <vector>

namespace quillspeech::cli {

enum class StandardStream { In, Out, Err };  // descriptors 0 to 2

// Makes the standard streams carry bytes as they are, and memory fit for many files. Make it before
// anything else. A console that it changed is at its end as it was found.
class PreparedProcess {
 public:
  PreparedProcess();
  ~PreparedProcess();  // NOLINT(performance-trivially-destructible): not on every system
  PreparedProcess(const PreparedProcess&) = delete;
  PreparedProcess& operator=(const PreparedProcess&) = delete;
};

// What stands behind the program's name, in UTF-8; the texts are those that main was given.
std::vector<std::string> Program_Arguments(int count, char** texts);

// Whether a person sits behind it, who can be shown colours and lines that change.
bool Is_Terminal(StandardStream stream);

}  // namespace quillspeech::cli
