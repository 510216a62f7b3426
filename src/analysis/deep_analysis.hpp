// The descent into a long word of a file: a word is cut into deep words, and a long deep word into
// too-deep words. There is no fourth level.
#pragma once

#include <cstdint>

#include "session/session.hpp"

namespace quillspeech {

// Treats the word between these byte positions of the store as a sample of its own, whose bounds go
// by the change between grid samples, and analyses its deep words, entry 0 among them; those above
// 10,000 bytes in a span above 100,000 descend once more. Deep_Word_Start and _End count from
// first_byte. A word without a hit has no deep word. A failure ends in the recovery.
void Analyse_Deep_Word(Session& session, std::int64_t first_byte, std::int64_t last_byte);

// The same for one deep word: the last level, which skips too-deep words above 12,000 bytes.
void Analyse_Too_Deep_Word(Session& session, std::int64_t first_byte, std::int64_t last_byte);

}  // namespace quillspeech
