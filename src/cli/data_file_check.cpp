#include "cli/data_file_check.hpp"

#include <algorithm>
#include <limits>

#include "base/rounding.hpp"
#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "datafiles/records.hpp"
#include "recognition/like_match.hpp"

namespace quillspeech::cli {
namespace {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;

bool Is_Erased(std::string_view text) { return text.find_first_not_of('\0') == text.npos; }

// Reports with the place in front: "record 3, LikeProtocols 2: ".
class Reporter {
 public:
  explicit Reporter(const std::function<void(const Finding&)>& report) : report_(report) {}

  void Enter_Record(std::int64_t number) { record_ = number; }
  void File_Damage(const std::string& sentence) const { report_({true, "the file " + sentence}); }
  void Damage(const std::string& field, const std::string& sentence) const {
    report_({true, Place(field) + sentence});
  }
  void Remark(const std::string& field, const std::string& sentence) const {
    report_({false, Place(field) + sentence});
  }

 private:
  std::string Place(const std::string& field) const {
    return "record " + std::to_string(record_) + ", " + field + ": ";
  }

  const std::function<void(const Finding&)>& report_;
  std::int64_t record_ = 0;
};

std::string Element(const char* array, std::int64_t index) {
  return std::string(array) + ' ' + std::to_string(index);
}

// Checks a count and gives the number of elements that it covers within its array.
std::int64_t Covered(const char* field, std::int64_t count, std::int64_t most,
                     const Reporter& reporter) {
  if (count > most) {
    reporter.Damage(field, "is " + std::to_string(count) + ", but the array has " +
                               std::to_string(most) + " entries");
  }
  if (count < 0) reporter.Damage(field, "is " + std::to_string(count) + ", below 0");
  return std::clamp<std::int64_t>(count, 0, most);
}

void Check_Own_Number(std::int64_t own, std::int64_t position, const Reporter& reporter) {
  if (own == position) return;
  const std::string number = std::to_string(own);
  reporter.Damage("RecordNo", "is " + number + ", so a write of this record " +
                                  (own > 0 ? "lands in record " + number : "fails"));
}

// Takes the first sign off a pattern whose lists are sound: a character or a whole list.
std::string_view Take_Sign(std::string_view& pattern) {
  const auto length = pattern[0] == '[' ? pattern.find(']') + 1 : 1;
  const auto sign = pattern.substr(0, length);
  pattern.remove_prefix(length);
  return sign;
}

// Whether a string of characters other than the zero byte can fit the sign of a pattern.
bool Can_Fit(std::string_view sign) {
  if (sign.size() == 1) return sign[0] != '\0';
  if (Like_Match("", sign)) return true;
  for (int byte = 1; byte <= 255; ++byte) {
    const char character = static_cast<char>(byte);
    if (Like_Match({&character, 1}, sign)) return true;
  }
  return false;
}

void Check_Pattern(std::string_view stored, const std::string& field, const Reporter& reporter) {
  const std::string_view pattern = Trim(stored);
  if (Is_Erased(stored)) {
    return reporter.Damage(field, "is counted but erased, so it matches nothing");
  }
  if (pattern.empty()) return reporter.Remark(field, "is blank, so it fits only an empty string");
  const std::string shown = Text_As_Json(pattern);
  try {
    Like_Match("", pattern);
  } catch (const RunTimeFailure& failure) {
    return reporter.Damage(field, shown + " has a list without its ] or a range that falls, so " +
                                      "every scan of the file ends here with failure " +
                                      std::to_string(failure.Number()));
  }
  for (std::string_view rest = pattern; !rest.empty();) {
    const std::string_view sign = Take_Sign(rest);
    if (Can_Fit(sign)) continue;
    return reporter.Damage(
        field, shown + (sign.size() == 1 ? " holds a zero byte" : " has a list that nothing fits") +
                   ", so it matches nothing");
  }
}

// The least and the greatest part that the words of a record have in a score.
struct WordShare {
  std::int64_t least;
  std::int64_t greatest;
};
WordShare Share_Of_Words(const SayRecord& record, std::int64_t words) {
  WordShare share{std::numeric_limits<std::int64_t>::max(), 0};
  for (std::int64_t k = 1; k <= words; ++k) {
    const std::int64_t part = Round_To_16(record.WordRatings(k) / 4.0);
    share = {std::min(share.least, part), std::max(share.greatest, part)};
  }
  return share;
}

// A score is stored as a byte.
void Check_Score(std::int64_t rating, WordShare words, std::int64_t most_bonus,
                 const std::string& field, const Reporter& reporter) {
  constexpr std::int64_t Floor = 5;
  const std::int64_t base = Floor + Round_To_16(static_cast<double>(rating) / 2.0);
  const std::int64_t least = base + words.least;
  const std::int64_t greatest = base + words.greatest + most_bonus;
  if (least >= 0 && greatest <= 255) return;
  reporter.Damage(field, "is " + std::to_string(rating) + ", which gives a score of " +
                             std::to_string(least < 0 ? least : greatest) +
                             "; a score beyond 0 to 255 ends the scan with failure 6");
}

void Check_Patterns(const SayRecord& record, std::int64_t patterns, std::int64_t words,
                    std::int64_t most_bonus, const Reporter& reporter) {
  const WordShare share = Share_Of_Words(record, words);
  for (std::int64_t i = 1; i <= patterns; ++i) {
    Check_Pattern(record.LikeProtocols(i), Element("LikeProtocols", i), reporter);
    if (words == 0) continue;
    Check_Score(record.LikeRatings(i), share, most_bonus, Element("LikeRatings", i), reporter);
  }
}

void Check_Words(const SayRecord& record, std::int64_t words, const Reporter& reporter) {
  for (std::int64_t i = 1; i <= words; ++i) {
    if (!Is_Erased(record.Words(i))) continue;
    reporter.Damage(Element("Words", i), "is counted but erased");
  }
}

void Check_Differentiators(const SayRecord& record, std::int64_t count, const Reporter& reporter) {
  for (std::int64_t i = 1; i <= count; ++i) {
    if (Is_Erased(record.EngineCodes(i))) {
      reporter.Damage(Element("EngineCodes", i), "is counted but erased, so it equals no slot");
    }
    if (record.SlotNumbers(i) == 0) {
      reporter.Damage(Element("SlotNumbers", i), "is 0, but slots are numbered from 1");
    }
  }
}

void Check_Record(const SayRecord& record, std::int64_t position, const Reporter& reporter) {
  Check_Own_Number(record.RecordNo(), position, reporter);
  const auto words = Covered("WordCount", record.WordCount(), SayRecord::Most_Words, reporter);
  const auto patterns = Covered("LikeCount", record.LikeCount(), SayRecord::Most_Likes, reporter);
  const auto differentiators = Covered("DifferentiatorCount", record.DifferentiatorCount(),
                                       SayRecord::Most_Differentiators, reporter);
  Check_Words(record, words, reporter);
  Check_Patterns(record, patterns, words, differentiators > 0 ? 20 : 0, reporter);
  Check_Differentiators(record, differentiators, reporter);
  if (words > 0 && record.LikeCount() == 0)
    reporter.Remark("LikeCount", "is 0, so no word is ever found");
  if (patterns > 0 && record.WordCount() == 0)
    reporter.Remark("WordCount", "is 0, so a match gives no word");
}

void Check_Record(const VocRecord& record, std::int64_t position, const Reporter& reporter) {
  Check_Own_Number(record.RecordNo(), position, reporter);
  Covered("VocabularySampleCount", record.VocabularySampleCount(), VocRecord::Last_Sample,
          reporter);
}

// Remarks on each run of erased slots among those that the recogniser reads.
void Remark_On_Erased_Slots(const EgnRecord& record, const Reporter& reporter) {
  for (int first = 0; first < EgnRecord::Last_Slot; ++first) {
    int end = first;
    while (end < EgnRecord::Last_Slot && Is_Erased(record.EngineSlots(end))) ++end;
    if (end == first) continue;
    const std::string range = end == first + 1 ? "" : " to " + std::to_string(end - 1);
    reporter.Remark(Element("EngineSlots", first) + range,
                    "erased, so such a category puts zero bytes in the string instead of nothing");
    first = end;
  }
}

// Only record 1 is ever read, and of it the slots 0 to 99.
void Check_Record(const EgnRecord& record, std::int64_t position, const Reporter& reporter) {
  if (position != 1) return;
  Check_Own_Number(record.RecordNo(), position, reporter);
  bool has_letters = false;
  for (int category = 0; category < EgnRecord::Last_Slot; ++category) {
    const auto text = record.EngineSlots(category);
    has_letters = has_letters || !(Trim(text).empty() || Is_Erased(text));
  }
  if (has_letters) return Remark_On_Erased_Slots(record, reporter);
  reporter.Damage("EngineSlots", "all blank or erased, so no sound has a letter");
}

// Reports a torn last record and gives the number of records that a reader counts.
std::int64_t Count_Records(std::int64_t length, std::int64_t record_bytes,
                           const Reporter& reporter) {
  const auto count = static_cast<std::int64_t>(
      Round(static_cast<double>(length) / static_cast<double>(record_bytes)));
  const std::int64_t tail = length % record_bytes;
  if (tail == 0) return count;
  const char* part = 2 * tail > record_bytes   ? "more than half"
                     : 2 * tail < record_bytes ? "less than half"
                                               : "exactly half";
  reporter.File_Damage("ends in a torn record of " + std::to_string(tail) + " of " +
                       std::to_string(record_bytes) + " bytes, " + part + ", which " +
                       (count > length / record_bytes ? "counts as record " + std::to_string(count)
                                                      : "does not count as a record"));
  return count;
}

void Check_Count(DataFileKind kind, std::int64_t count, const Reporter& reporter) {
  constexpr std::int64_t Most_Scanned = 32767;
  if (kind == DataFileKind::Engine && count == 0) {
    reporter.File_Damage("has no record, so no sound has a letter");
  }
  if (kind == DataFileKind::Engine && count > 1) {
    reporter.File_Damage("has " + std::to_string(count) + " records, but only record 1 is read");
  }
  if (kind == DataFileKind::Language && count > Most_Scanned) {
    reporter.File_Damage("has " + std::to_string(count) +
                         " records; above 32767 every scan ends with failure 6");
  }
}

// A counted torn record is checked as a reader reads it.
template <class Record>
void Check_Records(std::span<const std::uint8_t> bytes, std::int64_t count, Reporter& reporter) {
  Record record;
  for (std::int64_t position = 1; position <= count; ++position) {
    const auto stored = bytes.first(std::min<std::size_t>(bytes.size(), Record::Record_Bytes));
    std::ranges::fill(record.Bytes(), Record::Missing_Byte);
    std::ranges::copy(stored, record.Bytes().begin());
    bytes = bytes.subspan(stored.size());
    reporter.Enter_Record(position);
    Check_Record(record, position, reporter);
  }
}

}  // namespace

void Find_Damage(DataFileKind kind, std::span<const std::uint8_t> bytes,
                 const std::function<void(const Finding&)>& report) {
  Reporter reporter(report);
  const std::int64_t count =
      Count_Records(static_cast<std::int64_t>(bytes.size()), Record_Bytes(kind), reporter);
  Check_Count(kind, count, reporter);
  switch (kind) {
    case DataFileKind::Language:
      return Check_Records<SayRecord>(bytes, count, reporter);
    case DataFileKind::Engine:
      return Check_Records<EgnRecord>(bytes, count, reporter);
    case DataFileKind::Vocabulary:
      return Check_Records<VocRecord>(bytes, count, reporter);
  }
}

}  // namespace quillspeech::cli
