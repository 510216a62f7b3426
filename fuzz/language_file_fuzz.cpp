// A line with the string of a word and behind it the bytes of a language file: one scan.
#include <algorithm>

#include "fuzz/fuzz_target.hpp"
#include "recognition/language_matching.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::fuzz {
namespace {

using datafiles::SayRecord;
using tests::TestSession;

constexpr std::int64_t Table_Limit = 1000;  // words of a run; the ranking fails on more
constexpr std::int32_t Last_Number = 64;  // records that claim a greater number find the disk full

bool Claims_Great_Number(const FileBytes& file) {
  SayRecord record;
  for (std::size_t at = 0; at < file.size(); at += SayRecord::Record_Bytes) {
    const std::size_t count = std::min<std::size_t>(SayRecord::Record_Bytes, file.size() - at);
    std::fill(record.Bytes().begin(), record.Bytes().end(), std::uint8_t{0});
    std::copy_n(file.data() + at, count, record.Bytes().begin());
    if (record.RecordNo() > Last_Number) return true;
  }
  return false;
}

// At most one record may differ, the one that was read last: it is written back where it says.
void Check_File(const FileBytes& before, const FileBytes& after, std::int64_t number) {
  Require(after.size() >= before.size(), "a scan never shortens the file");
  const std::int64_t from = (number - 1) * SayRecord::Record_Bytes;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const auto at = static_cast<std::int64_t>(i);
    const bool written = at >= from && at < from + SayRecord::Record_Bytes;
    Require(written || before[i] == after[i], "the other records stay as they are");
  }
}

void Scan(const LineAndFile& input) {
  TestSession test;
  Session& session = test.session;
  int recoveries = 0;
  session.operations.Stop_And_Recover = [&](Session&) { ++recoveries; };
  session.settings.Consider_this_Lang_File_to_match = "words.SAY";
  session.filter.Current_Voice_Word = input.line;
  session.filter.Filter_Slot_Table[1] = "aAA";
  session.filter.Filter_Slot_Table[2] = "fthjjs";
  session.filter.Filter_Weight_Table[1] = 3;
  test.data_files.files["words.SAY"] = input.file;
  if (Claims_Great_Number(input.file)) test.data_files.write_faults[1] = {};

  Match_Language(session);
  Require(recoveries == static_cast<int>(session.trace.failures.size()), "each failure recovers");
  session.data.Main_File_Number.Close();  // as the recovery does
  Require(test.data_files.open_files == 0, "the file is closed");
  const FileBytes& after = test.data_files.files["words.SAY"];
  const bool ranking_failed = session.results.Platinum_Words_Available > Table_Limit;
  if (recoveries == 0 || ranking_failed) {  // the ranking comes after the writing
    Check_File(input.file, after, session.data.SayRecord.RecordNo());
  } else {
    Require(after == input.file, "a failed scan writes nothing");
  }
}

}  // namespace
}  // namespace quillspeech::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech::fuzz;
  Scan(LineAndFile(data, size));
  return 0;
}
