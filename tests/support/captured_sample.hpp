// A finished capture that waits for its analysis.
#pragma once

#include "analysis/captured_sample.hpp"
#include "tests/support/analysis_session.hpp"

namespace quillspeech::tests {

inline constexpr Bytes Pause(2000);

// A started session with a finished capture. The level is 100, so that words measure what the
// builder says.
struct Capture : AnalysisSession {
  explicit Capture(const Sound& sound) {
    session.settings.Digital_Signal_Processing_Level = 100;
    session.settings.Sample_processing_resolution = 0;
    Put_Capture(session, sound);
    session.flags.Session_Started = 1;
    events.Enable(FormTimer::Timer1, true);
    events.Enable(FormTimer::Timer3, true);
  }
  Capture& Run() {
    Process_Captured_Sample(session);
    return *this;
  }
  Capture& Slice_Bytes(int bytes, int overlap = 300) {
    session.settings.Sample_processing_resolution = bytes;
    session.settings.Sample_Overlap_Bytes = overlap;
    return *this;
  }
  Capture& Only(const char* start, const char* middle, const char* end) {
    session.settings.This_speech_sample_process_Start_only = start;
    session.settings.This_speech_sample_process_middle_only = middle;
    session.settings.This_speech_sample_process_end_only = end;
    return *this;
  }
};

}  // namespace quillspeech::tests
