// Sine and cosine that come out alike, bit for bit, in every build.
#pragma once

namespace quillspeech {

struct SineAndCosine {
  double sine;
  double cosine;
};

// Of an angle in radians, |angle| <= 20,000. Each is within 0.502 units of its last place. Nothing
// but additions and multiplications of doubles is used, in one fixed order.
SineAndCosine Sine_And_Cosine(double angle) noexcept;

}  // namespace quillspeech
