#include "core/results_view.hpp"

#include <algorithm>

#include "base/bounded_table.hpp"
#include "base/text.hpp"

namespace quillspeech::results_view {

namespace {

std::int32_t Zero_Or_More(std::int64_t value) {
  return static_cast<std::int32_t>(std::max<std::int64_t>(value, 0));
}

std::int32_t Time_Length(std::int64_t number, const DynamicTable<std::int32_t>& lengths) {
  return number > 0 ? lengths[number] : 0;
}

// An index of 1 or anything below it means the first word.
std::int64_t Word_Index(std::int64_t send) { return std::max<std::int64_t>(send, 1); }

}  // namespace

std::string Platinum_Best(const Results& results, std::int64_t place) {
  if (results.Platinum_Words_Available < 1) return {};
  return Trimmed(results.Platinum_Best_Table[place]);
}

std::string Platinum_Words(const Results& results, std::int64_t send) {
  if (results.Platinum_Words_Available < 1) return {};
  return results.Platinum_Word_Table[Word_Index(send)];
}

std::int16_t Platinum_Word_Percentage(const Results& results, std::int64_t send) {
  if (results.Platinum_Words_Available < 1) return 0;
  return results.Platinum_Score_Table[Word_Index(send)].Raw();
}

std::string Platinum_Word_Font(const Results& results) {
  const auto font = Trim(results.Platinum_Word_Font);
  return font.empty() ? "MS Sans Serif" : std::string(font);
}

std::string Voice_Word(const Filter& filter, std::int64_t send) {
  if (filter.Voice_Words_Explode_Count < 1) return {};
  Checked_Offset(send, filter.Voice_Word_Table.Count);
  return filter.Voice_Word_Table[1];
}

std::string Voice_Word_Matched(const Filter& filter, std::int64_t send) {
  if (filter.Voice_Words_Explode_Count < 1) return {};
  return filter.Voice_Word_Matched_Table[send];
}

std::int32_t Voice_Words_Explode_Count(const Filter& filter) {
  return Zero_Or_More(filter.Voice_Words_Explode_Count);
}

std::int32_t Voice_Words_Matched_Count(const Filter& filter) {
  return Zero_Or_More(filter.Voice_Words_Matched_Count);
}

std::string Voice_Magic_Elements(const Filter& filter) {
  return Trimmed(filter.Voice_Magic_Elements);
}

std::int16_t Words_I_Check(const Filter& filter, std::int64_t send) {
  if (filter.Words_Checked < 1) return 2;
  return filter.Word_Check_Flags[send];
}

std::int16_t Engine_Category(std::int16_t category) { return std::max<std::int16_t>(category, 0); }

std::string Engine_Category_Code(const Filter& filter, std::int16_t category) {
  return category >= 1 && category <= 100 ? filter.Engine_Table[category] : std::string();
}

std::string Filter_Slot_Data(const Filter& filter, std::int64_t send) {
  return filter.Filter_Filled_Slots >= 1 ? filter.Filter_Slot_Table[send] : std::string();
}

std::int32_t Filter_Slot_Data_Weight(const Filter& filter, std::int64_t send) {
  return filter.Filter_Filled_Slots >= 1 ? filter.Filter_Weight_Table[send].Raw() : 0;
}

std::int32_t Current_Vyanjana_no_Processed(const WordTables& words) {
  return Zero_Or_More(words.Current_Vyanjana_no_Processed);
}

std::int32_t Current_Word_no_Processed(const WordTables& words) {
  return Zero_Or_More(words.Current_Word_no_Processed);
}

std::int32_t Current_DeepWord_no_Processed(const WordTables& words) {
  return Zero_Or_More(words.Current_DeepWord_no_Processed);
}

std::int32_t Current_TooDeepWord_no_Processed(const WordTables& words) {
  return Zero_Or_More(words.Current_TooDeepWord_no_Processed);
}

std::int32_t Current_Word_no_Timelength(const WordTables& words) {
  return Time_Length(words.Current_Word_no_Processed, words.Word_Length);
}

std::int32_t Current_DeepWord_no_Timelength(const WordTables& words) {
  return Time_Length(words.Current_DeepWord_no_Processed, words.Deep_Word_Length);
}

std::int32_t Current_TooDeepWord_no_Timelength(const WordTables& words) {
  return Time_Length(words.Current_TooDeepWord_no_Processed, words.Too_Deep_Word_Length);
}

std::string Operation_Status(const Flags& flags) { return Trimmed(flags.Operation_Status); }

}  // namespace quillspeech::results_view
