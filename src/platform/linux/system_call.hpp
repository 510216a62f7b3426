// System calls that signals interrupt.
#pragma once

#include <cerrno>

namespace quillspeech::linux {

// Makes the call again as long as a signal interrupts it; gives its result, and errno with it.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace quillspeech::linux
