// Feeds files to a target: fuzz_TARGET FILE|FOLDER... It fails when there is nothing to feed.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/fuzz_target.hpp"

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> Files_Under(const fs::path& place) {
  if (!fs::is_directory(place)) return {place};
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(place)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool Feed(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "%s cannot be read\n", path.c_str());
    return false;
  }
  const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
  std::printf("%s\n", path.c_str());  // so that a crash names its file
  std::fflush(stdout);
  return LLVMFuzzerTestOneInput(bytes.data(), bytes.size()) == 0;
}

}  // namespace

int main(int argc, char** argv) {
  int fed = 0;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path& path : Files_Under(argv[i])) {
      if (!Feed(path)) return 1;
      ++fed;
    }
  }
  std::printf("%d inputs replayed\n", fed);
  return fed > 0 ? 0 : 1;
}
