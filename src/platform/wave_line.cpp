#include "platform/wave_line.hpp"

#include <algorithm>

namespace quillspeech {

WaveResult WaveLine::Open(WaveHandle& handle, const WaveFormat& format) {
  if (format.average_bytes_per_second == 0) return Wave_Bad_Format;  // it tells no time
  if (open_ != 0) return Wave_Device_In_Use;
  format_ = format;
  handle = open_ = ++last_handle_;
  return Wave_Ok;
}

WaveResult WaveLine::Check(WaveHandle handle) const {
  return open_ != 0 && handle == open_ ? Wave_Ok : Wave_Bad_Handle;
}

bool WaveLine::Is_Queued(const WaveHeader& header) const {
  return std::any_of(queue.begin(), queue.end(),
                     [&](const Queued& queued) { return queued.header == &header; });
}

WaveResult WaveLine::Prepare(WaveHandle handle, WaveHeader& header) const {
  if (const WaveResult wrong = Check(handle)) return wrong;
  header.flags |= Header_Prepared;
  return Wave_Ok;
}

WaveResult WaveLine::Add(WaveHandle handle, WaveHeader& header) {
  if (const WaveResult wrong = Check(handle)) return wrong;
  if ((header.flags & Header_Prepared) == 0) return Wave_Unprepared;
  if (Is_Queued(header)) return Wave_Still_Playing;
  header.flags = (header.flags & ~Header_Done) | Header_In_Queue;
  queue.push_back({&header});
  return Wave_Ok;
}

WaveResult WaveLine::Unprepare(WaveHandle handle, WaveHeader& header) const {
  if (const WaveResult wrong = Check(handle)) return wrong;
  if (Is_Queued(header)) return Wave_Still_Playing;
  header.flags &= ~Header_Prepared;
  return Wave_Ok;
}

WaveResult WaveLine::Close(WaveHandle handle) {
  if (const WaveResult wrong = Check(handle)) return wrong;
  if (!queue.empty()) return Wave_Still_Playing;
  open_ = 0;
  return Wave_Ok;
}

WaveResult WaveLine::Close_And_Let_Go(WaveHandle handle) {
  if (const WaveResult wrong = Check(handle)) return wrong;
  queue.clear();
  return Close(handle);
}

void WaveLine::Give_Back() {
  WaveHeader& header = *queue.front().header;
  queue.pop_front();
  header.flags = (header.flags & ~Header_In_Queue) | Header_Done;
}

}  // namespace quillspeech
