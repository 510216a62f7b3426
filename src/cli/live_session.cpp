#include "cli/live_session.hpp"

#include <algorithm>
#include <utility>

#include "cli/files.hpp"
#include "cli/live_devices.hpp"
#include "cli/telling_output.hpp"
#include "platform/pcm.hpp"

namespace quillspeech::cli {

// Cues that are told of before they sound, on a device or nowhere.
class LiveSession::Cues final : public SoundCues {
 public:
  Cues(const LiveSession& session, std::unique_ptr<backend::SoundCues> device)
      : session_(session), device_(std::move(device)) {}

  void Play(const std::string& name, CueMode mode) override {
    Tell(name, mode == CueMode::Loop ? 9 : 1);
    if (device_) device_->Play(name, mode);
  }
  void Purge() override {
    Tell({}, 64);
    if (device_) device_->Purge();
  }
  bool Are_Sounding() const { return device_ && device_->Is_Sounding(); }

 private:
  void Tell(const std::string& name, int flags) const {
    if (session_.At_Cue) session_.At_Cue(name, flags);
  }

  const LiveSession& session_;
  std::unique_ptr<backend::SoundCues> device_;
};

EventLoop::Time Play_Into_Microphone(headless::SoundCard& card, const std::string& file,
                                     EventLoop::Time moment) {
  constexpr std::size_t Microseconds_A_Second = 1'000'000;
  auto sound = Mono_From_Wave(Read_Whole_File(file));
  if (!sound) throw FileError(file, "no WAV file of PCM sound");
  const EventLoop::Time lasts(sound->bytes.size() * Microseconds_A_Second / sound->rate);
  card.Play_Into_Microphone(std::move(sound->bytes), sound->rate, moment);
  return moment + lasts;
}

LiveSession::LiveSession(const LiveOptions& options, MessageBoxes& boxes, Dialogs& dialogs) {
  Make_Clock(options.clock);
  Make_Devices(options);
  session = std::make_unique<Session>(All_Ports(boxes, dialogs));
}

LiveSession::LiveSession(const LiveOptions& options, MessageBoxes& boxes)
    : LiveSession(options, boxes, no_dialogs_) {}

LiveSession::~LiveSession() = default;

bool LiveSession::Is_Cue_Sounding() const { return cues_->Are_Sounding(); }

void LiveSession::Make_Clock(ClockKind kind) {
  if (kind == ClockKind::Virtual) {
    auto clock = std::make_unique<headless::EventLoop>();
    virtual_clock_ = clock.get();
    events_ = std::move(clock);
  } else {
    auto clock = std::make_unique<backend::EventLoop>();
    real_clock_ = clock.get();
    events_ = std::move(clock);
  }
}

void LiveSession::Make_Devices(const LiveOptions& options) {
  if (options.clock == ClockKind::Virtual || !options.microphone.empty()) {
    card_ = std::make_unique<headless::SoundCard>(*events_);
    card_->keep_calls = card_->keep_played = false;
    cues_ = std::make_unique<Cues>(*this, nullptr);
    return Play_Clips(options.microphone);
  }
  LiveDevices devices = Make_Live_Devices(*real_clock_, options.device);
  wave_input_ = std::move(devices.input);
  wave_output_ = std::move(devices.output);
  cues_ = std::make_unique<Cues>(*this, std::move(devices.cues));
}

void LiveSession::Play_Clips(const std::vector<MicrophoneClip>& clips) {
  // The first capture has begun by then, and the one after a word too.
  constexpr EventLoop::Time Head = std::chrono::milliseconds(500);
  constexpr EventLoop::Time Pause = std::chrono::seconds(3);
  EventLoop::Time next = Head;
  for (const MicrophoneClip& clip : clips) {
    const EventLoop::Time end =
        Play_Into_Microphone(*card_, clip.file, clip.at ? EventLoop::Time(*clip.at) : next);
    clips_end_ = std::max(clips_end_, end);
    next = end + Pause;
  }
}

Ports LiveSession::All_Ports(MessageBoxes& boxes, Dialogs& dialogs) {
  telling_output_ = std::make_unique<TellingOutput>(Output(), At_Write);
  return {*events_,         boxes,       host,    *cues_, shell, riff_files_, Input(),
          *telling_output_, data_files_, dialogs, views};
}

}  // namespace quillspeech::cli
