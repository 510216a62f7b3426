// What the Language Editor makes of a whole record of a language file. Erased fields hold zeros.
#pragma once

#include <cstdint>

#include "datafiles/records.hpp"

namespace quillspeech {

// A new record of that number: nothing counted, every list erased with its numbers. It inherits
// FileCopyright and FileDescription.
void Make_New(datafiles::SayRecord& record, std::int32_t number);

// A record that stays in its place with nothing counted. The ratings of words and patterns keep
// their bytes.
void Make_Deleted(datafiles::SayRecord& record);

// Gives `to` the entries that `from` counts, with the counts, the font and the divisions. What
// lies above the counts stays, and so do the number and the texts of the file. A count above its
// array is failure 9, and `to` stays as it was.
void Copy_Contents(const datafiles::SayRecord& from, datafiles::SayRecord& to);

}  // namespace quillspeech
