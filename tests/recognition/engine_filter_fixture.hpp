// A session whose categories are letters, and what its filter makes of them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "recognition/engine_filter.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

using Words = std::vector<std::string>;

// Categories 0 to 6 stand for the letters A to G. Every call of the language stage yields once, so
// the yields tell of its calls; its file is empty and it finds nothing.
struct EngineFilter : testing::Test {
  TestSession test;
  Session& session = test.session;
  Filter& filter = session.filter;
  Settings& settings = session.settings;
  Words matched;  // Current_Voice_Word at each call of the language stage
  int recoveries = 0;

  EngineFilter() {
    Set_Engine_Letters(filter, "ABCDEFG");
    settings.Words_to_Scan_Start = 1;
    test.events.At_Yield = [this] { matched.push_back(filter.Current_Voice_Word); };
    session.operations.Stop_And_Recover = [this](Session&) { ++recoveries; };
  }

  void Deliver(int category) {
    session.slice.Engine_Category = category;
    Run_Engine_Filter(session);
  }
  void Deliver(std::string_view letters) {
    for (const char letter : letters) Deliver(letter - 'A');
  }
  // The slices of one word.
  void Deliver_Word(std::string_view letters) {
    session.words.No_of_Processings = filter.Processings_Delivered + std::ssize(letters);
    Deliver(letters);
  }
  std::string Slots() const {
    std::string slots;
    for (std::int64_t n = 1; n <= filter.Filter_Filled_Slots; ++n) {
      slots += filter.Filter_Slot_Table[n] + std::to_string(filter.Filter_Weight_Table[n]) + " ";
    }
    return slots;
  }
  std::vector<int>& Failures() { return session.trace.failures; }
};

}  // namespace quillspeech::tests
