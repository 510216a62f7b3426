#include "cli/graph_svg.hpp"

#include <gtest/gtest.h>

#include "presentation/audio_graph.hpp"

namespace quillspeech::cli {
namespace {

FormDrawing Two_Words() {
  return {{0, Graph_Top, 1160, Graph_Bottom},  // one unit of the picture each
          {Drawn_Box({100, 128}, {200, -128}, 0x000000FF),
           Drawn_Box({300, 128}, {350, -128}, 0x0000FFFF),
           Drawn_Lines({{0, 128}, {1, 0}, {2, -128}}, 0)}};
}

bool Has(const std::string& svg, const std::string& part) {
  return svg.find(part) != std::string::npos;
}

TEST(GraphSvg, Words_are_filled_from_top_to_bottom) {
  const std::string svg = Graph_Svg(Two_Words(), "a.wav");
  EXPECT_TRUE(Has(svg, R"(<rect x="120" y="56" width="100" height="400" fill="#ff0000"/>)"));
  EXPECT_TRUE(Has(svg, R"(<rect x="320" y="56" width="50" height="400" fill="#ffff00"/>)"));
}

TEST(GraphSvg, Loud_is_up) {
  EXPECT_TRUE(Has(Graph_Svg(Two_Words(), "a.wav"), R"(points="20,56 21,256 22,456")"));
}

TEST(GraphSvg, The_line_is_drawn_over_the_words) {
  const std::string svg = Graph_Svg(Two_Words(), "a.wav");
  EXPECT_GT(svg.find("<polyline"), svg.find("#ffff00"));
}

TEST(GraphSvg, Signs_of_the_markup_are_spelled_in_names) {
  const std::string svg = Graph_Svg(Two_Words(), "a<b>&c\x01.wav");
  EXPECT_TRUE(Has(svg, "a&lt;b&gt;&amp;c.wav"));
}

TEST(GraphSvg, A_name_that_is_no_UTF_8_is_taken_for_Windows_1252) {
  EXPECT_TRUE(Has(Graph_Svg(Two_Words(), "\xFC.wav"), "\xC3\xBC.wav"));
  EXPECT_TRUE(Has(Graph_Svg(Two_Words(), "\xC3\xBC.wav"), ">\xC3\xBC.wav<"));
}

TEST(GraphSvg, The_title_is_the_caption_of_the_window) {
  EXPECT_TRUE(Has(Graph_Svg(Two_Words(), "a.wav"),
                  "<title>Quillspeech\xC2\xAE"
                  "Audio Graph Version 1.2.400\xC2\xA9"
                  "Corvane Studio Works</title>"));
}

TEST(GraphSvg, A_printed_text_stands_in_the_middle_of_the_top) {
  FormDrawing graph = Two_Words();
  WordTables words;
  words.Graph_Point_Count = static_cast<std::int64_t>(graph.scale.right);
  Print_On_Graph(words, graph, "Noise Found on 1 0 0");
  EXPECT_TRUE(Has(Graph_Svg(graph, "a.wav"), R"(<text x="600" y="64.4")"));
  EXPECT_TRUE(Has(Graph_Svg(graph, "a.wav"), ">Noise Found on 1 0 0</text>"));
}

TEST(GraphSvg, A_word_that_ends_before_it_starts_is_still_a_box) {
  FormDrawing graph = Two_Words();
  graph.operations = {Drawn_Box({200, 128}, {100, -128}, 0x000000FF)};
  EXPECT_TRUE(Has(Graph_Svg(graph, "a.wav"), R"(<rect x="120" y="56" width="100")"));
}

TEST(GraphSvg, An_empty_graph_is_a_picture_too) {
  const std::string svg = Graph_Svg(FormDrawing(), "a.wav");
  EXPECT_TRUE(svg.starts_with("<?xml"));
  EXPECT_TRUE(svg.ends_with("</svg>\n"));
  EXPECT_FALSE(Has(svg, "nan"));
  EXPECT_FALSE(Has(svg, "inf"));
}

}  // namespace
}  // namespace quillspeech::cli
