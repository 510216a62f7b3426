// How every user of a data file opens it and writes to it.
#pragma once

#include <string>
#include <utility>

#include "platform/data_file.hpp"
#include "session/open_data_file.hpp"

namespace quillspeech {

// Opens the file in the one channel for records of `current`'s kind, counts them and reads record 1
// into `current`, which is the one of `data`. In a file that counts no record it gets the number 1,
// so that the first write creates record 1. A failure leaves all as it was: what was open stays so.
template <class Record>
void Open_Records(OpenDataFile& data, Record& current, DataFileStore& store,
                  const std::string& name) {
  RecordFile file;
  file.Open(store, name, Record::Record_Bytes);
  const Checked32 count = file.Record_Count();
  Record first;
  file.Read(1, first.Bytes(), Record::Missing_Byte);
  if (count == 0) first.RecordNo(1);

  data.Main_File_Number = std::move(file);
  data.Main_Record_Count = count;
  current = first;
}

// Writes the record at the number that it holds. One above those that the file counts raises their
// count to it. Failures as of RecordFile::Write.
template <class Record>
void Write_At_Its_Number(OpenDataFile& data, const Record& record) {
  data.Main_File_Number.Write(record.RecordNo(), record.Bytes());
  if (record.RecordNo() > data.Main_Record_Count) data.Main_Record_Count = record.RecordNo();
}

}  // namespace quillspeech
