// How every user of a data file opens it, reads and writes.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/data_file.hpp"
#include "session/open_data_file.hpp"

namespace quillspeech {

// A file of such records that is not yet in the channel, and what its user needs first.
template <class Record>
struct OpenedRecords {
  RecordFile file;
  Checked32 count;
  Record first;
};

// Opens the file, counts its records and reads record 1. In a file that counts no record it gets
// the number 1, so that the first write creates record 1.
template <class Record>
OpenedRecords<Record> Opened_Records(DataFileStore& store, const std::string& name) {
  OpenedRecords<Record> opened;
  opened.file.Open(store, name, Record::Record_Bytes);
  opened.count = opened.file.Record_Count();
  opened.file.Read(1, opened.first.Bytes(), Record::Missing_Byte);
  if (opened.count == 0) opened.first.RecordNo(1);
  return opened;
}

// Puts it into the one channel, whose old file is closed, and record 1 into `current`, which is the
// one of `data`.
template <class Record>
void Use_Records(OpenDataFile& data, Record& current, OpenedRecords<Record> opened) {
  data.Main_File_Number = std::move(opened.file);
  data.Main_Record_Count = opened.count;
  current = opened.first;
}

// Both in one. A failure leaves all as it was: what was open stays so.
template <class Record>
void Open_Records(OpenDataFile& data, Record& current, DataFileStore& store,
                  const std::string& name) {
  Use_Records(data, current, Opened_Records<Record>(store, name));
}

// The record of that number. In a file that counts no record every record is record 1. Failures as
// of RecordFile::Read.
template <class Record>
Record Record_At(OpenDataFile& data, std::int64_t number) {
  Record record;
  data.Main_File_Number.Read(number, record.Bytes(), Record::Missing_Byte);
  if (data.Main_Record_Count == 0) record.RecordNo(1);
  return record;
}

// Writes the record at the number that it holds. One above those that the file counts raises their
// count to it. Failures as of RecordFile::Write.
template <class Record>
void Write_At_Its_Number(OpenDataFile& data, const Record& record) {
  data.Main_File_Number.Write(record.RecordNo(), record.Bytes());
  if (record.RecordNo() > data.Main_Record_Count) data.Main_Record_Count = record.RecordNo();
}

}  // namespace quillspeech
