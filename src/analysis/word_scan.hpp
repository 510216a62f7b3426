// Finds the words of a stretch of sound by amplitude alone, on a grid of every 25th byte. The pump,
// the finished capture and the three levels of a file share it: first take the grid samples, then
// find the hits, the gaps between them and the words.
#pragma once

#include <cstdint>

#include "base/dynamic_table.hpp"
#include "session/sample.hpp"
#include "session/word_tables.hpp"

namespace quillspeech {

inline constexpr std::int64_t Grid_Step_Bytes = 25;
inline constexpr std::int64_t Silent_Byte = 128;

// What makes a grid sample of the forward pass a hit: its own distance from silence, or its
// distance from the grid sample before it. The backward pass always goes by the change.
enum class ForwardHits { By_Amplitude, By_Change };

// A hit is strictly further away than its limit. Limits have 16 bits, and so have their negatives
// (failure 6).
struct ScanLimits {
  ForwardHits forward_hits = ForwardHits::By_Amplitude;
  std::int64_t forward = 0;
  std::int64_t backward = 0;
};

// Where a level keeps the bounds of its words, by word number from 0.
struct WordBounds {
  DynamicTable<std::int32_t>& start;
  DynamicTable<std::int32_t>& end;
};

// Empties the six tables of a scan.
void Free_Scan_Tables(WordScanTables& scan);

// The same, and sets the counts and Word_Gap_Threshold to 0.
void Clear_Scan(WordScanTables& scan);

// The six tables reach from 0 to `upper`; contents are kept.
void Resize_Scan(WordScanTables& scan, std::int64_t upper);

// Takes the bytes 25, 50, ... up to `last` into Centred_Samples and Decimated_Samples. A byte of 0
// is a cell that the recorder has not reached: it becomes silence, in the store too.
void Take_Sample_Grid(Sample& sample, WordTables& words, std::int64_t last);

// Takes the bytes first + 25, first + 50, ... up to `last` into Decimated_Samples, as they are.
void Take_Word_Grid(const Sample& sample, WordTables& words, std::int64_t first, std::int64_t last);

// Marks the hits of both passes: positions from the start, and from the end, of the stretch.
void Find_Hits(WordTables& words, const ScanLimits& limits);

// Marks the pauses between hits: a gap is strictly longer than Word_Gap_Threshold, set here to 2
// percent of `span` bytes. Failure 6 when a pass has 32,767 hits or more: hits are counted in 16
// bits here, with one to spare.
void Find_Gaps(WordScanTables& scan, std::int64_t span);

// The number of words that the gaps bound: the greater of the two gap counts.
std::int64_t Count_Words(const WordScanTables& scan);

// Turns the gaps of a stretch of `span` bytes into candidate bounds, and pairs these: word w runs
// from its start to the first backward mark before the next start, or else to that start. Entry 0
// is what lies before the first gap. Entries past the forward count keep what they hold.
void Bound_Words(WordScanTables& scan, std::int64_t span, WordBounds words);

}  // namespace quillspeech
