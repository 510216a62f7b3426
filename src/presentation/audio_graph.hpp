// The audio graph: a plot of the sample with its words marked, as a model for any view.
//
// The scale runs from 0 to Graph_Point_Count on the way right (one unit is a grid point, 25 bytes)
// and from 128 at the top to -128 at the bottom.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.hpp"

namespace quillspeech {

struct AudioGraph {
  enum class Colour { Red, Yellow };
  struct Box {  // from top to bottom, filled
    double left = 0;
    double right = 0;
    Colour colour = Colour::Red;
  };
  struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
  };

  static constexpr int Top = 128;
  static constexpr int Bottom = -128;

  std::int32_t Graph_Point_Count = 0;
  std::vector<Box> boxes;    // one for each word; odd words red, even ones yellow
  std::vector<Point> line;   // from the top left corner through every grid point
  double text_left = 0;      // where a text begins, at the top
  std::string printed_text;  // the last one: all are printed at the same place
};

// The window's caption, in Windows-1252.
std::string Audio_Graph_Caption();

// Draws the sample of the session anew, after its word bounds are known and before its analysis,
// which forgets the grid points. Failure 9 when a table is shorter than its count.
void Draw_Audio_Graph(const Session& session, AudioGraph& graph);

void Print_On_Graph(AudioGraph& graph, std::string_view text);

}  // namespace quillspeech
