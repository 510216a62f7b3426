#include "audio/live_capture.hpp"

#include <chrono>
#include <utility>

#include "base/rounding.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr FailureMessage Start_Failed{
    "Quillspeech RECORDING ERROR(Rare)",
    "Problems Starting Recording, Check Your Settings and Sound Card"};
constexpr FailureMessage Stop_Failed{
    "Quillspeech Info",
    "Problem Stoping Recording, Check Your Settings and Sound Card, Close Application"};

// Gives a variable another value until the end of the scope.
template <class T>
class Scoped {
 public:
  Scoped(T& variable, T value)
      : variable_(variable), before_(std::exchange(variable, std::move(value))) {}
  ~Scoped() { variable_ = before_; }
  Scoped(const Scoped&) = delete;
  Scoped& operator=(const Scoped&) = delete;

 private:
  T& variable_;
  T before_;
};

void Show_Status_When_Animated(Session& session, int image) {
  if (session.settings.I_want_Status_Animation == "YES") {
    session.operations.Show_Status_Image(session, image);
  }
}

void End_Last_Recording(Session& session) {
  if (session.recorder.Recording_Active != 1) return;
  Stop_Recording(session);
  session.recorder.Recording_Active = 0;
}

bool Has_Sampling_Time(Session& session) {
  if (session.settings.Speech_sampling_time_in_ms != 0) return true;
  Show_Box(session, "No sampling time", "Quillspeech User Error", BoxIcon::Stop);
  return false;
}

void Play_Start_Cue(Session& session) {
  const std::string& cue = session.settings.Play_this_file_for_Start;
  if (!cue.empty()) session.ports.cues.Play(cue, CueMode::Once);
}

void Begin_Recording(Session& session) {
  constexpr std::int64_t Default_Frequency = 22'050;
  Recorder& recorder = session.recorder;
  recorder.Recording_Active = 1;
  recorder.Recording_Stopped = 0;
  Checked32& frequency = session.settings.Set_Recording_Frequency;
  if (frequency == 0) frequency = Default_Frequency;
  recorder.Recording_Bits = 8;
  recorder.Recording_Channels = 1;
}

bool Is_Device_There(Session& session) {
  constexpr int First_Device = 0;
  if (session.ports.wave_input.Get_Device_Capabilities(First_Device) == Wave_Ok) return true;
  Show_Box(session, "ACCESS DENIED.Please install your Sound Card properly", "Quillspeech");
  return false;
}

WaveFormat Recording_Format(const Session& session) {
  constexpr std::uint16_t Pcm = 1;
  const Recorder& recorder = session.recorder;
  WaveFormat format;
  format.format_tag = Pcm;
  format.channels = static_cast<std::uint16_t>(recorder.Recording_Channels.Raw());
  format.bits_per_sample = static_cast<std::uint16_t>(recorder.Recording_Bits.Raw());
  format.samples_per_second =
      static_cast<std::uint32_t>(session.settings.Set_Recording_Frequency.Raw());
  format.block_alignment = static_cast<std::uint16_t>(format.bits_per_sample / 8 * format.channels);
  format.average_bytes_per_second = format.block_alignment * format.samples_per_second;
  return format;
}

// All zeros: cells that the recorder has not reached yet.
void Make_Buffer(Session& session) {
  Sample& sample = session.sample;
  const Checked32 length =
      sample.Samples_Per_Capture + session.settings.Digital_Signal_Processing_Level;
  sample.Wave_Header.data = nullptr;  // a device may still hold the store that goes
  sample.Speech_Sample_Bytes.Clear();
  sample.Speech_Sample_Bytes.Resize(length);
  Point_Wave_Header(sample, sample.Speech_Sample_Bytes.Write_Range(0, length), length);
}

// Where it breaks off no data arrives.
void Hand_Over_Buffer(Session& session) {
  WaveInput& device = session.ports.wave_input;
  const WaveHandle handle = session.recorder.Wave_In_Handle;
  WaveHeader& header = session.sample.Wave_Header;
  if (device.Prepare_Header(handle, header) != Wave_Ok) return;
  if (device.Add_Buffer(handle, header) != Wave_Ok) return;
  device.Start(handle);
}

void Record_Into_Buffer(Session& session) {
  Recorder& recorder = session.recorder;
  session.sample.Wave_Format = Recording_Format(session);
  const WaveResult opened =
      session.ports.wave_input.Open(recorder.Wave_In_Handle, session.sample.Wave_Format);
  Show_Status_When_Animated(session, 1);
  Make_Buffer(session);
  recorder.Buffer_Given_Up = false;
  if (opened == Wave_Ok) Hand_Over_Buffer(session);
}

void Arm_Timers(Session& session) {
  constexpr int Shortest_Delay = 5;  // ms, that the pump keeps by itself
  EventLoop& events = session.ports.events;
  if (session.flags.Capture_Busy == 0) {
    const std::int64_t delay = session.settings.Voice_Capture_Delay;
    if (delay > Shortest_Delay) {
      events.Form_Timer(FormTimer::Timer3).Set_Interval(std::chrono::milliseconds(delay));
    }
    events.Enable(FormTimer::Timer3, true);
  }
  events.Enable(FormTimer::Timer1, true);
}

// False when no recording came about.
bool Set_Up_Recording(Session& session) {
  End_Last_Recording(session);
  session.ports.events.Enable(FormTimer::Timer5, false);
  if (!Has_Sampling_Time(session)) return false;
  session.flags.Windows_Stay_Away = false;
  session.sample.Samples_Per_Capture = Promised_Samples(session.settings);
  ++session.flags.Settings_Ready_Count;
  Play_Start_Cue(session);
  Begin_Recording(session);
  if (!Is_Device_There(session)) return false;
  Record_Into_Buffer(session);
  Arm_Timers(session);
  return true;
}

bool Is_Wait_Over(const Session& session) {
  return (session.sample.Wave_Header.flags & Header_Done) != 0 || session.recorder.Buffer_Given_Up;
}

void Unprepare_Header(Session& session) {
  session.ports.wave_input.Unprepare_Header(session.recorder.Wave_In_Handle,
                                            session.sample.Wave_Header);
}

void Wait_For_Buffer(Session& session) {
  Recorder& recorder = session.recorder;
  EventLoop& events = session.ports.events;
  const Scoped depth(recorder.Waiting_Depth, events.Depth() + 1);
  for (int begun = 0; begun < recorder.Calls_Waiting || !Is_Wait_Over(session);) {
    if (begun < recorder.Calls_Waiting) {
      begun = recorder.Calls_Waiting;
      events.Run_Pending_Events();
    } else {
      events.Wait_For_Events();
    }
  }
}

// A recording that a tick of this very wait sets up is waited for here, so that the stack stays
// flat however many follow one another. Each of them is waited for, and ends, as if it did so
// itself: a failure ends the one that began last, and its recovery the wait of the others.
void Wait_For_Recording(Session& session) {
  const Scoped calls(session.recorder.Calls_Waiting, 1);
  Run_Trapped(session, Start_Failed, [&] {
    Wait_For_Buffer(session);
    Unprepare_Header(session);
  });
  for (int left = session.recorder.Calls_Waiting - 1; left > 0; --left) Unprepare_Header(session);
}

bool Is_Within_Wait(const Session& session) {
  const Recorder& recorder = session.recorder;
  return recorder.Waiting_Depth != 0 && recorder.Waiting_Depth == session.ports.events.Depth();
}

// The reset marks the buffer done, which ends the wait for it. A device that never took the buffer,
// or fails here, does not: nobody waits on for that one either.
void Close_Device(Session& session) {
  WaveInput& device = session.ports.wave_input;
  Recorder& recorder = session.recorder;
  WaveHeader& header = session.sample.Wave_Header;
  device.Stop(recorder.Wave_In_Handle);
  device.Reset(recorder.Wave_In_Handle);
  device.Unprepare_Header(recorder.Wave_In_Handle, header);
  device.Close(recorder.Wave_In_Handle);
  recorder.Buffer_Given_Up = true;
  recorder.Last_Recorded_Index = std::int64_t{header.bytes_recorded} - 1;
}

void Stop(Session& session) {
  Recorder& recorder = session.recorder;
  Show_Status_When_Animated(session, 2);
  if (recorder.Recording_Active == 0 || recorder.Recording_Stopped == 1) return;
  Close_Device(session);
  recorder.Recording_Stopped = 1;
  recorder.Recording_Active = 0;
}

void Close_Second_Recorder(Session& session) {
  Recorder& recorder = session.recorder;
  if (recorder.Second_Recorder_Open == 0 || session.flags.Session_Started == 1) return;
  Close_Device(session);
  recorder.Second_Recorder_Open = 0;
}

}  // namespace

Checked32 Promised_Samples(const Settings& settings) {
  const Checked32 product = settings.Speech_sampling_time_in_ms * settings.Set_Recording_Frequency;
  return Rounded_Quotient(product, 1'000);
}

void Start_Recording(Session& session) {
  bool is_set_up = false;
  Run_Trapped(session, Start_Failed,
              [&] { is_set_up = !Is_Stopped(session) && Set_Up_Recording(session); });
  if (!is_set_up) return;
  if (Is_Within_Wait(session)) {
    ++session.recorder.Calls_Waiting;
  } else {
    Wait_For_Recording(session);
  }
}

// The recovery stops the recording too: when that fails once more, it is not recovered from again.
void Stop_Recording(Session& session) {
  if (Ends_Well(session, [&] { Stop(session); })) return;
  Show_Box(session, Stop_Failed.text, Stop_Failed.title, BoxIcon::Stop);
  if (session.recorder.Recovering_From_Stop) return;
  const Scoped recovering(session.recorder.Recovering_From_Stop, true);
  session.operations.Stop_And_Recover(session);
}

void Close_Recorder(Session& session) {
  if (Ends_Well(session, [&] { Close_Second_Recorder(session); })) return;
  Show_Box(session, Stop_Failed.text, Stop_Failed.title, BoxIcon::Stop);
}

}  // namespace quillspeech
