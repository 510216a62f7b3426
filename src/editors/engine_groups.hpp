// The ten groups of engine categories in which the Engine Editor presents a table. Their names are
// part of the vocabulary of engine files.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quillspeech {

// Entries of a group count from 1.
struct EngineGroup {
  std::string_view name;
  int first;  // engine element of entry 1
  int entries;
  int prompt_offset;  // the prompt for entry k shows k plus this

  constexpr int Element(int entry) const { return first + entry - 1; }
  constexpr int Last() const { return Element(entries); }
};

inline constexpr auto Engine_Groups = std::to_array<EngineGroup>({
    {"02", 0, 3, 0},
    {"24", 3, 2, 2},
    {"46", 5, 2, 4},
    {"69", 7, 3, 6},
    {"915", 10, 6, 9},
    {"1523", 16, 8, 15},
    {"2330", 24, 7, 23},
    {"3040", 31, 10, 30},
    {"4045", 41, 5, 40},
    {"45Abv", 46, 15, 45},
});

// The menu of a group in the bar, and its entries: "mnuC02" and "mnu02(1)".
inline std::string Menu_Of(const EngineGroup& group) { return "mnuC" + std::string(group.name); }
inline std::string Menu_Of(const EngineGroup& group, int entry) {
  return "mnu" + std::string(group.name) + "(" + std::to_string(entry) + ")";
}

// Runs `procedure(group, entry)` for each of the 61 entries, in the order of the engine elements.
template <class Procedure>
void For_Each_Engine_Entry(Procedure&& procedure) {
  for (const EngineGroup& group : Engine_Groups) {
    for (int entry = 1; entry <= group.entries; ++entry) procedure(group, entry);
  }
}

}  // namespace quillspeech
