#include "activex/stored_record.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace quillspeech::activex {
namespace {

constexpr std::string_view Magic = "QuillRec";
constexpr std::uint32_t Version = 1;
constexpr std::size_t Longest_Name = 255;  // its length is one byte
constexpr std::size_t Piece_Bytes = 0x10000;

enum class ValueType : std::uint8_t { Text = 1, Number16, Number32, Truth };

// What a stream gives, until it fails for the first time.
class RecordReader {
 public:
  explicit RecordReader(IStream& stream) : stream_(stream) {}

  HRESULT Result() const { return result_; }
  void Refuse(HRESULT why) {
    if (SUCCEEDED(result_)) result_ = why;
  }

  std::string Bytes(std::size_t count) {
    std::string bytes;
    while (SUCCEEDED(result_) && bytes.size() < count) {
      const std::size_t have = bytes.size();
      const std::size_t wanted = std::min(count - have, Piece_Bytes);
      bytes.resize(have + wanted);
      ULONG got = 0;
      const HRESULT read = stream_.Read(bytes.data() + have, static_cast<ULONG>(wanted), &got);
      if (FAILED(read)) {
        Refuse(read);
      } else if (got != wanted) {
        Refuse(STG_E_DOCFILECORRUPT);
      }
    }
    return bytes;
  }

  // 0 once the stream has failed.
  std::uint32_t Number(std::size_t width) {
    const std::string bytes = Bytes(width);
    std::uint32_t number = 0;
    for (std::size_t i = 0; SUCCEEDED(result_) && i < width; ++i) {
      number |= std::uint32_t{static_cast<std::uint8_t>(bytes[i])} << (8 * i);
    }
    return number;
  }

  MemberValue Value() {
    switch (static_cast<ValueType>(Number(1))) {
      case ValueType::Text:
        return Bytes(Number(4));
      case ValueType::Number16:
        return static_cast<std::int16_t>(Number(2));
      case ValueType::Number32:
        return static_cast<std::int32_t>(Number(4));
      case ValueType::Truth:
        return Truth();
    }
    Refuse(STG_E_DOCFILECORRUPT);
    return {};
  }

 private:
  bool Truth() {
    const std::uint32_t truth = Number(1);
    if (truth > 1) Refuse(STG_E_DOCFILECORRUPT);
    return truth != 0;
  }

  IStream& stream_;
  HRESULT result_ = S_OK;
};

void Check_Head(RecordReader& reader) {
  if (reader.Bytes(Magic.size()) != Magic) reader.Refuse(STG_E_INVALIDHEADER);
  if (reader.Number(2) != Version) reader.Refuse(STG_E_OLDDLL);
}

void Append_Number(std::string& bytes, std::uint32_t number, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) bytes += static_cast<char>(number >> (8 * i));
}

struct AppendValue {
  std::string& bytes;

  void operator()(std::monostate) const { (*this)(std::string()); }
  void operator()(const std::string& text) const {
    Begin(ValueType::Text);
    Append_Number(bytes, static_cast<std::uint32_t>(text.size()), 4);
    bytes += text;
  }
  void operator()(std::int16_t number) const {
    Begin(ValueType::Number16);
    Append_Number(bytes, static_cast<std::uint16_t>(number), 2);
  }
  void operator()(std::int32_t number) const {
    Begin(ValueType::Number32);
    Append_Number(bytes, static_cast<std::uint32_t>(number), 4);
  }
  void operator()(bool truth) const {
    Begin(ValueType::Truth);
    Append_Number(bytes, truth ? 1 : 0, 1);
  }
  void Begin(ValueType type) const { bytes += static_cast<char>(type); }
};

}  // namespace

MemberValue StoredRecord::ReadProperty(std::string_view key, const MemberValue& unless_kept) {
  const auto kept = values_.find(key);
  return kept == values_.end() ? unless_kept : kept->second;
}

void StoredRecord::WriteProperty(std::string_view key, const MemberValue& value,
                                 const MemberValue& unless_kept) {
  if (value != unless_kept && key.size() <= Longest_Name) values_[std::string(key)] = value;
}

HRESULT StoredRecord::Read_From(IStream& stream) {
  RecordReader reader(stream);
  Check_Head(reader);
  Values values;
  for (std::uint32_t left = reader.Number(2); left > 0 && SUCCEEDED(reader.Result()); --left) {
    std::string name = reader.Bytes(reader.Number(1));
    const bool is_new = values.emplace(std::move(name), reader.Value()).second;
    if (!is_new || values.contains("")) reader.Refuse(STG_E_DOCFILECORRUPT);
  }
  if (SUCCEEDED(reader.Result())) values_ = std::move(values);
  return reader.Result();
}

std::string StoredRecord::Bytes() const {
  std::string bytes(Magic);
  Append_Number(bytes, Version, 2);
  Append_Number(bytes, static_cast<std::uint32_t>(values_.size()), 2);
  for (const RecordKey& row : Record_Keys()) {
    const auto kept = values_.find(row.key);
    if (kept == values_.end()) continue;
    Append_Number(bytes, static_cast<std::uint32_t>(row.key.size()), 1);
    bytes += row.key;
    std::visit(AppendValue{bytes}, kept->second);
  }
  return bytes;
}

HRESULT StoredRecord::Write_To(IStream& stream) const {
  const std::string bytes = Bytes();
  ULONG written = 0;
  const HRESULT result = stream.Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written);
  if (FAILED(result)) return result;
  return written == bytes.size() ? S_OK : STG_E_MEDIUMFULL;
}

}  // namespace quillspeech::activex
