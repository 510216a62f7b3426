// The engine table and the state of the engine filter.
#pragma once

#include <cstdint>
#include <string>

#include "base/bounded_table.hpp"
#include "base/checked.hpp"

namespace quillspeech {

struct Filter {
  BoundedTable<std::string, 100> Engine_Table;  // category to letter group

  CheckedByte Current_Engine_Code;                  // the code that the explode step appends
  Checked16 Previous_Engine_Category;               // "Filter Same"
  BoundedTable<std::string, 1000> Filter_Run_Data;  // letter groups of the run, from 1
  BoundedTable<Checked32, 1000> Filter_Run_Codes;
  Checked32 Filter_Run_Length;
  Checked32 Processings_Delivered;   // slices since the head of a live sample; "Filter All" counts
  Checked16 Engine_Category_Weight;  // slices counted in the current run
  Checked16 Filter_Filled_Slots;     // slots in use; "Filter Same": repeats
  BoundedTable<std::string, 1000> Filter_Slot_Table;  // surviving groups, from 1
  BoundedTable<Checked16, 1000> Filter_Weight_Table;  // their weights

  std::string Voice_Magic_Elements;  // a trace of the stream
  BoundedTable<std::string, 100> Voice_Word_Table;
  BoundedTable<std::string, 100> Voice_Word_Previous_Table;
  Checked32 Voice_Words_Explode_Count;
  std::string Current_Voice_Word;  // never cleared: a word without a group meets the last one's
  BoundedTable<std::string, 100> Voice_Word_Matched_Table;
  Checked32 Voice_Words_Matched_Count;
  BoundedTable<std::uint8_t, 100> Word_Check_Flags;
  Checked32 Words_Checked;  // nothing raises it
};

}  // namespace quillspeech
