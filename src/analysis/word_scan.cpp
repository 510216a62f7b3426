#include "analysis/word_scan.hpp"

#include <algorithm>

#include "base/rounding.hpp"

namespace quillspeech {

void Free_Scan_Tables(WordScanTables& scan) {
  scan.Forward_Hits.Clear();
  scan.Backward_Hits.Clear();
  scan.Forward_Gap_Index.Clear();
  scan.Backward_Gap_Index.Clear();
  scan.Forward_Word_Starts.Clear();
  scan.Backward_Word_Ends.Clear();
}

void Clear_Scan(WordScanTables& scan) {
  Free_Scan_Tables(scan);
  scan.Forward_Hit_Count = scan.Backward_Hit_Count = 0;
  scan.Forward_Word_Count = scan.Backward_Word_Count = 0;
  scan.Word_Gap_Threshold = 0;
}

void Resize_Scan(WordScanTables& scan, std::int64_t upper) {
  scan.Forward_Hits.Resize(upper);
  scan.Backward_Hits.Resize(upper);
  scan.Forward_Gap_Index.Resize(upper);
  scan.Backward_Gap_Index.Resize(upper);
  scan.Forward_Word_Starts.Resize(upper);
  scan.Backward_Word_Ends.Resize(upper);
}

namespace {

std::int16_t Centred(std::uint8_t byte) { return static_cast<std::int16_t>(byte - Silent_Byte); }

}  // namespace

void Take_Sample_Grid(Sample& sample, WordTables& words, std::int64_t last) {
  const std::int64_t taken = std::max<std::int64_t>(last, 0) / Grid_Step_Bytes;
  const std::int64_t end = taken * Grid_Step_Bytes;
  words.Decimated_Count = taken + 1;
  if (taken == 0) return;
  std::uint8_t* bytes = sample.Speech_Sample_Bytes.Write_Range(Grid_Step_Bytes, end);
  std::int16_t* centred = words.Centred_Samples.Write_Range(Grid_Step_Bytes, end);
  std::int16_t* grid = words.Decimated_Samples.Write_Range(1, taken);
  for (std::int64_t k = 0; k < taken; ++k) {
    std::uint8_t& byte = bytes[k * Grid_Step_Bytes];
    if (byte == 0) byte = Silent_Byte;
    centred[k * Grid_Step_Bytes] = grid[k] = Centred(byte);
  }
}

void Take_Word_Grid(const Sample& sample, WordTables& words, std::int64_t first,
                    std::int64_t last) {
  const std::int64_t taken = std::max<std::int64_t>(last - first, 0) / Grid_Step_Bytes;
  words.Decimated_Count = taken + 1;
  if (taken == 0) return;
  const std::uint8_t* bytes = sample.Speech_Sample_Bytes.Read_Range(
      first + Grid_Step_Bytes, first + taken * Grid_Step_Bytes);
  std::int16_t* grid = words.Decimated_Samples.Write_Range(1, taken);
  for (std::int64_t k = 0; k < taken; ++k) grid[k] = Centred(bytes[k * Grid_Step_Bytes]);
}

namespace {

void Find_Forward_Hits(WordTables& words, const ScanLimits& limits) {
  const bool by_change = limits.forward_hits == ForwardHits::By_Change;
  const Checked16 below = -limits.forward;
  const std::int64_t last = words.Decimated_Count - 1;
  const std::int16_t* grid = words.Decimated_Samples.Read_Range(0, last);
  std::int64_t hits = words.scan.Forward_Hit_Count;
  for (std::int64_t k = 1; k <= last; ++k) {
    const std::int64_t distance = by_change ? grid[k] - grid[k - 1] : grid[k];
    if (distance > limits.forward || distance < below) {
      words.scan.Forward_Hits.Put(++hits, static_cast<std::int32_t>(k * Grid_Step_Bytes));
    }
  }
  words.scan.Forward_Hit_Count = hits;
}

void Find_Backward_Hits(WordTables& words, std::int64_t limit) {
  const Checked16 below = -limit;
  const std::int64_t count = words.Decimated_Count;
  const std::int16_t* grid = words.Decimated_Samples.Read_Range(0, count - 1);
  std::int16_t* reversed = words.Reversed_Decimated_Samples.Write_Range(0, count);
  std::int64_t hits = words.scan.Backward_Hit_Count;
  for (std::int64_t k = 1; k <= count; ++k) {
    reversed[k] = grid[count - k];
    const std::int64_t change = reversed[k] - reversed[k - 1];
    if (change > limit || change < below) {
      words.scan.Backward_Hits.Put(++hits, static_cast<std::int32_t>(k * Grid_Step_Bytes));
    }
  }
  words.scan.Backward_Hit_Count = hits;
}

struct Gaps {
  Checked32& count;
  DynamicTable<std::int16_t>& index;  // of the hit behind each gap
};

void Find_Gaps_Between(const DynamicTable<std::int32_t>& hits, std::int64_t hit_count,
                       std::int64_t threshold, Gaps gaps) {
  const Checked16 last = hit_count;
  for (std::int64_t i = 0; i <= last; ++i) {
    const Checked16 behind = i + 1;
    if (hits[behind] - hits[i] > threshold) gaps.index.Put(++gaps.count, behind.Raw());
  }
}

}  // namespace

void Find_Hits(WordTables& words, const ScanLimits& limits) {
  Find_Forward_Hits(words, limits);
  Find_Backward_Hits(words, limits.backward);
}

void Find_Gaps(WordScanTables& scan, std::int64_t span) {
  scan.Word_Gap_Threshold = Round_To_32(static_cast<double>(span) / 10000.0 * 200.0);
  Find_Gaps_Between(scan.Forward_Hits, scan.Forward_Hit_Count, scan.Word_Gap_Threshold,
                    {scan.Forward_Word_Count, scan.Forward_Gap_Index});
  Find_Gaps_Between(scan.Backward_Hits, scan.Backward_Hit_Count, scan.Word_Gap_Threshold,
                    {scan.Backward_Word_Count, scan.Backward_Gap_Index});
}

std::int64_t Count_Words(const WordScanTables& scan) {
  return std::max<std::int64_t>(scan.Forward_Word_Count, scan.Backward_Word_Count);
}

namespace {

void Bound_Candidates(WordScanTables& scan, std::int64_t span) {
  for (std::int64_t i = 0; i <= scan.Forward_Word_Count; ++i) {
    scan.Forward_Word_Starts.Put(i, scan.Forward_Hits[scan.Forward_Gap_Index[i]]);
  }
  const std::int64_t last = scan.Backward_Word_Count;
  for (std::int64_t i = 0; i <= last; ++i) {
    const Checked32 end = span - scan.Backward_Hits[scan.Backward_Gap_Index[last - i]];
    scan.Backward_Word_Ends.Put(i, end.Raw());
  }
}

// The first backward mark strictly inside, or else the next word's start.
std::int32_t Word_End_Within(const WordScanTables& scan, std::int32_t start, std::int32_t next) {
  for (std::int64_t j = 0; j <= scan.Backward_Word_Count; ++j) {
    const std::int32_t end = scan.Backward_Word_Ends[j];
    if (end > start && end < next) return end;
  }
  return next;
}

}  // namespace

void Bound_Words(WordScanTables& scan, std::int64_t span, WordBounds words) {
  Bound_Candidates(scan, span);
  DynamicTable<std::int32_t>& starts = scan.Forward_Word_Starts;
  for (std::int64_t w = 0; w <= scan.Forward_Word_Count; ++w) {
    if (starts[w + 1] == 0) starts.Put(w + 1, scan.Backward_Word_Ends[scan.Backward_Word_Count]);
    words.start.Put(w, starts[w]);
    words.end.Put(w, Word_End_Within(scan, starts[w], starts[w + 1]));
  }
}

}  // namespace quillspeech
