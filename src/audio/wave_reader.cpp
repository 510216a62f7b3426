#include "audio/wave_reader.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "base/little_endian.hpp"

namespace quillspeech {

namespace {

constexpr std::uint32_t Wave_Form = Four_Characters("WAVE");
constexpr std::uint32_t Format_Chunk = Four_Characters("fmt ");
constexpr std::uint32_t Data_Chunk = Four_Characters("data");

// What a message box says about the file; null when all is well.
using Complaint = const char*;

// Reads as much of the chunk as the record holds; fields that the chunk lacks are 0. Gives the
// bytes read, -1 on an error.
std::int64_t Read_Format(RiffFile& file, const RiffChunk& chunk, WaveFormat& format) {
  std::array<std::uint8_t, Wave_Format_Bytes> bytes{};
  const std::int64_t wanted = std::min<std::int64_t>(chunk.size, Wave_Format_Bytes);
  const std::int64_t got = file.Read(bytes.data(), wanted);
  if (got < 1) return got;
  const auto field16 = [&](std::size_t offset) {
    return From_Little_Endian<std::uint16_t>(bytes.data() + offset);
  };
  const auto field32 = [&](std::size_t offset) {
    return From_Little_Endian<std::uint32_t>(bytes.data() + offset);
  };
  format = {field16(0), field16(2), field32(4), field32(8), field16(12), field16(14)};
  return got;
}

// Reads the chunk into the store, which then has the chunk's size. Gives the bytes read, -1 on an
// error. A chunk may claim far more than the file has, so the store is not touched all at once.
std::int64_t Read_Samples(RiffFile& file, Checked32 size, DynamicTable<std::uint8_t>& store) {
  constexpr std::int64_t Stretch_Bytes = 1 << 20;
  store.Clear();
  store.Resize(size - 1);
  std::int64_t got = 0;
  while (got < size) {
    const std::int64_t wanted = std::min<std::int64_t>(size - got, Stretch_Bytes);
    const std::int64_t more = file.Read(store.Write_Range(got, got + wanted - 1), wanted);
    if (more < 0) return more;
    got += more;
    if (more < wanted) break;
  }
  return got;
}

Complaint Take_In_Samples(RiffFile& file, const RiffChunk& chunk, Sample& sample) {
  constexpr Complaint Corrupt = " Corrupt wave data";
  if (chunk.size == 0) return Corrupt;
  sample.Wave_Header.data = nullptr;  // a recorder may still hold the store that goes
  const std::int64_t got = Read_Samples(file, chunk.size, sample.Speech_Sample_Bytes);
  if (got < 1) return Corrupt;
  sample.Samples_Per_Capture = got;
  Point_Wave_Header(sample, sample.Speech_Sample_Bytes.Write_Range(0, got - 1), got);
  sample.Wave_Header.flags = 0;
  sample.Wave_Header.loop_count = 0;
  return nullptr;
}

Complaint Take_In(RiffFile& file, const WaveOutput& output, Sample& sample) {
  const auto riff = file.Descend_To_Form(Wave_Form);
  if (!riff) return "Corrupt Wavechunk.";
  const auto format = file.Descend_To_Chunk(Format_Chunk, *riff);
  if (!format) return "Corrupt Fmt chunk";
  if (Read_Format(file, *format, sample.Wave_Format) < 1) return "Corrupt Wave Format Record";
  if (!output.Can_Play(sample.Wave_Format)) return "Corrupt Format";
  if (!file.Ascend(*format)) return "Corrupt fmt chunk";
  const auto data = file.Descend_To_Chunk(Data_Chunk, *riff);
  if (!data) return "Corrupt data chunk";
  return Take_In_Samples(file, *data, sample);
}

}  // namespace

std::int16_t Open_Wave_File(Session& session, const std::string& path) {
  if (Is_Stopped(session)) return False;
  const auto file = session.ports.riff_files.Open(path);
  const Complaint complaint = file ? Take_In(*file, session.ports.wave_output, session.sample)
                                   : "Sorry ! Couldn't open the wav file you specified.";
  if (!complaint) return True;
  Show_Box(session, complaint, "Quillspeech Wave ERROR", BoxIcon::Stop);
  return False;
}

}  // namespace quillspeech
