// A line with the name of a kind, and behind it the bytes of such a data file: they survive the way
// to JSON and back. With any other line the rest is JSON, which makes a data file or is refused.
#include <sstream>

#include "cli/data_file_json.hpp"
#include "fuzz/fuzz_target.hpp"

namespace quillspeech::fuzz {
namespace {

using cli::DataFileKind;

void Go_There_And_Back(DataFileKind kind, const FileBytes& bytes) {
  std::ostringstream json;
  cli::Data_File_To_Json(kind, bytes, json);
  Require(cli::Data_File_From_Json(json.str()) == bytes, "JSON keeps every byte");
}

void Build(const FileBytes& json) {
  FileBytes built;
  try {
    built = cli::Data_File_From_Json(std::string(json.begin(), json.end()));
  } catch (const cli::BadJson& refusal) {
    Require(refusal.what()[0] != '\0', "a refusal gives its reason");
    return;
  }
  for (const auto kind : {DataFileKind::Language, DataFileKind::Engine, DataFileKind::Vocabulary}) {
    Go_There_And_Back(kind, built);
  }
}

}  // namespace
}  // namespace quillspeech::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech;
  const fuzz::LineAndFile input(data, size);
  if (const auto kind = cli::Kind_Of_Name(input.line)) {
    fuzz::Go_There_And_Back(*kind, input.file);
  } else {
    fuzz::Build(input.file);
  }
  return 0;
}
