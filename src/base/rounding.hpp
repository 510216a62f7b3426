// Real to whole number: to the nearest, a half to the even neighbour.
#pragma once

#include <cstdint>

#include "base/checked.hpp"

namespace quillspeech {

double Round(double value);

// Rounded and stored in that width; failure 6 when it does not fit or is no number.
Checked16 Round_To_16(double value);
Checked32 Round_To_32(double value);

// dividend / divisor as 64-bit reals, rounded to 32 bits. The divisor is not 0.
Checked32 Rounded_Quotient(std::int64_t dividend, std::int64_t divisor);

}  // namespace quillspeech
