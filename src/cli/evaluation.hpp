// The answers of a batch beside the words that were spoken.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "session/trace.hpp"

namespace quillspeech::cli {

enum class Outcome { Right, Wrong, No_Answer, Failed };
const char* Outcome_Name(Outcome outcome);  // "right", "wrong", "no answer", "failed"

// A pattern that fits a sound's string and leads to its right or its wrong word.
struct SharedPattern {
  std::int64_t record = 0;
  int protocol = 0;  // number of the pattern in its record
  std::string pattern;
  std::vector<std::string> words;  // of the two, those that the record has
};

struct Answer {  // texts in UTF-8
  std::string file;
  std::string expected;
  std::string answer;  // empty: none
  int percentage = 0;
  std::string pattern;
  Outcome outcome = Outcome::No_Answer;
  std::vector<SharedPattern> shared;              // of a wrong answer
  std::optional<std::vector<SliceTrace>> slices;  // when they are to be listed
};

struct Evaluation {
  std::vector<Answer> answers;

  int Count(Outcome outcome) const;
  // How often which word was taken for which other, expected word first.
  std::map<std::pair<std::string, std::string>, int> Confusions() const;
};

// For each wrong answer, the patterns of the language file that let it happen. Each record is read
// once. Failures as the file's port has them, and 53 when it is not
// there.
void Find_Shared_Patterns(const std::string& language_file, std::vector<Answer>& answers);

std::string Evaluation_Json(const Evaluation& evaluation);
// One line for each answer; then the confusions, the shared patterns and, last, the sums.
std::string Answer_Line(const Answer& answer, bool colour);
std::string Evaluation_Text(const Evaluation& evaluation);

}  // namespace quillspeech::cli
