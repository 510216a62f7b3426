// The text arrays of a language record, for what is done alike to an element of any of them.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/text.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::datafiles {

struct TextArray {
  std::string_view (SayRecord::*read)(std::int64_t) const;
  void (SayRecord::*write)(std::int64_t, std::string_view);
};
inline constexpr TextArray Words{&SayRecord::Words, &SayRecord::Words};
inline constexpr TextArray Protocols{&SayRecord::LikeProtocols, &SayRecord::LikeProtocols};
inline constexpr TextArray Codes{&SayRecord::EngineCodes, &SayRecord::EngineCodes};

// The element's text in the record, without the blanks around it.
inline std::string_view Element(const SayRecord& record, const TextArray& array,
                                std::int64_t index) {
  return Trim((record.*array.read)(index));
}

// Whether one of the first elements is that text, letter for letter.
inline bool Has_Element(const SayRecord& record, const TextArray& array, std::int64_t elements,
                        std::string_view wanted) {
  for (std::int64_t i = 1; i <= elements; ++i) {
    if (Element(record, array, i) == wanted) return true;
  }
  return false;
}

// Moves the element's text to the left end of its field and gives it. Most have it there.
inline std::string_view Align(SayRecord& record, const TextArray& array, std::int64_t index) {
  const std::string_view field = (record.*array.read)(index);
  if (field.front() == ' ') (record.*array.write)(index, Trim(field));
  return Element(record, array, index);
}

}  // namespace quillspeech::datafiles
