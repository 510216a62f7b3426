#include "editors/say_record_states.hpp"

#include <array>
#include <string_view>

namespace quillspeech {
namespace {

using datafiles::SayRecord;

// Wide enough for every field; each cuts it to its own width.
constexpr std::array<char, 100> Zero_Bytes{};
constexpr std::string_view Erased(Zero_Bytes.data(), Zero_Bytes.size());

void Erase_Texts_And_Slots(SayRecord& record) {
  for (int i = 1; i <= SayRecord::Most_Words; ++i) record.Words(i, Erased);
  for (int i = 1; i <= SayRecord::Most_Likes; ++i) record.LikeProtocols(i, Erased);
  for (int i = 1; i <= SayRecord::Most_Differentiators; ++i) {
    record.EngineCodes(i, Erased);
    record.SlotNumbers(i, 0);
    record.EngineCodeWeights(i, 0);
  }
}

void Erase_Ratings(SayRecord& record) {
  for (int i = 1; i <= SayRecord::Most_Words; ++i) record.WordRatings(i, 0);
  for (int i = 1; i <= SayRecord::Most_Likes; ++i) record.LikeRatings(i, 0);
}

void Copy_Words(const SayRecord& from, SayRecord& to) {
  for (int i = 1; i <= from.WordCount(); ++i) {
    to.Words(i, from.Words(i));
    to.WordRatings(i, from.WordRatings(i));
  }
  to.WordCount(from.WordCount());
}

void Copy_Patterns(const SayRecord& from, SayRecord& to) {
  for (int i = 1; i <= from.LikeCount(); ++i) {
    to.LikeProtocols(i, from.LikeProtocols(i));
    to.LikeRatings(i, from.LikeRatings(i));
  }
  to.LikeCount(from.LikeCount());
}

void Copy_Differentiators(const SayRecord& from, SayRecord& to) {
  for (int i = 1; i <= from.DifferentiatorCount(); ++i) {
    to.SlotNumbers(i, from.SlotNumbers(i));
    to.EngineCodes(i, from.EngineCodes(i));
    to.EngineCodeWeights(i, from.EngineCodeWeights(i));
  }
  to.DifferentiatorCount(from.DifferentiatorCount());
}

}  // namespace

void Make_Deleted(SayRecord& record) {
  Erase_Texts_And_Slots(record);
  record.DifferentiatorCount(0);
  record.WordCount(0);
  record.DivisionCount(0);
  record.LikeCount(0);
  record.DivisionByteLength(0);
  record.WordFont("");
}

void Make_New(SayRecord& record, std::int32_t number) {
  Make_Deleted(record);
  Erase_Ratings(record);
  record.RecordNo(number);
}

// A count that fails leaves no half of a copy.
void Copy_Contents(const SayRecord& from, SayRecord& to) {
  SayRecord copy = to;
  Copy_Words(from, copy);
  Copy_Patterns(from, copy);
  Copy_Differentiators(from, copy);
  copy.WordFont(from.WordFont());
  copy.DivisionCount(from.DivisionCount());
  copy.DivisionByteLength(from.DivisionByteLength());
  to = copy;
}

}  // namespace quillspeech
