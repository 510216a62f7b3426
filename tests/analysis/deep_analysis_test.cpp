#include "analysis/deep_analysis.hpp"

#include <gtest/gtest.h>

#include "recognition/engine_table.hpp"
#include "tests/support/analysis_session.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;

// A file in the store whose words were found already; its parts are analysed whole.
//
// A pause behind the last part is a gap of the backward pass alone, so it adds an empty part that
// begins and ends at the first byte.
struct DeepTest : AnalysisSession {
  explicit DeepTest(const Sound& sound) {
    Put_File(session, sound + Silence(Bytes(100)));
    Load_Default_Engine_Table(session);
    session.settings.Sample_processing_resolution = 0;
  }
  DeepTest& Deep(std::int64_t first, std::int64_t last) {
    Analyse_Deep_Word(session, first, last);
    return *this;
  }
  DeepTest& Too_Deep(std::int64_t first, std::int64_t last) {
    Analyse_Too_Deep_Word(session, first, last);
    return *this;
  }
  WordTables& words = session.words;
};

TEST(DeepWord, A_word_without_a_change_has_no_hit_and_nothing_is_analysed) {
  DeepTest test(Silence(Bytes(15000)));
  EXPECT_TRUE(test.Deep(0, 15000).Slices().empty());
  EXPECT_EQ(test.words.Current_DeepWord_no_Processed, 0);
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST(DeepWord, Steps_of_20_are_no_hit_in_either_pass) {
  DeepTest test(Silence(Bytes(2000)) + Level(148, Bytes(2000)) + Silence(Bytes(6000)));
  EXPECT_TRUE(test.Deep(0, 10000).Slices().empty());
}

TEST(DeepWord, With_hits_but_no_gap_entry_0_is_analysed) {
  DeepTest test(Silence(Bytes(1000)) + Buzz(Bytes(9000)));
  EXPECT_EQ(test.Deep(1000, 10000).Slices(), (Bounds{{1000, 10000}}));
  EXPECT_EQ(test.words.Deep_Word_Start[0], 0);
  EXPECT_EQ(test.words.Deep_Word_Length[0], 9000);
}

TEST(DeepWord, Bounds_count_from_the_first_byte_and_entry_0_is_analysed_too) {
  DeepTest test(Silence(Bytes(1000)) + Buzz(Bytes(3000)) + Silence(Bytes(1000)) +
                Buzz(Bytes(2000)) + Silence(Bytes(3000)));
  test.Deep(1000, 10000);
  EXPECT_EQ(test.words.Deep_Word_Start[0], 0);
  EXPECT_EQ(test.words.Deep_Word_End[0], 2975);
  EXPECT_EQ(test.words.Deep_Word_Start[1], 4000);
  EXPECT_EQ(test.words.Deep_Word_End[1], 5975);
  EXPECT_EQ(test.words.Deep_Word_Length[1], 1975);
  EXPECT_EQ(test.Slices(), (Bounds{{1000, 3975}, {5000, 6975}, {1000, 1000}}));
  EXPECT_EQ(test.session.trace.slices[0].deep, 0);
  EXPECT_EQ(test.session.trace.slices[1].deep, 1);
}

TEST(DeepWord, A_pause_behind_the_last_deep_word_adds_an_empty_one) {
  DeepTest without(Buzz(Bytes(5000)));
  EXPECT_EQ(without.Deep(0, 5000).Slices(), (Bounds{{0, 5000}}));
  DeepTest with(Buzz(Bytes(4025)) + Silence(Bytes(975)));
  EXPECT_EQ(with.Deep(0, 5000).Slices(), (Bounds{{0, 4000}, {0, 0}}));
  EXPECT_EQ(with.words.Current_DeepWord_no_Processed, 1);
}

TEST(DeepWord, A_deep_word_of_9000_bytes_does_not_descend) {
  DeepTest test(Buzz(Bytes(9025)) + Silence(Bytes(110975)));
  EXPECT_EQ(test.Deep(0, 120000).Slices(), (Bounds{{0, 9000}, {0, 0}}));
  EXPECT_EQ(test.words.Too_Deep_Word_Start.Count(), 0);
}

TEST(DeepWord, One_above_10000_bytes_in_a_span_above_100000_descends_and_is_taken_whole) {
  DeepTest test(Buzz(Bytes(11025)) + Silence(Bytes(108975)));
  test.Deep(0, 120000);
  EXPECT_EQ(test.words.Too_Deep_Word_Length[0], 11000);
  EXPECT_EQ(test.Slices(), (Bounds{{0, 11000}, {0, 11000}, {0, 0}}));
}

TEST(DeepWord, A_span_of_100000_does_not_descend) {
  DeepTest test(Buzz(Bytes(11025)) + Silence(Bytes(108975)));
  test.Deep(0, 100000);
  EXPECT_EQ(test.words.Too_Deep_Word_Start.Count(), 0);
  test.Deep(0, 100025);
  EXPECT_NE(test.words.Too_Deep_Word_Start.Count(), 0);
}

TEST(DeepWord, After_deep_word_0_the_descent_goes_by_the_span_that_the_last_analysis_left) {
  DeepTest test(Buzz(Bytes(11025)) + Silence(Bytes(5975)) + Buzz(Bytes(11025)) +
                Silence(Bytes(91975)));
  test.Deep(0, 120000);
  EXPECT_EQ(test.words.Deep_Word_Length[1], 11000);
  EXPECT_EQ(test.Slices(), (Bounds{{0, 11000}, {0, 11000}, {17000, 28000}, {0, 0}}));
}

TEST(DeepWord, The_count_of_deep_words_is_taken_before_a_deeper_level_scans_anew) {
  DeepTest test(Buzz(Bytes(11025)) + Silence(Bytes(5975)) + Buzz(Bytes(1025)) +
                Silence(Bytes(5975)) + Buzz(Bytes(1025)) + Silence(Bytes(94975)));
  test.Deep(0, 120000);
  EXPECT_EQ(test.words.Current_DeepWord_no_Processed, 3);
  EXPECT_EQ(test.Slices(),
            (Bounds{{0, 11000}, {0, 11000}, {17000, 18000}, {24000, 25000}, {0, 0}}));
}

TEST(DeepWord, A_deep_word_above_100000_bytes_is_not_analysed_at_this_level) {
  DeepTest longest(Buzz(Bytes(100025)) + Silence(Bytes(19975)));
  EXPECT_EQ(longest.Deep(0, 120000).Slices(), (Bounds{{0, 100000}, {0, 0}}));
  DeepTest longer(Buzz(Bytes(100050)) + Silence(Bytes(19950)));
  EXPECT_EQ(longer.Deep(0, 120000).Slices(), (Bounds{{0, 0}}));
  longer.session.settings.Sample_processing_resolution = 500;
  EXPECT_EQ(longer.Deep(0, 120000).Slices(), (Bounds{{0, 0}, {0, 0}}));
}

TEST(DeepWord, Deep_words_are_sliced_as_words_are) {
  DeepTest test(Buzz(Bytes(2525)) + Silence(Bytes(7475)));
  test.session.settings.Sample_processing_resolution = 1000;
  EXPECT_EQ(test.Deep(0, 10000).Slices(), (Bounds{{0, 1000}, {1000, 2000}, {0, 0}}));
  EXPECT_EQ(test.words.No_of_Processings, 2);
}

TEST(DeepWord, A_word_past_the_forward_count_meets_the_old_entry) {
  DeepTest test(Silence(Bytes(1000)) + Buzz(Bytes(1025)) + Silence(Bytes(1975)) +
                Buzz(Bytes(1025)) + Silence(Bytes(14975)));
  test.Deep(0, 20000);
  ASSERT_EQ(test.words.Deep_Word_Start[2], 4000);
  test.session.trace.slices.clear();
  // Steps of 25 are hits of the backward pass alone: two gaps there, none forward.
  Put_File(test.session, Silence(Bytes(1000)) + Level(153, Bytes(2000)) + Silence(Bytes(17100)));
  test.Deep(0, 20000);
  EXPECT_EQ(test.words.scan.Forward_Word_Count, 0);
  EXPECT_EQ(test.words.Current_DeepWord_no_Processed, 2);
  EXPECT_EQ(test.Slices().back(), (std::pair{4000, 5000}));
}

TEST(DeepWord, A_negative_span_shows_a_message_and_the_word_is_left) {
  DeepTest test(Buzz(Bytes(5000)));
  test.Deep(3000, 2999);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.title, "Quillspeech FATAL ERROR");
  EXPECT_EQ(test.boxes.shown[0].box.text, "CANNOT PROCESS : CODE:WD");
  EXPECT_EQ(test.boxes.shown[0].box.icon, BoxIcon::Stop);
  EXPECT_EQ(test.boxes.shown[0].box.buttons, BoxButtons::OK);
  EXPECT_TRUE(test.Slices().empty());
}

TEST(DeepWord, A_word_that_begins_before_the_store_fails_with_9_and_recovers) {
  DeepTest test(Buzz(Bytes(5000)));
  test.Deep(-100, 4000);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
  EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
}

TEST(DeepWord, The_scan_leaves_the_centred_samples_of_the_slice_before) {
  DeepTest test(Buzz(Bytes(5000)));
  test.words.Centred_Samples.Resize(6000);
  test.words.Centred_Samples.Put(600, 9);
  test.session.settings.Sample_processing_resolution = -1;  // no site opens
  Put_File(test.session, Silence(Bytes(40)) + Buzz(Bytes(40)) + Silence(Bytes(5020)));
  test.Deep(0, 5000);
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_EQ(test.words.Centred_Samples[600], 9);
  EXPECT_EQ(test.words.Centred_Samples[50], 0);
  EXPECT_EQ(test.words.Deep_Word_Length[0], 75);
}

TEST(TooDeepWord, One_of_12000_bytes_is_analysed) {
  DeepTest test(Buzz(Bytes(12025)) + Silence(Bytes(2975)) + Buzz(Bytes(1025)) +
                Silence(Bytes(3975)));
  EXPECT_EQ(test.Too_Deep(0, 20000).Slices(), (Bounds{{0, 12000}, {15000, 16000}, {0, 0}}));
  EXPECT_EQ(test.words.Too_Deep_Word_Length[0], 12000);
}

TEST(TooDeepWord, One_of_12001_bytes_is_skipped_and_the_one_after_it_is_analysed) {
  DeepTest test(Buzz(Bytes(12050)) + Silence(Bytes(2950)) + Buzz(Bytes(1025)) +
                Silence(Bytes(3976)));
  EXPECT_EQ(test.Too_Deep(0, 20001).Slices(), (Bounds{{15000, 15976}, {0, 0}}));
  EXPECT_EQ(test.words.Too_Deep_Word_Length[0], 12001);
  EXPECT_EQ(test.words.Current_TooDeepWord_no_Processed, 2);
  EXPECT_EQ(test.session.trace.slices[0].too_deep, 1);
}

TEST(TooDeepWord, There_is_no_level_below) {
  DeepTest test(Buzz(Bytes(11025)) + Silence(Bytes(108975)));
  EXPECT_EQ(test.Too_Deep(0, 120000).Slices(), (Bounds{{0, 11000}, {0, 0}}));
  EXPECT_EQ(test.words.Deep_Word_Start.Count(), 0);
}

TEST(TooDeepWord, A_negative_span_shows_a_message_of_its_own) {
  DeepTest test(Buzz(Bytes(5000)));
  test.Too_Deep(3000, 2999);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.title, "Quillspeech ERROR");
  EXPECT_EQ(test.boxes.shown[0].box.text, "CANNOT PROCESS CODE: WDD");
  EXPECT_EQ(test.boxes.shown[0].box.icon, BoxIcon::Stop);
  EXPECT_EQ(test.boxes.shown[0].box.buttons, BoxButtons::OK);
}

TEST(TooDeepWord, A_deep_word_without_a_hit_has_nothing_analysed) {
  DeepTest test(Silence(Bytes(15000)));
  EXPECT_TRUE(test.Too_Deep(0, 15000).Slices().empty());
}

}  // namespace
}  // namespace quillspeech
