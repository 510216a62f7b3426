// Records of language and engine files in one line, and files made of them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datafiles/records.hpp"
#include "platform/headless/data_file.hpp"
#include "session/filter.hpp"

namespace quillspeech::tests {

// `Record().Word("hello", 100).Pattern("fth*s", 100).Differentiator("oa", 1, 3).Font("Arial")`.
// Each call adds an entry and counts it. Everything that is not said is 0.
class Record {
 public:
  // Without a number the record gets that of its place in the file.
  Record& Number(std::int32_t number);
  Record& Word(std::string_view word, int rating = 100);
  Record& Pattern(std::string_view pattern, int rating = 100);
  // Expects the letter group `code` in that slot, with at least that weight.
  Record& Differentiator(std::string_view code, int slot, int weight);
  Record& Font(std::string_view font);

  // For what the calls above do not say.
  datafiles::SayRecord& Fields() { return fields_; }
  const datafiles::SayRecord& Fields() const { return fields_; }

 private:
  datafiles::SayRecord fields_;
};

std::vector<std::uint8_t> Language_File(const std::vector<Record>& records);
void Put_Language_File(headless::DataFileStore& store, const std::string& name,
                       const std::vector<Record>& records);

// Record `number` of the language file as it stands in the store.
datafiles::SayRecord Language_Record(const headless::DataFileStore& store, const std::string& name,
                                     std::int64_t number);

// An engine file of one record with these groups by category; the others are blank.
using Groups = std::vector<std::pair<int, std::string_view>>;
std::vector<std::uint8_t> Engine_File(const Groups& groups);
// Every category with the same letters.
Groups All_Groups(std::string_view letters);
void Put_Engine_File(headless::DataFileStore& store, const std::string& name, const Groups& groups);

// Category 0 stands for the first of the letters, 1 for the second, and so on.
void Set_Engine_Letters(Filter& filter, std::string_view letters);

}  // namespace quillspeech::tests
