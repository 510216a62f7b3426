#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/captured_sample.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(CapturedSample, A_stopped_session_does_nothing) {
  Capture test(Words({2500}, Pause));
  test.session.settings.Stop_everything_now = "YES";
  test.Run();
  EXPECT_EQ(test.session.flags.Operation_Status, "");
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_TRUE(test.Slices().empty());
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
  EXPECT_EQ(test.session.flags.Operation_Status, "Starting Processing");
  EXPECT_EQ(test.session.words.Last_Sample_Index, 9);
}

TEST(CapturedSample, A_sample_too_short_for_a_run_releases_the_pump_and_nothing_else) {
  for (const int bytes : {10, 11, 1000}) {
    Capture test(Silence(Bytes(2000)));
    test.session.sample.Wave_Header_Buffer_Length = bytes;
    test.Run();
    EXPECT_EQ(test.session.flags.Capture_Busy, 0) << bytes;
    EXPECT_EQ(test.session.flags.Analysis_Running, 1) << bytes;
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
      EXPECT_FALSE(test.Is_On(timer)) << bytes;
    }
  }
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
    EXPECT_EQ(test.session.settings.Words_I_Want[1], "*");
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

TEST(CapturedSample, A_sensitivity_of_0_is_2_already_for_the_scan) {
  for (const auto& [amplitude, heard] : {std::pair{2, false}, {3, true}}) {
    Capture test(Silence(Pause) + Buzz(Bytes(1000), Amplitude(amplitude)) + Silence(Bytes(2001)));
    test.session.settings.Noise_Sensitivity = 0;
    test.Run();
    EXPECT_EQ(test.session.words.scan.Forward_Hit_Count > 0, heard) << amplitude;
  }
}

TEST(CapturedSample, A_flag_left_by_a_restart_is_cleared_at_the_head) {
  Capture test(Words({500}, Pause));
  test.session.flags.Stop_Sample_Flag = 1;
  EXPECT_EQ(test.Run().Slices().size(), 1U);
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

TEST(CapturedSample, The_graph_is_drawn_when_the_words_have_their_bounds) {
  Capture test(Words({500}, Pause));
  test.host.path = "C:\\vb6.exe";
  int draws = 0;
  test.session.operations.Draw_Audio_Graph = [&](Session& session) {
    ++draws;
    EXPECT_EQ(session.words.Word_Start[1], 2000);
    EXPECT_EQ(session.words.Word_End[1], 2500);
  };
  test.Run();
  EXPECT_EQ(draws, 1);
}

TEST(CapturedSample, A_negative_sensitivity_stays_and_makes_every_grid_sample_a_hit) {
  for (const int sensitivity : {-1, -32767}) {
    Capture test(Silence(Bytes(5001)));
    test.session.settings.Noise_Sensitivity = sensitivity;
    test.Run();
    EXPECT_EQ(test.session.settings.Noise_Sensitivity, sensitivity);
    EXPECT_EQ(test.session.words.scan.Forward_Hit_Count, 204);
    EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 0);
    EXPECT_TRUE(test.session.trace.failures.empty());
  }
}

TEST(CapturedSample, A_sensitivity_of_minus_32768_has_no_opposite_and_fails_with_6) {
  Capture test(Silence(Bytes(5001)));
  test.session.settings.Noise_Sensitivity = -32768;
  test.Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(test.session.words.scan.Forward_Hit_Count, 0);  // at the first sample already
}

}  // namespace
}  // namespace quillspeech
