// The bytes of a WAV file: read, and run through as a file of sound when they are few.
#include "audio/wave_reader.hpp"
#include "core/operations.hpp"
#include "fuzz/fuzz_target.hpp"
#include "recognition/engine_table.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::fuzz {
namespace {

using tests::TestSession;

constexpr std::int64_t Longest_Run_Bytes = 6000;  // a run analyses every byte many times

// Gives whether the file was taken in, and the bytes of sound that it had.
std::int64_t Read_File(const FileBytes& bytes) {
  TestSession test;
  test.riff_files.files["sound.wav"] = bytes;
  try {
    const bool taken = Open_Wave_File(test.session, "sound.wav") == True;
    Require(taken == test.boxes.shown.empty(), "a file that is refused says why, once");
    Require(test.boxes.shown.size() <= 1, "one box at most");
    Require(test.riff_files.open_files == 0, "the file is closed");
    if (!taken) return 0;
  } catch (const RunTimeFailure& failure) {
    Require(failure.What() == Failure::Overflow || failure.What() == Failure::Out_Of_Memory,
            "a chunk that claims too much is failure 6 or 7");
    Require(test.riff_files.open_files == 0, "the file is closed after a failure");
    return 0;
  }
  const Sample& sample = test.session.sample;
  Require(sample.Samples_Per_Capture >= 1, "a file that was taken in has sound");
  Require(sample.Samples_Per_Capture <= static_cast<std::int64_t>(bytes.size()),
          "no more sound than the file has");
  Require(sample.Samples_Per_Capture <= sample.Speech_Sample_Bytes.Count(), "the store has room");
  return sample.Speech_Sample_Bytes.Count();
}

void Run_File(const FileBytes& bytes) {
  TestSession test;
  test.riff_files.files["sound.wav"] = bytes;
  Session& session = test.session;
  session.settings.Enable_Artificial_Intelligence = "NO";
  session.settings.Open_this_Wave_File = "sound.wav";
  Load_Default_Engine_Table(session);
  Open_Specified_Wave_File_And_Process(session);
  Require(test.riff_files.open_files == 0, "the file is closed after the run");
  Require(test.data_files.opens == 0, "a run without a language file opens none");
}

}  // namespace
}  // namespace quillspeech::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech::fuzz;
  const FileBytes bytes(data, data + size);
  const std::int64_t sound = Read_File(bytes);
  if (sound > 0 && sound <= Longest_Run_Bytes) Run_File(bytes);
  return 0;
}
