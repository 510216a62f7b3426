#include "platform/linux/data_file.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/linux/data_file_fixture.hpp"
#include "tests/support/data_file_contract.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

namespace fs = std::filesystem;

struct OfLinux {
  static linux::DataFileStore Make() { return linux::DataFileStore(); }
  static linux::DataFileStore Make_Holding() {
    return linux::DataFileStore(linux::DataFileStore::Locking::Held);
  }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Linux, DataFileContract, OfLinux);

// While it lives, new files lack these permissions.
class FileMask {
 public:
  explicit FileMask(mode_t mask) : old_(::umask(mask)) {}
  ~FileMask() { ::umask(old_); }
  FileMask(const FileMask&) = delete;
  FileMask& operator=(const FileMask&) = delete;

 private:
  mode_t old_;
};

TEST_F(DataFileOnDisk, A_new_file_has_the_permissions_that_the_users_mask_leaves) {
  struct Case {
    mode_t mask;
    fs::perms permissions;
  };
  for (const Case& one : {Case{0, fs::perms{0666}}, Case{027, fs::perms{0640}}}) {
    const FileMask mask(one.mask);
    store.Open(Path("new.say"));
    EXPECT_EQ(fs::status(Path("new.say")).permissions(), one.permissions);
    fs::remove(Path("new.say"));
  }
}

TEST_F(DataFileOnDisk, A_read_that_fails_is_failure_57_and_never_fewer_bytes) {
  const auto file = store.Open(Put("a.say", FileBytes(100, 1)));
  Reopen("a.say", O_WRONLY);
  EXPECT_EQ(file->Length(), 100);
  FileBytes bytes(50);
  EXPECT_EQ(Failure_Of([&] { file->Read(0, bytes); }), 57);
  EXPECT_EQ(Failure_Of([&] { file->Write(0, FileBytes(50, 9)); }),
            57);  // the old bytes are unknown
  EXPECT_EQ(Content("a.say"), FileBytes(100, 1));
}

TEST_F(DataFileOnDisk, What_is_no_regular_file_is_failure_75) {
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  fs::create_symlink(Path("ring"), Path("ring"));
  for (const std::string& name : {Path("pipe"), Path("ring"), std::string("/dev/null")}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Failure_Of([&] { store.Open(name); }), 75);
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

}  // namespace
}  // namespace quillspeech::tests
