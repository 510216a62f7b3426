#include "recognition/language_matching.hpp"

#include <cstdint>
#include <string>
#include <string_view>

#include "base/rounding.hpp"
#include "base/text.hpp"
#include "datafiles/record_scan.hpp"
#include "datafiles/say_record_texts.hpp"
#include "recognition/like_match.hpp"
#include "recognition/ranking.hpp"
#include "session/failure_trap.hpp"
#include "session/open_records.hpp"

namespace quillspeech {
namespace {

using datafiles::Align;
using datafiles::Codes;
using datafiles::Protocols;
using datafiles::SayRecord;

constexpr int Table_Limit = 1000;  // words of a run
constexpr int Bonus_Score = 20;    // for a slot that is as heavy as a record asks
constexpr int Floor_Score = 5;     // for every match

// Among the rows that name the content of their slot the last one decides.
int Differentiator_Bonus(SayRecord& record, const Filter& filter) {
  int bonus = 0;
  for (int k = 1; k <= record.DifferentiatorCount(); ++k) {
    const int slot = record.SlotNumbers(k);
    if (Align(record, Codes, k) != filter.Filter_Slot_Table[slot]) continue;
    const bool heavy = filter.Filter_Weight_Table[slot] >= record.EngineCodeWeights(k);
    bonus = heavy ? Bonus_Score : 0;
  }
  return bonus;
}

// Enters the record's words, each with its own rating added to the score of the match. False when
// the table is full.
bool Enter_Words(Session& session, std::int64_t match_score) {
  Results& results = session.results;
  const SayRecord& record = session.data.SayRecord;
  for (int k = 1; k <= record.WordCount(); ++k) {
    const std::int64_t entry = ++results.Platinum_Words_Available;
    if (entry > Table_Limit) {
      Show_Box(session, "Overflow! Too many similar words...Please try a better Intelligence on it",
               "Quillspeech");
      return false;
    }
    results.Platinum_Word_Table[entry] = record.Words(k);
    const std::int64_t score = match_score + Rounded_Quotient(record.WordRatings(k), 4);
    results.Platinum_Score_Table[entry] = score;
    results.Platinum_Rank_Table[entry] = score;
  }
  return true;
}

// Tests the current record's patterns; gives whether a word was found.
bool Scan_Record(Session& session, LikeText& text) {
  SayRecord& record = session.data.SayRecord;
  bool found = false;
  for (int j = 1; j <= record.LikeCount(); ++j) {
    if (!text.Fits(Align(record, Protocols, j))) continue;
    const std::int64_t bonus = Differentiator_Bonus(record, session.filter);
    found = found || record.WordCount() > 0;
    if (!Enter_Words(session, bonus + Floor_Score + Rounded_Quotient(record.LikeRatings(j), 2))) {
      continue;
    }
    session.results.Language_Matched = 1;
    session.results.Platinum_Word_Font = record.WordFont();
    session.results.Matched_Record_No = record.RecordNo();
  }
  return found;
}

// Gives whether a word was found. More records than 16 bits count are failure 6. The last record is
// written back after the scan: it is read as it stands now and not ahead, so that what others wrote
// into it meanwhile stays.
bool Scan_Language_File(Session& session, LikeText& text) {
  OpenDataFile& data = session.data;
  const Checked16 last = data.Main_Record_Count.Raw();
  RecordScan scan(data.Main_File_Number);
  bool found = false;
  for (std::int64_t number = 1; number <= last; ++number) {
    if (number < last) {
      scan.Read_Next(data.SayRecord.Bytes(), SayRecord::Missing_Byte);
    } else {
      data.Main_File_Number.Read(number, data.SayRecord.Bytes(), SayRecord::Missing_Byte);
    }
    if (Scan_Record(session, text)) found = true;
  }
  return found;
}

// The record read last goes to the number that it holds itself.
void Close_Language_File(Session& session) {
  OpenDataFile& data = session.data;
  data.Main_File_Number.Write(data.SayRecord.RecordNo(), data.SayRecord.Bytes());
  data.Main_File_Number.Close();
}

void Offer_Language_Editor(Session& session) {
  // The file to add to is named here, not the one that was scanned.
  const std::string question =
      "You have enabled Artificial Intelligence matching. And no match was found in the specified "
      "Lang file : " +
      session.settings.Consider_this_Lang_File_to_Add +
      "  Do you want to add the characters to Quillspeech Language Database ? ";
  const BoxAnswer answer = Show_Box(session, question, "Quillspeech Language Development",
                                    BoxIcon::None, BoxButtons::YesNo);
  if (answer != BoxAnswer::Yes) return;
  Run_Silently_Trapped(session, [&] {
    session.operations.Load_Database(session);
    session.operations.Show_Database(session, !Is_Design_Environment(session));
  });
}

void Report_No_Match(Session& session) {
  session.results.No_Language_Match = True;
  session.results.Matched_Record_No = 0;
  if (session.settings.Notify_if_no_language_match == "YES" &&
      session.settings.Add_To_Language == "NO") {
    Offer_Language_Editor(session);
  }
}

void Scan_And_Report(Session& session) {
  LikeText text(Trim(session.filter.Current_Voice_Word));
  if (session.settings.Consider_this_Lang_File_to_match.empty()) {
    Show_Box(session, "Please specify your language files location", "Quillspeech Info",
             BoxIcon::Information);
    return;
  }
  Open_Records(session.data, session.data.SayRecord, session.ports.data_files,
               session.settings.Consider_this_Lang_File_to_match);
  const bool found = Scan_Language_File(session, text);
  Close_Language_File(session);
  if (!found) {
    Report_No_Match(session);
  } else if (session.results.Platinum_Words_Available > 0) {
    Rank_Platinum_Words(session);
    session.flags.Operation_Status = "IntelligentFinish";
  }
}

void Match(Session& session) {
  session.results.No_Language_Match = False;
  session.ports.events.Run_Pending_Events();
  if (Is_Stopped(session)) return;
  if (session.flags.Language_Editor_Loaded != False) session.operations.Unload_Database(session);
  const bool no_word_yet = session.words.Word_Count_Log[0] <= 0;
  if (no_word_yet && session.flags.File_Run_Active == 1) return;
  Scan_And_Report(session);
}

}  // namespace

void Match_Language(Session& session) {
  Run_Trapped(session, [&] { Match(session); });
}

}  // namespace quillspeech
