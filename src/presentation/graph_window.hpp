// The window Graph: the audio graph of the last sample, on the window's own ground.
#pragma once

#include <string_view>

#include "platform/form.hpp"
#include "session/session.hpp"

namespace quillspeech {

class GraphWindow {
 public:
  // Outlives neither the session nor its ports.
  explicit GraphWindow(Session& session);

  Form& Graph() { return graph_; }

  // Shows the window and draws the sample of the session on it; see Audio_Graph_Drawing. After a
  // failure the window is empty.
  void Draw_Audio_Graph();
  // Prints a text on the graph. A window that is not there is made for it, but not shown.
  void Print(std::string_view text);

 private:
  Session& session_;
  Form graph_;
};

// Makes the window and fills in the operations that draw, print and unload. It lives as long as the
// session's operations.
void Connect_Graph_Window(Session& session);

}  // namespace quillspeech
