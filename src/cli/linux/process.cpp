#include "cli/process.hpp"

#include <malloc.h>
#include <unistd.h>

#include "cli/standard_descriptors.hpp"

namespace quillspeech::cli {

namespace {

// Each file's session takes and gives back the same few large tables. Kept by the process, they are
// not mapped anew for every file, where jobs would wait for each other.
void Keep_Memory_Between_Files() {
  constexpr int Large_Bytes = 32 << 20;
  mallopt(M_MMAP_THRESHOLD, Large_Bytes);
  mallopt(M_TRIM_THRESHOLD, 2 * Large_Bytes);
}

}  // namespace

PreparedProcess::PreparedProcess() {
  Fill_Standard_Descriptors();
  Keep_Memory_Between_Files();
}

PreparedProcess::~PreparedProcess() = default;

std::vector<std::string> Program_Arguments(int count, char** texts) {
  return {texts + 1, texts + count};
}

bool Is_Terminal(StandardStream stream) { return isatty(static_cast<int>(stream)) == 1; }

}  // namespace quillspeech::cli
