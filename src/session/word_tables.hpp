// What the word scan finds and what the analysis of words counts.
#pragma once

#include <cstdint>

#include "base/bounded_table.hpp"
#include "base/checked.hpp"
#include "base/dynamic_table.hpp"

namespace quillspeech {

// One scan's marks. Positions are bytes from the start of the scanned stretch (Backward_Hits: from
// its end). Hits and gap indices count from 1, with a 0 at index 0.
struct WordScanTables {
  Checked32 Forward_Hit_Count;
  Checked32 Backward_Hit_Count;
  DynamicTable<std::int32_t> Forward_Hits;
  DynamicTable<std::int32_t> Backward_Hits;
  Checked32 Word_Gap_Threshold;  // bytes
  Checked32 Forward_Word_Count;
  Checked32 Backward_Word_Count;
  DynamicTable<std::int16_t> Forward_Gap_Index;
  DynamicTable<std::int16_t> Backward_Gap_Index;
  DynamicTable<std::int32_t> Forward_Word_Starts;
  DynamicTable<std::int32_t> Backward_Word_Ends;
};

struct WordTables {
  Checked32 Sample_Span;              // last index of the sample; slices write their length here
  Checked32 Last_Sample_Index;        // last index of the sample
  Checked32 Word_Table_Divisor = 10;  // word tables reach to the span divided by it
  DynamicTable<std::int16_t> Centred_Samples;  // byte minus 128; the slices share it
  DynamicTable<std::int16_t> Decimated_Samples;
  DynamicTable<std::int16_t> Reversed_Decimated_Samples;
  Checked32 Decimated_Count;    // one more than the grid samples taken
  Checked32 Graph_Point_Count;  // grid points on the audio graph of the last sample
  WordScanTables scan;

  DynamicTable<std::int32_t> Word_Start;
  DynamicTable<std::int32_t> Word_End;
  DynamicTable<std::int32_t> Word_Length;
  DynamicTable<std::int32_t> Deep_Word_Start;
  DynamicTable<std::int32_t> Deep_Word_End;
  DynamicTable<std::int32_t> Deep_Word_Length;
  DynamicTable<std::int32_t> Too_Deep_Word_Start;
  DynamicTable<std::int32_t> Too_Deep_Word_End;
  DynamicTable<std::int32_t> Too_Deep_Word_Length;

  // One entry a word, at word number minus 1.
  BoundedTable<Checked16, 4999> Word_Count_Log;  // word total of the sample
  BoundedTable<Checked16, 4999> Word_Entry_Number;
  BoundedTable<Checked32, 4999> Word_Entry_Length;

  Checked32 Probable_no_of_words_recognized;
  Checked16 Current_Word_no_Processed;
  Checked16 Current_DeepWord_no_Processed;
  Checked16 Current_TooDeepWord_no_Processed;
  Checked32 Current_Vyanjana_no_Processed;  // slice number within the word
  Checked32 No_of_Processings;              // slices of the word
  Checked32 Middle_Slice_Number;
  Checked32 Current_Processings_Available;
};

}  // namespace quillspeech
