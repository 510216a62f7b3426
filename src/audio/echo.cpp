#include "audio/echo.hpp"

#include <algorithm>

#include "audio/live_capture.hpp"

namespace quillspeech {
namespace {

// The device gets the end position as the length: zeros follow the word in a buffer that is as long
// as the whole sample up to the word's end.
void Make_Echo_Buffer(Session& session, Checked32 last_byte) {
  Sample& sample = session.sample;
  auto& echo = session.recorder.Echo_Sample_Bytes;
  sample.Wave_Header.data = nullptr;  // a device may still hold the buffer that goes
  echo.Clear();
  echo.Resize(last_byte);
  Point_Wave_Header(sample, echo.Write_Range(0, last_byte), last_byte);
}

// The word goes to the head of the buffer, from its second cell on.
void Copy_Word(Session& session, std::int64_t first_byte, std::int64_t last_byte) {
  constexpr std::int64_t Margin_Bytes = 25;
  const std::int64_t count = last_byte - Margin_Bytes - (first_byte + 1);
  if (count <= 0) return;
  const std::uint8_t* const word =
      session.sample.Speech_Sample_Bytes.Read_Range(first_byte + 1, first_byte + count);
  std::copy_n(word, count, session.recorder.Echo_Sample_Bytes.Write_Range(1, count));
}

// The output with the header in it, given back however its use ends.
class Playing {
 public:
  Playing(WaveOutput& device, WaveHandle handle, WaveHeader& header)
      : device_(device), handle_(handle), header_(header) {
    device_.Prepare_Header(handle_, header_);
  }
  ~Playing() {
    device_.Unprepare_Header(handle_, header_);
    device_.Close(handle_);
  }
  Playing(const Playing&) = delete;
  Playing& operator=(const Playing&) = delete;

  // False when nothing will sound, and the header will never be done.
  bool Begin() { return device_.Write(handle_, header_) == Wave_Ok; }
  bool Is_Over() const { return (header_.flags & Header_Done) != 0; }

 private:
  WaveOutput& device_;
  WaveHandle handle_;
  WaveHeader& header_;
};

void Play_Buffer(Session& session) {
  WaveOutput& device = session.ports.wave_output;
  EventLoop& events = session.ports.events;
  WaveHandle& handle = session.recorder.Wave_Out_Handle;
  if (device.Open(handle, session.sample.Wave_Format) != Wave_Ok) return;
  Playing playing(device, handle, session.sample.Wave_Header);
  const bool sounds = playing.Begin();
  events.Run_Pending_Events();
  while (sounds && !playing.Is_Over()) events.Wait_For_Events();
}

}  // namespace

void Play_Echo(Session& session, std::int64_t first_byte, std::int64_t last_byte) {
  if (Is_Stopped(session)) return;
  Stop_Recording(session);
  Make_Echo_Buffer(session, last_byte);
  Copy_Word(session, first_byte, last_byte);
  Play_Buffer(session);
}

}  // namespace quillspeech
