#include <gtest/gtest.h>

#include "tests/support/captured_sample.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(CapturedSample, The_head_clears_what_the_last_run_counted) {
  Capture test(Silence(Bytes(5001)));
  WordTables& words = test.session.words;
  words.Probable_no_of_words_recognized = 4;
  words.Current_Word_no_Processed = 4;
  words.Current_DeepWord_no_Processed = 4;
  words.Current_TooDeepWord_no_Processed = 4;
  words.Current_Vyanjana_no_Processed = 4;
  words.No_of_Processings = 4;
  words.Word_Count_Log[0] = 4;
  words.Word_Entry_Number[4999] = 4;
  words.Word_Entry_Length[0] = 4;
  test.session.slice.Engine_Category = 4;
  test.session.slice.Autocorrelation[1200] = 4;
  test.session.slice.Span_Samples.Resize(9);
  test.session.slice.Span_Samples.Put(3, 4);
  test.session.filter.Processings_Delivered = 4;
  test.session.filter.Filter_Filled_Slots = 4;
  test.session.filter.Voice_Words_Explode_Count = 4;
  test.session.filter.Voice_Words_Matched_Count = 4;
  test.session.results.Platinum_Words_Available = 4;
  test.session.settings.Memory_Clean = "NO";
  test.Run();
  EXPECT_EQ(words.Probable_no_of_words_recognized, 0);
  EXPECT_EQ(words.Current_Word_no_Processed, 0);
  EXPECT_EQ(words.Current_DeepWord_no_Processed, 0);
  EXPECT_EQ(words.Current_TooDeepWord_no_Processed, 0);
  EXPECT_EQ(words.Current_Vyanjana_no_Processed, 0);
  EXPECT_EQ(words.No_of_Processings, 0);
  EXPECT_EQ(words.Word_Count_Log[0], 0);
  EXPECT_EQ(words.Word_Entry_Number[4999], 0);
  EXPECT_EQ(words.Word_Entry_Length[0], 0);
  EXPECT_EQ(test.session.slice.Engine_Category, 0);
  EXPECT_EQ(test.session.slice.Autocorrelation[1200], 0);
  EXPECT_EQ(test.session.slice.Span_Samples[3], 0);
  EXPECT_EQ(test.session.filter.Processings_Delivered, 0);
  EXPECT_EQ(test.session.filter.Filter_Filled_Slots, 0);
  EXPECT_EQ(test.session.filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(test.session.filter.Voice_Words_Matched_Count, 0);
  EXPECT_EQ(test.session.results.Platinum_Words_Available, 0);
}

TEST(CapturedSample, The_first_slice_meets_what_the_scan_left_on_the_grid) {
  Capture test(Silence(Bytes(50)) + Buzz(Bytes(400), Amplitude(10)) + Silence(Bytes(1550)) +
               Words({100}, Pause));
  std::vector<int> left;  // beyond the slice's own 98 samples
  test.session.operations.Stop_Recording = [&](Session& session) {
    if (!left.empty()) return;
    for (const int i : {125, 126, 200}) left.push_back(session.words.Centred_Samples[i]);
  };
  test.Run();
  ASSERT_EQ(test.Slices().front(), (std::pair{4000, 4100}));
  EXPECT_EQ(left, (std::vector<int>{-10, 0, 10}));
}

TEST(CapturedSample, Two_runs_over_the_same_sound_give_the_same_slices) {
  Capture test(Words({3000, 700}, Pause));
  test.Slice_Bytes(500).Run();
  const auto first = test.session.trace.slices;
  test.session.trace.slices.clear();
  test.Run();
  ASSERT_EQ(test.session.trace.slices.size(), first.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    EXPECT_EQ(test.session.trace.slices[i].category, first[i].category) << i;
  }
}

TEST(CapturedSample, No_slice_of_a_run_meets_what_the_last_run_left) {
  Capture test(Words({475, 3000}, Pause));
  std::vector<std::vector<double>> correlations;
  test.session.operations.Stop_Recording = [&](Session& session) {
    const double* lags = session.slice.Autocorrelation.Data();
    correlations.emplace_back(lags, lags + 101);
  };
  test.Run().Run();
  ASSERT_EQ(correlations.size(), 4U);
  EXPECT_EQ(correlations[2], correlations[0]);
  EXPECT_EQ(correlations[3], correlations[1]);
}

TEST(CapturedSample, The_head_clears_the_bounds_and_lengths_of_the_last_words) {
  Capture test(Silence(Bytes(5001)));
  WordTables& words = test.session.words;
  for (auto* table : {&words.Word_Start, &words.Word_End, &words.Word_Length}) {
    table->Resize(9);
    table->Put(3, 4);
  }
  test.Run();
  for (const auto* table : {&words.Word_Start, &words.Word_End, &words.Word_Length}) {
    ASSERT_EQ(table->Count(), 511);
    EXPECT_EQ((*table)[3], 0);
  }
}

TEST(CapturedSample, A_word_past_the_forward_count_does_not_meet_the_bounds_of_the_last_run) {
  Capture test(Words({500, 600}, Pause));
  test.Run();
  ASSERT_NE(test.session.words.Word_End[2], 0);
  test.session.trace.slices.clear();
  Put_Capture(test.session, Silence(Bytes(2000)) + Level(200, Bytes(2000)) + Silence(Bytes(2001)));
  test.Slice_Bytes(5000).Run();
  ASSERT_EQ(test.Slices().size(), 2U);
  EXPECT_EQ(test.Slices()[1], (std::pair{0, 0}));
}

TEST(CapturedSample, The_head_clears_what_the_last_scan_counted_and_marked) {
  Capture test(Silence(Bytes(5001)));
  WordScanTables& scan = test.session.words.scan;
  for (auto* count : {&scan.Forward_Hit_Count, &scan.Backward_Hit_Count, &scan.Forward_Word_Count,
                      &scan.Backward_Word_Count}) {
    *count = 2;
  }
  const auto tables = {&scan.Forward_Hits, &scan.Backward_Hits, &scan.Forward_Word_Starts,
                       &scan.Backward_Word_Ends};
  for (auto* table : tables) {
    table->Resize(9);
    table->Put(7, 4);
  }
  const auto gaps = {&scan.Forward_Gap_Index, &scan.Backward_Gap_Index};
  for (auto* table : gaps) {
    table->Resize(9);
    table->Put(7, 4);
  }
  test.Run();
  for (const auto* count : {&scan.Forward_Hit_Count, &scan.Backward_Hit_Count,
                            &scan.Forward_Word_Count, &scan.Backward_Word_Count}) {
    EXPECT_EQ(*count, 0);
  }
  for (const auto* table : tables) EXPECT_EQ((*table)[7], 0);
  for (const auto* table : gaps) EXPECT_EQ((*table)[7], 0);
}

TEST(CapturedSample, The_head_clears_the_grid_samples_of_a_longer_sample) {
  Capture test(Silence(Bytes(5001)));
  WordTables& words = test.session.words;
  const auto tables = {&words.Centred_Samples, &words.Decimated_Samples,
                       &words.Reversed_Decimated_Samples};
  for (auto* table : tables) {
    table->Resize(5000);
    table->Put(3001, 4);  // off the grid, and past the 204 grid samples of this one
  }
  test.Run();
  for (const auto* table : tables) EXPECT_EQ((*table)[3001], 0);
}

TEST(CapturedSample, The_head_clears_the_curve_the_valleys_and_the_middle_slice) {
  Capture test(Silence(Bytes(5001)));
  Slice& slice = test.session.slice;
  const auto tables = {&slice.Magnitude, &slice.Magnitude_dB, &slice.Valley_dB};
  for (std::int64_t i = 0; i < 3; ++i) {
    for (auto* table : tables) (*table)[i] = 4;
    slice.Valley_Bin[i] = 4;
  }
  slice.Curve_Bins_In_Use = 3;
  test.session.words.Middle_Slice_Number = 4;
  test.Run();
  for (std::int64_t i = 0; i < 3; ++i) {
    for (auto* table : tables) EXPECT_EQ((*table)[i], 0) << i;
    EXPECT_EQ(slice.Valley_Bin[i], 0) << i;
  }
  EXPECT_EQ(test.session.words.Middle_Slice_Number, 0);
}

}  // namespace
}  // namespace quillspeech
