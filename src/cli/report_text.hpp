// A run as a person reads it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/recognition_run.hpp"

namespace quillspeech::cli {

struct RankedWord {
  std::string word;  // UTF-8
  int percentage = 0;
};
// The seven best or fewer, best first.
std::vector<RankedWord> Ranked_Words(const Results& results);

// One line without a line end for each: its place, the word and its percentage, in columns.
std::vector<std::string> Ranked_Lines(const std::vector<RankedWord>& words, bool colour);

// "Title: text", with the answer behind a question; UTF-8.
std::string Box_Line(const MessageBox& box, BoxAnswer answer);

// The pattern of the run in UTF-8, whatever Send_of_no is.
std::string Pattern_Of(const Session& session);

// The file with its pattern, ranked words and message boxes; ends with a line end.
std::string Report_Text(const RecognitionRun& run, bool colour);

// The text between the codes of a terminal, or as it is without colour.
enum class Ink { Plain, Bold, Green, Red, Dim };
std::string Inked(const std::string& text, Ink ink, bool colour);

// Padded with blanks to so many characters of UTF-8.
std::string Padded(std::string text, std::size_t characters);
std::size_t Character_Count(const std::string& utf8);

}  // namespace quillspeech::cli
