// Which word is spoken in which sound.
#pragma once

#include <istream>
#include <map>
#include <optional>
#include <string>

namespace quillspeech::cli {

// The name without its folders.
std::string Base_Name(const std::string& file);

// The base name up to its first "_", or without its extension when it has none.
std::string Word_In_Name(const std::string& file);

// A list with a line for each sound: its name, then a tab, or else a comma, or else blanks, then
// the word. Blanks around both are dropped; empty lines and lines that begin with "#" are skipped.
class Labels {
 public:
  // False when a line has no word; `bad_line` is its number, from 1.
  bool Read(std::istream& in, int& bad_line);

  // The word of the file by its name as given, or by its base name.
  std::optional<std::string> Find(const std::string& file) const;

 private:
  std::map<std::string, std::string> words_;
};

}  // namespace quillspeech::cli
