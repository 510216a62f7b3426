// What the JSON of each record is made of: its keys, and what reads and writes their values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>

#include "base/little_endian.hpp"
#include "cli/data_file_json.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::cli::data_file_json {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;

// A field or column of a record: its key and what reads and writes it.
template <class Get, class Set>
struct Access {
  const char* key;
  Get get;
  Set set;
};
template <class Record, class Value>
constexpr auto Field(const char* key, Value (Record::*get)() const, void (Record::*set)(Value)) {
  return Access<decltype(get), decltype(set)>{key, get, set};
}
template <class Record, class Value>
constexpr auto Column(const char* key, Value (Record::*get)(std::int64_t) const,
                      void (Record::*set)(std::int64_t, Value)) {
  return Access<decltype(get), decltype(set)>{key, get, set};
}

// Columns that share a count, which covers the elements 1 to count. The array begins at `lowest`.
template <class Count, class... Columns>
struct List {
  const char* key;
  const char* unused_key;
  std::int64_t lowest;
  std::int64_t last;
  Count count;
  std::tuple<Columns...> columns;
};
template <class Count, class... Columns>
constexpr auto Make_List(const char* key, const char* unused_key, std::int64_t lowest,
                         std::int64_t last, Count count, Columns... columns) {
  return List<Count, Columns...>{key, unused_key, lowest, last, count, {columns...}};
}

// A sample goes by its bits: as a number, not every one survives being handed around.
enum class Sample : std::uint64_t {};
inline constexpr std::size_t Samples_Offset = 24;

inline Sample Get_Sample(const VocRecord& record, std::int64_t index) {
  const auto bytes = record.Bytes().subspan(Samples_Offset + 8 * static_cast<std::size_t>(index));
  return Sample{From_Little_Endian<std::uint64_t>(bytes.data())};
}
inline void Set_Sample(VocRecord& record, std::int64_t index, Sample sample) {
  const auto bytes = record.Bytes().subspan(Samples_Offset + 8 * static_cast<std::size_t>(index));
  To_Little_Endian(static_cast<std::uint64_t>(sample), bytes.data());
}

// The fields and lists of each record, in the order of its JSON.
template <class Record>
struct Form;

template <>
struct Form<SayRecord> {
  using R = SayRecord;
  static constexpr auto fields =
      std::tuple(Field("FileCopyright", &R::FileCopyright, &R::FileCopyright),
                 Field("FileDescription", &R::FileDescription, &R::FileDescription),
                 Field("WordFont", &R::WordFont, &R::WordFont),
                 Field("DivisionCount", &R::DivisionCount, &R::DivisionCount),
                 Field("DivisionByteLength", &R::DivisionByteLength, &R::DivisionByteLength));
  static constexpr auto lists = std::tuple(
      Make_List("words", "unused_words", 1, R::Most_Words,
                Field("WordCount", &R::WordCount, &R::WordCount),
                Column("word", &R::Words, &R::Words),
                Column("rating", &R::WordRatings, &R::WordRatings)),
      Make_List("patterns", "unused_patterns", 1, R::Most_Likes,
                Field("LikeCount", &R::LikeCount, &R::LikeCount),
                Column("pattern", &R::LikeProtocols, &R::LikeProtocols),
                Column("rating", &R::LikeRatings, &R::LikeRatings)),
      Make_List("differentiators", "unused_differentiators", 1, R::Most_Differentiators,
                Field("DifferentiatorCount", &R::DifferentiatorCount, &R::DifferentiatorCount),
                Column("EngineCode", &R::EngineCodes, &R::EngineCodes),
                Column("SlotNumber", &R::SlotNumbers, &R::SlotNumbers),
                Column("EngineCodeWeight", &R::EngineCodeWeights, &R::EngineCodeWeights)));
};

template <>
struct Form<EgnRecord> {
  static constexpr auto fields = std::tuple();
  static constexpr auto lists = std::tuple();
};

template <>
struct Form<VocRecord> {
  using R = VocRecord;
  static constexpr auto fields =
      std::tuple(Field("VocabularyName", &R::VocabularyName, &R::VocabularyName));
  static constexpr auto lists = std::tuple(Make_List(
      "VocabularySamples", "unused_samples", 0, R::Last_Sample,
      Field("VocabularySampleCount", &R::VocabularySampleCount, &R::VocabularySampleCount),
      Access<decltype(&Get_Sample), decltype(&Set_Sample)>{"value", &Get_Sample, &Set_Sample}));
};
inline constexpr const char* Slots_Key = "EngineSlots";

// Calls step<Record>() with the record of the kind.
template <class Step>
auto With_Record(DataFileKind kind, const Step& step) {
  switch (kind) {
    case DataFileKind::Language:
      return step.template operator()<SayRecord>();
    case DataFileKind::Engine:
      return step.template operator()<EgnRecord>();
    default:
      return step.template operator()<VocRecord>();
  }
}

// Calls step(part) for each part of a tuple.
template <class Tuple, class Step>
void For_Each(const Tuple& parts, const Step& step) {
  std::apply([&](const auto&... part) { (step(part), ...); }, parts);
}

}  // namespace quillspeech::cli::data_file_json
