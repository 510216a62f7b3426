// A simulated sound card, on a virtual clock or a real one: clips are played into its microphone,
// what it plays is noted, and its calls fail on demand.
//
//   headless::EventLoop events;
//   headless::SoundCard card(events);  // goes before the loop does
//   card.Play_Into_Microphone(clip, 22'050, 500ms);
//   card.faults["wave_in_open"] = Wave_Device_In_Use;
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "platform/headless/card_calls.hpp"
#include "platform/headless/simulated_wave_input.hpp"
#include "platform/headless/simulated_wave_output.hpp"
#include "platform/timed_loop.hpp"

namespace quillspeech::headless {

class SoundCard : public CardCalls {
 public:
  explicit SoundCard(TimedLoop& loop) : loop_(loop) {
    loop_.Add_Source(input_);
    loop_.Add_Source(output_);
  }
  ~SoundCard() {
    loop_.Remove_Source(output_);
    loop_.Remove_Source(input_);
  }
  SoundCard(const SoundCard&) = delete;
  SoundCard& operator=(const SoundCard&) = delete;

  WaveInput& Input() { return input_; }
  WaveOutput& Output() { return output_; }

  // The clip is heard from that moment on, which may be past: then only its rest is.
  void Play_Into_Microphone(std::vector<std::uint8_t> mono_8_bit, std::uint32_t rate,
                            EventLoop::Time at) {
    input_.microphone.Play(std::move(mono_8_bit), rate, at);
  }

 private:
  TimedLoop& loop_;
  SimulatedWaveInput input_{loop_, *this};
  SimulatedWaveOutput output_{loop_, *this};

 public:
  std::vector<Played>& played = output_.played;
  bool& keep_played = output_.keep_played;
};

}  // namespace quillspeech::headless
