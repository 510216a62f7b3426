// Sound drivers keep some memory until the process ends, and are unloaded by then.
#pragma once

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace quillspeech::tests {

// What this thread allocates while one of these lives is not looked for at the end.
class DriverMemory {
 public:
#ifdef __SANITIZE_ADDRESS__
  DriverMemory() { __lsan_disable(); }
  ~DriverMemory() { __lsan_enable(); }
#else
  DriverMemory() = default;
  ~DriverMemory() {}
#endif
  DriverMemory(const DriverMemory&) = delete;
  DriverMemory& operator=(const DriverMemory&) = delete;
};

}  // namespace quillspeech::tests
