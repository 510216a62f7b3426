#include "base/rounding.hpp"

#include <cmath>

namespace quillspeech {

namespace {

std::int64_t Rounded(double value) {
  const double rounded = Round(value);
  if (!(rounded > -1e15 && rounded < 1e15)) Fail(Failure::Overflow);
  return static_cast<std::int64_t>(rounded);
}

}  // namespace

double Round(double value) {
  const double floor = std::floor(value);
  const double above = value - floor;
  if (above > 0.5) return floor + 1;
  if (above < 0.5) return floor;
  return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1;
}

Checked16 Round_To_16(double value) { return Rounded(value); }

Checked32 Round_To_32(double value) { return Rounded(value); }

Checked32 Rounded_Quotient(std::int64_t dividend, std::int64_t divisor) {
  return Round_To_32(static_cast<double>(dividend) / static_cast<double>(divisor));
}

}  // namespace quillspeech
