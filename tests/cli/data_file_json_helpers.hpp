// Data files there and back again as JSON.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "cli/data_file_json.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::cli {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;
using Bytes = std::vector<std::uint8_t>;

inline constexpr DataFileKind Kinds[] = {DataFileKind::Language, DataFileKind::Engine,
                                         DataFileKind::Vocabulary};

inline std::string Dump(DataFileKind kind, const Bytes& bytes) {
  std::ostringstream out;
  Data_File_To_Json(kind, bytes, out);
  return out.str();
}

inline nlohmann::json Parsed_Dump(DataFileKind kind, const Bytes& bytes) {
  return nlohmann::json::parse(Dump(kind, bytes));
}

template <class Record>
Bytes File_Of(const Record& record) {
  return {record.Bytes().begin(), record.Bytes().end()};
}

// A record with blank texts in front, as the editor leaves a new one.
inline SayRecord New_Record() {
  SayRecord record;
  record.RecordNo(1);
  record.FileCopyright("");
  record.FileDescription("");
  record.WordFont("");
  return record;
}

template <class Record>
Record Built(const std::string& json, std::size_t position = 1) {
  const Bytes file = Data_File_From_Json(json);
  Record record;
  EXPECT_GE(file.size(), position * Record::Record_Bytes);
  if (file.size() < position * Record::Record_Bytes) return record;
  std::copy_n(file.begin() + static_cast<std::ptrdiff_t>((position - 1) * Record::Record_Bytes),
              Record::Record_Bytes, record.Bytes().begin());
  return record;
}

inline SayRecord Built_Language(const std::string& record) {
  return Built<SayRecord>(R"({"kind":"language","records":[)" + record + "]}");
}

// The message with which the JSON is refused.
inline std::string Refusal(const std::string& json) {
  try {
    Data_File_From_Json(json);
  } catch (const BadJson& error) {
    return error.what();
  }
  return "accepted";
}
inline std::string Refusal_Of_Record(const std::string& record,
                                     const std::string& kind = "language") {
  return Refusal(R"({"kind":")" + kind + R"(","records":[)" + record + "]}");
}

inline Bytes Random_Bytes(std::size_t length, std::uint32_t seed) {
  std::mt19937 random(seed);
  Bytes bytes(length);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

inline void Expect_Round_Trip(DataFileKind kind, const Bytes& bytes) {
  const std::string json = Dump(kind, bytes);
  EXPECT_TRUE(Data_File_From_Json(json) == bytes)
      << Kind_Name(kind) << " of " << bytes.size() << " bytes";
}

}  // namespace quillspeech::cli
