#include "cli/option_checks.hpp"

#include <algorithm>
#include <charconv>
#include <utility>

namespace quillspeech::cli {

OptionCheck Whole_Number(std::int64_t least, std::int64_t greatest) {
  return [=](const std::string& typed) -> std::string {
    std::int64_t number = 0;
    const char* const end = typed.data() + typed.size();
    const auto read = std::from_chars(typed.data(), end, number);
    if (read.ec == std::errc() && read.ptr == end && number >= least && number <= greatest) {
      return {};
    }
    return "takes a whole number from " + std::to_string(least) + " to " +
           std::to_string(greatest) + ", not \"" + typed + "\"";
  };
}

OptionCheck One_Of(std::vector<std::string> names) {
  return [names = std::move(names)](const std::string& typed) -> std::string {
    if (std::find(names.begin(), names.end(), typed) != names.end()) return {};
    std::string sentence = "takes ";
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (i > 0) sentence += i + 1 == names.size() ? " or " : ", ";
      sentence += names[i];
    }
    return sentence + ", not \"" + typed + "\"";
  };
}

OptionCheck File_Name() {
  return [](const std::string& typed) -> std::string {
    return typed.empty() ? "takes the name of a file, not an empty text" : "";
  };
}

std::size_t Letters_Between(const std::string& one, const std::string& other) {
  std::vector<std::size_t> row(other.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t change = diagonal + (one[i - 1] == other[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({change, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace quillspeech::cli
