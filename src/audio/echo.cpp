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

void Play_Buffer(Session& session) {
  WaveOutput& device = session.ports.wave_output;
  WaveHandle& handle = session.recorder.Wave_Out_Handle;
  WaveHeader& header = session.sample.Wave_Header;
  EventLoop& events = session.ports.events;
  if (device.Open(handle, session.sample.Wave_Format) != Wave_Ok) return;
  device.Prepare_Header(handle, header);
  const bool plays = device.Write(handle, header) == Wave_Ok;
  events.Run_Pending_Events();
  while (plays && (header.flags & Header_Done) == 0) events.Wait_For_Events();
  device.Unprepare_Header(handle, header);
  device.Close(handle);
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
