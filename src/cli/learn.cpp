#include "cli/learn.hpp"

#include <CLI/CLI.hpp>
#include <limits>
#include <optional>
#include <sstream>
#include <vector>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "cli/backend.hpp"
#include "cli/batch.hpp"
#include "cli/exit_status.hpp"
#include "cli/files.hpp"
#include "cli/option_checks.hpp"
#include "cli/word_record.hpp"
#include "core/results_view.hpp"

namespace quillspeech::cli {

namespace {

constexpr std::size_t Longest_Word = 40;
constexpr std::size_t Longest_Pattern = 100;
constexpr int Largest_Rating = 100;

void Add_Rating(CLI::App& command, const std::string& name, int& rating, const std::string& help) {
  command.add_option(name, rating, help)
      ->check(Whole_Number(0, Largest_Rating), "")
      ->type_name("N");
}

}  // namespace

CLI::App& Add_Learn_Command(CLI::App& app, LearnOptions& options) {
  CLI::App& command = *app.add_subcommand("learn", "Teach a language file how a word sounds");
  Add_Run_Options(command, options.run, LanguageNeed::Required);
  command.add_option("--word", options.word, "The word that is spoken in the sounds")->required();
  Add_Rating(command, "--rating", options.rating,
             "Rating of the word when it is new, 0 to 100; 100 when not given");
  Add_Rating(command, "--pattern-rating", options.pattern_rating,
             "Rating of each new pattern, 0 to 100; 100 when not given");
  command
      .add_option("--record", options.record,
                  "Add to this record; without it, to the record that has the word or a new one")
      ->check(Whole_Number(1, std::numeric_limits<std::int32_t>::max()), "")
      ->type_name("N");
  command.footer(
      "Each sound is run through the recogniser with the options given, and its pattern is added\n"
      "to the record of the word. Use the same options as for recognising.\n\n"
      "Example:\n"
      "  quillspeech learn --language words.SAY --pad 7000 --word hello hello_*.wav\n");
  return command;
}

namespace {

struct Heard : Digest {
  std::string pattern;     // Windows-1252
  std::int32_t words = 0;  // that were found in the sound
};

Heard Hear(const RecognitionRun& run) {
  const Session& session = run.Asked_Session();
  Heard heard;
  heard.pattern = Trimmed(results_view::Voice_Word(session.filter, 1));
  heard.words = session.words.Probable_no_of_words_recognized.Raw();
  return heard;
}

// Why the string of a sound is no pattern; nothing when it is one.
std::optional<std::string> Objection(const std::string& pattern) {
  if (pattern.empty()) return "gave an empty pattern, which is not added";
  if (pattern.size() > Longest_Pattern) {
    return "gave a pattern of " + std::to_string(pattern.size()) +
           " characters, which is not added; a record holds 100";
  }
  if (pattern.find_first_of("*?#[") == std::string::npos) return std::nullopt;
  return "gave \"" + To_Utf8(pattern) +
         "\", which is not added: the engine's letters *, ?, # or [ would be wildcards in a "
         "pattern";
}

// The word in Windows-1252, or nothing when no record can hold it.
std::optional<std::string> Word_For_Record(const std::string& typed, std::ostream& err) {
  auto word = From_Utf8(Trim(typed));
  if (word && !word->empty() && word->size() <= Longest_Word) return word;
  err << "quillspeech: --word: ";
  if (!word) {
    err << "\"" << typed << "\" has characters that Windows-1252 lacks\n";
  } else {
    err << "a word has 1 to 40 characters\n";
  }
  return std::nullopt;
}

// The language file, open for the record of one word and held against others who learn.
class Lesson {
 public:
  Lesson(const LearnOptions& options, const std::string& word) : options_(options), word_(word) {
    file_.Open(store_, options.run.language, datafiles::SayRecord::Record_Bytes);
    found_ = options.record > 0 ? Read_Or_Prepare_Record(file_, options.record)
                                : Find_Or_Prepare_Record(file_, word);
    found_.record.RecordNo(static_cast<std::int32_t>(found_.number));
  }

  // False when the record holds as many words as it can.
  bool Take_Word() {
    return Has_Word(found_.record, word_) || Add_Word(found_.record, word_, options_.rating);
  }

  // A complaint, or nothing.
  std::optional<std::string> Take(const Heard& heard, std::ostream& out) {
    const std::string place = "record " + std::to_string(found_.number);
    const std::string pattern = To_Utf8(heard.pattern);
    if (Has_Pattern(found_.record, heard.pattern)) {
      out << heard.file << ": " << pattern << " is in " << place << " already\n";
      return std::nullopt;
    }
    if (!Add_Pattern(found_.record, heard.pattern, options_.pattern_rating)) {
      return place + " is full with 30 patterns; " + pattern + " is not added";
    }
    ++added_;
    out << heard.file << ": added " << pattern << " to " << (found_.is_new ? "the new " : "")
        << place << " (" << To_Utf8(word_) << ")\n";
    return std::nullopt;
  }

  void Write() {
    if (added_ > 0) file_.Write(found_.number, found_.record.Bytes());
  }

 private:
  const LearnOptions& options_;
  std::string word_;
  backend::DataFileStore store_{backend::DataFileStore::Locking::Held};
  RecordFile file_;
  FoundRecord found_;
  int added_ = 0;
};

// The sounds whose strings can be patterns; false when there were others.
bool Hear_All(const LearnOptions& options, Console& console, std::vector<Heard>& usable) {
  return Run_Batch<Heard>(
      options.run, console,
      [](const RecognitionRun& run) {
        Heard heard = Hear(run);
        if (!run.Complaints().empty()) return heard;
        if (auto objection = Objection(heard.pattern)) {
          heard.complaints.push_back(*objection);
        } else if (heard.words > 1) {
          heard.notes.push_back("has " + std::to_string(heard.words) +
                                " words by its pauses; the pattern is that of all of them");
        }
        return heard;
      },
      [&](Heard& heard) {
        if (!heard.complaints.empty()) return;
        usable.push_back(heard);
      });
}

// What was told as added is told only once it is written.
bool Teach(const LearnOptions& options, const std::string& word, std::vector<Heard>& usable,
           Console& console) {
  Lesson lesson(options, word);
  if (!lesson.Take_Word()) {
    console.err << "quillspeech: " << options.run.language
                << ": the record is full with 100 words\n";
    return false;
  }
  std::ostringstream told;
  bool all_taken = true;
  for (Heard& heard : usable) {
    if (auto complaint = lesson.Take(heard, told)) {
      Complain(Digest{heard.file, {*complaint}, {}}, console.err);
      all_taken = false;
    }
  }
  lesson.Write();
  console.out << told.str() << std::flush;
  return all_taken;
}

// A record that is named must be there, or be the one behind the last. The file is not made here.
bool Is_Record_In_Reach(const LearnOptions& options, std::ostream& err) {
  const std::string& name = options.run.language;
  std::int64_t next = 1;
  if (options.record > 0 && File_Exists(name)) {
    backend::DataFileStore store;
    RecordFile file;
    file.Open(store, name, datafiles::SayRecord::Record_Bytes);
    next = file.Record_Count() + 1;
  }
  if (options.record <= next) return true;
  err << "quillspeech: --record " << options.record << ": the next new record of " << name << " is "
      << next << "\n";
  return false;
}

}  // namespace

int Learn_Word(LearnOptions options, Console& console) {
  const auto word = Word_For_Record(options.word, console.err);
  if (!word) return Exit_Wrong_Usage;
  options.run.patterns_only = true;
  if (!Check_Options(options.run, console.err)) return Exit_Wrong_Usage;
  try {
    if (!Is_Record_In_Reach(options, console.err)) return Exit_Wrong_Usage;
    std::vector<Heard> usable;
    bool all_went_well = Hear_All(options, console, usable);
    if (usable.empty() || console.Is_Interrupted()) return Exit_File_Failed;
    all_went_well = Teach(options, *word, usable, console) && all_went_well;
    return all_went_well ? Exit_Done : Exit_File_Failed;
  } catch (const RunTimeFailure& failure) {
    console.err << "quillspeech: " << options.run.language << ": " << failure.what() << "\n";
    return Exit_File_Failed;
  }
}

}  // namespace quillspeech::cli
