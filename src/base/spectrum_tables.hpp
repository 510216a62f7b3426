// The tables of the spectral analysis, one cell for each lag, bin, valley or peak.
#pragma once

#include <cstdint>

#include "base/bounded_table.hpp"

namespace quillspeech {

// The greatest level: how many lags and bins a slice may be analysed by.
inline constexpr int Largest_Level = 1200;

using SpectrumTable = BoundedTable<double, Largest_Level>;
using BinTable = BoundedTable<std::int32_t, Largest_Level>;

}  // namespace quillspeech
