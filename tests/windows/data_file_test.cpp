#include "platform/windows/data_file.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/windows/handle.hpp"
#include "platform/windows/text.hpp"
#include "tests/support/data_file_contract.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/temporary_folder.hpp"

namespace quillspeech::tests {
namespace {

namespace fs = std::filesystem;
using windows::DataFileStore;
using windows::Handle;
using windows::NameEncoding;
using FileBytes = std::vector<std::uint8_t>;

constexpr DWORD Everything = FILE_SHARE_READ | FILE_SHARE_WRITE;

struct OfWindows {
  static DataFileStore Make() { return DataFileStore(NameEncoding::Windows1252); }
  static DataFileStore Make_Holding() {
    return DataFileStore(NameEncoding::Windows1252, DataFileStore::Locking::Held);
  }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, DataFileContract, OfWindows);

struct DataFileOnWindows : testing::Test, TemporaryFolder {
  DataFileStore store = OfWindows::Make();

  // As another program opens the file.
  Handle Opened_By_Another(const std::string& name, DWORD sharing) const {
    return Handle(::CreateFileW(windows::Wide(Path(name)).c_str(), GENERIC_READ | GENERIC_WRITE,
                                sharing, nullptr, OPEN_EXISTING, 0, nullptr));
  }
};

TEST_F(DataFileOnWindows, Names_are_written_as_the_store_was_told) {
  const std::string folder = Folder().string() + "\\";  // a path would convert what follows it
  DataFileStore of_command_line(NameEncoding::Utf8);
  store.Open(folder + "caf\xE9.say")->Write(0, FileBytes{1, 2, 3});
  EXPECT_TRUE(fs::exists(Folder() / L"caf\u00E9.say"));
  EXPECT_EQ(of_command_line.Open(folder + "caf\xC3\xA9.say")->Length(), 3);
  of_command_line.Open(folder + "\xE2\x82\xAC.say");
  EXPECT_TRUE(fs::exists(Folder() / L"\u20AC.say"));
  EXPECT_EQ(Failure_Of([&] { of_command_line.Open(folder + "caf\xE9.say"); }), 52);
}

TEST_F(DataFileOnWindows, Names_that_the_system_refuses_are_failure_52_or_76) {
  EXPECT_EQ(Failure_Of([&] { store.Open(Path("a?.say")); }), 52);
  EXPECT_EQ(Failure_Of([&] { store.Open(Path("a*.say")); }), 52);
  EXPECT_EQ(Failure_Of([&] { store.Open("q:\\a.say"); }), 76);
}

TEST_F(DataFileOnWindows, A_device_is_failure_75) {
  EXPECT_EQ(Failure_Of([&] { store.Open("NUL"); }), 75);
}

TEST_F(DataFileOnWindows, A_file_that_may_not_be_written_is_failure_75) {
  const std::wstring path = windows::Wide(Put("a.say", {1}));
  ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
  const bool is_refused = !Opened_By_Another("a.say", Everything).Is_Open();
  const int failure = Failure_Of([&] { store.Open(Path("a.say")); });
  ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!is_refused) GTEST_SKIP() << "this user may write every file";
  EXPECT_EQ(failure, 75);
}

TEST_F(DataFileOnWindows, A_file_that_another_program_keeps_to_itself_is_failure_70) {
  Put("a.say", {1});
  const Handle other = Opened_By_Another("a.say", 0);
  ASSERT_TRUE(other.Is_Open());
  EXPECT_EQ(Failure_Of([&] { store.Open(Path("a.say")); }), 70);
}

TEST_F(DataFileOnWindows, Other_programs_read_and_write_an_open_file_even_one_that_is_held) {
  for (auto* const make : {&OfWindows::Make, &OfWindows::Make_Holding}) {
    Put("a.say", {1, 2, 3});
    auto users = make();
    const auto file = users.Open(Path("a.say"));
    const Handle other = Opened_By_Another("a.say", Everything);
    ASSERT_TRUE(other.Is_Open());
    FileBytes bytes(3);
    DWORD count = 0;
    EXPECT_TRUE(::ReadFile(other.Get(), bytes.data(), 3, &count, nullptr));
    EXPECT_EQ(bytes, (FileBytes{1, 2, 3}));
    EXPECT_TRUE(::WriteFile(other.Get(), bytes.data(), 3, &count, nullptr));
    EXPECT_EQ(file->Length(), 6);
  }
}

TEST_F(DataFileOnWindows, No_handle_is_left_open) {
  fs::create_directory(Path("folder"));
  const auto use = [&] {
    EXPECT_EQ(Failure_Of([&] { store.Open(Path("folder")); }), 75);
    EXPECT_EQ(Failure_Of([&] { store.Open("NUL"); }), 75);
    store.Open(Path("a.say"))->Write(0, FileBytes{1});
    OfWindows::Make_Holding().Open(Path("a.say"));
  };
  const auto handles = [] {
    DWORD count = 0;
    EXPECT_TRUE(::GetProcessHandleCount(::GetCurrentProcess(), &count));
    return count;
  };
  use();  // what the system keeps for itself, it has now
  const DWORD before = handles();
  for (int i = 0; i < 10; ++i) use();
  EXPECT_EQ(handles(), before);
  EXPECT_NE(::DeleteFileW(windows::Wide(Path("a.say")).c_str()), 0);
}

TEST_F(DataFileOnWindows, A_child_process_inherits_no_open_file) {
  OfWindows::Make().Open(Path("a.say"));
  const auto file = store.Open(Path("a.say"));
  // Handles are small multiples of four; whichever is a file may not be inherited.
  for (std::uintptr_t number = 4; number < 4'000; number += 4) {
    const HANDLE handle = reinterpret_cast<HANDLE>(number);
    wchar_t path[MAX_PATH + 1] = {};
    if (::GetFileType(handle) != FILE_TYPE_DISK) continue;
    if (::GetFinalPathNameByHandleW(handle, path, MAX_PATH, 0) == 0) continue;
    if (std::wstring(path).find(L"a.say") == std::wstring::npos) continue;
    DWORD flags = HANDLE_FLAG_INHERIT;
    EXPECT_TRUE(::GetHandleInformation(handle, &flags));
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0u);
    return;
  }
  FAIL() << "the open file was not found";
}

// Whether the call waits as long as another user of ours holds the file, and ends when it is gone.
bool Waits_For_Holder(const std::string& path, const std::function<void()>& call) {
  constexpr DWORD While_In_Ms = 50;
  auto holding = OfWindows::Make_Holding();
  auto held = holding.Open(path);
  const Handle done(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
  std::thread thread([&] {
    call();
    ::SetEvent(done.Get());
  });
  const bool waited = ::WaitForSingleObject(done.Get(), While_In_Ms) == WAIT_TIMEOUT;
  held.reset();
  thread.join();
  return waited;
}

TEST_F(DataFileOnWindows, Whoever_comes_while_another_holds_the_file_waits_for_the_end) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = store.Open(path);
  FileBytes bytes(100, 2);
  const std::vector<std::function<void()>> calls = {
      [&] { file->Read(0, bytes); }, [&] { file->Length(); }, [&] { file->Write(0, bytes); }};
  for (const auto& call : calls) EXPECT_TRUE(Waits_For_Holder(path, call));
}

DataFileStore Impatient(DataFileStore::Locking locking, std::chrono::milliseconds patience = {}) {
  return DataFileStore(NameEncoding::Windows1252, locking, patience);
}

// Also one that has locked all that the file could ever hold.
TEST_F(DataFileOnWindows, A_lock_that_another_keeps_is_failure_70) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = Impatient(DataFileStore::Locking::Each_Call).Open(path);
  FileBytes bytes(100, 2);
  const std::vector<std::function<void()>> calls = {
      [&] { file->Read(0, bytes); }, [&] { file->Length(); }, [&] { file->Write(0, bytes); }};
  {
    auto holding = OfWindows::Make_Holding();
    const auto held = holding.Open(path);
    for (const auto& call : calls) EXPECT_EQ(Failure_Of(call), 70);
  }
  {
    const Handle other = Opened_By_Another("a.say", Everything);
    OVERLAPPED start{};
    ASSERT_TRUE(::LockFileEx(other.Get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0,
                             MAXDWORD, MAXDWORD, &start));
    for (const auto& call : calls) EXPECT_EQ(Failure_Of(call), 70);
  }
  for (const auto& call : calls) EXPECT_EQ(Failure_Of(call), 0);
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));  // as it was read
}

TEST_F(DataFileOnWindows, A_file_that_another_holds_cannot_be_held) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  auto impatient = Impatient(DataFileStore::Locking::Held);
  {
    auto holding = OfWindows::Make_Holding();
    const auto held = holding.Open(path);
    EXPECT_EQ(Failure_Of([&] { impatient.Open(path); }), 70);
  }
  EXPECT_EQ(Failure_Of([&] { impatient.Open(path); }), 0);
}

TEST_F(DataFileOnWindows, A_lock_is_waited_for_as_long_as_the_patience_lasts_and_no_longer) {
  constexpr std::chrono::milliseconds Patience{20};
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = Impatient(DataFileStore::Locking::Each_Call, Patience).Open(path);
  auto holding = OfWindows::Make_Holding();
  const auto held = holding.Open(path);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Failure_Of([&] { file->Length(); }), 70);
  EXPECT_GE(std::chrono::steady_clock::now() - start, Patience);
}

TEST_F(DataFileOnWindows, Two_writers_never_mix_their_records) {
  const std::string path = Put("a.say", FileBytes(1'000, 0));
  std::vector<std::thread> writers;
  for (const std::uint8_t byte : FileBytes{1, 2}) {
    writers.emplace_back([this, path, byte] {
      const auto file = store.Open(path);
      for (int i = 0; i < 200; ++i) file->Write(0, FileBytes(1'000, byte));
    });
  }
  const auto file = store.Open(path);
  for (int i = 0; i < 200; ++i) {
    FileBytes bytes(1'000);
    file->Read(0, bytes);
    EXPECT_EQ(bytes, FileBytes(1'000, bytes[0]));
  }
  for (std::thread& writer : writers) writer.join();
}

}  // namespace
}  // namespace quillspeech::tests
