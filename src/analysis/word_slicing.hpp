// Cuts a word into slices and chooses which of them are analysed.
#pragma once

#include <cstdint>

#include "base/checked.hpp"
#include "session/session.hpp"

namespace quillspeech {

// Takes the first and the last byte of a slice in the store.
using SliceAnalysis = void (*)(Session&, Checked32 first_byte, Checked32 last_byte);

// Sets No_of_Processings and Middle_Slice_Number for a word of `length` bytes in slices of
// `slice_bytes` (not 0): both rounded half to even, so three slices have their middle at 2, five
// too, and one slice has none. Failure 6 past 16 bits.
void Number_Slices(WordTables& words, std::int64_t length, std::int64_t slice_bytes);

// Analyses slice Current_Vyanjana_no_Processed of the word that begins at `start`, its length being
// what Sample_processing_resolution says now: once for each of the switches Start_only, end_only
// and middle_only that is "YES" and whose slice it is, and once, reaching `overlap` bytes back,
// when all three are "NO".
void Analyse_Numbered_Slice(Session& session, std::int64_t start, std::int64_t overlap,
                            SliceAnalysis analyse);

// Analyses the stretch of a file between these positions at every site that its length opens. The
// sites are not exclusive: as a whole when it has 101 to 2,000 bytes; as a whole when it has more,
// up to `longest`, and no slice length is set; slice by slice when it is longer than one, up to
// `longest`; as a whole when it is no longer than a slice.
void Analyse_File_Word(Session& session, std::int64_t first_byte, std::int64_t last_byte,
                       std::int64_t longest);

}  // namespace quillspeech
