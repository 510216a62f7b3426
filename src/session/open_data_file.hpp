// The one data file that is open, its record count, and the current record of each kind.
#pragma once

#include "base/checked.hpp"
#include "datafiles/record_file.hpp"
#include "datafiles/records.hpp"

namespace quillspeech {

struct OpenDataFile {
  RecordFile Main_File_Number;  // the one channel; closing it when nothing is open is harmless
  Checked32 Main_Record_Count;
  datafiles::SayRecord SayRecord;
  datafiles::EgnRecord EgnRecord;
  datafiles::VocRecord VocRecord;
};

}  // namespace quillspeech
