// A session that records, and the calls of the card that belong to a recording.
#pragma once

#include "tests/support/live_session.hpp"

namespace quillspeech::tests {

// Records for a second unless a test says otherwise; the microphone hears one steady level.
struct LiveCapture : LiveSession {
  LiveCapture() {
    session.settings.Speech_sampling_time_in_ms = 1000;
    card.Play_Into_Microphone(Level(140, Bytes(60 * 22'050)), 22'050, 0s);
  }
  // What the session's clock does is of no interest.
  LiveCapture& Without_Timers() {
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
      events.On_Tick(timer, [] {});
    }
    return *this;
  }
  std::uint8_t Byte(std::int64_t index) const { return session.sample.Speech_Sample_Bytes[index]; }
};

inline const Calls Set_Up = {"wave_in_get_dev_caps", "wave_in_open", "wave_in_prepare_header",
                             "wave_in_add_buffer", "wave_in_start"};
inline const Calls Taken_Down = {"wave_in_stop", "wave_in_reset", "wave_in_unprepare_header",
                                 "wave_in_close"};

inline Calls operator+(Calls first, const Calls& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace quillspeech::tests
