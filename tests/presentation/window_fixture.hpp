// A session whose windows are looked at, and the words and grid points of a sample.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

// A session that found words, as it stands when the graph is drawn.
inline void Put_Grid(Session& session, const std::vector<std::int16_t>& grid) {
  const auto count = static_cast<std::int64_t>(grid.size());
  session.words.Decimated_Samples.Resize(count + 1);
  for (std::int64_t i = 1; i <= count; ++i) {
    session.words.Decimated_Samples.Put(i, grid[static_cast<std::size_t>(i - 1)]);
  }
  session.words.Decimated_Count = count;
}

inline void Put_Words(Session& session, const std::vector<std::pair<int, int>>& bounds) {
  WordTables& words = session.words;
  const auto count = static_cast<std::int64_t>(bounds.size());
  words.Word_Start.Resize(count);
  words.Word_End.Resize(count);
  for (std::int64_t i = 1; i <= count; ++i) {
    words.Word_Start.Put(i, bounds[static_cast<std::size_t>(i - 1)].first);
    words.Word_End.Put(i, bounds[static_cast<std::size_t>(i - 1)].second);
  }
  words.Probable_no_of_words_recognized = count;
}

struct WindowSession : TestSession {
  // The window of that name on show; null: there is none.
  Form* On_Show(const std::string& name) const {
    for (Form* const form : views.On_Show()) {
      if (form->Name() == name) return form;
    }
    return nullptr;
  }

  Operations& operations = session.operations;
};

struct WindowTest : testing::Test, WindowSession {};

}  // namespace quillspeech::tests
