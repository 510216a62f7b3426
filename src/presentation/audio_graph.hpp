// The audio graph: a plot of the sample with its words marked, for any surface.
//
// The scale runs from 0 to Graph_Point_Count on the way right (one unit is a grid point, 25 bytes)
// and from 128 at the top to -128 at the bottom.
#pragma once

#include <string>
#include <string_view>

#include "platform/form_drawing.hpp"
#include "session/word_tables.hpp"

namespace quillspeech {

inline constexpr double Graph_Top = 128;
inline constexpr double Graph_Bottom = -128;

// The window's caption, in Windows-1252.
std::string Audio_Graph_Caption();

// Sets Graph_Point_Count to the number of grid points, and gives an empty graph on its scale.
FormDrawing Empty_Audio_Graph(WordTables& words);

// The sample on it: a filled box for each word, odd ones red and even ones yellow, and
// above them a black line from the top left corner through every grid point. It is to be asked for
// after the word bounds are known and before the analysis, which forgets the grid points. Failure 9
// when a table is shorter than its count.
FormDrawing Audio_Graph_Drawing(WordTables& words);

// Puts a text at the middle of the top, in place of the one that was printed there before: one over
// the other they could not be read.
void Print_On_Graph(const WordTables& words, FormDrawing& graph, std::string_view text);

}  // namespace quillspeech
