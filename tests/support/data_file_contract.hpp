// What every store of data files on a disk keeps to.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/data_file.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/temporary_folder.hpp"

namespace quillspeech::tests {

// `Backend::Make()` gives the store, and `Backend::Make_Holding()` one that holds its files locked.
template <class Backend>
struct DataFileContract : testing::Test, TemporaryFolder {
  decltype(Backend::Make()) store = Backend::Make();
};
TYPED_TEST_SUITE_P(DataFileContract);

TYPED_TEST_P(DataFileContract, A_new_name_is_created_empty) {
  const auto file = this->store.Open(this->Path("new.say"));
  EXPECT_EQ(file->Length(), 0);
  EXPECT_TRUE(this->Exists("new.say"));
}

TYPED_TEST_P(DataFileContract, An_existing_file_is_opened_as_it_is) {
  const auto file = this->store.Open(this->Put("a.say", {1, 2, 3}));
  EXPECT_EQ(file->Length(), 3);
  std::vector<std::uint8_t> bytes(4);
  EXPECT_EQ(file->Read(1, bytes), 2);
  EXPECT_EQ(bytes, (std::vector<std::uint8_t>{2, 3, 0, 0}));
  EXPECT_EQ(this->Content("a.say"), (std::vector<std::uint8_t>{1, 2, 3}));
}

TYPED_TEST_P(DataFileContract, Reading_behind_the_end_gives_nothing) {
  const auto file = this->store.Open(this->Put("a.say", {1, 2, 3}));
  std::vector<std::uint8_t> bytes(4);
  EXPECT_EQ(file->Read(3, bytes), 0);
  EXPECT_EQ(file->Read(std::int64_t{1} << 44, bytes), 0);
}

TYPED_TEST_P(DataFileContract, A_write_changes_its_span_only_and_grows_the_file_with_zeros) {
  const auto file = this->store.Open(this->Put("a.say", {1, 2, 3}));
  file->Write(1, std::vector<std::uint8_t>{9});
  EXPECT_EQ(this->Content("a.say"), (std::vector<std::uint8_t>{1, 9, 3}));
  file->Write(5, std::vector<std::uint8_t>{7, 7});
  EXPECT_EQ(this->Content("a.say"), (std::vector<std::uint8_t>{1, 9, 3, 0, 0, 7, 7}));
}

TYPED_TEST_P(DataFileContract, Opening_and_closing_delete_nothing) {
  this->Put("a.say", {1, 2, 3});
  { const auto file = this->store.Open(this->Path("a.say")); }
  { const auto file = this->store.Open(this->Path("new.say")); }
  EXPECT_EQ(this->Content("a.say"), (std::vector<std::uint8_t>{1, 2, 3}));
  EXPECT_TRUE(this->Exists("new.say"));
}

TYPED_TEST_P(DataFileContract, Two_users_of_a_file_see_the_same_bytes) {
  const auto one = this->store.Open(this->Path("a.say"));
  const auto other = this->store.Open(this->Path("a.say"));
  one->Write(0, std::vector<std::uint8_t>{7});
  std::vector<std::uint8_t> bytes(1);
  EXPECT_EQ(other->Read(0, bytes), 1);
  EXPECT_EQ(bytes[0], 7);
  EXPECT_EQ(other->Length(), 1);
}

TYPED_TEST_P(DataFileContract, A_file_that_is_held_can_be_used_and_opened_again_when_it_is_closed) {
  auto holding = TypeParam::Make_Holding();
  for (const std::uint8_t byte : std::vector<std::uint8_t>{4, 5}) {
    const auto file = holding.Open(this->Path("a.say"));
    file->Write(file->Length(), std::vector<std::uint8_t>{byte});
  }
  EXPECT_EQ(this->Content("a.say"), (std::vector<std::uint8_t>{4, 5}));
}

TYPED_TEST_P(DataFileContract, Names_that_cannot_be_opened_fail_with_their_numbers) {
  std::filesystem::create_directory(this->Path("folder"));
  this->Put("plain", {1});
  struct Case {
    std::string name;
    int number;
  };
  const std::vector<Case> cases = {
      {"", 52},
      {this->Path("a") + std::string("\0b", 2), 52},
      {this->Path(std::string(300, 'n')), 52},
      {this->Path("gone/a.say"), 76},
      {this->Path("plain/a.say"), 76},
      {this->Path("folder"), 75},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(Failure_Of([&] { this->store.Open(one.name); }), one.number);
  }
}

REGISTER_TYPED_TEST_SUITE_P(DataFileContract, A_new_name_is_created_empty,
                            An_existing_file_is_opened_as_it_is,
                            Reading_behind_the_end_gives_nothing,
                            A_write_changes_its_span_only_and_grows_the_file_with_zeros,
                            Opening_and_closing_delete_nothing,
                            Two_users_of_a_file_see_the_same_bytes,
                            A_file_that_is_held_can_be_used_and_opened_again_when_it_is_closed,
                            Names_that_cannot_be_opened_fail_with_their_numbers);

}  // namespace quillspeech::tests
