#include "platform/linux/data_file.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "base/run_time_failure.hpp"
#include "datafiles/record_file.hpp"

namespace quillspeech {
namespace {

namespace fs = std::filesystem;
using File_Bytes = std::vector<std::uint8_t>;

int Failure_Number(const std::function<void()>& call) {
  try {
    call();
  } catch (const RunTimeFailure& failure) {
    return failure.Number();
  }
  return 0;
}

int Open_Descriptors() {
  const fs::directory_iterator all("/proc/self/fd");
  return static_cast<int>(std::distance(begin(all), end(all)));
}

// A folder of its own for each test, which goes with it.
struct DataFileOnDisk : testing::Test {
  linux::DataFileStore store;
  fs::path folder;

  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "quillspeech-XXXXXX").string();
    ASSERT_NE(::mkdtemp(name.data()), nullptr);
    folder = name;
  }
  void TearDown() override { fs::remove_all(folder); }

  std::string Path(const std::string& name) const { return (folder / name).string(); }
  std::string Put(const std::string& name, const File_Bytes& bytes) const {
    std::ofstream(Path(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return Path(name);
  }
  File_Bytes Content(const std::string& name) const {
    std::ifstream stream(Path(name), std::ios::binary);
    return File_Bytes(std::istreambuf_iterator<char>(stream), {});
  }
};

TEST_F(DataFileOnDisk, A_new_name_is_created_empty) {
  const auto file = store.Open(Path("new.say"));
  EXPECT_EQ(file->Length(), 0);
  EXPECT_TRUE(fs::exists(Path("new.say")));
}

TEST_F(DataFileOnDisk, An_existing_file_is_opened_as_it_is) {
  const auto file = store.Open(Put("a.say", {1, 2, 3}));
  EXPECT_EQ(file->Length(), 3);
  File_Bytes bytes(4);
  EXPECT_EQ(file->Read(1, bytes), 2);
  EXPECT_EQ(bytes, (File_Bytes{2, 3, 0, 0}));
  EXPECT_EQ(Content("a.say"), (File_Bytes{1, 2, 3}));
}

TEST_F(DataFileOnDisk, Reading_behind_the_end_gives_nothing) {
  const auto file = store.Open(Put("a.say", {1, 2, 3}));
  File_Bytes bytes(4);
  EXPECT_EQ(file->Read(3, bytes), 0);
  EXPECT_EQ(file->Read(std::int64_t{1} << 44, bytes), 0);
}

TEST_F(DataFileOnDisk, A_write_changes_its_span_only_and_grows_the_file_with_zeros) {
  const auto file = store.Open(Put("a.say", {1, 2, 3}));
  file->Write(1, File_Bytes{9});
  EXPECT_EQ(Content("a.say"), (File_Bytes{1, 9, 3}));
  file->Write(5, File_Bytes{7, 7});
  EXPECT_EQ(Content("a.say"), (File_Bytes{1, 9, 3, 0, 0, 7, 7}));
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
    EXPECT_EQ(Failure_Number([&] { store.Open(one.name); }), one.number);
  }
}

// While it lives, root is an ordinary user: root may write every file.
class Ordinary_User {
 public:
  Ordinary_User() : old_(::geteuid()) {
    constexpr uid_t Nobody = 65534;
    if (old_ == 0) is_ordinary_ = ::seteuid(Nobody) == 0;
  }
  ~Ordinary_User() {
    if (::seteuid(old_) != 0) std::abort();
  }
  Ordinary_User(const Ordinary_User&) = delete;
  Ordinary_User& operator=(const Ordinary_User&) = delete;
  bool Is_Ordinary() const { return is_ordinary_; }

 private:
  uid_t old_;
  bool is_ordinary_ = true;
};

TEST_F(DataFileOnDisk, A_file_that_may_not_be_written_is_failure_75) {
  const std::string path = Put("a.say", {1});
  fs::permissions(folder, fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  fs::permissions(path, fs::perms::owner_read | fs::perms::others_read);
  const Ordinary_User user;
  ASSERT_TRUE(user.Is_Ordinary());
  EXPECT_EQ(Failure_Number([&] { store.Open(path); }), 75);
}

TEST_F(DataFileOnDisk, No_descriptor_is_left_open) {
  fs::create_directory(Path("folder"));
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  const int before = Open_Descriptors();
  for (const char* name : {"folder", "pipe", "gone/a.say"}) {
    EXPECT_NE(Failure_Number([&] { store.Open(Path(name)); }), 0);
  }
  { const auto file = store.Open(Path("a.say")); }
  EXPECT_EQ(Open_Descriptors(), before);
}

TEST_F(DataFileOnDisk, Opening_and_closing_delete_nothing) {
  Put("a.say", {1, 2, 3});
  { const auto file = store.Open(Path("a.say")); }
  { const auto file = store.Open(Path("new.say")); }
  EXPECT_EQ(Content("a.say"), (File_Bytes{1, 2, 3}));
  EXPECT_TRUE(fs::exists(Path("new.say")));
}

// While it lives, files of this process end at that length: a write that crosses it is torn there.
class Largest_File {
 public:
  explicit Largest_File(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    old_handler_ = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{bytes, old_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~Largest_File() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    ::signal(SIGXFSZ, old_handler_);
  }
  Largest_File(const Largest_File&) = delete;
  Largest_File& operator=(const Largest_File&) = delete;

 private:
  rlimit old_{};
  sighandler_t old_handler_ = nullptr;
};

TEST_F(DataFileOnDisk, A_write_torn_while_the_file_grows_leaves_the_file_as_it_was) {
  const auto file = store.Open(Put("a.say", File_Bytes(100, 1)));
  int number = 0;
  {
    const Largest_File limit(120);
    number = Failure_Number([&] { file->Write(90, File_Bytes(50, 9)); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(Content("a.say"), File_Bytes(100, 1));
  EXPECT_EQ(file->Length(), 100);
}

TEST_F(DataFileOnDisk, A_write_torn_within_the_file_puts_the_old_bytes_back) {
  const auto file = store.Open(Put("a.say", File_Bytes(100, 1)));
  int number = 0;
  {
    const Largest_File limit(60);
    number = Failure_Number([&] { file->Write(40, File_Bytes(50, 9)); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(Content("a.say"), File_Bytes(100, 1));
}

TEST_F(DataFileOnDisk, A_write_that_cannot_begin_leaves_the_file_as_it_was) {
  const auto file = store.Open(Put("a.say", File_Bytes(100, 1)));
  int number = 0;
  {
    const Largest_File limit(100);
    number = Failure_Number([&] { file->Write(200, File_Bytes(50, 9)); });
  }
  EXPECT_EQ(number, 61);
  EXPECT_EQ(Content("a.say"), File_Bytes(100, 1));
  file->Write(100, File_Bytes(1, 2));
  EXPECT_EQ(file->Length(), 101);
}

TEST_F(DataFileOnDisk, A_child_process_inherits_no_open_file) {
  const int before = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  const auto file = store.Open(Path("a.say"));
  EXPECT_NE(::fcntl(before + 1, F_GETFD) & FD_CLOEXEC, 0);
  ::close(before);
}

// Another user of the file, who holds its lock.
class Other_User {
 public:
  Other_User(const std::string& path, int kind)
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    EXPECT_EQ(::flock(descriptor_, kind), 0);
  }
  ~Other_User() { ::close(descriptor_); }
  Other_User(const Other_User&) = delete;
  Other_User& operator=(const Other_User&) = delete;
  void Let_Go() { ::flock(descriptor_, LOCK_UN); }

 private:
  int descriptor_;
};

// Runs the call beside us and tells whether it was asleep, or done, when it came to rest first.
// Then lets the other user go and waits for the end of the call.
bool Waits_For(Other_User& other, const std::function<void()>& call) {
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
  const std::string path = Put("a.say", File_Bytes(100, 1));
  const auto file = store.Open(path);
  File_Bytes bytes(100, 2);
  const std::vector<std::function<void()>> calls = {
      [&] { file->Read(0, bytes); }, [&] { file->Length(); }, [&] { file->Write(0, bytes); }};
  for (const auto& call : calls) {
    Other_User writer(path, LOCK_EX);
    EXPECT_TRUE(Waits_For(writer, call));
  }
}

TEST_F(DataFileOnDisk, A_writer_waits_for_readers_and_readers_not_for_each_other) {
  const std::string path = Put("a.say", File_Bytes(100, 1));
  const auto file = store.Open(path);
  Other_User reader(path, LOCK_SH);
  File_Bytes bytes(100);
  EXPECT_EQ(file->Read(0, bytes), 100);
  EXPECT_EQ(file->Length(), 100);
  EXPECT_TRUE(Waits_For(reader, [&] { file->Write(0, File_Bytes(100, 2)); }));
  EXPECT_EQ(Content("a.say"), File_Bytes(100, 2));
}

TEST_F(DataFileOnDisk, Nobody_waits_when_a_call_has_ended_or_failed) {
  const auto file = store.Open(Put("a.say", File_Bytes(100, 1)));
  {
    const Largest_File limit(120);
    EXPECT_THROW(file->Write(90, File_Bytes(50, 9)), RunTimeFailure);
  }
  file->Write(0, File_Bytes{1});
  const int descriptor = ::open(Path("a.say").c_str(), O_RDONLY | O_CLOEXEC);
  EXPECT_EQ(::flock(descriptor, LOCK_EX | LOCK_NB), 0);
  ::close(descriptor);
}

// Two threads put whole records of one letter over each other, and two more look on.
TEST_F(DataFileOnDisk, No_reader_sees_a_record_in_part) {
  constexpr int Record_Bytes = 1 << 20;
  constexpr int Records = 2;
  constexpr int Rounds = 40;
  const std::string path = Put("a.say", File_Bytes(Record_Bytes * Records, 'a'));
  std::atomic<int> writers = 2;
  std::atomic<int> torn = 0;
  const auto write = [&](std::uint8_t letter) {
    RecordFile file;
    file.Open(store, path, Record_Bytes);
    for (int i = 0; i < Rounds; ++i) file.Write(i % Records + 1, File_Bytes(Record_Bytes, letter));
    --writers;
  };
  const auto read = [&] {
    RecordFile file;
    file.Open(store, path, Record_Bytes);
    File_Bytes record(Record_Bytes);
    do {
      for (int number = 1; number <= Records; ++number) {
        file.Read(number, record);
        if (std::count(record.begin(), record.end(), record.front()) != Record_Bytes) ++torn;
      }
    } while (writers > 0);
  };
  std::vector<std::thread> threads;
  threads.emplace_back(write, std::uint8_t{'b'});
  threads.emplace_back(write, std::uint8_t{'c'});
  threads.emplace_back(read);
  threads.emplace_back(read);
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(torn, 0);
}

TEST_F(DataFileOnDisk, The_length_is_never_that_of_a_record_in_part) {
  constexpr int Record_Bytes = 9634;
  const std::string path = Put("a.say", {});
  std::atomic<bool> writing = true;
  std::thread writer([&] {
    RecordFile file;
    file.Open(store, path, Record_Bytes);
    for (int number = 1; number <= 300; ++number) {
      file.Write(number, File_Bytes(Record_Bytes, 'a'));
    }
    writing = false;
  });
  const auto file = store.Open(path);
  int parts = 0;
  do {
    if (file->Length() % Record_Bytes != 0) ++parts;
  } while (writing);
  writer.join();
  EXPECT_EQ(parts, 0);
}

}  // namespace
}  // namespace quillspeech
