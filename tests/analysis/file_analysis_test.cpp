#include "analysis/file_analysis.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/analysis_session.hpp"

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

TEST(FileAnalysis, The_status_stands_at_the_yield_and_the_two_marks_change_after_it) {
  FileRun test(Words({3000}, Pause));
  Flags& flags = test.session.flags;
  flags.Analysis_Running = 1;
  flags.Capture_Busy = 0;
  const auto note = [&](const std::string& place) {
    test.calls.push_back(place + ": " + flags.Operation_Status + ' ' +
                         std::to_string(std::int64_t{flags.Analysis_Running}) + ' ' +
                         std::to_string(std::int64_t{flags.Capture_Busy}));
  };
  test.session.settings.Enable_Speech_Engine = "NO";
  test.events.At_Yield = [&] { note("yield"); };
  test.host.path = "C:\\vb6.exe";
  test.session.operations.Draw_Audio_Graph = [&](Session&) { note("graph"); };
  test.Run();
  EXPECT_EQ(test.calls, (std::vector<std::string>{"yield: Starting Processing 1 0",
                                                  "graph: Starting Processing 0 1"}));
}

TEST(FileAnalysis, A_stop_at_the_yield_lets_the_words_be_entered_and_no_slice_be_analysed) {
  FileRun test(Words({500, 600}, Pause));
  test.session.words.Deep_Word_Start.Resize(3);
  test.session.filter.Voice_Words_Explode_Count = 7;
  test.events.At_Yield = [&] { test.session.settings.Stop_everything_now = "YES"; };
  test.Run();
  const WordTables& words = test.session.words;
  EXPECT_EQ(words.Deep_Word_Start.Count(), 0);
  EXPECT_EQ(test.session.filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(words.Probable_no_of_words_recognized, 2);
  EXPECT_EQ(words.Word_Entry_Length[0], 500);
  EXPECT_EQ(words.Word_Entry_Length[1], 600);
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 2500}, {4550, 5150}}));
  for (const SliceTrace& slice : test.session.trace.slices) {
    EXPECT_EQ(slice.category, std::nullopt);
  }
}

TEST(FileAnalysis, As_many_words_are_taken_as_were_counted_before_the_first) {
  for (const int count : {0, 1, 9}) {
    const Sound hum = Buzz(Bytes(2050), Amplitude(10));  // its slice is told to the graph as noise
    FileRun test(Silence(Pause) + hum + Silence(Pause) + hum + Silence(Bytes(2001)));
    int told = 0;
    test.session.operations.Print_On_Graph = [&](Session& session, std::string_view) {
      ++told;
      session.words.Probable_no_of_words_recognized = count;
    };
    test.Run();
    EXPECT_EQ(told, 2) << count;
    EXPECT_EQ(test.Slices(), (Bounds{{2000, 4000}, {6050, 8050}})) << count;
    EXPECT_EQ(test.session.words.Current_Word_no_Processed, 2) << count;
  }
}

TEST(FileAnalysis, A_stop_of_the_sample_behind_the_head_is_not_looked_at) {
  for (const int slice_bytes : {0, 500}) {
    FileRun test(Words({3000, 3000}, Pause));
    test.host.path = "C:\\vb6.exe";
    test.session.operations.Draw_Audio_Graph = [](Session& session) {
      session.flags.Stop_Sample_Flag = 1;
    };
    test.Slice_Bytes(slice_bytes).Run();
    EXPECT_EQ(test.Slices().size(), slice_bytes == 0 ? 2U : 12U);
    EXPECT_EQ(test.session.flags.Stop_Sample_Flag, 1);
  }
}

TEST(FileAnalysis, Sound_before_the_first_pause_is_never_analysed) {
  for (const int slice_bytes : {0, 100, 5000}) {
    FileRun test(Buzz(Bytes(1000)) + Silence(Bytes(2000)) + Buzz(Bytes(1026)));
    test.Slice_Bytes(slice_bytes).Run();
    EXPECT_EQ(test.session.words.Word_End[0], 950);
    ASSERT_FALSE(test.Slices().empty());
    for (const SliceTrace& slice : test.session.trace.slices) {
      EXPECT_EQ(slice.word, 1);
      EXPECT_GE(slice.first, 3000);
    }
  }
}

TEST(FileAnalysis, A_file_of_fewer_than_1000_bytes_gets_the_message_and_no_word) {
  FileRun test(Level(200, Bytes(999)));
  test.Run();
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.title, "Quillspeech FATAL ERROR");
  EXPECT_EQ(test.boxes.shown[0].box.text, "'CANNOT PROCESS' Code : PA");
  EXPECT_EQ(test.boxes.shown[0].box.icon, BoxIcon::Stop);
  EXPECT_EQ(test.boxes.shown[0].box.buttons, BoxButtons::OK);
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

TEST(FileAnalysis, A_word_that_reaches_past_the_promised_bytes_is_entered_and_skipped) {
  const Bounds both{{2000, 3000}, {5050, 6050}};
  for (const auto& [promised, slices] : {std::pair{6051, both}, {6050, Bounds{both[0]}}}) {
    FileRun test(Words({1000, 1000}, Pause));
    test.session.sample.Samples_Per_Capture = promised;
    test.Run();
    EXPECT_EQ(test.Slices(), slices) << promised;
    EXPECT_EQ(test.session.words.Current_Word_no_Processed, 2);
    EXPECT_EQ(test.session.words.Word_Entry_Number[1], 2);
    EXPECT_EQ(test.session.words.Word_Entry_Length[1], 1000);
  }
}

TEST(FileAnalysis, A_skipped_word_leaves_the_results_and_the_file_mark) {
  FileRun test(Words({1000}, Pause));
  test.session.settings.Memory_Clean = "NO";
  test.session.sample.Samples_Per_Capture = 3000;  // where the word ends
  test.session.results.Platinum_Word_Table[1] = "word";
  test.Run();
  EXPECT_EQ(test.session.results.Platinum_Word_Table[1], "word");
  EXPECT_EQ(test.session.flags.File_Run_Active, 1);
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
  const Filter& filter = test.session.filter;
  test.session.filter.Processings_Delivered = 5;
  test.session.filter.Filter_Filled_Slots = 7;
  test.session.filter.Voice_Words_Explode_Count = 7;
  for (const int delivered : {6, 7}) {
    test.Run();
    EXPECT_EQ(filter.Processings_Delivered, delivered);
    EXPECT_EQ(filter.Filter_Filled_Slots, 7);  // one slice alone fills none
    EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
  }
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

TEST(FileAnalysis, Unbroken_sound_of_32767_hits_fails_with_6_and_recovers) {
  FileRun test(Level(200, Bytes(25 * 32767 + 1)));
  test.Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
}

}  // namespace
}  // namespace quillspeech
