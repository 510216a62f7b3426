// The words found, in order of scan, and the seven best.
#pragma once

#include <cstdint>
#include <string>

#include "base/bounded_table.hpp"
#include "base/checked.hpp"

namespace quillspeech {

struct Results {
  Checked32 Platinum_Words_Available;  // entries in use, from 1; may pass 1,000 by overflow
  BoundedTable<std::string, 1000> Platinum_Word_Table;  // words as stored, 40 characters
  BoundedTable<Checked16, 1000> Platinum_Score_Table;
  BoundedTable<CheckedByte, 1000> Platinum_Rank_Table;  // what the ranking compares
  BoundedTable<std::string, 7> Platinum_Best_Table;     // 1 to 7, trimmed, best first
  BoundedTable<Checked16, 7> Best_Word_Index;           // table index of each place, 0 is none
  std::string Platinum_Word_Font = "MS Sans Serif";     // then of the record that matched last
  Checked32 Matched_Record_No;                          // its number, 0 is none
  Checked16 Language_Matched;                           // 1 once a protocol matched
  Checked16 No_Language_Match;                          // True after a scan without a match
};

// Empties the tables of words, their count and the font. The host's tables of patterns stay.
void Clear_Result_Tables(Results& results);

}  // namespace quillspeech
