#include "base/host_text.hpp"

#include <gtest/gtest.h>

namespace quillspeech {
namespace {

TEST(HostText, Numbers_that_hosts_know_have_their_words) {
  EXPECT_STREQ(Host_Text(9), "Subscript out of range");
  EXPECT_STREQ(Host_Text(Host_Type_Mismatch), "Type mismatch");
  EXPECT_STREQ(Host_Text(Invalid_Use_Of_Null), "Invalid use of Null");
  EXPECT_STREQ(Host_Text(No_Such_Member), "Object doesn't support this property or method");
}

TEST(HostText, Any_other_number_has_a_general_sentence) {
  for (const int number : {-1, 0, 1, 440, 1000}) {
    EXPECT_STREQ(Host_Text(number), "Application-defined or object-defined error");
  }
}

}  // namespace
}  // namespace quillspeech
