// The word scan as its definition reads, without a thought for speed or bounds.
#pragma once

#include <cstdint>
#include <vector>

namespace quillspeech::tests {

// The tables of a scan. Each has room to spare; what was never set is 0.
struct PlainWordScan {
  using Table = std::vector<std::int64_t>;

  Table centred, decimated, reversed;
  Table forward_hits, backward_hits;
  Table forward_gaps, backward_gaps;
  Table starts, ends;
  Table word_start, word_end;
  std::int64_t forward_hit_count = 0, backward_hit_count = 0;
  std::int64_t forward_gap_count = 0, backward_gap_count = 0;
  std::int64_t threshold = 0;
  std::int64_t grid_count = 0;  // one more than the grid samples taken
};

// The scan of a whole sample: bytes 0 to `last` of the store. Bytes of 0 on the grid become 128.
PlainWordScan Plain_Sample_Scan(std::vector<std::uint8_t>& store, std::int64_t last,
                                std::int64_t sensitivity);

// The scan of a word of a file, by changes above 30 forward and above 20 backward.
PlainWordScan Plain_Deep_Scan(const std::vector<std::uint8_t>& store, std::int64_t first_byte,
                              std::int64_t last_byte);

}  // namespace quillspeech::tests
