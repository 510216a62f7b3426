// Silence around a recorded word.
#pragma once

#include <string>

namespace example {

// A copy of a WAV file (8-bit mono) with silence around it, up to that many milliseconds. It stands
// in the folder for temporary files until this goes. A file of another format, or a longer one, is
// answered as it is.
//
// A pause is a share of the whole sample for the control, so a word that was cut out of a recording
// needs some silence around it to be found as a word. A capture of the microphone has it anyway.
class PaddedWave {
 public:
  PaddedWave(const std::wstring& file, unsigned milliseconds);
  ~PaddedWave();
  PaddedWave(const PaddedWave&) = delete;
  PaddedWave& operator=(const PaddedWave&) = delete;

  const std::wstring& File() const { return file_; }

 private:
  std::wstring file_;
  std::wstring made_;  // empty: none
};

}  // namespace example
