#include "analysis/captured_sample.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <tuple>

#include "tests/support/analysis_session.hpp"
#include "tests/support/record_builder.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;
using Calls = std::vector<std::string>;

// A started session with a finished capture. The level is 100, so that words measure what the
// builder says.
struct Capture : AnalysisSession {
  explicit Capture(const Sound& sound) {
    session.settings.Digital_Signal_Processing_Level = 100;
    session.settings.Sample_processing_resolution = 0;
    Put_Capture(session, sound);
    session.flags.Session_Started = 1;
    events.Enable(FormTimer::Timer1, true);
    events.Enable(FormTimer::Timer3, true);
  }
  Capture& Run() {
    Process_Captured_Sample(session);
    return *this;
  }
  Capture& Slice_Bytes(int bytes, int overlap = 300) {
    session.settings.Sample_processing_resolution = bytes;
    session.settings.Sample_Overlap_Bytes = overlap;
    return *this;
  }
  Capture& Only(const char* start, const char* middle, const char* end) {
    session.settings.This_speech_sample_process_Start_only = start;
    session.settings.This_speech_sample_process_middle_only = middle;
    session.settings.This_speech_sample_process_end_only = end;
    return *this;
  }
};

constexpr Bytes Pause(2000);

TEST(CapturedSample, Each_word_is_analysed_between_its_bounds) {
  Capture test(Words({2500, 1000}, Pause));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 2);
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 4500}, {6550, 7550}}));
  EXPECT_EQ(test.session.trace.slices[0].word, 1);
  EXPECT_EQ(test.session.trace.slices[1].word, 2);
}

TEST(CapturedSample, A_stopped_session_does_nothing) {
  Capture test(Words({2500}, Pause));
  test.session.settings.Stop_everything_now = "YES";
  test.Run();
  EXPECT_EQ(test.session.flags.Operation_Status, "");
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_TRUE(test.Slices().empty());
}

TEST(CapturedSample, Silence_stalls_the_capture_chain_until_a_restart) {
  Capture test(Silence(Bytes(20001)));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 0);
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_TRUE(test.Slices().empty());
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
    EXPECT_FALSE(test.Is_On(timer));
  }
}

TEST(CapturedSample, With_words_found_the_next_capture_is_armed) {
  Capture test(Words({2500}, Pause));
  test.Run();
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
}

TEST(CapturedSample, While_slices_yield_the_clock_and_the_pump_are_kept_out) {
  Capture test(Words({2500}, Pause));
  test.events.At_Yield = [&] {
    EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
    EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
    EXPECT_EQ(test.session.flags.Capture_Busy, 1);
    EXPECT_EQ(test.session.flags.Analysis_Running, 1);
    EXPECT_EQ(test.session.flags.Operation_Status, "Starting Processing");
  };
  test.Run();
  EXPECT_EQ(test.events.yields, 1);
}

TEST(CapturedSample, A_sample_of_10_bytes_returns_silently) {
  Capture test(Silence(Bytes(10)));
  test.session.sample.Wave_Header_Buffer_Length = 10;
  test.Run();
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
  EXPECT_EQ(test.session.flags.Operation_Status, "Starting Processing");
  EXPECT_EQ(test.session.words.Last_Sample_Index, 9);
}

TEST(CapturedSample, A_sample_of_11_to_1000_bytes_gets_a_message) {
  for (const int bytes : {11, 1000}) {
    Capture test(Silence(Bytes(2000)));
    test.session.sample.Wave_Header_Buffer_Length = bytes;
    test.session.settings.Words_I_Want[1] = "x";
    test.Run();
    ASSERT_EQ(test.boxes.shown.size(), 1U);
    EXPECT_EQ(test.boxes.shown[0].box.title, "Quillspeech FATAL ERROR");
    EXPECT_EQ(test.boxes.shown[0].box.text, "'CANNOT PROCESS' Code : PA");
    EXPECT_EQ(test.boxes.shown[0].box.icon, BoxIcon::Stop);
    EXPECT_EQ(test.session.flags.Capture_Busy, 0);
    EXPECT_EQ(test.session.settings.Words_I_Want[1], "*");
    EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  }
}

TEST(CapturedSample, A_sample_of_1001_bytes_is_scanned) {
  Capture test(Silence(Bytes(2000)));
  test.session.sample.Wave_Header_Buffer_Length = 1001;
  test.Run();
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
}

TEST(CapturedSample, Settings_that_hold_none_get_their_defaults_written_back) {
  Capture test(Words({2500}, Pause));
  Settings& settings = test.session.settings;
  settings.Noise_Sensitivity = 0;
  settings.Noise_Word_No_CutOff = 0;
  settings.Sample_Overlap_Bytes = 0;
  test.Only("", "  ", "YES").Run();
  EXPECT_EQ(settings.Noise_Sensitivity, 2);
  EXPECT_EQ(settings.Noise_Word_No_CutOff, 4);
  EXPECT_EQ(settings.Sample_Overlap_Bytes, 300);
  EXPECT_EQ(settings.This_speech_sample_process_Start_only, "NO");
  EXPECT_EQ(settings.This_speech_sample_process_middle_only, "NO");
  EXPECT_EQ(settings.This_speech_sample_process_end_only, "YES");
}

TEST(CapturedSample, Only_words_below_the_cut_off_number_are_analysed) {
  Capture test(Words({500, 600, 700, 800, 900}, Pause));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 5);
  EXPECT_EQ(test.Slices().size(), 3U);
  EXPECT_EQ(test.session.trace.slices.back().word, 3);
  EXPECT_EQ(test.session.words.Current_Word_no_Processed, 5);
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
}

TEST(CapturedSample, A_cut_off_of_1_enters_every_word_and_analyses_none) {
  Capture test(Words({500, 600}, Pause));
  test.session.settings.Noise_Word_No_CutOff = 1;
  test.Run();
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_EQ(test.session.words.Word_Entry_Length[0], 500);
  EXPECT_EQ(test.session.words.Word_Entry_Length[1], 600);
}

TEST(CapturedSample, Words_are_entered_with_total_number_and_length) {
  Capture test(Words({500, 600}, Pause));
  test.Run();
  const WordTables& words = test.session.words;
  for (std::int64_t i = 0; i < 2; ++i) {
    EXPECT_EQ(words.Word_Count_Log[i], 2);
    EXPECT_EQ(words.Word_Entry_Number[i], i + 1);
    EXPECT_EQ(words.Word_Entry_Length[i], words.Word_Length[i + 1]);
  }
  EXPECT_EQ(words.Word_Count_Log[2], 0);
}

TEST(CapturedSample, A_last_word_that_runs_to_the_end_is_entered_and_then_skipped) {
  Capture test(Silence(Bytes(2000)) + Buzz(Bytes(8001)));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 1);
  EXPECT_EQ(test.session.words.Word_End[1], 10100);  // past the 10,001 bytes of the capture
  EXPECT_EQ(test.session.words.Word_Entry_Length[0], 8100);
  EXPECT_TRUE(test.Slices().empty());
}

TEST(CapturedSample, A_word_of_45000_bytes_is_analysed_and_a_longer_one_dropped) {
  Capture longest(Words({45000}, Pause));
  EXPECT_EQ(longest.Run().Slices().size(), 1U);
  Capture longer(Words({45025}, Pause));
  EXPECT_TRUE(longer.Run().Slices().empty());
  EXPECT_EQ(longer.session.words.Word_Entry_Length[0], 45025);
}

TEST(CapturedSample, A_word_of_length_0_is_analysed_as_the_empty_slice_0_to_0) {
  Capture test(Silence(Bytes(2000)) + Level(200, Bytes(2000)) + Silence(Bytes(2001)));
  test.Slice_Bytes(5000).Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 2);
  ASSERT_EQ(test.Slices().size(), 2U);
  EXPECT_EQ(test.Slices()[1], (std::pair{0, 0}));
  EXPECT_EQ(test.session.trace.slices[1].category, 0);
}

TEST(CapturedSample, With_a_slice_length_of_0_a_word_of_length_0_is_analysed_once) {
  Capture test(Silence(Bytes(2000)) + Level(200, Bytes(2000)) + Silence(Bytes(2001)));
  test.Run();
  EXPECT_EQ(test.Slices().size(), 2U);
}

TEST(CapturedSample, A_word_of_2500_bytes_in_slices_of_1000_gives_two) {
  Capture test(Words({2500}, Pause));
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}, {2700, 4000}}));
  EXPECT_EQ(test.session.words.No_of_Processings, 2);
}

TEST(CapturedSample, A_word_of_3500_bytes_in_slices_of_1000_gives_four_and_runs_past_its_end) {
  Capture test(Words({3500}, Pause));
  test.Slice_Bytes(1000, 100).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}, {2900, 4000}, {3900, 5000}, {4900, 6000}}));
  EXPECT_EQ(test.session.words.Current_Vyanjana_no_Processed, 4);
}

TEST(CapturedSample, A_word_no_longer_than_a_slice_is_analysed_whole) {
  for (const int bytes : {1000, 2500}) {
    Capture test(Words({1000}, Pause));
    EXPECT_EQ(test.Slice_Bytes(bytes).Run().Slices(), (Bounds{{2000, 3000}}));
  }
}

TEST(CapturedSample, The_middle_of_three_slices_and_of_five_is_the_second_and_one_has_none) {
  const struct {
    std::int64_t length;
    Bounds middle;
  } cases[] = {{1400, {}}, {3000, {{3000, 4000}}}, {5000, {{3000, 4000}}}, {4000, {{3000, 4000}}}};
  for (const auto& c : cases) {
    Capture test(Words({c.length}, Pause));
    EXPECT_EQ(test.Slice_Bytes(1000).Only("NO", "YES", "NO").Run().Slices(), c.middle) << c.length;
  }
}

TEST(CapturedSample, The_switches_are_independent_and_come_in_the_order_start_end_middle) {
  Capture all(Words({3000}, Pause));
  EXPECT_EQ(all.Slice_Bytes(1000).Only("YES", "YES", "YES").Run().Slices(),
            (Bounds{{2000, 3000}, {3000, 4000}, {4000, 5000}}));
  Capture one(Words({1400}, Pause));  // one slice is the first and the last
  EXPECT_EQ(one.Slice_Bytes(1000).Only("YES", "NO", "YES").Run().Slices(),
            (Bounds{{2000, 3000}, {2000, 3000}}));
  Capture two(Words({2000}, Pause));  // of two the middle is the first
  EXPECT_EQ(two.Slice_Bytes(1000).Only("YES", "YES", "YES").Run().Slices(),
            (Bounds{{2000, 3000}, {2000, 3000}, {3000, 4000}}));
}

TEST(CapturedSample, A_switch_that_is_neither_YES_nor_NO_shuts_every_site) {
  Capture test(Words({3000}, Pause));
  EXPECT_TRUE(test.Slice_Bytes(1000).Only("no", "NO", "NO").Run().Slices().empty());
}

TEST(CapturedSample, An_overlap_that_reaches_before_the_store_fails_that_slice_with_9) {
  Capture test(Words({1000}, Bytes(200)));
  test.session.settings.Always_Restart_on_Error = "YES";
  test.Slice_Bytes(500, 1000).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{200, 700}, {-300, 1200}}));
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
}

TEST(CapturedSample, After_a_failed_slice_the_word_loop_goes_on) {
  Capture test(Words({3000, 500}, Pause));
  test.session.settings.Always_Restart_on_Error = "YES";
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session&) {
    if (++stops == 1) Fail(Failure::Device_Failure);
  };
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{57});
  EXPECT_EQ(test.Slices().size(), 4U);
  EXPECT_EQ(test.session.filter.Processings_Delivered, 3);
}

TEST(CapturedSample, After_a_failed_slice_that_stops_all_the_next_ones_leave_at_their_head) {
  Capture test(Words({3000}, Pause));
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session&) {
    if (++stops == 1) Fail(Failure::Device_Failure);
  };
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  ASSERT_EQ(test.Slices().size(), 3U);
  EXPECT_EQ(test.session.trace.slices[1].category, std::nullopt);
  EXPECT_EQ(test.session.trace.slices[2].category, std::nullopt);
}

TEST(CapturedSample, Unbroken_sound_of_32767_hits_fails_with_6_and_recovers) {
  Capture test(Level(200, Bytes(25 * 32767 + 1)));
  test.Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
  EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping");
}

TEST(CapturedSample, A_restart_during_a_slice_skips_the_rest_and_leaves_the_capture_unarmed) {
  Capture test(Words({3000, 500}, Pause));
  test.events.At_Yield = [&] { test.session.flags.Stop_Sample_Flag = 1; };
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}}));
  EXPECT_EQ(test.session.filter.Processings_Delivered, 1);
  EXPECT_EQ(test.session.words.Current_Word_no_Processed, 1);
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
}

TEST(CapturedSample, A_flag_left_by_a_restart_is_cleared_at_the_head) {
  Capture test(Words({500}, Pause));
  test.session.flags.Stop_Sample_Flag = 1;
  EXPECT_EQ(test.Run().Slices().size(), 1U);
}

TEST(CapturedSample, With_This_Audio_Process_NO_no_word_is_entered) {
  Capture test(Words({500}, Pause));
  test.session.settings.This_Audio_Process = "NO";
  test.Run();
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_EQ(test.session.words.Word_Entry_Number[0], 0);
  EXPECT_EQ(test.session.words.Current_Word_no_Processed, 0);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
}

TEST(CapturedSample, A_word_above_2000_bytes_is_echoed_without_its_last_200) {
  Capture test(Words({2025, 2000}, Pause));
  test.session.settings.Speech_echo_feature = "YES";
  test.Run();
  EXPECT_EQ(test.Times("Play_Echo 2000 3825"), 1);
  EXPECT_EQ(std::count_if(test.calls.begin(), test.calls.end(),
                          [](const auto& call) { return call.starts_with("Play_Echo"); }),
            1);
}

TEST(CapturedSample, Without_the_echo_feature_nothing_is_echoed) {
  Capture test(Words({5000}, Pause));
  test.Run();
  EXPECT_EQ(test.calls, (Calls{"Stop_Recording"}));
}

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

TEST(CapturedSample, A_word_that_ends_at_the_promised_bytes_is_skipped) {
  for (const auto& [promised, slices] : {std::pair{4500, 0U}, {4501, 1U}}) {
    Capture test(Words({2500}, Pause));
    test.session.sample.Samples_Per_Capture = promised;
    EXPECT_EQ(test.Run().Slices().size(), slices) << promised;
  }
}

TEST(CapturedSample, The_analysis_counts_as_running_after_the_slices_of_a_word_even_failed_ones) {
  Capture test(Words({1000}, Pause));
  test.session.settings.Always_Restart_on_Error = "YES";
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session&) {
    if (++stops == 2) Fail(Failure::Device_Failure);
  };
  test.Slice_Bytes(500).Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{57});
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
}

TEST(CapturedSample, Memory_Clean_YES_clears_the_results_and_the_trace_string) {
  for (const char* clean : {"YES", "NO"}) {
    Capture test(Silence(Bytes(5001)));
    test.session.settings.Memory_Clean = clean;
    test.session.results.Platinum_Word_Table[1] = "word";
    test.session.results.Platinum_Word_Font = "Courier";
    test.session.results.Matched_Record_No = 5;
    test.session.filter.Voice_Magic_Elements = "_3";
    test.Run();
    const bool kept = std::string(clean) == "NO";
    EXPECT_EQ(test.session.results.Platinum_Word_Table[1], kept ? "word" : "");
    EXPECT_EQ(test.session.results.Platinum_Word_Font, kept ? "Courier" : "");
    EXPECT_EQ(test.session.filter.Voice_Magic_Elements, kept ? "_3" : "");
    EXPECT_EQ(test.session.results.Matched_Record_No, 5);
  }
}

TEST(CapturedSample, The_available_processings_go_to_0_only_when_words_are_sent_one_by_one) {
  for (const auto& [one_by_one, left] : {std::pair{"YES", 0}, {"NO", 9}}) {
    Capture test(Silence(Bytes(5001)));
    test.session.settings.Send_words_one_by_one = one_by_one;
    test.session.words.Current_Processings_Available = 9;
    test.Run();
    EXPECT_EQ(test.session.words.Current_Processings_Available, left);
  }
}

TEST(CapturedSample, The_graph_is_drawn_only_for_a_design_environment_that_wants_it) {
  for (const auto& [path, wanted, times] : {std::tuple{"C:\\vb6.exe", "YES", 1},
                                            {"C:\\vb6.exe", "NO", 0},
                                            {"C:\\host.exe", "YES", 0}}) {
    Capture test(Words({500}, Pause));
    test.host.path = path;
    test.session.settings.Show_Audio_Graph = wanted;
    test.Run();
    EXPECT_EQ(test.Times("Draw_Audio_Graph"), times);
  }
}

TEST(CapturedSample, A_direct_add_happens_only_with_words_found) {
  Capture words(Words({500}, Pause));
  words.session.settings.Direct_Add_Enabled = "YES";
  EXPECT_EQ(words.Run().Times("Add_Engine_String_To_Language"), 1);
  EXPECT_TRUE(words.Is_On(FormTimer::Timer5));
  Capture silence(Silence(Bytes(5001)));
  silence.session.settings.Direct_Add_Enabled = "YES";
  EXPECT_EQ(silence.Run().Times("Add_Engine_String_To_Language"), 0);
}

// A capture whose run ends in the Language Editor.
struct EditorCapture : Capture {
  EditorCapture() : Capture(Words({500}, Pause)) {
    session.settings.Add_To_Language = "YES";
    session.flags.Show_Activities = 1;
    events.Enable(FormTimer::Timer5, true);
  }
};

TEST(CapturedSample, A_session_that_adds_to_its_language_loads_the_editor_and_stays_unarmed) {
  EditorCapture test;
  test.Run();
  EXPECT_EQ(test.calls,
            (Calls{"Stop_Recording", "Stop_Recording", "Show_Status_Image 1", "Load_Database"}));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
  EXPECT_EQ(test.session.flags.Operation_Status, "Processing...");
}

TEST(CapturedSample, Only_a_design_environment_shows_the_editor_and_not_modally) {
  EditorCapture test;
  test.host.path = "C:\\vb6.exe";
  test.Run();
  EXPECT_EQ(test.calls.back(), "Show_Database");
}

TEST(CapturedSample, A_failure_in_showing_the_editor_is_ignored) {
  EditorCapture test;
  test.host.path = "C:\\vb6.exe";
  test.session.operations.Show_Database = [](Session&, bool) { Fail(Failure::Invalid_Call); };
  test.Run();
  EXPECT_EQ(test.Times("Stop_And_Recover"), 0);
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST(CapturedSample, Without_any_one_of_its_conditions_the_editor_is_not_loaded) {
  const std::function<void(EditorCapture&)> changes[] = {
      [](EditorCapture& test) { test.session.settings.Add_To_Language = "NO"; },
      [](EditorCapture& test) { test.session.flags.Show_Activities = 0; },
      [](EditorCapture& test) { test.session.settings.Noise_Word_No_CutOff = 1; },
      [](EditorCapture& test) {
        test.events.At_Yield = [&] { test.session.flags.Stop_Sample_Flag = 1; };
      },
      [](EditorCapture& test) { Put_Capture(test.session, Silence(Bytes(5001))); }};
  for (const auto& change : changes) {
    EditorCapture test;
    change(test);
    test.Run();
    EXPECT_EQ(test.Times("Load_Database"), 0);
    EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  }
}

TEST(CapturedSample, A_quiet_sample_clears_Capture_Busy_and_a_word_in_it_sets_it_again) {
  Capture test(Silence(Pause) + Buzz(Bytes(500)) + Silence(Bytes(5001)));
  int busy = -1;
  test.events.At_Yield = [&] { busy = static_cast<int>(test.session.flags.Capture_Busy); };
  test.Run();
  EXPECT_LT(test.session.words.scan.Forward_Hit_Count, 50);
  EXPECT_EQ(busy, 1);
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
}

TEST(CapturedSample, A_word_with_more_slices_than_16_bits_count_fails_with_6) {
  Capture test(Words({45000}, Pause));
  test.Slice_Bytes(1).Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_TRUE(test.Slices().empty());
}

TEST(CapturedSample, The_engine_file_is_loaded_anew_for_every_sample) {
  Capture test(Words({1000}, Pause));
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

TEST(CapturedSample, A_stopped_session_opens_no_engine_file) {
  Capture test(Words({1000}, Pause));
  test.session.settings.Consider_this_Engine_for_Recognition = "voice.EGN";
  test.session.settings.Stop_everything_now = "YES";
  test.Run();
  EXPECT_EQ(test.data_files.opens, 0);
}

}  // namespace
}  // namespace quillspeech
