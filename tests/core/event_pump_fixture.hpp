// A control whose pump is ticked over a state that the test sets.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {

using Events = std::vector<std::string>;

struct EventPump : ::testing::Test, ControlTest {
  void Status(const std::string& status) { session.flags.Operation_Status = status; }
  void Best(const std::string& word, int available = 1) {
    session.results.Platinum_Best_Table[1] = word;
    session.results.Platinum_Words_Available = available;
  }
  void Pattern(const std::string& pattern) { session.filter.Voice_Word_Table[1] = pattern; }
};

}  // namespace quillspeech::tests
