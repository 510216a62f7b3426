// How every user of a data file opens it.
#pragma once

#include <string>

#include "platform/data_file.hpp"
#include "session/open_data_file.hpp"

namespace quillspeech {

// Opens the file in the one channel for records of `current`'s kind, counts them and reads record 1
// into `current`, which is the one of `data`. In a file that counts no record it gets the number 1,
// so that the first write creates record 1. A failure leaves what the steps before it did.
template <class Record>
void Open_Records(OpenDataFile& data, Record& current, DataFileStore& store,
                  const std::string& name) {
  data.Main_File_Number.Open(store, name, Record::Record_Bytes);
  data.Main_Record_Count = data.Main_File_Number.Record_Count();
  data.Main_File_Number.Read(1, current.Bytes(), Record::Missing_Byte);
  if (data.Main_Record_Count == 0) current.RecordNo(1);
}

}  // namespace quillspeech
