#include "tests/support/plain_word_scan.hpp"

#include <cmath>
#include <cstdlib>

namespace quillspeech::tests {

namespace {

using Table = PlainWordScan::Table;

std::int64_t& At(Table& table, std::int64_t index) {
  return table.at(static_cast<std::size_t>(index));
}

std::uint8_t& At(std::vector<std::uint8_t>& store, std::int64_t index) {
  return store.at(static_cast<std::size_t>(index));
}

PlainWordScan Empty_Scan(std::int64_t span) {
  const Table zeros(static_cast<std::size_t>(span + 3), 0);
  PlainWordScan scan;
  scan.centred = scan.decimated = scan.reversed = zeros;
  scan.forward_hits = scan.backward_hits = scan.forward_gaps = scan.backward_gaps = zeros;
  scan.starts = scan.ends = scan.word_start = scan.word_end = zeros;
  return scan;
}

void Walk_Backward(PlainWordScan& scan, std::int64_t limit) {
  for (std::int64_t i = 1; i <= scan.grid_count; ++i) {
    At(scan.reversed, i) = At(scan.decimated, scan.grid_count - i);
    if (std::abs(At(scan.reversed, i) - At(scan.reversed, i - 1)) > limit) {
      At(scan.backward_hits, ++scan.backward_hit_count) = i * 25;
    }
  }
}

void Look_For_Gaps(Table& hits, std::int64_t hit_count, std::int64_t threshold, Table& gaps,
                   std::int64_t& gap_count) {
  for (std::int64_t i = 0; i <= hit_count; ++i) {
    if (At(hits, i + 1) - At(hits, i) > threshold) At(gaps, ++gap_count) = i + 1;
  }
}

void Pair(PlainWordScan& scan) {
  for (std::int64_t w = 0; w <= scan.forward_gap_count; ++w) {
    for (std::int64_t j = 0; j <= scan.backward_gap_count; ++j) {
      if (At(scan.starts, w + 1) == 0) {
        At(scan.starts, w + 1) = At(scan.ends, scan.backward_gap_count);
      }
      At(scan.word_start, w) = At(scan.starts, w);
      if (At(scan.starts, w) < At(scan.ends, j) && At(scan.ends, j) < At(scan.starts, w + 1)) {
        At(scan.word_end, w) = At(scan.ends, j);
        break;
      }
      At(scan.word_end, w) = At(scan.starts, w + 1);
    }
  }
}

void Bound(PlainWordScan& scan, std::int64_t span) {
  scan.threshold = std::llrint(static_cast<double>(span) / 10000.0 * 200.0);
  Look_For_Gaps(scan.forward_hits, scan.forward_hit_count, scan.threshold, scan.forward_gaps,
                scan.forward_gap_count);
  Look_For_Gaps(scan.backward_hits, scan.backward_hit_count, scan.threshold, scan.backward_gaps,
                scan.backward_gap_count);
  for (std::int64_t i = 0; i <= scan.forward_gap_count; ++i) {
    At(scan.starts, i) = At(scan.forward_hits, At(scan.forward_gaps, i));
  }
  for (std::int64_t i = 0; i <= scan.backward_gap_count; ++i) {
    At(scan.ends, i) =
        span - At(scan.backward_hits, At(scan.backward_gaps, scan.backward_gap_count - i));
  }
  Pair(scan);
}

}  // namespace

PlainWordScan Plain_Sample_Scan(std::vector<std::uint8_t>& store, std::int64_t last,
                                std::int64_t sensitivity) {
  PlainWordScan scan = Empty_Scan(last);
  std::int64_t k = 1;
  for (std::int64_t i = 25; i <= last; i += 25, ++k) {
    if (At(store, i) == 0) At(store, i) = 128;
    const std::int64_t c = At(store, i) - 128;
    At(scan.centred, i) = At(scan.decimated, k) = c;
    if (std::abs(c - At(scan.centred, i - 1)) > sensitivity) {
      At(scan.forward_hits, ++scan.forward_hit_count) = i;
    }
  }
  scan.grid_count = k;
  Walk_Backward(scan, sensitivity);
  Bound(scan, last);
  return scan;
}

PlainWordScan Plain_Deep_Scan(const std::vector<std::uint8_t>& store, std::int64_t first_byte,
                              std::int64_t last_byte) {
  PlainWordScan scan = Empty_Scan(last_byte - first_byte);
  std::int64_t k = 1;
  for (std::int64_t p = first_byte + 25; p <= last_byte - 1; p += 25, ++k) {
    At(scan.decimated, k) = store.at(static_cast<std::size_t>(p)) - 128;
    if (std::abs(At(scan.decimated, k) - At(scan.decimated, k - 1)) > 30) {
      At(scan.forward_hits, ++scan.forward_hit_count) = p - first_byte;
    }
  }
  scan.grid_count = k;
  Walk_Backward(scan, 20);
  Bound(scan, last_byte - first_byte);
  return scan;
}

}  // namespace quillspeech::tests
