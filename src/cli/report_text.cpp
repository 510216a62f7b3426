#include "cli/report_text.hpp"

#include <algorithm>

#include "base/text.hpp"
#include "core/results_view.hpp"

namespace quillspeech::cli {

std::vector<RankedWord> Ranked_Words(const Results& results) {
  std::vector<RankedWord> words;
  if (results.Platinum_Words_Available < 1) return words;
  for (std::int64_t place = 1; place <= 7; ++place) {
    const std::int64_t entry = results.Best_Word_Index[place];
    if (entry == 0) break;
    words.push_back({To_Utf8(results_view::Platinum_Best(results, place)),
                     static_cast<int>(results.Platinum_Score_Table[entry].Raw())});
  }
  return words;
}

std::string Pattern_Of(const Session& session) {
  return To_Utf8(results_view::Voice_Word(session.filter, 1));
}

std::string Inked(const std::string& text, Ink ink, bool colour) {
  if (!colour || text.empty()) return text;
  switch (ink) {
    case Ink::Plain:
      return text;
    case Ink::Bold:
      return "\x1b[1m" + text + "\x1b[0m";
    case Ink::Green:
      return "\x1b[32m" + text + "\x1b[0m";
    case Ink::Red:
      return "\x1b[31m" + text + "\x1b[0m";
    case Ink::Dim:
      return "\x1b[2m" + text + "\x1b[0m";
  }
  return text;
}

std::size_t Character_Count(const std::string& utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string Padded(std::string text, std::size_t characters) {
  const std::size_t count = Character_Count(text);
  if (count < characters) text.append(characters - count, ' ');
  return text;
}

std::vector<std::string> Ranked_Lines(const std::vector<RankedWord>& words, bool colour) {
  std::size_t width = 0;
  for (const RankedWord& word : words) width = std::max(width, Character_Count(word.word));
  std::vector<std::string> lines;
  for (const RankedWord& word : words) {
    const std::size_t place = lines.size() + 1;
    const Ink ink = place == 1 ? Ink::Green : Ink::Plain;
    lines.push_back(std::to_string(place) + "  " + Inked(Padded(word.word, width), ink, colour) +
                    "  " + std::to_string(word.percentage) + " %");
  }
  return lines;
}

std::string Box_Line(const MessageBox& box, BoxAnswer answer) {
  const char* const answered =
      box.buttons == BoxButtons::OK ? "" : (answer == BoxAnswer::Yes ? " [Yes]" : " [No]");
  return To_Utf8(box.title) + ": " + To_Utf8(Trim(box.text)) + answered;
}

namespace {

std::string Line(const std::string& label, const std::string& text, bool colour) {
  return "  " + Inked(Padded(label, 9), Ink::Dim, colour) + text + "\n";
}

std::string Word_Lines(const std::vector<RankedWord>& words, bool colour) {
  if (words.empty()) return Line("words", "(none)", colour);
  std::string lines;
  for (const std::string& line : Ranked_Lines(words, colour)) {
    lines += Line(lines.empty() ? "words" : "", line, colour);
  }
  return lines;
}

}  // namespace

std::string Report_Text(const RecognitionRun& run, bool colour) {
  const Session& session = run.Asked_Session();
  const std::string pattern = Pattern_Of(session);
  std::string text = Inked(run.File(), Ink::Bold, colour) + "\n";
  text += Line("pattern", pattern.empty() ? "(none)" : pattern, colour);
  if (session.settings.Enable_Artificial_Intelligence == "YES") {
    text += Word_Lines(Ranked_Words(session.results), colour);
  }
  for (const auto& [box, answer] : run.Boxes()) {
    text += Line("box", Box_Line(box, answer), colour);
  }
  return text;
}

}  // namespace quillspeech::cli
