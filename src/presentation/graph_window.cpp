#include "presentation/graph_window.hpp"

#include <memory>

#include "presentation/audio_graph.hpp"

namespace quillspeech {
namespace {

constexpr FormSize Graph_Size{9600, 4800};
constexpr FormColour White = 0x00FFFFFF;

}  // namespace

GraphWindow::GraphWindow(Session& session) : session_(session), graph_("Graph", "", Graph_Size) {
  graph_.Set_Back_Colour(White);
  graph_.Set_Stands_Aside();
  graph_.On(Form::Itself, FormEvent::Load, [this] {
    graph_.Set_Caption(Audio_Graph_Caption());
    graph_.Set_Ground({});
  });
}

// A window on show stays where a person has put it: to come to the front with every sample would
// take the keyboard away from the program that is being tried.
void GraphWindow::Draw_Audio_Graph() {
  if (session_.flags.Windows_Stay_Away) return;
  FormViews& views = session_.ports.views;
  if (!views.Is_Shown(graph_)) views.Show(graph_, Modality::None);
  graph_.Set_Ground(Empty_Audio_Graph(session_.words));
  graph_.Set_Ground(Audio_Graph_Drawing(session_.words));
}

void GraphWindow::Print(std::string_view text) {
  graph_.Load();
  graph_.Change_Ground([&](FormDrawing& ground) { Print_On_Graph(session_.words, ground, text); });
}

void Connect_Graph_Window(Session& session) {
  const auto window = std::make_shared<GraphWindow>(session);
  Operations& operations = session.operations;
  operations.Draw_Audio_Graph = [window](Session&) { window->Draw_Audio_Graph(); };
  operations.Print_On_Graph = [window](Session&, std::string_view text) { window->Print(text); };
  operations.Unload_Graph = [window](Session&) { window->Graph().Unload(); };
}

}  // namespace quillspeech
