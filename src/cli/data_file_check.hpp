// What is damaged in a data file.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "cli/data_file_json.hpp"

namespace quillspeech::cli {

struct Finding {
  bool is_damage;        // else a remark: sound, but perhaps not what its author meant
  std::string sentence;  // "record 3, WordCount: is 120, but ..."
};

// Reports what is wrong with the bytes of a data file of that kind, in the order of the file.
void Find_Damage(DataFileKind kind, std::span<const std::uint8_t> bytes,
                 const std::function<void(const Finding&)>& report);

}  // namespace quillspeech::cli
