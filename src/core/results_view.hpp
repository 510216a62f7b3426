// The results of a run as the getters of the property surface give them. Send_of_no is the host's
// index into the tables; one that lies outside its table is failure 9. Only the words and scores
// take a negative one, as any below 2, for 1.
#pragma once

#include <cstdint>
#include <string>

#include "session/filter.hpp"
#include "session/flags.hpp"
#include "session/results.hpp"
#include "session/word_tables.hpp"

namespace quillspeech::results_view {

// Words and scores; all empty or 0 while Platinum_Words_Available is below 1.
std::string Platinum_Best(const Results& results, std::int64_t place);  // 1 to 7
std::string Platinum_Words(const Results& results, std::int64_t send);  // padded; below 2 means 1
std::int16_t Platinum_Word_Percentage(const Results& results, std::int64_t send);
std::string Platinum_Word_Font(const Results& results);  // "MS Sans Serif" when there is none

// Patterns.
std::string Voice_Word(const Filter& filter, std::int64_t send);  // element 1; send is checked only
std::string Voice_Word_Matched(const Filter& filter, std::int64_t send);
std::int32_t Voice_Words_Explode_Count(const Filter& filter);  // never below 0
std::int32_t Voice_Words_Matched_Count(const Filter& filter);
std::string Voice_Magic_Elements(const Filter& filter);
std::int16_t Words_I_Check(const Filter& filter, std::int64_t send);  // 2: no word was checked

// Engine and filter.
std::int16_t Engine_Category(std::int16_t category);  // never below 0
std::string Engine_Category_Code(const Filter& filter, std::int16_t category);
std::string Filter_Slot_Data(const Filter& filter, std::int64_t send);
std::int32_t Filter_Slot_Data_Weight(const Filter& filter, std::int64_t send);

// Words of the sample. Numbers never below 0; a time length is in bytes, 0 before the first word.
std::int32_t Current_Vyanjana_no_Processed(const WordTables& words);
std::int32_t Current_Word_no_Processed(const WordTables& words);
std::int32_t Current_DeepWord_no_Processed(const WordTables& words);
std::int32_t Current_TooDeepWord_no_Processed(const WordTables& words);
std::int32_t Current_Word_no_Timelength(const WordTables& words);
std::int32_t Current_DeepWord_no_Timelength(const WordTables& words);
std::int32_t Current_TooDeepWord_no_Timelength(const WordTables& words);

std::string Operation_Status(const Flags& flags);

}  // namespace quillspeech::results_view
