#include "platform/windows/host_program.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

#include "platform/windows/windows_api.hpp"
//
#include <winternl.h>

#include "session/session.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {
namespace {

namespace fs = std::filesystem;

TEST(HostProgram, It_is_the_program_file_of_this_process) {
  const auto path = windows::HostProgram().Path();
  ASSERT_TRUE(path);
  const fs::path file = *path;
  EXPECT_TRUE(file.is_absolute());
  EXPECT_EQ(file.filename(), fs::path(_pgmptr).filename());
  EXPECT_TRUE(fs::is_regular_file(file));
}

// This program under another name, which runs one test of its own that is otherwise left out.
class RenamedProgram : public testing::Test, protected TemporaryFolder {
 protected:
  // Its exit code: 0 when that test holds there.
  static int Run(const fs::path& program, const std::wstring& test) {
    std::error_code error;
    fs::create_directories(program.parent_path(), error);
    fs::copy_file(This_Program(), program, error);
    EXPECT_FALSE(error) << error.message();
    std::wstring command =
        L"\"program\" --gtest_also_run_disabled_tests --gtest_brief=1 "
        L"--gtest_filter=RenamedProgram.DISABLED_" +
        test;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          nullptr, &startup, &process)) {
      return -1;
    }
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 1;
    ::GetExitCodeProcess(process.hProcess, &code);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return static_cast<int>(code);
  }

  static fs::path This_Program() {
    std::wstring name(1'000, L'\0');
    name.resize(::GetModuleFileNameW(nullptr, name.data(), 1'000));
    return name;
  }
  static bool Is_In_Design_Environment() {
    TestSession test;
    windows::HostProgram host;
    const Ports& ports = test.session.ports;
    Session session{Ports{ports.events, ports.boxes, host, ports.cues, ports.shell,
                          ports.riff_files, ports.wave_input, ports.wave_output, ports.data_files,
                          ports.dialogs, ports.views}};
    return Is_Design_Environment(session) == True;
  }
};

TEST_F(RenamedProgram, DISABLED_is_a_design_environment) {
  EXPECT_TRUE(Is_In_Design_Environment());
}
TEST_F(RenamedProgram, DISABLED_is_none) { EXPECT_FALSE(Is_In_Design_Environment()); }
TEST_F(RenamedProgram, Called_VB6_it_is_a_design_environment) {
  EXPECT_EQ(Run(Folder() / "VB6.EXE", L"is_a_design_environment"), 0);
  EXPECT_EQ(Run(Folder() / "VB7.EXE", L"is_none"), 0);
}

// The system's own record of where this program lies, which says something else meanwhile.
class ClaimedPath {
 public:
  explicit ClaimedPath(std::wstring path) : path_(std::move(path)), own_(Record()) {
    Record().Buffer = path_.data();
    Record().Length = static_cast<USHORT>(path_.size() * sizeof(wchar_t));
    Record().MaximumLength = static_cast<USHORT>(Record().Length + sizeof(wchar_t));
  }
  ~ClaimedPath() { Record() = own_; }
  ClaimedPath(const ClaimedPath&) = delete;
  ClaimedPath& operator=(const ClaimedPath&) = delete;

 private:
  // The first module is the program.
  static UNICODE_STRING& Record() {
    LIST_ENTRY* const first =
        NtCurrentTeb()->ProcessEnvironmentBlock->Ldr->InMemoryOrderModuleList.Flink;
    return CONTAINING_RECORD(first, LDR_DATA_TABLE_ENTRY, InMemoryOrderLinks)->FullDllName;
  }

  std::wstring path_;
  UNICODE_STRING own_;
};

TEST(HostProgram, A_path_beyond_the_room_for_it_is_cut) {
  for (const std::size_t length : {250u, 259u, 260u, 261u, 262u, 300u, 5'000u}) {
    const std::string claimed = "C:\\" + std::string(length - 3, 'd');
    const ClaimedPath elsewhere(std::wstring(claimed.begin(), claimed.end()));
    const auto path = windows::HostProgram().Path();
    ASSERT_TRUE(path);
    EXPECT_EQ(*path, claimed.substr(0, path->size()));
    EXPECT_GE(path->size(), std::min<std::size_t>(length, 260));
    EXPECT_LE(path->size(), std::min<std::size_t>(length, 261));
  }
}

}  // namespace
}  // namespace quillspeech::tests
