#include "cli/host_failure.hpp"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "base/run_time_failure.hpp"
#include "cli/data_file_json.hpp"
#include "cli/files.hpp"

namespace quillspeech::cli {

const char* Host_Text(int number) noexcept {
  static constexpr auto Texts = std::to_array<std::pair<int, const char*>>({
      {5, "Invalid procedure call"},
      {6, "Overflow"},
      {7, "Out of memory"},
      {9, "Subscript out of range"},
      {11, "Division by zero"},
      {13, "Type mismatch"},
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
      {No_Such_Member, "Object doesn't support this property or method"},
  });
  const auto row = std::ranges::find(Texts, number, &std::pair<int, const char*>::first);
  return row == Texts.end() ? "Application-defined or object-defined error" : row->second;
}

nlohmann::ordered_json Current_Failure_Json() {
  const auto told = [](int number, const char* text) {
    return nlohmann::ordered_json{{"number", number}, {"text", text}};
  };
  try {
    throw;
  } catch (const RefusedRequest& refusal) {
    return told(refusal.Number(), refusal.what());
  } catch (const FileError& error) {
    return told(0, error.what());
  } catch (const BadJson& error) {
    return told(0, error.what());
  } catch (...) {
    const int number = Current_Failure_Number();
    return told(number, Host_Text(number));
  }
}

}  // namespace quillspeech::cli
