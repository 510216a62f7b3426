#include "analysis/file_analysis.hpp"

#include <gtest/gtest.h>

#include "tests/support/analysis_session.hpp"
#include "tests/support/record_builder.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;

// A session with a file in its store, its words analysed whole.
struct FileRun : AnalysisSession {
  explicit FileRun(const Sound& sound) {
    session.settings.Sample_processing_resolution = 0;
    session.flags.File_Run_Active = 1;
    Put_File(session, sound);
  }
  FileRun& Run() {
    Run_File_Analysis(session);
    return *this;
  }
  FileRun& Slice_Bytes(int bytes) {
    session.settings.Sample_processing_resolution = bytes;
    return *this;
  }
};

constexpr Bytes Pause(2000);

// Words with a pause that a file of 300,000 bytes keeps apart, and silence up to that length.
Sound Long_File(std::int64_t word_bytes) {
  Sound sound = Words({word_bytes}, Bytes(8000));
  return sound + Silence(Bytes(300001 - static_cast<std::int64_t>(sound.size())));
}

TEST(FileAnalysis, Every_word_is_analysed_whatever_the_settings_of_a_capture_say) {
  FileRun test(Words({500, 600, 700, 800, 900}, Pause));
  test.session.settings.This_Audio_Process = "NO";
  test.session.settings.Noise_Word_No_CutOff = 1;
  test.session.settings.Speech_echo_feature = "YES";
  test.Run();
  EXPECT_EQ(test.Slices(),
            (Bounds{{2000, 2500}, {4550, 5150}, {7200, 7900}, {9950, 10750}, {12800, 13700}}));
  EXPECT_TRUE(test.calls.empty());
}

TEST(FileAnalysis, A_stopped_session_does_nothing) {
  FileRun test(Words({500}, Pause));
  test.session.settings.Stop_everything_now = "YES";
  test.Run();
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_EQ(test.events.yields, 0);
}

TEST(FileAnalysis, It_yields_once_and_switches_no_timer) {
  FileRun test(Words({500, 600}, Pause));
  test.events.Enable(FormTimer::Timer1, true);
  test.session.flags.Analysis_Running = 1;
  test.session.settings.Enable_Speech_Engine = "NO";
  test.Run();
  EXPECT_EQ(test.events.yields, 1);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
  EXPECT_EQ(test.session.flags.Operation_Status, "Starting Processing");
}

TEST(FileAnalysis, A_file_of_fewer_than_1000_bytes_gets_the_message_and_no_word) {
  FileRun test(Level(200, Bytes(999)));
  test.Run();
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.title, "Quillspeech FATAL ERROR");
  EXPECT_EQ(test.boxes.shown[0].box.text, "'CANNOT PROCESS' Code : PA");
  EXPECT_EQ(test.boxes.shown[0].box.icon, BoxIcon::Stop);
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
}

TEST(FileAnalysis, A_file_of_10_bytes_returns_silently) {
  FileRun test(Level(200, Bytes(10)));
  test.Run();
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
}

TEST(FileAnalysis, A_Noise_Sensitivity_of_0_stays_0) {
  FileRun test(Silence(Pause) + Buzz(Bytes(550), Amplitude(1)) + Silence(Bytes(2001)));
  test.session.settings.Noise_Sensitivity = 0;
  test.Run();
  EXPECT_EQ(test.session.settings.Noise_Sensitivity, 0);
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 2500}}));
}

TEST(FileAnalysis, A_word_of_100_bytes_is_skipped_when_no_slice_length_is_set) {
  FileRun skipped(Words({100}, Pause));
  EXPECT_TRUE(skipped.Run().Slices().empty());
  EXPECT_EQ(skipped.session.words.Word_Entry_Length[0], 100);
  FileRun longer(Words({125}, Pause));
  EXPECT_EQ(longer.Run().Slices(), (Bounds{{2000, 2125}}));
}

TEST(FileAnalysis, A_word_no_longer_than_a_slice_is_taken_whole_even_below_100_bytes) {
  FileRun test(Words({100}, Pause));
  EXPECT_EQ(test.Slice_Bytes(500).Run().Slices(), (Bounds{{2000, 2100}}));
}

TEST(FileAnalysis, The_sites_are_not_exclusive) {
  FileRun whole_twice(Words({1000}, Pause));
  EXPECT_EQ(whole_twice.Slice_Bytes(1000).Run().Slices(), (Bounds{{2000, 3000}, {2000, 3000}}));
  FileRun whole_and_sliced(Words({1000}, Pause));
  EXPECT_EQ(whole_and_sliced.Slice_Bytes(500).Run().Slices(),
            (Bounds{{2000, 3000}, {2000, 2500}, {2500, 3000}}));
}

TEST(FileAnalysis, A_word_above_2000_bytes_is_sliced_without_overlap) {
  FileRun test(Words({2500}, Pause));
  EXPECT_EQ(test.Slice_Bytes(1000).Run().Slices(), (Bounds{{2000, 3000}, {3000, 4000}}));
  EXPECT_EQ(test.session.words.No_of_Processings, 2);
  EXPECT_EQ(test.session.settings.Sample_Overlap_Bytes, 0);
}

TEST(FileAnalysis, The_three_switches_choose_slices_in_the_order_start_end_middle) {
  FileRun test(Words({3000}, Pause));
  test.session.settings.This_speech_sample_process_Start_only = "YES";
  test.session.settings.This_speech_sample_process_middle_only = "YES";
  test.session.settings.This_speech_sample_process_end_only = "YES";
  EXPECT_EQ(test.Slice_Bytes(1000).Run().Slices(),
            (Bounds{{2000, 3000}, {3000, 4000}, {4000, 5000}}));
}

TEST(FileAnalysis, A_switch_left_empty_shuts_the_slices_and_stays_empty) {
  FileRun test(Words({3000}, Pause));
  test.session.settings.This_speech_sample_process_middle_only = "";
  EXPECT_TRUE(test.Slice_Bytes(1000).Run().Slices().empty());
  EXPECT_EQ(test.session.settings.This_speech_sample_process_middle_only, "");
}

TEST(FileAnalysis, A_word_of_15000_bytes_in_a_short_file_is_analysed_once_as_a_whole) {
  Sound sound = Words({15000}, Bytes(8000));
  sound = sound + Silence(Bytes(100001 - static_cast<std::int64_t>(sound.size())));
  FileRun test(sound);
  EXPECT_EQ(test.Run().Slices(), (Bounds{{8000, 23000}}));
}

TEST(FileAnalysis, A_word_of_15000_bytes_in_a_long_file_descends_and_is_then_taken_whole) {
  FileRun test(Long_File(15000));
  test.Run();
  EXPECT_EQ(test.Slices(), (Bounds{{8000, 23000}, {8000, 23000}}));
  EXPECT_EQ(test.session.filter.Processings_Delivered, 2);
}

TEST(FileAnalysis, The_descent_and_the_whole_word_add_to_one_string) {
  FileRun test(Long_File(15000));
  test.session.settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
  test.Run();
  const std::string& word = test.session.filter.Voice_Word_Table[1];
  ASSERT_FALSE(word.empty());
  EXPECT_EQ(word.substr(0, word.size() / 2), word.substr(word.size() / 2));
}

TEST(FileAnalysis, A_word_of_10000_bytes_does_not_descend) {
  FileRun test(Long_File(10000));
  EXPECT_EQ(test.Run().Slices(), (Bounds{{8000, 18000}}));
  FileRun longer(Long_File(10025));
  EXPECT_EQ(longer.Run().Slices(), (Bounds{{8000, 18025}, {8000, 18025}}));
}

TEST(FileAnalysis, A_file_whose_last_index_is_200000_does_not_descend) {
  for (const auto& [bytes, slices] : {std::pair{200001, 1U}, {200002, 2U}}) {
    Sound sound = Words({15000}, Bytes(8000));
    sound = sound + Silence(Bytes(bytes - static_cast<std::int64_t>(sound.size())));
    FileRun test(sound);
    EXPECT_EQ(test.Run().Slices().size(), slices) << bytes;
  }
}

TEST(FileAnalysis, The_descent_goes_by_the_file_although_slices_overwrite_the_span) {
  Sound sound = Words({15000, 15000}, Bytes(8000));
  sound = sound + Silence(Bytes(300001 - static_cast<std::int64_t>(sound.size())));
  FileRun test(sound);
  test.Run();
  EXPECT_EQ(test.Slices().size(), 4U);
  EXPECT_EQ(test.session.words.Sample_Span, 15000);
  EXPECT_EQ(test.session.words.Last_Sample_Index, 300000);
}

TEST(FileAnalysis, A_word_above_200000_bytes_is_only_reached_by_the_descent) {
  FileRun test(Words({200025}, Bytes(8000)));
  test.Slice_Bytes(500).Run();
  // Its one deep word is above 100,000 bytes, and the too-deep word above 12,000: nothing is left.
  EXPECT_EQ(test.session.words.Word_Length[1], 200025);
  EXPECT_EQ(test.session.words.Deep_Word_Length[0], 200025);
  EXPECT_EQ(test.session.words.Too_Deep_Word_Length[0], 200025);
  EXPECT_TRUE(test.Slices().empty());
}

TEST(FileAnalysis, A_word_that_reaches_past_the_promised_bytes_is_entered_and_skipped) {
  FileRun test(Words({1000, 1000}, Pause));
  test.session.sample.Samples_Per_Capture = 6050;  // where the second word ends
  test.session.results.Platinum_Words_Available = 3;
  test.Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}}));
  EXPECT_EQ(test.session.words.Word_Entry_Length[1], 1000);
}

TEST(FileAnalysis, Results_and_the_file_mark_are_cleared_before_each_word_that_is_not_skipped) {
  FileRun test(Words({1000, 1000}, Pause));
  test.session.settings.Memory_Clean = "NO";
  test.session.results.Platinum_Word_Table[1] = "word";
  test.Run();
  EXPECT_EQ(test.session.results.Platinum_Word_Table[1], "");
  EXPECT_EQ(test.session.flags.File_Run_Active, 0);
}

TEST(FileAnalysis, Without_a_word_the_file_mark_and_the_old_words_stay) {
  FileRun test(Silence(Bytes(5001)));
  test.session.settings.Memory_Clean = "NO";
  test.session.results.Platinum_Word_Table[1] = "word";
  test.Run();
  EXPECT_EQ(test.session.results.Platinum_Word_Table[1], "word");
  EXPECT_EQ(test.session.flags.File_Run_Active, 1);
}

TEST(FileAnalysis, Memory_Clean_clears_the_matched_record_too) {
  for (const auto& [clean, record] : {std::pair{"YES", 0}, {"NO", 5}}) {
    FileRun test(Silence(Bytes(5001)));
    test.session.settings.Memory_Clean = clean;
    test.session.results.Matched_Record_No = 5;
    test.session.filter.Voice_Magic_Elements = "_1";
    test.Run();
    EXPECT_EQ(test.session.results.Matched_Record_No, record);
    EXPECT_EQ(test.session.filter.Voice_Magic_Elements, record == 0 ? "" : "_1");
  }
}

TEST(FileAnalysis, The_available_processings_go_to_0_in_any_case) {
  FileRun test(Silence(Bytes(5001)));
  test.session.settings.Send_words_one_by_one = "NO";
  test.session.words.Current_Processings_Available = 9;
  test.Run();
  EXPECT_EQ(test.session.words.Current_Processings_Available, 0);
}

TEST(FileAnalysis, Delivered_slices_and_filled_slots_go_on_from_the_last_run) {
  FileRun test(Words({1000}, Pause));
  test.session.filter.Filter_Filled_Slots = 7;
  test.session.filter.Voice_Words_Explode_Count = 7;
  test.Run().Run();
  EXPECT_EQ(test.session.filter.Processings_Delivered, 2);
  EXPECT_GE(test.session.filter.Filter_Filled_Slots, 7);
}

TEST(FileAnalysis, The_head_clears_the_tables_of_all_three_levels) {
  FileRun test(Silence(Bytes(5001)));
  WordTables& words = test.session.words;
  for (auto* table : {&words.Deep_Word_Start, &words.Deep_Word_End, &words.Deep_Word_Length,
                      &words.Too_Deep_Word_Start, &words.Too_Deep_Word_End,
                      &words.Too_Deep_Word_Length, &words.Word_Start}) {
    table->Resize(3);
    table->Put(1, 9);
  }
  test.session.flags.Stop_Sample_Flag = 1;
  test.Run();
  for (auto* table :
       {&words.Deep_Word_Start, &words.Deep_Word_End, &words.Deep_Word_Length,
        &words.Too_Deep_Word_Start, &words.Too_Deep_Word_End, &words.Too_Deep_Word_Length}) {
    EXPECT_EQ(table->Count(), 0);
  }
  EXPECT_EQ(words.Word_Start[1], 0);
  EXPECT_EQ(test.session.flags.Stop_Sample_Flag, 0);
}

TEST(FileAnalysis, Capture_Busy_stays_set_by_a_loud_file_and_is_cleared_by_a_quiet_one) {
  FileRun loud(Words({3000}, Pause));
  EXPECT_EQ(loud.Run().session.flags.Capture_Busy, 1);
  FileRun quiet(Silence(Bytes(5001)));
  EXPECT_EQ(quiet.Run().session.flags.Capture_Busy, 0);
}

TEST(FileAnalysis, Fewer_than_100_hits_are_quiet) {
  // So many forward hits, and one backward hit at each edge.
  for (const auto& [hits, busy] : {std::pair{97, 0}, {98, 1}}) {
    FileRun test(Silence(Pause) + Level(200, Bytes(25 * hits)) + Silence(Bytes(2001)));
    EXPECT_EQ(test.Run().session.flags.Capture_Busy, busy) << hits;
  }
}

TEST(FileAnalysis, Words_that_the_last_word_left_are_ranked_at_the_end) {
  FileRun test(Silence(Pause) + Buzz(Bytes(2050), Amplitude(10)) + Silence(Bytes(2001)));
  test.session.operations.Print_On_Graph = [](Session& session, std::string_view) {
    session.results.Platinum_Words_Available = 1;
    session.results.Platinum_Word_Table[1] = "word   ";
    session.results.Platinum_Rank_Table[1] = 80;
  };
  test.Run();
  EXPECT_EQ(test.session.results.Platinum_Best_Table[1], "word");
}

TEST(FileAnalysis, Without_a_word_available_nothing_is_ranked) {
  FileRun test(Silence(Bytes(5001)));
  test.session.settings.Memory_Clean = "NO";
  test.session.results.Platinum_Words_Available = 3;
  test.session.results.Platinum_Best_Table[1] = "old";
  test.Run();
  EXPECT_EQ(test.session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(test.session.results.Platinum_Best_Table[1], "old");
}

TEST(FileAnalysis, A_word_around_2000_bytes_is_analysed_once_when_no_slice_length_is_set) {
  for (const int length : {1975, 2000, 2025}) {
    FileRun test(Words({length}, Pause));
    EXPECT_EQ(test.Run().Slices(), (Bounds{{2000, 2000 + length}}));
  }
}

TEST(FileAnalysis, Unbroken_sound_of_32767_hits_fails_with_6_and_recovers) {
  FileRun test(Level(200, Bytes(25 * 32767 + 1)));
  test.Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
}

TEST(FileAnalysis, The_graph_is_drawn_at_each_level) {
  FileRun test(Long_File(15000));
  test.host.path = "C:\\vb6.exe";
  test.Run();
  EXPECT_EQ(test.Times("Draw_Audio_Graph"), 2);
}

TEST(FileAnalysis, The_engine_file_is_loaded_anew_for_every_file) {
  FileRun test(Words({1000}, Pause));
  test.session.settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
  test.session.settings.Consider_this_Engine_for_Recognition = "voice.EGN";
  for (const std::string letters : {"one", "two"}) {
    Put_Engine_File(test.data_files, "voice.EGN", All_Groups(letters));
    test.Run();
    EXPECT_EQ(test.session.filter.Current_Voice_Word, letters);
  }
  EXPECT_EQ(test.data_files.opens, 2);
  EXPECT_EQ(test.data_files.open_files, 0);
}

TEST(FileAnalysis, A_stopped_session_opens_no_engine_file) {
  FileRun test(Words({1000}, Pause));
  test.session.settings.Consider_this_Engine_for_Recognition = "voice.EGN";
  test.session.settings.Stop_everything_now = "YES";
  test.Run();
  EXPECT_EQ(test.data_files.opens, 0);
}

}  // namespace
}  // namespace quillspeech
