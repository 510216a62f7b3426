// Waiting for what another program gives up soon, or never.
#pragma once

#include <chrono>
#include <thread>

namespace quillspeech {

// Makes the attempt until it succeeds, and tells whether it has. The limit counts from the end of
// the first attempt. As long as it has not passed, a whole pause and another attempt follow:
// without a success the last attempt ends after the limit, by no more than a pause and its own
// time. A limit of 0 or less is one attempt.
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
