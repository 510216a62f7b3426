#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/data_file.hpp"
#include "tests/linux/data_file_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

// Another user of the file, who holds its lock. Whoever should hold none then fails the test here.
class OtherUser {
 public:
  OtherUser(const std::string& path, int kind)
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    EXPECT_EQ(::flock(descriptor_, kind | LOCK_NB), 0);
  }
  ~OtherUser() { ::close(descriptor_); }
  OtherUser(const OtherUser&) = delete;
  OtherUser& operator=(const OtherUser&) = delete;
  void Let_Go() { ::flock(descriptor_, LOCK_UN); }

 private:
  int descriptor_;
};

// Runs the call beside us and tells whether it was asleep, or done, when it came to rest first.
// Then lets the other user go and waits for the end of the call.
bool Waits_For(OtherUser& other, const std::function<void()>& call) {
  std::atomic<pid_t> thread_id = 0;
  std::atomic<bool> done = false;
  std::thread thread([&] {
    thread_id = ::gettid();
    call();
    done = true;
  });
  const auto is_asleep = [&] {
    std::ifstream stat("/proc/self/task/" + std::to_string(thread_id) + "/stat");
    std::string line;
    std::getline(stat, line);
    return line.find(") S ") != std::string::npos;
  };
  while (!done && !(thread_id != 0 && is_asleep())) std::this_thread::yield();
  const bool waited = !done;
  other.Let_Go();
  thread.join();
  return waited;
}

TEST_F(DataFileOnDisk, Whoever_comes_while_another_writes_waits_for_the_end) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = store.Open(path);
  FileBytes bytes(100, 2);
  const std::vector<std::function<void()>> calls = {
      [&] { file->Read(0, bytes); }, [&] { file->Length(); }, [&] { file->Write(0, bytes); }};
  for (const auto& call : calls) {
    OtherUser writer(path, LOCK_EX);
    EXPECT_TRUE(Waits_For(writer, call));
  }
}

TEST_F(DataFileOnDisk, A_writer_waits_for_readers) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = store.Open(path);
  OtherUser reader(path, LOCK_SH);
  EXPECT_TRUE(Waits_For(reader, [&] { file->Write(0, FileBytes(100, 2)); }));
  EXPECT_EQ(Content("a.say"), FileBytes(100, 2));
}

TEST_F(DataFileOnDisk, Readers_do_not_wait_for_each_other) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = store.Open(path);
  FileBytes bytes(100);
  const std::vector<std::function<void()>> calls = {[&] { file->Read(0, bytes); },
                                                    [&] { file->Length(); }};
  for (const auto& call : calls) {
    OtherUser reader(path, LOCK_SH);
    EXPECT_FALSE(Waits_For(reader, call));
  }
}

// A store that asks for a lock once, or for that long.
linux::DataFileStore Impatient(std::chrono::milliseconds patience = {}) {
  return linux::DataFileStore(linux::DataFileStore::Locking::Each_Call, patience);
}

TEST_F(DataFileOnDisk, A_lock_that_another_keeps_is_failure_70) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = Impatient().Open(path);
  FileBytes bytes(100, 2);
  const auto read = [&] { file->Read(0, bytes); };
  const auto measure = [&] { file->Length(); };
  const auto write = [&] { file->Write(0, FileBytes(100, 2)); };
  {
    const OtherUser writer(path, LOCK_EX);
    EXPECT_EQ(Failure_Of(read), 70);
    EXPECT_EQ(Failure_Of(measure), 70);
    EXPECT_EQ(Failure_Of(write), 70);
  }
  {
    const OtherUser reader(path, LOCK_SH);
    EXPECT_EQ(Failure_Of(read), 0);
    EXPECT_EQ(Failure_Of(measure), 0);
    EXPECT_EQ(Failure_Of(write), 70);
  }
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));
  EXPECT_EQ(Failure_Of(write), 0);
  EXPECT_EQ(Content("a.say"), FileBytes(100, 2));
}

TEST_F(DataFileOnDisk, A_file_that_another_keeps_locked_cannot_be_held) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  linux::DataFileStore holding(linux::DataFileStore::Locking::Held, std::chrono::milliseconds{});
  {
    const OtherUser reader(path, LOCK_SH);
    EXPECT_EQ(Failure_Of([&] { holding.Open(path); }), 70);
  }
  EXPECT_EQ(Failure_Of([&] { holding.Open(path); }), 0);
}

TEST_F(DataFileOnDisk, A_lock_is_waited_for_as_long_as_the_patience_lasts_and_no_longer) {
  constexpr std::chrono::milliseconds Patience{20};
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = Impatient(Patience).Open(path);
  const OtherUser writer(path, LOCK_EX);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Failure_Of([&] { file->Length(); }), 70);
  EXPECT_GE(std::chrono::steady_clock::now() - start, Patience);
}

TEST_F(DataFileOnDisk, A_lock_of_another_process_counts_until_that_process_ends) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = Impatient().Open(path);
  std::array<int, 2> locked{}, leave{};
  ASSERT_EQ(::pipe2(locked.data(), O_CLOEXEC), 0);
  ASSERT_EQ(::pipe2(leave.data(), O_CLOEXEC), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(leave[1]);
    const int descriptor = ::open(path.c_str(), O_RDONLY);
    char byte = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    if (::write(locked[1], &byte, 1) != 1) ::_exit(1);
    ::_exit(::read(leave[0], &byte, 1) == 0 ? 0 : 1);
  }
  char is_locked = 0;
  EXPECT_EQ(::read(locked[0], &is_locked, 1), 1);
  EXPECT_TRUE(is_locked);
  EXPECT_EQ(Failure_Of([&] { file->Length(); }), 70);
  for (const int end : {locked[0], locked[1], leave[0], leave[1]}) ::close(end);
  int status = 1;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Failure_Of([&] { file->Length(); }), 0);
}

TEST_F(DataFileOnDisk, Nobody_waits_when_a_call_has_ended_or_failed) {
  const auto file = store.Open(Put("a.say", FileBytes(100, 1)));
  {
    const LargestFile limit(120);
    EXPECT_EQ(Failure_Of([&] { file->Write(90, FileBytes(50, 9)); }), 61);
  }
  { const OtherUser writer(Path("a.say"), LOCK_EX); }
  file->Write(0, FileBytes{1});
  { const OtherUser writer(Path("a.say"), LOCK_EX); }
}

TEST_F(DataFileOnDisk, A_held_file_is_locked_between_its_calls_until_it_is_closed) {
  const std::string path = Put("a.say", FileBytes(100, 1));
  const int other = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  linux::DataFileStore holding(linux::DataFileStore::Locking::Held);
  auto file = holding.Open(path);
  const auto is_locked = [&] { return ::flock(other, LOCK_SH | LOCK_NB) != 0; };
  EXPECT_TRUE(is_locked());
  EXPECT_EQ(file->Length(), 100);
  EXPECT_TRUE(is_locked());
  FileBytes bytes(1);
  EXPECT_EQ(file->Read(0, bytes), 1);
  EXPECT_TRUE(is_locked());
  file->Write(0, FileBytes{9});
  EXPECT_TRUE(is_locked());
  file.reset();
  EXPECT_FALSE(is_locked());
  EXPECT_EQ(Content("a.say")[0], 9);
  ::close(other);
}

TEST_F(DataFileOnDisk, A_lock_that_is_refused_is_failure_57) {
  const auto file = store.Open(Put("a.say", FileBytes(100, 1)));
  Reopen("a.say", O_PATH);  // can be measured all the same
  FileBytes bytes(1);
  EXPECT_EQ(Failure_Of([&] { file->Length(); }), 57);
  EXPECT_EQ(Failure_Of([&] { file->Read(0, bytes); }), 57);
  EXPECT_EQ(Failure_Of([&] { file->Write(0, bytes); }), 57);
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));
}

// Makes flock() answer ENOLCK in this process from now on; false where the system cannot.
bool Lose_The_Locks() {
  sock_filter steps[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_flock, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOLCK),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const sock_fprog program{std::size(steps), steps};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

TEST_F(DataFileOnDisk, Where_there_are_no_locks_files_are_used_without_them) {
  constexpr int Good = 0, Bad = 1, Cannot_Tell = 2;
  Put("a.say", {1, 2, 3});
  const auto use = [&](linux::DataFileStore::Locking locking) {
    const auto file = linux::DataFileStore(locking).Open(Path("a.say"));
    FileBytes byte(1);
    if (file->Length() != 3 || file->Read(0, byte) != 1) Fail(Failure::Past_End_Of_File);
    file->Write(1, FileBytes{9});
  };
  const pid_t child = ::fork();  // a filter is for ever
  if (child == 0) {
    if (!Lose_The_Locks()) ::_exit(Cannot_Tell);
    const int number = Failure_Of([&] {
      use(linux::DataFileStore::Locking::Each_Call);
      use(linux::DataFileStore::Locking::Held);
    });
    ::_exit(number == 0 ? Good : Bad);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  if (WEXITSTATUS(status) == Cannot_Tell) GTEST_SKIP() << "no filter for system calls here";
  EXPECT_EQ(WEXITSTATUS(status), Good);
  EXPECT_EQ(Content("a.say"), (FileBytes{1, 9, 3}));
}

}  // namespace
}  // namespace quillspeech::tests
