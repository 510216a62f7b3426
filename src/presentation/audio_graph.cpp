#include "presentation/audio_graph.hpp"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillspeech {
namespace {

constexpr double Bytes_A_Grid_Point = 25;
constexpr FormColour Red = 0x000000FF;
constexpr FormColour Yellow = 0x0000FFFF;
constexpr FormColour Black = 0x00000000;

void Add_Word_Boxes(FormDrawing& graph, const WordTables& words) {
  for (std::int64_t word = 1; word <= words.Probable_no_of_words_recognized; ++word) {
    graph.operations.push_back(Drawn_Box({words.Word_Start[word] / Bytes_A_Grid_Point, Graph_Top},
                                         {words.Word_End[word] / Bytes_A_Grid_Point, Graph_Bottom},
                                         word % 2 == 0 ? Yellow : Red));
  }
}

void Add_Sample_Line(FormDrawing& graph, const WordTables& words) {
  const std::int64_t count = words.Decimated_Count;
  if (count < 1) return;
  const std::int16_t* const samples = words.Decimated_Samples.Read_Range(1, count);
  std::vector<DrawingPoint> line;
  line.reserve(static_cast<std::size_t>(count) + 1);
  line.push_back({0, Graph_Top});
  for (std::int64_t point = 1; point <= count; ++point) {
    line.push_back({static_cast<double>(point), static_cast<double>(samples[point - 1])});
  }
  graph.operations.push_back(Drawn_Lines(std::move(line), Black));
}

// A scale needs two edges that differ, also for a sample without a point.
DrawingScale Scale_For(std::int64_t Graph_Point_Count) {
  return {0, Graph_Top, static_cast<double>(std::max<std::int64_t>(Graph_Point_Count, 1)),
          Graph_Bottom};
}

}  // namespace

std::string Audio_Graph_Caption() {
  return "Quillspeech\xAE"
         "Audio Graph Version 1.2.400\xA9"
         "Corvane Studio Works";
}

FormDrawing Empty_Audio_Graph(WordTables& words) {
  words.Graph_Point_Count = words.Decimated_Count;
  return {Scale_For(words.Graph_Point_Count), {}};
}

FormDrawing Audio_Graph_Drawing(WordTables& words) {
  FormDrawing graph = Empty_Audio_Graph(words);
  Add_Word_Boxes(graph, words);
  Add_Sample_Line(graph, words);
  return graph;
}

void Print_On_Graph(const WordTables& words, FormDrawing& graph, std::string_view text) {
  auto& drawn = graph.operations;
  if (!drawn.empty() && drawn.back().kind == DrawingKind::Text) drawn.pop_back();
  const FormFont font{.name = "Small Fonts", .points = 7};
  const double middle = static_cast<double>(words.Graph_Point_Count) / 2;
  drawn.push_back(Drawn_Text({middle, Graph_Top}, std::string(text), Black, font));
}

}  // namespace quillspeech
