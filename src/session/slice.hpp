// What the analysis of a slice leaves behind.
#pragma once

#include <cstdint>
#include <memory>

#include "base/checked.hpp"
#include "base/dynamic_table.hpp"
#include "base/spectrum_tables.hpp"

namespace quillspeech {

class AngleTable;
class AngleTables;

struct Slice {
  Checked16 Engine_Category;  // valleys of the last slice: the one output of analysis
  Checked16 Peak_Count;

  Checked32 Span_Start;  // bounds of the slice in the store
  Checked32 Span_End;
  Checked16 Noise_Gate_Limit;
  DynamicTable<std::int16_t> Span_Samples;  // centred samples at their positions in the store

  SpectrumTable Autocorrelation;  // by lag
  SpectrumTable Magnitude;        // by bin
  SpectrumTable Magnitude_dB;
  std::int32_t Curve_Bins_In_Use = 0;  // cells of the curve from 0 on that may hold a value
  SpectrumTable Valley_dB;             // by valley number from 0
  BinTable Valley_Bin;
  SpectrumTable Peak_dB;  // by peak number from 0
  BinTable Peak_Bin;

  // Sines and cosines by level. Sessions of one run may share them.
  std::shared_ptr<AngleTables> angle_tables;
  std::shared_ptr<const AngleTable> angles;  // of the level used last
};

}  // namespace quillspeech
