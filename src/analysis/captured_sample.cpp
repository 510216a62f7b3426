#include "analysis/captured_sample.hpp"

#include "analysis/sample_head.hpp"
#include "analysis/slice_analysis.hpp"
#include "analysis/word_slicing.hpp"
#include "base/text.hpp"
#include "recognition/engine_filter.hpp"
#include "recognition/engine_table.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr std::int64_t Longest_Word_Bytes = 45'000;
constexpr std::int64_t Longest_Unechoed_Word_Bytes = 2'000;
constexpr std::int64_t Echo_Margin_Bytes = 200;

// Keeps the capture clock and the pump out while slices yield.
void Hold_Capture(Session& session) {
  session.flags.Analysis_Running = 1;
  session.ports.events.Enable(FormTimer::Timer1, false);
  session.flags.Capture_Busy = 1;
}

void Clear_Last_Results(Session& session) {
  Clean_Memory_When_Wanted(session);
  if (session.settings.Send_words_one_by_one == "YES") {
    session.words.Current_Processings_Available = 0;
  }
}

void Apply_Defaults(Session& session) {
  Settings& settings = session.settings;
  if (settings.Noise_Word_No_CutOff == 0) settings.Noise_Word_No_CutOff = 4;
  for (std::string* only : {&settings.This_speech_sample_process_Start_only,
                            &settings.This_speech_sample_process_middle_only,
                            &settings.This_speech_sample_process_end_only}) {
    if (Trim(*only).empty()) *only = "NO";
  }
  if (settings.Sample_Overlap_Bytes == 0) settings.Sample_Overlap_Bytes = 300;
  if (session.words.Probable_no_of_words_recognized == 0) session.flags.Analysis_Running = 0;
}

struct Word {
  std::int64_t start;
  std::int64_t end;
  std::int64_t Length() const { return end - start; }
};

void Analyse_Word_Slices(Session& session, const Word& word) {
  WordTables& words = session.words;
  Number_Slices(words, word.Length(), session.settings.Sample_processing_resolution);
  const std::int64_t last = words.No_of_Processings;
  for (std::int64_t number = 1; number <= last; ++number) {
    words.Current_Vyanjana_no_Processed = number;
    if (session.flags.Stop_Sample_Flag == 1) return;
    const std::int64_t overlap = number == 1 ? 0 : session.settings.Sample_Overlap_Bytes.Raw();
    Analyse_Numbered_Slice(session, word.start, overlap, Analyse_Slice);
  }
  session.flags.Analysis_Running = 1;
}

// A host may change the slice length at the yield of any slice.
void Analyse_Word(Session& session, const Word& word) {
  const Checked32& slice_bytes = session.settings.Sample_processing_resolution;
  if (word.Length() > 0 && slice_bytes == 0) Analyse_Slice(session, word.start, word.end);
  if (slice_bytes > 0 && word.Length() > slice_bytes) Analyse_Word_Slices(session, word);
  if (word.Length() <= slice_bytes) Analyse_Slice(session, word.start, word.end);
}

void Process_Word(Session& session, std::int64_t number) {
  const Settings& settings = session.settings;
  if (settings.This_Audio_Process == "NO" || session.flags.Stop_Sample_Flag == 1) return;
  session.words.Current_Word_no_Processed = number;
  const Word word{session.words.Word_Start[number], session.words.Word_End[number]};
  Hold_Capture(session);
  Enter_Word(session.words, number);
  if (settings.Noise_Word_No_CutOff <= number) {
    session.flags.Analysis_Running = 0;
    return;
  }
  if (word.end >= session.sample.Samples_Per_Capture || word.Length() > Longest_Word_Bytes) return;
  if (settings.Speech_echo_feature == "YES" && word.Length() > Longest_Unechoed_Word_Bytes) {
    session.operations.Play_Echo(session, word.start, word.end - Echo_Margin_Bytes);
  }
  Analyse_Word(session, word);
}

bool Wants_Language_Editor(const Session& session) {
  return session.settings.Add_To_Language == "YES" &&
         session.words.Probable_no_of_words_recognized > 0 && session.flags.Analysis_Running == 1 &&
         session.flags.Show_Activities == 1 && session.flags.Stop_Sample_Flag == 0;
}

// The editor arms the next capture when it closes.
void Go_To_Language_Editor(Session& session) {
  session.operations.Stop_Recording(session);
  session.operations.Show_Status_Image(session, 1);
  session.ports.events.Enable(FormTimer::Timer5, false);
  session.ports.events.Enable(FormTimer::Timer1, false);
  Run_Silently_Trapped(session, [&] {
    session.operations.Load_Database(session);
    if (Is_Design_Environment(session)) session.operations.Show_Database(session, false);
  });
}

void End_Run(Session& session) {
  const bool found_words = session.words.Probable_no_of_words_recognized > 0;
  session.flags.Capture_Busy = 0;
  session.ports.events.Enable(FormTimer::Timer3, false);
  if (session.settings.Direct_Add_Enabled == "YES" && found_words) {
    session.operations.Add_Engine_String_To_Language(session);
  }
  if (Wants_Language_Editor(session)) return Go_To_Language_Editor(session);
  session.flags.Operation_Status = "Finish";
  if (session.flags.Stop_Sample_Flag == 0 && found_words) {
    session.ports.events.Enable(FormTimer::Timer1, false);
    session.ports.events.Enable(FormTimer::Timer5, true);
  }
}

void Process(Session& session) {
  if (Is_Stopped(session)) return;
  Load_Engine(session);
  session.flags.Operation_Status = "Starting Processing";
  Hold_Capture(session);
  session.ports.events.Enable(FormTimer::Timer3, false);
  Clear_Last_Run(session);
  Reset_Filter_For_Live(session.filter, session.results);
  if (!Prepare_Sample(session)) return;
  if (session.settings.Noise_Sensitivity == 0) session.settings.Noise_Sensitivity = 2;
  Find_Sample_Words(session);
  Clear_Last_Results(session);
  Apply_Defaults(session);
  const std::int64_t last = session.words.Probable_no_of_words_recognized;
  for (std::int64_t number = 1; number <= last; ++number) Process_Word(session, number);
  End_Run(session);
}

}  // namespace

void Process_Captured_Sample(Session& session) {
  Run_Trapped(session, [&] { Process(session); });
}

}  // namespace quillspeech
