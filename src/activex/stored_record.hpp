// A control's record in memory, and in a stream. All numbers are little-endian:
//
//   8   "QuillRec"
//   2   version: 1
//   2   how many keys follow
//   for each key, in the order of the record:
//     1   length of its name, from 1
//     n   its name
//     1   type of its value: 1 text, 2 number of 16 bits, 3 number of 32 bits, 4 truth
//     4   (texts) length in bytes
//     n   the value: the bytes of the text in Windows-1252, 2 or 4 bytes, or one byte 0 or 1
//
// A key that is not there has its default.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "activex/com.hpp"
#include "core/persistence.hpp"

namespace quillspeech::activex {

class StoredRecord final : public PropertyBag {
 public:
  MemberValue ReadProperty(std::string_view key, const MemberValue& unless_kept) override;
  void WriteProperty(std::string_view key, const MemberValue& value,
                     const MemberValue& unless_kept) override;

  // Where the stream stands, and not beyond the record. A record that is damaged or cut short is
  // STG_E_DOCFILECORRUPT, one of another kind STG_E_INVALIDHEADER, one of a later version
  // STG_E_OLDDLL; an error of the stream goes out as it is. This record is what was read only when
  // all was well. Memory grows with the bytes that are there, whatever lengths are told.
  HRESULT Read_From(IStream& stream);
  // A stream that takes less than it is given is STG_E_MEDIUMFULL.
  HRESULT Write_To(IStream& stream) const;

  std::string Bytes() const;

  bool operator==(const StoredRecord& other) const { return values_ == other.values_; }

 private:
  using Values = std::map<std::string, MemberValue, std::less<>>;

  Values values_;
};

}  // namespace quillspeech::activex
