// The pump: what it hears, what it leaves, and what may happen while it waits.
#include <gtest/gtest.h>

#include "analysis/capture_scheduler.hpp"
#include "tests/support/live_session.hpp"
#include "tests/support/sample_builder.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// A capture under way, as the pump finds it; 100 passes between detection and processing.
struct Pump : LiveSession {
  explicit Pump(const Sound& sound) {
    session.settings.Voice_Processing_Delay = 100;
    session.settings.Digital_Signal_Processing_Level = 100;
    session.trace.Keep_Slices = true;
    Put_Capture(session, sound);
    events.Enable(FormTimer::Timer1, true);
    events.Enable(FormTimer::Timer3, true);
  }
  Pump& Run() {
    Run_Pump(session);
    return *this;
  }
  void Expect_Free(const char* when = "") const {
    EXPECT_EQ(session.flags.Capture_Busy, 0) << when;
    EXPECT_EQ(session.flags.Analysis_Running, 0) << when;
  }
};

// Grid samples in a row that stand that far above silence: as many hits, and two at their ends.
Sound Plateau(std::int64_t grid_samples, int distance = 20) {
  return Silence(Bytes(5000)) +
         Level(static_cast<std::uint8_t>(128 + distance), Bytes(grid_samples * 25)) +
         Silence(Bytes(5000));
}

const Bytes Long_Pause(2000);

TEST(RunPump, A_stopped_session_is_left_alone) {
  Pump test(Words({2500}, Long_Pause));
  test.session.settings.Stop_everything_now = "YES";
  test.session.settings.I_want_Status_Animation = "YES";
  test.session.flags.Analysis_Running = 1;
  test.Run();
  EXPECT_TRUE(test.calls.empty());
  EXPECT_EQ(test.session.flags.Operation_Status, "");
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
}

TEST(RunPump, The_status_shows_listening_when_it_is_animated) {
  Pump test(Silence(Bytes(5000)));
  test.session.settings.I_want_Status_Animation = "YES";
  test.Run();
  EXPECT_EQ(test.calls, Calls{"Show_Status_Image 1"});
}

TEST(RunPump, Silence_leaves_it_alert_and_its_timer_on) {
  Pump test(Silence(Bytes(5000)));
  test.session.flags.Analysis_Running = 1;
  test.Run();
  EXPECT_EQ(test.session.flags.Operation_Status, "Alert");
  test.Expect_Free();
  EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_EQ(test.events.yields, 0);
}

TEST(RunPump, It_wakes_up_at_50_hits) {
  for (const auto& [grid_samples, heard] : {std::pair{47, false}, {48, true}}) {
    Pump test(Plateau(grid_samples));
    test.Run();
    EXPECT_EQ(test.events.yields > 0, heard) << grid_samples;
    EXPECT_EQ(test.Is_On(FormTimer::Timer3), !heard) << grid_samples;
    test.Expect_Free();
  }
}

TEST(RunPump, A_hit_is_more_than_5_from_silence_whatever_the_noise_sensitivity) {
  for (const auto& [distance, heard] : {std::pair{5, false}, {6, true}, {-5, false}, {-6, true}}) {
    for (const int sensitivity : {1, 3, 100}) {
      Pump test(Plateau(100, distance));
      test.session.settings.Noise_Sensitivity = sensitivity;
      test.Run();
      EXPECT_EQ(test.events.yields > 0, heard) << distance;
      EXPECT_EQ(test.session.settings.Noise_Sensitivity, sensitivity);
    }
  }
}

TEST(RunPump, Cells_that_the_recorder_has_not_reached_become_silence_on_the_grid) {
  Pump test(Silence(Bytes(2000)) + Level(0, Bytes(3000)));
  test.Run();
  const auto& store = test.session.sample.Speech_Sample_Bytes;
  EXPECT_EQ(store[2'025], 128);
  EXPECT_EQ(store[2'026], 0);
  EXPECT_EQ(test.session.words.scan.Forward_Hit_Count, 0);
}

TEST(RunPump, A_buffer_of_10_bytes_or_less_is_left_silently_and_tried_again) {
  for (const int bytes : {0, 1, 9, 10}) {
    Pump test(Silence(Bytes(5000)));
    test.session.sample.Wave_Header_Buffer_Length = bytes;
    test.Run();
    test.Expect_Free();
    EXPECT_TRUE(test.boxes.shown.empty());
    EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
    EXPECT_EQ(test.session.flags.Operation_Status, "Alert");
  }
}

TEST(RunPump, A_buffer_of_11_to_1000_bytes_gets_a_message_at_every_look) {
  for (const int bytes : {11, 500, 1000}) {
    Pump test(Silence(Bytes(5000)));
    test.session.sample.Wave_Header_Buffer_Length = bytes;
    test.Run();
    EXPECT_TRUE(
        test.Showed("'CANNOT PROCESS' Code : PA", "Quillspeech FATAL ERROR", BoxIcon::Stop));
    test.Expect_Free();
    EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
    test.Run();
    EXPECT_EQ(test.boxes.shown.size(), 2U);
  }
}

TEST(RunPump, A_buffer_of_1001_bytes_is_looked_at) {
  Pump test(Silence(Bytes(5000)));
  test.session.sample.Wave_Header_Buffer_Length = 1001;
  test.Run();
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.session.words.Decimated_Count, 41);
}

TEST(RunPump, It_clears_what_the_last_run_counted) {
  Pump test(Silence(Bytes(5000)));
  WordTables& words = test.session.words;
  words.Probable_no_of_words_recognized = 3;
  words.Current_Word_no_Processed = 2;
  words.Current_Vyanjana_no_Processed = 5;
  words.No_of_Processings = 6;
  words.Middle_Slice_Number = 3;
  words.Word_Count_Log[4999] = 9;
  words.Word_Entry_Number[0] = 9;
  words.Word_Entry_Length[7] = 9;
  test.session.slice.Autocorrelation[1200] = 9;
  test.Run();
  EXPECT_EQ(words.Probable_no_of_words_recognized, 0);
  EXPECT_EQ(words.Current_Word_no_Processed, 0);
  EXPECT_EQ(words.Current_Vyanjana_no_Processed, 0);
  EXPECT_EQ(words.No_of_Processings, 0);
  EXPECT_EQ(words.Middle_Slice_Number, 0);
  EXPECT_EQ(words.Word_Count_Log[4999], 0);
  EXPECT_EQ(words.Word_Entry_Number[0], 0);
  EXPECT_EQ(words.Word_Entry_Length[7], 0);
  EXPECT_EQ(test.session.slice.Autocorrelation[1200], 0);
}

TEST(RunPump, It_leaves_what_was_recognised_what_is_wanted_and_the_mark_of_a_restart) {
  Pump test(Silence(Bytes(5000)));
  test.session.settings.Words_I_Want[1] = "hello";
  test.session.results.Platinum_Words_Available = 4;
  test.session.filter.Voice_Words_Explode_Count = 2;
  test.session.filter.Voice_Words_Matched_Count = 3;
  test.session.filter.Voice_Word_Table[1] = "oath";
  test.session.filter.Filter_Filled_Slots = 5;
  test.session.flags.Stop_Sample_Flag = 1;
  test.Run();
  EXPECT_EQ(test.session.settings.Words_I_Want[1], "hello");
  EXPECT_EQ(test.session.results.Platinum_Words_Available, 4);
  EXPECT_EQ(test.session.filter.Voice_Words_Explode_Count, 2);
  EXPECT_EQ(test.session.filter.Voice_Words_Matched_Count, 3);
  EXPECT_EQ(test.session.filter.Voice_Word_Table[1], "oath");
  EXPECT_EQ(test.session.filter.Filter_Filled_Slots, 5);
  EXPECT_EQ(test.session.flags.Stop_Sample_Flag, 1);
}

TEST(RunPump, It_draws_no_graph) {
  Pump test(Silence(Bytes(5000)));
  test.session.settings.Show_Audio_Graph = "YES";
  test.session.flags.Design_Environment_Tested = True;
  test.session.flags.Design_Environment_Result = True;
  test.session.operations.Draw_Audio_Graph = [](Session&) { ADD_FAILURE(); };
  test.Run();
}

TEST(RunPump, A_sample_loud_from_end_to_end_has_no_gap_and_switches_its_timer_off) {
  Pump test(Silence(Bytes(0)));
  test.session.settings.Digital_Signal_Processing_Level = 0;
  Put_Capture(test.session, Buzz(Bytes(5026)));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 0);
  EXPECT_EQ(test.session.flags.Operation_Status, "Alert");
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  test.Expect_Free();
}

TEST(RunPump, Speech_is_told_at_once_and_processed_after_the_passes) {
  Pump test(Words({2500}, Long_Pause));
  int passes = 0;
  test.events.At_Yield = [&] {
    if (test.session.flags.Operation_Status != "Speechdetected") return;
    ++passes;
    EXPECT_EQ(test.session.flags.Capture_Busy, 1);
    EXPECT_EQ(test.session.flags.Analysis_Running, 0);
    EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
    EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
    EXPECT_GT(test.session.words.Probable_no_of_words_recognized, 0);
    EXPECT_TRUE(test.session.trace.slices.empty());
  };
  test.Run();
  EXPECT_EQ(passes, 100);
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_FALSE(test.session.trace.slices.empty());
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
  test.Expect_Free();
}

TEST(RunPump, It_is_free_and_its_timer_off_when_the_processing_begins) {
  Pump test(Words({2500}, Long_Pause));
  test.session.settings.Consider_this_Engine_for_Recognition = "typo";  // first of all it is loaded
  int refusals = 0;
  test.session.operations.Stop_And_Recover = [&](Session&) {
    ++refusals;
    EXPECT_EQ(test.session.flags.Operation_Status, "Speechdetected");
    EXPECT_EQ(test.session.flags.Capture_Busy, 0);
    EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  };
  test.Run();
  EXPECT_EQ(refusals, 1);
}

TEST(RunPump, A_delay_below_1_processes_at_once) {
  for (const int delay : {0, -5}) {
    Pump test(Words({2500}, Long_Pause));
    test.session.settings.Voice_Processing_Delay = delay;
    test.Run();
    EXPECT_FALSE(test.session.trace.slices.empty());
  }
}

TEST(RunPump, It_never_enters_itself) {
  Pump test(Words({2500}, Long_Pause));
  test.session.settings.I_want_Status_Animation = "YES";
  test.session.settings.Voice_Processing_Delay = 15'000;
  int ticks = 0;
  test.events.On_Tick(FormTimer::Timer3, [&] {
    ++ticks;
    Timer3_Timer(test.session);
  });
  test.Run();
  EXPECT_GE(ticks, 20);
  EXPECT_EQ(test.Image_Times(1), 1);
}

TEST(RunPump, A_capture_that_begins_while_it_waits_replaces_the_buffer_that_is_processed) {
  Pump test(Words({2500}, Long_Pause));
  test.session.settings.Speech_sampling_time_in_ms = 1000;
  test.session.settings.Voice_Processing_Delay = 15'000;
  test.events.Enable(FormTimer::Timer5, true);
  test.Run();
  EXPECT_EQ(test.session.words.Last_Sample_Index, 22'050 + 100 - 1);
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 0);
  EXPECT_TRUE(test.session.trace.slices.empty());
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  test.Expect_Free();
}

TEST(RunPump, A_stop_while_it_waits_keeps_the_processing_out_and_frees_both_flags) {
  Pump test(Words({2500}, Long_Pause));
  test.session.settings.Voice_Processing_Delay = 15'000;
  test.Stop_At(50ms);
  test.Run();
  EXPECT_TRUE(test.session.trace.slices.empty());
  EXPECT_EQ(test.session.flags.Operation_Status, "Speechdetected");
  test.Expect_Free();
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
    EXPECT_FALSE(test.Is_On(timer));
  }
}

TEST(RunPump, A_failure_in_the_processing_ends_there_and_the_pump_goes_on_to_its_end) {
  Pump test(Words({2500}, Long_Pause));
  test.session.settings.Always_Restart_on_Error = "YES";
  test.session.settings.Noise_Sensitivity = -32'768;  // its negative has no place in 16 bits
  test.Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.calls, Calls{"Stop_And_Recover"});
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  test.Expect_Free();
}

TEST(RunPump, A_failure_of_its_own_is_recovered_from_and_the_capture_stays_busy) {
  Pump test(Silence(Bytes(5000)));
  test.session.settings.Always_Restart_on_Error = "YES";
  test.session.sample.Wave_Header_Buffer_Length = 9000;  // more than the store has
  test.Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
  EXPECT_EQ(test.calls, Calls{"Stop_And_Recover"});
  EXPECT_EQ(test.session.flags.Capture_Busy, 1);
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
}

}  // namespace
}  // namespace quillspeech
