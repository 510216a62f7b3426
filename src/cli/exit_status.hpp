// What the program tells its caller when it ends.
#pragma once

namespace quillspeech::cli {

enum ExitStatus : int {
  Exit_Done = 0,
  Exit_File_Failed = 1,  // a file could not be read or written, or is not as it should be
  Exit_Wrong_Usage = 2,
};

}  // namespace quillspeech::cli
