// The sines and cosines that the two transforms of one level need, each computed once.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

#include "base/spectrum_tables.hpp"

namespace quillspeech {

// Radians, with 6.284 for the full circle: the value itself and not a nearer 2 pi. The products
// and the quotient are taken in this order, each rounded to a double.
constexpr double Transform_Angle(int bin, int term, int level) {
  return (((bin - 1) * 6.284) * (term - 1)) / level;
}

// Bins run from 1 to level - 1, terms from 1 to level. The bins stand in panels of 32; a panel has
// a row for each term, so that whoever works on a panel reads its rows from end to end. Beyond the
// last bin a row holds 0.
class AngleTable {
 public:
  static constexpr int Bins_In_Panel = 32;

  struct alignas(64) Row {
    std::array<double, Bins_In_Panel> cosine;
    std::array<double, Bins_In_Panel> sine;
  };

  // Failure 9 when the level is not in 1 to 1200. Level 1 has no bin and no panel.
  explicit AngleTable(int level);

  int Level() const { return level_; }
  std::size_t Bytes() const { return rows_.size() * sizeof(Row); }
  int Panels() const { return (level_ - 1 + Bins_In_Panel - 1) / Bins_In_Panel; }

  // The rows of terms 1 to level: bins 32 * panel + 1 and up. Panels count from 0; unchecked.
  const Row* Panel(int panel) const {
    return rows_.data() + static_cast<std::size_t>(panel) * static_cast<std::size_t>(level_);
  }

 private:
  int level_;
  std::vector<Row> rows_;
};

// Hands out tables by level and keeps those asked for last: up to four, and 32 MB of them. Level
// 128 takes 262 KB, level 1200 takes 23 MB, so that one large table is kept and small ones beside
// it. Any number of threads may share one.
class AngleTables {
 public:
  static constexpr std::size_t Most_Bytes_Kept = 32'000'000;

  // Failure 9 when the level is not in 1 to 1200. A table lives as long as somebody holds it.
  std::shared_ptr<const AngleTable> For_Level(int level);

 private:
  void Let_Go_Of_Older_Ones();

  std::mutex mutex_;
  std::array<std::shared_ptr<const AngleTable>, 4> latest_first_;
};

}  // namespace quillspeech
