// Data files of the file system.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/data_file.hpp"

namespace quillspeech::linux {

// Names are paths, byte for byte. Each open file is locked as a whole while it is measured, read or
// written, so that users of the same file, in this process or another, never see a record in part.
// A lock that another user has is waited for, and is failure 70 when it stays. On a file system
// without locks the files are used without them; a lock that is refused for any other reason is
// failure 57. A write that fails puts back what the file had, as far as the device lets it, and
// fails with the error that came first.
class DataFileStore final : public quillspeech::DataFileStore {
 public:
  // Held: each file that this store opens stays locked against every other user until it is closed,
  // so that what is read from it still stands when it is written. Open one at a time.
  enum class Locking { Each_Call, Held };

  explicit DataFileStore(Locking locking = Locking::Each_Call)
      : DataFileStore(locking,
                      locking == Locking::Held ? Patience_Of_A_Holder : Patience_Of_A_Call) {}
  // With a patience of its own for the locks of others.
  DataFileStore(Locking locking, std::chrono::milliseconds patience)
      : locking_(locking), patience_(patience) {}
  std::unique_ptr<DataFile> Open(const std::string& name) override;

 private:
  Locking locking_;
  std::chrono::milliseconds patience_;
};

}  // namespace quillspeech::linux
