#include "base/run_time_failure.hpp"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

TEST(RunTimeFailure, A_failure_carries_the_number_that_hosts_know) {
  const struct {
    Failure failure;
    int number;
  } cases[] = {{Failure::Invalid_Call, 5},       {Failure::Overflow, 6},
               {Failure::Out_Of_Memory, 7},      {Failure::Subscript_Out_Of_Range, 9},
               {Failure::Division_By_Zero, 11},  {Failure::Type_Mismatch, 13},
               {Failure::Bad_File_Name, 52},     {Failure::File_Not_Found, 53},
               {Failure::Device_Failure, 57},    {Failure::Disk_Full, 61},
               {Failure::Past_End_Of_File, 62},  {Failure::Bad_Record_Number, 63},
               {Failure::Permission_Denied, 70}, {Failure::Path_Access, 75},
               {Failure::Path_Not_Found, 76},    {Failure::Bad_Pattern, 93}};
  for (const auto& c : cases) {
    EXPECT_EQ(Failure_Of([&] { Fail(c.failure); }), c.number);
    EXPECT_EQ(RunTimeFailure(c.failure).Number(), c.number);
  }
}

TEST(RunTimeFailure, Memory_that_runs_out_is_failure_7) {
  EXPECT_EQ(Failure_Of([] { throw std::bad_alloc(); }), 7);
  EXPECT_EQ(Failure_Of([] { throw std::length_error("too long"); }), 7);
}

TEST(RunTimeFailure, Any_other_exception_is_failure_5) {
  EXPECT_EQ(Failure_Of([] { throw std::runtime_error("surprise"); }), 5);
  EXPECT_EQ(Failure_Of([] { throw 1; }), 5);
}

TEST(RunTimeFailure, Each_number_has_a_sentence_of_its_own) {
  for (const int number : {5, 6, 7, 9, 11, 13, 52, 53, 57, 61, 62, 63, 70, 75, 76, 93}) {
    EXPECT_STRNE(Failure_Text(number), "unknown failure") << number;
    EXPECT_STRNE(Failure_Text(number), "") << number;
  }
  EXPECT_STREQ(Failure_Text(1234), "unknown failure");
  EXPECT_STREQ(RunTimeFailure(Failure::Overflow).what(), Failure_Text(6));
}

}  // namespace
}  // namespace quillspeech
