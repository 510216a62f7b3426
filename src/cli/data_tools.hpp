// The commands dump, build and check.
#pragma once

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/console.hpp"
#include "cli/data_file_json.hpp"

namespace CLI {
class App;
}

namespace quillspeech::cli {

// Adds the three commands. The one that runs stores what the program ends with in `exit_status`,
// writes results and errors on the console. All must outlive the parsing.
void Add_Data_Commands(CLI::App& app, Console& console, int& exit_status);

// The kind that the name's extension and the length suggest: .EGN is an engine file, .SAY a
// language file, or a vocabulary when only the length of a vocabulary record divides the length.
std::optional<DataFileKind> Guess_Kind(std::string_view name, std::size_t length);

// The commands themselves: `as` is a kind's name, or empty for a guess. Each gives an ExitStatus,
// and leaves `out` bad when it cannot be written; the owner of the stream complains of that.
int Dump_Data_File(const std::string& file, const std::string& as, std::ostream& out,
                   std::ostream& err);
int Build_Data_File(const std::string& json_file, const std::string& out_file, std::ostream& err);
int Check_Data_File(const std::string& file, const std::string& as, std::ostream& out,
                    std::ostream& err);

}  // namespace quillspeech::cli
