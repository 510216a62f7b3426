// The three data files as JSON that a person can read, diff and write.
//
//   {
//     "kind": "language",
//     "records": [
//       {
//         "RecordNo": 1,
//         "WordFont": "Arial",
//         "words": [
//           {"word": "hello", "rating": 100}
//         ],
//         "patterns": [
//           {"pattern": "fth*s", "rating": 100}
//         ]
//       }
//     ]
//   }
//
// A text is a string without the blanks that pad it, {"erased": true} when all its bytes are zero,
// or {"bytes": "hex"} when it holds what no person types. A count is the length of its list and
// stands beside it only when it lies outside its array. What lies above a count and is not zero
// stands in a list of its own, with its index: "unused_words". A torn last record is "tail", in
// hex. A sample that is infinite, no number or a negative zero is {"bits": "hex"}, highest first.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillspeech::cli {

enum class DataFileKind { Language, Engine, Vocabulary };

std::string_view Kind_Name(DataFileKind kind);  // "language", "engine", "vocabulary"
std::optional<DataFileKind> Kind_Of_Name(std::string_view name);
int Record_Bytes(DataFileKind kind);

// Every byte string has its JSON, of every kind.
void Data_File_To_Json(DataFileKind kind, std::span<const std::uint8_t> bytes, std::ostream& out);

// JSON that makes no data file. what() names the place and the reason.
class BadJson : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The bytes of the data file. What a record leaves out is blank or 0, its RecordNo its position;
// whatever has no place in a data file throws BadJson.
std::vector<std::uint8_t> Data_File_From_Json(std::string_view json);

// The bytes of a text as Data_File_To_Json spells them, on one line.
std::string Text_As_Json(std::string_view text);

}  // namespace quillspeech::cli
