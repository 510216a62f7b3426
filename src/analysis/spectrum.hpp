// The numbers of one slice: autocorrelation, two transforms in a row, the curve in decibels, its
// valleys and peaks. Pure functions: tables in, tables out.
#pragma once

#include <cstdint>

#include "base/angle_table.hpp"
#include "base/spectrum_tables.hpp"

namespace quillspeech {

// How many doubles the inner loops take at a time. Every width gives the same bits.
enum class VectorWidth { Two, Four, Eight };

// The widest that this processor has.
VectorWidth Widest_Vectors() noexcept;

// Stores at each lag from 0 to level the sum of x[j] * x[j + lag], over j from 1 while j is below
// length - 1, divided by the level.
//   centred  x, samples from -128 to 127. The slice's own begin at index 1; cells are read up to
//            index length - 2 + level, and those past the slice count as they stand.
//   length   bytes of the slice; 2 or less has no product, and every lag is 0.
//   level    1 and up.
// Lags are stored as they are found. Failure 6 when a running sum leaves 32 bits, 9 when lag 1201
// comes to be stored.
void Autocorrelate(const std::int16_t* centred, std::int64_t length, int level,
                   SpectrumTable& Autocorrelation, VectorWidth width = Widest_Vectors());

// The curve of the table's level: magnitudes of the second transform at bins 1 to level - 1, and
// the same in decibels where they are greater than 0, else 0. Other cells stay: clear the curve of
// another level first.
//   bins_in_use  becomes the level: cells from there on hold nothing of this curve.
void Compute_Curve(const SpectrumTable& Autocorrelation, const AngleTable& angles,
                   SpectrumTable& Magnitude, SpectrumTable& Magnitude_dB, std::int32_t& bins_in_use,
                   VectorWidth width = Widest_Vectors());

// Sets the curve to 0, as far as it is in use, and bins_in_use with it.
void Clear_Curve(SpectrumTable& Magnitude, SpectrumTable& Magnitude_dB, std::int32_t& bins_in_use);

// Store the value and the bin of each bin from 1 to level - 1 that lies strictly below (a valley)
// or above (a peak) both its neighbours, numbered from 0, and return how many there are. A tie
// with either neighbour is neither. Cells past the last one found stay. The level is 1 to 1200.
int Find_Valleys(const SpectrumTable& Magnitude_dB, int level, SpectrumTable& Valley_dB,
                 BinTable& Valley_Bin);
int Find_Peaks(const SpectrumTable& Magnitude_dB, int level, SpectrumTable& Peak_dB,
               BinTable& Peak_Bin);

// Sets valleys that were found to 0, up to the first cell that holds none.
void Clear_Valleys(SpectrumTable& Valley_dB, BinTable& Valley_Bin);

}  // namespace quillspeech
