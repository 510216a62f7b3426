// Waiting for what another program gives up soon, or never.
#pragma once

#include <chrono>
#include <thread>

namespace quillspeech {

// Makes the attempt until it succeeds, with that pause between two of them, and once at the end of
// the limit at the latest: no limit is one attempt. Tells whether it has succeeded.
template <class Attempt>
bool Try_For(std::chrono::milliseconds limit, std::chrono::microseconds pause, Attempt attempt) {
  if (attempt()) return true;
  const auto end = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(pause);
    if (attempt()) return true;
  }
  return false;
}

}  // namespace quillspeech
