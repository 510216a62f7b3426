#include "platform/linux/data_file.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "tests/linux/open_descriptors.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/temporary_folder.hpp"

namespace quillspeech {
namespace {

namespace fs = std::filesystem;
using tests::Descriptor_Of;
using tests::Failure_Of;
using tests::Open_Descriptors;
using FileBytes = std::vector<std::uint8_t>;

struct DataFileOnDisk : testing::Test, tests::TemporaryFolder {
  linux::DataFileStore store;
};

TEST_F(DataFileOnDisk, A_new_name_is_created_empty) {
  const auto file = store.Open(Path("new.say"));
  EXPECT_EQ(file->Length(), 0);
  EXPECT_TRUE(Exists("new.say"));
}

TEST_F(DataFileOnDisk, An_existing_file_is_opened_as_it_is) {
  const auto file = store.Open(Put("a.say", {1, 2, 3}));
  EXPECT_EQ(file->Length(), 3);
  FileBytes bytes(4);
  EXPECT_EQ(file->Read(1, bytes), 2);
  EXPECT_EQ(bytes, (FileBytes{2, 3, 0, 0}));
  EXPECT_EQ(Content("a.say"), (FileBytes{1, 2, 3}));
}

TEST_F(DataFileOnDisk, Reading_behind_the_end_gives_nothing) {
  const auto file = store.Open(Put("a.say", {1, 2, 3}));
  FileBytes bytes(4);
  EXPECT_EQ(file->Read(3, bytes), 0);
  EXPECT_EQ(file->Read(std::int64_t{1} << 44, bytes), 0);
}

TEST_F(DataFileOnDisk, A_write_changes_its_span_only_and_grows_the_file_with_zeros) {
  const auto file = store.Open(Put("a.say", {1, 2, 3}));
  file->Write(1, FileBytes{9});
  EXPECT_EQ(Content("a.say"), (FileBytes{1, 9, 3}));
  file->Write(5, FileBytes{7, 7});
  EXPECT_EQ(Content("a.say"), (FileBytes{1, 9, 3, 0, 0, 7, 7}));
}

TEST_F(DataFileOnDisk, Failures_to_open_have_their_numbers) {
  fs::create_directory(Path("folder"));
  Put("plain", {1});
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  fs::create_symlink(Path("ring"), Path("ring"));
  struct Case {
    std::string name;
    int number;
  };
  const std::vector<Case> cases = {
      {"", 52},
      {Path("a") + std::string("\0b", 2), 52},
      {Path(std::string(300, 'n')), 52},
      {Path("gone/a.say"), 76},
      {Path("plain/a.say"), 76},
      {Path("folder"), 75},
      {Path("pipe"), 75},
      {Path("ring"), 75},
      {"/dev/null", 75},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(Failure_Of([&] { store.Open(one.name); }), one.number);
  }
}

// While it lives, root is an ordinary user: root may write every file.
class OrdinaryUser {
 public:
  OrdinaryUser() : old_(::geteuid()) {
    constexpr uid_t Nobody = 65534;
    if (old_ == 0) is_ordinary_ = ::seteuid(Nobody) == 0;
  }
  ~OrdinaryUser() {
    if (::seteuid(old_) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  bool Is_Ordinary() const { return is_ordinary_; }

 private:
  uid_t old_;
  bool is_ordinary_ = true;
};

TEST_F(DataFileOnDisk, A_file_that_may_not_be_written_is_failure_75) {
  const std::string path = Put("a.say", {1});
  fs::permissions(Folder(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  fs::permissions(path, fs::perms::owner_read | fs::perms::others_read);
  const OrdinaryUser user;
  if (!user.Is_Ordinary()) GTEST_SKIP() << "root cannot become another user here";
  EXPECT_EQ(Failure_Of([&] { store.Open(path); }), 75);
}

TEST_F(DataFileOnDisk, No_descriptor_is_left_open) {
  fs::create_directory(Path("folder"));
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  const int before = Open_Descriptors();
  EXPECT_EQ(Failure_Of([&] { store.Open(Path("folder")); }), 75);
  EXPECT_EQ(Failure_Of([&] { store.Open(Path("pipe")); }), 75);
  EXPECT_EQ(Failure_Of([&] { store.Open(Path("gone/a.say")); }), 76);
  { const auto file = store.Open(Path("a.say")); }
  EXPECT_EQ(Open_Descriptors(), before);
}

TEST_F(DataFileOnDisk, Opening_and_closing_delete_nothing) {
  Put("a.say", {1, 2, 3});
  { const auto file = store.Open(Path("a.say")); }
  { const auto file = store.Open(Path("new.say")); }
  EXPECT_EQ(Content("a.say"), (FileBytes{1, 2, 3}));
  EXPECT_TRUE(Exists("new.say"));
}

// While it lives, files of this process end at that length: a write that crosses it is torn there.
class LargestFile {
 public:
  explicit LargestFile(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    old_handler_ = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{bytes, old_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~LargestFile() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    ::signal(SIGXFSZ, old_handler_);
  }
  LargestFile(const LargestFile&) = delete;
  LargestFile& operator=(const LargestFile&) = delete;

 private:
  rlimit old_{};
  sighandler_t old_handler_ = nullptr;
};

TEST_F(DataFileOnDisk, A_write_torn_while_the_file_grows_leaves_the_file_as_it_was) {
  const auto file = store.Open(Put("a.say", FileBytes(100, 1)));
  int number = 0;
  {
    const LargestFile limit(120);
    number = Failure_Of([&] { file->Write(90, FileBytes(50, 9)); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));
  EXPECT_EQ(file->Length(), 100);
}

TEST_F(DataFileOnDisk, A_write_torn_within_the_file_puts_the_old_bytes_back) {
  const auto file = store.Open(Put("a.say", FileBytes(100, 1)));
  int number = 0;
  {
    const LargestFile limit(60);
    number = Failure_Of([&] { file->Write(40, FileBytes(50, 9)); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));
}

TEST_F(DataFileOnDisk, A_write_that_cannot_begin_leaves_the_file_as_it_was) {
  const auto file = store.Open(Put("a.say", FileBytes(100, 1)));
  int number = 0;
  {
    const LargestFile limit(100);
    number = Failure_Of([&] { file->Write(200, FileBytes(50, 9)); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));
  file->Write(100, FileBytes(1, 2));
  EXPECT_EQ(file->Length(), 101);
}

// A file in memory, by a path of its own, that refuses to be cut.
class UncuttableFile {
 public:
  explicit UncuttableFile(const FileBytes& bytes)
      : descriptor_(::memfd_create("uncuttable", MFD_CLOEXEC | MFD_ALLOW_SEALING)) {
    EXPECT_EQ(::write(descriptor_, bytes.data(), bytes.size()), std::ssize(bytes));
    EXPECT_EQ(::fcntl(descriptor_, F_ADD_SEALS, F_SEAL_SHRINK), 0);
  }
  ~UncuttableFile() { ::close(descriptor_); }
  UncuttableFile(const UncuttableFile&) = delete;
  UncuttableFile& operator=(const UncuttableFile&) = delete;
  std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

TEST_F(DataFileOnDisk, A_file_that_cannot_be_cut_again_has_its_old_bytes_and_the_first_failure) {
  const UncuttableFile uncuttable(FileBytes(100, 1));
  const auto file = store.Open(uncuttable.Path());
  int number = 0;
  {
    const LargestFile limit(120);
    number = Failure_Of([&] { file->Write(90, FileBytes(50, 9)); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(file->Length(), 120);
  FileBytes bytes(100);
  EXPECT_EQ(file->Read(0, bytes), 100);
  EXPECT_EQ(bytes, FileBytes(100, 1));
}

TEST_F(DataFileOnDisk, A_child_process_inherits_no_open_file) {
  const std::string path = Path("a.say");
  const auto file = store.Open(path);
  const int descriptor = Descriptor_Of(path);
  ASSERT_GE(descriptor, 0);
  EXPECT_EQ(::fcntl(descriptor, F_GETFD), FD_CLOEXEC);
}

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
  const std::string path = Put("a.say", FileBytes(100, 1));
  const auto file = store.Open(path);
  const int unlockable = ::open(path.c_str(), O_PATH | O_CLOEXEC);  // can be measured all the same
  ASSERT_GE(::dup3(unlockable, Descriptor_Of(path), O_CLOEXEC), 0);
  ::close(unlockable);
  FileBytes bytes(1);
  EXPECT_EQ(Failure_Of([&] { file->Length(); }), 57);
  EXPECT_EQ(Failure_Of([&] { file->Read(0, bytes); }), 57);
  EXPECT_EQ(Failure_Of([&] { file->Write(0, bytes); }), 57);
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));
}

}  // namespace
}  // namespace quillspeech
