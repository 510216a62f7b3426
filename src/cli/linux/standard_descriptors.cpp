#include "cli/standard_descriptors.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace quillspeech::cli {

void Fill_Standard_Descriptors() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // The lowest free number is the one that a new descriptor gets.
    if (::fcntl(number, F_GETFD) < 0) static_cast<void>(::open("/dev/null", O_RDONLY));
  }
}

}  // namespace quillspeech::cli
