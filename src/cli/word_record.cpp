#include "cli/word_record.hpp"

#include <algorithm>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "datafiles/record_scan.hpp"

namespace quillspeech::cli {

using datafiles::SayRecord;

int Word_Count(const SayRecord& record) {
  return std::clamp<int>(record.WordCount(), 0, SayRecord::Most_Words);
}

int Pattern_Count(const SayRecord& record) {
  return std::clamp<int>(record.LikeCount(), 0, SayRecord::Most_Likes);
}

std::string Word(const SayRecord& record, int index) { return Trimmed(record.Words(index)); }

std::string Pattern(const SayRecord& record, int index) {
  return Trimmed(record.LikeProtocols(index));
}

bool Has_Word(const SayRecord& record, std::string_view word) {
  for (int i = 1; i <= Word_Count(record); ++i) {
    if (Trim(record.Words(i)) == word) return true;
  }
  return false;
}

bool Has_Pattern(const SayRecord& record, std::string_view pattern) {
  for (int i = 1; i <= Pattern_Count(record); ++i) {
    if (Trim(record.LikeProtocols(i)) == pattern) return true;
  }
  return false;
}

namespace {

SayRecord Read_Record(RecordFile& file, std::int64_t number) {
  SayRecord record;
  file.Read(number, record.Bytes(), SayRecord::Missing_Byte);
  return record;
}

FoundRecord Prepare_Record(RecordFile& file, std::int64_t count) {
  FoundRecord found{count + 1, true, {}};
  if (count > 0) {
    const SayRecord before = Read_Record(file, count);
    found.record.FileCopyright(before.FileCopyright());
    found.record.FileDescription(before.FileDescription());
  } else {
    found.record.FileCopyright("");
    found.record.FileDescription("");
  }
  found.record.RecordNo(static_cast<std::int32_t>(found.number));
  found.record.WordFont("");
  return found;
}

}  // namespace

FoundRecord Find_Or_Prepare_Record(RecordFile& file, std::string_view word) {
  const std::int64_t count = file.Record_Count();
  RecordScan scan(file);
  SayRecord record;
  for (std::int64_t number = 1; number <= count; ++number) {
    scan.Read_Next(record.Bytes(), SayRecord::Missing_Byte);
    if (Has_Word(record, word)) return {number, false, record};
  }
  return Prepare_Record(file, count);
}

FoundRecord Read_Or_Prepare_Record(RecordFile& file, std::int64_t number) {
  const std::int64_t count = file.Record_Count();
  if (number < 1 || number > count + 1) Fail(Failure::Bad_Record_Number);
  if (number == count + 1) return Prepare_Record(file, count);
  return {number, false, Read_Record(file, number)};
}

bool Add_Word(SayRecord& record, std::string_view word, int rating) {
  const int index = Word_Count(record) + 1;
  if (index > SayRecord::Most_Words) return false;
  record.Words(index, word);
  record.WordRatings(index, static_cast<std::uint8_t>(rating));
  record.WordCount(static_cast<std::int16_t>(index));
  return true;
}

bool Add_Pattern(SayRecord& record, std::string_view pattern, int rating) {
  const int index = Pattern_Count(record) + 1;
  if (index > SayRecord::Most_Likes) return false;
  record.LikeProtocols(index, pattern);
  record.LikeRatings(index, static_cast<std::int16_t>(rating));
  record.LikeCount(static_cast<std::int16_t>(index));
  return true;
}

}  // namespace quillspeech::cli
