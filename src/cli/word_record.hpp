// Finding and filling the record of a word in a language file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "datafiles/record_file.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::cli {

// Counts are taken as what the arrays can hold, so that a damaged record is read as far as it goes.
int Word_Count(const datafiles::SayRecord& record);
int Pattern_Count(const datafiles::SayRecord& record);
std::string Word(const datafiles::SayRecord& record, int index);     // trimmed, from 1
std::string Pattern(const datafiles::SayRecord& record, int index);  // trimmed, from 1

bool Has_Word(const datafiles::SayRecord& record, std::string_view word);
bool Has_Pattern(const datafiles::SayRecord& record, std::string_view pattern);

struct FoundRecord {
  std::int64_t number = 0;
  bool is_new = false;
  datafiles::SayRecord record;
};

// The first record that has the word, or one behind the last. A new record has no words and no
// patterns, and the copyright and description of the record before it.
FoundRecord Find_Or_Prepare_Record(RecordFile& file, std::string_view word);

// Record `number` as it stands, or a new one when it is the one behind the last. Failure 63 when
// there is no such place.
FoundRecord Read_Or_Prepare_Record(RecordFile& file, std::int64_t number);

// Behind the last of its kind; false, and nothing changed, when the record is full.
bool Add_Word(datafiles::SayRecord& record, std::string_view word, int rating);
bool Add_Pattern(datafiles::SayRecord& record, std::string_view pattern, int rating);

}  // namespace quillspeech::cli
