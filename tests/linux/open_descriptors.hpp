// What this process has open.
#pragma once

#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>

namespace quillspeech::tests {

inline int Open_Descriptors() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return static_cast<int>(std::distance(begin(all), end(all)));
}

// The descriptor of the open file with that path, -1 when it is not open.
inline int Descriptor_Of(const std::string& path) {
  const auto real_path = std::filesystem::weakly_canonical(path);
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code ignored;
    if (std::filesystem::read_symlink(entry.path(), ignored) == real_path) {
      return std::stoi(entry.path().filename().string());
    }
  }
  return -1;
}

}  // namespace quillspeech::tests
