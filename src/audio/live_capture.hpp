// Records one sample of a fixed length in a single buffer.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Records Speech_sampling_time_in_ms of 8-bit mono sound into Speech_Sample_Bytes and returns when
// the buffer is full or the recording is stopped; timers run meanwhile. A failure of the device's
// calls is not reported: no data arrives then. A run-time failure shows a box and ends in
// Stop_And_Recover.
void Start_Recording(Session& session);

// Ends the recording at any moment; what was recorded stays. Harmless when nothing records.
void Stop_Recording(Session& session);

// The same for a second recorder, which nothing ever opens.
void Close_Recorder(Session& session);

// Speech_sampling_time_in_ms times Set_Recording_Frequency divided by 1,000, rounded. Failure 6
// when the product does not fit 32 bits.
Checked32 Promised_Samples(const Settings& settings);

}  // namespace quillspeech
