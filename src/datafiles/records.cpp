#include "datafiles/records.hpp"

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstddef>
#include <limits>
#include <string>

#include "base/little_endian.hpp"
#include "base/run_time_failure.hpp"

namespace quillspeech::datafiles {

namespace {

static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == 8);

using Record = std::span<const std::uint8_t>;
using WritableRecord = std::span<std::uint8_t>;

struct Text {
  std::size_t offset;
  std::size_t width;
};

struct Array {
  std::size_t offset;
  std::size_t width;  // of one element
  std::int64_t first;
  std::int64_t last;

  constexpr std::size_t At(std::int64_t index) const {
    if (index < first || index > last) Fail(Failure::Subscript_Out_Of_Range);
    return offset + static_cast<std::size_t>(index - first) * width;
  }
};

namespace say {
constexpr std::size_t RecordNo = 0;
constexpr Text FileCopyright{4, 30};
constexpr Text FileDescription{34, 100};
constexpr Array Words{134, 40, 1, SayRecord::Most_Words};
constexpr Array WordRatings{4134, 1, 1, SayRecord::Most_Words};
constexpr std::size_t WordCount = 4234;
constexpr Text WordFont{4236, 20};
constexpr Array LikeRatings{4256, 2, 1, SayRecord::Most_Likes};
constexpr std::size_t DivisionCount = 4316;
constexpr std::size_t DivisionByteLength = 4318;
constexpr Array EngineCodes{4322, 20, 1, SayRecord::Most_Differentiators};
constexpr Array SlotNumbers{5322, 1, 1, SayRecord::Most_Differentiators};
constexpr Array EngineCodeWeights{5372, 2, 1, SayRecord::Most_Differentiators};
constexpr std::size_t DifferentiatorCount = 5472;
constexpr std::size_t LikeCount = 5474;
constexpr Array LikeProtocols{5476, 100, 1, SayRecord::Most_Likes};
}  // namespace say

namespace egn {
constexpr std::size_t RecordNo = 0;
constexpr Array EngineSlots{4, 20, 0, EgnRecord::Last_Slot};
}  // namespace egn

namespace voc {
constexpr std::size_t RecordNo = 0;
constexpr Text VocabularyName{4, 20};
constexpr Array VocabularySamples{24, 8, 0, VocRecord::Last_Sample};
constexpr std::size_t VocabularySampleCount = 9632;
}  // namespace voc

template <std::integral T>
T Get(Record record, std::size_t offset) {
  return From_Little_Endian<T>(record.subspan(offset, sizeof(T)).data());
}

template <std::integral T>
void Put(WritableRecord record, std::size_t offset, T value) {
  To_Little_Endian(value, record.subspan(offset, sizeof(T)).data());
}

std::string_view Get(Record record, Text field) {
  return {reinterpret_cast<const char*>(record.data()) + field.offset, field.width};
}

void Put(WritableRecord record, Text field, std::string_view text) {
  char* const characters = reinterpret_cast<char*>(record.data()) + field.offset;
  const std::size_t kept = std::min(text.size(), field.width);
  // The text may be a field of this very record.
  std::char_traits<char>::move(characters, text.data(), kept);
  std::fill(characters + kept, characters + field.width, ' ');
}

std::string_view Get(Record record, Array field, std::int64_t index) {
  return Get(record, Text{field.At(index), field.width});
}

void Put(WritableRecord record, Array field, std::int64_t index, std::string_view text) {
  Put(record, Text{field.At(index), field.width}, text);
}

}  // namespace

std::int32_t SayRecord::RecordNo() const { return Get<std::int32_t>(bytes_, say::RecordNo); }
void SayRecord::RecordNo(std::int32_t value) { Put(bytes_, say::RecordNo, value); }

std::string_view SayRecord::FileCopyright() const { return Get(bytes_, say::FileCopyright); }
void SayRecord::FileCopyright(std::string_view text) { Put(bytes_, say::FileCopyright, text); }

std::string_view SayRecord::FileDescription() const { return Get(bytes_, say::FileDescription); }
void SayRecord::FileDescription(std::string_view text) { Put(bytes_, say::FileDescription, text); }

std::string_view SayRecord::Words(std::int64_t index) const {
  return Get(bytes_, say::Words, index);
}
void SayRecord::Words(std::int64_t index, std::string_view text) {
  Put(bytes_, say::Words, index, text);
}

std::uint8_t SayRecord::WordRatings(std::int64_t index) const {
  return bytes_[say::WordRatings.At(index)];
}
void SayRecord::WordRatings(std::int64_t index, std::uint8_t value) {
  bytes_[say::WordRatings.At(index)] = value;
}

std::int16_t SayRecord::WordCount() const { return Get<std::int16_t>(bytes_, say::WordCount); }
void SayRecord::WordCount(std::int16_t value) { Put(bytes_, say::WordCount, value); }

std::string_view SayRecord::WordFont() const { return Get(bytes_, say::WordFont); }
void SayRecord::WordFont(std::string_view text) { Put(bytes_, say::WordFont, text); }

std::int16_t SayRecord::LikeRatings(std::int64_t index) const {
  return Get<std::int16_t>(bytes_, say::LikeRatings.At(index));
}
void SayRecord::LikeRatings(std::int64_t index, std::int16_t value) {
  Put(bytes_, say::LikeRatings.At(index), value);
}

std::int16_t SayRecord::DivisionCount() const {
  return Get<std::int16_t>(bytes_, say::DivisionCount);
}
void SayRecord::DivisionCount(std::int16_t value) { Put(bytes_, say::DivisionCount, value); }

std::int32_t SayRecord::DivisionByteLength() const {
  return Get<std::int32_t>(bytes_, say::DivisionByteLength);
}
void SayRecord::DivisionByteLength(std::int32_t value) {
  Put(bytes_, say::DivisionByteLength, value);
}

std::string_view SayRecord::EngineCodes(std::int64_t index) const {
  return Get(bytes_, say::EngineCodes, index);
}
void SayRecord::EngineCodes(std::int64_t index, std::string_view text) {
  Put(bytes_, say::EngineCodes, index, text);
}

std::uint8_t SayRecord::SlotNumbers(std::int64_t index) const {
  return bytes_[say::SlotNumbers.At(index)];
}
void SayRecord::SlotNumbers(std::int64_t index, std::uint8_t value) {
  bytes_[say::SlotNumbers.At(index)] = value;
}

std::int16_t SayRecord::EngineCodeWeights(std::int64_t index) const {
  return Get<std::int16_t>(bytes_, say::EngineCodeWeights.At(index));
}
void SayRecord::EngineCodeWeights(std::int64_t index, std::int16_t value) {
  Put(bytes_, say::EngineCodeWeights.At(index), value);
}

std::int16_t SayRecord::DifferentiatorCount() const {
  return Get<std::int16_t>(bytes_, say::DifferentiatorCount);
}
void SayRecord::DifferentiatorCount(std::int16_t value) {
  Put(bytes_, say::DifferentiatorCount, value);
}

std::int16_t SayRecord::LikeCount() const { return Get<std::int16_t>(bytes_, say::LikeCount); }
void SayRecord::LikeCount(std::int16_t value) { Put(bytes_, say::LikeCount, value); }

std::string_view SayRecord::LikeProtocols(std::int64_t index) const {
  return Get(bytes_, say::LikeProtocols, index);
}
void SayRecord::LikeProtocols(std::int64_t index, std::string_view text) {
  Put(bytes_, say::LikeProtocols, index, text);
}

std::int32_t EgnRecord::RecordNo() const { return Get<std::int32_t>(bytes_, egn::RecordNo); }
void EgnRecord::RecordNo(std::int32_t value) { Put(bytes_, egn::RecordNo, value); }

std::string_view EgnRecord::EngineSlots(std::int64_t category) const {
  return Get(bytes_, egn::EngineSlots, category);
}
void EgnRecord::EngineSlots(std::int64_t category, std::string_view text) {
  Put(bytes_, egn::EngineSlots, category, text);
}

std::int32_t VocRecord::RecordNo() const { return Get<std::int32_t>(bytes_, voc::RecordNo); }
void VocRecord::RecordNo(std::int32_t value) { Put(bytes_, voc::RecordNo, value); }

std::string_view VocRecord::VocabularyName() const { return Get(bytes_, voc::VocabularyName); }
void VocRecord::VocabularyName(std::string_view text) { Put(bytes_, voc::VocabularyName, text); }

double VocRecord::VocabularySamples(std::int64_t index) const {
  return std::bit_cast<double>(Get<std::uint64_t>(bytes_, voc::VocabularySamples.At(index)));
}
void VocRecord::VocabularySamples(std::int64_t index, double value) {
  Put(bytes_, voc::VocabularySamples.At(index), std::bit_cast<std::uint64_t>(value));
}

std::int16_t VocRecord::VocabularySampleCount() const {
  return Get<std::int16_t>(bytes_, voc::VocabularySampleCount);
}
void VocRecord::VocabularySampleCount(std::int16_t value) {
  Put(bytes_, voc::VocabularySampleCount, value);
}

}  // namespace quillspeech::datafiles
