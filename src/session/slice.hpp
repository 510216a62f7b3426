// What the analysis of a slice leaves behind.
#pragma once

#include <cstdint>
#include <memory>

#include "base/bounded_table.hpp"
#include "base/checked.hpp"
#include "base/dynamic_table.hpp"

namespace quillspeech {

class AngleTables;

struct Slice {
  Checked16 Engine_Category;  // valleys of the last slice: the one output of analysis
  Checked16 Peak_Count;

  Checked32 Span_Start;  // bounds of the slice in the store
  Checked32 Span_End;
  Checked16 Noise_Gate_Limit;
  DynamicTable<std::int16_t> Span_Samples;  // centred samples at their positions in the store

  BoundedTable<double, 1200> Autocorrelation;  // by lag
  BoundedTable<double, 1200> Magnitude;        // by bin
  BoundedTable<double, 1200> Magnitude_dB;
  std::int32_t Curve_Bins_In_Use = 0;    // cells of the curve from 0 on that may hold a value
  BoundedTable<double, 1200> Valley_dB;  // by valley number from 0
  BoundedTable<std::int32_t, 1200> Valley_Bin;
  BoundedTable<double, 1200> Peak_dB;  // by peak number from 0
  BoundedTable<std::int32_t, 1200> Peak_Bin;

  // Sines and cosines by level. Sessions of one run may share them.
  std::shared_ptr<AngleTables> angle_tables;
};

}  // namespace quillspeech
