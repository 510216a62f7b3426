#include "cli/data_tools.hpp"

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <new>

#include "base/text.hpp"
#include "cli/data_file_check.hpp"
#include "cli/exit_status.hpp"
#include "cli/files.hpp"
#include "cli/option_checks.hpp"

namespace quillspeech::cli {
namespace {

std::string_view As_Text(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Runs a command; what stops it goes to `err` with the command's name.
int Run(const char* command, std::ostream& err, const std::function<int()>& steps) {
  try {
    return steps();
  } catch (const std::bad_alloc&) {
    err << "quillspeech " << command << ": out of memory\n";
  } catch (const std::exception& error) {
    err << "quillspeech " << command << ": " << error.what() << '\n';
  }
  return Exit_File_Failed;
}

// The kind named, or else guessed. Nothing when neither gives one; `err` then says what to do.
std::optional<DataFileKind> Kind_Of_File(const std::string& file, std::size_t length,
                                         const std::string& as, std::ostream& err) {
  const auto kind = as.empty() ? Guess_Kind(file, length) : Kind_Of_Name(as);
  if (kind) return kind;
  err << "quillspeech: ";
  if (as.empty()) {
    err << file << ": the name does not tell the kind of data file";
  } else {
    err << as << " is no kind of data file";
  }
  err << "; say --as language, --as engine or --as vocabulary\n";
  return std::nullopt;
}

// Whoever made the stream complains when it cannot be written.
ExitStatus Finish(std::ostream& out, ExitStatus exit_status) {
  out.flush();
  return out ? exit_status : Exit_File_Failed;
}

void Add_As_Option(CLI::App& command, std::string& as) {
  command
      .add_option("--as", as,
                  "The kind; else .EGN is engine, and .SAY language or, by its length, vocabulary")
      ->check(One_Of({"language", "engine", "vocabulary"}), "")
      ->type_name("KIND");
}

// The names that a command was given.
struct Names {
  std::string file;
  std::string out_file;
  std::string as;
};

void Add_Name(CLI::App& command, const char* placeholder, std::string& name, const char* help) {
  command.add_option(placeholder, name, help)->required()->type_name("");
}

void Add_Dump(CLI::App& app, Console& console, int& exit_status) {
  const auto names = std::make_shared<Names>();  // lives as long as the callback
  auto& dump = *app.add_subcommand("dump", "Print a data file as JSON");
  Add_Name(dump, "FILE", names->file, "The data file");
  Add_As_Option(dump, names->as);
  dump.footer("`quillspeech build` makes the same bytes from the JSON again.");
  dump.callback([names, &console, &exit_status] {
    exit_status = Dump_Data_File(names->file, names->as, console.out, console.err);
  });
}

void Add_Build(CLI::App& app, Console& console, int& exit_status) {
  const auto names = std::make_shared<Names>();
  auto& build = *app.add_subcommand("build", "Make a data file from JSON");
  Add_Name(build, "JSON", names->file, "The JSON, as `quillspeech dump` prints it or shorter");
  Add_Name(build, "OUT", names->out_file, "The data file to make or to replace");
  build.footer(R"(A record may leave out what is blank or 0, its RecordNo too:
  {"kind": "language", "records": [{"WordFont": "Arial",
    "words": [{"word": "hello", "rating": 100}],
    "patterns": [{"pattern": "fth*s", "rating": 100}]}]}
OUT changes only when all of the JSON is right.)");
  build.callback([names, &console, &exit_status] {
    exit_status = Build_Data_File(names->file, names->out_file, console.err);
  });
}

void Add_Check(CLI::App& app, Console& console, int& exit_status) {
  const auto names = std::make_shared<Names>();
  auto& check = *app.add_subcommand("check", "Name every damage of a data file");
  Add_Name(check, "FILE", names->file, "The data file");
  Add_As_Option(check, names->as);
  check.footer("Ends with 0 and \"no damage\" when the file is sound, with 1 when it is not.");
  check.callback([names, &console, &exit_status] {
    exit_status = Check_Data_File(names->file, names->as, console.out, console.err);
  });
}

}  // namespace

std::optional<DataFileKind> Guess_Kind(std::string_view name, std::size_t length) {
  const std::string lower = Lower_Case(name);
  if (lower.ends_with(".egn")) return DataFileKind::Engine;
  if (!lower.ends_with(".say")) return std::nullopt;
  const auto divides = [&](DataFileKind kind) {
    return length % static_cast<std::size_t>(Record_Bytes(kind)) == 0;
  };
  const bool is_vocabulary = divides(DataFileKind::Vocabulary) && !divides(DataFileKind::Language);
  return is_vocabulary ? DataFileKind::Vocabulary : DataFileKind::Language;
}

int Dump_Data_File(const std::string& file, const std::string& as, std::ostream& out,
                   std::ostream& err) {
  return Run("dump", err, [&] {
    const auto bytes = Read_Whole_File(file);
    const auto kind = Kind_Of_File(file, bytes.size(), as, err);
    if (!kind) return Exit_Wrong_Usage;
    Data_File_To_Json(*kind, bytes, out);
    return Finish(out, Exit_Done);
  });
}

int Build_Data_File(const std::string& json_file, const std::string& out_file, std::ostream& err) {
  return Run("build", err, [&] {
    if (Is_Same_File(json_file, out_file)) {
      err << "quillspeech build: " << out_file << " is the JSON file itself\n";
      return Exit_Wrong_Usage;
    }
    const auto json = Read_Whole_File(json_file);
    try {
      Write_Whole_File(out_file, Data_File_From_Json(As_Text(json)));
    } catch (const BadJson& error) {
      throw std::runtime_error(json_file + ": " + error.what());
    }
    return Exit_Done;
  });
}

int Check_Data_File(const std::string& file, const std::string& as, std::ostream& out,
                    std::ostream& err) {
  return Run("check", err, [&] {
    const auto bytes = Read_Whole_File(file);
    const auto kind = Kind_Of_File(file, bytes.size(), as, err);
    if (!kind) return Exit_Wrong_Usage;
    bool is_sound = true;
    Find_Damage(*kind, bytes, [&](const Finding& finding) {
      out << (finding.is_damage ? "" : "remark: ") << finding.sentence << '\n';
      is_sound = is_sound && !finding.is_damage;
    });
    if (is_sound) out << "no damage\n";
    return Finish(out, is_sound ? Exit_Done : Exit_File_Failed);
  });
}

void Add_Data_Commands(CLI::App& app, Console& console, int& exit_status) {
  Add_Dump(app, console, exit_status);
  Add_Build(app, console, exit_status);
  Add_Check(app, console, exit_status);
}

}  // namespace quillspeech::cli
