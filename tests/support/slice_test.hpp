// A sound in the store of a watched session, ready to be cut into slices.
#pragma once

#include <cstdint>

#include "analysis/slice_analysis.hpp"
#include "recognition/engine_table.hpp"
#include "tests/support/analysis_session.hpp"

namespace quillspeech::tests {

struct SliceTest : AnalysisSession {
  explicit SliceTest(const Sound& sound) {
    Put_File(session, sound);
    Load_Default_Engine_Table(session);
    session.words.No_of_Processings = 30000;
    session.slice.Engine_Category = 77;  // to see whether a call touches it
  }
  std::int64_t Category(std::int64_t first, std::int64_t last) {
    Analyse_Slice(session, first, last);
    return session.slice.Engine_Category;
  }
  std::int64_t Filtered() const { return session.filter.Processings_Delivered; }
};

}  // namespace quillspeech::tests
