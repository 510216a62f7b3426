#include "cli/console.hpp"

#include <string_view>

namespace quillspeech::cli {

bool Is_Colour_Wanted(bool is_terminal, const char* no_colour, const char* terminal) {
  const bool refused = no_colour && *no_colour != '\0';
  const bool is_dumb = terminal && std::string_view(terminal) == "dumb";
  return is_terminal && !refused && !is_dumb;
}

}  // namespace quillspeech::cli
