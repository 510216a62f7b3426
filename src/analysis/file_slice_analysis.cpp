#include "analysis/file_slice_analysis.hpp"

#include <string>

#include "analysis/slice_steps.hpp"
#include "analysis/spectrum.hpp"
#include "recognition/engine_filter.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr std::int64_t Level = 128;
constexpr std::int64_t Lag_Cells = 130;
constexpr std::int64_t Shortest_Walked_Slice_Bytes = 1'500;
constexpr std::int64_t Loud_Distance = 30;
constexpr std::int16_t Noise_Gate = 9;  // fewer loud bytes are noise

void Refuse_Backward_Slice(Session& session) {
  Show_Box(session, "CANNOT PROCESS: CODE : WP,User: Please change your experimental settings",
           "Quillspeech USER ERROR", BoxIcon::Stop);
}

void Show_Noise(Session& session) {
  if (session.settings.Show_Audio_Graph != "YES") return;
  const WordTables& words = session.words;
  const auto number = [](const Checked16& counter) { return std::to_string(counter.Raw()); };
  session.operations.Print_On_Graph(session, "Noise Found on " +
                                                 number(words.Current_Word_no_Processed) + " " +
                                                 number(words.Current_DeepWord_no_Processed) + " " +
                                                 number(words.Current_TooDeepWord_no_Processed));
}

// False when the slice leaves without an analysis. A short slice always passes the gate.
bool Passes_Noise_Gate(Session& session, SliceSpan span) {
  if (span.Length() < Shortest_Walked_Slice_Bytes) return true;
  const auto loud = Count_Loud_Bytes(session.sample, span, Loud_Distance);
  if (!loud) return false;
  if (*loud >= Noise_Gate) return true;
  Show_Noise(session);
  return false;
}

void Count_Peaks(Slice& slice) {
  slice.Peak_Count = Find_Peaks(slice.Magnitude_dB, Level, slice.Peak_dB, slice.Peak_Bin);
}

void Analyse(Session& session, SliceSpan span, SliceNote& note) {
  Clear_Slice_Tables(session);
  if (Is_Stopped(session)) return;
  span.last_byte = End_Within_Sample(session.sample, span.last_byte);
  session.words.Sample_Span = span.Length();
  if (span.Length() < 0) return Refuse_Backward_Slice(session);
  Enter_Slice(session, span, Lag_Cells, Noise_Gate);
  if (!Passes_Noise_Gate(session, span)) return;
  Centre_Slice(session, span);
  Correlate_Slice(session, span.Length(), Level);
  Count_Valleys(session, Level);
  Count_Peaks(session.slice);
  note.Set_Category(session.slice.Engine_Category.Raw());
  if (session.settings.Enable_Speech_Engine == "YES") Run_Engine_Filter(session);
}

}  // namespace

void Analyse_File_Slice(Session& session, Checked32 first_byte, Checked32 last_byte) {
  Run_Trapped(session, [&] {
    SliceNote note(session, first_byte, last_byte);
    Analyse(session, {first_byte, last_byte}, note);
  });
}

}  // namespace quillspeech
