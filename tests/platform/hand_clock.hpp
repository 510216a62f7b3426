// A loop whose clock the test moves by hand.
#pragma once

#include <optional>

#include "platform/timed_loop.hpp"

namespace quillspeech::tests {

// Time goes by while nothing yields.
class HandClock final : public TimedLoop {
 public:
  Time Now() const override { return now; }
  Time now{0};
  Time oversleeps{0};  // each time it sleeps

 private:
  void Sleep_Until(std::optional<Time> moment) override { now = moment.value() + oversleeps; }
};

}  // namespace quillspeech::tests
