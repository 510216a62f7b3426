// Silence around a sound: a pause is a share of the sample, so a bare word needs some to be found.
#pragma once

#include "session/sample.hpp"

namespace quillspeech {

// Surrounds the sound in the store, of a format that can be played, with silence to `milliseconds`
// of its own byte rate: halves of whole blocks, the odd block behind. A sound that is as long
// already stays. Failure 6 when the
// result is beyond 32 bits, before any memory is taken; the sound stays as it was then.
void Pad_With_Silence(Sample& sample, int milliseconds);

}  // namespace quillspeech
