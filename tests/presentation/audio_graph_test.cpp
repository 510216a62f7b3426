#include "presentation/audio_graph.hpp"

#include <gtest/gtest.h>

#include "base/run_time_failure.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

// A session that found words, as it stands when the graph is drawn.
void Put_Sample(Session& session, const std::vector<std::int16_t>& grid) {
  session.words.Decimated_Samples.Resize(static_cast<std::int64_t>(grid.size()) + 1);
  for (std::size_t i = 0; i < grid.size(); ++i) {
    session.words.Decimated_Samples.Put(static_cast<std::int64_t>(i) + 1, grid[i]);
  }
  session.words.Decimated_Count = static_cast<std::int64_t>(grid.size());
}

void Put_Words(Session& session, const std::vector<std::pair<int, int>>& bounds) {
  WordTables& words = session.words;
  const auto count = static_cast<std::int64_t>(bounds.size());
  words.Word_Start.Resize(count);
  words.Word_End.Resize(count);
  for (std::int64_t i = 1; i <= count; ++i) {
    words.Word_Start.Put(i, bounds[static_cast<std::size_t>(i - 1)].first);
    words.Word_End.Put(i, bounds[static_cast<std::size_t>(i - 1)].second);
  }
  words.Probable_no_of_words_recognized = count;
}

TEST(AudioGraph, The_caption_names_the_control_its_version_and_its_maker) {
  EXPECT_EQ(Audio_Graph_Caption(),
            "Quillspeech\xAE"
            "Audio Graph Version 1.2.400\xA9"
            "Corvane Studio Works");
}

TEST(AudioGraph, Each_word_is_a_box_in_grid_units_red_and_yellow_in_turn) {
  tests::TestSession test;
  Put_Sample(test.session, {0, 0, 0});
  Put_Words(test.session, {{25, 60}, {100, 250}, {300, 300}});
  AudioGraph graph;
  Draw_Audio_Graph(test.session, graph);
  ASSERT_EQ(graph.boxes.size(), 3U);
  EXPECT_EQ(graph.boxes[0].left, 1.0);
  EXPECT_EQ(graph.boxes[0].right, 2.4);
  EXPECT_EQ(graph.boxes[0].colour, AudioGraph::Colour::Red);
  EXPECT_EQ(graph.boxes[1].left, 4.0);
  EXPECT_EQ(graph.boxes[1].right, 10.0);
  EXPECT_EQ(graph.boxes[1].colour, AudioGraph::Colour::Yellow);
  EXPECT_EQ(graph.boxes[2].colour, AudioGraph::Colour::Red);
}

TEST(AudioGraph, The_line_falls_from_the_top_left_corner_to_the_first_sample) {
  tests::TestSession test;
  Put_Sample(test.session, {-7, 100, -128});
  AudioGraph graph;
  Draw_Audio_Graph(test.session, graph);
  ASSERT_EQ(graph.line.size(), 4U);
  const int expected[4][2] = {{0, 128}, {1, -7}, {2, 100}, {3, -128}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(graph.line[i].x, expected[i][0]);
    EXPECT_EQ(graph.line[i].y, expected[i][1]);
  }
  EXPECT_EQ(graph.Graph_Point_Count, 3);
}

TEST(AudioGraph, A_sample_without_words_has_a_line_and_no_box) {
  tests::TestSession test;
  Put_Sample(test.session, {1, 2});
  AudioGraph graph;
  Draw_Audio_Graph(test.session, graph);
  EXPECT_TRUE(graph.boxes.empty());
  EXPECT_EQ(graph.line.size(), 3U);
}

TEST(AudioGraph, A_run_clears_what_the_last_one_drew_and_printed) {
  tests::TestSession test;
  Put_Sample(test.session, {1, 2});
  Put_Words(test.session, {{25, 50}});
  AudioGraph graph;
  Draw_Audio_Graph(test.session, graph);
  Print_On_Graph(graph, "Noise Found on 1 0 0");
  test.session.words.Probable_no_of_words_recognized = 0;
  Draw_Audio_Graph(test.session, graph);
  EXPECT_TRUE(graph.boxes.empty());
  EXPECT_EQ(graph.line.size(), 3U);
  EXPECT_EQ(graph.printed_text, "");
}

TEST(AudioGraph, A_text_begins_in_the_middle_and_covers_the_one_before) {
  tests::TestSession test;
  Put_Sample(test.session, {1, 2, 3});
  AudioGraph graph;
  Draw_Audio_Graph(test.session, graph);
  Print_On_Graph(graph, "Noise Found on 1 0 0");
  Print_On_Graph(graph, "Noise Found on 2 0 0");
  EXPECT_EQ(graph.text_left, 1.5);
  EXPECT_EQ(graph.printed_text, "Noise Found on 2 0 0");
}

TEST(AudioGraph, More_words_than_the_tables_hold_are_a_failure) {
  tests::TestSession test;
  Put_Sample(test.session, {1, 2});
  test.session.words.Probable_no_of_words_recognized = 2;
  AudioGraph graph;
  try {
    Draw_Audio_Graph(test.session, graph);
    FAIL() << "no failure";
  } catch (const RunTimeFailure& failure) {
    EXPECT_EQ(failure.Number(), 9);
  }
}

}  // namespace
}  // namespace quillspeech
