// What the Vocabulary Editor makes of a whole record of a vocabulary file.
#pragma once

#include "datafiles/records.hpp"

namespace quillspeech {

// Gives `to` the name of `from`, its values from 0 to the count, and the count. What lies above
// the count stays, and so does the number. A count above the array is failure 9 and changes
// nothing.
void Copy_Curve(const datafiles::VocRecord& from, datafiles::VocRecord& to);

// A record that stays in its place with no name and no curve: the values from 0 to the count are 0,
// and so is the count. What lies above it keeps its bytes. Failure 9 as above.
void Make_Deleted(datafiles::VocRecord& record);

}  // namespace quillspeech
