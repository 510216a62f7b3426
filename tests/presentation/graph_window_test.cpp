#include "presentation/graph_window.hpp"

#include "presentation/audio_graph.hpp"
#include "tests/presentation/window_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

struct Graph : WindowTest {
  Graph() {
    Connect_Graph_Window(session);
    Put_Grid(session, {5, -5, 7, 0});
    Put_Words(session, {{0, 50}, {50, 100}});
  }

  std::size_t Operations_Drawn() const { return On_Show("Graph")->Ground().operations.size(); }
};

TEST_F(Graph, Is_shown_without_a_wait_under_its_caption) {
  operations.Draw_Audio_Graph(session);
  ASSERT_NE(On_Show("Graph"), nullptr);
  EXPECT_EQ(On_Show("Graph")->Caption(), Audio_Graph_Caption());
  EXPECT_EQ(views.shown, (std::vector<headless::FormViews::Shown>{{"Graph", Modality::None}}));
}

TEST_F(Graph, Has_the_drawing_of_the_sample_on_its_ground) {
  operations.Draw_Audio_Graph(session);
  EXPECT_EQ(On_Show("Graph")->Ground(), Audio_Graph_Drawing(session.words));
  EXPECT_EQ(Operations_Drawn(), 3U);
}

TEST_F(Graph, Of_a_sample_without_words_has_the_line_alone) {
  Put_Words(session, {});
  operations.Draw_Audio_Graph(session);
  ASSERT_EQ(Operations_Drawn(), 1U);
  EXPECT_EQ(On_Show("Graph")->Ground().operations[0].kind, DrawingKind::Lines);
}

TEST_F(Graph, Is_drawn_anew_by_each_run_with_what_was_printed_gone) {
  operations.Draw_Audio_Graph(session);
  operations.Print_On_Graph(session, "Noise Found on 1 0 0");
  EXPECT_EQ(Operations_Drawn(), 4U);
  Put_Grid(session, {1, 2});
  operations.Draw_Audio_Graph(session);
  EXPECT_EQ(On_Show("Graph")->Ground(), Audio_Graph_Drawing(session.words));
}

TEST_F(Graph, Stays_where_it_lies_when_it_is_drawn_again) {
  operations.Draw_Audio_Graph(session);
  operations.Draw_Audio_Graph(session);
  EXPECT_EQ(views.shown.size(), 1U);
}

TEST_F(Graph, Comes_back_with_the_next_run_after_a_person_has_closed_it) {
  operations.Draw_Audio_Graph(session);
  operations.Print_On_Graph(session, "Noise Found on 1 0 0");
  On_Show("Graph")->Close();
  EXPECT_EQ(On_Show("Graph"), nullptr);
  operations.Draw_Audio_Graph(session);
  ASSERT_NE(On_Show("Graph"), nullptr);
  EXPECT_EQ(On_Show("Graph")->Caption(), Audio_Graph_Caption());
  EXPECT_EQ(Operations_Drawn(), 3U);
}

TEST_F(Graph, Does_not_come_on_show_by_a_text_and_loses_it_with_the_next_run) {
  operations.Print_On_Graph(session, "Noise Found on 1 0 0");
  EXPECT_TRUE(views.shown.empty());
  operations.Draw_Audio_Graph(session);
  EXPECT_EQ(views.shown.size(), 1U);
  EXPECT_EQ(On_Show("Graph")->Ground(), Audio_Graph_Drawing(session.words));
}

TEST_F(Graph, Stays_away_behind_the_end_of_a_session) {
  session.flags.Windows_Stay_Away = true;
  operations.Draw_Audio_Graph(session);
  EXPECT_TRUE(views.shown.empty());
}

TEST_F(Graph, Is_empty_after_a_failure_which_goes_out) {
  operations.Draw_Audio_Graph(session);
  session.words.Probable_no_of_words_recognized = 9;
  EXPECT_EQ(Failure_Of([this] { operations.Draw_Audio_Graph(session); }), 9);
  EXPECT_EQ(Operations_Drawn(), 0U);
  EXPECT_EQ(On_Show("Graph")->Ground().scale, (DrawingScale{0, 128, 4, -128}));
}

TEST_F(Graph, Goes_when_it_is_unloaded_also_when_it_was_never_shown) {
  operations.Unload_Graph(session);
  operations.Draw_Audio_Graph(session);
  operations.Unload_Graph(session);
  EXPECT_EQ(On_Show("Graph"), nullptr);
}

}  // namespace
}  // namespace quillspeech::tests
