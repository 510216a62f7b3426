// What the commands' options may be given, and the sentences for what they may not.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillspeech::cli {

// Gives the sentence for a refused text; empty when it is taken.
using OptionCheck = std::function<std::string(const std::string& typed)>;

OptionCheck Whole_Number(std::int64_t least, std::int64_t greatest);
OptionCheck One_Of(std::vector<std::string> names);  // by letter and case
OptionCheck File_Name();                             // anything but an empty text

// How many letters to insert, delete or change until one name is the other.
std::size_t Letters_Between(const std::string& one, const std::string& other);

}  // namespace quillspeech::cli
