// Files of the file system under the names that a command line has for them.
#pragma once

#include <memory>
#include <string>

#include "cli/windows/name_encoding.hpp"
#include "platform/windows/data_file.hpp"
#include "platform/windows/riff_file.hpp"
#include "platform/windows/sound_cues.hpp"

namespace quillspeech::cli::backend {

class RiffFiles final : public quillspeech::RiffFiles {
 public:
  std::unique_ptr<RiffFile> Open(const std::string& path) override {
    return windows::RiffFiles(Encoding_Of(path)).Open(path);
  }
};

class SoundCues final : public quillspeech::SoundCues {
 public:
  void Play(const std::string& name, CueMode mode) override {
    cues_.Play(name, mode, Encoding_Of(name));
  }
  void Purge() override { cues_.Purge(); }
  bool Is_Sounding() const { return cues_.Is_Sounding(); }

 private:
  windows::SoundCues cues_;
};

class DataFileStore final : public quillspeech::DataFileStore {
 public:
  using Locking = windows::DataFileStore::Locking;

  explicit DataFileStore(Locking locking = Locking::Each_Call) : locking_(locking) {}
  std::unique_ptr<DataFile> Open(const std::string& name) override {
    return windows::DataFileStore(Encoding_Of(name), locking_).Open(name);
  }

 private:
  Locking locking_;
};

}  // namespace quillspeech::cli::backend
