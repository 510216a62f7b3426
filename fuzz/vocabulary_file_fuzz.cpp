// The bytes of a vocabulary file: every field of every record read and written back, and the whole
// file to JSON and back.
#include <algorithm>
#include <sstream>

#include "cli/data_file_json.hpp"
#include "datafiles/record_file.hpp"
#include "datafiles/records.hpp"
#include "fuzz/fuzz_target.hpp"
#include "platform/headless/data_file.hpp"

namespace quillspeech::fuzz {
namespace {

using datafiles::VocRecord;

VocRecord Copy_Fields(const VocRecord& from) {
  VocRecord to;
  to.RecordNo(from.RecordNo());
  to.VocabularyName(from.VocabularyName());
  for (int i = 0; i <= VocRecord::Last_Sample; ++i) {
    to.VocabularySamples(i, from.VocabularySamples(i));
  }
  to.VocabularySampleCount(from.VocabularySampleCount());
  return to;
}

void Copy_Records(const FileBytes& bytes) {
  headless::DataFileStore store;
  store.files["voices"] = bytes;
  RecordFile file;
  file.Open(store, "voices", VocRecord::Record_Bytes);
  const auto whole = static_cast<std::int64_t>(bytes.size()) / VocRecord::Record_Bytes;
  Require(file.Record_Count() >= whole && file.Record_Count() <= whole + 1, "records are counted");
  for (std::int64_t number = 1; number <= whole; ++number) {
    VocRecord record;
    file.Read(number, record.Bytes());
    const VocRecord copy = Copy_Fields(record);
    const bool same =
        std::equal(record.Bytes().begin(), record.Bytes().end(), copy.Bytes().begin());
    Require(same, "the fields are the whole record");
    file.Write(number, copy.Bytes());
  }
  file.Close();
  Require(store.files["voices"] == bytes, "writing what was read changes nothing");
}

void Go_Through_Json(const FileBytes& bytes) {
  std::ostringstream json;
  cli::Data_File_To_Json(cli::DataFileKind::Vocabulary, bytes, json);
  Require(cli::Data_File_From_Json(json.str()) == bytes, "JSON keeps every byte");
}

}  // namespace
}  // namespace quillspeech::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech::fuzz;
  const FileBytes bytes(data, data + size);
  Copy_Records(bytes);
  Go_Through_Json(bytes);
  return 0;
}
