#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "analysis/file_analysis.hpp"
#include "tests/support/analysis_session.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;

// A session with the words of a file, which are analysed whole unless a slice length is set.
struct WordRun : AnalysisSession {
  explicit WordRun(const Sound& sound) {
    session.settings.Sample_processing_resolution = 0;
    Put_File(session, sound);
  }
  WordRun& Slice_Bytes(int bytes) {
    session.settings.Sample_processing_resolution = bytes;
    return *this;
  }
  WordRun& Run() {
    Run_File_Analysis(session);
    return *this;
  }
};

constexpr Bytes Pause(2000);

TEST(FileWord, A_word_of_100_bytes_is_skipped_when_no_slice_length_is_set) {
  WordRun skipped(Words({100}, Pause));
  EXPECT_TRUE(skipped.Run().Slices().empty());
  EXPECT_EQ(skipped.session.words.Word_Entry_Length[0], 100);
  WordRun longer(Words({125}, Pause));
  EXPECT_EQ(longer.Run().Slices(), (Bounds{{2000, 2125}}));
}

TEST(FileWord, A_word_no_longer_than_a_slice_is_taken_whole_even_below_100_bytes) {
  WordRun test(Words({100}, Pause));
  EXPECT_EQ(test.Slice_Bytes(500).Run().Slices(), (Bounds{{2000, 2100}}));
}

TEST(FileWord, The_sites_are_not_exclusive) {
  WordRun whole_twice(Words({1000}, Pause));
  EXPECT_EQ(whole_twice.Slice_Bytes(1000).Run().Slices(), (Bounds{{2000, 3000}, {2000, 3000}}));
  WordRun whole_and_sliced(Words({1000}, Pause));
  EXPECT_EQ(whole_and_sliced.Slice_Bytes(500).Run().Slices(),
            (Bounds{{2000, 3000}, {2000, 2500}, {2500, 3000}}));
}

TEST(FileWord, A_word_above_2000_bytes_is_sliced_without_overlap) {
  WordRun test(Words({2500}, Pause));
  EXPECT_EQ(test.Slice_Bytes(1000).Run().Slices(), (Bounds{{2000, 3000}, {3000, 4000}}));
  EXPECT_EQ(test.session.words.No_of_Processings, 2);
  EXPECT_EQ(test.session.settings.Sample_Overlap_Bytes, 0);
}

TEST(FileWord, The_three_switches_choose_slices_in_the_order_start_end_middle) {
  WordRun test(Words({3000}, Pause));
  test.session.settings.This_speech_sample_process_Start_only = "YES";
  test.session.settings.This_speech_sample_process_middle_only = "YES";
  test.session.settings.This_speech_sample_process_end_only = "YES";
  EXPECT_EQ(test.Slice_Bytes(1000).Run().Slices(),
            (Bounds{{2000, 3000}, {3000, 4000}, {4000, 5000}}));
}

TEST(FileWord, A_switch_left_empty_shuts_the_slices_and_stays_empty) {
  WordRun test(Words({3000}, Pause));
  test.session.settings.This_speech_sample_process_middle_only = "";
  EXPECT_TRUE(test.Slice_Bytes(1000).Run().Slices().empty());
  EXPECT_EQ(test.session.settings.This_speech_sample_process_middle_only, "");
}

TEST(FileWord, A_word_around_2000_bytes_is_analysed_once_when_no_slice_length_is_set) {
  for (const int length : {1975, 2000, 2025}) {
    WordRun test(Words({length}, Pause));
    EXPECT_EQ(test.Run().Slices(), (Bounds{{2000, 2000 + length}}));
  }
}

TEST(FileWord, Up_to_2000_bytes_a_word_is_taken_whole_and_in_slices) {
  WordRun both(Words({2000}, Pause));
  EXPECT_EQ(both.Slice_Bytes(1000).Run().Slices(),
            (Bounds{{2000, 4000}, {2000, 3000}, {3000, 4000}}));
  WordRun slices(Words({2025}, Pause));
  EXPECT_EQ(slices.Slice_Bytes(1000).Run().Slices(), (Bounds{{2000, 3000}, {3000, 4000}}));
}

TEST(FileWord, A_slice_length_that_holds_a_word_takes_it_whole_above_200000_bytes_too) {
  // The level below takes its one deep word, which is the same stretch, by the same rule.
  const Sound sound = Words({200025}, Bytes(8000));
  WordRun longer(sound);
  EXPECT_TRUE(longer.Slice_Bytes(200024).Run().Slices().empty());
  WordRun held(sound);
  EXPECT_EQ(held.Slice_Bytes(200025).Run().Slices(), (Bounds{{8000, 208025}, {8000, 208025}}));
}

TEST(FileWord, A_negative_slice_length_numbers_the_slices_and_takes_none) {
  WordRun test(Words({3000}, Pause));
  EXPECT_TRUE(test.Slice_Bytes(-1000).Run().Slices().empty());
  EXPECT_EQ(test.session.words.No_of_Processings, -3);
  EXPECT_EQ(test.session.words.Middle_Slice_Number, -2);
}

// Words with a pause that a file of 300,000 bytes keeps apart, and silence up to that length.
Sound Long_File(std::int64_t word_bytes) {
  Sound sound = Words({word_bytes}, Bytes(8000));
  return sound + Silence(Bytes(300001 - static_cast<std::int64_t>(sound.size())));
}

TEST(FileDescent, A_word_of_15000_bytes_in_a_short_file_is_analysed_once_as_a_whole) {
  Sound sound = Words({15000}, Bytes(8000));
  sound = sound + Silence(Bytes(100001 - static_cast<std::int64_t>(sound.size())));
  WordRun test(sound);
  EXPECT_EQ(test.Run().Slices(), (Bounds{{8000, 23000}}));
}

TEST(FileDescent, A_word_of_15000_bytes_in_a_long_file_descends_and_is_then_taken_whole) {
  WordRun test(Long_File(15000));
  test.Run();
  EXPECT_EQ(test.Slices(), (Bounds{{8000, 23000}, {8000, 23000}}));
  EXPECT_EQ(test.session.filter.Processings_Delivered, 2);
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 1);  // deep words are not counted
}

TEST(FileDescent, The_descent_and_the_whole_word_add_to_one_string) {
  WordRun test(Long_File(15000));
  test.session.settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
  test.Run();
  const std::string& word = test.session.filter.Voice_Word_Table[1];
  ASSERT_FALSE(word.empty());
  EXPECT_EQ(word.substr(0, word.size() / 2), word.substr(word.size() / 2));
}

TEST(FileDescent, A_word_of_10000_bytes_does_not_descend) {
  WordRun test(Long_File(10000));
  EXPECT_EQ(test.Run().Slices(), (Bounds{{8000, 18000}}));
  WordRun longer(Long_File(10025));
  EXPECT_EQ(longer.Run().Slices(), (Bounds{{8000, 18025}, {8000, 18025}}));
}

TEST(FileDescent, A_file_whose_last_index_is_200000_does_not_descend) {
  for (const auto& [bytes, slices] : {std::pair{200001, 1U}, {200002, 2U}}) {
    Sound sound = Words({15000}, Bytes(8000));
    sound = sound + Silence(Bytes(bytes - static_cast<std::int64_t>(sound.size())));
    WordRun test(sound);
    EXPECT_EQ(test.Run().Slices().size(), slices) << bytes;
  }
}

TEST(FileDescent, The_descent_goes_by_the_file_although_slices_overwrite_the_span) {
  Sound sound = Words({15000, 15000}, Bytes(8000));
  sound = sound + Silence(Bytes(300001 - static_cast<std::int64_t>(sound.size())));
  WordRun test(sound);
  test.Run();
  EXPECT_EQ(test.Slices().size(), 4U);
  EXPECT_EQ(test.session.words.Sample_Span, 15000);
  EXPECT_EQ(test.session.words.Last_Sample_Index, 300000);
}

TEST(FileDescent, A_word_above_200000_bytes_is_only_reached_by_the_descent) {
  WordRun test(Words({200025}, Bytes(8000)));
  test.Slice_Bytes(500).Run();
  // Its one deep word is above 100,000 bytes, and the too-deep word above 12,000: nothing is left.
  EXPECT_EQ(test.session.words.Word_Length[1], 200025);
  EXPECT_EQ(test.session.words.Deep_Word_Length[0], 200025);
  EXPECT_EQ(test.session.words.Too_Deep_Word_Length[0], 200025);
  EXPECT_TRUE(test.Slices().empty());
}

TEST(FileDescent, A_word_of_200000_bytes_is_analysed_whole_or_in_slices) {
  // Its one deep word is too long for the levels below.
  const Sound sound = Words({200000}, Bytes(8000));
  WordRun whole(sound);
  EXPECT_EQ(whole.Run().Slices(), (Bounds{{8000, 208000}}));
  WordRun sliced(sound);
  EXPECT_EQ(sliced.Slice_Bytes(100000).Run().Slices(), (Bounds{{8000, 108000}, {108000, 208000}}));
}

TEST(FileDescent, The_deep_parts_of_a_word_above_200000_bytes_are_analysed) {
  // Changes of 20 hold the word together at its own level and part it below.
  WordRun test(Silence(Bytes(8000)) + Buzz(Bytes(3025)) + Buzz(Bytes(194000), Amplitude(10)) +
               Buzz(Bytes(3050)) + Silence(Bytes(8001)));
  test.Run();
  EXPECT_EQ(test.session.words.Word_Length[1], 200025);
  EXPECT_EQ(test.Slices(), (Bounds{{8000, 11000}, {205025, 208025}}));
}

TEST(FileDescent, A_failure_in_the_descent_leaves_the_word_to_be_taken_whole) {
  WordRun test(Long_File(15000));
  test.session.settings.Always_Restart_on_Error = "YES";
  test.host.path = "C:\\vb6.exe";
  test.session.operations.Draw_Audio_Graph = [draws = 0](Session&) mutable {
    if (++draws == 2) Fail(Failure::Invalid_Call);
  };
  EXPECT_EQ(test.Run().Slices(), (Bounds{{8000, 23000}}));
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{5});
  EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
}

TEST(FileDescent, The_graph_is_drawn_at_each_level) {
  WordRun test(Long_File(15000));
  test.host.path = "C:\\vb6.exe";
  test.Run();
  EXPECT_EQ(test.Times("Draw_Audio_Graph"), 2);
}

}  // namespace
}  // namespace quillspeech
