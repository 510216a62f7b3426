// A table from 0 to a bound that procedures move while they run.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <type_traits>
#include <utility>

#include "base/bounded_table.hpp"
#include "base/run_time_failure.hpp"

namespace quillspeech {

// Growing keeps the contents and shows 0 above them; shrinking forgets what lies beyond the bound.
// The table remembers which stretch of it was written, so that clearing and growing touch no other
// memory: these tables are resized for every slice.
template <class T>
requires std::is_trivially_copyable_v<T>
class DynamicTable {
 public:
  // Indices 0 to upper, contents kept. Failure 9 when upper is negative, 7 when memory runs out or
  // the machine cannot address so much; the table stays as it was then. Grows to just this size: a
  // table that grows by one at a time is moved every time.
  void Resize(std::int64_t upper) {
    if (upper < 0) Fail(Failure::Subscript_Out_Of_Range);
    if (upper >= Most_Elements) Fail(Failure::Out_Of_Memory);
    const std::int64_t count = upper + 1;
    if (count > capacity_) {
      Move_To(count);
    } else {
      Forget_From(count);
    }
    count_ = count;
  }

  // No element at all, until the next Resize.
  void Clear() {
    Forget_From(0);
    count_ = 0;
  }

  std::int64_t Count() const { return count_; }

  T operator[](std::int64_t index) const { return cells_.get()[Checked_Offset(index, count_)]; }

  void Put(std::int64_t index, T value) {
    const std::size_t offset = Checked_Offset(index, count_);
    Mark(index, index + 1);
    cells_.get()[offset] = value;
  }

  // The elements first to last, bounds checked here once (failure 9); first - 1 = last is empty.
  const T* Read_Range(std::int64_t first, std::int64_t last) const {
    Check_Range(first, last);
    return cells_.get() + first;
  }
  // The same for writing: the caller may write any of them.
  T* Write_Range(std::int64_t first, std::int64_t last) {
    Check_Range(first, last);
    if (first <= last) Mark(first, last + 1);
    return cells_.get() + first;
  }

 private:
  static constexpr std::int64_t Most_Elements =
      std::numeric_limits<std::ptrdiff_t>::max() / static_cast<std::ptrdiff_t>(sizeof(T));

  struct Free {
    void operator()(T* cells) const { std::free(cells); }
  };

  void Check_Range(std::int64_t first, std::int64_t last) const {
    if (first < 0 || last >= count_ || last < first - 1) Fail(Failure::Subscript_Out_Of_Range);
  }

  void Mark(std::int64_t from, std::int64_t to) {
    if (written_from_ == written_to_) {
      written_from_ = from;
      written_to_ = to;
    } else {
      written_from_ = std::min(written_from_, from);
      written_to_ = std::max(written_to_, to);
    }
  }

  void Forget_From(std::int64_t index) {
    if (index >= written_to_) return;
    const std::int64_t from = std::max(index, written_from_);
    std::memset(cells_.get() + from, 0, static_cast<std::size_t>(written_to_ - from) * sizeof(T));
    written_to_ = from;
    if (written_from_ >= written_to_) written_from_ = written_to_ = 0;
  }

  void Move_To(std::int64_t count) {
    std::unique_ptr<T, Free> larger(
        static_cast<T*>(std::calloc(static_cast<std::size_t>(count), sizeof(T))));
    if (!larger) Fail(Failure::Out_Of_Memory);
    if (written_from_ < written_to_) {
      std::memcpy(larger.get() + written_from_, cells_.get() + written_from_,
                  static_cast<std::size_t>(written_to_ - written_from_) * sizeof(T));
    }
    cells_ = std::move(larger);
    capacity_ = count;
  }

  std::unique_ptr<T, Free> cells_;
  std::int64_t count_ = 0;
  std::int64_t capacity_ = 0;
  std::int64_t written_from_ = 0;  // cells outside [written_from_, written_to_) hold 0
  std::int64_t written_to_ = 0;
};

}  // namespace quillspeech
