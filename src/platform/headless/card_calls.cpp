#include "platform/headless/card_calls.hpp"

namespace quillspeech::headless {

std::optional<WaveResult> CardCalls::Call(const std::string& name) {
  if (keep_calls) calls.push_back(name);
  const auto fault = faults.find(name);
  if (fault == faults.end()) return std::nullopt;
  return fault->second;
}

}  // namespace quillspeech::headless
