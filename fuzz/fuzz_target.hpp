// What every target shares.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

// A target: takes any bytes and returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace quillspeech::fuzz {

// A promise that the input must not break.
inline void Require(bool kept, const char* promise) {
  if (kept) return;
  std::fprintf(stderr, "broken: %s\n", promise);
  std::abort();
}

using FileBytes = std::vector<std::uint8_t>;

// An input is a line of text and, behind its end, the bytes of a file.
struct LineAndFile {
  std::string line;
  FileBytes file;

  LineAndFile(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    std::size_t end = 0;
    while (end < size && bytes[end] != '\n') ++end;
    line.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(end));
    const std::size_t rest = end < size ? end + 1 : size;
    file.assign(bytes.begin() + static_cast<std::ptrdiff_t>(rest), bytes.end());
  }
};

}  // namespace quillspeech::fuzz
