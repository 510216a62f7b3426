#include "cli/console.hpp"

#include <gtest/gtest.h>

namespace quillspeech::cli {
namespace {

TEST(Console, Colour_is_for_a_terminal_that_shows_it_and_a_user_who_has_not_declined) {
  struct Case {
    bool is_terminal;
    const char* no_colour;
    const char* terminal;
    bool wanted;
  };
  const Case Cases[] = {
      {true, nullptr, "xterm", true},   {true, nullptr, nullptr, true},
      {true, nullptr, "", true},        {true, "", "xterm", true},  // set to nothing is not set
      {true, "1", "xterm", false},      {true, "0", "xterm", false},
      {true, nullptr, "dumb", false},   {true, nullptr, "dumber", true},
      {false, nullptr, "xterm", false}, {false, nullptr, nullptr, false},
  };
  for (const Case& one : Cases) {
    EXPECT_EQ(Is_Colour_Wanted(one.is_terminal, one.no_colour, one.terminal), one.wanted)
        << one.is_terminal << " " << (one.no_colour ? one.no_colour : "(none)") << " "
        << (one.terminal ? one.terminal : "(none)");
  }
}

}  // namespace
}  // namespace quillspeech::cli
