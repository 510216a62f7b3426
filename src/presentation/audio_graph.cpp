#include "presentation/audio_graph.hpp"

namespace quillspeech {

std::string Audio_Graph_Caption() {
  return "Quillspeech\xAE"
         "Audio Graph Version 1.2.400\xA9"
         "Corvane Studio Works";
}

namespace {

constexpr double Bytes_A_Grid_Point = 25;

std::vector<AudioGraph::Box> Word_Boxes(const WordTables& words) {
  std::vector<AudioGraph::Box> boxes;
  for (std::int64_t word = 1; word <= words.Probable_no_of_words_recognized; ++word) {
    boxes.push_back({words.Word_Start[word] / Bytes_A_Grid_Point,
                     words.Word_End[word] / Bytes_A_Grid_Point,
                     word % 2 == 0 ? AudioGraph::Colour::Yellow : AudioGraph::Colour::Red});
  }
  return boxes;
}

std::vector<AudioGraph::Point> Sample_Line(const WordTables& words) {
  const std::int64_t count = words.Decimated_Count;
  const std::int16_t* samples = words.Decimated_Samples.Read_Range(1, count);
  std::vector<AudioGraph::Point> line;
  line.reserve(static_cast<std::size_t>(count) + 1);
  line.push_back({0, AudioGraph::Top});
  for (std::int32_t point = 1; point <= count; ++point) {
    line.push_back({point, samples[point - 1]});
  }
  return line;
}

}  // namespace

void Draw_Audio_Graph(const Session& session, AudioGraph& graph) {
  graph = {};
  graph.Graph_Point_Count = session.words.Decimated_Count.Raw();
  graph.text_left = graph.Graph_Point_Count / 2.0;
  graph.boxes = Word_Boxes(session.words);
  graph.line = Sample_Line(session.words);
}

void Print_On_Graph(AudioGraph& graph, std::string_view text) { graph.printed_text = text; }

}  // namespace quillspeech
