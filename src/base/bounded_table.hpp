// A table of fixed bounds, 0 to Upper, whose every index is checked.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/run_time_failure.hpp"

namespace quillspeech {

// The index as an offset into a table of `count` elements, or failure 9.
constexpr std::size_t Checked_Offset(std::int64_t index, std::int64_t count) {
  if (index < 0 || index >= count) Fail(Failure::Subscript_Out_Of_Range);
  return static_cast<std::size_t>(index);
}

template <class T, std::int64_t Upper>
class BoundedTable {
 public:
  static constexpr std::int64_t Count = Upper + 1;

  constexpr T& operator[](std::int64_t index) { return cells_[Checked_Offset(index, Count)]; }
  constexpr const T& operator[](std::int64_t index) const {
    return cells_[Checked_Offset(index, Count)];
  }
  void Fill(const T& value) { cells_.fill(value); }

  // The cells from 0 on, for inner loops that proved their bounds.
  constexpr T* Data() { return cells_.data(); }
  constexpr const T* Data() const { return cells_.data(); }

 private:
  std::array<T, static_cast<std::size_t>(Count)> cells_{};
};

}  // namespace quillspeech
