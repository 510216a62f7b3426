// Lines for a scripted host on the virtual clock: whatever they hold it answers them in JSON, a
// line each, and ends when they end.
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "cli/console.hpp"
#include "cli/host.hpp"
#include "cli/request_lines.hpp"
#include "fuzz/fuzz_target.hpp"

namespace quillspeech::fuzz {
namespace {

constexpr std::size_t Longest = 4'096;
constexpr std::int64_t Most_Milliseconds = 60'000;  // of all runs

// A folder in which the files that a control makes do no harm. Names that lead out of it are left
// to the tests.
class Playground {
 public:
  Playground() {
    std::string name = (std::filesystem::temp_directory_path() / "quillspeech-XXXXXX").string();
    Require(::mkdtemp(name.data()) != nullptr, "there is a folder for files");
    folder_ = name;
    before_ = std::filesystem::current_path();
    std::filesystem::current_path(folder_);
  }
  ~Playground() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(folder_, ignored);
  }
  Playground(const Playground&) = delete;
  Playground& operator=(const Playground&) = delete;

 private:
  std::filesystem::path folder_;
  std::filesystem::path before_;
};

bool Stays_Inside(const std::string& input) {
  return input.find_first_of("/\\") == std::string::npos;
}

// The largest of the numbers that its digits spell, as far as it matters.
std::int64_t Largest_Number(const std::string& line) {
  std::int64_t number = 0;
  std::int64_t largest = 0;
  for (const char character : line) {
    const bool is_digit = character >= '0' && character <= '9';
    number = is_digit ? std::min(number * 10 + (character - '0'), Most_Milliseconds + 1) : 0;
    largest = std::max(largest, number);
  }
  return largest;
}

// The lines of the input, but of the runs only as many as do not last long.
std::string Quick_Lines(const std::string& input) {
  std::istringstream lines(input);
  std::string quick;
  std::int64_t milliseconds = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.find("run") != std::string::npos) {
      milliseconds += Largest_Number(line);
      if (milliseconds > Most_Milliseconds || line.find_first_of("eE.") != std::string::npos)
        continue;
    }
    quick += line + "\n";
  }
  return quick;
}

void Host(const std::string& input) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  cli::Console console{in, out, err};
  cli::LiveOptions options;
  options.clock = cli::ClockKind::Virtual;
  Require(cli::Host_Control(options, console) == 0, "only the end of the input ends the host");
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) {
    Require(nlohmann::json::parse(line, nullptr, false).is_object(), "each line is an object");
  }
}

}  // namespace
}  // namespace quillspeech::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech::fuzz;
  const std::string input(reinterpret_cast<const char*>(data), std::min(size, Longest));
  if (!Stays_Inside(input)) return 0;
  const Playground playground;
  Host(Quick_Lines(input));
  return 0;
}
