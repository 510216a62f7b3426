#include "recognition/engine_filter.hpp"

#include <cstdint>
#include <string>

#include "base/text.hpp"
#include "recognition/language_matching.hpp"
#include "recognition/like_match.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr int Slot_Limit = 1000;  // the slot count that brings the message

bool Is_Last_Slice(const Session& session) {
  return session.filter.Processings_Delivered == session.words.No_of_Processings;
}

void Match_Language_When(Session& session, bool last) {
  if (session.settings.Enable_Artificial_Intelligence == "YES" && last) Match_Language(session);
}

std::string Group_Of_Current_Code(const Filter& filter) {
  return Trimmed(filter.Engine_Table[filter.Current_Engine_Code]);
}

void Trace(Filter& filter, std::int64_t number) {
  filter.Voice_Magic_Elements += '_' + std::to_string(number);
}

// Counts Current_Voice_Word for each wanted pattern that it fits, and matches it on the last slice.
void Scan_Wanted_Words(Session& session) {
  Filter& filter = session.filter;
  const std::int64_t last = session.settings.Words_to_Scan;
  for (std::int64_t j = session.settings.Words_to_Scan_Start; j <= last; ++j) {
    if (filter.Word_Check_Flags[j] == 1) continue;
    const std::string word = Trimmed(filter.Current_Voice_Word);
    if (!Like_Match(word, session.settings.Words_I_Want[j])) continue;
    ++filter.Voice_Words_Matched_Count;
    filter.Voice_Word_Matched_Table[filter.Voice_Words_Matched_Count] = word;
    session.results.Language_Matched = 0;
    Match_Language_When(session, Is_Last_Slice(session));
    filter.Word_Check_Flags[j] = session.results.Language_Matched == 1 ? 1 : 0;
    // Every text fits "*", so an entry is never barred in the end.
    if (Like_Match(session.settings.Words_I_Want[j], "*")) filter.Word_Check_Flags[j] = 0;
  }
}

// Appends the group of the current code to every string so far: in practice to the one.
void Explode(Session& session) {
  Filter& filter = session.filter;
  const std::int64_t strings = filter.Voice_Words_Explode_Count;
  const std::int64_t candidates = strings == 0 ? 1 : strings;
  for (std::int64_t i = 1; i <= strings; ++i) {
    filter.Voice_Word_Previous_Table[i] = filter.Voice_Word_Table[i];
  }
  filter.Voice_Words_Explode_Count = 0;
  filter.Voice_Words_Matched_Count = 0;
  for (std::int64_t a = 1; a <= candidates; ++a) {
    filter.Current_Voice_Word =
        Trimmed(filter.Voice_Word_Previous_Table[a]) + Group_Of_Current_Code(filter);
    ++filter.Voice_Words_Explode_Count;
    filter.Voice_Word_Table[filter.Voice_Words_Explode_Count] = Trimmed(filter.Current_Voice_Word);
    const std::string& scanning = session.settings.Explode_out_all_Engine;
    if (scanning == "YES" || scanning == "NO") Scan_Wanted_Words(session);
  }
}

void Pass_All(Session& session) {
  Filter& filter = session.filter;
  filter.Current_Engine_Code = session.slice.Engine_Category.Raw();
  Trace(filter, filter.Current_Engine_Code);
  Explode(session);
}

void Filter_Same(Session& session) {
  Filter& filter = session.filter;
  const Checked16 category = session.slice.Engine_Category;
  filter.Current_Engine_Code = category.Raw();
  if (category == filter.Previous_Engine_Category) {
    ++filter.Filter_Filled_Slots;
    return;
  }
  filter.Previous_Engine_Category = category;
  filter.Voice_Magic_Elements += '(' + std::to_string(filter.Filter_Filled_Slots) + ')';
  filter.Filter_Filled_Slots = 0;
  Trace(filter, category);
  Explode(session);
}

// Takes the slice into the current run; gives the run's length.
std::int64_t Lengthen_Run(Session& session) {
  Filter& filter = session.filter;
  filter.Current_Engine_Code = session.slice.Engine_Category.Raw();
  ++filter.Filter_Run_Length;
  ++filter.Processings_Delivered;
  const std::int64_t length = filter.Filter_Run_Length;
  filter.Filter_Run_Data[length] = Group_Of_Current_Code(filter);
  filter.Filter_Run_Codes[length] = filter.Current_Engine_Code.Raw();
  if (length == 1) filter.Filter_Run_Data[0] = filter.Filter_Run_Data[1];  // equals itself
  return length;
}

// The run continues the slot before the new one, which is given back.
void Merge_Run(Session& session, bool last) {
  Filter& filter = session.filter;
  ++filter.Engine_Category_Weight;
  filter.Filter_Weight_Table[filter.Filter_Filled_Slots - 1] += filter.Engine_Category_Weight;
  --filter.Filter_Filled_Slots;
  if (!last) return;
  Trace(filter, filter.Engine_Category_Weight);
  filter.Engine_Category_Weight = 0;
  filter.Filter_Run_Length = 0;
  Match_Language_When(session, last);
}

// The run fills the new slot. The slice that ended it is dropped with it, so the code goes back to
// the slice before.
void Fill_Slot(Filter& filter, std::int64_t length) {
  const std::int64_t kept = length > 1 ? length - 1 : 1;
  filter.Current_Engine_Code = filter.Filter_Run_Codes[kept].Raw();
  const std::int64_t slot = filter.Filter_Filled_Slots;
  filter.Filter_Slot_Table[slot] = Group_Of_Current_Code(filter);
  filter.Filter_Weight_Table[slot] = filter.Engine_Category_Weight;
  Trace(filter, filter.Engine_Category_Weight);
  filter.Engine_Category_Weight = 0;
  filter.Filter_Run_Length = 0;
}

// A run that lasted long enough ended.
void Keep_Run(Session& session, std::int64_t length, bool last) {
  Filter& filter = session.filter;
  ++filter.Filter_Filled_Slots;
  if (filter.Filter_Filled_Slots >= Slot_Limit) {  // and stays there: the message comes again
    Show_Box(session, "Please use  a  higher 'Category Pass Threshold'",
             "Quillspeech Engine Filter");
    Match_Language_When(session, last);
    return;
  }
  const std::string& slot_before = filter.Filter_Slot_Table[filter.Filter_Filled_Slots - 1];
  if (slot_before == filter.Filter_Run_Data[length - 1]) {
    Merge_Run(session, last);
    return;
  }
  Fill_Slot(filter, length);
  Explode(session);
}

void Filter_All(Session& session) {
  Filter& filter = session.filter;
  const std::int64_t length = Lengthen_Run(session);
  const bool same = filter.Filter_Run_Data[length - 1] == filter.Filter_Run_Data[length];
  const bool last = Is_Last_Slice(session);
  if (same && !last) {
    ++filter.Engine_Category_Weight;
  } else if (filter.Engine_Category_Weight < session.settings.Filter_Pass_Value) {
    Match_Language_When(session, last);  // too light; its weight stays for the next stretch
  } else {
    Keep_Run(session, length, last);
  }
}

void Filter_Slice(Session& session) {
  if (Is_Stopped(session)) return;
  session.flags.Operation_Status = "Processing...";
  const std::string& mode = session.settings.Keep_Engine_Frequency_Input_Flow;
  if (mode == "Pass All") {
    Pass_All(session);
  } else if (mode == "Filter Same") {
    Filter_Same(session);
  } else {
    Filter_All(session);
  }
}

}  // namespace

void Run_Engine_Filter(Session& session) {
  Run_Trapped(session, [&] { Filter_Slice(session); });
}

void Reset_Filter_For_File(Filter& filter, Results& results) {
  filter.Voice_Words_Explode_Count = 0;
  filter.Voice_Words_Matched_Count = 0;
  filter.Previous_Engine_Category = 0;
  filter.Filter_Run_Length = 0;
  filter.Engine_Category_Weight = 0;
  filter.Voice_Word_Table.Fill({});
  filter.Voice_Word_Previous_Table.Fill({});
  filter.Voice_Word_Matched_Table.Fill({});
  filter.Word_Check_Flags.Fill(0);
  filter.Words_Checked = 0;
  filter.Filter_Run_Data.Fill({});
  filter.Filter_Run_Codes.Fill(0);
  results.Language_Matched = 0;
}

void Reset_Filter_For_Live(Filter& filter, Results& results) {
  Reset_Filter_For_File(filter, results);
  filter.Processings_Delivered = 0;
  filter.Filter_Filled_Slots = 0;
}

}  // namespace quillspeech
