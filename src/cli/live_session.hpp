// A session that hears: on the clock and the devices that the command line asks for, or on
// simulated ones.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/backend.hpp"
#include "platform/headless/dialogs.hpp"
#include "platform/headless/event_loop.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_card.hpp"
#include "platform/message_boxes.hpp"
#include "platform/sound_cues.hpp"
#include "session/session.hpp"

namespace quillspeech::cli {

enum class ClockKind { Real, Virtual };

// A WAV file that the simulated microphone hears from that moment on; without one, three seconds
// after the end of the clip before it, the first after half a second.
struct MicrophoneClip {
  std::string file;
  std::optional<std::chrono::milliseconds> at;
};

struct LiveOptions {
  ClockKind clock = ClockKind::Real;
  std::vector<MicrophoneClip> microphone;  // any, or a virtual clock: a simulated sound card
  std::string device;                      // of the real ones; empty: the default input
};

// Puts the clip into the microphone at that moment of the loop's time; gives the moment at which it
// ends. Throws FileError when the file cannot be read or is no PCM sound.
EventLoop::Time Play_Into_Microphone(headless::SoundCard& card, const std::string& file,
                                     EventLoop::Time moment);

// Large: keep it on the heap.
class LiveSession {
 public:
  // The boxes and dialogs outlive it. Throws FileError as above.
  LiveSession(const LiveOptions& options, MessageBoxes& boxes, Dialogs& dialogs);
  LiveSession(const LiveOptions& options, MessageBoxes& boxes);  // all dialogs are cancelled
  ~LiveSession();
  LiveSession(const LiveSession&) = delete;
  LiveSession& operator=(const LiveSession&) = delete;

  TimedLoop& Events() const { return *events_; }
  // Each is null where the other kind of clock, or a real device, is in use.
  headless::EventLoop* Virtual_Clock() const { return virtual_clock_; }
  backend::EventLoop* Real_Clock() const { return real_clock_; }
  headless::SoundCard* Card() const { return card_.get(); }
  // When the last clip of the options has been heard.
  EventLoop::Time Clips_End() const { return clips_end_; }
  // Whichever is in use.
  WaveInput& Input() const { return card_ ? card_->Input() : *wave_input_; }
  WaveOutput& Output() const { return card_ ? card_->Output() : *wave_output_; }
  bool Is_Cue_Sounding() const;  // on a real device

  headless::HostProgram host;
  headless::Shell shell;
  headless::FormViews views;
  // Told of each cue when set: the name and the flags 1, 9 or, without a name, 64.
  std::function<void(const std::string& name, int flags)> At_Cue;
  // Told, when set, of each sound that the output device has taken.
  std::function<void(std::int64_t bytes)> At_Write;

 private:
  class Cues;

  std::unique_ptr<TimedLoop> events_;
  headless::EventLoop* virtual_clock_ = nullptr;
  backend::EventLoop* real_clock_ = nullptr;
  std::unique_ptr<headless::SoundCard> card_;
  EventLoop::Time clips_end_{0};
  std::unique_ptr<WaveInput> wave_input_;  // of a real device, like the two below
  std::unique_ptr<WaveOutput> wave_output_;
  std::unique_ptr<WaveOutput> telling_output_;  // in front of the output in use
  std::unique_ptr<Cues> cues_;
  backend::RiffFiles riff_files_;
  backend::DataFileStore data_files_;
  headless::Dialogs no_dialogs_;

  void Make_Clock(ClockKind kind);
  void Make_Devices(const LiveOptions& options);
  void Play_Clips(const std::vector<MicrophoneClip>& clips);
  Ports All_Ports(MessageBoxes& boxes, Dialogs& dialogs);

 public:
  std::unique_ptr<Session> session;
};

}  // namespace quillspeech::cli
