#include "analysis/file_analysis.hpp"

#include "analysis/deep_analysis.hpp"
#include "analysis/sample_head.hpp"
#include "analysis/word_slicing.hpp"
#include "recognition/engine_filter.hpp"
#include "recognition/engine_table.hpp"
#include "recognition/ranking.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr std::int64_t Longest_Word_Bytes = 200'000;
constexpr std::int64_t Longest_Flat_Word_Bytes = 10'000;
constexpr std::int64_t Longest_Flat_File_Span = 200'000;

void Clear_Deep_Tables(WordTables& words) {
  words.Deep_Word_Start.Clear();
  words.Deep_Word_End.Clear();
  words.Deep_Word_Length.Clear();
  words.Too_Deep_Word_Start.Clear();
  words.Too_Deep_Word_End.Clear();
  words.Too_Deep_Word_Length.Clear();
}

void Clear_Run(Session& session) {
  Clear_Last_Run(session);
  Clear_Deep_Tables(session.words);
  Reset_Filter_For_File(session.filter, session.results);
}

void Clear_Last_Results(Session& session) {
  if (Clean_Memory_When_Wanted(session)) session.results.Matched_Record_No = 0;
  session.words.Current_Processings_Available = 0;
}

void Process_Word(Session& session, std::int64_t number) {
  WordTables& words = session.words;
  words.Current_Word_no_Processed = number;
  const std::int64_t start = words.Word_Start[number];
  const std::int64_t end = words.Word_End[number];
  Enter_Word(words, number);
  if (end >= session.sample.Samples_Per_Capture) return;
  Reset_Results(session);
  if (end - start > Longest_Flat_Word_Bytes && words.Last_Sample_Index > Longest_Flat_File_Span) {
    Analyse_Deep_Word(session, start, end);
  }
  Analyse_File_Word(session, start, end, Longest_Word_Bytes);
}

void Process(Session& session) {
  if (Is_Stopped(session)) return;
  Load_Engine(session);
  session.flags.Operation_Status = "Starting Processing";
  session.ports.events.Run_Pending_Events();
  session.flags.Analysis_Running = 0;
  session.flags.Capture_Busy = 1;
  Clear_Run(session);
  if (!Prepare_Sample(session)) return;
  Find_Sample_Words(session);
  Clear_Last_Results(session);
  const std::int64_t last = session.words.Probable_no_of_words_recognized;
  for (std::int64_t number = 1; number <= last; ++number) Process_Word(session, number);
  if (session.results.Platinum_Words_Available > 0) Rank_Platinum_Words(session);
}

}  // namespace

void Run_File_Analysis(Session& session) {
  Run_Trapped(session, [&] { Process(session); });
}

}  // namespace quillspeech
