#include "cli/file_names.hpp"

#include <algorithm>

namespace quillspeech::cli {

std::optional<std::string> FileNames::Next() {
  while (next_ < typed_.size() && !console_.Is_Interrupted()) {
    if (typed_[next_] != "-") return typed_[next_++];
    if (auto line = Next_Line()) return line;
    ++next_;
  }
  return std::nullopt;
}

std::optional<std::string> FileNames::Next_Line() {
  std::string line;
  while (!console_.Is_Interrupted() && std::getline(console_.in, line)) {
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty()) return line;
  }
  return std::nullopt;
}

std::optional<std::size_t> FileNames::Count() const {
  if (std::find(typed_.begin(), typed_.end(), "-") != typed_.end()) return std::nullopt;
  return typed_.size();
}

}  // namespace quillspeech::cli
