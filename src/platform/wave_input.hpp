// The port for recording.
#pragma once

#include "platform/wave_header.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech {

class WaveInput {
 public:
  virtual ~WaveInput() = default;

  // Asks for the capabilities of that device; success means that it is there.
  virtual WaveResult Get_Device_Capabilities(int device) = 0;
  // Opens the default device for the format. On success `handle` names it until it is closed.
  virtual WaveResult Open(WaveHandle& handle, const WaveFormat& format) = 0;
  // A prepared header can be added; the header stays where it is until it is unprepared.
  virtual WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) = 0;
  // Puts the header into the queue: no longer done, nothing recorded.
  virtual WaveResult Add_Buffer(WaveHandle handle, WaveHeader& header) = 0;
  // From now on the buffer fills as time goes, and the header is done when it is full. Cells that
  // are not reached yet stay as they are. A device that ran already may begin with what it heard up
  // to a twentieth of a second before.
  virtual WaveResult Start(WaveHandle handle) = 0;
  // What was heard until now is in the buffer, and nothing follows.
  virtual WaveResult Stop(WaveHandle handle) = 0;
  // Gives every header in the queue back, done.
  virtual WaveResult Reset(WaveHandle handle) = 0;
  virtual WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) = 0;
  virtual WaveResult Close(WaveHandle handle) = 0;
};

}  // namespace quillspeech
