// The windows of a session that listens inside a design environment.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "base/run_time_failure.hpp"
#include "tests/core/live_session_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

struct WatchedRun : LiveRun {
  WatchedRun() {
    host.path = "C:\\tools\\VB6.EXE";
    session.settings.I_want_Status_Animation = "YES";
    session.settings.Show_Audio_Graph = "YES";
  }
  void Hear_Another_Word() {
    using std::chrono::milliseconds;
    Say_At(std::chrono::duration_cast<milliseconds>(events.Now()) + 2s);
    events.Run_For(4s);
  }
  bool Is_On_Show(const std::string& name) const {
    return std::ranges::any_of(views.On_Show(),
                               [&](const Form* form) { return form->Name() == name; });
  }
  std::int64_t Times_Shown(const std::string& name) const {
    return std::ranges::count(views.shown, name, &headless::FormViews::Shown::name);
  }
};

TEST(LiveSessionWindows, Come_up_with_the_first_recording_and_the_first_word) {
  WatchedRun test;
  test.events.At(900ms, [&] {
    EXPECT_TRUE(test.Is_On_Show("StatusBar"));
    EXPECT_FALSE(test.Is_On_Show("Graph"));
  });
  test.Listen();
  EXPECT_TRUE(test.Is_On_Show("StatusBar"));
  EXPECT_TRUE(test.Is_On_Show("Graph"));
  EXPECT_EQ(test.host_program.Times("SpokenWordConvertedToText hello"), 1);
}

TEST(LiveSessionWindows, Go_with_a_control_that_ends_inside_the_analysis_and_stay_away) {
  WatchedRun test;
  bool ended = false;
  test.events.At_Yield = [&] {
    if (ended || !test.Is_On_Show("Graph")) return;
    ended = true;
    test.session.settings.Sample_processing_resolution = 100;  // many slices are left
    test.control->UserControl_Terminate();
  };
  test.Listen();
  EXPECT_TRUE(ended);
  EXPECT_TRUE(test.views.On_Show().empty());
}

// The recorder that is stopped then would show it as busy, for a moment.
TEST(LiveSessionWindows, A_status_window_that_was_put_away_does_not_come_back_for_the_end) {
  WatchedRun test;
  test.Listen();
  for (Form* const form : test.views.On_Show()) {
    if (form->Name() == "StatusBar") form->Click("Image1");
  }
  const auto times = test.Times_Shown("StatusBar");
  test.control->UserControl_Terminate();
  EXPECT_EQ(test.Times_Shown("StatusBar"), times);
}

TEST(LiveSessionWindows, Come_up_again_with_the_next_control) {
  WatchedRun test;
  test.Listen();
  test.control->UserControl_Terminate();
  test.control.reset();
  EXPECT_TRUE(test.views.On_Show().empty());
  test.control = Control::Make(test.session, test.host_program);
  Start_Real_Action(*test.control);
  test.Hear_Another_Word();
  EXPECT_TRUE(test.Is_On_Show("StatusBar"));
  EXPECT_TRUE(test.Is_On_Show("Graph"));
}

TEST(LiveSessionWindows, A_stop_shows_a_new_control_as_busy_although_another_has_ended) {
  WatchedRun test;
  test.control->UserControl_Terminate();
  test.control = Control::Make(test.session, test.host_program);
  Stop_Real_Action(*test.control);
  EXPECT_TRUE(test.Is_On_Show("StatusBar"));
}

// The Language Editor that a person closes after a rest goes on with the next capture.
TEST(LiveSessionWindows, Come_up_again_with_a_capture_that_begins_without_a_start) {
  WatchedRun test;
  test.session.flags.Windows_Stay_Away = true;
  test.events.Enable(FormTimer::Timer5, true);
  test.events.Run_For(1s);
  EXPECT_TRUE(test.Is_On_Show("StatusBar"));
}

TEST(LiveSessionWindows, A_graph_that_a_person_closes_comes_anew_with_the_next_word) {
  WatchedRun test;
  test.Listen();
  for (Form* const form : test.views.On_Show()) {
    if (form->Name() == "Graph") form->Close();
  }
  EXPECT_FALSE(test.Is_On_Show("Graph"));
  test.Hear_Another_Word();
  EXPECT_TRUE(test.Is_On_Show("Graph"));
  EXPECT_EQ(test.Times_Shown("Graph"), 2);
}

// What cannot be drawn ends the sample, by the recovery that the session has chosen.
struct UndrawableGraph : WatchedRun {
  explicit UndrawableGraph(const std::string& restart) {
    session.settings.Always_Restart_on_Error = restart;
    session.trace.Keep_Slices = true;
    views.At_Showing = [](const Form& form, bool is_shown, Modality) {
      if (is_shown && form.Name() == "Graph") Fail(Failure::Out_Of_Memory);
    };
  }
};

// The slices that are left come to the status window before they look at the stop.
TEST(LiveSessionWindows, Stay_away_when_a_slice_that_fails_brings_the_session_to_rest) {
  WatchedRun test;
  test.session.settings.Always_Restart_on_Error = "NO";
  test.session.settings.Sample_processing_resolution = 500;
  int slices = 0;
  test.events.At_Yield = [&] {
    if (test.Is_On_Show("Graph") && ++slices == 2) Fail(Failure::Out_Of_Memory);
  };
  test.Listen();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{7});
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(test.Times_Shown("StatusBar"), 1);
  EXPECT_TRUE(test.views.On_Show().empty());
  test.events.At_Yield = nullptr;
  Restart(*test.control);
  test.Hear_Another_Word();
  EXPECT_TRUE(test.Is_On_Show("StatusBar"));
}

TEST(LiveSessionWindows, A_graph_that_cannot_be_drawn_brings_the_session_to_rest) {
  UndrawableGraph test("NO");
  test.Listen();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{7});
  EXPECT_TRUE(test.session.trace.slices.empty());
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping");
  EXPECT_TRUE(test.views.On_Show().empty());
}

TEST(LiveSessionWindows, A_graph_that_cannot_be_drawn_costs_the_word_when_the_session_goes_on) {
  UndrawableGraph test("YES");
  test.Listen();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{7});
  EXPECT_EQ(test.host_program.Times("SpokenWordConvertedToText hello"), 0);
  test.views.At_Showing = nullptr;
  test.Hear_Another_Word();
  EXPECT_EQ(test.host_program.Times("SpokenWordConvertedToText hello"), 1);
}

}  // namespace
}  // namespace quillspeech
