#include "cli/labels.hpp"

#include "base/text.hpp"

namespace quillspeech::cli {

std::string Base_Name(const std::string& file) {
  return file.substr(file.find_last_of('/') + 1);  // npos + 1 is 0
}

std::string Word_In_Name(const std::string& file) {
  const std::string name = Base_Name(file);
  const auto underscore = name.find('_');
  return name.substr(0, underscore != std::string::npos ? underscore : name.find_last_of('.'));
}

namespace {

std::size_t Separator_Of(const std::string& line) {
  for (const char separator : {'\t', ',', ' '}) {
    const auto place = line.find(separator);
    if (place != std::string::npos) return place;
  }
  return std::string::npos;
}

}  // namespace

bool Labels::Read(std::istream& in, int& bad_line) {
  std::string line;
  for (bad_line = 1; std::getline(in, line); ++bad_line) {
    if (line.ends_with('\r')) line.pop_back();
    line = Trimmed(line);
    if (line.empty() || line.starts_with('#')) continue;
    const auto separator = Separator_Of(line);
    if (separator == std::string::npos) return false;
    const auto word = Trimmed(line.substr(separator + 1));
    const auto file = Trimmed(line.substr(0, separator));
    if (word.empty() || file.empty()) return false;
    words_[file] = word;
  }
  return true;
}

std::optional<std::string> Labels::Find(const std::string& file) const {
  for (const std::string& name : {file, Base_Name(file)}) {
    if (const auto word = words_.find(name); word != words_.end()) return word->second;
  }
  return std::nullopt;
}

}  // namespace quillspeech::cli
