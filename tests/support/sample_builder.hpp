// Sounds that the word scan finds, and the ways a sound gets into a session.
#pragma once

#include <initializer_list>

#include "session/session.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

// A sound whose every grid sample is a hit of both passes at every level: 25 bytes above silence
// and 25 below it, in turn. Let it begin at a multiple of 25.
Sound Buzz(Bytes length, Amplitude amplitude = Amplitude(60));

// Words of these lengths in bytes (multiples of 25), as the scan of a whole sample measures them,
// with a pause (a multiple of 25) before, between and behind them. The sample is one byte longer
// than a multiple of 25; each word starts where its sound does and ends 50 bytes before.
Sound Words(std::initializer_list<std::int64_t> lengths, Bytes pause);

// Puts the sound into the store as the bytes of a file that was read.
void Put_File(Session& session, const Sound& sound);

// Puts the sound into the store as a finished capture: the buffer is longer by the level, and these
// cells were never reached by the recorder.
void Put_Capture(Session& session, const Sound& sound);

}  // namespace quillspeech::tests
