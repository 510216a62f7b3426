#include "analysis/slice_analysis.hpp"

#include "analysis/slice_steps.hpp"
#include "recognition/engine_filter.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

// No count of loud bytes lies below the gate: a capture's slice is never dropped as noise. Nor can
// the walk that counts them leave early. It ends before the slice does, and by then the slice has
// been cut to end before the bytes that the capture promises. What a walk may still meet is a store
// that is shorter than that.
constexpr std::int16_t Open_Noise_Gate = 0;
constexpr std::int64_t Longest_Unwalked_Slice_Bytes = 2'000;
constexpr std::int64_t Loud_Distance = 25;
constexpr std::int16_t Default_Level = 128;

// False when the session was stopped, perhaps at the yield.
bool Begin_Slice(Session& session) {
  if (session.settings.I_want_Status_Animation == "YES") {
    session.operations.Show_Status_Image(session, 2);
  }
  session.ports.events.Run_Pending_Events();
  session.flags.Operation_Status = "Processing ...";
  session.flags.Analysis_Running = 1;
  return !Is_Stopped(session);
}

std::int64_t Usable_Level(Settings& settings) {
  Checked16& level = settings.Digital_Signal_Processing_Level;
  if (level <= 0) level = Default_Level;
  return level;
}

// False when the slice leaves without an analysis.
bool Take_Slice(Session& session, SliceSpan span, std::int64_t level) {
  Enter_Slice(session, span, level, Open_Noise_Gate);
  if (span.Length() > Longest_Unwalked_Slice_Bytes &&
      !Count_Loud_Bytes(session.sample, span, Loud_Distance)) {
    return false;
  }
  Centre_Slice(session, span);
  return true;
}

void Analyse(Session& session, SliceSpan span, SliceNote& note) {
  if (!Begin_Slice(session)) return;
  const std::int64_t level = Usable_Level(session.settings);
  span.last_byte = End_Within_Sample(session.sample, span.last_byte);
  session.words.Sample_Span = span.Length();
  if (span.Length() < 0) return;
  if (!Take_Slice(session, span, level)) return;
  Correlate_Slice(session, span.Length(), level);
  session.flags.Operation_Status = "Processing ...";
  if (Is_Stopped(session)) return;
  Clear_Slice_Tables(session);
  session.flags.Analysis_Running = 1;
  Count_Valleys(session, level);
  note.Set_Category(session.slice.Engine_Category.Raw());
  session.operations.Stop_Recording(session);
  Run_Engine_Filter(session);
}

}  // namespace

void Analyse_Slice(Session& session, Checked32 first_byte, Checked32 last_byte) {
  Run_Trapped(session, [&] {
    SliceNote note(session, first_byte, last_byte);
    Analyse(session, {first_byte, last_byte}, note);
  });
}

}  // namespace quillspeech
