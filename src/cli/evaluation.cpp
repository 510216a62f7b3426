#include "cli/evaluation.hpp"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "cli/backend.hpp"
#include "cli/files.hpp"
#include "cli/report_json.hpp"
#include "cli/report_text.hpp"
#include "cli/word_record.hpp"
#include "datafiles/record_scan.hpp"
#include "recognition/like_match.hpp"

namespace quillspeech::cli {

const char* Outcome_Name(Outcome outcome) {
  switch (outcome) {
    case Outcome::Right:
      return "right";
    case Outcome::Wrong:
      return "wrong";
    case Outcome::No_Answer:
      return "no answer";
    case Outcome::Failed:
      return "failed";
  }
  return "failed";
}

int Evaluation::Count(Outcome outcome) const {
  return static_cast<int>(std::count_if(answers.begin(), answers.end(), [&](const Answer& answer) {
    return answer.outcome == outcome;
  }));
}

std::map<std::pair<std::string, std::string>, int> Evaluation::Confusions() const {
  std::map<std::pair<std::string, std::string>, int> confusions;
  for (const Answer& answer : answers) {
    if (answer.outcome == Outcome::Wrong) ++confusions[{answer.expected, answer.answer}];
  }
  return confusions;
}

namespace {

// A pattern that cannot be read fits nothing.
bool Fits(const std::string& text, const std::string& pattern) {
  try {
    return Like_Match(text, pattern);
  } catch (const RunTimeFailure&) {
    return false;
  }
}

std::vector<std::string> Words_Among(const datafiles::SayRecord& record, const Answer& answer) {
  std::vector<std::string> words;
  for (int i = 1; i <= Word_Count(record); ++i) {
    const std::string word = To_Utf8(Word(record, i));
    if (word == answer.expected || word == answer.answer) words.push_back(word);
  }
  return words;
}

void Add_Shared(const datafiles::SayRecord& record, std::int64_t number, Answer& answer) {
  const auto words = Words_Among(record, answer);
  const auto text = From_Utf8(answer.pattern);
  if (words.empty() || !text) return;
  for (int i = 1; i <= Pattern_Count(record); ++i) {
    const std::string pattern = Pattern(record, i);
    if (Fits(*text, pattern)) answer.shared.push_back({number, i, To_Utf8(pattern), words});
  }
}

}  // namespace

void Find_Shared_Patterns(const std::string& language_file, std::vector<Answer>& answers) {
  std::vector<Answer*> wrong;
  for (Answer& answer : answers) {
    if (answer.outcome == Outcome::Wrong) wrong.push_back(&answer);
  }
  if (wrong.empty()) return;
  if (!File_Exists(language_file)) Fail(Failure::File_Not_Found);
  backend::DataFileStore store;
  RecordFile file;
  file.Open(store, language_file, datafiles::SayRecord::Record_Bytes);
  const std::int64_t count = file.Record_Count();
  RecordScan scan(file);
  datafiles::SayRecord record;
  for (std::int64_t number = 1; number <= count; ++number) {
    scan.Read_Next(record.Bytes(), datafiles::SayRecord::Missing_Byte);
    for (Answer* answer : wrong) Add_Shared(record, number, *answer);
  }
}

namespace {

using Json = nlohmann::ordered_json;

Json Answers_Json(const std::vector<Answer>& answers) {
  Json list = Json::array();
  for (const Answer& answer : answers) {
    Json one = {{"file", answer.file},       {"expected", answer.expected},
                {"answer", answer.answer},   {"percentage", answer.percentage},
                {"pattern", answer.pattern}, {"outcome", Outcome_Name(answer.outcome)}};
    if (answer.slices) one["slices"] = Slices_Json(*answer.slices);
    list.push_back(std::move(one));
  }
  return list;
}

Json Confusions_Json(const Evaluation& evaluation) {
  Json list = Json::array();
  for (const auto& [words, times] : evaluation.Confusions()) {
    list.push_back({{"expected", words.first}, {"answer", words.second}, {"times", times}});
  }
  return list;
}

Json Shared_Json(const std::vector<Answer>& answers) {
  Json list = Json::array();
  for (const Answer& answer : answers) {
    for (const SharedPattern& shared : answer.shared) {
      list.push_back({{"file", answer.file},
                      {"expected", answer.expected},
                      {"answer", answer.answer},
                      {"record", shared.record},
                      {"protocol", shared.protocol},
                      {"pattern", shared.pattern},
                      {"words", shared.words}});
    }
  }
  return list;
}

}  // namespace

std::string Evaluation_Json(const Evaluation& evaluation) {
  const Json json = {{"files", evaluation.answers.size()},
                     {"right", evaluation.Count(Outcome::Right)},
                     {"wrong", evaluation.Count(Outcome::Wrong)},
                     {"no_answer", evaluation.Count(Outcome::No_Answer)},
                     {"failed", evaluation.Count(Outcome::Failed)},
                     {"confusions", Confusions_Json(evaluation)},
                     {"shared_patterns", Shared_Json(evaluation.answers)},
                     {"answers", Answers_Json(evaluation.answers)}};
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Answer_Line(const Answer& answer, bool colour) {
  const Ink ink = answer.outcome == Outcome::Right ? Ink::Green : Ink::Red;
  const bool heard = !answer.answer.empty();
  std::ostringstream line;
  line << Inked(Padded(Outcome_Name(answer.outcome), 9), ink, colour) << "  "
       << Padded(heard ? answer.answer : "-", 12) << "  ";
  if (heard) {
    line << std::setw(3) << answer.percentage << " %";
  } else {
    line << "     ";
  }
  line << "  " << answer.file;
  if (answer.outcome != Outcome::Right) line << " (" << answer.expected << ")";
  if (!answer.pattern.empty()) line << "  " << Inked(answer.pattern, Ink::Dim, colour);
  line << "\n";
  return line.str();
}

namespace {

// The last line is "N of M right", and nothing else.
std::string Sums(const Evaluation& evaluation) {
  std::ostringstream text;
  text << "\n"
       << evaluation.Count(Outcome::Wrong) << " wrong, " << evaluation.Count(Outcome::No_Answer)
       << " without an answer";
  if (const int failed = evaluation.Count(Outcome::Failed)) text << ", " << failed << " failed";
  text << "\n"
       << evaluation.Count(Outcome::Right) << " of " << evaluation.answers.size() << " right\n";
  return text.str();
}

void Print_Confusions(const Evaluation& evaluation, std::ostream& text) {
  const auto confusions = evaluation.Confusions();
  if (confusions.empty()) return;
  const std::string spoken_title = "spoken";
  const std::string taken_title = "taken for";
  std::size_t spoken = spoken_title.size();
  std::size_t taken = taken_title.size();
  for (const auto& [words, times] : confusions) {
    spoken = std::max(spoken, Character_Count(words.first));
    taken = std::max(taken, Character_Count(words.second));
  }
  text << "\n" << Padded(spoken_title, spoken) << "  " << Padded(taken_title, taken) << "  times\n";
  for (const auto& [words, times] : confusions) {
    text << Padded(words.first, spoken) << "  " << Padded(words.second, taken) << "  " << times
         << "\n";
  }
}

void Print_Shared(const Answer& answer, std::ostream& text) {
  text << answer.file << ": " << answer.pattern << "\n";
  if (answer.shared.empty()) text << "  no pattern of either word fits the whole string\n";
  for (const SharedPattern& shared : answer.shared) {
    text << "  record " << shared.record << ", pattern " << shared.protocol << ": "
         << shared.pattern << "  (";
    for (std::size_t i = 0; i < shared.words.size(); ++i) {
      text << (i > 0 ? ", " : "") << shared.words[i];
    }
    text << ")\n";
  }
}

}  // namespace

std::string Evaluation_Text(const Evaluation& evaluation) {
  std::ostringstream text;
  Print_Confusions(evaluation, text);
  if (evaluation.Count(Outcome::Wrong) > 0) text << "\nPatterns that fit the wrong answers:\n";
  for (const Answer& answer : evaluation.answers) {
    if (answer.outcome == Outcome::Wrong) Print_Shared(answer, text);
  }
  text << Sums(evaluation);
  return text.str();
}

}  // namespace quillspeech::cli
