// Every variable of a session by its name, for those who look into one from outside: the settings,
// the flags, the counters, the tables, the timers' switches and the latches of one control.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "core/control.hpp"

namespace quillspeech {

// A record as a whole: its numbers by their names, in its order.
using VariableFields = std::vector<std::pair<std::string_view, std::int64_t>>;

// Texts are in Windows-1252.
using VariableValue = std::variant<std::int64_t, double, bool, std::string, VariableFields>;

struct SessionVariable {
  std::string_view name;
  bool is_table;  // is read with an index
  // The index counts for a table only; failure 9 when it lies out of its bounds.
  VariableValue (*read)(const Control&, std::int64_t index);
};

std::span<const SessionVariable> Session_Variables();

// Names are compared exactly; null when there is none.
const SessionVariable* Find_Variable(std::string_view name);

}  // namespace quillspeech
