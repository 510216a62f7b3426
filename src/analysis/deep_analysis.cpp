#include "analysis/deep_analysis.hpp"

#include <optional>
#include <string_view>

#include "analysis/sample_head.hpp"
#include "analysis/slice_steps.hpp"
#include "analysis/word_scan.hpp"
#include "analysis/word_slicing.hpp"
#include "base/rounding.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr ScanLimits Deep_Scan{ForwardHits::By_Change, 30, 20};
constexpr std::int64_t Longest_Analysed_Bytes = 100'000;
constexpr std::int64_t Longest_Flat_Word_Bytes = 10'000;
constexpr std::int64_t Longest_Flat_Span = 100'000;
constexpr std::int64_t Longest_Too_Deep_Word_Bytes = 12'000;

// One level below the words of a file.
struct DeepLevel {
  DynamicTable<std::int32_t>& start;
  DynamicTable<std::int32_t>& end;
  DynamicTable<std::int32_t>& length;
  Checked16& current;
  std::string_view refusal_title;
  std::string_view refusal_text;
};

// The old entries of the level's own tables stay: a word past the forward count meets them.
void Resize_Tables(Session& session, const DeepLevel& level, std::int64_t span) {
  WordTables& words = session.words;
  Clear_Scan(words.scan);
  Resize_Sample_Arrays(session, span);
  const std::int64_t upper = Rounded_Quotient(span, words.Word_Table_Divisor);
  Resize_Scan(words.scan, upper);
  level.start.Resize(upper);
  level.end.Resize(upper);
  level.length.Resize(upper);
}

// The number of the level's last word; nothing when neither pass has a hit.
std::optional<std::int64_t> Find_Deep_Words(Session& session, const DeepLevel& level,
                                            SliceSpan word) {
  WordTables& words = session.words;
  Resize_Tables(session, level, word.Length());
  Take_Word_Grid(session.sample, words, word.first_byte, word.last_byte - 1);
  Find_Hits(words, Deep_Scan);
  Find_Gaps(words.scan, word.Length());
  Release_Capture_When_Quiet(session);
  Bound_Words(words.scan, word.Length(), {level.start, level.end});
  Draw_Graph_When_Wanted(session);
  if (words.scan.Forward_Hit_Count + words.scan.Backward_Hit_Count == 0) return std::nullopt;
  return Count_Words(words.scan);
}

// Analyses the level's words; `prepare` first takes the absolute bounds of each and tells whether
// the word is analysed at this level.
template <class Prepare>
void Analyse_Level(Session& session, const DeepLevel& level, SliceSpan word, Prepare prepare) {
  if (Is_Stopped(session)) return;
  word.last_byte = End_Within_Sample(session.sample, word.last_byte);
  session.words.Sample_Span = word.Length();
  if (word.Length() < 0) {
    Show_Box(session, level.refusal_text, level.refusal_title, BoxIcon::Stop);
    return;
  }
  const auto last = Find_Deep_Words(session, level, word);
  if (!last) return;
  for (std::int64_t number = 0; number <= *last; ++number) {
    level.current = number;
    const std::int64_t start = level.start[number];
    const std::int64_t end = level.end[number];
    level.length.Put(number, Checked32(end - start).Raw());
    const SliceSpan part{word.first_byte + start, word.first_byte + end};
    if (prepare(part)) {
      Analyse_File_Word(session, part.first_byte, part.last_byte, Longest_Analysed_Bytes);
    }
  }
}

}  // namespace

void Analyse_Deep_Word(Session& session, std::int64_t first_byte, std::int64_t last_byte) {
  WordTables& words = session.words;
  const DeepLevel level{words.Deep_Word_Start,
                        words.Deep_Word_End,
                        words.Deep_Word_Length,
                        words.Current_DeepWord_no_Processed,
                        Fatal_Title,
                        "CANNOT PROCESS : CODE:WD"};
  // Sample_Span is this word's for deep word 0 only: every analysis leaves its own length there.
  const auto descend = [&](SliceSpan part) {
    if (part.Length() > Longest_Flat_Word_Bytes && words.Sample_Span > Longest_Flat_Span) {
      Analyse_Too_Deep_Word(session, part.first_byte, part.last_byte);
    }
    return true;
  };
  Run_Trapped(session, [&] { Analyse_Level(session, level, {first_byte, last_byte}, descend); });
}

void Analyse_Too_Deep_Word(Session& session, std::int64_t first_byte, std::int64_t last_byte) {
  WordTables& words = session.words;
  const DeepLevel level{words.Too_Deep_Word_Start,  words.Too_Deep_Word_End,
                        words.Too_Deep_Word_Length, words.Current_TooDeepWord_no_Processed,
                        "Quillspeech ERROR",        "CANNOT PROCESS CODE: WDD"};
  const auto is_short_enough = [](SliceSpan part) {
    return part.Length() <= Longest_Too_Deep_Word_Bytes;
  };
  Run_Trapped(session, [&] {
    Analyse_Level(session, level, {first_byte, last_byte}, is_short_enough);
  });
}

}  // namespace quillspeech
