#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <utility>

#include "analysis/deep_analysis.hpp"
#include "tests/support/analysis_session.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;

// The two levels below the words of a file, where they are alike.
constexpr std::array Levels{Analyse_Deep_Word, Analyse_Too_Deep_Word};

// A file whose words were found already; their parts are analysed whole.
struct LevelTest : AnalysisSession {
  explicit LevelTest(const Sound& sound) {
    Put_File(session, sound + Silence(Bytes(100)));
    session.settings.Sample_processing_resolution = 0;
  }
  WordTables& words = session.words;
};

// 2,000 bytes of a constant level between pauses.
Sound Step(int height) {
  return Silence(Bytes(2000)) + Level(static_cast<std::uint8_t>(128 + height), Bytes(2000)) +
         Silence(Bytes(6000));
}

TEST(DeepLevels, Of_a_constant_level_only_the_edges_are_hits) {
  for (const auto analyse : Levels) {
    LevelTest test(Step(72));
    analyse(test.session, 0, 10000);
    EXPECT_EQ(test.words.scan.Forward_Hit_Count, 2);
    EXPECT_EQ(test.words.scan.Backward_Hit_Count, 2);
    EXPECT_EQ(test.Slices(), (Bounds{{0, 1975}, {2000, 3975}, {4000, 10000}}));
  }
}

TEST(DeepLevels, A_step_is_a_hit_above_30_forward_and_above_20_backward_up_and_down) {
  struct Case {
    int height;
    int forward;
    int backward;
  };
  for (const Case& step : {Case{20, 0, 0}, {21, 0, 2}, {30, 0, 2}, {31, 2, 2}}) {
    for (const int height : {step.height, -step.height}) {
      for (const auto analyse : Levels) {
        LevelTest test(Step(height));
        analyse(test.session, 0, 10000);
        EXPECT_EQ(test.words.scan.Forward_Hit_Count, step.forward) << height;
        EXPECT_EQ(test.words.scan.Backward_Hit_Count, step.backward) << height;
      }
    }
  }
}

TEST(DeepLevels, Fewer_than_100_hits_release_the_capture) {
  // The last sound has its own change on the way up and a smaller one on the way down.
  const Sound one_backward_hit =
      Silence(Bytes(250)) + Level(128 + 25, Bytes(25)) + Level(128 + 12, Bytes(25));
  const Sound pause = Silence(Bytes(1000));
  const Sound quiet = pause + Buzz(Bytes(25 * 48)) + one_backward_hit + Silence(Bytes(5000));
  const Sound loud = pause + Buzz(Bytes(25 * 49)) + Silence(Bytes(5000));
  for (const auto analyse : Levels) {
    for (const auto& [sound, hits, busy] : {std::tuple{quiet, 99, 0}, {loud, 100, 1}}) {
      LevelTest test(sound);
      test.session.flags.Capture_Busy = 1;
      analyse(test.session, 0, 7000);
      const WordScanTables& scan = test.words.scan;
      EXPECT_EQ(scan.Forward_Hit_Count + scan.Backward_Hit_Count, hits);
      EXPECT_EQ(test.session.flags.Capture_Busy, busy) << hits;
    }
  }
}

TEST(DeepLevels, A_stopped_session_leaves_at_once) {
  for (const auto analyse : Levels) {
    LevelTest test(Buzz(Bytes(5000)));
    test.session.settings.Stop_everything_now = "YES";
    analyse(test.session, 0, 5000);
    EXPECT_EQ(test.words.Sample_Span, 0);
    EXPECT_EQ(test.words.scan.Forward_Hit_Count, 0);
    EXPECT_TRUE(test.Slices().empty());
  }
}

TEST(DeepLevels, An_end_at_the_promised_bytes_is_pulled_back_to_50_before_them) {
  for (const auto analyse : Levels) {
    for (const auto& [last, end] : {std::pair{5099, 5099}, {5100, 5050}, {6000, 5050}}) {
      LevelTest test(Buzz(Bytes(5075)));
      test.session.sample.Samples_Per_Capture = 5100;
      analyse(test.session, 0, last);
      EXPECT_EQ(test.Slices(), (Bounds{{0, end}})) << last;
    }
  }
}

TEST(DeepLevels, Each_draws_its_graph_for_the_developer_who_wants_it) {
  for (const auto analyse : Levels) {
    for (const auto& [wanted, host, times] :
         {std::tuple{"YES", "C:\\vb6.exe", 1}, {"NO", "C:\\vb6.exe", 0}, {"YES", "other", 0}}) {
      LevelTest test(Buzz(Bytes(5000)));
      test.host.path = host;
      test.session.settings.Show_Audio_Graph = wanted;
      analyse(test.session, 0, 5000);
      EXPECT_EQ(test.Times("Draw_Audio_Graph"), times) << wanted << ' ' << host;
    }
  }
}

TEST(DeepLevels, The_graph_is_drawn_without_a_hit_too) {
  for (const auto analyse : Levels) {
    LevelTest test(Silence(Bytes(5000)));
    test.host.path = "C:\\vb6.exe";
    analyse(test.session, 0, 5000);
    EXPECT_EQ(test.words.scan.Forward_Hit_Count + test.words.scan.Backward_Hit_Count, 0);
    EXPECT_EQ(test.Times("Draw_Audio_Graph"), 1);
  }
}

TEST(DeepLevels, A_failure_in_the_too_deep_level_leaves_the_deep_word_to_be_taken_whole) {
  const struct {
    Operations::Procedure at_draw;
    int draw;  // at which it is done
    int failure;
  } cases[] = {{[](Session&) { Fail(Failure::Invalid_Call); }, 2, 5},
               // Leaves the scan of the level below too small a table for its hits.
               {[](Session& session) { session.words.Word_Table_Divisor = 1000; }, 1, 9}};
  for (const auto& c : cases) {
    LevelTest test(Buzz(Bytes(11025)) + Silence(Bytes(5975)) + Buzz(Bytes(1025)) +
                   Silence(Bytes(101975)));
    test.session.settings.Always_Restart_on_Error = "YES";
    test.host.path = "C:\\vb6.exe";
    test.session.operations.Draw_Audio_Graph = [&c, draws = 0](Session& session) mutable {
      if (++draws == c.draw) c.at_draw(session);
    };
    Analyse_Deep_Word(test.session, 0, 120000);
    EXPECT_EQ(test.session.trace.failures, std::vector<int>{c.failure});
    EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
    EXPECT_EQ(test.Slices(), (Bounds{{0, 11000}, {17000, 18000}, {0, 0}}));
  }
}

TEST(DeepLevels, A_deep_word_descends_from_10001_bytes) {
  LevelTest flat(Buzz(Bytes(10025)) + Silence(Bytes(109975)));
  Analyse_Deep_Word(flat.session, 0, 120000);
  EXPECT_EQ(flat.Slices(), (Bounds{{0, 10000}, {0, 0}}));
  LevelTest deeper(Buzz(Bytes(10050)) + Silence(Bytes(109951)));
  Analyse_Deep_Word(deeper.session, 0, 120001);
  EXPECT_EQ(deeper.Slices(), (Bounds{{0, 10001}, {0, 10001}, {0, 0}}));
}

TEST(DeepLevels, A_slice_length_that_holds_a_deep_word_takes_it_whole_above_100000_bytes_too) {
  const Sound sound = Buzz(Bytes(100050)) + Silence(Bytes(19950));
  for (const auto& [slice_bytes, slices] :
       {std::pair{100024, Bounds{{0, 0}}}, {100025, Bounds{{0, 100025}, {0, 0}}}}) {
    LevelTest test(sound);
    test.session.settings.Sample_processing_resolution = slice_bytes;
    Analyse_Deep_Word(test.session, 0, 120000);
    EXPECT_EQ(test.Slices(), slices) << slice_bytes;
  }
}

TEST(DeepLevels, A_part_that_ends_before_it_starts_gets_the_message_of_the_slice) {
  // Only the backward pass finds a gap here, so that part 1 is what the table held before.
  LevelTest test(Silence(Bytes(1000)) + Level(153, Bytes(2000)) + Silence(Bytes(17000)));
  test.words.Deep_Word_Start.Resize(2000);
  test.words.Deep_Word_End.Resize(2000);
  test.words.Deep_Word_Start.Put(1, 500);
  test.words.Deep_Word_End.Put(1, 400);
  Analyse_Deep_Word(test.session, 0, 20000);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.title, "Quillspeech USER ERROR");
  EXPECT_EQ(box.text, "CANNOT PROCESS: CODE : WP,User: Please change your experimental settings");
  EXPECT_EQ(box.icon, BoxIcon::Stop);
  EXPECT_EQ(box.buttons, BoxButtons::OK);
  EXPECT_EQ(test.Slices().back(), (std::pair{0, 0}));  // the run goes on
}

}  // namespace
}  // namespace quillspeech
