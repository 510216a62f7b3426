// What every walk over the RIFF files of a file system keeps to.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/riff_file.hpp"
#include "tests/support/riff_file_contract.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

// `Backend::Make()` gives the `RiffFiles`.
template <class Backend>
struct RiffFileOnDisk : TemporaryFolder {
  decltype(Backend::Make()) files = Backend::Make();

  std::unique_ptr<RiffFile> Open(const std::vector<std::uint8_t>& content) {
    return files.Open(Put("a.wav", content));
  }
};

template <class Backend>
struct RiffFileOnDiskContract : testing::Test, RiffFileOnDisk<Backend> {};
TYPED_TEST_SUITE_P(RiffFileOnDiskContract);

TYPED_TEST_P(RiffFileOnDiskContract, Opening_creates_nothing) {
  this->files.Open(this->Path("none.wav"));
  EXPECT_TRUE(std::filesystem::is_empty(this->Folder()));
}

TYPED_TEST_P(RiffFileOnDiskContract, A_file_that_lies_beyond_four_gigabytes_makes_no_loop) {
  const std::string path =
      this->Put("a.wav", Wave().Chunk("junk", {}).Claiming(0xFFFFFFFE).Riff_Claiming(0xFFFFFFFF));
  std::filesystem::resize_file(path,
                               (std::uintmax_t{1} << 32) + 1000);  // a hole, no space on the disk
  const auto file = this->files.Open(path);
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_FALSE(file->Descend_To_Chunk(Data_Chunk, *riff));
}

TYPED_TEST_P(RiffFileOnDiskContract, A_folder_and_a_name_without_a_file_do_not_open) {
  const std::string file = this->Put("a.wav", {1});
  for (const std::string& path : {std::string(), this->Path("none.wav"), this->Folder().string(),
                                  file + std::string("\0.wav", 5)}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(this->files.Open(path), nullptr);
  }
  EXPECT_NE(this->files.Open(file), nullptr);
}

REGISTER_TYPED_TEST_SUITE_P(RiffFileOnDiskContract, Opening_creates_nothing,
                            A_file_that_lies_beyond_four_gigabytes_makes_no_loop,
                            A_folder_and_a_name_without_a_file_do_not_open);

}  // namespace quillspeech::tests
