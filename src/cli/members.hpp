// The command that prints the control's programming interface.
#pragma once

#include <ostream>

#include "cli/console.hpp"

namespace CLI {
class App;
}

namespace quillspeech::cli {

// Adds the command; when it runs it prints on the console, which must outlive the parsing.
void Add_Members_Command(CLI::App& app, Console& console);

// The 168 members in their order: a table for people, or one JSON object a line with "order",
// "name", "access" ("get", "let", "call"), "id" (of 32 bits, in hex), "type" ("string", "16-bit",
// "32-bit", "Boolean", null for a call) and "help".
void Print_Members(std::ostream& out);
void Print_Members_As_Json(std::ostream& out);

}  // namespace quillspeech::cli
