#include "presentation/audio_graph.hpp"

#include "tests/presentation/window_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

constexpr FormColour Red = 0x000000FF;
constexpr FormColour Yellow = 0x0000FFFF;
constexpr FormColour Black = 0;

struct AudioGraph : WindowTest {
  FormDrawing Drawn(const std::vector<std::int16_t>& grid,
                    const std::vector<std::pair<int, int>>& words) {
    Put_Grid(session, grid);
    Put_Words(session, words);
    return Audio_Graph_Drawing(session.words);
  }
};

TEST_F(AudioGraph, The_caption_names_the_control_its_version_and_its_maker) {
  EXPECT_EQ(Audio_Graph_Caption(),
            "Quillspeech\xAE"
            "Audio Graph Version 1.2.400\xA9"
            "Corvane Studio Works");
}

TEST_F(AudioGraph, The_scale_counts_grid_points_across_and_centred_samples_upwards) {
  EXPECT_EQ(Drawn({1, 2, 3}, {}).scale, (DrawingScale{0, 128, 3, -128}));
}

TEST_F(AudioGraph, Each_word_is_a_filled_box_in_grid_units_red_and_yellow_in_turn) {
  const auto graph = Drawn({0, 0, 0}, {{25, 60}, {100, 250}, {300, 300}});
  ASSERT_EQ(graph.operations.size(), 4U);
  EXPECT_EQ(graph.operations[0], Drawn_Box({1, 128}, {2.4, -128}, Red));
  EXPECT_EQ(graph.operations[1], Drawn_Box({4, 128}, {10, -128}, Yellow));
  EXPECT_EQ(graph.operations[2], Drawn_Box({12, 128}, {12, -128}, Red));
}

TEST_F(AudioGraph, The_line_falls_from_the_top_left_corner_to_the_first_sample) {
  const auto graph = Drawn({-7, 100, -128}, {});
  ASSERT_EQ(graph.operations.size(), 1U);
  EXPECT_EQ(graph.operations[0], Drawn_Lines({{0, 128}, {1, -7}, {2, 100}, {3, -128}}, Black));
}

TEST_F(AudioGraph, The_line_lies_above_the_words) {
  const auto graph = Drawn({1}, {{0, 25}});
  EXPECT_EQ(graph.operations.back().kind, DrawingKind::Lines);
}

TEST_F(AudioGraph, A_sample_without_words_has_a_line_and_no_box) {
  const auto graph = Drawn({1, 2}, {});
  ASSERT_EQ(graph.operations.size(), 1U);
  EXPECT_EQ(graph.operations[0].points.size(), 3U);
}

TEST_F(AudioGraph, A_sample_without_a_grid_point_is_an_empty_drawing_on_a_scale_that_holds) {
  const auto graph = Drawn({}, {});
  EXPECT_TRUE(graph.operations.empty());
  EXPECT_NE(graph.scale.left, graph.scale.right);
}

TEST_F(AudioGraph, A_text_begins_in_the_middle_of_the_top_in_small_letters) {
  FormDrawing graph = Drawn({1, 2, 3}, {});
  Print_On_Graph(session.words, graph, "Noise Found on 1 0 0");
  ASSERT_EQ(graph.operations.size(), 2U);
  const DrawingOperation& text = graph.operations[1];
  EXPECT_EQ(text.kind, DrawingKind::Text);
  EXPECT_EQ(text.text, "Noise Found on 1 0 0");
  EXPECT_EQ(text.points, (std::vector<DrawingPoint>{{1.5, 128}}));
  EXPECT_EQ(text.font.name, "Small Fonts");
}

TEST_F(AudioGraph, The_number_of_its_points_stays_when_the_grid_is_forgotten) {
  FormDrawing graph = Drawn({1, 2, 3, 4}, {});
  session.words.Decimated_Count = 0;
  Print_On_Graph(session.words, graph, "Noise Found on 1 0 0");
  EXPECT_EQ(session.words.Graph_Point_Count, 4);
  EXPECT_EQ(graph.operations.back().points, (std::vector<DrawingPoint>{{2, 128}}));
}

TEST_F(AudioGraph, A_text_on_a_graph_without_a_point_begins_at_its_left_edge) {
  FormDrawing graph = Drawn({}, {});
  Print_On_Graph(session.words, graph, "Noise Found on 1 0 0");
  EXPECT_EQ(graph.operations.back().points, (std::vector<DrawingPoint>{{0, 128}}));
}

TEST_F(AudioGraph, A_text_takes_the_place_of_the_one_before) {
  FormDrawing graph = Drawn({1, 2, 3}, {});
  Print_On_Graph(session.words, graph, "Noise Found on 1 0 0");
  Print_On_Graph(session.words, graph, "Noise Found on 2 0 0");
  ASSERT_EQ(graph.operations.size(), 2U);
  EXPECT_EQ(graph.operations[1].text, "Noise Found on 2 0 0");
}

TEST_F(AudioGraph, More_words_than_the_tables_hold_are_a_failure) {
  Put_Grid(session, {1, 2});
  session.words.Probable_no_of_words_recognized = 2;
  EXPECT_EQ(Failure_Of([this] { Audio_Graph_Drawing(session.words); }), 9);
}

TEST_F(AudioGraph, More_grid_points_than_the_table_holds_are_a_failure) {
  Put_Grid(session, {1, 2});
  session.words.Decimated_Count = 100;
  EXPECT_EQ(Failure_Of([this] { Audio_Graph_Drawing(session.words); }), 9);
}

}  // namespace
}  // namespace quillspeech::tests
