// The three record layouts, byte for byte. docs/data_files.md tells what the fields mean.
//
// A record holds its bytes as they lie in the file, and reads and writes fields at their offsets:
// integers little-endian, texts of fixed width in Windows-1252, arrays from their first index. So
// whatever a file holds, also what lies above a count, survives a read and a write.
//
// A text is read with its whole width; writing cuts it or pads it with blanks. An index outside its
// array is failure 9.
//
// Missing_Byte is what a reader takes for the bytes that a file lacks.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillspeech::datafiles {

// A record of the language file (*.SAY).
class SayRecord {
 public:
  static constexpr int Record_Bytes = 8476;
  static constexpr std::uint8_t Missing_Byte = 0;
  static constexpr int Most_Words = 100;
  static constexpr int Most_Likes = 30;
  static constexpr int Most_Differentiators = 50;

  std::int32_t RecordNo() const;
  void RecordNo(std::int32_t value);
  std::string_view FileCopyright() const;  // 30
  void FileCopyright(std::string_view text);
  std::string_view FileDescription() const;  // 100
  void FileDescription(std::string_view text);
  std::string_view Words(std::int64_t index) const;  // 1 to 100, of 40
  void Words(std::int64_t index, std::string_view text);
  std::uint8_t WordRatings(std::int64_t index) const;  // 1 to 100
  void WordRatings(std::int64_t index, std::uint8_t value);
  std::int16_t WordCount() const;
  void WordCount(std::int16_t value);
  std::string_view WordFont() const;  // 20
  void WordFont(std::string_view text);
  std::int16_t LikeRatings(std::int64_t index) const;  // 1 to 30
  void LikeRatings(std::int64_t index, std::int16_t value);
  std::int16_t DivisionCount() const;
  void DivisionCount(std::int16_t value);
  std::int32_t DivisionByteLength() const;
  void DivisionByteLength(std::int32_t value);
  std::string_view EngineCodes(std::int64_t index) const;  // 1 to 50, of 20
  void EngineCodes(std::int64_t index, std::string_view text);
  std::uint8_t SlotNumbers(std::int64_t index) const;  // 1 to 50
  void SlotNumbers(std::int64_t index, std::uint8_t value);
  std::int16_t EngineCodeWeights(std::int64_t index) const;  // 1 to 50
  void EngineCodeWeights(std::int64_t index, std::int16_t value);
  std::int16_t DifferentiatorCount() const;
  void DifferentiatorCount(std::int16_t value);
  std::int16_t LikeCount() const;
  void LikeCount(std::int16_t value);
  std::string_view LikeProtocols(std::int64_t index) const;  // 1 to 30, of 100
  void LikeProtocols(std::int64_t index, std::string_view text);

  std::span<const std::uint8_t, Record_Bytes> Bytes() const { return bytes_; }
  std::span<std::uint8_t, Record_Bytes> Bytes() { return bytes_; }

 private:
  std::array<std::uint8_t, Record_Bytes> bytes_{};
};

// The record of the engine file (*.EGN).
class EgnRecord {
 public:
  static constexpr int Record_Bytes = 2024;
  static constexpr std::uint8_t Missing_Byte = 0x20;  // blank groups
  static constexpr int Last_Slot = 100;

  std::int32_t RecordNo() const;
  void RecordNo(std::int32_t value);
  std::string_view EngineSlots(std::int64_t category) const;  // 0 to 100, of 20
  void EngineSlots(std::int64_t category, std::string_view text);

  std::span<const std::uint8_t, Record_Bytes> Bytes() const { return bytes_; }
  std::span<std::uint8_t, Record_Bytes> Bytes() { return bytes_; }

 private:
  std::array<std::uint8_t, Record_Bytes> bytes_{};
};

// A record of the vocabulary file.
class VocRecord {
 public:
  static constexpr int Record_Bytes = 9634;
  static constexpr std::uint8_t Missing_Byte = 0;
  static constexpr int Last_Sample = 1200;

  std::int32_t RecordNo() const;
  void RecordNo(std::int32_t value);
  std::string_view VocabularyName() const;  // 20
  void VocabularyName(std::string_view text);
  double VocabularySamples(std::int64_t index) const;  // 0 to 1200
  void VocabularySamples(std::int64_t index, double value);
  std::int16_t VocabularySampleCount() const;
  void VocabularySampleCount(std::int16_t value);

  std::span<const std::uint8_t, Record_Bytes> Bytes() const { return bytes_; }
  std::span<std::uint8_t, Record_Bytes> Bytes() { return bytes_; }

 private:
  std::array<std::uint8_t, Record_Bytes> bytes_{};
};

}  // namespace quillspeech::datafiles
