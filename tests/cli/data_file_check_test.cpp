#include "cli/data_file_check.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "base/text.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::cli {
namespace {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;
using Bytes = std::vector<std::uint8_t>;
using Sentences = std::vector<std::string>;

// What the check says, remarks with "remark: " in front as the command prints them.
Sentences Findings(DataFileKind kind, const Bytes& bytes) {
  Sentences sentences;
  Find_Damage(kind, bytes, [&](const Finding& finding) {
    sentences.push_back((finding.is_damage ? "" : "remark: ") + finding.sentence);
  });
  return sentences;
}

template <class Record>
Bytes File_Of(const std::vector<Record>& records) {
  Bytes file;
  for (const auto& record : records) {
    file.insert(file.end(), record.Bytes().begin(), record.Bytes().end());
  }
  return file;
}

Sentences Findings(const SayRecord& record) {
  return Findings(DataFileKind::Language, File_Of<SayRecord>({record}));
}
Sentences Findings(const EgnRecord& record) {
  return Findings(DataFileKind::Engine, File_Of<EgnRecord>({record}));
}
Sentences Findings(const VocRecord& record) {
  return Findings(DataFileKind::Vocabulary, File_Of<VocRecord>({record}));
}

// A sound record: the word "hello" for "fth*s", both rated 100.
SayRecord Language_Record(int number = 1) {
  SayRecord record;
  record.RecordNo(number);
  record.WordCount(1);
  record.Words(1, "hello");
  record.WordRatings(1, 100);
  record.LikeCount(1);
  record.LikeProtocols(1, "fth*s");
  record.LikeRatings(1, 100);
  return record;
}

SayRecord With_Pattern(std::string_view pattern) {
  SayRecord record = Language_Record();
  record.LikeProtocols(1, pattern);
  return record;
}

EgnRecord Engine_Record(std::string_view everywhere = "oa") {
  EgnRecord record;
  record.RecordNo(1);
  for (int category = 0; category <= EgnRecord::Last_Slot; ++category) {
    record.EngineSlots(category, everywhere);
  }
  return record;
}

VocRecord Vocabulary_Record(int count = 3) {
  VocRecord record;
  record.RecordNo(1);
  record.VocabularySampleCount(static_cast<std::int16_t>(count));
  return record;
}

TEST(DataFileCheck, Sound_files_have_no_damage) {
  EXPECT_EQ(Findings(DataFileKind::Language,
                     File_Of<SayRecord>({Language_Record(1), Language_Record(2)})),
            Sentences{});
  EXPECT_EQ(Findings(Engine_Record()), Sentences{});
  EXPECT_EQ(Findings(Vocabulary_Record()), Sentences{});
}

TEST(DataFileCheck, An_empty_language_or_vocabulary_file_is_sound) {
  EXPECT_EQ(Findings(DataFileKind::Language, {}), Sentences{});
  EXPECT_EQ(Findings(DataFileKind::Vocabulary, {}), Sentences{});
}

TEST(DataFileCheck, New_and_deleted_records_and_old_bytes_above_the_counts_are_sound) {
  SayRecord record;
  record.RecordNo(1);
  EXPECT_EQ(Findings(record), Sentences{});
  record.WordRatings(5, 90);
  record.LikeRatings(30, 32767);
  record.LikeProtocols(30, "[");
  record.SlotNumbers(50, 0);
  EXPECT_EQ(Findings(record), Sentences{});
}

TEST(DataFileCheck, A_torn_tail_counts_as_a_record_when_it_is_more_than_half) {
  struct Case {
    std::size_t length;
    const char* sentence;
  };
  for (const auto& [length, sentence] :
       {Case{1,
             "the file ends in a torn record of 1 of 8476 bytes, less than half, which does not "
             "count as a record"},
        Case{4238,
             "the file ends in a torn record of 4238 of 8476 bytes, exactly half, which does not "
             "count as a record"},
        Case{4239,
             "the file ends in a torn record of 4239 of 8476 bytes, more than half, which counts "
             "as record 1"},
        Case{8475,
             "the file ends in a torn record of 8475 of 8476 bytes, more than half, which counts "
             "as record 1"},
        Case{8476 + 4238,
             "the file ends in a torn record of 4238 of 8476 bytes, exactly half, which counts as "
             "record 2"}}) {
    Bytes file = File_Of<SayRecord>({Language_Record(1), Language_Record(2)});
    if (length < 8476) file = File_Of<SayRecord>({Language_Record(1)});
    file.resize(length);
    const Sentences findings = Findings(DataFileKind::Language, file);
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings[0], sentence);
  }
}

TEST(DataFileCheck, A_torn_record_that_counts_is_checked_as_it_is_read) {
  Bytes file = File_Of<SayRecord>({Language_Record(7)});
  file.resize(8000);
  const Sentences findings = Findings(DataFileKind::Language, file);
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_EQ(findings[1], "record 1, RecordNo: is 7, so a write of this record lands in record 7");
}

TEST(DataFileCheck, A_torn_record_that_does_not_count_is_not_looked_into) {
  Bytes file = File_Of<SayRecord>({Language_Record(7)});
  file.resize(4238);
  EXPECT_EQ(Findings(DataFileKind::Language, file).size(), 1U);
}

TEST(DataFileCheck, A_wrong_own_number_is_named_with_what_a_write_would_do) {
  EXPECT_EQ(Findings(DataFileKind::Language,
                     File_Of<SayRecord>({Language_Record(1), Language_Record(1)})),
            Sentences{"record 2, RecordNo: is 1, so a write of this record lands in record 1"});
  EXPECT_EQ(Findings(Language_Record(0)),
            Sentences{"record 1, RecordNo: is 0, so a write of this record fails"});
  EXPECT_EQ(Findings(Language_Record(-3)),
            Sentences{"record 1, RecordNo: is -3, so a write of this record fails"});
}

TEST(DataFileCheck, A_count_beyond_its_array_or_below_0_is_damage) {
  struct Case {
    const char* field;
    void (SayRecord::*set)(std::int16_t);
    int most;
  };
  for (const auto& [field, set, most] :
       {Case{"WordCount", &SayRecord::WordCount, 100}, Case{"LikeCount", &SayRecord::LikeCount, 30},
        Case{"DifferentiatorCount", &SayRecord::DifferentiatorCount, 50}}) {
    SayRecord record;  // the texts are written, so that only the counts are wrong
    record.RecordNo(1);
    for (int i = 1; i <= 100; ++i) record.Words(i, "word");
    for (int i = 1; i <= 30; ++i) record.LikeProtocols(i, "x");
    for (int i = 1; i <= 50; ++i) {
      record.EngineCodes(i, "oa");
      record.SlotNumbers(i, 1);
    }
    record.WordCount(1);
    record.LikeCount(1);
    const std::string place = "record 1, " + std::string(field) + ": is ";
    (record.*set)(static_cast<std::int16_t>(most));
    EXPECT_EQ(Findings(record), Sentences{});
    (record.*set)(static_cast<std::int16_t>(most + 1));
    EXPECT_EQ(Findings(record),
              Sentences{place + std::to_string(most + 1) + ", but the array has " +
                        std::to_string(most) + " entries"});
    (record.*set)(-1);
    EXPECT_EQ(Findings(record), Sentences{place + "-1, below 0"});
  }
}

TEST(DataFileCheck, A_broken_pattern_is_damage) {
  for (const char* pattern : {"[", "a[b", "[!", "x[z-a]", "[]a["}) {
    const std::string shown = Text_As_Json(pattern);
    EXPECT_EQ(Findings(With_Pattern(pattern)),
              Sentences{"record 1, LikeProtocols 1: " + shown +
                        " has a list without its ] or a range that falls, so every scan of the "
                        "file ends here with failure 93"});
  }
}

TEST(DataFileCheck, A_pattern_of_the_right_form_is_sound) {
  for (const char* pattern : {"*", "?", "#", "fth*s", "[abc]", "[!a]", "[]", "[!]", "a]", "[a-z]x",
                              "[-a]", "[a-]", "x[\x01-\xFF]", "b\xE9", "[[]"}) {
    EXPECT_EQ(Findings(With_Pattern(pattern)), Sentences{}) << pattern;
  }
}

TEST(DataFileCheck, A_pattern_that_is_counted_but_erased_matches_nothing) {
  EXPECT_EQ(Findings(With_Pattern(std::string(100, '\0'))),
            Sentences{"record 1, LikeProtocols 1: is counted but erased, so it matches nothing"});
}

TEST(DataFileCheck, A_pattern_with_a_zero_byte_matches_nothing) {
  EXPECT_EQ(Findings(With_Pattern({"a\0", 2})),
            Sentences{"record 1, LikeProtocols 1: {\"bytes\": \"6100\"} holds a zero byte, so it "
                      "matches nothing"});
}

TEST(DataFileCheck, A_zero_byte_in_a_list_matters_only_when_the_list_has_nothing_else) {
  EXPECT_EQ(Findings(With_Pattern({"[a\0]", 4})), Sentences{});
  EXPECT_EQ(Findings(With_Pattern({"[\0]", 3})),
            Sentences{"record 1, LikeProtocols 1: {\"bytes\": \"5b005d\"} has a list that nothing "
                      "fits, so it matches nothing"});
}

TEST(DataFileCheck, A_list_that_excludes_every_character_matches_nothing) {
  const Sentences findings = Findings(With_Pattern("a[!\x01-\xFF]"));
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_NE(findings[0].find("has a list that nothing fits"), std::string::npos);
}

TEST(DataFileCheck, A_blank_pattern_is_a_remark) {
  EXPECT_EQ(Findings(With_Pattern("")),
            Sentences{"remark: record 1, LikeProtocols 1: is blank, so it fits only an empty "
                      "string"});
}

TEST(DataFileCheck, A_record_of_which_one_half_is_missing_is_a_remark) {
  SayRecord no_patterns = Language_Record();
  no_patterns.LikeCount(0);
  EXPECT_EQ(Findings(no_patterns),
            Sentences{"remark: record 1, LikeCount: is 0, so no word is ever found"});
  SayRecord no_words = Language_Record();
  no_words.WordCount(0);
  EXPECT_EQ(Findings(no_words),
            Sentences{"remark: record 1, WordCount: is 0, so a match gives no word"});
}

TEST(DataFileCheck, A_word_or_engine_code_that_is_counted_but_erased_is_damage) {
  SayRecord record = Language_Record();
  record.WordCount(2);
  record.DifferentiatorCount(1);
  record.SlotNumbers(1, 1);
  EXPECT_EQ(Findings(record),
            (Sentences{"record 1, Words 2: is counted but erased",
                       "record 1, EngineCodes 1: is counted but erased, so it equals no slot"}));
}

TEST(DataFileCheck, A_differentiator_for_slot_0_is_damage) {
  SayRecord record = Language_Record();
  record.DifferentiatorCount(1);
  record.EngineCodes(1, "oa");
  EXPECT_EQ(Findings(record),
            Sentences{"record 1, SlotNumbers 1: is 0, but slots are numbered from 1"});
}

TEST(DataFileCheck, Ratings_are_damage_when_a_score_leaves_the_byte) {
  struct Case {
    int word_rating;
    int pattern_rating;
    bool differentiator;
    const char* score;  // nullptr: sound
  };
  // The score is the bonus of 20, if there is one to earn, and round(word / 4) + 5 +
  // round(pattern / 2), a half to the even neighbour.
  for (const auto& [word, pattern, differentiator, score] :
       {Case{100, 100, true, nullptr}, Case{255, 372, false, nullptr},
        Case{255, 373, false, nullptr}, Case{255, 374, false, "256"}, Case{0, 461, true, nullptr},
        Case{0, 463, true, "257"}, Case{0, 32767, false, "16389"}, Case{0, -10, false, nullptr},
        Case{0, -11, false, "-1"}, Case{0, -12, true, "-1"}, Case{4, -12, true, nullptr},
        Case{0, -32768, false, "-16379"}}) {
    SayRecord record = Language_Record();
    record.WordRatings(1, static_cast<std::uint8_t>(word));
    record.LikeRatings(1, static_cast<std::int16_t>(pattern));
    record.DifferentiatorCount(differentiator ? 1 : 0);
    record.EngineCodes(1, "oa");
    record.SlotNumbers(1, 1);
    Sentences expected;
    if (score) {
      expected = {"record 1, LikeRatings 1: is " + std::to_string(pattern) +
                  ", which gives a score of " + score +
                  "; a score beyond 0 to 255 ends the scan with failure 6"};
    }
    EXPECT_EQ(Findings(record), expected) << word << ' ' << pattern;
  }
}

TEST(DataFileCheck, The_best_and_the_worst_word_of_a_record_bound_its_scores) {
  SayRecord record = Language_Record();
  record.WordCount(3);
  record.Words(2, "good");
  record.WordRatings(2, 255);
  record.Words(3, "bad");
  record.WordRatings(3, 0);
  record.LikeRatings(1, 374);
  ASSERT_EQ(Findings(record).size(), 1U);
  record.LikeRatings(1, -12);
  ASSERT_EQ(Findings(record).size(), 1U);
  record.WordCount(1);
  EXPECT_EQ(Findings(record), Sentences{});
}

TEST(DataFileCheck, A_language_file_of_more_than_32767_records_cannot_be_scanned) {
  constexpr std::size_t Record_Bytes = SayRecord::Record_Bytes;
  Bytes file(32768 * Record_Bytes);
  for (std::size_t number = 1; number <= 32768; ++number) {
    file[(number - 1) * Record_Bytes] = static_cast<std::uint8_t>(number);
    file[(number - 1) * Record_Bytes + 1] = static_cast<std::uint8_t>(number >> 8);
  }
  EXPECT_EQ(Findings(DataFileKind::Language, file),
            Sentences{"the file has 32768 records; above 32767 every scan ends with failure 6"});
  file.resize(32767 * Record_Bytes);
  EXPECT_EQ(Findings(DataFileKind::Language, file), Sentences{});
}

TEST(DataFileCheck, An_engine_file_has_exactly_one_record) {
  EXPECT_EQ(Findings(DataFileKind::Engine, {}),
            Sentences{"the file has no record, so no sound has a letter"});
  EXPECT_EQ(Findings(DataFileKind::Engine, File_Of<EgnRecord>({Engine_Record(), Engine_Record()})),
            Sentences{"the file has 2 records, but only record 1 is read"});
}

TEST(DataFileCheck, An_engine_record_is_record_1) {
  EgnRecord record = Engine_Record();
  record.RecordNo(2);
  EXPECT_EQ(Findings(record),
            Sentences{"record 1, RecordNo: is 2, so a write of this record lands in record 2"});
}

TEST(DataFileCheck, A_table_that_is_blank_or_erased_as_far_as_it_is_read_is_damage) {
  const Sentences blank{"record 1, EngineSlots: all blank or erased, so no sound has a letter"};
  EXPECT_EQ(Findings(Engine_Record("")), blank);
  EXPECT_EQ(Findings(Engine_Record(std::string(20, '\0'))), blank);
  EgnRecord only_100 = Engine_Record("");
  only_100.EngineSlots(100, "sx");
  EXPECT_EQ(Findings(only_100), blank);
}

TEST(DataFileCheck, Erased_slots_among_letters_are_a_remark_for_each_run) {
  EgnRecord record = Engine_Record();
  for (const int category : {0, 61, 62, 99, 100}) {
    record.EngineSlots(category, std::string(20, '\0'));
  }
  const std::string why =
      ": erased, so such a category puts zero bytes in the string instead of nothing";
  EXPECT_EQ(Findings(record), (Sentences{"remark: record 1, EngineSlots 0" + why,
                                         "remark: record 1, EngineSlots 61 to 62" + why,
                                         "remark: record 1, EngineSlots 99" + why}));
}

TEST(DataFileCheck, The_bytes_that_a_torn_engine_record_lacks_are_blanks) {
  Bytes file = File_Of<EgnRecord>({Engine_Record()});
  file.resize(1013);
  EXPECT_EQ(Findings(DataFileKind::Engine, file),
            Sentences{"the file ends in a torn record of 1013 of 2024 bytes, more than half, which "
                      "counts as record 1"});
}

TEST(DataFileCheck, A_vocabulary_count_reaches_from_0_to_1200) {
  EXPECT_EQ(Findings(Vocabulary_Record(0)), Sentences{});
  EXPECT_EQ(Findings(Vocabulary_Record(1200)), Sentences{});
  EXPECT_EQ(Findings(Vocabulary_Record(1201)),
            Sentences{"record 1, VocabularySampleCount: is 1201, but the array has 1200 entries"});
  EXPECT_EQ(Findings(Vocabulary_Record(-1)),
            Sentences{"record 1, VocabularySampleCount: is -1, below 0"});
}

TEST(DataFileCheck, Every_damage_of_a_file_is_named) {
  SayRecord bad = Language_Record(9);
  bad.WordCount(101);
  bad.LikeProtocols(1, "[");
  EXPECT_EQ(Findings(DataFileKind::Language, File_Of<SayRecord>({bad, bad})).size(),
            2 * (2 + 99 + 1U));
}

TEST(DataFileCheck, Random_bytes_are_checked_to_the_end_as_any_kind) {
  std::mt19937 random(11);
  for (int round = 0; round < 30; ++round) {
    Bytes bytes(30'000 + random() % 3000);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
    for (const auto kind :
         {DataFileKind::Language, DataFileKind::Engine, DataFileKind::Vocabulary}) {
      EXPECT_FALSE(Findings(kind, bytes).empty());
    }
  }
}

}  // namespace
}  // namespace quillspeech::cli
