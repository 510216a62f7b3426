// The seven best of the words that a run entered.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Fills Best_Word_Index and Platinum_Best_Table, best first; among equals the one entered first
// wins, and places without a word hold index 0 and an empty text. A failure (9 when
// Platinum_Words_Available has passed the table) ends in the recovery.
void Rank_Platinum_Words(Session& session);

}  // namespace quillspeech
