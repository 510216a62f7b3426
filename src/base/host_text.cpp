#include "base/host_text.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace quillspeech {

const char* Host_Text(int number) noexcept {
  static constexpr auto Texts = std::to_array<std::pair<int, const char*>>({
      {5, "Invalid procedure call"},
      {6, "Overflow"},
      {7, "Out of memory"},
      {9, "Subscript out of range"},
      {11, "Division by zero"},
      {Host_Type_Mismatch, "Type mismatch"},
      {52, "Bad file name or number"},
      {53, "File not found"},
      {57, "Device I/O error"},
      {61, "Disk full"},
      {62, "Input past end of file"},
      {63, "Bad record number"},
      {70, "Permission denied"},
      {75, "Path/File access error"},
      {76, "Path not found"},
      {93, "Invalid pattern string"},
      {Invalid_Use_Of_Null, "Invalid use of Null"},
      {No_Such_Member, "Object doesn't support this property or method"},
  });
  const auto row = std::ranges::find(Texts, number, &std::pair<int, const char*>::first);
  return row == Texts.end() ? "Application-defined or object-defined error" : row->second;
}

}  // namespace quillspeech
