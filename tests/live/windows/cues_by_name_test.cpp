// Cues under the names that a command line has for them.
#include <filesystem>
#include <fstream>

#include "cli/windows/files_by_name.hpp"
#include "tests/live/device_fixture.hpp"

namespace quillspeech::tests {
namespace {

class CuesByName : public DeviceTest {
 protected:
  // A second of silence.
  void Make_File(const std::wstring& name) const {
    const auto bytes = Wave().Data(Silence(Bytes(22'050))).File();
    std::ofstream(Folder() / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }

  // Without a code page's say in it.
  std::string Name(const std::string& bytes) const { return Folder().string() + '\\' + bytes; }

  cli::backend::SoundCues by_name;
};

TEST_F(CuesByName, One_that_was_typed_is_in_utf_8) {
  Make_File(L"\x0431\x0438\x043f.wav");
  by_name.Play(Name("\xd0\xb1\xd0\xb8\xd0\xbf.wav"), CueMode::Once);
  EXPECT_TRUE(by_name.Is_Sounding());
  by_name.Purge();
  EXPECT_FALSE(by_name.Is_Sounding());
}

TEST_F(CuesByName, One_out_of_a_record_is_in_windows_1252) {
  Make_File(L"\x00fcml.wav");
  by_name.Play(Name("\xfcml.wav"), CueMode::Once);
  EXPECT_TRUE(by_name.Is_Sounding());
}

TEST_F(CuesByName, A_control_takes_each_in_windows_1252) {
  Make_File(L"\x00c3\x00bcml.wav");
  windows::SoundCues cues;
  cues.Play(Name("\xc3\xbcml.wav"), CueMode::Once);
  EXPECT_TRUE(cues.Is_Sounding());
}

TEST_F(CuesByName, One_that_is_not_there_is_silence) {
  by_name.Play(Name("\xd0\xb1.wav"), CueMode::Once);
  EXPECT_FALSE(by_name.Is_Sounding());
}

}  // namespace
}  // namespace quillspeech::tests
