// A session whose language file is "a.SAY", and what a scan of it leaves.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "recognition/language_matching.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

constexpr int Record_Bytes = datafiles::SayRecord::Record_Bytes;
using Words = std::vector<std::string>;

struct LanguageMatching : testing::Test {
  TestSession test;
  Session& session = test.session;
  Results& results = session.results;
  int recoveries = 0;

  LanguageMatching() {
    session.settings.Consider_this_Lang_File_to_match = "a.SAY";
    session.operations.Stop_And_Recover = [this](Session& stopped) {
      ++recoveries;
      stopped.data.Main_File_Number.Close();
    };
  }

  void Put(const std::vector<Record>& records) {
    Put_Language_File(test.data_files, "a.SAY", records);
  }
  std::vector<std::uint8_t>& File() { return test.data_files.files["a.SAY"]; }
  datafiles::SayRecord On_Disk(std::int64_t number) {
    return Language_Record(test.data_files, "a.SAY", number);
  }
  void Match(const std::string& text) {
    session.filter.Current_Voice_Word = text;
    Match_Language(session);
  }
  void Fill_Slot(int slot, const std::string& group, int weight) {
    session.filter.Filter_Slot_Table[slot] = group;
    session.filter.Filter_Weight_Table[slot] = weight;
  }
  // The score of the one word that this record yields for "s".
  std::int64_t Score_Of(const Record& record) {
    results.Platinum_Words_Available = 0;
    Put({record});
    Match("s");
    EXPECT_EQ(results.Platinum_Words_Available, 1);
    return results.Platinum_Score_Table[1];
  }
  // The words entered, trimmed, in order.
  Words Entered() const {
    Words words;
    for (std::int64_t i = 1; i <= results.Platinum_Words_Available; ++i) {
      words.push_back(Trimmed(results.Platinum_Word_Table[i]));
    }
    return words;
  }
  void Expect_Failure(int number) {
    EXPECT_EQ(session.trace.failures, std::vector<int>{number});
    EXPECT_EQ(recoveries, 1);
    EXPECT_EQ(test.data_files.open_files, 0);
  }
};

}  // namespace quillspeech::tests
