// Files whose records tell their numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillspeech::tests {

// `count` records of `bytes` bytes, the bytes of each holding its number.
inline std::vector<std::uint8_t> Numbered_Records(int count, std::size_t bytes) {
  std::vector<std::uint8_t> file;
  for (int number = 1; number <= count; ++number) {
    file.insert(file.end(), bytes, static_cast<std::uint8_t>(number));
  }
  return file;
}

}  // namespace quillspeech::tests
