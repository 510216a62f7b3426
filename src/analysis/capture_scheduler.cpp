#include "analysis/capture_scheduler.hpp"

#include <chrono>

#include "analysis/captured_sample.hpp"
#include "analysis/sample_head.hpp"
#include "analysis/word_scan.hpp"
#include "audio/live_capture.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {

void Timer1_Timer(Session& session) {
  Checked32& seconds = session.recorder.Capture_Seconds;
  ++seconds;
  const Checked32 elapsed = seconds * 1'000;  // ms
  const bool run_out = elapsed >= session.settings.Speech_sampling_time_in_ms;
  if (session.flags.Analysis_Running != 0 || !run_out) return;
  session.ports.events.Enable(FormTimer::Timer5, true);
  session.ports.events.Enable(FormTimer::Timer1, false);
  seconds = 0;
}

void Timer3_Timer(Session& session) {
  const std::chrono::milliseconds delay(session.settings.Voice_Capture_Delay);
  session.ports.events.Form_Timer(FormTimer::Timer3).Set_Interval(delay);
  if (session.flags.Capture_Busy == 0) Run_Pump(session);
}

void Timer5_Timer(Session& session) { Start_Recording(session); }

// How many is settled at the first.
void Wait_Passes(EventLoop& events, Checked32& count) {
  constexpr EventLoop::Time Least{100};
  for (std::int64_t left = count; left > 0; --left) events.Pass(Least);
}

namespace {

void Begin_Pump(Session& session) {
  if (session.settings.I_want_Status_Animation == "YES") {
    session.operations.Show_Status_Image(session, 1);
  }
  session.flags.Operation_Status = "Alert";
  session.flags.Analysis_Running = 0;
  session.flags.Capture_Busy = 1;
  Clear_Analysis(session);
}

// Whether enough of the buffer as filled so far is loud. The limits are the pump's own: the
// processing scans the sample anew by Noise_Sensitivity.
bool Hears_Something(Session& session) {
  constexpr std::int64_t Limit = 5;
  constexpr std::int64_t Fewest_Hits = 50;
  WordTables& words = session.words;
  Take_Sample_Grid(session.sample, words, words.Sample_Span);
  Find_Hits(words, {ForwardHits::By_Amplitude, Limit, Limit});
  Find_Gaps(words.scan, words.Sample_Span);
  return words.scan.Forward_Hit_Count + words.scan.Backward_Hit_Count >= Fewest_Hits;
}

void Find_Heard_Words(WordTables& words) {
  words.Probable_no_of_words_recognized = Count_Words(words.scan);
  Bound_Words(words.scan, words.Sample_Span, {words.Word_Start, words.Word_End});
}

void Process_Detected_Speech(Session& session) {
  session.flags.Operation_Status = "Speechdetected";
  Wait_Passes(session.ports.events, session.settings.Voice_Processing_Delay);
  session.flags.Capture_Busy = 0;
  session.ports.events.Enable(FormTimer::Timer3, false);
  Process_Captured_Sample(session);
}

void Pump(Session& session) {
  if (Is_Stopped(session)) return;
  Begin_Pump(session);
  if (!Make_Sample_Tables(session) || !Is_Sample_Usable(session)) return;
  if (!Hears_Something(session)) {
    session.flags.Capture_Busy = 0;
    return;
  }
  Find_Heard_Words(session.words);
  if (session.words.Probable_no_of_words_recognized > 0) Process_Detected_Speech(session);
  session.flags.Analysis_Running = 0;
  session.flags.Capture_Busy = 0;
  session.ports.events.Enable(FormTimer::Timer3, false);
}

}  // namespace

void Run_Pump(Session& session) {
  Run_Trapped(session, [&] { Pump(session); });
}

}  // namespace quillspeech
